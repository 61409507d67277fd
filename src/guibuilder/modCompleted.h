// SPDX-License-Identifier: GPL-3.0-or-later
// The names and branches that a form lacks, filled in for its file or for its program.
#pragma once

#include "guibuilder/modGui.h"

namespace ob {

// What a form is completed for. Each fills in by rules of its own; a text that is there already stays.
enum class CompletedFor { File, Program };

// The form with what the writer or the generator needs of it. An empty handle becomes "main"; of the controls only the
// visible ones change.
// File: an empty Tag becomes keyword and index, an empty branch these and ".click"; branches lose the spaces around
// them.
// Program: the handle loses the spaces around it; an empty branch becomes the kind's branchStem, index and ".click";
// branches get their brackets; a groupbox without a Tag gets its name there, as no other kind does.
GuiForm Completed(GuiForm form, CompletedFor purpose);

} // namespace ob
