// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the code of one routine: its statements.
#include "orchard/machine/cRoutineGenerator.h"


namespace ob::basic {

namespace {

using Kind = StatementKind;

// An instruction takes the place of a node or two; a short jump reaches this far.
constexpr std::size_t MostForShortJumps = 8000;

constexpr std::uint8_t Detail(Condition condition)
{
    return static_cast<std::uint8_t>(condition);
}

} // namespace

cRoutineGenerator::cRoutineGenerator(const GeneratorState& shared, cCodeWriter& codeWriter, Index routine)
    : state(shared), program(shared.program), writer(codeWriter), routineNumber(routine),
      registers(shared.registers[routine])
{
}

void cRoutineGenerator::Generate()
{
    const Routine& routine = program.routines[routineNumber];
    firstStatement = routine.firstStatement;
    targets.assign(routine.endStatement - firstStatement + 1, NoIndex);
    kept.assign(targets.size(), 0);
    const MachineRoutine& signature = state.signatures[routineNumber];
    cCodeWriter::Mark keptCount;
    nextKeptNumber = signature.numberVariables;
    nextKeptText = signature.textVariables;
    std::size_t nodeCount = 0;
    for (Index number = firstStatement; number < routine.endStatement; ++number) {
        const Statement& statement = program.statements[number];
        nodeCount += statement.endNode - statement.firstNode + 1;
        keptCount.numbers += statement.kind == Kind::For ? 2 : statement.kind == Kind::Select ? 1 : 0;
        keptCount.texts += statement.kind == Kind::Select ? 1 : 0;
    }
    writer.StartRoutine(signature, keptCount);
    writer.SetReach(nodeCount < MostForShortJumps);
    for (Index number = firstStatement; number < routine.endStatement; ++number) {
        const Statement& statement = program.statements[number];
        writer.Place(TargetOf(number));
        writer.StartStatement(program.lines.PlaceOf(statement.offset).line);
        if (statement.kind == Kind::RoutineStart && statement.other != routineNumber) {
            writer.Emit(Operation::End);
            number = program.routines[statement.other].endStatement - 1;
            continue;
        }
        DoStatement(number);
    }
    writer.Place(TargetOf(routine.endStatement));
    const Index last = routine.endStatement == firstStatement ? firstStatement : routine.endStatement - 1;
    const Offset offset = last < program.statements.size() ? program.statements[last].offset : 0;
    writer.StartStatement(program.lines.PlaceOf(offset).line);
    writer.Emit(routineNumber == 0 ? Operation::End : Operation::Return);
    for (Index label = routine.firstLabel; label < routine.firstLabel + routine.labelCount; ++label)
        writer.PutLabel(label, static_cast<std::uint16_t>(routineNumber), TargetOf(program.labels[label].statement));
    writer.EndRoutine();
}

JumpTarget cRoutineGenerator::TargetOf(Index statement)
{
    JumpTarget& target = targets[statement - firstStatement];
    if (target == NoIndex)
        target = writer.NewTarget();
    return target;
}

void cRoutineGenerator::DoStatement(Index number)
{
    const Statement& statement = program.statements[number];
    operands.clear();
    const cCodeWriter::Mark start = writer.Here();
    copiesVariables = false;
    for (Index node = statement.firstNode; node < statement.endNode; ++node)
        copiesVariables = copiesVariables || NodeAt(node).use == Use::Reference;

    switch (statement.kind) {
    case Kind::Assign:
        Assign(statement);
        break;
    case Kind::Print:
    case Kind::PrintTo:
    case Kind::PrintPrinter:
        Print(statement);
        break;
    case Kind::Input:
    case Kind::InputFrom:
    case Kind::LineInput:
    case Kind::LineInputFrom:
        Input(statement);
        break;
    case Kind::Command:
        DoCommand(statement);
        break;
    case Kind::If:
    case Kind::While:
        JumpUnless(statement, statement.target);
        break;
    case Kind::Else:
    case Kind::EndCase:
    case Kind::Wend:
    case Kind::Exit:
    case Kind::Goto:
        writer.Jump(Operation::Jump, 0, TargetOf(statement.target));
        break;
    case Kind::EndIf:
    case Kind::CaseElse:
    case Kind::EndSelect:
    case Kind::Label:
    case Kind::Data:
    case Kind::Global:
    case Kind::RoutineStart:
        break;
    case Kind::For:
        For(number);
        break;
    case Kind::Next:
        Next(statement);
        break;
    case Kind::Do:
        if (statement.detail != Detail(Condition::None))
            JumpWhen(TestOf(statement.firstNode, statement.endNode), statement.detail == Detail(Condition::Until),
                     TargetOf(statement.target));
        break;
    case Kind::Loop:
        LoopEnd(statement, statement.target);
        break;
    case Kind::Select:
        if (statement.firstNode != statement.endNode) {
            Evaluate(statement.firstNode, statement.endNode);
            const Operand value = Pop();
            if (value.kind == Held::Other)
                break;
            const bool isText = NodeAt(value.node).type == Type::Text;
            kept[number - firstStatement] = isText ? nextKeptText++ : nextKeptNumber++;
            if (isText)
                writer.Emit(Operation::MoveText, kept[number - firstStatement], TextIn(value));
            else
                writer.Emit(Operation::Move, kept[number - firstStatement], NumberIn(value));
        }
        break;
    case Kind::Case:
        Case(statement);
        break;
    case Kind::Gosub:
        writer.Jump(Operation::Gosub, 0, TargetOf(statement.target));
        break;
    case Kind::Return:
        writer.Emit(Operation::ReturnFromGosub);
        break;
    case Kind::OnError:
        if (statement.target == NoIndex)
            writer.Emit(Operation::OnError);
        else
            writer.Jump(Operation::OnError, 1, TargetOf(statement.target));
        break;
    case Kind::Resume:
        writer.Emit(Operation::Resume);
        break;
    case Kind::Call:
        CallSub(statement);
        break;
    case Kind::RoutineEnd:
    case Kind::ExitRoutine:
        writer.Emit(Operation::Return);
        break;
    case Kind::End:
    case Kind::EndOfText:
        writer.Emit(Operation::End);
        break;
    case Kind::Read:
        Read(statement);
        break;
    case Kind::Restore: {
        const cCodeWriter::Mark window = writer.Here();
        writer.LoadNumber(writer.NewNumber(), writer.NumberConstant(statement.other));
        Library(RowNumber(ServiceRow::Restore), window);
        break;
    }
    case Kind::Dim:
        Dim(statement);
        break;
    case Kind::DefineType:
        writer.LoadNumber(writer.NewNumber(), writer.NumberConstant(statement.other));
        Library(RowNumber(ServiceRow::StructDefine), start);
        break;
    case Kind::Open: {
        Evaluate(statement.firstNode, statement.endNode);
        const bool hasLength = operands.size() == 4;
        for (Operand& operand : operands)
            ToRegister(operand);
        if (!hasLength)
            writer.LoadNumber(writer.NewNumber(), writer.NumberConstant(0));
        Library(RowNumber(ServiceRow::Open), start);
        break;
    }
    case Kind::CallDll:
        Unsupported("calldll");
        break;
    case Kind::CallBack:
        Unsupported("callback");
        break;
    }
    writer.Back(start);
}

void cRoutineGenerator::Assign(const Statement& statement)
{
    Evaluate(statement.firstNode, statement.endNode);
    const Operand value = Pop();
    const Operand target = Pop();
    if (NodeAt(target.node).type == Type::Text)
        StoreText(target, value);
    else
        StoreNumber(target, value);
}

void cRoutineGenerator::Print(const Statement& statement)
{
    std::vector<Index> items;
    AppendOperands(program, statement.firstNode, statement.endNode, items);
    bool endsLine = true;
    bool isFirst = statement.kind == Kind::PrintTo;
    if (statement.kind == Kind::PrintPrinter)
        Library(RowNumber(ServiceRow::PrintPrinter), writer.Here());
    for (const Index item : items) {
        const cCodeWriter::Mark window = writer.Here();
        const Node& node = NodeAt(item);
        endsLine = node.kind != NodeKind::Separator;
        if (node.kind == NodeKind::Separator) {
            if (node.a != 0)
                Library(RowNumber(ServiceRow::PrintComma), window);
            continue;
        }
        Evaluate(node.first, item + 1);
        Operand value = Pop();
        if (value.kind == Held::Other) // tab, which is done
            continue;
        ToRegister(value);
        const bool isText = value.kind == Held::Text;
        Library(RowNumber(isFirst  ? ServiceRow::PrintTo
                          : isText ? ServiceRow::PrintText
                                   : ServiceRow::PrintNumber),
                window);
        isFirst = false;
        writer.Back(window);
    }
    if (statement.kind == Kind::PrintTo && items.size() == 1)
        endsLine = true;
    if (endsLine)
        Library(RowNumber(ServiceRow::PrintEnd), writer.Here());
    else
        Library(RowNumber(ServiceRow::PrintDone), writer.Here());
}

void cRoutineGenerator::Input(const Statement& statement)
{
    std::vector<Index> items;
    AppendOperands(program, statement.firstNode, statement.endNode, items);
    const bool isFrom = statement.kind == Kind::InputFrom || statement.kind == Kind::LineInputFrom;
    const bool isLine = statement.kind == Kind::LineInput || statement.kind == Kind::LineInputFrom;
    const cCodeWriter::Mark window = writer.Here();
    std::size_t next = 0;
    if (isFrom || statement.detail == HasPrompt) {
        Evaluate(NodeAt(items[0]).first, items[0] + 1);
        Operand text = Pop();
        ToRegister(text);
        Library(RowNumber(isFrom ? ServiceRow::InputFrom : ServiceRow::InputStart), window);
        next = 1;
    } else {
        Library(RowNumber(ServiceRow::InputAsk), window);
    }
    for (; next < items.size(); ++next) {
        writer.Back(window);
        Evaluate(NodeAt(items[next]).first, items[next] + 1);
        const Operand target = Pop();
        const cCodeWriter::Mark result = writer.Here();
        const bool isText = NodeAt(target.node).type == Type::Text;
        Operand value;
        value.kind = isText ? Held::Text : Held::Number;
        value.isTemporary = true;
        value.value = isText ? writer.NewText() : writer.NewNumber();
        Library(RowNumber(isLine   ? ServiceRow::LineInput
                          : isText ? ServiceRow::InputText
                                   : ServiceRow::InputNumber),
                result);
        if (isText)
            StoreText(target, value);
        else
            StoreNumber(target, value);
    }
    if (!isLine)
        Library(RowNumber(ServiceRow::InputEnd), window);
}

void cRoutineGenerator::Read(const Statement& statement)
{
    std::vector<Index> items;
    AppendOperands(program, statement.firstNode, statement.endNode, items);
    const cCodeWriter::Mark window = writer.Here();
    for (const Index item : items) {
        writer.Back(window);
        Evaluate(NodeAt(item).first, item + 1);
        const Operand target = Pop();
        const cCodeWriter::Mark result = writer.Here();
        const bool isText = NodeAt(target.node).type == Type::Text;
        Operand value;
        value.kind = isText ? Held::Text : Held::Number;
        value.isTemporary = true;
        value.value = isText ? writer.NewText() : writer.NewNumber();
        Library(RowNumber(isText ? ServiceRow::ReadText : ServiceRow::ReadNumber), result);
        if (isText)
            StoreText(target, value);
        else
            StoreNumber(target, value);
    }
}

void cRoutineGenerator::JumpUnless(const Statement& statement, Index target)
{
    JumpWhen(TestOf(statement.firstNode, statement.endNode), false, TargetOf(target));
}

void cRoutineGenerator::LoopEnd(const Statement& statement, Index target)
{
    if (statement.detail == Detail(Condition::None))
        writer.Jump(Operation::Jump, 0, TargetOf(target));
    else
        JumpWhen(TestOf(statement.firstNode, statement.endNode), statement.detail == Detail(Condition::While),
                 TargetOf(target));
}

// The limit is in the kept register and the step, where it is not 1, in the one after it.
void cRoutineGenerator::For(Index number)
{
    const Statement& statement = program.statements[number];
    std::vector<Index> items;
    AppendOperands(program, statement.firstNode, statement.endNode, items);
    const std::uint32_t limit = nextKeptNumber;
    nextKeptNumber += 2;
    kept[number - firstStatement] = limit;

    // All three are worked out before the variable is set, which the limit may name.
    const cCodeWriter::Mark start = writer.Here();
    Evaluate(statement.firstNode, items[1] + 1);
    Operand first = Pop();
    if (!IsConstant(first))
        ToRegister(first);
    const Operand target = Pop();
    const cCodeWriter::Mark window = writer.Here();
    for (std::size_t index = 2; index < items.size(); ++index) {
        Evaluate(NodeAt(items[index]).first, items[index] + 1);
        const Operand value = Pop();
        const std::uint32_t place = limit + static_cast<std::uint32_t>(index) - 2;
        if (IsConstant(value))
            writer.LoadNumber(static_cast<std::uint16_t>(place), value.value);
        else
            writer.Emit(Operation::Move, place, value.value);
        writer.Back(window);
    }
    first.isTemporary = false; // the last instruction is not the one that worked it out
    StoreNumber(target, first);
    writer.Back(start);
    Evaluate(NodeAt(items[0]).first, items[0] + 1);
    const Operand again = Pop();
    std::uint32_t variable = 0;
    if (IsLocal(again)) {
        variable = NumberRegister(NodeAt(again.node).a);
    } else {
        variable = writer.NewNumber();
        LoadVariable(again, variable);
    }
    if (items.size() == 3)
        writer.Compare(Operation::JumpIfLess, limit, variable, TargetOf(statement.target));
    else
        writer.Compare(Operation::ForTest, variable, limit, TargetOf(statement.target));
}

void cRoutineGenerator::Next(const Statement& statement)
{
    const Statement& loop = program.statements[statement.target];
    std::vector<Index> items;
    AppendOperands(program, loop.firstNode, loop.endNode, items);
    const std::uint32_t limit = kept[statement.target - firstStatement];
    const JumpTarget body = TargetOf(statement.target + 1);
    const Operation operation = items.size() == 3 ? Operation::ForOne : Operation::ForStep;
    Evaluate(NodeAt(items[0]).first, items[0] + 1);
    const Operand target = Pop();
    if (IsLocal(target)) {
        writer.Compare(operation, NumberRegister(NodeAt(target.node).a), limit, body);
        return;
    }
    // A variable elsewhere is set before the jump.
    const std::uint32_t variable = writer.NewNumber();
    LoadVariable(target, variable);
    if (items.size() == 3)
        writer.Emit(Operation::AddK, variable, variable, SmallConstant(1));
    else
        writer.Emit(Operation::Add, variable, variable, limit + 1);
    Operand value;
    value.kind = Held::Number;
    value.value = variable;
    StoreNumber(target, value);
    if (items.size() == 3) {
        writer.Compare(Operation::JumpIfLessOrEqual, variable, limit, body);
        return;
    }
    const JumpTarget beyond = writer.NewTarget();
    writer.Compare(Operation::ForTest, variable, limit, beyond);
    writer.Jump(Operation::Jump, 0, body);
    writer.Place(beyond);
}

void cRoutineGenerator::Case(const Statement& statement)
{
    const Statement& select = program.statements[statement.other];
    const auto number = static_cast<Index>(&statement - program.statements.data());
    const JumpTarget body = TargetOf(number + 1);
    std::vector<Index> items;
    AppendOperands(program, statement.firstNode, statement.endNode, items);
    const cCodeWriter::Mark window = writer.Here();
    const bool hasValue = select.firstNode != select.endNode;
    for (const Index item : items) {
        if (!hasValue) {
            JumpWhen(TestOf(NodeAt(item).first, item + 1), true, body);
        } else {
            Evaluate(NodeAt(item).first, item + 1);
            const Operand value = Pop();
            const std::uint32_t sought = kept[statement.other - firstStatement];
            if (NodeAt(item).type == Type::Text) {
                const std::uint32_t text = TextIn(value);
                const std::uint16_t result = writer.NewNumber();
                writer.Emit(Operation::EqualText, result, sought, text);
                writer.Jump(Operation::JumpIf, result, body);
            } else {
                writer.Compare(Operation::JumpIfEqual, sought, NumberIn(value), body);
            }
        }
        writer.Back(window);
    }
    writer.Jump(Operation::Jump, 0, TargetOf(statement.target));
}

void cRoutineGenerator::CallSub(const Statement& statement)
{
    const cCodeWriter::Mark window = writer.Here();
    std::vector<Index> items;
    AppendOperands(program, statement.firstNode, statement.endNode, items);
    for (const Index item : items) {
        Evaluate(NodeAt(item).first, item + 1);
        ToRegister(operands.back());
    }
    operands.clear();
    const MachineRoutine& called = state.signatures[statement.other];
    if (called.result == ValueType::Number && called.numberParameters == 0)
        writer.NewNumber();
    if (called.result == ValueType::Text && called.textParameters == 0)
        writer.NewText();
    writer.Emit(Operation::Call, statement.other, window.numbers, window.texts);
}

void cRoutineGenerator::Dim(const Statement& statement)
{
    std::vector<Index> items;
    AppendOperands(program, statement.firstNode, statement.endNode, items);
    const cCodeWriter::Mark window = writer.Here();
    for (const Index item : items) {
        const Node& node = NodeAt(item);
        Evaluate(node.first, item); // the sizes alone
        const bool isText = program.arrays[node.a].type == Type::Text;
        const std::uint32_t array = state.arrayNumbers[node.a];
        if (node.count == 1) {
            const std::uint32_t size = NumberIn(Pop());
            writer.Emit(isText ? Operation::DimText : Operation::Dim, size, array);
        } else {
            const Operand second = Pop();
            const Operand first = Pop();
            const std::uint32_t rows = NumberIn(first);
            writer.Emit(isText ? Operation::DimText2 : Operation::Dim2, rows, array, NumberIn(second));
        }
        writer.Back(window);
    }
}

void cRoutineGenerator::Unsupported(std::string_view what)
{
    const cCodeWriter::Mark window = writer.Here();
    writer.LoadText(writer.NewText(), writer.TextConstant(what));
    Library(RowNumber(ServiceRow::Unsupported), window);
}

} // namespace ob::basic
