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
#include <optional>

namespace ob {

enum class FormLoad { Loaded, Corrupt, Failed };

// Returns the picture in a bitmap file, or raises a RuntimeError.
using BitmapLoader = std::function<cButtonPicture(const QString& path)>;

inline const QString CorruptFormText = QStringLiteral("OBF file is corrupt.");
inline const QString FailedFormText = QStringLiteral("Error loading form.");

// Why a form cannot be read: a reason for the user, and the number of the line, from 1; 0 where no line is at fault.
struct FormTrouble {
    int line = 0;
    QString reason;

    bool operator==(const FormTrouble&) const = default;
};

// "address.obf, line 7: field 3 is missing"
QString TroubleText(const QString& path, const FormTrouble& trouble);

// Clears the form and fills it from a form file's bytes. Corrupt: a line with an unknown first field. Failed: a field
// is missing or is not a number, a menu has too many items, a bitmap cannot be loaded. The form then has everything
// before that place; a control whose line is incomplete stays hidden. Unless all was read, trouble, if not null, is
// set.
FormLoad ReadForm(QByteArrayView bytes, GuiForm& form, const BitmapLoader& loadBitmap, FormTrouble* trouble = nullptr);

inline FormLoad ReadForm(QByteArrayView bytes, GuiForm& form)
{
    return ReadForm(bytes, form, LoadBitmap);
}

// The text of the file of a form that has been completed for it (modCompleted.h): empty values are written as such.
// Raises SubscriptOutOfRange for a status bar of more than ten panels.
QString WriteForm(const GuiForm& completed);

// What would keep a file that WriteForm made from being loaded again as it is: text that the form file has another
// meaning for, window properties that were never confirmed, a bitmap that is not there.
std::optional<FormTrouble> TroubleIn(QByteArrayView written, const BitmapLoader& loadBitmap);

} // namespace ob
