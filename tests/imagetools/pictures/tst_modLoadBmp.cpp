// SPDX-License-Identifier: GPL-3.0-or-later
// The list of bitmaps and the complete lines that load them; previews and their loader.
#include "imagetools/metafiles/MetafileBytes.h"

#include "imagetools/pictures/cPreviewLoader.h"
#include "imagetools/pictures/modImageFiles.h"
#include "imagetools/pictures/modLoadBmp.h"
#include "imagetools/pictures/modPicture.h"
#include "imagetools/pictures/modStrip256.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modAnsi.h"
#include "support/ScriptedDialogs.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>

using namespace Qt::StringLiterals;

using namespace ob;
using namespace std::chrono_literals;

namespace {

const QStringList TwoFiles = {u"/pics/rose.bmp"_s, u"C:\\art\\tulip.jpg"_s};

QByteArray Get(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("(no such file)");
}

void Put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

QImage Plain(int width, int height, QColor color = QColor(10, 200, 60))
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

} // namespace

class tst_modLoadBmp : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void texts_data();
    void texts();
    void twoFilesOfOneNameGiveOneNameTwice();
    void nameOfFourCharactersIsAnEmptyName();
    void shorterNameIsAnError_data();
    void shorterNameIsAnError();
    void listTakes150AndRefusesEachFurtherOne();
    void refusalsBeyond16BitsAreRefusals();
    void patternWithTheCommaIsOnePattern();

    void previewIsFittedAndNeverEnlarged_data();
    void previewIsFittedAndNeverEnlarged();
    void previewShowsTheSizeOfThePicture_data();
    void previewShowsTheSizeOfThePicture();
    void previewOfATurnedPhotograph();
    void previewOnAFinerScreenHasItsPixels();
    void previewOfTransparentPartsIsWhite();
    void previewOfAHostileFileIsEmpty_data();
    void previewOfAHostileFileIsEmpty();
    void newestRequestWins();
    void waitTakesTheNewest();

    void savedCopyIsTheSameFile();
    void savedConversionHas256Colors();
    void conversionInPlace();
    void failedSaveLeavesTheOlderFile();
};

void tst_modLoadBmp::texts_data()
{
    QTest::addColumn<ImageLibrary>("library");
    QTest::addColumn<PathInformation>("information");
    QTest::addColumn<QString>("file");
    QTest::newRow("plain") << ImageLibrary::Unused << PathInformation::Left << u"loadbmp.txt"_s;
    QTest::newRow("path") << ImageLibrary::Unused << PathInformation::Full << u"loadbmp-path.txt"_s;
    QTest::newRow("library") << ImageLibrary::Used << PathInformation::Left << u"loadbmp-dll.txt"_s;
    QTest::newRow("both") << ImageLibrary::Used << PathInformation::Full << u"loadbmp-dll-path.txt"_s;
}

void tst_modLoadBmp::texts()
{
    QFETCH(ImageLibrary, library);
    QFETCH(PathInformation, information);
    QFETCH(QString, file);
    QCOMPARE(AnsiFromText(LoadBmpText(TwoFiles, library, information)).bytes,
             Get(u"" OB_TEST_DATA "/imagetools/"_s + file));
}

void tst_modLoadBmp::twoFilesOfOneNameGiveOneNameTwice()
{
    const QString text = LoadBmpText({u"/a/x.bmp"_s, u"/b/x.bmp"_s}, ImageLibrary::Unused, PathInformation::Full);
    QCOMPARE(text.count(u"    loadbmp \"x\", "_s), 2);
    QCOMPARE(text.count(u"    unloadbmp \"x\"\r\n"_s), 2);
}

void tst_modLoadBmp::nameOfFourCharactersIsAnEmptyName()
{
    QVERIFY(LoadBmpText({u"/a/.bmp"_s}, ImageLibrary::Unused, PathInformation::Left)
                .contains(u"    loadbmp \"\", DefaultDir$ + \"\\.bmp\"\r\n"_s));
}

