// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the toolbar maker's buttons.
#include "codetools/modToolbarStrip.h"

#include "imagetools/pictures/modPicture.h"
#include "platform/files/modFiles.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include <cstdlib>

namespace ob {

namespace {

constexpr QRgb buttonFace = qRgb(192, 192, 192);

bool IsNearerToButton(QSize size, QSize than)
{
    const auto distance = [](QSize each) { return std::abs(each.width() - ToolbarPictureSide); };
    return distance(size) < distance(than);
}

QImage NearestIcon(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "ico");
    QImage nearest;
    for (int i = 0; i < reader.imageCount() && reader.jumpToImage(i); ++i) {
        const QImage image = reader.read();
        if (!image.isNull() && (nearest.isNull() || IsNearerToButton(image.size(), nearest.size())))
            nearest = image;
    }
    return nearest;
}

} // namespace

QImage ToolbarPicture(const QString& path)
{
    const QByteArray bytes = ReadWhole(path);
    QImage picture;
    if (bytes.startsWith(QByteArrayView("\0\0\1\0", 4)))
        picture = NearestIcon(bytes);
    if (picture.isNull())
        picture = ImageOf(PictureOfBytes(bytes));
    QImage button(ToolbarPictureSide, ToolbarPictureSide, QImage::Format_RGB32);
    button.fill(buttonFace);
    QPainter(&button).drawImage(button.rect(), picture);
    return button;
}

QImage ToolbarStrip(const QList<QImage>& pictures)
{
    if (pictures.isEmpty())
        return {};
    QImage strip(static_cast<int>(pictures.size()) * ToolbarPictureSide, ToolbarPictureSide, QImage::Format_RGB32);
    QPainter painter(&strip);
    for (int i = 0; i < pictures.size(); ++i)
        painter.drawImage(i * ToolbarPictureSide, 0, pictures[i]);
    return strip;
}

} // namespace ob
