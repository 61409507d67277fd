// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool write loadbmp" and "write library jpeg" as processes, and metafiles as input of obtool.
#include "obtool/RunObtool.h"

#include "imagetools/metafiles/MetafileBytes.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// Like on a machine without a display, wherever this test runs.
Outcome Run(const QStringList& arguments, const QString& folder = {})
{
    Surroundings surroundings;
    surroundings.folder = folder;
    surroundings.environment.remove(u"QT_QPA_PLATFORM"_s);
    surroundings.environment.remove(u"DISPLAY"_s);
    return RunObtool(arguments, surroundings);
}

Outcome LoadBmp(const QStringList& arguments, const QString& folder = {})
{
    return Run(QStringList{u"write"_s, u"loadbmp"_s} + arguments, folder);
}

void Put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray Expected(const char* name)
{
    QFile file(u"" OB_TEST_DATA "/imagetools/"_s + QString::fromLatin1(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll().replace("/pics/rose.bmp", "C:\\pics\\rose.bmp")
                                          : QByteArrayLiteral("(no such file)");
}

// Names of another system are not looked up.
const QString Rose = u"C:\\pics\\rose.bmp"_s;
const QString Tulip = u"C:\\art\\tulip.jpg"_s;

} // namespace

class tst_toolWriteLoadBmp : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textsAreThoseOfTheWindow_data();
    void textsAreThoseOfTheWindow();
    void relativeNameGetsItsFolder();
    void namesAreAnsi();
    void first150AreTakenAndEachFurtherOneIsANote();
    void shortNameIsAFailure();
    void missingFileIsAFailure();
    void wrongUsage_data();
    void wrongUsage();
    void demonstrationOfTheLibrary();
    void metafileIsAPictureWithItsText();
    void drawingWithTextIsAPicture();
};

void tst_toolWriteLoadBmp::textsAreThoseOfTheWindow_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("file");
    const QString dll = u"--dll"_s;
    const QString path = u"--path"_s;
    QTest::newRow("plain") << QStringList() << QByteArray("loadbmp.txt");
    QTest::newRow("path") << QStringList{path} << QByteArray("loadbmp-path.txt");
    QTest::newRow("library") << QStringList{dll} << QByteArray("loadbmp-dll.txt");
    QTest::newRow("both") << QStringList{path, dll} << QByteArray("loadbmp-dll-path.txt");
}

void tst_toolWriteLoadBmp::textsAreThoseOfTheWindow()
{
    QFETCH(QStringList, options);
    QFETCH(QByteArray, file);
    const Outcome result = LoadBmp(options + QStringList{Rose, Tulip});
    QCOMPARE(result.error, QByteArray());
    QCOMPARE(result.status, 0);
    QCOMPARE(result.out, Expected(file.constData()));
    // Options may also come after the files.
    QCOMPARE(LoadBmp(QStringList{Rose, Tulip} + options).out, result.out);
}

void tst_toolWriteLoadBmp::relativeNameGetsItsFolder()
{
    const QTemporaryDir folder;
    const QString path = QDir(folder.path()).canonicalPath();
    QVERIFY(QDir(path).mkdir(u"sub"_s));
    Put(path + u"/sub/a.bmp"_s, "");
    const Outcome result = LoadBmp({u"--path"_s, u"sub/a.bmp"_s}, path);
    QCOMPARE(result.status, 0);
    QVERIFY(result.out.contains("    loadbmp \"a\", \"" + path.toLocal8Bit() + "/sub/a.bmp\"\r\n"));
}

void tst_toolWriteLoadBmp::namesAreAnsi()
{
    const Outcome result = LoadBmp({u"C:\\pics\\\u00E9t\u00E9.bmp"_s});
    QCOMPARE(result.status, 0);
    QVERIFY(result.out.contains("    unloadbmp \"\xE9t\xE9\"\r\n"));
}

void tst_toolWriteLoadBmp::first150AreTakenAndEachFurtherOneIsANote()
{
    const QTemporaryDir folder;
    QStringList files;
    for (int i = 1; i <= 153; ++i) {
        files.append(u"p%1.bmp"_s.arg(i, 3, 10, QLatin1Char('0')));
        Put(folder.filePath(files.last()), "");
    }
    const Outcome all = LoadBmp(files.first(150), folder.path());
    QCOMPARE(all.error, QByteArray());
    const Outcome more = LoadBmp(files, folder.path());
    QCOMPARE(more.status, 0);
    QCOMPARE(more.error, QByteArray("obtool: note: p151.bmp: The bmplist is limited to 150 bitmaps\n"
                                    "obtool: note: p152.bmp: The bmplist is limited to 150 bitmaps\n"
                                    "obtool: note: p153.bmp: The bmplist is limited to 150 bitmaps\n"));
    QCOMPARE(more.out, all.out);
    QCOMPARE(more.out.count("    loadbmp "), 150);
    QVERIFY(more.out.contains("    unloadbmp \"p150\"\r\n    RETURN\r\n"));
}

