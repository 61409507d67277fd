// SPDX-License-Identifier: GPL-3.0-or-later
// Sprites as bitmap files for tests, and their expected masks.
#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>

// A disk of that colour on black; a few points within are black or nearly black.
inline QImage SpriteImage(int width, int height, QRgb color = qRgb(200, 40, 10))
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(qRgb(0, 0, 0));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double across = (2.0 * x - width) / width;
            const double down = (2.0 * y - height) / height;
            if (across * across + down * down < 1)
                image.setPixel(x, y, color);
        }
    }
    image.setPixel(width / 2, height / 2, qRgb(0, 0, 0));
    image.setPixel(0, 0, qRgb(0, 0, 1));
    return image;
}

// Mask above, sprite below.
inline QImage MaskedImage(const QImage& sprite)
{
    QImage picture(sprite.width(), sprite.height() * 2, QImage::Format_RGB32);
    for (int y = 0; y < sprite.height(); ++y) {
        for (int x = 0; x < sprite.width(); ++x) {
            const QRgb pixel = sprite.pixel(x, y);
            picture.setPixel(x, y, (pixel & 0xFFFFFF) == 0 ? qRgb(255, 255, 255) : qRgb(0, 0, 0));
            picture.setPixel(x, y + sprite.height(), pixel | 0xFF000000);
        }
    }
    return picture;
}

inline QByteArray BitmapBytesOf(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.convertToFormat(QImage::Format_RGB888).save(&buffer, "BMP");
    return buffer.data();
}

inline QImage ImageAt(const QString& path)
{
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}
