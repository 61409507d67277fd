// SPDX-License-Identifier: GPL-3.0-or-later
// The groups whose libraries take longer to load than most work takes: modules beside the program, loaded when one of
// their groups is used. A module and the program each have their own copy of what they link and share no state.
#pragma once

#include "guibuilder/cButtonPicture.h"

#include <QString>

namespace CLI {
class App;
}

namespace ob {

// Add the verbs of a group, selected by its name. Throw ToolFailure when the module cannot be loaded.
void AddVerbsForPictures(CLI::App& group);
void AddVerbsForArchives(CLI::App& group);

// LoadBitmap of the module for pictures. Throws ToolFailure when the module cannot be loaded.
cButtonPicture LoadBitmapByModule(const QString& path);

// The functions of the modules; the second is only in the one for pictures.
using ToolModule_AddVerbs_Function = void(CLI::App& group);
using ToolModule_LoadBitmap_Function = void(const QString& path, cButtonPicture& picture);
inline constexpr char ToolModule_AddVerbs_Name[] = "ToolModule_AddVerbs";
inline constexpr char ToolModule_LoadBitmap_Name[] = "ToolModule_LoadBitmap";

} // namespace ob