void tst_toolWriteLoadBmp::shortNameIsAFailure()
{
    const Outcome result = LoadBmp({Rose, u"C:\\pics\\abc"_s});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.error, QByteArray("obtool: C:\\pics\\abc: Invalid procedure call or argument\n"));
}

void tst_toolWriteLoadBmp::missingFileIsAFailure()
{
    const Outcome result = LoadBmp({Rose, u"gone.bmp"_s});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.error, QByteArray("obtool: gone.bmp: File does not exist or is corrupt.\n"));
}

void tst_toolWriteLoadBmp::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("no file") << QStringList();
    QTest::newRow("options alone") << QStringList{u"--dll"_s};
    QTest::newRow("empty name") << QStringList{Rose, QString()};
    QTest::newRow("unknown option") << QStringList{u"--lib"_s, Rose};
}

void tst_toolWriteLoadBmp::wrongUsage()
{
    QFETCH(QStringList, arguments);
    const Outcome result = LoadBmp(arguments);
    QCOMPARE(result.status, 2);
    QCOMPARE(result.out, QByteArray());
    QVERIFY(result.error.endsWith("usage: obtool write loadbmp [--dll] [--path] FILE...\n"));
}

void tst_toolWriteLoadBmp::demonstrationOfTheLibrary()
{
    const Outcome result = Run({u"write"_s, u"library"_s, u"jpeg"_s});
    QCOMPARE(result.status, 0);
    QVERIFY(result.out.startsWith("'jpeg.bas: "));
    QVERIFY(result.out.endsWith("    End Function\r\n"));
}

void tst_toolWriteLoadBmp::metafileIsAPictureWithItsText()
{
    qunsetenv("XDG_RUNTIME_DIR"); // the toolkit would print a message about it
    const QTemporaryDir folder;
    const QString in = folder.filePath(u"a.wmf"_s);
    const QString out = folder.filePath(u"a.bmp"_s);
    WmfBytes file;
    file.Add(0x2FB, Words({-30, 0, 0, 0, 700}) + QByteArray(8, '\0') + QByteArray("Arial\0", 6)).Add(0x12D, Word(0));
    file.Add(0x102, Word(1)).Add(0x521, Word(2) + QByteArray("HH") + Words({20, 10}));
    QFile writer(in);
    QVERIFY(writer.open(QIODevice::WriteOnly));
    writer.write(file.Placeable(0, 0, 100, 60, 96));
    writer.close();
    const Outcome result = Run({u"image"_s, u"save"_s, in, out, u"--depth"_s, u"24"_s});
    QCOMPARE(result.error, QByteArray());
    QCOMPARE(result.status, 0);
    const QImage image(out);
    QCOMPARE(image.size(), QSize(100, 60));
    int dark = 0;
    for (int y = 20; y < 60; ++y)
        for (int x = 10; x < 70; ++x)
            dark += qGray(image.pixel(x, y)) < 64 ? 1 : 0;
    QVERIFY2(dark > 150, qPrintable(QString::number(dark)));
}

// Without fonts the toolkit would abort the process.
void tst_toolWriteLoadBmp::drawingWithTextIsAPicture()
{
    const QTemporaryDir folder;
    const QString in = folder.filePath(u"a.svg"_s);
    const QString out = folder.filePath(u"a.bmp"_s);
    QFile writer(in);
    QVERIFY(writer.open(QIODevice::WriteOnly));
    writer.write("<svg xmlns='http://www.w3.org/2000/svg' width='80' height='40'>"
                 "<text x='10' y='30' font-size='24'>HH</text></svg>");
    writer.close();
    const Outcome result = Run({u"image"_s, u"save"_s, in, out, u"--depth"_s, u"24"_s});
    if (result.error.contains("Invalid picture"))
        QSKIP("the toolkit here has no reader of such drawings");
    QCOMPARE(result.error, QByteArray());
    QCOMPARE(result.status, 0);
    QCOMPARE(QImage(out).size(), QSize(80, 40));
}

QTEST_GUILESS_MAIN(tst_toolWriteLoadBmp)
#include "tst_toolWriteLoadBmp.moc"
