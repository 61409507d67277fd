// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures reduced to the size at which they are shown.
#include "imagetools/pictures/modPreview.h"

#include "imagetools/metafiles/modMetafile.h"
#include "imagetools/pictures/modPicture.h"
#include "platform/files/modFiles.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <exception>

namespace ob {

namespace {

// The size at which the image of a picture looks best: that of the screen's pixels when it is reduced.
QSize ImageSize(QSize picture, const PreviewRequest& request)
{
    const QSize fitted = FittedSize(picture, request.box);
    return fitted == picture ? picture : FittedSize(picture, (QSizeF(request.box) * request.pixels).toSize());
}

QImage OnWhite(const QImage& image)
{
    return image.hasAlphaChannel() ? ImageOf(CreateFromPicture(image)) : image;
}

// Formats that can be read at a reduced size, such as JPEG, are.
Preview PreviewOfToolkit(QByteArray& bytes, const PreviewRequest& request)
{
    QImageReader::setAllocationLimit(MostPictureMegabytes);
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    QSize size = reader.size();
    const bool isTurned = (reader.transformation() & QImageIOHandler::TransformationRotate90) != 0;
    if (size.isValid()) {
        const QSize wanted = isTurned ? size.transposed() : size;
        const QSize image = ImageSize(wanted, request);
        if (image != wanted)
            reader.setScaledSize(isTurned ? image.transposed() : image);
        size = wanted;
    }
    QImage image = reader.read();
    if (!size.isValid())
        size = image.size();
    return {request.path, size, image};
}

Preview PreviewOf(const PreviewRequest& request)
{
    QByteArray bytes = ReadWhole(request.path);
    Preview preview;
    if (bytes.startsWith("BM") || IsMetafile(bytes)) {
        preview.image = ImageOf(PictureOfBytes(bytes));
        preview.size = preview.image.size();
    } else {
        preview = PreviewOfToolkit(bytes, request);
    }
    preview.path = request.path;
    if (preview.image.isNull())
        return {request.path, {}, {}};
    const QSize wanted = ImageSize(preview.size, request);
    if (preview.image.size() != wanted)
        preview.image = preview.image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    preview.image = OnWhite(preview.image);
    return preview;
}

} // namespace

QSize FittedSize(QSize picture, QSize box)
{
    if (picture.width() <= box.width() && picture.height() <= box.height())
        return picture;
    return picture.scaled(box.expandedTo(QSize(1, 1)), Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

Preview LoadPreview(const PreviewRequest& request)
{
    try {
        return PreviewOf(request);
    } catch (const std::exception&) {
        return {request.path, {}, {}};
    }
}

} // namespace ob
