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

using namespace Qt::StringLiterals;

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

HelpEnd OpenHelp(QString& path, void (*find)())
{
    if (path.compare(NoPath, Qt::CaseInsensitive) == 0)
        find();
    if (!FileExists(path))
        find();
    if (path.isEmpty() || path.compare(NoPath, Qt::CaseInsensitive) == 0) {
        MsgBox(u"No helpfile is designated."_s);
        return HelpEnd::NoFile;
    }
    if (OpenFileWithSystem(path) == PageEnd::Failed)
        MsgBox(u"No program of this system could open "_s + path);
    return HelpEnd::Shown;
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
    const auto list = EmbeddedText(u"pages.txt"_s);
    const QString text = list ? QString::fromUtf8(list->data(), static_cast<qsizetype>(list->size())) : QString();
    for (const QString& line : text.split(QLatin1Char('\n')))
        if (line.section(QLatin1Char(' '), 0, 0) == item)
            return line.section(QLatin1Char(' '), 1);
    return {};
}

void mnuExplorer_Click()
{
    StartOr(FileManager(), u"Explorer not found."_s);
}

void mnuNotepad_Click()
{
    StartProgramFor(u"test.txt"_s, u"Default texteditor not found."_s);
}

void mnuWordpad_Click()
{
    StartProgramFor(u"test.doc"_s, u"Default word processor not found."_s);
}

void mnuPaint_Click()
{
    StartProgramFor(u"test.bmp"_s, u"Default paint program not found."_s);
}

void mnuSoundRec_Click()
{
    StartProgramFor(u"test.wav"_s, u"Default WAV program not found."_s);
}

void mnuCalculator_Click()
{
    StartOr(Calculator(), u"Calculator not found."_s);
}

void mnuOBHome_Click()
{
    OpenLink(u"mnuOBHome"_s);
}

void mnuOBGroup_Click()
{
    OpenLink(u"mnuOBGroup"_s);
}

void mnuOBForum_Click()
{
    OpenLink(u"mnuOBForum"_s);
}

void mnuOBNews_Click()
{
    OpenLink(u"mnuOBNews"_s);
}

void mnuOBLinks_Click()
{
    OpenLink(u"mnuOBLinks"_s);
}

HelpEnd OpenLanguageHelp()
{
    return OpenHelp(OBHelpPath, FindHelp);
}

void mnuHelpOption_Click()
{
    OpenHelp(OptionalHelpPath, FindOptionalHelp);
}

void mnuWrapper_Click()
{
    OpenLibrary(u"wrapper32.bas"_s, u"Wrapper32.bas not found!"_s);
}

void mnuToolPrinter_Click()
{
    OpenLibrary(u"printer32.bas"_s, u"Printer32.bas not found!"_s);
}

} // namespace ob
