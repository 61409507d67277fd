// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool icon" as a process.
#include "obtool/RunObtool.h"

#include "imagetools/icons/IconBytes.h"
#include "platform/files/FileTrouble.h"

#include "imagetools/icons/modIcon.h"
#include "imagetools/icons/modIconFile.h"
#include "imagetools/pictures/modPicture.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

Outcome Run(const char* line)
{
    return RunObtool(QStringList{u"icon"_s} + WordsOf(line));
}

QString Name(const char* name)
{
    return QString::fromLatin1(name);
}

Icon Drawn(const icons::Entry& entry)
{
    const ByteView view(reinterpret_cast<const std::uint8_t*>(entry.bytes.constData()),
                        static_cast<std::size_t>(entry.bytes.size()));
    Icon icon;
    if (const auto image = ReadIconImage(view))
        DrawIcon(icon, *image);
    return icon;
}

QList<QList<icons::Entry>> Icons()
{
    return {{icons::RandomImage(16, 16, 4, 1), icons::RandomImage(32, 32, 8, 2)},
            {icons::RandomImage(48, 48, 32, 3)},
            {icons::RandomImage(32, 32, 1, 4)}};
}

} // namespace

class tst_toolIcon : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QDir::setCurrent(folder->path());
        const auto resources = icons::ResourcesOf(Icons());
        Put(Name("pe32.dll"), icons::PeFile(resources, icons::PeKind::Bits32));
        Put(Name("pe64.dll"), icons::PeFile(resources, icons::PeKind::Bits64));
        Put(Name("ne.icl"), icons::NeFile(resources));
        Put(Name("one.ico"), icons::IcoFile(Icons()[0]));
    }
    void cleanup()
    {
        QDir::setCurrent(QDir::rootPath());
        folder.reset();
    }

    void iconsAreListed()
    {
        for (const char* program : {"pe32.dll", "pe64.dll", "ne.icl"}) {
            const Outcome result = Run((QByteArray("list ") + program).constData());
            QCOMPARE(result.error, QByteArray());
            QCOMPARE(result.status, 0);
            QCOMPARE(result.out, QByteArray("0\t32\t32\t8\n1\t48\t48\t32\n2\t32\t32\t1\n"));
        }
        QCOMPARE(Run("list one.ico").out, QByteArray("0\t32\t32\t8\n"));
    }

    void filesWithoutIconsAreFailures()
    {
        Put(Name("text.ico"), "no icon here");
        Put(Name("bare.dll"), icons::PeFile({}, icons::PeKind::Bits32));
        for (const char* file : {"text.ico", "bare.dll"}) {
            const Outcome result = Run((QByteArray("list ") + file).constData());
            QCOMPARE(result.status, 1);
            QCOMPARE(result.out, QByteArray());
            QCOMPARE(result.error, QByteArray("obtool: ") + file + ": There is no icon in the file.\n");
        }
        QCOMPARE(Run("list none.ico").error, QByteArray("obtool: none.ico: File not found\n"));
        QDir().mkdir(Name("sub"));
        QCOMPARE(Run("list sub").status, 1);
    }

    void anIconThatCannotBeReadIsNamedAfterTheOthers()
    {
        auto icons = Icons();
        icons::Overwrite(icons[1][0].bytes, 16, 1, 4);
        Put(Name("part.dll"), icons::PeFile(icons::ResourcesOf(icons), icons::PeKind::Bits32));
        const Outcome list = Run("list part.dll");
        QCOMPARE(list.status, 1);
        QCOMPARE(list.out, QByteArray("0\t32\t32\t8\n2\t32\t32\t1\n"));
        QCOMPARE(list.error, QByteArray("obtool: part.dll: Icon 1 cannot be read.\n"));
        QCOMPARE(Run("extract part.dll 1 x.ico").status, 1);
        QVERIFY(!QFile::exists(Name("x.ico")));
        QCOMPARE(Run("extract part.dll 2 x.ico").status, 0);
    }

    void iconsAreExtracted_data()
    {
        QTest::addColumn<QByteArray>("program");
        for (const char* program : {"pe32.dll", "pe64.dll", "ne.icl"})
            QTest::newRow(program) << QByteArray(program);
    }
    void iconsAreExtracted()
    {
        QFETCH(QByteArray, program);
        for (int index = 0; index < 3; ++index) {
            const QByteArray number = QByteArray::number(index);
            const Icon icon = Drawn(index == 0 ? Icons()[0][1] : Icons()[index][0]);
            const Outcome result = Run(("extract " + program + ' ' + number + " out.ico").constData());
            QCOMPARE(result.error, QByteArray());
            QCOMPARE(result.status, 0);
            QCOMPARE(Get(Name("out.ico")).size(), 766);
            QCOMPARE(Get(Name("out.ico")), IconFileOf(icon));
            QCOMPARE(Run(("extract " + program + ' ' + number + " out.BMP").constData()).status, 0);
            QCOMPARE(Get(Name("out.BMP")), BitmapFileOf(ReducedIcon(icon)));
            QFile::remove(Name("out.ico"));
        }
    }

    void anIconBeyondTheLastIsAFailure()
    {
        Put(Name("out.ico"), "old");
        const Outcome result = Run("extract pe32.dll 3 out.ico");
        QCOMPARE(result.status, 1);
        QCOMPARE(result.error, QByteArray("obtool: pe32.dll: There is no icon 3 in the file.\n"));
        QCOMPARE(Run("extract one.ico 1 out.ico").status, 1);
        QCOMPARE(Run("extract one.ico -1 out.ico").status, 1);
        QCOMPARE(Get(Name("out.ico")), QByteArray("old"));
    }

    void picturesBecomeIcons()
    {
        QImage image(50, 20, QImage::Format_RGB32);
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 50; ++x)
                image.setPixel(x, y, qRgb(x * 5, y * 12, 100));
        }
        QVERIFY(image.save(Name("in.png")));
        const Outcome result = Run("make in.png out.ico");
        QCOMPARE(result.error, QByteArray());
        QCOMPARE(result.status, 0);
        QCOMPARE(Get(Name("out.ico")), IconFileOf(IconFromPicture(CreateFromPicture(image))));
        Put(Name("bad.bmp"), "BM nothing");
        QCOMPARE(Run("make bad.bmp out.ico").error, QByteArray("obtool: bad.bmp: Invalid picture\n"));
        QCOMPARE(Get(Name("out.ico")).size(), 766);
    }

    void theEngineReceivesItsBytesAndNoOthers_data()
    {
        QTest::addColumn<int>("version");
        QTest::addColumn<int>("offset");
        QTest::newRow("version 3") << 3 << 21663;
        QTest::newRow("version 4") << 4 << 21735;
    }
    void theEngineReceivesItsBytesAndNoOthers()
    {
        QFETCH(int, version);
        QFETCH(int, offset);
        const QByteArray engine = icons::Noise(40'000, 9);
        Put(Name("run.exe"), engine);
        const QByteArray line = "install one.ico run.exe --engine " + QByteArray::number(version);
        const Outcome result = Run(line.constData());
        QCOMPARE(result.error, QByteArray());
        QCOMPARE(result.status, 0);
        QByteArray expected = engine;
        expected.replace(offset, 745, IconFileOf(Drawn(Icons()[0][1])).sliced(21, 745));
        QCOMPARE(Get(Name("run.exe")), expected);
        QVERIFY(!QFile::exists(u"" OB_BIN "/temp.ico"_s));
    }

    void aMissingEngineIsAFailure()
    {
        const Outcome result = Run("install one.ico none.exe --engine 4");
        QCOMPARE(result.status, 1);
        QCOMPARE(result.error, QByteArray("obtool: none.exe: File not found\n"));
        QVERIFY(!QFile::exists(Name("none.exe")));
        Put(Name("run.exe"), "engine");
        QCOMPARE(Run("install none.ico run.exe --engine 4").error, QByteArray("obtool: none.ico: File not found\n"));
        QCOMPARE(Get(Name("run.exe")), QByteArray("engine"));
    }

    void wrongUsageIsReported_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QByteArray>("usage");
        const auto row = [](const char* line, const char* usage) {
            QTest::newRow(line) << QByteArray(line) << QByteArray(usage);
        };
        row("list", "obtool icon list FILE");
        row("list a b", "obtool icon list FILE");
        row("extract a 0", "obtool icon extract FILE INDEX OUT");
        row("extract a first b", "obtool icon extract FILE INDEX OUT");
        row("make a", "obtool icon make IN OUT");
        row("install a b", "obtool icon install ICON ENGINE --engine 3|4");
        row("install a b --engine 5", "obtool icon install ICON ENGINE --engine 3|4");
        row("", "obtool icon VERB [OPTIONS] ARGUMENTS");
    }
    void wrongUsageIsReported()
    {
        QFETCH(QByteArray, line);
        QFETCH(QByteArray, usage);
        const Outcome result = Run(line.constData());
        QCOMPARE(result.status, 2);
        QVERIFY2(result.error.endsWith("usage: " + usage + '\n'), result.error.constData());
    }
};

QTEST_GUILESS_MAIN(tst_toolIcon)
#include "tst_toolIcon.moc"
