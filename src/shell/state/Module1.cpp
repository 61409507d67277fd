// SPDX-License-Identifier: GPL-3.0-or-later
// The state's initial values and the small routines shared by all tools.
#include "shell/state/Module1.h"

#include "platform/files/modFiles.h"
#include "platform/language/cRuntimeError.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modTexts.h"

#include <QFileInfo>

namespace ob {

void ResetState()
{
    MainForm = nullptr;
    RecentFiles.fill(QStringLiteral("untitled"));
    RecentCount = 0;
    ToolImageIndex = 1;
    QuitQuery = true;
    OpenFileOn = false;
    ShowTips = true;
    AddComments = false;
    OBPath = OBHelpPath = OptionalHelpPath = OBFreeformPath = OBRuntimePath = NoPath;
    Editor = {};
    UserApplications.fill(QStringLiteral("none"));
    LastDir = QStringLiteral("app.path");
}

void ExtractResource(int id, const QString& type, const QString& path)
{
    const auto text = EmbeddedText(id, type);
    if (!text)
        return;
    try {
        WriteKeepingTail(path, QByteArray::fromRawData(text->data(), static_cast<qsizetype>(text->size())));
    } catch (const RuntimeError&) {
        // A folder that cannot be written costs the user the library, not the start.
    }
}

void SetStatusText(const QString& text)
{
    if (MainForm != nullptr)
        MainForm->SetStatusPanel(text);
}

void ChooseMenuItem(const QString& name)
{
    if (MainForm != nullptr)
        MainForm->ChooseItem(name);
}

bool IsUsablePath(const QString& path)
{
    return !path.isEmpty() && path.compare(NoPath, Qt::CaseInsensitive) != 0 && FileExists(path);
}

} // namespace ob
