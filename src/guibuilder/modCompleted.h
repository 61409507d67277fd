// SPDX-License-Identifier: GPL-3.0-or-later
// The names and branches that a form lacks, filled in for its file or for its program.
#pragma once

#include "guibuilder/modGui.h"

namespace ob {

// What a form is completed for. Each has its own rules; an existing text is kept.
enum class CompletedFor { File, Program };

// The form with everything that the writer or the generator needs. An empty handle becomes "main"; of the controls only
// the visible ones change.
// File: an empty Tag becomes keyword and index, an empty branch these and ".click"; branches are trimmed of spaces.
// Program: the handle is trimmed of spaces; an empty branch becomes the kind's branchStem, index and ".click"; branches
// get their brackets; a groupbox without a Tag gets its name there, unlike any other kind.
GuiForm Completed(GuiForm form, CompletedFor purpose);

} // namespace ob
