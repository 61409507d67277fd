// SPDX-License-Identifier: GPL-3.0-or-later
// The start of the program.
#include "shell/bench/modStart.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "editor/document/modSyntaxTable.h"
#include "editor/document/modUserTexts.h"
#include "editor/files/modFileCommands.h"
#include "guibuilder/modGui.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/desktop/modSystemColors.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"
#include "platform/language/cRuntimeError.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modOptions.h"
#include "shell/state/modRecent.h"

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
    Documents.clear();
    ResetGui();
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
