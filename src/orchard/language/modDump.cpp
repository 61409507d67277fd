// SPDX-License-Identifier: GPL-3.0-or-later
// The dump, built as a machine would run the nodes: a stack of operands.
#include "orchard/language/modDump.h"

#include <array>
#include <charconv>

namespace ob::basic {

namespace {

constexpr std::string_view Operators[] = {"-", "not", "^", "*", "/",  "mod", "+",   "&",   "-",
                                          "=", "<>",  "<", ">", "<=", ">=",  "and", "xor", "or"};

constexpr std::string_view StatementNames[] = {
    "Assign",      "Print", "PrintTo", "PrintPrinter", "Input",     "InputFrom", "LineInput",    "LineInputFrom",
    "Command",     "If",    "Else",    "EndIf",        "For",       "Next",      "While",        "Wend",
    "Do",          "Loop",  "Exit",    "Select",       "Case",      "EndCase",   "CaseElse",     "EndSelect",
    "Goto",        "Gosub", "Return",  "OnError",      "Resume",    "Call",      "RoutineStart", "RoutineEnd",
    "ExitRoutine", "End",   "Label",   "Read",         "Restore",   "Data",      "Dim",          "Global",
    "DefineType",  "Open",  "CallDll", "CallBack",     "EndOfText",
};
static_assert(std::size(StatementNames) == static_cast<std::size_t>(StatementKind::EndOfText) + 1);

constexpr std::string_view DataTypes[] = {"boolean", "char",   "double", "dword",  "long", "ptr",
                                          "short",   "struct", "ulong",  "ushort", "void", "word"};

class cDump {
public:
    explicit cDump(const Program& dumped) : program(dumped) {}

    std::string Run();

private:
    void Statements();
    void Routines();
    void Tables();
    std::string Operand(const Node& node);
    std::string Variable(const Node& node) const;
    std::string Arguments(Index count);
    std::string Target(const Statement& statement) const;
    std::string Detail(const Statement& statement) const;
    std::string Name(NameId name) const { return std::string(program.names.Text(name)); }
    void Line(std::string text) { out += text + '\n'; }
    static std::string VariableLine(std::string_view name, const VariableInfo& variable);

