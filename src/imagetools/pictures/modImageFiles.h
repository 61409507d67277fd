// SPDX-License-Identifier: GPL-3.0-or-later
// The bitmap previewer's file operations: which files it lists, saving a picture, writing out the image library.
#pragma once

#include "imagetools/pictures/modLoadBmp.h"
#include "imaging/cDIBSection.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace ob {

// The patterns of the file list. With the image library the last one contains a comma, and so matches almost nothing.
QStringList BitmapPatterns(ImageLibrary library);

// "rose.bmp cannot be shown."
QString CannotBeShownText(const QString& path);

enum class ImageColors { AsTheyAre, Reduced256 };

// How a picture is read, as LoadPicture does; nothing for one whose reading was cancelled.
using PictureReader = std::function<std::optional<cDIBSection>(const QString& path)>;

// Copies the picture's file, in whatever format it is, or writes the picture as a bitmap of 256 colours, and shows the
// user which, or that it failed. After a failure an older file of that name is unchanged. What is cancelled ends
// without a word.
enum class ImageSave { Done, Not };
ImageSave SaveImageFile(const QString& source, const QString& target, ImageColors colors, const PictureReader& read);

// The name to offer for the saved picture, with the ending that it needs.
QString CopyNameFor(const QString& source, ImageColors colors);

inline const QString NoImageLibraryText =
    QStringLiteral("This Orchard Bench was built without the image library jpeg.dll, so there is none to save.");

bool CarriesImageLibrary();

// Writes jpeg.dll and its demonstration program into the folder; returns the library's path. Raises what ReplaceFile of
// modFiles.h raises.
QString WriteImageLibrary(const QString& folder);

} // namespace ob
