// SPDX-License-Identifier: GPL-3.0-or-later
// The imaging library's pictures and the toolkit's images.
#include "imagetools/images/modImage.h"

#include <cstring>

namespace ob {

namespace {

void CopyLineOnWhite(const QImage& image, int line, std::uint8_t* target)
{
    const auto* source = reinterpret_cast<const QRgb*>(image.constScanLine(line));
    for (int x = 0; x < image.width(); ++x, target += 3) {
        const int white = 255 - qAlpha(source[x]);
        target[0] = static_cast<std::uint8_t>(qBlue(source[x]) + white);
        target[1] = static_cast<std::uint8_t>(qGreen(source[x]) + white);
        target[2] = static_cast<std::uint8_t>(qRed(source[x]) + white);
    }
}

} // namespace

QImage ImageOf(const cDIBSection& picture)
{
    if (picture.hDib() == 0)
        return {};
    QImage image(picture.Width(), picture.Height(), QImage::Format_BGR888);
    for (int line = 0; line < image.height(); ++line)
        std::memcpy(image.scanLine(line), picture.Line(picture.Height() - 1 - line),
                    static_cast<std::size_t>(picture.Width()) * 3);
    return image;
}

cDIBSection CreateFromPicture(const QImage& image)
{
    cDIBSection picture;
    if (image.isNull() || !picture.Create(image.width(), image.height()))
        return picture;
    const bool isTransparent = image.hasAlphaChannel();
    const QImage converted =
        image.convertToFormat(isTransparent ? QImage::Format_ARGB32_Premultiplied : QImage::Format_BGR888);
    for (int line = 0; line < converted.height(); ++line) {
        std::uint8_t* target = picture.Line(picture.Height() - 1 - line);
        if (isTransparent)
            CopyLineOnWhite(converted, line, target);
        else
            std::memcpy(target, converted.constScanLine(line), static_cast<std::size_t>(picture.Width()) * 3);
    }
    return picture;
}

} // namespace ob
