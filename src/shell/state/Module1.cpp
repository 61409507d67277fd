// SPDX-License-Identifier: GPL-3.0-or-later
// The state's initial values and the small routines shared by all tools.
#include "shell/state/Module1.h"

#include "platform/files/modFiles.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modNames.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace ob {

void ResetState()
{
    MainForm = nullptr;
    RecentFiles.fill(u"untitled"_s);
    RecentCount = 0;
    ToolImageIndex = 1;
    QuitQuery = true;
    OpenFileOn = false;
    ShowTips = true;
    AddComments = false;
    OBPath = OBHelpPath = OptionalHelpPath = OBFreeformPath = OBRuntimePath = NoPath;
    Editor = {};
    UserApplications.fill(u"none"_s);
    LastDir = u"app.path"_s;
}

bool IsUsablePath(const QString& path)
{
    return !path.isEmpty() && path.compare(NoPath, Qt::CaseInsensitive) != 0 && FileExists(path);
}

} // namespace ob
