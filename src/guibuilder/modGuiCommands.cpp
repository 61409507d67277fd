// SPDX-License-Identifier: GPL-3.0-or-later
// The form builder's commands.
#include "guibuilder/modGuiCommands.h"

#include "editor/document/modDocument.h"
#include "editor/document/modUserTexts.h"
#include "guibuilder/modFormFile.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modAnsi.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"

#include <QDate>
#include <QDir>
#include <QLocale>

namespace ob {

namespace {

const QString SaveItem = QStringLiteral("mnuFileSaveGui");

// A file that cannot be read at all is one more load that failed.
FormLoad ReadFormFile(const QString& path, GuiForm& form)
{
    try {
        return ReadForm(ReadWhole(path), form);
    } catch (const RuntimeError&) {
        return FormLoad::Failed;
    }
}

// Whether text may be written with a question mark for each character that the code page lacks.
bool MayLose(const AnsiText& encoded)
{
    const QString question = QStringLiteral("Line %1 of the form file holds a character that form files cannot store.\n"
                                            "Save with a question mark in place of each such character?");
    return encoded.lostCount == 0 ||
           MsgBox(question.arg(encoded.firstLostLine), BoxIcon::Question, BoxButtons::YesNo) == BoxAnswer::Yes;
}

void OpenGeneratedCode(ProgramKind kind)
{
    if (!GuiFormOpen)
        return;
    ProgramHeader header;
    header.date = ShortDateText(QDate::currentDate(), QLocale::system());
    if (AddComments)
        header.comments = TextFromAnsi(ReadComments(ProgramFolder()));
    const GeneratedProgram program = GenerateProgram(GuiDesign, kind, header);
    MainForm->SettleGui(cMainForm::GuiSteps::Keep);
    if (program.bitmapMissing)
        MsgBox(BitmapMissingText);
    if (cDocument* document = NewDocument())
        SendTextToDocument(*document, program.text, UntitledName);
}

} // namespace

void GuiFormLoaded()
{
    ClearForm(GuiDesign);
    GuiPlacing = GuiLocked = GuiDragged = false;
    GuiGridOn = GuiStatusNoteOn = true;
    GuiFormModified = false;
    GuiFormOpen = true;
    SetStatusText(GuiHintText);
    MainForm->EnableItem(SaveItem, true);
}

void GuiFormUnloaded()
{
    GuiFormOpen = GuiPlacing = false;
    GuiDesign.windowTag = QStringLiteral("closed");
    if (MainForm != nullptr)
        MainForm->EnableItem(SaveItem, false);
}

UnloadAnswer QueryGuiUnload()
{
    if (!GuiFormModified || !QuitQuery)
        return UnloadAnswer::Unload;
    switch (MsgBox(QStringLiteral("Save gui form before closing?"), BoxIcon::Question, BoxButtons::YesNoCancel)) {
    case BoxAnswer::Yes:
        guiSave();
        return GuiFormModified ? UnloadAnswer::Stay : UnloadAnswer::Unload;
    case BoxAnswer::No:
        return UnloadAnswer::Unload;
    default:
        return UnloadAnswer::Stay;
    }
}

void SaveGuiForm(const QString& path)
{
    const bool wasModified = GuiFormModified;
    GuiFormModified = false;
    try {
        const AnsiText encoded = AnsiFromText(WriteForm(GuiDesign));
        MainForm->SettleGui(cMainForm::GuiSteps::Keep);
        if (MayLose(encoded)) {
            ReplaceFile(path, encoded.bytes);
            SetStatusText(QStringLiteral("Form saved as ") + NameOf(path));
            return;
        }
    } catch (const RuntimeError&) {
        GuiFormModified = wasModified;
        throw;
    }
    GuiFormModified = wasModified;
}

void LoadGuiForm(const QString& path)
{
    const bool wasLoading = GuiFormLoading;
    GuiFormLoading = true;
    if (!MainForm->UnloadGui()) {
        GuiFormLoading = wasLoading;
        return;
    }
    MainForm->ShowGui();
    const FormLoad end = ReadFormFile(path, GuiDesign);
    if (end == FormLoad::Corrupt) {
        GuiFormLoading = GuiFormModified = false;
        MainForm->UnloadGui();
        MsgBox(CorruptFormText, BoxIcon::Critical);
        return;
    }
    GuiFormModified = false;
    ShowStatusNote(GuiDesign.GuiStatusbarOn);
    MainForm->SettleGui(cMainForm::GuiSteps::Forget);
    EnableMenuEditor(GuiDesign.GuiWindowType);
    if (end == FormLoad::Failed) {
        MsgBox(FailedFormText, BoxIcon::Critical);
        return;
    }
    GuiFormLoading = false;
}

void guiSave()
{
    if (!GuiFormOpen) {
        MsgBox(QStringLiteral("No gui form to save!"), BoxIcon::Critical);
        return;
    }
    if (MainForm->ActiveKind() != ActiveChild::Gui) {
        MsgBox(QStringLiteral("The gui builder is not active; there is no form to save!"), BoxIcon::Critical);
        return;
    }
    FileSpec box;
    box.purpose = FilePurpose::Save;
    box.title = QStringLiteral("Save Gui Form As");
    box.folder = QDir::currentPath();
    box.filter = QStringLiteral("Gui Form (*.obf)|*.obf");
    const QString path = FileBox(box);
    if (!path.isEmpty())
        SaveGuiForm(path);
}

void mnuFileLoadGui_Click()
{
    const QString path = OpenFileDialog(QStringLiteral("Gui Form (*.obf)|*.OBF"), QDir::currentPath());
    if (path.isEmpty())
        return;
    if (path.contains(QLatin1String("obf"), Qt::CaseInsensitive))
        LoadGuiForm(path);
    else
        MainForm->UnloadGui();
}

void NewGuiForm()
{
    if (!MainForm->UnloadGui())
        return;
    MainForm->ShowGui();
    GuiDesign.windowTag = QStringLiteral("open");
    MainForm->ShowGuiDefaults();
    MainForm->SettleGui(cMainForm::GuiSteps::Forget);
}

void GuiShowMenu(MenuBar bar)
{
    GuiDesign.GuiMenuOn = bar == MenuBar::Shown;
    MainForm->RefreshGui();
}

void ShowStatusNote(bool show)
{
    GuiStatusNoteOn = show;
    MainForm->RefreshGui();
}

void EnableMenuEditor(const QString& windowType)
{
    MainForm->EnableGuiTool(MenuEditorTool, !IsDialogType(windowType));
}

void Compile()
{
    OpenGeneratedCode(ProgramKind::Outline);
}

void CompileSimple()
{
    OpenGeneratedCode(ProgramKind::Simple);
}

} // namespace ob
