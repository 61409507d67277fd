// SPDX-License-Identifier: GPL-3.0-or-later
// The form file (.obf): one record per line, its fields separated by "|", in the machine's ANSI code page.
//
// Line      0          1        2 to 5                      6        7           8
// defaults  "defaults" colours: fore, back, listbox, combobox, textbox, texteditor (1 to 6); tool tips, status bar,
//           timer (7 to 9), the state of the window defaults (10), menu bar (11)
// window    its type   caption  left, top, width, height    handle   its colour  font name, " *", size
// menu      "menu"     title    items, each followed by " * " (2)
// control   keyword    caption  left, top, width, height    tag      branch      fill
// statusbar "statusbar" panels  the panels' texts (2 and on)
//
// Rectangles are in twips. A "|" in a text is not escaped.
#pragma once

#include "guibuilder/modBitmap.h"
#include "guibuilder/modGui.h"

#include <QByteArrayView>

#include <functional>

namespace ob {

enum class FormLoad { Loaded, Corrupt, Failed };

// Returns the picture in a bitmap file, or raises a RuntimeError.
using BitmapLoader = std::function<cButtonPicture(const QString& path)>;

inline const QString CorruptFormText = QStringLiteral("OBF file is corrupt.");
inline const QString FailedFormText = QStringLiteral("Error loading form.");

// Clears the form and fills it from a form file's bytes. Corrupt: a line with an unknown first field. Failed: a field
// is missing or is not a number, a menu has too many items, a bitmap cannot be loaded. The form then has everything
// before that place; a control whose line is incomplete stays hidden.
FormLoad ReadForm(QByteArrayView bytes, GuiForm& form, const BitmapLoader& loadBitmap);

inline FormLoad ReadForm(QByteArrayView bytes, GuiForm& form)
{
    return ReadForm(bytes, form, LoadBitmap);
}

// The text of the file of a form that has been completed for it (modCompleted.h): empty values are written as such.
// Raises SubscriptOutOfRange for a status bar of more than ten panels.
QString WriteForm(const GuiForm& completed);

} // namespace ob