void tst_modLoadBmp::shorterNameIsAnError_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("three") << u"/a/bmp"_s;
    QTest::newRow("none") << u"/a/"_s;
    QTest::newRow("nothing") << QString();
}

void tst_modLoadBmp::shorterNameIsAnError()
{
    QFETCH(QString, path);
    try {
        (void)LoadBmpText({path}, ImageLibrary::Unused, PathInformation::Left);
    } catch (const RuntimeError& error) {
        QCOMPARE(error.number, 5);
        return;
    }
    QFAIL("no error");
}

void tst_modLoadBmp::listTakes150AndRefusesEachFurtherOne()
{
    cLoadBmpList list;
    for (int i = 1; i <= 150; ++i)
        QCOMPARE(list.Add(u"/a/%1.bmp"_s.arg(i)), cLoadBmpList::Answer::Added);
    QCOMPARE(list.Add(u"/a/151.bmp"_s), cLoadBmpList::Answer::Full);
    QCOMPARE(list.Add(u"/a/152.bmp"_s), cLoadBmpList::Answer::Full);
    QCOMPARE(list.Count(), 152);
    QCOMPARE(list.Paths().size(), 150);
    QCOMPARE(list.Paths().first(), u"/a/1.bmp"_s);
    QCOMPARE(list.Paths().last(), u"/a/150.bmp"_s);
}

void tst_modLoadBmp::refusalsBeyond16BitsAreRefusals()
{
    cLoadBmpList list;
    for (int i = 0; i < 70'000; ++i)
        QCOMPARE(list.Add(u"/a/x.bmp"_s), i < 150 ? cLoadBmpList::Answer::Added : cLoadBmpList::Answer::Full);
    QCOMPARE(list.Paths().size(), 150);
}

void tst_modLoadBmp::patternWithTheCommaIsOnePattern()
{
    QCOMPARE(BitmapPatterns(ImageLibrary::Unused), QStringList{u"*.bmp"_s});
    QCOMPARE(BitmapPatterns(ImageLibrary::Used).join(QLatin1Char('|')), u"*.bmp|*.jpg|*.wmf|*.emf,*.gif"_s);
}

// --- Previews. ------------------------------------------------------------------------------------------------------

void tst_modLoadBmp::previewIsFittedAndNeverEnlarged_data()
{
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QSize>("fitted");
    QTest::newRow("fits") << QSize(100, 50) << QSize(100, 50);
    QTest::newRow("fits exactly") << QSize(200, 150) << QSize(200, 150);
    QTest::newRow("a point") << QSize(1, 1) << QSize(1, 1);
    QTest::newRow("too wide") << QSize(400, 100) << QSize(200, 50);
    QTest::newRow("too high") << QSize(100, 600) << QSize(25, 150);
    QTest::newRow("both") << QSize(4000, 3000) << QSize(200, 150);
    QTest::newRow("a line") << QSize(100'000, 1) << QSize(200, 1);
}

void tst_modLoadBmp::previewIsFittedAndNeverEnlarged()
{
    QFETCH(QSize, picture);
    QFETCH(QSize, fitted);
    QCOMPARE(FittedSize(picture, QSize(200, 150)), fitted);
}

void tst_modLoadBmp::previewShowsTheSizeOfThePicture_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("bitmap") << u"a.bmp"_s;
    QTest::newRow("jpeg") << u"a.jpg"_s;
    QTest::newRow("png") << u"a.png"_s;
    QTest::newRow("metafile") << u"a.wmf"_s;
}

void tst_modLoadBmp::previewShowsTheSizeOfThePicture()
{
    QFETCH(QString, name);
    const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    if (name.endsWith(QLatin1String("wmf")))
        Put(path, WmfBytes().Placeable(0, 0, 600, 300, 96));
    else
        QVERIFY(Plain(600, 300).save(path));
    const Preview preview = LoadPreview({path, {200, 200}, 1});
    QCOMPARE(preview.path, path);
    QCOMPARE(preview.size, QSize(600, 300));
    QCOMPARE(preview.image.size(), QSize(200, 100));
    const Preview whole = LoadPreview({path, {1000, 1000}, 1});
    QCOMPARE(whole.image.size(), QSize(600, 300));
}

void tst_modLoadBmp::previewOfATurnedPhotograph()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.jpg"_s);
    QVERIFY(Plain(600, 300).save(path));
    // The camera's orientation tag for a quarter turn.
    const QByteArray exif = QByteArray::fromHex("ffe100224578696600004d4d002a0000000800010112000300000001000600000000"
                                                "0000");
    QByteArray bytes = Get(path);
    Put(path, bytes.insert(2, exif));
    const Preview preview = LoadPreview({path, {200, 200}, 1});
    QCOMPARE(preview.size, QSize(300, 600));
    QCOMPARE(preview.image.size(), QSize(100, 200));
}