    const Program& program;
    std::vector<std::string> stack;
    std::string out;
};

std::string Written(double number)
{
    constexpr std::size_t longest = 32;
    std::array<char, longest> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

std::string cDump::Arguments(Index count)
{
    std::string text;
    for (std::size_t at = stack.size() - count; at < stack.size(); ++at)
        text += (text.empty() ? "" : ", ") + stack[at];
    stack.resize(stack.size() - count);
    return '(' + text + ')';
}

// n0 and t0 are a routine's slots, g a global one, @ a reference.
std::string cDump::Variable(const Node& node) const
{
    if (node.scope == Scope::System)
        return std::string(RowOf(static_cast<SystemVariable>(node.a)).word);
    const std::string slot = (node.type == Type::Text ? "t" : "n") + std::to_string(node.a);
    return node.scope == Scope::Global ? 'g' + slot : node.scope == Scope::ByRef ? '@' + slot : slot;
}

std::string cDump::Operand(const Node& node)
{
    switch (node.kind) {
    case NodeKind::Number:
        return Written(program.numbers[node.a]);
    case NodeKind::Text:
        return '"' + std::string(program.TextAt(node.a, node.b)) + '"';
    case NodeKind::Variable:
        return Variable(node);
    case NodeKind::Item:
        return Name(program.arrays[node.a].name) + Arguments(node.count);
    case NodeKind::Field:
        return Name(program.structs[node.a].name) + '.' + Name(node.b) + (node.type == Type::Text ? ":text" : "");
    case NodeKind::Call:
        return "call " + Name(program.routines[node.a].name) + Arguments(node.count);
    case NodeKind::Builtin:
        return std::string(RowOf(static_cast<Function>(node.a)).word) + (node.type == Type::Number ? ":n" : "") +
               Arguments(node.count);
    case NodeKind::Array:
        return Name(program.arrays[node.a].name) + "()";
    case NodeKind::Struct:
        return "struct " + Name(program.structs[node.a].name);
    case NodeKind::Handle:
        return '#' + Name(program.handles[node.a]);
    case NodeKind::HandleOf:
        return '#' + Arguments(1);
    case NodeKind::Label:
        return Name(node.b) + (node.a == NoIndex ? "?" : "");
    case NodeKind::Routine:
        return "sub " + Name(program.routines[node.a].name);
    case NodeKind::Word:
        return "word " + Name(node.a);
    case NodeKind::DataType:
        return "as " + std::string(DataTypes[node.a]);
    case NodeKind::Separator:
        return node.a ? "," : ";";
    case NodeKind::Bar:
        return "|";
    default:
        return std::string(
                   Operators[static_cast<std::size_t>(node.kind) - static_cast<std::size_t>(NodeKind::Negate)]) +
               Arguments(node.count);
    }
}

std::string cDump::Detail(const Statement& statement) const
{
    switch (statement.kind) {
    case StatementKind::Command:
        return ' ' + std::string(RowOf(static_cast<Command>(statement.detail)).word);
    case StatementKind::Do:
    case StatementKind::Loop:
        return statement.detail == static_cast<std::uint8_t>(Condition::None)    ? ""
               : statement.detail == static_cast<std::uint8_t>(Condition::While) ? " while"
                                                                                 : " until";
    case StatementKind::Input:
    case StatementKind::LineInput:
        return statement.detail == HasPrompt ? " prompt" : "";
    case StatementKind::Call:
    case StatementKind::RoutineStart:
        return ' ' + Name(program.routines[statement.other].name);
    case StatementKind::Label:
        return ' ' + Name(program.labels[statement.other].name);
    case StatementKind::Restore:
        return " data " + std::to_string(statement.other);
    case StatementKind::DefineType:
        return " layout " + std::to_string(statement.other);
    case StatementKind::Case:
        return " of " + std::to_string(statement.other);
    default:
        return {};
    }
}

std::string cDump::Target(const Statement& statement) const
{
    return statement.target == NoIndex ? std::string() : " -> " + std::to_string(statement.target);
}

void cDump::Statements()
{
    for (std::size_t at = 0; at < program.statements.size(); ++at) {
        const Statement& statement = program.statements[at];
        for (Index index = statement.firstNode; index < statement.endNode; ++index) {
            const Node& node = program.nodes[index];
            std::string text = Operand(node);
            if (node.use == Use::Target)
                text += '!';
            else if (node.use == Use::Reference)
                text = '&' + text;
            stack.push_back(std::move(text));
        }
        std::string line = std::to_string(at) + " [" + std::to_string(program.lines.PlaceOf(statement.offset).line) +
                           "] " + std::string(StatementNames[static_cast<std::size_t>(statement.kind)]) +
                           Detail(statement);
        for (const std::string& operand : stack)
            line += ' ' + operand;
        stack.clear();
        Line(line + Target(statement));
    }
}

std::string cDump::VariableLine(std::string_view name, const VariableInfo& variable)
{
    return "  " + std::string(name) + (variable.scope == Scope::ByRef ? " @" : " ") +
           (variable.type == Type::Text ? 't' : 'n') + std::to_string(variable.slot);
}

void cDump::Routines()
{
    for (const Routine& routine : program.routines) {
        const bool isMain = routine.kind == RoutineKind::Main;
        Line((isMain                                  ? "main"
              : routine.kind == RoutineKind::Function ? "function " + Name(routine.name)
                                                      : "sub " + Name(routine.name)) +
             " statements " + std::to_string(routine.firstStatement) + " to " + std::to_string(routine.endStatement) +
             ", parameters " + std::to_string(routine.parameterCount) + ", numbers " +
             std::to_string(routine.numberCount) + ", texts " + std::to_string(routine.textCount));
        for (Index at = routine.firstVariable; at < routine.firstVariable + routine.variableCount; ++at)
            Line(VariableLine(program.names.Text(program.variables[at].name), program.variables[at]));
        for (Index at = routine.firstLabel; at < routine.firstLabel + routine.labelCount; ++at)
            Line("  " + Name(program.labels[at].name) + " -> " + std::to_string(program.labels[at].statement));
    }
}

void cDump::Tables()
{
    if (!program.globals.empty())
        Line("globals");
    for (const VariableInfo& global : program.globals)
        Line(VariableLine(program.names.Text(global.name), global));
    for (std::size_t at = 0; at < program.layouts.size(); ++at) {
        const LayoutInfo& layout = program.layouts[at];
        Line("layout " + std::to_string(at) + " of " + Name(program.structs[layout.structure].name) + ", bytes " +
             std::to_string(layout.size));
        for (Index field = layout.firstField; field < layout.firstField + layout.fieldCount; ++field)
            Line("  " + Name(program.fields[field].name) + " as " +
                 std::string(DataTypes[static_cast<std::size_t>(program.fields[field].type)]) + " at " +
                 std::to_string(program.fields[field].offset) + ", bytes " +
                 std::to_string(program.fields[field].size));
    }
    if (!program.data.empty())
        Line("data");
    for (const DataItem& item : program.data)
        Line("  \"" + std::string(program.TextAt(item.offset, item.length)) + '"');
}

std::string cDump::Run()
{
    Statements();
    Routines();
    Tables();
    return std::move(out);
}

} // namespace

std::string DumpProgram(const Program& program)
{
    return cDump(program).Run();
}

} // namespace ob::basic
