// SPDX-License-Identifier: GPL-3.0-or-later
// What is odd about a form: what its program will stumble over, although it can be drawn, saved and compiled.
#pragma once

#include "guibuilder/modGui.h"

#include <optional>
#include <vector>

namespace ob {

struct FormRemark {
    std::optional<ControlRef> control; // none: about the form itself
    QString text;                      // one sentence, for the user

    bool operator==(const FormRemark&) const = default;
};

// Names that are in use twice or are none in the language, quotation marks in texts that the program has in quotation
// marks, bitmaps without a file. The form is one that has been completed for its program (modCompleted.h).
std::vector<FormRemark> RemarksOn(const GuiForm& completed);

} // namespace ob
