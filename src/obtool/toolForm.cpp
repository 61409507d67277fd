// SPDX-License-Identifier: GPL-3.0-or-later
// obtool form: forms under design.
#include "obtool/toolGroups.h"

#include "editor/document/modUserTexts.h"
#include "guibuilder/modCompleted.h"
#include "guibuilder/modFormFile.h"
#include "guibuilder/modGenerator.h"
#include "obtool/toolModules.h"
#include "obtool/toolOutput.h"
#include "platform/files/modFiles.h"
#include "platform/language/modAnsi.h"

#include <QDate>
#include <QLocale>

#include <memory>
#include <optional>

namespace ob {

namespace {

struct FormArguments {
    std::string form;
    std::string out;
    std::string date;
    std::string comments;
    bool simple = false;
};

// A file that cannot be read is a failed load, as in the bench.
QByteArray ReadFormBytes(const std::string& file)
{
    try {
        return ReadInput(file);
    } catch (const ToolFailure&) {
        throw ToolFailure(file, FailedFormText);
    }
}

GuiForm ReadFormArgument(const std::string& file)
{
    GuiForm form;
    switch (ReadForm(ReadFormBytes(file), form, LoadBitmapByModule)) {
    case FormLoad::Loaded:
        return form;
    case FormLoad::Corrupt:
        throw ToolFailure(file, CorruptFormText);
    case FormLoad::Failed:
        break;
    }
    throw ToolFailure(file, FailedFormText);
}

// The comments of a file; a missing one has the same text as an empty one.
QString CommentsOf(const std::string& file)
{
    return TextFromAnsi(CommentText(file == "-" || FileExists(PathOf(file)) ? ReadInput(file) : QByteArray()));
}

void CompileForm(const FormArguments& arguments, bool hasDate, bool hasComments)
{
    const GuiForm form = Completed(ReadFormArgument(arguments.form), CompletedFor::Program);
    ProgramHeader header;
    header.date = hasDate ? QString::fromLocal8Bit(arguments.date.data(), static_cast<qsizetype>(arguments.date.size()))
                          : ShortDateText(QDate::currentDate(), QLocale::system());
    if (hasComments)
        header.comments = CommentsOf(arguments.comments);
    const GeneratedProgram program =
        GenerateProgram(form, arguments.simple ? ProgramKind::Simple : ProgramKind::Outline, header);
    WriteAnswer(AnsiFromText(program.text).bytes);
    if (program.bitmapMissing)
        WriteNote(arguments.form, BitmapMissingText);
}

void SaveForm(const FormArguments& arguments)
{
    const GuiForm form = Completed(ReadFormArgument(arguments.form), CompletedFor::File);
    const QString text = OnFile(arguments.form, [&] { return WriteForm(form); });
    WriteOutput(arguments.out, AnsiFromText(text).bytes);
}

} // namespace

void AddFormVerbs(CLI::App& group)
{
    const auto arguments = std::make_shared<FormArguments>();
    const auto addForm = [&](CLI::App* verb) {
        verb->add_option("FORM", arguments->form, "a form file, or - for standard input")->required();
    };

    CLI::App* compile =
        AddVerb(group, "compile", "obtool form compile FORM [--simple] [--date TEXT] [--comments FILE] [-o OUT]",
                "the form's BASIC source with outline, or its window statements alone");
    addForm(compile);
    compile->add_flag("--simple", arguments->simple, "the window statements alone");
    CLI::Option* date =
        compile->add_option("--date", arguments->date, "the header's date; default: today's")->type_name("TEXT");
    CLI::Option* comments = compile->add_option("--comments", arguments->comments, "the programmer's comments file")
                                ->type_name("FILE")
                                ->check(NotEmpty);
    AddOutOption(*compile);
    compile->callback([=] { CompileForm(*arguments, date->count() > 0, comments->count() > 0); });

    CLI::App* save = AddVerb(group, "save", "obtool form save FORM OUT", "reads FORM and writes it again to OUT");
    addForm(save);
    save->add_option("OUT", arguments->out, "the form file to write")->required()->check(NotEmpty);
    save->callback([arguments] { SaveForm(*arguments); });

    CLI::App* check = AddVerb(group, "check", "obtool form check FORM", "nothing when the form can be read");
    addForm(check);
    check->callback([arguments] { ReadFormArgument(arguments->form); });
}

} // namespace ob
