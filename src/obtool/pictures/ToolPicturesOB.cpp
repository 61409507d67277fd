// SPDX-License-Identifier: GPL-3.0-or-later
// The module of the groups that need the picture library.
#include "guibuilder/modBitmap.h"
#include "obtool/pictures/toolPicture.h"
#include "obtool/toolGroups.h"
#include "obtool/toolModules.h"
#include "platform/files/modTemporaryFiles.h"

#include <QtGlobal>

extern "C" Q_DECL_EXPORT void ToolModule_AddVerbs(CLI::App& group)
{
    // The module's temporary files are its own.
    ob::RemoveMarkedOnSignals();
    ob::LetPicturesHaveFonts();
    const std::string& name = group.get_name();
    if (name == "image")
        ob::AddImageVerbs(group);
    else if (name == "palette")
        ob::AddPaletteVerbs(group);
    else if (name == "sprite")
        ob::AddSpriteVerbs(group);
    else if (name == "icon")
        ob::AddIconVerbs(group);
    else
        ob::AddAviVerbs(group);
}

extern "C" Q_DECL_EXPORT void ToolModule_LoadBitmap(const QString& path, ob::cButtonPicture& picture)
{
    picture = ob::LoadBitmap(path);
}
