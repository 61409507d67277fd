// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures that are kept as a list of drawing commands: .wmf files, with or without a header of their size, and .emf.
#pragma once

#include <QByteArrayView>
#include <QImage>

#include <variant>

namespace ob {

enum class MetafileError {
    NotAMetafile, // does not begin as one
    Damaged,      // a record goes beyond the end of the file, or there is nothing to draw and no size
    TooMuchWork,  // its records would keep the machine busy for too long
    NoMemory
};

// Whether the bytes begin as a metafile does.
bool IsMetafile(QByteArrayView bytes);

// Draws the records on white, in the size that the file gives at 96 dots an inch; a picture of more than sixteen
// million points is drawn smaller. Records that are not known, or are too short for what they are, are skipped. Text
// needs the toolkit's fonts: see SetFontMaker. Any thread may call it.
std::variant<QImage, MetafileError> PlayMetafile(QByteArrayView bytes);

// Fonts are there once the process has an application object for windows. Where it has none the routine is called
// before the first text is drawn, and may make one; without either, text is left out.
void SetFontMaker(void (*makeApplication)());
bool CanDrawText();

} // namespace ob
