// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the code of one routine: its values.
#include "orchard/machine/cRoutineGenerator.h"

#include <utility>

namespace ob::basic {

namespace {

// What a comparison of numbers does: as a value, and as a jump with two registers or a register and a constant.
struct ComparisonRow {
    NodeKind kind;
    Operation value;
    bool swapsValue;
    Operation text;
    Operation jump;
    bool swapsJump;
    Operation jumpK;
    NodeKind opposite;
    NodeKind mirrored;
};

constexpr ComparisonRow Comparisons[] = {
    {NodeKind::Equal, Operation::Equal, false, Operation::EqualText, Operation::JumpIfEqual, false,
     Operation::JumpIfEqualK, NodeKind::NotEqual, NodeKind::Equal},
    {NodeKind::NotEqual, Operation::Unequal, false, Operation::UnequalText, Operation::JumpIfUnequal, false,
     Operation::JumpIfUnequalK, NodeKind::Equal, NodeKind::NotEqual},
    {NodeKind::Less, Operation::Less, false, Operation::LessText, Operation::JumpIfLess, false, Operation::JumpIfLessK,
     NodeKind::GreaterEqual, NodeKind::Greater},
    {NodeKind::Greater, Operation::Less, true, Operation::LessText, Operation::JumpIfLess, true,
     Operation::JumpIfGreaterK, NodeKind::LessEqual, NodeKind::Less},
    {NodeKind::LessEqual, Operation::LessOrEqual, false, Operation::LessOrEqualText, Operation::JumpIfLessOrEqual,
     false, Operation::JumpIfLessOrEqualK, NodeKind::Greater, NodeKind::GreaterEqual},
    {NodeKind::GreaterEqual, Operation::LessOrEqual, true, Operation::LessOrEqualText, Operation::JumpIfLessOrEqual,
     true, Operation::JumpIfGreaterOrEqualK, NodeKind::Less, NodeKind::LessEqual},
};

const ComparisonRow* ComparisonOf(NodeKind kind)
{
    for (const ComparisonRow& row : Comparisons)
        if (row.kind == kind)
            return &row;
    return nullptr;
}

Operation OperationOf(NodeKind kind)
{
    switch (kind) {
    case NodeKind::Power:
        return Operation::Power;
    case NodeKind::Multiply:
        return Operation::Multiply;
    case NodeKind::Divide:
        return Operation::Divide;
    case NodeKind::Mod:
        return Operation::Modulo;
    case NodeKind::Add:
        return Operation::Add;
    case NodeKind::Subtract:
        return Operation::Subtract;
    case NodeKind::And:
        return Operation::And;
    case NodeKind::Or:
        return Operation::Or;
    default:
        return Operation::Xor;
    }
}

bool IsGlobal(Scope scope)
{
    return scope == Scope::Global || scope == Scope::System;
}

} // namespace

void cRoutineGenerator::Evaluate(Index first, Index end)
{
    for (Index number = first; number < end; ++number) {
        DoNode(number);
        if (state.isArgument[number] && !operands.empty())
            ToRegister(operands.back());
    }
}

void cRoutineGenerator::DoNode(Index number)
{
    const Node& node = NodeAt(number);
    switch (node.kind) {
    case NodeKind::Number:
        PushNumber(writer.NumberConstant(program.numbers[node.a]), number);
        break;
    case NodeKind::Text:
        PushText(program.TextAt(node.a, node.b), number);
        break;
    case NodeKind::Variable:
        Variable(number);
        break;
    case NodeKind::Item:
        Item(number);
        break;
    case NodeKind::Call:
        CallFunction(number);
        break;
    case NodeKind::Builtin:
        CallBuiltin(number);
        break;
    case NodeKind::Equal:
    case NodeKind::NotEqual:
    case NodeKind::Less:
    case NodeKind::Greater:
    case NodeKind::LessEqual:
    case NodeKind::GreaterEqual:
        Comparison(number);
        break;
    case NodeKind::Negate:
    case NodeKind::Not:
    case NodeKind::Power:
    case NodeKind::Multiply:
    case NodeKind::Divide:
    case NodeKind::Mod:
    case NodeKind::Add:
    case NodeKind::Join:
    case NodeKind::Subtract:
    case NodeKind::And:
    case NodeKind::Xor:
    case NodeKind::Or:
        Arithmetic(number);
        break;
    case NodeKind::Array:
        PushNumber(writer.NumberConstant(program.arrays[node.a].type == Type::Text ? -1.0 - state.arrayNumbers[node.a]
                                                                                   : state.arrayNumbers[node.a]),
                   number);
        break;
    case NodeKind::Handle:
        PushText(program.names.Text(program.handles[node.a]), number);
        break;
    case NodeKind::HandleOf:
        break; // the text that names it is there
    case NodeKind::Label:
        PushNumber(writer.NumberConstant(node.a + 1.0), number);
        break;
    case NodeKind::Routine:
        PushNumber(writer.NumberConstant(-1.0 - node.a), number);
        break;
    case NodeKind::Word:
        PushText(program.names.Text(node.a), number);
        break;
    case NodeKind::Field:
        Field(number);
        break;
    case NodeKind::Struct:
        PushNumber(writer.NumberConstant(node.a), number);
        break;
    case NodeKind::DataType:
    case NodeKind::Separator:
    case NodeKind::Bar: {
        for (Index count = node.count; count > 0; --count)
            Pop();
        Operand nothing;
        nothing.node = number;
        nothing.mark = writer.Here();
        operands.push_back(nothing);
        break;
    }
    }
}

void cRoutineGenerator::PushNumber(std::uint32_t constant, Index node)
{
    operands.push_back({Held::NumberConstant, false, constant, node, writer.Here(), {}});
}

void cRoutineGenerator::PushText(std::string_view text, Index node)
{
    operands.push_back({Held::TextConstant, false, writer.TextConstant(text), node, writer.Here(), {}});
}

void cRoutineGenerator::PushNumberRegister(std::uint32_t number, bool isTemporary, Index node,
                                           const cCodeWriter::Mark& mark)
{
    operands.push_back({Held::Number, isTemporary, number, node, mark, {}});
}

void cRoutineGenerator::PushTextRegister(std::uint32_t number, bool isTemporary, Index node,
                                         const cCodeWriter::Mark& mark)
{
    operands.push_back({Held::Text, isTemporary, number, node, mark, {}});
}

cRoutineGenerator::Operand cRoutineGenerator::Pop()
{
    const Operand operand = operands.back();
    operands.pop_back();
    return operand;
}

double cRoutineGenerator::ConstantOf(const Operand& operand) const
{
    return writer.NumberAt(operand.value);
}

std::uint32_t cRoutineGenerator::SmallConstant(double value)
{
    return writer.NumberConstant(value);
}

// The register of a value, which is loaded where it is a constant.
std::uint32_t cRoutineGenerator::NumberIn(const Operand& operand)
{
    if (operand.kind != Held::NumberConstant)
        return operand.value;
    const std::uint16_t number = writer.NewNumber();
    writer.LoadNumber(number, operand.value);
    return number;
}

std::uint32_t cRoutineGenerator::TextIn(const Operand& operand)
{
    if (operand.kind != Held::TextConstant)
        return operand.value;
    const std::uint16_t text = writer.NewText();
    writer.LoadText(text, operand.value);
    return text;
}

// Puts a value into a register of its own, after those in use.
void cRoutineGenerator::ToRegister(Operand& operand)
{
    if (operand.kind == Held::Number && !operand.isTemporary) {
        const std::uint16_t number = writer.NewNumber();
        writer.Emit(Operation::Move, number, operand.value);
        operand.value = number;
    } else if (operand.kind == Held::NumberConstant) {
        operand.value = NumberIn(operand);
        operand.kind = Held::Number;
    } else if (operand.kind == Held::Text && !operand.isTemporary) {
        const std::uint16_t text = writer.NewText();
        writer.Emit(Operation::MoveText, text, operand.value);
        operand.value = text;
    } else if (operand.kind == Held::TextConstant) {
        operand.value = TextIn(operand);
        operand.kind = Held::Text;
    } else {
        return;
    }
    operand.isTemporary = true;
}

void cRoutineGenerator::Variable(Index number)
{
    const Node& node = NodeAt(number);
    const bool isText = node.type == Type::Text;
    const cCodeWriter::Mark mark = writer.Here();
    if (node.use == Use::Target) {
        operands.push_back({Held::Target, false, 0, number, mark, {}});
        return;
    }
    const bool isGlobal = IsGlobal(node.scope);
    const std::uint32_t global = GlobalOf(node);
    if (node.use == Use::Reference) {
        ReferToVariable(number);
        return;
    }
    if (node.scope == Scope::Local) {
        if (isText)
            PushTextRegister(TextRegister(node.a), false, number, mark);
        else
            PushNumberRegister(NumberRegister(node.a), false, number, mark);
        if (copiesVariables)
            ToRegister(operands.back());
        return;
    }
    if (isText) {
        const std::uint16_t text = writer.NewText();
        if (isGlobal)
            writer.Emit(Operation::LoadGlobalText, text, global);
        else
            writer.Emit(Operation::GetReferredText, text, TextRegister(node.a));
        PushTextRegister(text, true, number, mark);
        return;
    }
    const std::uint16_t value = writer.NewNumber();
    if (isGlobal)
        writer.Emit(Operation::LoadGlobal, value, global);
    else
        writer.Emit(Operation::GetReferred, value, NumberRegister(node.a));
    PushNumberRegister(value, true, number, mark);
}

std::uint32_t cRoutineGenerator::GlobalOf(const Node& node) const
{
    if (node.scope != Scope::System)
        return node.a;
    return node.a + (node.type == Type::Text ? program.globalTextCount : program.globalNumberCount);
}

// A reference to a variable or an item, wherever it is, whatever it is used for.
void cRoutineGenerator::Refer(Index number)
{
    const Node& node = NodeAt(number);
    if (node.kind == NodeKind::Variable) {
        ReferToVariable(number);
        return;
    }
    if (node.kind != NodeKind::Item) {
        Unsupported("struct");
        return;
    }
    Evaluate(node.first, number); // the indexes
    Operand second;
    if (node.count == 2)
        second = Pop();
    const Operand first = Pop();
    const std::uint32_t row = NumberIn(first);
    ReferToItem(number, row, node.count == 2 ? NumberIn(second) : 0, first.mark);
}

void cRoutineGenerator::ReferToVariable(Index number)
{
    const Node& node = NodeAt(number);
    const bool isText = node.type == Type::Text;
    const cCodeWriter::Mark mark = writer.Here();
    const std::uint16_t reference = writer.NewNumber();
    if (IsGlobal(node.scope))
        writer.Emit(isText ? Operation::ReferToGlobalText : Operation::ReferToGlobal, reference, GlobalOf(node));
    else if (node.scope == Scope::ByRef)
        writer.Emit(Operation::Move, reference, isText ? TextRegister(node.a) : NumberRegister(node.a));
    else if (isText)
        writer.Emit(Operation::ReferToText, reference, TextRegister(node.a));
    else
        writer.Emit(Operation::ReferToRegister, reference, NumberRegister(node.a));
    PushNumberRegister(reference, true, number, mark);
}

void cRoutineGenerator::ReferToItem(Index number, std::uint32_t row, std::uint32_t column,
                                    const cCodeWriter::Mark& mark)
{
    const Node& node = NodeAt(number);
    const bool isText = program.arrays[node.a].type == Type::Text;
    writer.Back(mark);
    const std::uint16_t reference = writer.NewNumber();
    writer.Emit(isText ? Operation::ReferToTextItem : Operation::ReferToItem, reference, state.arrayNumbers[node.a],
                row);
    writer.Emit(Operation::More, column, node.count == 2 ? 1 : 0);
    PushNumberRegister(reference, true, number, mark);
}

void cRoutineGenerator::Item(Index number)
{
    const Node& node = NodeAt(number);
    const bool isText = program.arrays[node.a].type == Type::Text;
    const std::uint32_t array = state.arrayNumbers[node.a];
    Operand second;
    if (node.count == 2)
        second = Pop();
    Operand first = Pop();
    const cCodeWriter::Mark mark = first.mark;
    const std::uint32_t row = NumberIn(first);
    const std::uint32_t column = node.count == 2 ? NumberIn(second) : 0;
    if (node.use == Use::Target) {
        operands.push_back({Held::Target, false, array, number, mark, {row, column}});
        return;
    }
    if (node.use == Use::Reference) {
        ReferToItem(number, row, column, mark);
        return;
    }
    writer.Back(mark);
    const std::uint16_t result = isText ? writer.NewText() : writer.NewNumber();
    if (node.count == 1) {
        writer.Emit(isText ? Operation::GetTextItem : Operation::GetItem, result, array, row);
    } else {
        writer.Emit(isText ? Operation::GetTextItem2 : Operation::GetItem2, result, array, row);
        writer.Emit(Operation::More, column);
    }
    if (isText)
        PushTextRegister(result, true, number, mark);
    else
        PushNumberRegister(result, true, number, mark);
}

// A field of a struct: its number and the field's name go to registers.
void cRoutineGenerator::Field(Index number)
{
    const Node& node = NodeAt(number);
    const cCodeWriter::Mark mark = writer.Here();
    if (node.use == Use::Target) {
        operands.push_back({Held::Target, false, 0, number, mark, {}});
        return;
    }
    writer.LoadNumber(writer.NewNumber(), writer.NumberConstant(node.a));
    writer.LoadText(writer.NewText(), writer.TextConstant(program.names.Text(node.b)));
    const bool isText = node.type == Type::Text;
    Library(RowNumber(isText ? ServiceRow::FieldGetText : ServiceRow::FieldGetNumber), mark);
    writer.Back(mark);
    if (isText)
        PushTextRegister(writer.NewText(), true, number, mark);
    else
        PushNumberRegister(writer.NewNumber(), true, number, mark);
}

void cRoutineGenerator::StoreField(const Node& node, const Operand& value)
{
    const cCodeWriter::Mark window = writer.Here();
    writer.LoadNumber(writer.NewNumber(), writer.NumberConstant(node.a));
    writer.LoadText(writer.NewText(), writer.TextConstant(program.names.Text(node.b)));
    Operand copy = value;
    copy.isTemporary = false;
    ToRegister(copy);
    Library(RowNumber(node.type == Type::Text ? ServiceRow::FieldSetText : ServiceRow::FieldSetNumber), window);
}

void cRoutineGenerator::Arithmetic(Index number)
{
    const Node& node = NodeAt(number);
    if (node.kind == NodeKind::Negate || node.kind == NodeKind::Not) {
        const Operand operand = Pop();
        if (node.kind == NodeKind::Negate && IsConstant(operand)) {
            writer.Back(operand.mark);
            PushNumber(writer.NumberConstant(-ConstantOf(operand)), number);
            return;
        }
        const std::uint32_t value = NumberIn(operand);
        writer.Back(operand.mark);
        const std::uint16_t result = writer.NewNumber();
        writer.Emit(node.kind == NodeKind::Negate ? Operation::Negate : Operation::Not, result, value);
        PushNumberRegister(result, true, number, operand.mark);
        return;
    }
    const Operand right = Pop();
    const Operand left = Pop();
    if (node.kind == NodeKind::Join) {
        const std::uint32_t front = TextIn(left);
        const std::uint32_t back = TextIn(right);
        writer.Back(left.mark);
        const std::uint16_t result = writer.NewText();
        writer.Emit(Operation::JoinText, result, front, back);
        PushTextRegister(result, true, number, left.mark);
        return;
    }
    if (EmitWithConstant(number, left, right))
        return;
    const std::uint32_t a = NumberIn(left);
    const std::uint32_t b = NumberIn(right);
    writer.Back(left.mark);
    const std::uint16_t result = writer.NewNumber();
    writer.Emit(OperationOf(node.kind), result, a, b);
    PushNumberRegister(result, true, number, left.mark);
}

// The forms that have a constant operand; false when there is none for these.
bool cRoutineGenerator::EmitWithConstant(Index number, const Operand& left, const Operand& right)
{
    const auto emit = [&](Operation operation, const Operand& operand, std::uint32_t constant) {
        writer.Back(left.mark);
        const std::uint16_t result = writer.NewNumber();
        writer.Emit(operation, result, operand.value, constant);
        PushNumberRegister(result, true, number, left.mark);
        return true;
    };
    const NodeKind kind = NodeAt(number).kind;
    const bool hasRight = FitsConstant(right) && !IsConstant(left);
    const bool hasLeft = FitsConstant(left) && !IsConstant(right);
    switch (kind) {
    case NodeKind::Add:
        if (hasRight)
            return emit(Operation::AddK, left, right.value);
        return hasLeft && emit(Operation::AddK, right, left.value);
    case NodeKind::Subtract:
        if (hasRight) {
            const std::uint32_t negated = writer.NumberConstant(-ConstantOf(right));
            return negated <= 0xFFFF && emit(Operation::AddK, left, negated);
        }
        return hasLeft && emit(Operation::SubtractFromK, right, left.value);
    case NodeKind::Multiply:
        if (hasRight)
            return emit(Operation::MultiplyK, left, right.value);
        return hasLeft && emit(Operation::MultiplyK, right, left.value);
    case NodeKind::Divide:
        return hasRight && ConstantOf(right) != 0 && emit(Operation::DivideK, left, right.value);
    case NodeKind::Mod:
        return hasRight && ConstantOf(right) != 0 && emit(Operation::ModuloK, left, right.value);
    default:
        return false;
    }
}

void cRoutineGenerator::Comparison(Index number)
{
    const ComparisonRow& row = *ComparisonOf(NodeAt(number).kind);
    const Operand right = Pop();
    const Operand left = Pop();
    const bool isText = NodeAt(right.node).type == Type::Text;
    std::uint32_t a = isText ? TextIn(left) : NumberIn(left);
    std::uint32_t b = isText ? TextIn(right) : NumberIn(right);
    if (row.swapsValue)
        std::swap(a, b);
    writer.Back(left.mark);
    const std::uint16_t result = writer.NewNumber();
    writer.Emit(isText ? row.text : row.value, result, a, b);
    PushNumberRegister(result, true, number, left.mark);
}

cRoutineGenerator::Test cRoutineGenerator::TestOf(Index first, Index end)
{
    const ComparisonRow* row = ComparisonOf(NodeAt(end - 1).kind);
    if (row == nullptr || NodeAt(end - 2).type == Type::Text) {
        Evaluate(first, end);
        return {nullptr, NumberIn(Pop()), 0, false};
    }
    Evaluate(first, end - 1);
    Operand right = Pop();
    Operand left = Pop();
    NodeKind kind = row->kind;
    if (FitsConstant(left) && !IsConstant(right)) {
        std::swap(left, right);
        kind = row->mirrored;
    }
    const bool hasConstant = FitsConstant(right);
    const std::uint32_t a = NumberIn(left);
    return {ComparisonOf(kind), a, hasConstant ? right.value : NumberIn(right), hasConstant};
}

void cRoutineGenerator::JumpWhen(const Test& test, bool wanted, JumpTarget target)
{
    if (test.comparison == nullptr) {
        writer.Jump(wanted ? Operation::JumpIf : Operation::JumpUnless, test.a, target);
        return;
    }
    const auto* row = static_cast<const ComparisonRow*>(test.comparison);
    if (!wanted)
        row = ComparisonOf(row->opposite);
    if (test.hasConstant)
        writer.Compare(row->jumpK, test.a, test.b, target);
    else if (row->swapsJump)
        writer.Compare(row->jump, test.b, test.a, target);
    else
        writer.Compare(row->jump, test.a, test.b, target);
}

} // namespace ob::basic
