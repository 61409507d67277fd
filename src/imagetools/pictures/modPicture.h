// SPDX-License-Identifier: GPL-3.0-or-later
// Connects the imaging library with the toolkit and the disk: pictures from files, images, the clipboard.
#pragma once

#include "imagetools/images/modImage.h"
#include "imaging/modFileAccess.h"
#include "platform/language/cRuntimeError.h"

#include <QByteArrayView>
#include <QImage>
#include <QString>

namespace ob {

// Enough for pictures of about a hundred million points; the toolkit rejects larger ones before creating them.
constexpr int MostPictureMegabytes = 512;

// The picture in the bytes of a file: a bitmap, a metafile, or any format that the toolkit reads. Transparent parts are
// laid on white. Raises InvalidPicture.
cDIBSection PictureOfBytes(QByteArrayView bytes);

// The picture of a file. Raises FileNotFound, PathFileAccess, DeviceIoError, InvalidPicture, with the path as the
// source and a reason that says what the user can do. May be called on any thread.
cDIBSection LoadPicture(const QString& path);

// Puts the picture on the clipboard. False when there is no picture or no clipboard, and, after a message, for the
// device-independent form.
enum class ClipboardForm { Bitmap, Dib };
bool CopyToClipboard(const cDIBSection& picture, ClipboardForm form);

// Files on disk for the imaging library; names are UTF-8. The reader gives its outcome as a value. The writer replaces
// a file as ReplaceFile of modFilePieces.h does, and raises what that raises, which the library lets through.
FileReader DiskReader();
FileWriter DiskWriter();

// The library's messages as boxes.
NoticeSink NoticeBoxes();

} // namespace ob
