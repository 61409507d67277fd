// SPDX-License-Identifier: GPL-3.0-or-later
// obtool source: the code window's knowledge of a program's text.
#include "obtool/toolGroups.h"

#include "editor/document/modSyntaxTable.h"
#include "editor/document/modUserTexts.h"
#include "editor/files/modDocumentFile.h"
#include "editor/modEditText.h"
#include "editor/modLabels.h"
#include "engine/run/modIncludes.h"
#include "engine/run/modVariables.h"
#include "obtool/toolOutput.h"
#include "orchard/language/modRead.h"
#include "orchard/library/modConstants.h"
#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modAnsi.h"
#include "scilexer/modLexer.h"

#include <QDir>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// A tab size is a 16-bit number.
constexpr int LargestTabSize = 32767;

struct SourceArguments {
    std::string file;
    std::string folder;
    std::string term;
    bool lexer = false;
    bool sorted = false;
    std::int64_t line = 0; // from 1
    std::int64_t lastLine = 0;
    int tabSize = 0;
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
        std::string_view(Words().LexerKeywords.constData(), static_cast<std::size_t>(Words().LexerKeywords.size())));
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
    WriteAnswer(report);
}

void Check(const SourceArguments& arguments)
{
    const basic::Program program = basic::ReadProgram(ReadInput(arguments.file).toStdString(), basic::FindConstant);
    QByteArray report;
    for (const basic::ReadError& error : program.errors) {
        const basic::LineColumn place = program.lines.PlaceOf(error.offset);
        report.append(QByteArray::number(place.line)).append('\t').append(QByteArray::number(place.column)).append('\t');
        report.append(DecodeAnsi(QByteArray::fromStdString(error.Text()))).append('\n');
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
    const QByteArray included = OnFile(arguments.file, [&] { return IncludedText(text, TextEncoding::Ansi, folder); });
    if (!included.isEmpty())
        copy += included + "\r\n";
    WriteAnswer(copy);
}

void Labels(const SourceArguments& arguments)
{
    const QByteArray text = DecodeAnsi(ReadSource(arguments.file));
    std::vector<LabelEntry> index = LabelIndex(text);
    if (arguments.sorted)
        index = SortedLabels(std::move(index));
    QByteArray report;
    for (const LabelEntry& entry : index)
        report.append(QByteArray::number(entry.line + 1)).append('\t').append(entry.text).append('\n');
    WriteAnswer(report);
}

// The start of the line, from 1. Throws ToolFailure when the text does not have it.
qsizetype LineOf(const SourceArguments& arguments, QByteArrayView text, std::int64_t line)
{
    const std::optional<qsizetype> start = StartOfLine(text, line - 1);
    if (!start)
        throw ToolFailure(arguments.file, u"the text has no line %1"_s.arg(line));
    return *start;
}

void WriteChanged(const QByteArray& text, const std::optional<TextChange>& change)
{
    QByteArray changed = text;
    if (change)
        changed.replace(change->from, change->to - change->from, change->replacement);
    WriteAnswer(EncodeAnsi(changed).bytes);
}

void Comment(const SourceArguments& arguments)
{
    const QByteArray text = DecodeAnsi(ReadSource(arguments.file));
    const qsizetype start = LineOf(arguments, text, arguments.line);
    LineOf(arguments, text, arguments.lastLine);
    if (arguments.lastLine < arguments.line)
        throw ToolFailure(arguments.file, u"the last line comes before the first"_s);
    const qsizetype end = StartOfLine(text, arguments.lastLine).value_or(text.size());
    WriteChanged(text, BlockComment(text, start, end));
}

void Indent(const SourceArguments& arguments)
{
    const QByteArray text = DecodeAnsi(ReadSource(arguments.file));
    WriteChanged(text, ReturnAtEnd(text, LineOf(arguments, text, arguments.line), arguments.tabSize));
}

void Variables(const SourceArguments& arguments)
{
    const QByteArray text = DecodeAnsi(ReadSource(arguments.file));
    QByteArray report;
    for (const VariableEntry& entry : ScanVariables(text))
        report.append(entry.name).append('\t').append(QByteArray::number(entry.line)).append('\n');
    WriteAnswer(report);
}

void Syntax(const SourceArguments& arguments, bool hasTerm)
{
    BuildSyntaxTable();
    QByteArray text;
    if (hasTerm) {
        const std::string_view tip = SyntaxTip(arguments.term);
        text = QByteArray(tip.data(), static_cast<qsizetype>(tip.size()));
    } else {
        for (std::size_t row = 0; row < Words().SyntaxTable.size(); ++row) {
            const std::string_view key = ReportedKey(Words().SyntaxTable[row]);
            text += QByteArray::number(static_cast<qulonglong>(row)) + '\t';
            text.append(key.data(), static_cast<qsizetype>(key.size())).append('\n');
        }
    }
    WriteAnswer(text);
}

void Keywords(const SourceArguments& arguments)
{
    BuildLists();
    WriteAnswer(arguments.lexer ? Words().LexerKeywords : Words().KeywordList);
}

using SharedArguments = std::shared_ptr<SourceArguments>;

void AddFileArgument(CLI::App& verb, const SharedArguments& arguments)
{
    verb.add_option("FILE", arguments->file, "BASIC source, or - for standard input")->required();
}

void AddLabels(CLI::App& group, const SharedArguments& arguments)
{
    CLI::App* labels = AddVerb(group, "labels", "obtool source labels FILE [--sorted]",
                               "report: line number, from 1, and text of each branch label, sub and function");
    AddFileArgument(*labels, arguments);
    labels->add_flag("--sorted", arguments->sorted, "in the order of the sorted list");
    AddOutOption(*labels);
    labels->callback([arguments] { Labels(*arguments); });
}

void AddComment(CLI::App& group, const SharedArguments& arguments)
{
    CLI::App* comment = AddVerb(group, "comment", "obtool source comment FILE FIRST LAST [-o OUT]",
                                "the text after Block Comment on the lines FIRST to LAST");
    AddFileArgument(*comment, arguments);
    comment->add_option("FIRST", arguments->line, "the first line, from 1")->required();
    comment->add_option("LAST", arguments->lastLine, "the last line")->required();
    AddOutOption(*comment);
    comment->callback([arguments] { Comment(*arguments); });
}

void AddIndent(CLI::App& group, const SharedArguments& arguments)
{
    CLI::App* indent = AddVerb(group, "indent", "obtool source indent FILE LINE --tab N [-o OUT]",
                               "the text after Return at the end of LINE, with auto-indent");
    AddFileArgument(*indent, arguments);
    indent->add_option("LINE", arguments->line, "the line, from 1")->required();
    indent->add_option("--tab", arguments->tabSize, "the tab size")
        ->type_name("N")
        ->required()
        ->check(CLI::Range(1, LargestTabSize));
    AddOutOption(*indent);
    indent->callback([arguments] { Indent(*arguments); });
}

void AddRunCopy(CLI::App& group, const SharedArguments& arguments)
{
    CLI::App* runCopy = AddVerb(group, "runcopy", "obtool source runcopy FILE [--folder DIR] [-o OUT]",
                                "the run copy: the text as a save writes it, then the merged includes");
    AddFileArgument(*runCopy, arguments);
    runCopy->add_option("--folder", arguments->folder, "where include names are looked up")
        ->type_name("DIR")
        ->check(NotEmpty);
    AddOutOption(*runCopy);
    runCopy->callback([arguments] { RunCopy(*arguments); });
}

} // namespace

