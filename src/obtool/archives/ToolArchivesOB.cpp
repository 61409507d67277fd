// SPDX-License-Identifier: GPL-3.0-or-later
// The module of the groups that need the zip library.
#include "obtool/toolGroups.h"
#include "platform/files/modTemporaryFiles.h"

#include <QtGlobal>

extern "C" Q_DECL_EXPORT void ToolModule_AddVerbs(CLI::App& group)
{
    // The module's temporary files are its own.
    ob::RemoveMarkedOnSignals();
    if (group.get_name() == "zip")
        ob::AddZipVerbs(group);
    else
        ob::AddPackageVerbs(group);
}
