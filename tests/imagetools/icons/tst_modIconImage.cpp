// SPDX-License-Identifier: GPL-3.0-or-later
// Images of icons: every depth compared with plain loops and the toolkit's reader, rejected images, drawing.
#include "IconBytes.h"

#include "imagetools/icons/modIconImage.h"

#include <QColorSpace>
#include <QTest>

using namespace ob;

namespace {

ByteView ViewOf(const QByteArray& bytes)
{
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())};
}

unsigned ByteAt(const QByteArray& bytes, qsizetype offset)
{
    return static_cast<unsigned char>(bytes[offset]);
}

ColorRef ColorAt(const QByteArray& bytes, qsizetype offset) // of blue, green, red
{
    return Rgb(ByteAt(bytes, offset + 2), ByteAt(bytes, offset + 1), ByteAt(bytes, offset));
}

// The colour of a pixel of a bitmap with a full colour table, bit by bit.
ColorRef PlainColor(const icons::Entry& entry, int x, int y)
{
    const qsizetype table = 40;
    const qsizetype colors = table + (entry.bits <= 8 ? 4 << entry.bits : 0);
    const qsizetype line = colors + icons::LineBytes(entry.width, entry.bits) * (entry.height - 1 - y);
    if (entry.bits <= 8) {
        unsigned index = 0;
        for (int bit = x * entry.bits; bit < (x + 1) * entry.bits; ++bit)
            index = index * 2 + (ByteAt(entry.bytes, line + bit / 8) >> (7 - bit % 8) & 1);
        return ColorAt(entry.bytes, table + static_cast<qsizetype>(index) * 4);
    }
    if (entry.bits > 16)
        return ColorAt(entry.bytes, line + x * entry.bits / 8);
    const unsigned value = ByteAt(entry.bytes, line + x * 2) | ByteAt(entry.bytes, line + x * 2 + 1) << 8;
    const auto channel = [value](int shift) { return (value >> shift & 31) << 3 | (value >> shift & 31) >> 2; };
    return Rgb(channel(10), channel(5), channel(0));
}

int PlainMask(const icons::Entry& entry, int x, int y)
{
    const qsizetype lineBytes = icons::LineBytes(entry.width, 1);
    const qsizetype line = entry.bytes.size() - lineBytes * (y + 1);
    return ByteAt(entry.bytes, line + x / 8) >> (7 - x % 8) & 1;
}

std::size_t PlaceOf(const IconImage& image, int x, int y)
{
    return static_cast<std::size_t>(y * image.width + x);
}

// An image of one pixel.
IconImage OnePixel(ColorRef color, int mask, std::optional<int> alpha = {})
{
    IconImage image{1, 1, alpha ? 32 : 24, {color}, {static_cast<std::uint8_t>(mask)}, {}};
    if (alpha)
        image.alpha = {static_cast<std::uint8_t>(*alpha)};
    return image;
}

ColorRef DrawnOver(ColorRef background, const IconImage& image)
{
    Icon icon;
    icon.pixels.fill(background);
    DrawIcon(icon, image);
    return icon.At(31, 31);
}

} // namespace

