// SPDX-License-Identifier: GPL-3.0-or-later
// Types of operands, arguments of calls, and what each statement asks of its operands.
#include "orchard/language/cResolver.h"
#include "orchard/language/modReadErrors.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace ob::basic {

namespace {

std::string Described(Type type)
{
    return type == Type::Text ? "a text" : "a number";
}

std::string Counted(std::size_t count, std::string_view what)
{
    return (count == 0 ? "no" : std::to_string(count)) + ' ' + std::string(what) + (count == 1 ? "" : "s");
}

// The arguments of a function's row, punctuation left out, with and without what may be left out.
struct ArgumentShapes {
    std::string all;
    std::string required;
};

ArgumentShapes ShapesOf(std::string_view row)
{
    ArgumentShapes shapes;
    bool isOptional = false;
    for (const char c : row) {
        if (c == '[' || c == ']') {
            isOptional = c == '[';
        } else if (c != ',') {
            shapes.all += c;
            if (!isOptional)
                shapes.required += c;
        }
    }
    return shapes;
}

bool IsOneOf(std::string_view text, std::initializer_list<std::string_view> words)
{
    return std::ranges::any_of(words, [&](std::string_view word) {
        return std::ranges::equal(text, word,
                                  [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a | 0x20 : a) == b; });
    });
}

} // namespace

void cResolver::ResolveNode(Index index, const Statement& statement)
{
    Node& node = At(index);
    switch (node.kind) {
    case NodeKind::Variable:
        ResolveVariable(node);
        break;
    case NodeKind::Item:
        ResolveItem(index);
        break;
    case NodeKind::Array:
        ResolveArray(node);
        break;
    case NodeKind::Field:
        ResolveField(node);
        break;
    case NodeKind::Struct:
        ResolveStruct(node);
        break;
    case NodeKind::Builtin:
        ResolveBuiltin(index);
        break;
    case NodeKind::Handle: {
        Index& known = Of(node.a).handle;
        if (known == NoIndex) {
            known = static_cast<Index>(program.handles.size());
            program.handles.push_back(node.a);
        }
        node.a = known;
        break;
    }
    case NodeKind::Label:
        ResolveLabel(node, statement);
        break;
    case NodeKind::Routine:
        ResolveRoutine(node, statement);
        break;
    default:
        if (node.kind >= NodeKind::Negate && node.kind <= NodeKind::Or)
            ResolveOperator(index);
    }
}

void cResolver::ResolveOperator(Index node)
{
    const Index right = node - 1;
    if (At(node).count == 1) {
        Want(right, Type::Number);
        return;
    }
    const Index left = At(right).first - 1;
    const NodeKind kind = At(node).kind;
    if (kind == NodeKind::Add) {
        ResolveSum(node, left, right);
    } else if (kind >= NodeKind::Equal && kind <= NodeKind::GreaterEqual) {
        WantSameTypes(left, right);
    } else {
        Want(left, Type::Number);
        Want(right, Type::Number);
    }
}

void cResolver::ResolveSum(Index node, Index left, Index right)
{
    WantSameTypes(left, right);
    if (At(left).type != Type::Text)
        return;
    At(node).kind = NodeKind::Join;
    At(node).type = Type::Text;
}

// The right operand has to fit the left one. What could be both goes by the other one, or is a text.
void cResolver::WantSameTypes(Index left, Index right)
{
    if (At(left).type == Type::Either)
        Settle(left, At(right).type == Type::Number ? Type::Number : Type::Text);
    if (At(left).type == Type::None)
        WantValue(left);
    else
        Want(right, At(left).type);
}

void cResolver::Settle(Index node, Type type)
{
    At(node).type = type;
}

void cResolver::Want(Index node, Type type)
{
    Node& operand = At(node);
    if (operand.type == Type::Either)
        Settle(node, type);
    else if (operand.type == Type::None)
        WantValue(node);
    else if (operand.type != type)
        Report(StartOf(node), Described(operand.type), Described(type));
}

