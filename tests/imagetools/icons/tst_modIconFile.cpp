// SPDX-License-Identifier: GPL-3.0-or-later
// Icons out of icon files and programs: files made here, files that real tools make, and hostile ones.
#include "IconBytes.h"

#include "imagetools/icons/modIcon.h"
#include "imagetools/icons/modIconFile.h"
#include "platform/files/FileTrouble.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

using namespace ob;
using icons::Entry;
using icons::PeKind;

namespace {

ByteView ViewOf(const QByteArray& bytes)
{
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())};
}

bool Same(const std::optional<IconImage>& left, const std::optional<IconImage>& right)
{
    return left && right && left->width == right->width && left->height == right->height && left->bits == right->bits &&
           left->colors == right->colors && left->mask == right->mask && left->alpha == right->alpha;
}

bool Holds(const QByteArray& file, int index, const Entry& entry)
{
    return Same(cIconIndex(ViewOf(file)).Extract(index), ReadIconImage(ViewOf(entry.bytes)));
}

// Reads everything; the result does not matter.
void LookAtAll(const QByteArray& file)
{
    const cIconIndex index(ViewOf(file));
    for (int icon = 0; icon < std::min(index.Count(), 50); ++icon) {
        const auto image = index.Extract(icon);
        QVERIFY(!image || index.Size(icon) == (IconImageSize{image->width, image->height, image->bits}));
    }
}

const QList<QList<Entry>>& SomeIcons()
{
    static const QList<QList<Entry>> icons = {
        {icons::RandomImage(16, 16, 4, 1), icons::RandomImage(32, 32, 4, 2), icons::RandomImage(32, 32, 8, 3)},
        {icons::RandomImage(48, 48, 32, 4)},
        {icons::RandomImage(32, 32, 1, 5), icons::RandomImage(256, 256, 32, 6)},
        {icons::PngImage([] {
            QImage image(64, 64, QImage::Format_ARGB32);
            image.fill(0x80102030);
            return image;
        }())}};
    return icons;
}

// The images that are chosen from them.
QList<Entry> Taken()
{
    return {SomeIcons()[0][2], SomeIcons()[1][0], SomeIcons()[2][0], SomeIcons()[3][0]};
}

} // namespace

class tst_modIconFile : public QObject {
    Q_OBJECT

    QTemporaryDir folder;

    QString Path(const QString& name) const { return folder.filePath(name); }

