// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures stored as a list of drawing commands: .wmf files, with or without a header of their size, and .emf.
#pragma once

#include <QByteArrayView>
#include <QImage>

#include <variant>

namespace ob {

enum class MetafileError {
    NotAMetafile, // does not start like one
    Damaged,      // a record extends beyond the end of the file, or there is nothing to draw and no size
    TooMuchWork,  // drawing its records would take too long
    NoMemory
};

// Whether the bytes start like a metafile.
bool IsMetafile(QByteArrayView bytes);

// Draws the records on white, in the file's size at 96 dots per inch; a picture of more than sixteen million points is
// drawn smaller. Unknown records, and those too short for their kind, are skipped. Text needs the toolkit's fonts: see
// SetFontMaker. May be called on any thread.
std::variant<QImage, MetafileError> PlayMetafile(QByteArrayView bytes);

// Fonts need an application object for windows. Without one, the routine is called before the first text is drawn, and
// may create it; without either, text is not drawn.
void SetFontMaker(void (*makeApplication)());
bool CanDrawText();

} // namespace ob
