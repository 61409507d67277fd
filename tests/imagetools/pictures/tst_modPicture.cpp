// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures between the imaging library, the toolkit, the clipboard and the disk.
#include "imagetools/pictures/modPicture.h"
#include "imaging/BitmapBytes.h"
#include "imaging/PlainImaging.h"
#include "support/ScriptedDialogs.h"

#include <QBuffer>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QByteArray Get(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("(no such file)");
}

QByteArray Encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, format))
        return {};
    return bytes;
}

int ErrorNumberOf(const std::function<void()>& work)
{
    try {
        work();
    } catch (const RuntimeError& error) {
        return error.number;
    }
    return 0;
}

const ByteView Abc(reinterpret_cast<const std::uint8_t*>("abc"), 3);
const ByteView De(reinterpret_cast<const std::uint8_t*>("de"), 2);

} // namespace

class tst_modPicture : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(folder.isValid()); }

    void picturesAndImagesAreCopiesOfEachOther()
    {
        for (int width = 1; width <= 9; ++width) {
            const cDIBSection picture = plain::SectionOf(plain::Random(width, 5, plain::Kind::Noise, 1));
            const QImage image = ImageOf(picture);
            QCOMPARE(image.size(), QSize(width, 5));
            const std::uint8_t* top = picture.Line(4);
            QCOMPARE(image.pixelColor(0, 0), QColor(top[2], top[1], top[0]));
            QVERIFY(plain::Of(CreateFromPicture(image)).bytes == plain::Of(picture).bytes);
            QVERIFY(plain::Of(CreateFromPicture(image.convertToFormat(QImage::Format_RGB32))).bytes ==
                    plain::Of(picture).bytes);
        }
        QVERIFY(ImageOf(cDIBSection()).isNull());
        QCOMPARE(CreateFromPicture(QImage()).hDib(), std::uintptr_t{0});
    }

    void transparentPartsAreLaidOnWhite()
    {
        QImage image(3, 1, QImage::Format_ARGB32);
        image.setPixelColor(0, 0, QColor(10, 20, 30, 255));
        image.setPixelColor(1, 0, QColor(10, 20, 30, 0));
        image.setPixelColor(2, 0, QColor(0, 0, 0, 128));
        const QImage flat = ImageOf(CreateFromPicture(image));
        QCOMPARE(flat.pixelColor(0, 0), QColor(10, 20, 30));
        QCOMPARE(flat.pixelColor(1, 0), QColor(255, 255, 255));
        QCOMPARE(flat.pixelColor(2, 0), QColor(127, 127, 127));
    }

    void filesOfOtherFormatsAreOpened()
    {
        const cDIBSection picture = plain::SectionOf(plain::Random(20, 10, plain::Kind::FewColors, 1));
        QVERIFY(plain::Of(PictureOfBytes(Encoded(ImageOf(picture), "PNG"))).bytes == plain::Of(picture).bytes);
        const cDIBSection lossy = PictureOfBytes(Encoded(ImageOf(picture), "JPG"));
        QCOMPARE(lossy.Width(), 20);
        QCOMPARE(lossy.Height(), 10);
    }

    void aFileThatIsNotAPictureIsInvalid()
    {
        QCOMPARE(ErrorNumberOf([] { PictureOfBytes({}); }), 481);
        QCOMPARE(ErrorNumberOf([] { PictureOfBytes("B"); }), 481);
        QCOMPARE(ErrorNumberOf([] { PictureOfBytes("BM, but otherwise text"); }), 481);
        QCOMPARE(ErrorNumberOf([] { PictureOfBytes("text"); }), 481);
        QCOMPARE(ErrorNumberOf([] { LoadPicture(u"gone.bmp"_s); }), 53);
    }

    void aBitmapThatTheToolkitRejectsIsOpened()
    {
        BitmapBytes file;
        file.FileHeader(54).InfoHeader(2, 2, 24).Bytes({1, 2, 3, 4, 5, 6, 0, 0, 7});
        const QString path = folder.filePath(u"short.bmp"_s);
        QFile disk(path);
        QVERIFY(disk.open(QIODevice::WriteOnly));
        disk.write(reinterpret_cast<const char*>(file.bytes.data()), static_cast<qint64>(file.bytes.size()));
        disk.close();
        const cDIBSection picture = LoadPicture(path);
        QCOMPARE(picture.Width(), 2);
        QCOMPARE(int(picture.Line(1)[0]), 7);
        QCOMPARE(int(picture.Line(1)[1]), 0);
    }

    void theClipboardTakesABitmap()
    {
        const cDIBSection picture = plain::SectionOf(plain::Random(4, 3, plain::Kind::Noise, 1));
        QVERIFY(CopyToClipboard(picture, ClipboardForm::Bitmap));
        QCOMPARE(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_BGR888), ImageOf(picture));
        QVERIFY(!CopyToClipboard(cDIBSection(), ClipboardForm::Bitmap));
    }

    void theClipboardTakesNoDib()
    {
        ScriptedDialogs boxes;
        boxes.ExpectMessage(u"I don't know how to put a DIB on the clipboard! Copy as bitmap instead!!!"_s,
                            BoxAnswer::Ok, BoxIcon::None);
        QVERIFY(!CopyToClipboard(plain::SectionOf(plain::Random(4, 3, plain::Kind::Noise, 1)), ClipboardForm::Dib));
        QVERIFY(boxes.Finished());
    }

    void noticesAreBoxesWithTheirIcons()
    {
        ScriptedDialogs boxes;
        boxes.ExpectMessage(u"a\r\nb"_s, BoxAnswer::Ok, BoxIcon::Critical);
        boxes.ExpectMessage(u"c"_s, BoxAnswer::Ok, BoxIcon::Information);
        NoticeBoxes()("a\r\nb", NoticeIcon::Stop);
        NoticeBoxes()("c", NoticeIcon::Information);
        QVERIFY(boxes.Finished());
    }

    void filesAreReadAndReplaced()
    {
        const QString path = folder.filePath(u"ä.bin"_s);
        const std::array<ByteView, 2> pieces = {Abc, De};
        QVERIFY(DiskWriter()(path.toStdString(), pieces).outcome == FileOutcome::Done);
        QCOMPARE(Get(path), QByteArray("abcde"));
        const std::array<ByteView, 1> shorter = {De};
        QVERIFY(DiskWriter()(path.toStdString(), shorter).outcome == FileOutcome::Done);
        QCOMPARE(Get(path), QByteArray("de"));
        const FileContent content = DiskReader()(path.toStdString());
        QVERIFY(content.outcome == FileOutcome::Done);
        QCOMPARE(content.bytes, (std::vector<std::uint8_t>{'d', 'e'}));
        QVERIFY(DiskReader()(folder.filePath(u"gone"_s).toStdString()).outcome == FileOutcome::Missing);
        QVERIFY(DiskReader()(folder.path().toStdString()).outcome == FileOutcome::Missing);
    }

    void aFileThatCannotBeCreatedIsReportedThroughTheLibrary()
    {
        const QString path = folder.filePath(u"gone/x"_s);
        const std::array<ByteView, 1> pieces = {Abc};
        QCOMPARE(ErrorNumberOf([&] { DiskWriter()(path.toStdString(), pieces); }), 76);
        const cDIBSection picture = plain::SectionOf(plain::Random(4, 3, plain::Kind::Noise, 1));
        QCOMPARE(ErrorNumberOf([&] { picture.SavePicture(path.toStdString(), DiskWriter()); }), 76);
        QCOMPARE(ErrorNumberOf([&] { picture.WriteFile(path.toStdString(), DiskWriter()); }), 76);
    }

private:
    QTemporaryDir folder;
};

QTEST_MAIN(tst_modPicture)
#include "tst_modPicture.moc"
