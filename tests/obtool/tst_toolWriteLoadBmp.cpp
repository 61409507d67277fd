// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool write loadbmp" and "write library jpeg" as processes, and metafiles as input of obtool.
#include "obtool/RunObtool.h"

#include "imagetools/metafiles/MetafileBytes.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using namespace ob;

namespace {

// Like on a machine without a display, wherever this test runs.
Outcome Run(const QStringList& arguments, const QString& folder = {})
{
    Surroundings surroundings;
    surroundings.folder = folder;
    surroundings.environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    surroundings.environment.remove(QStringLiteral("DISPLAY"));
    return RunObtool(arguments, surroundings);
}

Outcome LoadBmp(const QStringList& arguments, const QString& folder = {})
{
    return Run(QStringList{QStringLiteral("write"), QStringLiteral("loadbmp")} + arguments, folder);
}

QByteArray Expected(const char* name)
{
    QFile file(QStringLiteral(OB_TEST_DATA "/imagetools/") + QString::fromLatin1(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("(no such file)");
}

const QString Rose = QStringLiteral("/pics/rose.bmp");
const QString Tulip = QStringLiteral("C:\\art\\tulip.jpg");

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
    const QString dll = QStringLiteral("--dll");
    const QString path = QStringLiteral("--path");
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
    const Outcome result = LoadBmp({QStringLiteral("--path"), QStringLiteral("sub/a.bmp")}, path);
    QCOMPARE(result.status, 0);
    QVERIFY(result.out.contains("    loadbmp \"a\", \"" + path.toLocal8Bit() + "/sub/a.bmp\"\r\n"));
}

void tst_toolWriteLoadBmp::namesAreAnsi()
{
    const Outcome result = LoadBmp({QStringLiteral("/pics/\u00E9t\u00E9.bmp")});
    QCOMPARE(result.status, 0);
    QVERIFY(result.out.contains("    unloadbmp \"\xE9t\xE9\"\r\n"));
}

void tst_toolWriteLoadBmp::first150AreTakenAndEachFurtherOneIsANote()
{
    QStringList files;
    for (int i = 1; i <= 153; ++i)
        files.append(QStringLiteral("p%1.bmp").arg(i, 3, 10, QLatin1Char('0')));
    const Outcome all = LoadBmp(files.first(150));
    QCOMPARE(all.error, QByteArray());
    const Outcome more = LoadBmp(files);
    QCOMPARE(more.status, 0);
    QCOMPARE(more.error, QByteArray("obtool: note: The bmplist is limited to 150 bitmaps\n").repeated(3));
    QCOMPARE(more.out, all.out);
    QCOMPARE(more.out.count("    loadbmp "), 150);
    QVERIFY(more.out.contains("    unloadbmp \"p150\"\r\n    RETURN\r\n"));
}

void tst_toolWriteLoadBmp::shortNameIsAFailure()
{
    const Outcome result = LoadBmp({Rose, QStringLiteral("/pics/abc")});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.error, QByteArray("obtool: /pics/abc: Invalid procedure call or argument\n"));
}

void tst_toolWriteLoadBmp::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("no file") << QStringList();
    QTest::newRow("options alone") << QStringList{QStringLiteral("--dll")};
    QTest::newRow("empty name") << QStringList{Rose, QString()};
    QTest::newRow("unknown option") << QStringList{QStringLiteral("--lib"), Rose};
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
    const Outcome result = Run({QStringLiteral("write"), QStringLiteral("library"), QStringLiteral("jpeg")});
    QCOMPARE(result.status, 0);
    QVERIFY(result.out.startsWith("'jpeg.bas: "));
    QVERIFY(result.out.endsWith("    End Function\r\n"));
}

void tst_toolWriteLoadBmp::metafileIsAPictureWithItsText()
{
    qunsetenv("XDG_RUNTIME_DIR"); // the toolkit would print a message about it
    const QTemporaryDir folder;
    const QString in = folder.filePath(QStringLiteral("a.wmf"));
    const QString out = folder.filePath(QStringLiteral("a.bmp"));
    WmfBytes file;
    file.Add(0x2FB, Words({-30, 0, 0, 0, 700}) + QByteArray(8, '\0') + QByteArray("Arial\0", 6)).Add(0x12D, Word(0));
    file.Add(0x102, Word(1)).Add(0x521, Word(2) + QByteArray("HH") + Words({20, 10}));
    QFile writer(in);
    QVERIFY(writer.open(QIODevice::WriteOnly));
    writer.write(file.Placeable(0, 0, 100, 60, 96));
    writer.close();
    const Outcome result = Run(
        {QStringLiteral("image"), QStringLiteral("save"), in, out, QStringLiteral("--depth"), QStringLiteral("24")});
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
    const QString in = folder.filePath(QStringLiteral("a.svg"));
    const QString out = folder.filePath(QStringLiteral("a.bmp"));
    QFile writer(in);
    QVERIFY(writer.open(QIODevice::WriteOnly));
    writer.write("<svg xmlns='http://www.w3.org/2000/svg' width='80' height='40'>"
                 "<text x='10' y='30' font-size='24'>HH</text></svg>");
    writer.close();
    const Outcome result = Run(
        {QStringLiteral("image"), QStringLiteral("save"), in, out, QStringLiteral("--depth"), QStringLiteral("24")});
    if (result.error.contains("Invalid picture"))
        QSKIP("the toolkit here has no reader of such drawings");
    QCOMPARE(result.error, QByteArray());
    QCOMPARE(result.status, 0);
    QCOMPARE(QImage(out).size(), QSize(80, 40));
}

QTEST_GUILESS_MAIN(tst_toolWriteLoadBmp)
#include "tst_toolWriteLoadBmp.moc"
