// SPDX-License-Identifier: GPL-3.0-or-later
// From a form to a BASIC program. Lines end in CR LF.
#pragma once

#include "guibuilder/modGui.h"

#include <QString>

#include <optional>

namespace ob {

// Outline: a program that runs, with a stub for each branch, list and font statements. Simple: the statements that
// build the window.
enum class ProgramKind { Outline, Simple };

struct ProgramHeader {
    QString date;                    // as written in the first line
    std::optional<QString> comments; // the programmer's, without the final line end; none: switched off
};

struct GeneratedProgram {
    QString text;
    bool bitmapMissing = false; // a bmpbutton names no file
};

inline const QString BitmapMissingText =
    QStringLiteral("Code contains at least one bmpbutton that has no valid bitmap file associated.  Please correct "
                   "this in the code generated.");

// A control's name in its program: that of its Tag, or else one made of its kind and its index.
QString NameInProgram(const GuiForm& form, ControlRef ref);

// The program of a form that has been completed for it (modCompleted.h); controls without a name get one in the program
// only. Raises Overflow for a font size that is not a number of the language.
GeneratedProgram GenerateProgram(const GuiForm& completed, ProgramKind kind, const ProgramHeader& header);

} // namespace ob
