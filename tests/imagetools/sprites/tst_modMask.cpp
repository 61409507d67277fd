// SPDX-License-Identifier: GPL-3.0-or-later
// Sprites and their masks, in memory and for a whole folder.
#include "imaging/PlainImaging.h"
#include "platform/files/FileTrouble.h"

#include "imagetools/pictures/modPicture.h"
#include "imagetools/sprites/modMask.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// A picture with black patches, some nearly black.
cDIBSection Sprite(int width, int height, unsigned seed = 3)
{
    cDIBSection sprite;
    sprite.Create(width, height);
    std::mt19937 generator(seed);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            std::uint8_t* pixel = sprite.Line(y) + x * 3;
            switch (generator() % 4) {
            case 0:
                pixel[generator() % 3] = 1;
                break;
            case 1:
                for (int channel = 0; channel < 3; ++channel)
                    pixel[channel] = static_cast<std::uint8_t>(generator());
                break;
            default:
                break;
            }
        }
    }
    return sprite;
}

// Pixel by pixel on the doubled picture, columns first.
QImage PlainMask(const QImage& sprite)
{
    QImage picture(sprite.width(), sprite.height() * 2, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, sprite.pixel(x, y % sprite.height()));
    }
    for (int x = 0; x < sprite.width(); ++x) {
        for (int y = 0; y < sprite.height(); ++y)
            picture.setPixel(x, y, (picture.pixel(x, y) & 0xFFFFFF) != 0 ? qRgb(0, 0, 0) : qRgb(255, 255, 255));
    }
    return picture;
}

QImage Plain(const cDIBSection& picture)
{
    return ImageOf(picture).convertToFormat(QImage::Format_RGB32);
}

bool UpperHalfIs(const cDIBSection& picture, QRgb color)
{
    const QImage image = Plain(picture);
    for (int y = 0; y < image.height() / 2; ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != color)
                return false;
        }
    }
    return true;
}

cDIBSection Filled(int red, int green, int blue)
{
    QImage image(5, 4, QImage::Format_RGB32);
    image.fill(QColor(red, green, blue));
    return CreateFromPicture(image);
}

} // namespace

class tst_modMask : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;

    QString Path(const char* name) const { return folder->filePath(QLatin1String(name)); }
    QStringList Names() const { return BitmapsIn(folder->path()); }

    // Masks the folder; reports gets the places and paths.
    QStringList reports;
    BatchEnd MaskAll(int stopAfter = -1)
    {
        reports.clear();
        qsizetype current = -1;
        return MaskFiles(folder->path(), Names(),
                         {[&](qsizetype place) {
                              current = place;
                              reports.append(QString::number(place));
                          },
                          [&, stopAfter](const QString& path, const cDIBSection& picture) {
                              reports.last() += QLatin1Char(' ') + QFileInfo(path).fileName() + QLatin1Char(' ') +
                                                QString::number(picture.Height());
                              return current == stopAfter ? BatchStep::Stop : BatchStep::GoOn;
                          }});
    }