void AddSourceVerbs(CLI::App& group)
{
    const auto arguments = std::make_shared<SourceArguments>();
    AddLabels(group, arguments);

    CLI::App* variables = AddVerb(group, "variables", "obtool source variables FILE",
                                  "report: name and line number, from 0, of each assignment");
    AddFileArgument(*variables, arguments);
    AddOutOption(*variables);
    variables->callback([arguments] { Variables(*arguments); });

    AddRunCopy(group, arguments);

    CLI::App* check = AddVerb(group, "check", "obtool source check FILE",
                              "report: line and column, from 1, and text of each error that the engine finds");
    AddFileArgument(*check, arguments);
    check->callback([arguments] { Check(*arguments); });

    CLI::App* styles = AddVerb(group, "styles", "obtool source styles FILE",
                               "report: first byte, length, style number of each run of equal style");
    AddFileArgument(*styles, arguments);
    AddOutOption(*styles);
    styles->callback([arguments] { Styles(*arguments); });

    AddComment(group, arguments);
    AddIndent(group, arguments);

    CLI::App* syntax = AddVerb(group, "syntax", "obtool source syntax [TERM]",
                               "the syntax tip of TERM; without it, a report of row number and key");
    CLI::Option* term = syntax->add_option("TERM", arguments->term, "a word of the language");
    AddOutOption(*syntax);
    syntax->callback([arguments, term] { Syntax(*arguments, term->count() > 0); });

    CLI::App* keywords = AddVerb(group, "keywords", "obtool source keywords [--lexer]", "the keyword list");
    keywords->add_flag("--lexer", arguments->lexer, "the list of the colouring");
    AddOutOption(*keywords);
    keywords->callback([arguments] { Keywords(*arguments); });
}

} // namespace ob