void cResolver::WantValue(Index node)
{
    if (At(node).type == Type::Either)
        Settle(node, Type::Text);
    if (At(node).type == Type::None)
        Report(StartOf(node), "a value");
}

void cResolver::ResolveBuiltin(Index index)
{
    const Node& node = At(index);
    const auto function = static_cast<Function>(node.a);
    const FunctionRow& row = RowOf(function);
    const ArgumentShapes shapes = ShapesOf(row.arguments);
    if (node.count != shapes.all.size() && node.count != shapes.required.size()) {
        std::string expected = Counted(shapes.all.size(), "argument");
        if (shapes.all.size() != shapes.required.size())
            expected = (shapes.required.empty() ? "no" : std::to_string(shapes.required.size())) + " or " + expected;
        Report(node.offset, Quoted(row.word) + " with " + Counted(node.count, "argument"), expected);
        return;
    }
    operands.clear();
    AppendOperands(program, node.first, index, operands);
    const std::string& shape = node.count == shapes.all.size() ? shapes.all : shapes.required;
    for (std::size_t at = 0; at < operands.size(); ++at)
        CheckBuiltinArgument(operands[at], shape[at]);
    if (function == Function::Date || function == Function::Time)
        At(index).type = TypeOfDate(node);
}

void cResolver::CheckBuiltinArgument(Index node, char shape)
{
    const NodeKind kind = At(node).kind;
    switch (shape) {
    case 'n':
        Want(node, Type::Number);
        break;
    case 'h':
        if (kind != NodeKind::Handle && kind != NodeKind::HandleOf)
            Report(StartOf(node), "a handle");
        break;
    case 's':
        if (kind != NodeKind::Struct)
            Want(node, Type::Text);
        break;
    case 't':
        Want(node, Type::Text);
        break;
    default:
        WantValue(node);
    }
}

// What date$ and time$ give for their argument; either where it is not known yet.
Type cResolver::TypeOfDate(const Node& node) const
{
    const Node& argument = program.nodes[node.first];
    if (node.count == 0 || program.nodes[node.first].type == Type::Number)
        return Type::Text;
    if (argument.kind != NodeKind::Text || &argument + 1 != &node)
        return Type::Either;
    const std::string_view text = program.TextAt(argument.a, argument.b);
    if (node.a == static_cast<Index>(Function::Time))
        return IsOneOf(text, {"seconds", "milliseconds", "ms"}) ? Type::Number : Type::Text;
    const bool isDate = !text.empty() && text.front() >= '0' && text.front() <= '9';
    return isDate || IsOneOf(text, {"days"}) ? Type::Number : Type::Text;
}

// The arguments of a sub or function against its parameters. What a byref parameter takes becomes a reference.
void cResolver::CheckArguments(Index called, Index first, Index end, Offset place)
{
    operands.clear();
    AppendOperands(program, first, end, operands);
    const Routine& callee = program.routines[called];
    if (operands.size() != callee.parameterCount) {
        Report(place, Quoted(Spelling(callee.name)) + " with " + Counted(operands.size(), "argument"),
               Counted(callee.parameterCount, "argument"));
        return;
    }
    for (std::size_t at = 0; at < operands.size(); ++at) {
        const Parameter& parameter = program.parameters[callee.firstParameter + at];
        Want(operands[at], parameter.type);
        Node& argument = At(operands[at]);
        const bool isPlace =
            argument.kind == NodeKind::Variable || argument.kind == NodeKind::Item || argument.kind == NodeKind::Field;
        const bool isCopy = std::ranges::binary_search(parsed.enclosed, operands[at]);
        if (parameter.byRef && isPlace && !isCopy && argument.use == Use::Value)
            argument.use = Use::Reference;
    }
}

