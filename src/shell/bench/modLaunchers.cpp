// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that start other programs or open pages, help files and the embedded libraries.
#include "shell/bench/modLaunchers.h"

#include "editor/document/modDocument.h"
#include "editor/files/modFileCommands.h"
#include "engine/run/modFileIO.h"
#include "platform/desktop/modDesktop.h"
#include "platform/desktop/modLaunch.h"
#include "platform/desktop/modPages.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"
#include "platform/language/cRuntimeError.h"
#include "shell/state/Module1.h"
#include "shell/state/modNames.h"
#include "shell/state/modTexts.h"

#include <QFile>

namespace ob {

namespace {

void SayStopped(const QString& text)
{
    MsgBox(text, BoxIcon::Critical);
}

// Launchers ignore errors: nothing is shown for a program that does not start.
void StartSilently(const ProgramCall& call)
{
    try {
        Launch(call);
    } catch (const RuntimeError&) {
        // Nothing is shown.
    }
}

void StartOr(const std::optional<ProgramCall>& call, const QString& message)
{
    if (call)
        StartSilently(*call);
    else
        SayStopped(message);
}

// Finds the desktop's program with a file of the kind, which is removed afterwards in any case.
void StartProgramFor(const QString& testFile, const QString& message)
{
    const QString path = ProgramFile(testFile);
    std::optional<ProgramCall> call;
    try {
        ReplaceFile(path, "test\r\n", Durability::Unsynced);
        call = FindExecutable(path.toStdU16String());
    } catch (const RuntimeError& error) {
        // Without the test file the program cannot be found.
        ShowReason(error);
    }
    QFile::remove(path);
    StartOr(call, message);
}

void OpenLink(const QString& item)
{
    OpenPage(PageAddress(item));
}

void OpenHelp(QString& path, void (*find)())
{
    if (path.compare(NoPath, Qt::CaseInsensitive) == 0)
        find();
    if (!FileExists(path))
        find();
    if (path.isEmpty() || path.compare(NoPath, Qt::CaseInsensitive) == 0)
        MsgBox(QStringLiteral("No helpfile is designated."));
    else if (OpenFileWithSystem(path) == PageEnd::Failed)
        MsgBox(QStringLiteral("No program of this system could open ") + path);
}

void OpenLibrary(const QString& name, const QString& missing)
{
    const QString path = ProgramFile(name);
    if (FileExists(path))
        OpenRecentFile(path);
    else
        SayStopped(missing);
}

} // namespace

QString PageAddress(const QString& item)
{
    const auto list = EmbeddedText(QStringLiteral("pages.txt"));
    const QString text = list ? QString::fromUtf8(list->data(), static_cast<qsizetype>(list->size())) : QString();
    for (const QString& line : text.split(QLatin1Char('\n')))
        if (line.section(QLatin1Char(' '), 0, 0) == item)
            return line.section(QLatin1Char(' '), 1);
    return {};
}

void mnuExplorer_Click()
{
    StartOr(FileManager(), QStringLiteral("Explorer not found."));
}

void mnuNotepad_Click()
{
    StartProgramFor(QStringLiteral("test.txt"), QStringLiteral("Default texteditor not found."));
}

void mnuWordpad_Click()
{
    StartProgramFor(QStringLiteral("test.doc"), QStringLiteral("Default word processor not found."));
}

void mnuPaint_Click()
{
    StartProgramFor(QStringLiteral("test.bmp"), QStringLiteral("Default paint program not found."));
}

void mnuSoundRec_Click()
{
    StartProgramFor(QStringLiteral("test.wav"), QStringLiteral("Default WAV program not found."));
}

void mnuCalculator_Click()
{
    StartOr(Calculator(), QStringLiteral("Calculator not found."));
}

void mnuOBHome_Click()
{
    OpenLink(QStringLiteral("mnuOBHome"));
}

void mnuOBGroup_Click()
{
    OpenLink(QStringLiteral("mnuOBGroup"));
}

void mnuOBForum_Click()
{
    OpenLink(QStringLiteral("mnuOBForum"));
}

void mnuOBNews_Click()
{
    OpenLink(QStringLiteral("mnuOBNews"));
}

void mnuOBLinks_Click()
{
    OpenLink(QStringLiteral("mnuOBLinks"));
}

void mnuHelpContents_Click()
{
    OpenHelp(OBHelpPath, FindHelp);
}

void mnuHelpOption_Click()
{
    OpenHelp(OptionalHelpPath, FindOptionalHelp);
}

void mnuWrapper_Click()
{
    OpenLibrary(QStringLiteral("wrapper32.bas"), QStringLiteral("Wrapper32.bas not found!"));
}

void mnuToolPrinter_Click()
{
    OpenLibrary(QStringLiteral("printer32.bas"), QStringLiteral("Printer32.bas not found!"));
}

} // namespace ob
