// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the code of one routine: statements with fixed arguments.
#include "orchard/machine/cRoutineGenerator.h"

#include <algorithm>

namespace ob::basic {

namespace {

// What a console has; the others need windows, sound or the system's interfaces.
constexpr Command ConsoleCommands[] = {
    Command::Beep,      Command::Close, Command::Cls,       Command::Confirm, Command::Dump,   Command::Field,
    Command::Files,     Command::Get,   Command::GetTrim,   Command::Kill,    Command::Locate, Command::MainWin,
    Command::MapHandle, Command::Name,  Command::NoMainWin, Command::Notice,  Command::Prompt, Command::Put,
    Command::Randomize, Command::Run,   Command::Scan,      Command::Seek,    Command::Sort,   Command::Timer,
    Command::TitleBar,  Command::Trace, Command::Wait,
};

} // namespace

void cRoutineGenerator::DoCommand(const Statement& statement)
{
    const auto command = static_cast<Command>(statement.detail);
    if (std::ranges::find(ConsoleCommands, command) == std::end(ConsoleCommands)) {
        Unsupported(RowOf(command).word);
        return;
    }
    if (command == Command::Field) {
        Fields(statement);
        return;
    }
    const cCodeWriter::Mark window = writer.Here();
    std::vector<Index> items;
    AppendOperands(program, statement.firstNode, statement.endNode, items);
    std::vector<Operand> results;
    for (const Index item : items) {
        Evaluate(NodeAt(item).first, item + 1);
        Operand operand = Pop();
        if (operand.kind == Held::Target)
            results.push_back(operand);
        else
            ToRegister(operand);
    }
    FillUp(command, items.size());
    const cCodeWriter::Mark end = writer.Here();
    Library(RowNumber(command), window);
    std::uint32_t number = window.numbers;
    std::uint32_t text = window.texts;
    for (const Operand& target : results) {
        Operand value;
        value.isTemporary = true;
        if (NodeAt(target.node).type == Type::Text) {
            value.kind = Held::Text;
            value.value = text++;
            while (writer.Here().texts < text)
                writer.NewText();
            StoreText(target, value);
        } else {
            value.kind = Held::Number;
            value.value = number++;
            StoreNumber(target, value);
        }
    }
    writer.Back(end);
}

// The arguments that may be left out.
void cRoutineGenerator::FillUp(Command command, std::size_t count)
{
    const bool isShort = (command == Command::Sort && count == 3) || (command == Command::Timer && count == 1);
    if (isShort)
        writer.LoadNumber(writer.NewNumber(), writer.NumberConstant(0));
    if (command == Command::Run && count == 1)
        writer.LoadText(writer.NewText(), writer.TextConstant(""));
}

// The fields of a random file: a width and a reference to a variable each.
void cRoutineGenerator::Fields(const Statement& statement)
{
    std::vector<Index> items;
    AppendOperands(program, statement.firstNode, statement.endNode, items);
    const cCodeWriter::Mark window = writer.Here();
    Evaluate(NodeAt(items[0]).first, items[0] + 1);
    Operand handle = Pop();
    ToRegister(handle);
    Library(RowNumber(ServiceRow::FieldStart), window);
    for (std::size_t index = 1; index + 1 < items.size(); index += 2) {
        writer.Back(window);
        Evaluate(NodeAt(items[index]).first, items[index] + 1);
        Operand width = Pop();
        ToRegister(width);
        const Index variable = items[index + 1];
        Refer(variable);
        const bool isText = NodeAt(variable).type == Type::Text;
        Library(RowNumber(isText ? ServiceRow::FieldText : ServiceRow::FieldNumber), window);
    }
    Library(RowNumber(ServiceRow::FieldEnd), window);
}

} // namespace ob::basic
