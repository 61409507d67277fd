// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the code of one routine: calls of functions, and where values are stored.
#include "orchard/machine/cRoutineGenerator.h"

namespace ob::basic {

// The arguments are in registers one after the other; the result takes the first.
void cRoutineGenerator::CallFunction(Index number)
{
    const Node& node = NodeAt(number);
    cCodeWriter::Mark window = writer.Here();
    for (Index count = node.count; count > 0; --count)
        window = Pop().mark;
    writer.Back(window);
    const bool isText = node.type == Type::Text;
    const std::uint16_t result = isText ? writer.NewText() : writer.NewNumber();
    writer.Emit(Operation::Call, node.a, window.numbers, window.texts);
    if (isText)
        PushTextRegister(result, true, number, window);
    else
        PushNumberRegister(result, true, number, window);
}

void cRoutineGenerator::CallBuiltin(Index number)
{
    const Node& node = NodeAt(number);
    const auto function = static_cast<Function>(node.a);
    cCodeWriter::Mark window = writer.Here();
    if (node.count != 0)
        window = operands[operands.size() - node.count].mark;
    const bool hasHandle = function == Function::Input && node.count == 2;
    FillUp(function, node.count);
    for (Index count = node.count; count > 0; --count)
        Pop();
    writer.Back(window);
    const bool isText = node.type == Type::Text && function != Function::Tab;
    const bool isNothing = function == Function::Tab;
    const std::uint32_t result = isText ? writer.NewText() : writer.NewNumber();
    switch (function) {
    case Function::Abs:
        writer.Emit(Operation::Absolute, result, window.numbers);
        break;
    case Function::Int:
        writer.Emit(Operation::Integer, result, window.numbers);
        break;
    case Function::Sqr:
        writer.Emit(Operation::Square, result, window.numbers);
        break;
    case Function::Len:
        if (NodeAt(number - 1).kind == NodeKind::Struct)
            Library(RowNumber(ServiceRow::StructSize), window);
        else
            writer.Emit(Operation::Length, result, window.texts);
        break;
    case Function::Tab:
        Library(RowNumber(ServiceRow::PrintTab), window);
        break;
    case Function::Date:
        if (node.count == 1 && NodeAt(number - 1).type == Type::Number)
            Library(RowNumber(ServiceRow::DateOfDays), window);
        else
            Library(isText ? RowNumber(function) : RowNumber(ServiceRow::DateNumber), window);
        break;
    case Function::Time:
        Library(isText ? RowNumber(function) : RowNumber(ServiceRow::TimeNumber), window);
        break;
    default:
        Library(hasHandle ? RowNumber(ServiceRow::InputFromHandle) : RowNumber(function), window);
        break;
    }
    if (isNothing)
        operands.push_back({Held::Other, false, 0, number, window, {}});
    else if (isText)
        PushTextRegister(result, true, number, window);
    else
        PushNumberRegister(result, true, number, window);
}

// The arguments that may be left out.
void cRoutineGenerator::FillUp(Function function, Index count)
{
    const auto number = [&](double value) { writer.LoadNumber(writer.NewNumber(), writer.NumberConstant(value)); };
    const auto text = [&](std::string_view value) { writer.LoadText(writer.NewText(), writer.TextConstant(value)); };
    constexpr double all = 1e300;
    if (function == Function::Mid && count == 2)
        number(all);
    else if (function == Function::InStr && count == 2)
        number(1);
    else if (function == Function::Word && count == 2)
        text(" ");
    else if ((function == Function::Date || function == Function::Time) && count == 0)
        text("");
}

void cRoutineGenerator::Library(std::uint16_t row, const cCodeWriter::Mark& window)
{
    writer.Emit(Operation::Library, row, window.numbers, window.texts);
}

bool cRoutineGenerator::IsLocal(const Operand& target) const
{
    const Node& node = NodeAt(target.node);
    return node.kind == NodeKind::Variable && node.scope == Scope::Local;
}

// The value of a variable that is set elsewhere.
void cRoutineGenerator::LoadVariable(const Operand& target, std::uint32_t number)
{
    const Node& node = NodeAt(target.node);
    if (node.kind == NodeKind::Variable && node.scope == Scope::ByRef)
        writer.Emit(Operation::GetReferred, number, NumberRegister(node.a));
    else if (node.kind == NodeKind::Variable)
        writer.Emit(Operation::LoadGlobal, number, GlobalOf(node));
}

void cRoutineGenerator::StoreNumber(const Operand& target, const Operand& value)
{
    const Node& node = NodeAt(target.node);
    if (IsLocal(target)) {
        const auto variable = static_cast<std::uint16_t>(NumberRegister(node.a));
        if (IsConstant(value))
            writer.LoadNumber(variable, value.value);
        else if (!value.isTemporary || !writer.Redirect('N', static_cast<std::uint16_t>(value.value), variable))
            writer.Emit(Operation::Move, variable, value.value);
        return;
    }
    const std::uint32_t number = NumberIn(value);
    if (node.kind == NodeKind::Item) {
        writer.Emit(node.count == 1 ? Operation::SetItem : Operation::SetItem2, number, target.value,
                    target.indexes[0]);
        if (node.count == 2)
            writer.Emit(Operation::More, target.indexes[1]);
    } else if (node.kind == NodeKind::Variable && node.scope == Scope::ByRef) {
        writer.Emit(Operation::SetReferred, number, NumberRegister(node.a));
    } else if (node.kind == NodeKind::Variable) {
        writer.Emit(Operation::StoreGlobal, number, GlobalOf(node));
    } else {
        StoreField(node, value);
    }
}

void cRoutineGenerator::StoreText(const Operand& target, const Operand& value)
{
    const Node& node = NodeAt(target.node);
    if (IsLocal(target)) {
        const auto variable = static_cast<std::uint16_t>(TextRegister(node.a));
        if (value.kind == Held::TextConstant)
            writer.LoadText(variable, value.value);
        else if (!value.isTemporary)
            writer.Emit(Operation::MoveText, variable, value.value);
        else if (!writer.Redirect('T', static_cast<std::uint16_t>(value.value), variable))
            writer.Emit(Operation::TakeText, variable, value.value);
        return;
    }
    const std::uint32_t text = TextIn(value);
    if (node.kind == NodeKind::Item) {
        writer.Emit(node.count == 1 ? Operation::SetTextItem : Operation::SetTextItem2, text, target.value,
                    target.indexes[0]);
        if (node.count == 2)
            writer.Emit(Operation::More, target.indexes[1]);
    } else if (node.kind == NodeKind::Variable && node.scope == Scope::ByRef) {
        writer.Emit(Operation::SetReferredText, text, TextRegister(node.a));
    } else if (node.kind == NodeKind::Variable) {
        writer.Emit(Operation::StoreGlobalText, text, GlobalOf(node));
    } else {
        StoreField(node, value);
    }
}

} // namespace ob::basic
