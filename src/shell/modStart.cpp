// SPDX-License-Identifier: GPL-3.0-or-later
// The start of the program.
#include "shell/modStart.h"

#include "editor/cDocument.h"
#include "editor/modDocument.h"
#include "editor/modSyntaxTable.h"
#include "editor/modUserTexts.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/cRuntimeError.h"
#include "platform/modDialogs.h"
#include "platform/modFiles.h"
#include "platform/modPaths.h"
#include "platform/modSystemColors.h"
#include "shell/Module1.h"
#include "shell/cMainForm.h"
#include "shell/modFileCommands.h"
#include "shell/modOptions.h"
#include "shell/modRecent.h"

#include <QDir>

namespace ob {

static void DropMissingPaths()
{
    for (QString* path : {&OBPath, &OBHelpPath, &OptionalHelpPath, &OBFreeformPath, &OBRuntimePath})
        if (!FileExists(*path))
            *path = NoPath;
}

void StartRoutine(const std::function<cMainForm*()>& create)
{
    ExtractResource(101, QStringLiteral("CUSTOM"), ProgramFile(QStringLiteral("wrapper32.bas")));
    ExtractResource(102, QStringLiteral("CUSTOM"), ProgramFile(QStringLiteral("printer32.bas")));

    ResetState();
    MainForm = create();
    BuildSyntaxTable();
    LoadCustomKeywords(ProgramFolder());
    EditForeColor = GetSysColor(SystemColor::WindowText);
    EditBackColor = GetSysColor(SystemColor::Window);
    QDir().mkdir(ProgramFile(QStringLiteral("OBprogs")));
    DropMissingPaths();
}

void LoadState()
{
    if (Documents.empty()) {
        Documents.push_back(nullptr);
        Documents.push_back(std::make_unique<cDocument>(1));
    }
    FillRecentFiles();
    ReadAllSettings();
    if (FolderExists(LastDir))
        QDir::setCurrent(LastDir);
}

// The main window's Load passes errors over, step by step, and always reaches its end.
static void PassErrorsOver(const std::function<void()>& step)
{
    try {
        step();
    } catch (const RuntimeError&) {
        // What could not be opened is simply not there.
    }
}

static void OpenNewestFile(const QString& path)
{
    cDocument* document = NewDocument();
    if (document == nullptr)
        return;
    PassErrorsOver([&] { LoadDocumentFile(path); });
    document->Tag = TagOpen;
    document->SetCaption(path);
    PassErrorsOver([&] { SetStatusText(OpenedFileStatus(path)); });
}

void OpenAtLoad()
{
    if (ShowRecentFiles() == RecentMenu::WantsNewWindow)
        PassErrorsOver(mnuFileNew_Click);
    if (OpenFileOn && FileExists(RecentFiles[0]))
        OpenNewestFile(RecentFiles[0]);
}

static void OpenCodeFile(const QString& path)
{
    if (NewDocument() == nullptr)
        return;
    LoadDocumentFile(path);
    AfterFileOpen(path);
}

void OpenFiles(const QStringList& paths, FileSource source)
{
    for (const QString& name : paths) {
        if (!FileExists(name))
            continue;
        // Captions and the recent list hold full paths.
        const QString path = AbsolutePathOf(name);
        if (path.right(3).toLower() == QLatin1String("obf")) {
            RunCommand([&] { LoadGuiForm(path); });
            if (source == FileSource::Drop)
                return;
        } else {
            RunCommand([&] { OpenCodeFile(path); });
        }
    }
}

QString MainCaption()
{
    return ProgramTitle + QStringLiteral("  v" OB_VERSION);
}

} // namespace ob