class tst_modIconImage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyDepthMatchesTheReference_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("bits");
        for (const int bits : {1, 4, 8, 16, 24, 32}) {
            for (const QSize& size : {QSize(32, 32), QSize(16, 16), QSize(1, 1), QSize(33, 7), QSize(256, 256)})
                QTest::addRow("%d x %d, %d bits", size.width(), size.height(), bits)
                    << size.width() << size.height() << bits;
        }
    }
    void everyDepthMatchesTheReference()
    {
        QFETCH(int, width);
        QFETCH(int, height);
        QFETCH(int, bits);
        const icons::Entry entry = icons::RandomImage(width, height, bits, static_cast<unsigned>(width + bits));
        const auto size = ReadIconImageSize(ViewOf(entry.bytes));
        QVERIFY(size == (IconImageSize{width, height, bits}));
        const auto image = ReadIconImage(ViewOf(entry.bytes));
        QVERIFY(image.has_value());
        QCOMPARE(image->width, width);
        QCOMPARE(image->height, height);
        QCOMPARE(image->bits, bits);
        QCOMPARE(image->alpha.empty(), bits != 32);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                QCOMPARE(image->colors[PlaceOf(*image, x, y)], PlainColor(entry, x, y));
                QCOMPARE(int{image->mask[PlaceOf(*image, x, y)]}, PlainMask(entry, x, y));
            }
        }
    }

    void theFourthChannelIsTheAlpha()
    {
        const icons::Entry entry = icons::RandomImage(20, 9, 32);
        const auto image = ReadIconImage(ViewOf(entry.bytes));
        QVERIFY(image.has_value());
        for (int y = 0; y < 9; ++y) {
            for (int x = 0; x < 20; ++x)
                QCOMPARE(unsigned{image->alpha[PlaceOf(*image, x, y)]},
                         ByteAt(entry.bytes, 40 + (8 - y) * 80 + x * 4 + 3));
        }
    }

    // Old programs made such images, with nothing in the fourth channel.
    void anAlphaOfZerosIsNone()
    {
        icons::Entry entry = icons::PlainImage(32, 32, 32, 0x102030);
        for (qsizetype place = 43; place < 40 + 4 * 32 * 32; place += 4)
            entry.bytes[place] = '\0';
        const auto image = ReadIconImage(ViewOf(entry.bytes));
        QVERIFY(image.has_value());
        QVERIFY(image->alpha.empty());
        Icon icon;
        DrawIcon(icon, *image);
        QCOMPARE(icon.At(3, 3), Rgb(0x10, 0x20, 0x30));
    }

    void aShortColorTableIsRead()
    {
        QByteArray bytes = icons::BitmapHeader(8, 1, 4, 0, 3);
        for (const std::uint32_t color : {0x010203, 0x040506, 0x070809})
            icons::Put(bytes, color, 4);
        bytes += QByteArray::fromHex("0120000000000000"); // a line of colours, a line of mask
        const auto image = ReadIconImage(ViewOf(bytes));
        QVERIFY(image.has_value());
        QCOMPARE(image->colors[0], Rgb(1, 2, 3));
        QCOMPARE(image->colors[1], Rgb(4, 5, 6));
        QCOMPARE(image->colors[2], Rgb(7, 8, 9));
    }

    void anImageOneByteTooShortIsRejected_data()
    {
        QTest::addColumn<int>("bits");
        for (const int bits : {1, 4, 8, 16, 24, 32})
            QTest::addRow("%d bits", bits) << bits;
    }
    void anImageOneByteTooShortIsRejected()
    {
        QFETCH(int, bits);
        const QByteArray bytes = icons::RandomImage(32, 32, bits).bytes;
        QVERIFY(ReadIconImage(ViewOf(bytes)).has_value());
        for (qsizetype size = 0; size < bytes.size(); ++size) {
            QVERIFY(!ReadIconImageSize(ViewOf(bytes.first(size))));
            QVERIFY(!ReadIconImage(ViewOf(bytes.first(size))));
        }
    }

    void invalidHeadersAreRejected_data()
    {
        QTest::addColumn<int>("offset");
        QTest::addColumn<int>("count");
        QTest::addColumn<qulonglong>("value");
        const auto row = [](const char* name, int offset, int count, qulonglong value) {
            QTest::newRow(name) << offset << count << value;
        };
        row("header too small", 0, 4, 12);
        row("header too large", 0, 4, 0xFFFFFFFF);
        row("no width", 4, 4, 0);
        row("negative width", 4, 4, 0xFFFFFFE0);
        row("width whose product overflows", 4, 4, 0x40000001);
        row("too wide", 4, 4, MostIconSide + 1);
        row("no height", 8, 4, 1);
        row("top-down", 8, 4, 0xFFFFFFC0);
        row("lowest height", 8, 4, 0x80000000);
        row("too high", 8, 4, (MostIconSide + 1) * 2);
        row("2 bits", 14, 2, 2);
        row("0 bits", 14, 2, 0);
        row("run lengths", 16, 4, 1);
        row("bit fields", 16, 4, 3);
        row("embedded JPEG", 16, 4, 4);
        row("embedded PNG", 16, 4, 5);
        row("too many colours", 32, 4, 257);
        row("colours without end", 32, 4, 0xFFFFFFFF);
    }
    void invalidHeadersAreRejected()
    {
        QFETCH(int, offset);
        QFETCH(int, count);
        QFETCH(qulonglong, value);
        QByteArray bytes = icons::RandomImage(32, 32, 8).bytes;
        icons::Overwrite(bytes, offset, value, count);
        icons::PadTo(bytes, 1 << 20);
        QVERIFY(!ReadIconImageSize(ViewOf(bytes)));
        QVERIFY(!ReadIconImage(ViewOf(bytes)));
    }

    void pngImagesAreRead_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<int>("bits");
        QTest::newRow("with alpha") << QImage::Format_ARGB32 << 32;
        QTest::newRow("without") << QImage::Format_RGB888 << 24;
        QTest::newRow("grey") << QImage::Format_Grayscale8 << 8;
        QTest::newRow("black and white") << QImage::Format_Mono << 1;
    }
    void pngImagesAreRead()
    {
        QFETCH(QImage::Format, format);
        QFETCH(int, bits);
        QImage source(70, 50, QImage::Format_ARGB32);
        for (int y = 0; y < 50; ++y) {
            for (int x = 0; x < 70; ++x)
                source.setPixel(x, y, qRgba(x * 3, y * 5, x + y, format == QImage::Format_ARGB32 ? x * 3 + 1 : 255));
        }
        source = source.convertToFormat(format);
        const icons::Entry entry = icons::PngImage(source);
        QVERIFY(ReadIconImageSize(ViewOf(entry.bytes)) == (IconImageSize{70, 50, bits}));
        const auto image = ReadIconImage(ViewOf(entry.bytes));
        QVERIFY(image.has_value());
        for (int y = 0; y < 50; ++y) {
            for (int x = 0; x < 70; ++x) {
                const QRgb pixel = source.pixel(x, y);
                const auto color = Rgb(static_cast<unsigned>(qRed(pixel)), static_cast<unsigned>(qGreen(pixel)),
                                       static_cast<unsigned>(qBlue(pixel)));
                QCOMPARE(int{image->alpha[PlaceOf(*image, x, y)]}, qAlpha(pixel));
                QCOMPARE(image->colors[PlaceOf(*image, x, y)], color);
            }
        }
    }

    void aDamagedPngHasASizeAtMost()
    {
        const QByteArray bytes = icons::PngImage(QImage(32, 32, QImage::Format_RGB32)).bytes;
        for (qsizetype size = 0; size < bytes.size() - 12; ++size)
            QVERIFY(!ReadIconImage(ViewOf(bytes.first(size))));
        QByteArray huge = bytes;
        icons::Overwrite(huge, 16, 0xFFFFFF7F, 4);
        QVERIFY(!ReadIconImageSize(ViewOf(huge)));
        QVERIFY(!ReadIconImage(ViewOf(huge)));
    }

    // It does not read 16 bits and ignores the mask at 24.
    void theToolkitSeesTheSamePicture_data()
    {
        QTest::addColumn<int>("bits");
        for (const int bits : {1, 4, 8, 32})
            QTest::addRow("%d bits", bits) << bits;
    }
    void theToolkitSeesTheSamePicture()
    {
        QFETCH(int, bits);
        const icons::Entry entry = icons::RandomImage(32, 32, bits, 77);
        const QImage toolkit = QImage::fromData(icons::IcoFile({entry}), "ICO");
        QVERIFY2(!toolkit.isNull(), "the toolkit's icon reader is missing");
        const auto image = ReadIconImage(ViewOf(entry.bytes));
        QVERIFY(image.has_value());
        for (int y = 0; y < 32; ++y) {
            for (int x = 0; x < 32; ++x) {
                const std::size_t place = PlaceOf(*image, x, y);
                const QRgb pixel = toolkit.pixel(x, y);
                const int alpha = image->alpha.empty() ? 255 * (1 - image->mask[place]) : image->alpha[place];
                QCOMPARE(qAlpha(pixel), alpha);
                if (alpha == 255)
                    QCOMPARE(Rgb(static_cast<unsigned>(qRed(pixel)), static_cast<unsigned>(qGreen(pixel)),
                                 static_cast<unsigned>(qBlue(pixel))),
                             image->colors[place]);
            }
        }
    }

    void theMaskKeepsTheBackgroundAndTheColorIsDrawnOverIt()
    {
        const ColorRef background = Rgb(0x0F, 0xF0, 0xAA);
        QCOMPARE(DrawnOver(background, OnePixel(Rgb(1, 2, 3), 0)), Rgb(1, 2, 3));
        QCOMPARE(DrawnOver(background, OnePixel(Rgb(0, 0, 0), 1)), background);
        QCOMPARE(DrawnOver(background, OnePixel(Rgb(255, 255, 255), 1)), Rgb(0xF0, 0x0F, 0x55));
        QCOMPARE(DrawnOver(TransparentColor, OnePixel(Rgb(0, 0, 0), 1)), TransparentColor);
    }

    void alphaBlendsAndTheMaskDoesNotCount()
    {
        for (const int mask : {0, 1}) {
            QCOMPARE(DrawnOver(TransparentColor, OnePixel(Rgb(9, 8, 7), mask, 0)), TransparentColor);
            QCOMPARE(DrawnOver(TransparentColor, OnePixel(Rgb(9, 8, 7), mask, 255)), Rgb(9, 8, 7));
            QCOMPARE(DrawnOver(Rgb(0, 100, 255), OnePixel(Rgb(255, 200, 0), mask, 51)), Rgb(51, 120, 204));
        }
    }

    void otherSizesAreStretched_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        for (const QSize& size : {QSize(16, 16), QSize(48, 48), QSize(33, 7), QSize(1024, 1), QSize(256, 31)})
            QTest::addRow("%d x %d", size.width(), size.height()) << size.width() << size.height();
    }
    void otherSizesAreStretched()
    {
        QFETCH(int, width);
        QFETCH(int, height);
        const auto image = ReadIconImage(ViewOf(icons::RandomImage(width, height, 24).bytes));
        QVERIFY(image.has_value());
        Icon icon;
        DrawIcon(icon, *image);
        for (int y = 0; y < 32; ++y) {
            for (int x = 0; x < 32; ++x) {
                const std::size_t place = PlaceOf(*image, x * width / 32, y * height / 32);
                const ColorRef under = image->mask[place] != 0 ? TransparentColor : 0;
                QCOMPARE(icon.At(x, y), under ^ image->colors[place]);
            }
        }
    }
};

QTEST_GUILESS_MAIN(tst_modIconImage)
#include "tst_modIconImage.moc"