    QString Write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(Path(name));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? file.fileName() : QString();
    }

    static QByteArray Read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // Runs a program in the folder; false when it fails.
    bool RunTool(const QString& program, const QStringList& arguments, QByteArray* output = nullptr) const
    {
        QProcess process;
        process.setWorkingDirectory(folder.path());
        process.start(program, arguments);
        const bool isDone = process.waitForFinished(60'000) && process.exitStatus() == QProcess::NormalExit;
        if (output != nullptr)
            *output = process.readAllStandardOutput();
        if (!isDone || process.exitCode() != 0)
            qWarning("%s: %s", qPrintable(program), process.readAllStandardError().constData());
        return isDone && process.exitCode() == 0;
    }

    static bool Has(const char* program) { return !QStandardPaths::findExecutable(QLatin1String(program)).isEmpty(); }

    // A library with the icons, made by the resource compiler's tools: ALPHA and BETA have names, 7 and 200 numbers.
    QByteArray BuildLibrary(const QString& system) const
    {
        QByteArray script;
        const QList<QByteArray> names = {"200", "BETA", "7", "ALPHA"};
        for (qsizetype index = 0; index < names.size(); ++index) {
            const QString icon = u"icon%1.ico"_s.arg(index);
            Write(icon, icons::IcoFile(SomeIcons()[index]));
            script += names[index] + " ICON \"" + icon.toUtf8() + "\"\n";
        }
        Write(u"icons.rc"_s, script);
        const bool isBuilt =
            RunTool(system + u"-windres"_s, {u"--preprocessor=cat"_s, u"icons.rc"_s, u"icons.o"_s}) &&
            RunTool(system + u"-ld"_s, {u"-shared"_s, u"--entry=0"_s, u"icons.o"_s, u"-o"_s, u"icons.dll"_s});
        return isBuilt ? Read(Path(u"icons.dll"_s)) : QByteArray();
    }

    // What wrestool finds, by name; each as an icon file.
    QMap<QString, QByteArray> Wrestool(const QString& program) const
    {
        QDir(Path(u"found"_s)).removeRecursively();
        QDir(folder.path()).mkdir(u"found"_s);
        QMap<QString, QByteArray> found;
        if (!RunTool(u"wrestool"_s, {u"-x"_s, u"-t14"_s, u"-o"_s, u"found"_s, program}))
            return found;
        static const QRegularExpression pattern(u"_14_([A-Za-z0-9]+)"_s);
        const QDir list(Path(u"found"_s));
        for (const QString& name : list.entryList(QDir::Files))
            found.insert(pattern.match(name).captured(1), Read(list.filePath(name)));
        return found;
    }

private Q_SLOTS:
    void anIconFileIsOneIcon()
    {
        const QByteArray file = icons::IcoFile(SomeIcons()[0]);
        QCOMPARE(cIconIndex(ViewOf(file)).Count(), 1);
        QVERIFY(Holds(file, 0, SomeIcons()[0][2]));
        QVERIFY(!cIconIndex(ViewOf(file)).Extract(1));
        QVERIFY(!cIconIndex(ViewOf(file)).Extract(-1));
    }

    void theBestImageIsTaken_data()
    {
        QTest::addColumn<QList<int>>("images"); // side, bits, side, bits, ...
        QTest::addColumn<int>("taken");
        const auto row = [](const char* name, const QList<int>& images, int taken) {
            QTest::newRow(name) << images << taken;
        };
        row("32 before all", {256, 32, 32, 1, 48, 32}, 1);
        row("32 with most bits", {32, 4, 32, 24, 32, 8}, 1);
        row("the first of equals", {32, 8, 32, 8}, 0);
        row("the nearest size", {16, 32, 128, 32, 40, 1}, 2);
        row("smaller may be nearer", {24, 1, 48, 32}, 0);
        row("most bits of equally near", {16, 4, 48, 8}, 1);
        row("the first of equally near", {48, 8, 16, 8}, 0);
    }
    void theBestImageIsTaken()
    {
        QFETCH(QList<int>, images);
        QFETCH(int, taken);
        QList<Entry> entries;
        for (qsizetype index = 0; index < images.size(); index += 2)
            entries.append(
                icons::RandomImage(images[index], images[index], images[index + 1], static_cast<unsigned>(index)));
        QVERIFY(Holds(icons::IcoFile(entries), 0, entries[taken]));
        QVERIFY(Holds(icons::PeFile(icons::ResourcesOf({entries}), PeKind::Bits32), 0, entries[taken]));
        QVERIFY(Holds(icons::NeFile(icons::ResourcesOf({entries})), 0, entries[taken]));
    }

    // The directory has no room for 256 and says 0.
    void aSideOf256IsRead()
    {
        const Entry entry = icons::RandomImage(256, 256, 8);
        const QByteArray file = icons::IcoFile({entry});
        QCOMPARE(file[6], '\0');
        QVERIFY(Holds(file, 0, entry));
    }

    void anUnreadableImageIsSkipped()
    {
        QList<Entry> entries = {icons::RandomImage(32, 32, 8), icons::RandomImage(16, 16, 4)};
        icons::Overwrite(entries[0].bytes, 16, 1, 4);
        QVERIFY(Holds(icons::IcoFile(entries), 0, entries[1]));
    }

    void anIconFileThatEndsEarlyHasNoImage()
    {
        const QByteArray file = icons::IcoFile({icons::RandomImage(32, 32, 4)});
        for (qsizetype size = 0; size < file.size(); ++size) {
            const QByteArray part = file.first(size);
            const cIconIndex index(ViewOf(part));
            QCOMPARE(index.Count(), size < 6 ? 0 : 1);
            QVERIFY(!index.Extract(0));
        }
    }

    void foreignBytesHaveNoIcon()
    {
        for (const char* text : {"", "M", "MZ", "BM", "print 1", "GIF89a"})
            QCOMPARE(cIconIndex(ViewOf(text)).Count(), 0);
        const char cursor[] = {0, 0, 2, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
        QCOMPARE(cIconIndex(ViewOf(QByteArray(cursor, sizeof cursor))).Count(), 0);
        QCOMPARE(cIconIndex(ViewOf(icons::IcoFile({}))).Count(), 0);
    }

    void programsGiveTheirIconsInOrder_data()
    {
        QTest::addColumn<QByteArray>("file");
        const auto resources = icons::ResourcesOf(SomeIcons(), {"ALPHA", "BETA"});
        QTest::newRow("PE, 32 bits") << icons::PeFile(resources, PeKind::Bits32);
        QTest::newRow("PE, 64 bits") << icons::PeFile(resources, PeKind::Bits64);
        for (const int shift : {3, 4, 9})
            QTest::addRow("NE, units of %d", 1 << shift)
                << icons::NeFile(icons::ResourcesOf(SomeIcons(), {"ALPHA"}), shift);
    }
    void programsGiveTheirIconsInOrder()
    {
        QFETCH(QByteArray, file);
        const QList<Entry> taken = Taken();
        QCOMPARE(cIconIndex(ViewOf(file)).Count(), 4);
        for (int index = 0; index < 4; ++index)
            QVERIFY(Holds(file, index, taken[index]));
        const QString path = Write(u"program"_s, file);
        QCOMPARE(IconCount(path), 4);
        QVERIFY(Same(ExtractIcon(path, 3), ReadIconImage(ViewOf(taken[3].bytes))));
        QVERIFY(!ExtractIcon(path, 4));
    }

    void librariesOfTheResourceCompilerAreRead_data()
    {
        QTest::addColumn<QString>("system");
        QTest::newRow("32 bits") << u"i686-w64-mingw32"_s;
        QTest::newRow("64 bits") << u"x86_64-w64-mingw32"_s;
    }
    void librariesOfTheResourceCompilerAreRead()
    {
        QFETCH(QString, system);
        if (!Has(qPrintable(system + u"-windres"_s)))
            QSKIP("no resource compiler");
        const QByteArray library = BuildLibrary(system);
        QVERIFY(!library.isEmpty());
        QCOMPARE(cIconIndex(ViewOf(library)).Count(), 4);
        // Names come before numbers, each sorted.
        const QList<Entry> taken = Taken();
        const QList<int> order = {3, 1, 2, 0};
        for (int index = 0; index < 4; ++index)
            QVERIFY2(Holds(library, index, taken[order[index]]), qPrintable(QString::number(index)));
        if (!Has("wrestool"))
            QSKIP("no wrestool");
        const QMap<QString, QByteArray> found = Wrestool(u"icons.dll"_s);
        const QList<QString> names = {u"ALPHA"_s, u"BETA"_s, u"7"_s, u"200"_s};
        QCOMPARE(found.size(), names.size());
        for (int index = 0; index < 4; ++index)
            QVERIFY2(Same(cIconIndex(ViewOf(library)).Extract(index),
                          cIconIndex(ViewOf(found.value(names[index]))).Extract(0)),
                     qPrintable(names[index]));
    }

    void wrestoolSeesTheSameInAnOlderProgram()
    {
        if (!Has("wrestool"))
            QSKIP("no wrestool");
        const QByteArray file = icons::NeFile(icons::ResourcesOf(SomeIcons()));
        const QString path = Write(u"old.dll"_s, file);
        const QMap<QString, QByteArray> found = Wrestool(path);
        QCOMPARE(found.size(), 4);
        for (int index = 0; index < 4; ++index) {
            const QByteArray icon = found.value(QString::number(100 + index));
            QVERIFY2(Same(cIconIndex(ViewOf(file)).Extract(index), cIconIndex(ViewOf(icon)).Extract(0)),
                     qPrintable(QString::number(index)));
        }
    }

    void icotoolSeesTheSamePicture_data()
    {
        QTest::addColumn<int>("bits");
        for (const int bits : {1, 4, 8, 24, 32}) // it does not read 16
            QTest::addRow("%d bits", bits) << bits;
    }
    void icotoolSeesTheSamePicture()
    {
        QFETCH(int, bits);
        if (!Has("icotool"))
            QSKIP("no icotool");
        const QByteArray file = icons::IcoFile({icons::RandomImage(48, 40, bits, 9)});
        Write(u"one.ico"_s, file);
        QVERIFY(RunTool(u"icotool"_s, {u"-x"_s, u"-o"_s, u"one.png"_s, u"one.ico"_s}));
        const QImage other(Path(u"one.png"_s));
        const auto image = cIconIndex(ViewOf(file)).Extract(0);
        QVERIFY(image.has_value());
        QCOMPARE(other.size(), QSize(48, 40));
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 48; ++x) {
                const auto place = static_cast<std::size_t>(y * 48 + x);
                const QRgb pixel = other.pixel(x, y);
                const int alpha = image->alpha.empty() ? 255 * (1 - image->mask[place]) : image->alpha[place];
                QCOMPARE(qAlpha(pixel), alpha);
                if (alpha > 0)
                    QCOMPARE(Rgb(static_cast<unsigned>(qRed(pixel)), static_cast<unsigned>(qGreen(pixel)),
                                 static_cast<unsigned>(qBlue(pixel))),
                             image->colors[place]);
            }
        }
    }

    void programsWithoutIconsHaveNone()
    {
        for (const PeKind kind : {PeKind::Bits32, PeKind::Bits64}) {
            QCOMPARE(cIconIndex(ViewOf(icons::PeFile({}, kind))).Count(), 0);
            QCOMPARE(cIconIndex(ViewOf(icons::PeFileAround({}, kind))).Count(), 0);
        }
        QCOMPARE(cIconIndex(ViewOf(icons::NeFile({}))).Count(), 0);
        // The names are where the table would be.
        QByteArray bare = icons::NeFile(icons::ResourcesOf(SomeIcons()));
        icons::Overwrite(bare, 64 + 38, 64, 2);
        QCOMPARE(cIconIndex(ViewOf(bare)).Count(), 0);
    }

    void hostileTreesEnd_data()
    {
        QTest::addColumn<int>("offset"); // in the tree
        QTest::addColumn<qulonglong>("value");
        const int groupType = 16 + 8;
        const int groups = 16 + 2 * 8 + 16 + 8; // after the one image
        const int language = groups + 16 + 8 + 24;
        const int leaf = language + 24 + 16;
        const auto row = [](const char* name, int offset, qulonglong value) { QTest::newRow(name) << offset << value; };
        row("a type that leads to the root", groupType + 4, 0x80000000);
        row("a type that leads to itself", groupType + 4, 0x80000000U | static_cast<unsigned>(groupType));
        row("a type that is a leaf", groupType + 4, 0x10);
        row("a type beyond the end", groupType + 4, 0xFFFFFFFF);
        row("an icon that leads to the root", groups + 20, 0x80000000);
        row("an icon that leads to its list", groups + 20, 0x80000000U | static_cast<unsigned>(groups));
        row("an icon that is a leaf", groups + 20, 0x10);
        row("an icon beyond the end", groups + 20, 0xFFFFFFFF);
        row("a language that leads to the root", language + 20, 0x80000000);
        row("a language beyond the end", language + 20, 0x7FFFFFFF);
        row("an address below the section", leaf, 0);
        row("an address beyond the section", leaf, 0xFFFFFFFF);
        row("a size that overflows", leaf + 4, 0xFFFFFFFF);
        row("a size beyond the section", leaf + 4, 0x10000);
        row("no icons", groups + 12, 0);
        row("more icons than bytes", groups + 12, 0xFFFFFFFF);
    }
    void hostileTreesEnd()
    {
        QFETCH(int, offset);
        QFETCH(qulonglong, value);
        const auto resources = icons::ResourcesOf({{icons::RandomImage(32, 32, 4)}});
        for (const PeKind kind : {PeKind::Bits32, PeKind::Bits64}) {
            QByteArray file = icons::PeFile(resources, kind);
            QVERIFY(cIconIndex(ViewOf(file)).Extract(0).has_value());
            icons::Overwrite(file, icons::PeTreeOffset + offset, value, 4);
            const cIconIndex index(ViewOf(file));
            LookAtAll(file);
            // The list with too large a count still starts with its one icon.
            const bool promisesMore = QByteArray(QTest::currentDataTag()) == "more icons than bytes";
            QCOMPARE(index.Extract(0).has_value(), promisesMore);
        }
    }

    void hostileOlderTablesEnd_data()
    {
        QTest::addColumn<int>("offset"); // in the table
        QTest::addColumn<int>("value");
        const auto row = [](const char* name, int offset, int value) { QTest::newRow(name) << offset << value; };
        const int groupBlock = 2 + 8 + 12;
        row("units without end", 0, 0xFFFF);
        row("units of 2 to the power of 17", 0, 17);
        row("more images than bytes", 2 + 2, 0xFFFF);
        row("more icons than bytes", groupBlock + 2, 0xFFFF);
        row("an icon beyond the end", groupBlock + 8, 0xFFFF);
        row("an icon of no length", groupBlock + 10, 0);
        row("an image beyond the end", 2 + 8, 0xFFFF);
        row("an image of no length", 2 + 10, 0);
        row("an image of another number", 2 + 14, 0x8009);
    }
    void hostileOlderTablesEnd()
    {
        QFETCH(int, offset);
        QFETCH(int, value);
        QByteArray file = icons::NeFile(icons::ResourcesOf({{icons::RandomImage(32, 32, 4)}}));
        QVERIFY(cIconIndex(ViewOf(file)).Extract(0).has_value());
        icons::Overwrite(file, 128 + offset, static_cast<std::uint64_t>(value), 2);
        LookAtAll(file);
        QVERIFY(!cIconIndex(ViewOf(file)).Extract(0));
    }

    void everyByteMayBeWrongAndEveryLengthShort_data()
    {
        QTest::addColumn<QByteArray>("file");
        const auto resources =
            icons::ResourcesOf({{icons::RandomImage(8, 8, 1)}, {icons::RandomImage(4, 4, 4)}}, {"A"});
        QTest::newRow("icon file") << icons::IcoFile({icons::RandomImage(8, 8, 1), icons::RandomImage(4, 4, 4)});
        QTest::newRow("PE, 32 bits") << icons::PeFile(resources, PeKind::Bits32);
        QTest::newRow("PE, 64 bits") << icons::PeFile(resources, PeKind::Bits64);
        QTest::newRow("NE") << icons::NeFile(resources);
    }
    void everyByteMayBeWrongAndEveryLengthShort()
    {
        QFETCH(QByteArray, file);
        for (qsizetype size = 0; size < file.size(); ++size)
            LookAtAll(file.first(size));
        for (qsizetype place = 0; place < file.size(); ++place) {
            for (const int value : {0, 1, 0x7F, 0x80, 0xFF}) {
                QByteArray wrong = file;
                wrong[place] = static_cast<char>(value);
                LookAtAll(wrong);
            }
        }
    }

    // A directory of 65535 images would take long without a bound.
    void aForgedDirectoryTakesNoTime()
    {
        QElapsedTimer timer;
        timer.start();
        const Entry image = icons::RandomImage(16, 16, 1);
        QList<Entry> many(300, image);
        QByteArray file = icons::IcoFile(many);
        icons::Overwrite(file, 4, 0xFFFF, 2);
        file.insert(6 + 16 * 300, file.sliced(6, 16).repeated(65535 - 300));
        LookAtAll(file);
        QVERIFY(timer.elapsed() < 2'000);
    }

    // Nor may all icons of a program look through one long directory: the more icons, the fewer images of each count.
    void aForgedProgramTakesNoTime()
    {
        QList<Entry> entries(100, icons::RandomImage(8, 8, 1));
        entries.append(icons::RandomImage(32, 32, 1));
        QByteArray tree = icons::PeTree(icons::ResourcesOf({entries}));
        const QByteArray plain = icons::PeFileAround(tree, PeKind::Bits32);
        QVERIFY(cIconIndex(ViewOf(plain)).Size(0) == (IconImageSize{32, 32, 1}));

        constexpr int count = 65535;
        constexpr qsizetype groupType = 16 + 8;
        const qsizetype groups = 16 + 2 * 8 + 16 + 8 * entries.size();
        const QByteArray icon = tree.sliced(groups + 16, 8);
        icons::Overwrite(tree, groupType + 4, 0x80000000U | static_cast<unsigned>(tree.size()), 4);
        tree += QByteArray(14, '\0') + QByteArray(2, '\xFF') + icon.repeated(count);
        const QByteArray file = icons::PeFileAround(tree, PeKind::Bits32);
        const cIconIndex index(ViewOf(file));
        QCOMPARE(index.Count(), count);
        QVERIFY(index.Size(count - 1) == (IconImageSize{8, 8, 1}));
    }

    void aHugeProgramIsNotReadWhole()
    {
        const QList<Entry> taken = Taken();
        QFile file(Write(u"huge.exe"_s, icons::PeFile(icons::ResourcesOf(SomeIcons()), PeKind::Bits64)));
        QVERIFY(file.open(QIODevice::ReadWrite));
        if (!file.resize(qint64{8} << 30))
            QSKIP("no room for a file with a hole");
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(IconCount(file.fileName()), 4);
        QVERIFY(Same(ExtractIcon(file.fileName(), 0), ReadIconImage(ViewOf(taken[0].bytes))));
        QVERIFY(timer.elapsed() < 1'000);
        file.remove();
    }

    void aFileThatIsShortenedMeanwhileIsAnError()
    {
        const QString path = Write(u"short.exe"_s, icons::PeFile(icons::ResourcesOf(SomeIcons()), PeKind::Bits32));
        const cIconIndex index = IconsOfFile(path);
        QCOMPARE(index.Count(), 4);
        QVERIFY(QFile::resize(path, 100));
        QCOMPARE(ErrorOf([&] { index.Extract(2); }), int(deviceIoError));
        QCOMPARE(IconCount(path), 0);
        QVERIFY(!ExtractIcon(path, 0));
    }

    void whatCannotBeReadHasNoIcon()
    {
        QCOMPARE(IconCount(Path(u"missing.exe"_s)), 0);
        QVERIFY(!ExtractIcon(Path(u"missing.exe"_s), 0));
        QCOMPARE(IconCount(folder.path()), 0);
        QCOMPARE(IconCount({}), 0);
        QCOMPARE(IconCount(Write(u"empty.ico"_s, {})), 0);
#ifdef Q_OS_UNIX
        const QString pipe = Path(u"pipe.ico"_s);
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QCOMPARE(IconCount(pipe), 0);
#endif
    }

    void ourOwnIconFilesAreReadBack()
    {
        Icon icon;
        for (int y = 4; y < 28; ++y) {
            for (int x = 4; x < 28; ++x)
                icon.At(x, y) = SwatchColor[static_cast<std::size_t>((x + y) % 16)];
        }
        const QByteArray file = IconFileOf(icon);
        const auto image = cIconIndex(ViewOf(file)).Extract(0);
        QVERIFY(image.has_value());
        QCOMPARE(image->bits, 4);
        Icon back;
        DrawIcon(back, *image);
        QVERIFY(back == icon);
    }
};

QTEST_GUILESS_MAIN(tst_modIconFile)
#include "tst_modIconFile.moc"
