// SPDX-License-Identifier: GPL-3.0-or-later
// The start of the program.
#include "shell/bench/modStart.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "editor/document/modSyntaxTable.h"
#include "editor/document/modUserTexts.h"
#include "editor/files/modDocumentFile.h"
#include "editor/files/modFileCommands.h"
#include "editor/modFind.h"
#include "guibuilder/modGui.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/desktop/modSystemColors.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/files/modNativePath.h"
#include "platform/files/modPaths.h"
#include "platform/language/cRuntimeError.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modNames.h"
#include "shell/state/modOptions.h"
#include "shell/state/modRecent.h"
#include "shell/state/modTexts.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace ob {

static void DropMissingPaths()
{
    for (QString* path : {&OBPath, &OBHelpPath, &OptionalHelpPath, &OBFreeformPath, &OBRuntimePath})
        if (!FileExists(*path))
            *path = NoPath;
}

void ResetBench()
{
    ResetState();
    Documents.clear();
    Finding() = {};
    ResetGui();
}

void StartRoutine(const std::function<cMainForm*()>& create)
{
    ExtractResource(101, u"CUSTOM"_s, ProgramFile(u"wrapper32.bas"_s));
    ExtractResource(102, u"CUSTOM"_s, ProgramFile(u"printer32.bas"_s));

    ResetBench();
    MainForm = create();
    SetReasonSink(SetStatusText);
    BuildSyntaxTable();
    LoadCustomKeywords(ProgramFolder());
    Editor.EditForeColor = GetSysColor(SystemColor::WindowText);
    Editor.EditBackColor = GetSysColor(SystemColor::Window);
    QDir().mkdir(ProgramFile(u"OBprogs"_s));
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

// The main window's Load ignores the errors of each step and always reaches its end.
static void PassErrorsOver(const std::function<void()>& step)
{
    try {
        step();
    } catch (const RuntimeError&) {
        // What could not be opened has no window.
    }
}

static void OpenNewestFile(const QString& path)
{
    cDocument* document = NewDocument();
    if (document == nullptr)
        return;
    PassErrorsOver([&] { LoadDocumentFile(*document, path); });
    document->Tag = TagOpen;
    document->SetCaption(path);
    PassErrorsOver([&] { ShowOpenedFile(*document, path); });
}

void OpenAtLoad()
{
    if (ShowRecentFiles() == RecentMenu::WantsNewWindow)
        PassErrorsOver(mnuFileNew_Click);
    if (OpenFileOn && FileExists(RecentFiles[0]))
        OpenNewestFile(RecentFiles[0]);
}

void OpenFiles(const QStringList& paths, FileSource source)
{
    for (const QString& name : paths) {
        if (IsLostName(name)) {
            SetStatusText(LostNameText(name));
            continue;
        }
        if (!FileExists(name)) {
            SetStatusText(FolderExists(name) ? u"%1 is a folder"_s.arg(name) : u"%1 does not exist"_s.arg(name));
            continue;
        }
        // Captions and the recent list hold full paths.
        const QString path = AbsolutePathOf(name);
        if (path.right(3).toLower() == QLatin1String("obf")) {
            RunCommand([&] { LoadGuiForm(path); });
            if (source == FileSource::Drop)
                return;
        } else {
            RunCommand([&] {
                if (cDocument* document = OpenInNewWindow(path))
                    AfterFileOpen(*document, path);
            });
        }
    }
}

QString MainCaption()
{
    return ProgramTitle + u"  v" OB_VERSION ""_s;
}

} // namespace ob
