// SPDX-License-Identifier: GPL-3.0-or-later
// The state's first values and the small routines that every tool shares.
#include "shell/Module1.h"

#include "editor/cDocument.h"
#include "guibuilder/modGui.h"
#include "platform/cRuntimeError.h"
#include "platform/modFiles.h"
#include "shell/cMainForm.h"
#include "shell/modTexts.h"

#include <QFileInfo>

namespace ob {

void ResetState()
{
    MainForm = nullptr;
    Documents.clear();
    LastFind.clear();
    FindFlags = 0;
    FoundPos = -1;
    FindFromStart = false;
    RecentFiles.fill(QStringLiteral("untitled"));
    RecentCount = 0;
    ToolImageIndex = 1;
    ResetGui();
    QuitQuery = true;
    OpenFileOn = false;
    ShowTips = true;
    AddComments = false;
    OBPath = OBHelpPath = OptionalHelpPath = OBFreeformPath = OBRuntimePath = NoPath;
    FontHeight = 12;
    FontName = QStringLiteral("Courier New");
    FontBold = false;
    TabSize = 4;
    SyntaxColor = 1;
    LineNums = HighlightOn = IndentGuidesOn = AutoIndent = true;
    UserApplications.fill(QStringLiteral("none"));
    LastDir = QStringLiteral("app.path");
}

void ExtractResource(int id, const QString& type, const QString& path)
{
    const auto text = CarriedText(id, type);
    if (!text)
        return;
    try {
        WriteKeepingTail(path, QByteArray::fromRawData(text->data(), static_cast<qsizetype>(text->size())));
    } catch (const RuntimeError&) {
        // A folder that cannot take the library costs the user the library only, not the start.
    }
}

ColorRef ColorFromName(const QString& name)
{
    for (std::size_t i = 0; i < ColorName.size(); ++i)
        if (name == QLatin1String(ColorName[i].data(), static_cast<qsizetype>(ColorName[i].size())))
            return ColorValue[i];
    return 0;
}

QString NameFromColor(const QString& text)
{
    bool isNumber = false;
    const qlonglong value = text.trimmed().toLongLong(&isNumber);
    if (!isNumber)
        return {};
    // The number may be signed or not; one of more than 32 bits is no colour.
    for (std::size_t i = 0; i < ColorValue.size(); ++i)
        if (value == ColorValue[i] || value == static_cast<std::int32_t>(ColorValue[i]))
            return QString::fromLatin1(ColorName[i].data(), static_cast<qsizetype>(ColorName[i].size()));
    return {};
}

void SetStatusText(const QString& text)
{
    if (MainForm != nullptr)
        MainForm->SetStatusPanel(text);
}

bool IsUsablePath(const QString& path)
{
    return !path.isEmpty() && path.compare(NoPath, Qt::CaseInsensitive) != 0 && FileExists(path);
}

} // namespace ob
