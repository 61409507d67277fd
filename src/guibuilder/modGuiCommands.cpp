// SPDX-License-Identifier: GPL-3.0-or-later
// The form builder's commands.
#include "guibuilder/modGuiCommands.h"

#include "editor/document/modDocument.h"
#include "editor/document/modUserTexts.h"
#include "guibuilder/cGuiWindow.h"
#include "guibuilder/modCompleted.h"
#include "guibuilder/modFormFile.h"
#include "guibuilder/modRemarks.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modAnsi.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modNames.h"

#include <QDate>
#include <QDir>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

const QString SaveItem = u"mnuFileSaveGui"_s;

// A file that cannot be read at all counts as a failed load. The reason of a load that has failed is left in the
// design.
FormLoad ReadFormFile(const QString& path, FormDesign& design)
{
    FormTrouble trouble;
    FormLoad end = FormLoad::Failed;
    try {
        end = ReadForm(ReadWhole(path), design.form, LoadBitmap, &trouble);
    } catch (const RuntimeError& error) {
        trouble.reason = error.reason.isEmpty() ? error.description : error.reason;
    }
    design.GuiLoadTrouble = end == FormLoad::Loaded ? QString() : TroubleText(path, trouble);
    return end;
}

void ShowLoadFailure(const QString& text)
{
    MsgBox({text, BoxIcon::Critical, BoxButtons::Ok, {}, GuiDesign().GuiLoadTrouble});
}

// A form that is saved as it is, but would be lost, or cut short, by the next load.
void WarnOfTrouble(QByteArrayView written)
{
    const auto trouble = TroubleIn(written, LoadBitmap);
    if (trouble)
        MsgBox(u"The form is saved, but it cannot be loaded again as it is.\nLine %1 of the file: %2."_s.arg(
                   QString::number(trouble->line), trouble->reason),
               BoxIcon::Exclamation);
}

// Whether text may be written with a question mark for each character that the code page lacks.
bool MayLose(const AnsiText& encoded)
{
    const QString question = u"Line %1 of the form file holds a character that form files cannot store.\n"
                             "Save with a question mark in place of each such character?"_s;
    return encoded.lostCount == 0 ||
           MsgBox(question.arg(encoded.firstLostLine), BoxIcon::Question, BoxButtons::YesNo) == BoxAnswer::Yes;
}

void OpenGeneratedCode(ProgramKind kind)
{
    FormDesign& design = GuiDesign();
    if (!design.GuiFormOpen)
        return;
    ProgramHeader header;
    header.date = ShortDateText(QDate::currentDate(), QLocale::system());
    if (AddComments)
        header.comments = TextFromAnsi(ReadComments(ProgramFolder()));
    GuiForm completed = Completed(design.form, CompletedFor::Program);
    const GeneratedProgram program = GenerateProgram(completed, kind, header);
    design.form = std::move(completed);
    GuiWindow->SettleGui(GuiSteps::Keep);
    if (program.bitmapMissing)
        MsgBox(BitmapMissingText);
    if (cDocument* document = NewDocument())
        SendTextToDocument(*document, program.text, UntitledName);
    GuiWindow->ShowGuiRemarks(RemarksOn(design.form));
}

} // namespace

SurfaceScale ScreenScale()
{
    return {TwipsPerPixelX, TwipsPerPixelY};
}

void GuiFormLoaded()
{
    FormDesign& design = GuiDesign();
    ClearForm(design.form);
    design.GuiGridOn = design.GuiStatusNoteOn = true;
    design.GuiFormModified = false;
    design.GuiFormOpen = true;
    SetStatusText(GuiHintText);
    MainForm->EnableItem(SaveItem, true);
}

void GuiFormUnloaded()
{
    GuiDesign().GuiFormOpen = false;
    GuiDesign().form.windowTag = u"closed"_s;
    if (MainForm != nullptr)
        MainForm->EnableItem(SaveItem, false);
}

