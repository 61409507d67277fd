// SPDX-License-Identifier: GPL-3.0-or-later
// The bitmaps that bmpbuttons show.
#include "guibuilder/modBitmap.h"

#include "platform/cRuntimeError.h"
#include "platform/modFiles.h"

#include <QImageReader>

namespace ob {

QImage LoadBitmap(const QString& path)
{
    // Only a file can be waited for: a pipe may never end.
    if (!FileExists(path))
        throw RuntimeErrorOf(ErrorNumber::FileNotFound);
    QImageReader reader(path, QByteArrayLiteral("bmp"));
    reader.setAutoDetectImageFormat(false);
    QImage picture = reader.read();
    if (picture.isNull())
        throw RuntimeErrorOf(ErrorNumber::InvalidPicture);
    return picture;
}

} // namespace ob
