// SPDX-License-Identifier: GPL-3.0-or-later
// obtool source: what the code window knows of a program's text.
#include "obtool/toolGroups.h"

#include "editor/modDocument.h"
#include "editor/modSyntaxTable.h"
#include "editor/modUserTexts.h"
#include "engine/modIncludes.h"
#include "engine/modVariables.h"
#include "obtool/toolOutput.h"
#include "platform/cRuntimeError.h"
#include "platform/modAnsi.h"
#include "platform/modFiles.h"
#include "platform/modPaths.h"
#include "scilexer/modLexer.h"

#include <QDir>

#include <memory>
#include <vector>

namespace ob {

namespace {

struct SourceArguments {
    std::string file;
    std::string folder;
    std::string out;
    std::string term;
    bool lexer = false;
};

void BuildLists()
{
    BuildSyntaxTable();
    LoadCustomKeywords(ProgramFolder());
}

void AppendRow(QByteArray& report, std::initializer_list<std::size_t> fields)
{
    const char* separator = "";
    for (const std::size_t field : fields) {
        report.append(separator).append(QByteArray::number(static_cast<qulonglong>(field)));
        separator = "\t";
    }
    report.append('\n');
}

void Styles(const SourceArguments& arguments)
{
    const QByteArray text = ReadSource(arguments.file);
    BuildLists();
    const KeywordSet keywords(
        std::string_view(LexerKeywords.constData(), static_cast<std::size_t>(LexerKeywords.size())));
    const auto length = static_cast<std::size_t>(text.size());
    std::vector<unsigned char> styles(length);
    LexText(std::string_view(text.constData(), length), keywords, styles.data());
    QByteArray report;
    for (std::size_t start = 0; start < length;) {
        std::size_t end = start + 1;
        while (end < length && styles[end] == styles[start])
            ++end;
        AppendRow(report, {start, end - start, styles[start]});
        start = end;
    }
    WriteOutput({}, report);
}

void RunCopy(const SourceArguments& arguments)
{
    const QByteArray text = ReadSource(arguments.file);
    QString folder = arguments.folder.empty() ? FolderOf(PathOf(arguments.file)) : PathOf(arguments.folder);
    if (arguments.file == "-" && arguments.folder.empty())
        folder = QDir::currentPath();
    if (!arguments.folder.empty() && !FolderExists(folder))
        throw ToolFailure(arguments.folder, RuntimeErrorOf(ErrorNumber::PathNotFound).description);
    QByteArray copy = text + " \r\n";
    try {
        const QByteArray included = IncludedText(text, TextEncoding::Ansi, folder);
        if (!included.isEmpty())
            copy += included + "\r\n";
    } catch (const RuntimeError& error) {
        throw ToolFailure(arguments.file, error.description);
    }
    WriteOutput(arguments.out, copy);
}

void Variables(const SourceArguments& arguments)
{
    const QByteArray text = DecodeAnsi(ReadSource(arguments.file));
    QByteArray report;
    for (const VariableEntry& entry : ScanVariables(text))
        report.append(entry.name).append('\t').append(QByteArray::number(entry.line)).append('\n');
    WriteOutput({}, report);
}

void Syntax(const SourceArguments& arguments, bool hasTerm)
{
    BuildSyntaxTable();
    QByteArray text;
    if (hasTerm) {
        const std::string_view tip = SyntaxTip(arguments.term);
        text = QByteArray(tip.data(), static_cast<qsizetype>(tip.size()));
    } else {
        for (std::size_t row = 0; row < SyntaxTable.size(); ++row) {
            const std::string_view key = ReportedKey(SyntaxTable[row]);
            text += QByteArray::number(static_cast<qulonglong>(row)) + '\t';
            text.append(key.data(), static_cast<qsizetype>(key.size())).append('\n');
        }
    }
    WriteOutput({}, text);
}

void Keywords(const SourceArguments& arguments)
{
    BuildLists();
    WriteOutput({}, arguments.lexer ? LexerKeywords : KeywordList);
}

} // namespace

void AddSourceGroup(CLI::App& tool)
{
    CLI::App* group = tool.add_subcommand("source", "BASIC source files");
    const auto arguments = std::make_shared<SourceArguments>();

    CLI::App* styles = AddVerb(*group, "styles", "obtool source styles FILE",
                               "report: first byte, length, style number of each run of equal style");
    styles->add_option("FILE", arguments->file, "BASIC source, or - for standard input")->required();
    styles->callback([arguments] { Styles(*arguments); });

    CLI::App* variables = AddVerb(*group, "variables", "obtool source variables FILE",
                                  "report: name and line number, from 0, of each assignment");
    variables->add_option("FILE", arguments->file, "BASIC source, or - for standard input")->required();
    variables->callback([arguments] { Variables(*arguments); });

    CLI::App* runCopy = AddVerb(*group, "runcopy", "obtool source runcopy FILE [--folder DIR] [-o OUT]",
                                "the run copy: the text as a save writes it, then the merged includes");
    runCopy->add_option("FILE", arguments->file, "BASIC source, or - for standard input")->required();
    runCopy->add_option("--folder", arguments->folder, "where include names are looked up")
        ->type_name("DIR")
        ->check(NotEmpty);
    runCopy->add_option("-o", arguments->out, "write OUT instead of standard output")->type_name("OUT")->check(NotEmpty);
    runCopy->callback([arguments] { RunCopy(*arguments); });

    CLI::App* syntax = AddVerb(*group, "syntax", "obtool source syntax [TERM]",
                               "the syntax tip of TERM; without it, a report of row number and key");
    CLI::Option* term = syntax->add_option("TERM", arguments->term, "a word of the language");
    syntax->callback([arguments, term] { Syntax(*arguments, term->count() > 0); });

    CLI::App* keywords = AddVerb(*group, "keywords", "obtool source keywords [--lexer]", "the keyword list");
    keywords->add_flag("--lexer", arguments->lexer, "the list of the colouring");
    keywords->callback([arguments] { Keywords(*arguments); });
}

} // namespace ob