UnloadAnswer QueryGuiUnload()
{
    const FormDesign& design = GuiDesign();
    if (!design.GuiFormModified || !QuitQuery)
        return UnloadAnswer::Unload;
    switch (MsgBox(u"Save gui form before closing?"_s, BoxIcon::Question, BoxButtons::YesNoCancel)) {
    case BoxAnswer::Yes:
        guiSave();
        return design.GuiFormModified ? UnloadAnswer::Stay : UnloadAnswer::Unload;
    case BoxAnswer::No:
        return UnloadAnswer::Unload;
    default:
        return UnloadAnswer::Stay;
    }
}

void SaveGuiForm(const QString& path)
{
    FormDesign& design = GuiDesign();
    const bool wasModified = design.GuiFormModified;
    design.GuiFormModified = false;
    try {
        design.form = Completed(design.form, CompletedFor::File);
        const AnsiText encoded = AnsiFromText(WriteForm(design.form));
        GuiWindow->SettleGui(GuiSteps::Keep);
        if (MayLose(encoded)) {
            ReplaceFile(path, encoded.bytes);
            design.file = path;
            SetStatusText(u"Form saved as "_s + NameOf(path));
            WarnOfTrouble(encoded.bytes);
            return;
        }
    } catch (...) {
        design.GuiFormModified = wasModified;
        throw;
    }
    design.GuiFormModified = wasModified;
}

void LoadGuiForm(const QString& path)
{
    FormDesign& design = GuiDesign();
    const bool wasLoading = design.GuiFormLoading;
    design.GuiFormLoading = true;
    if (!GuiWindow->UnloadGui()) {
        design.GuiFormLoading = wasLoading;
        return;
    }
    GuiWindow->ShowGui();
    design.file = path;
    const FormLoad end = ReadFormFile(path, design);
    if (end == FormLoad::Corrupt) {
        design.GuiFormLoading = design.GuiFormModified = false;
        GuiWindow->UnloadGui();
        ShowLoadFailure(CorruptFormText);
        return;
    }
    design.GuiFormModified = false;
    ShowStatusNote(design.form.GuiStatusbarOn);
    GuiWindow->SettleGui(GuiSteps::Forget);
    EnableMenuEditor(design.form.GuiWindowType);
    if (end == FormLoad::Failed) {
        ShowLoadFailure(FailedFormText);
        return;
    }
    design.GuiFormLoading = false;
}

void guiSave()
{
    if (!GuiDesign().GuiFormOpen) {
        MsgBox(u"No gui form to save!"_s, BoxIcon::Critical);
        return;
    }
    if (MainForm->ActiveKind() != ActiveChild::Gui) {
        MsgBox(u"The gui builder is not active; there is no form to save!"_s, BoxIcon::Critical);
        return;
    }
    FileSpec box;
    box.purpose = FilePurpose::Save;
    box.title = u"Save Gui Form As"_s;
    box.folder = QDir::currentPath();
    box.filter = u"Gui Form (*.obf)|*.obf"_s;
    box.extension = u"obf"_s;
    const QString path = FileBox(box);
    if (!path.isEmpty())
        SaveGuiForm(path);
}

void mnuFileLoadGui_Click()
{
    const QString path = OpenFileDialog(u"Gui Form (*.obf)|*.OBF"_s, QDir::currentPath());
    if (path.isEmpty())
        return;
    if (path.contains(QLatin1String("obf"), Qt::CaseInsensitive))
        LoadGuiForm(path);
    else
        GuiWindow->UnloadGui();
}

void NewGuiForm()
{
    if (!GuiWindow->UnloadGui())
        return;
    GuiWindow->ShowGui();
    GuiDesign().file.clear();
    GuiDesign().form.windowTag = u"open"_s;
    GuiWindow->ShowGuiDefaults();
    GuiWindow->SettleGui(GuiSteps::Forget);
}

void GuiShowMenu(MenuBar bar)
{
    GuiDesign().form.GuiMenuOn = bar == MenuBar::Shown;
    GuiWindow->RefreshGui();
}

void ShowStatusNote(bool show)
{
    GuiDesign().GuiStatusNoteOn = show;
    GuiWindow->RefreshGui();
}

void EnableMenuEditor(const QString& windowType)
{
    GuiWindow->EnableGuiTool(QString::fromLatin1(MenuEditorTool), !IsDialogType(windowType));
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