private Q_SLOTS:
    void init() { folder = std::make_unique<QTemporaryDir>(); }

    void masksMatchTheReference()
    {
        for (int width = 1; width <= 70; ++width) {
            const cDIBSection sprite = Sprite(width, 1 + width % 9, static_cast<unsigned>(width));
            QCOMPARE(Plain(SpriteWithMask(sprite)), PlainMask(Plain(sprite)));
        }
    }

    // Column by column the result is the same, whatever the step.
    void growingMasksEndTheSame()
    {
        const cDIBSection sprite = Sprite(67, 21);
        const QImage whole = Plain(SpriteWithMask(sprite));
        for (const int step : {1, 10, 66, 67, 1000}) {
            cDIBSection picture = SpriteTwice(sprite);
            for (int x = 0; x < 67; x += step)
                MaskColumns(picture, x, step);
            QCOMPARE(Plain(picture), whole);
            MaskColumns(picture, -5, 10);
            MaskColumns(picture, 67, 10);
            QCOMPARE(Plain(picture), whole);
        }
        cDIBSection half = SpriteTwice(sprite);
        MaskColumns(half, 0, 30);
        QCOMPARE(Plain(half).copy(30, 0, 37, 21), Plain(sprite).copy(30, 0, 37, 21));
        QCOMPARE(Plain(half).copy(0, 0, 30, 42), whole.copy(0, 0, 30, 42));
    }

    void onlyTrueBlackIsBackground()
    {
        QVERIFY(UpperHalfIs(SpriteWithMask(Filled(0, 0, 0)), qRgb(255, 255, 255)));
        QVERIFY(UpperHalfIs(SpriteWithMask(Filled(0, 0, 1)), qRgb(0, 0, 0)));
        QVERIFY(UpperHalfIs(SpriteWithMask(Filled(0, 1, 0)), qRgb(0, 0, 0)));
        QVERIFY(UpperHalfIs(SpriteWithMask(Filled(1, 0, 0)), qRgb(0, 0, 0)));
        QVERIFY(UpperHalfIs(SpriteWithMask(Filled(255, 255, 255)), qRgb(0, 0, 0)));
    }

    // 16-bit counters would end at 32767.
    void thereIsNoLimitOnTheSize()
    {
        for (const auto& [width, height] : {std::pair(70'000, 3), std::pair(3, 70'000)}) {
            cDIBSection sprite;
            QVERIFY(sprite.Create(width, height));
            sprite.Line(0)[(width - 1) * 3] = 1;
            const cDIBSection picture = SpriteWithMask(sprite);
            QCOMPARE(picture.Height(), height * 2);
            QCOMPARE(int{picture.Line(height)[(width - 1) * 3]}, 0);
            QCOMPARE(int{picture.Line(height)[(width - 2) * 3]}, 255);
        }
    }

    void whatCannotBeMaskedIsRaised()
    {
        QCOMPARE(ErrorOf([] { SpriteWithMask(cDIBSection()); }), 481);
        cDIBSection high;
        if (high.Create(1, 400'000'000))
            QCOMPARE(ErrorOf([&] { SpriteWithMask(high); }), 481);
    }

    void aFolderGetsItsMasksInTheOrderOfNames()
    {
        const cDIBSection sprite = Sprite(6, 5);
        for (const char* name : {"b.bmp", "C.BMP", "a.Bmp", ".hidden.bmp", "note.txt", "d.bmp.bak"})
            SaveMask(Path(name), sprite);
        QDir(folder->path()).mkdir(u"sub.bmp"_s);
        SaveMask(Path("sub.bmp/inner.bmp"), sprite);
        const QByteArray single = Get(Path("b.bmp"));
        QCOMPARE(MaskAll(), BatchEnd::Finished);
        QCOMPARE(reports, QStringList({u"0 a.Bmp 10"_s, u"1 b.bmp 10"_s, u"2 C.BMP 10"_s}));
        const QImage masked = PlainMask(Plain(sprite));
        for (const char* name : {"b.bmp", "C.BMP", "a.Bmp"})
            QCOMPARE(Plain(LoadPicture(Path(name))), masked);
        for (const char* name : {".hidden.bmp", "note.txt", "d.bmp.bak", "sub.bmp/inner.bmp"})
            QCOMPARE(Get(Path(name)), single);
        // It is not recognised as having a mask already.
        QCOMPARE(MaskAll(), BatchEnd::Finished);
        QCOMPARE(LoadPicture(Path("b.bmp")).Height(), 20);
    }

    void aBatchStopsAfterTheCurrentFile()
    {
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
            SaveMask(Path(name), Sprite(4, 3));
        QCOMPARE(MaskAll(1), BatchEnd::Cancelled);
        QCOMPARE(LoadPicture(Path("a.bmp")).Height(), 6);
        QCOMPARE(LoadPicture(Path("b.bmp")).Height(), 6);
        QCOMPARE(LoadPicture(Path("c.bmp")).Height(), 3);
    }

    void aBitmapThatCannotBeReadEndsTheBatch()
    {
        SaveMask(Path("a.bmp"), Sprite(4, 3));
        Put(Path("b.bmp"), "BM, but no bitmap");
        SaveMask(Path("c.bmp"), Sprite(4, 3));
        QCOMPARE(ErrorOf([this] { MaskAll(); }), 481);
        QCOMPARE(reports, QStringList({u"0 a.bmp 6"_s, u"1"_s}));
        QCOMPARE(LoadPicture(Path("a.bmp")).Height(), 6);
        QCOMPARE(Get(Path("b.bmp")), QByteArray("BM, but no bitmap"));
        QCOMPARE(LoadPicture(Path("c.bmp")).Height(), 3);
    }

#ifdef Q_OS_UNIX
    void aFullDiskLeavesTheFileAsItWas()
    {
        SaveMask(Path("a.bmp"), Sprite(100, 100));
        const QByteArray before = Get(Path("a.bmp"));
        {
            const FileSizeLimit limit(40'000);
            QCOMPARE(ErrorOf([this] { MaskAll(); }), diskFull);
        }
        QCOMPARE(Get(Path("a.bmp")), before);
        QCOMPARE(QDir(folder->path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }

    void aReadOnlyFileLeavesTheFileAsItWas()
    {
        SaveMask(Path("a.bmp"), Sprite(4, 3));
        const QByteArray before = Get(Path("a.bmp"));
        QVERIFY(QFile::setPermissions(Path("a.bmp"), QFile::Permissions(0x4444)));
        QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x5555)));
        {
            const PlainUser user;
            QCOMPARE(ErrorOf([this] { MaskAll(); }), pathFileAccess);
        }
        QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x7777)));
        QCOMPARE(Get(Path("a.bmp")), before);
    }
#endif

    void anEmptyPictureCanBeSaved()
    {
        SaveMask(Path("empty.bmp"), cDIBSection());
        const cDIBSection picture = LoadPicture(Path("empty.bmp"));
        QVERIFY(UpperHalfIs(picture, qRgb(255, 255, 255)));
    }

    void textsAreAsExpected()
    {
        const QString where = u"/home/me/art"_s;
        QCOMPARE(NoBitmapsText(where), u"There are no bitmaps in /home/me/art!  Please choose another directory."_s);
        QCOMPARE(BatchProgressText(0, 12, where),
                 u"Click CANCEL to abort.  Processing bitmap number  1 of  12 bitmaps in \n\n"
                 "/home/me/art"_s);
        QCOMPARE(BatchFinishedText(where), u"All bitmaps in /home/me/art now include masks."_s);
        QCOMPARE(BatchStartText, u"Choose a Directory.\nAll Bitmaps in the Directory will receive masks."
                                 "\nThe bitmap files will be overwritten with the masked versions."_s);
    }

    void twoHundredSpritesTakeNoTime()
    {
        const cDIBSection sprite = Sprite(256, 256);
        for (int index = 0; index < 200; ++index)
            SaveMask(folder->filePath(u"%1.bmp"_s.arg(index)), sprite);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(MaskAll(), BatchEnd::Finished);
        qInfo("200 sprites in %lld ms", timer.elapsed());
        // Our own builds with sanitizers, on a busy machine, must pass too.
        QVERIFY(timer.elapsed() < 20'000);
        QCOMPARE(reports.size(), 200);
    }
};

QTEST_GUILESS_MAIN(tst_modMask)
#include "tst_modMask.moc"
