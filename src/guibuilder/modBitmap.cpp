// SPDX-License-Identifier: GPL-3.0-or-later
// The bitmaps that bmpbuttons show.
#include "guibuilder/modBitmap.h"

#include "platform/language/cRuntimeError.h"

#include <QFileInfo>
#include <QImageReader>

namespace ob {

QImage LoadBitmap(const QString& path)
{
    // Reading a pipe or a device might block for ever.
    if (!QFileInfo(path).isFile())
        throw RuntimeErrorOf(ErrorNumber::FileNotFound);
    QImageReader reader(path, QByteArrayLiteral("bmp"));
    reader.setAutoDetectImageFormat(false);
    QImage picture = reader.read();
    if (picture.isNull())
        throw RuntimeErrorOf(ErrorNumber::InvalidPicture);
    return picture;
}

} // namespace ob