void tst_modLoadBmp::previewOnAFinerScreenHasItsPixels()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.png"_s);
    QVERIFY(Plain(1000, 500).save(path));
    QCOMPARE(LoadPreview({path, {200, 200}, 2}).image.size(), QSize(400, 200));
    QVERIFY(Plain(300, 150).save(path));
    QCOMPARE(LoadPreview({path, {200, 200}, 2}).image.size(), QSize(300, 150));
    QCOMPARE(LoadPreview({path, {400, 400}, 2}).image.size(), QSize(300, 150));
}

void tst_modLoadBmp::previewOfTransparentPartsIsWhite()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.png"_s);
    QImage image(10, 10, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QVERIFY(image.save(path));
    QCOMPARE(LoadPreview({path, {200, 200}, 1}).image.pixelColor(5, 5), QColor(Qt::white));
}

void tst_modLoadBmp::previewOfAHostileFileIsEmpty_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("words") << QByteArray("no picture at all");
    QTest::newRow("bitmap of gigabytes") << "BM" + Longs({54, 0, 54, 40, 30'000, 30'000}) + Words({1, 24}) +
                                                Longs({0, 0, 0, 0, 0, 0});
    QTest::newRow("png of gigabytes") << QByteArray::fromHex(
        "89504e470d0a1a0a0000000d4948445200007530000075300802000000e9456fed000000114944415478"
        "9c63601805a360140c77000003e80001b3a6d3460000000049454e44ae426082");
    QTest::newRow("half a metafile") << WmfBytes().Placeable(0, 0, 9, 9, 96).first(30);
}

void tst_modLoadBmp::previewOfAHostileFileIsEmpty()
{
    QFETCH(QByteArray, bytes);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.bmp"_s);
    Put(path, bytes);
    const Preview preview = LoadPreview({path, {200, 200}, 1});
    QVERIFY(preview.IsEmpty());
    QCOMPARE(preview.path, path);
    QVERIFY(LoadPreview({folder.filePath(u"gone.bmp"_s), {200, 200}, 1}).IsEmpty());
    QVERIFY(LoadPreview({folder.path(), {200, 200}, 1}).IsEmpty());
}

void tst_modLoadBmp::newestRequestWins()
{
    const auto mayGoOn = std::make_shared<std::atomic<bool>>(false);
    const auto readCount = std::make_shared<std::atomic<int>>(0);
    cPreviewLoader loader([=](const PreviewRequest& request) {
        ++*readCount;
        while (!*mayGoOn)
            std::this_thread::sleep_for(1ms);
        return Preview{request.path, {1, 1}, Plain(1, 1)};
    });
    QVERIFY(!loader.IsBusy());
    for (int i = 0; i < 1000; ++i)
        loader.Ask({QString::number(i), {1, 1}, 1});
    QVERIFY(loader.IsBusy());
    QVERIFY(!loader.Take());
    *mayGoOn = true;
    std::optional<Preview> preview;
    QTRY_VERIFY(preview || (preview = loader.Take()));
    QCOMPARE(preview->path, u"999"_s);
    QVERIFY(!loader.IsBusy());
    QVERIFY(!loader.Take());
    QCOMPARE(readCount->load(), 2);
}