void cResolver::CheckStatement(Statement& statement)
{
    const bool hasOperands = statement.endNode > statement.firstNode;
    switch (statement.kind) {
    case StatementKind::Assign:
        WantSameTypes(At(statement.endNode - 1).first - 1, statement.endNode - 1);
        break;
    case StatementKind::For:
        if (hasOperands)
            Want(statement.firstNode, Type::Number);
        break;
    case StatementKind::Select:
        if (hasOperands)
            WantValue(statement.endNode - 1);
        break;
    case StatementKind::Case:
        CheckCase(statement);
        break;
    case StatementKind::Goto:
    case StatementKind::Gosub:
    case StatementKind::OnError:
        ResolveJump(statement);
        break;
    case StatementKind::Restore:
        ResolveRestore(statement);
        break;
    case StatementKind::Call:
        ResolveCall(statement);
        break;
    case StatementKind::CallDll:
        CheckCallDll(statement);
        break;
    case StatementKind::CallBack:
        CheckCallBack(statement);
        break;
    default:
        break;
    }
}

void cResolver::ResolveJump(Statement& statement)
{
    if (statement.other == NoIndex)
        return;
    const Index label = LabelOf(statement.other);
    if (label == NoIndex)
        Report(statement.target, NameOfRoutine());
    else
        statement.target = program.labels[label].statement;
    statement.other = NoIndex;
}

// The data of the main program can be read everywhere, so its labels count too.
void cResolver::ResolveRestore(Statement& statement)
{
    const Offset place = std::exchange(statement.target, NoIndex);
    if (statement.other == NoIndex) {
        statement.other = 0;
        return;
    }
    Index label = LabelOf(statement.other);
    if (label == NoIndex)
        label = Of(statement.other).mainLabel;
    if (label == NoIndex)
        Report(place, "a label of the main program");
    else
        statement.other = program.labels[label].data;
}

void cResolver::ResolveCall(Statement& statement)
{
    const Offset place = std::exchange(statement.target, NoIndex);
    const Index called = Of(statement.other).routine;
    if (called == NoIndex)
        Report(place, place == statement.offset ? "a statement or the name of a sub" : "the name of a sub");
    else if (program.routines[called].kind != RoutineKind::Sub)
        Report(place, "a sub: this is the name of a function");
    else
        CheckArguments(called, statement.firstNode, statement.endNode, place);
    statement.other = called;
}

// The values of a case are of the type of what is selected, conditions are numbers.
void cResolver::CheckCase(const Statement& statement)
{
    const Statement& select = program.statements[statement.other];
    const Type type = select.endNode > select.firstNode ? At(select.endNode - 1).type : Type::Number;
    operands.clear();
    AppendOperands(program, statement.firstNode, statement.endNode, operands);
    for (const Index operand : operands)
        if (type == Type::Number || type == Type::Text)
            Want(operand, type);
}

// A text variable that is passed as ptr may be filled by the function.
void cResolver::CheckCallDll(const Statement& statement)
{
    for (Index node = statement.firstNode + 1; node < statement.endNode; ++node) {
        const Node& type = At(node);
        if (type.kind != NodeKind::DataType || type.a != static_cast<Index>(DataType::Ptr))
            continue;
        Node& value = At(node - 1);
        const bool isPlace =
            value.kind == NodeKind::Variable || value.kind == NodeKind::Item || value.kind == NodeKind::Field;
        if (isPlace && value.type == Type::Text && value.use == Use::Value)
            value.use = Use::Reference;
    }
}

// A callback function has a number for each of its types.
void cResolver::CheckCallBack(const Statement& statement)
{
    Index types = 0;
    const Node* function = nullptr;
    for (Index node = statement.firstNode; node < statement.endNode; ++node) {
        if (At(node).kind == NodeKind::Routine)
            function = &At(node);
        types += At(node).kind == NodeKind::DataType;
    }
    if (!function || function->a == NoIndex)
        return;
    const Routine& called = program.routines[function->a];
    const Index arguments = types - 1;
    if (called.parameterCount != arguments)
        Report(function->offset, Quoted(Spelling(called.name)) + " with " + Counted(arguments, "argument"),
               Counted(called.parameterCount, "argument"));
}

} // namespace ob::basic