void tst_modLoadBmp::waitTakesTheNewest()
{
    cPreviewLoader loader([](const PreviewRequest& request) {
        std::this_thread::sleep_for(20ms);
        return Preview{request.path, {1, 1}, Plain(1, 1)};
    });
    QVERIFY(!loader.Wait(10s));
    loader.Ask({u"a"_s, {1, 1}, 1});
    loader.Ask({u"b"_s, {1, 1}, 1});
    const auto preview = loader.Wait(10s);
    QVERIFY(preview);
    QCOMPARE(preview->path, u"b"_s);
    loader.Ask({u"c"_s, {1, 1}, 1});
    QVERIFY(!loader.Wait(1ms));
    QVERIFY(loader.Wait(10s));
}

// --- Files. ---------------------------------------------------------------------------------------------------------

void tst_modLoadBmp::savedCopyIsTheSameFile()
{
    const QTemporaryDir folder;
    const QString source = folder.filePath(u"a.jpg"_s);
    const QString target = folder.filePath(u"b.bmp"_s);
    QVERIFY(Plain(30, 20).save(source));
    ScriptedDialogs dialogs;
    dialogs.ExpectMessage(u"Image has been saved as "_s + target, BoxAnswer::Ok, BoxIcon::None);
    SaveImageFile(source, target, ImageColors::AsTheyAre, LoadPicture);
    QVERIFY(dialogs.Finished());
    QCOMPARE(Get(target), Get(source));
}

void tst_modLoadBmp::savedConversionHas256Colors()
{
    const QTemporaryDir folder;
    const QString source = folder.filePath(u"a.png"_s);
    const QString target = folder.filePath(u"b.bmp"_s);
    QVERIFY(Plain(32, 20, QColor(255, 0, 0)).save(source));
    ScriptedDialogs dialogs;
    dialogs.ExpectMessage(u"Image has been saved in Windows default 256-color format as "_s + target, BoxAnswer::Ok,
                          BoxIcon::None);
    SaveImageFile(source, target, ImageColors::Reduced256, LoadPicture);
    QVERIFY(dialogs.Finished());
    const QByteArray bytes = Get(target);
    QCOMPARE(bytes.size(), 1078 + 32 * 20);
    QCOMPARE(bytes.left(2), QByteArray("BM"));
    QCOMPARE(int(bytes[28]), 8);
    // Red is a colour of the palette itself.
    QCOMPARE(QImage(target).pixelColor(5, 5), QColor(255, 0, 0));
}

void tst_modLoadBmp::conversionInPlace()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.bmp"_s);
    const QString other = folder.filePath(u"b.bmp"_s);
    QVERIFY(Plain(32, 20, QColor(250, 3, 2)).save(path));
    SaveAs256(LoadPicture(path), other);
    ConvertTo256(path);
    QCOMPARE(Get(path).size(), 1078 + 32 * 20);
    QCOMPARE(Get(path), Get(other));
    QVERIFY_EXCEPTION_THROWN(SaveAs256(cDIBSection(), path), RuntimeError);
    QVERIFY_EXCEPTION_THROWN(ConvertTo256(folder.filePath(u"gone.bmp"_s)), RuntimeError);
}

void tst_modLoadBmp::failedSaveLeavesTheOlderFile()
{
    const QTemporaryDir folder;
    const QString target = folder.filePath(u"b.bmp"_s);
    const QString words = folder.filePath(u"words.bmp"_s);
    Put(target, "older");
    Put(words, "no picture");
    ScriptedDialogs dialogs;
    for (int i = 0; i < 3; ++i)
        dialogs.ExpectMessage(u"Error saving file!"_s);
    SaveImageFile(folder.filePath(u"gone.bmp"_s), target, ImageColors::AsTheyAre, LoadPicture);
    SaveImageFile(words, target, ImageColors::Reduced256, LoadPicture);
    SaveImageFile(words, folder.filePath(u"no/folder.bmp"_s), ImageColors::AsTheyAre, LoadPicture);
    QVERIFY(dialogs.Finished());
    QCOMPARE(Get(target), QByteArray("older"));
}

QTEST_MAIN(tst_modLoadBmp)
#include "tst_modLoadBmp.moc"
