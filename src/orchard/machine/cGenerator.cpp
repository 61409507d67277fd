// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the machine's code of a program that was read.
#include "orchard/machine/cGenerator.h"

#include "orchard/machine/cRoutineGenerator.h"

namespace ob::basic {

namespace {

constexpr std::uint32_t NoRegister = 0xFFFFFFFF;

std::uint16_t Count(std::size_t count)
{
    if (count > 0xFFFF)
        throw cTooLarge("The program is too large: one of its routines has more than 65,535 variables.");
    return static_cast<std::uint16_t>(count);
}

// The parameters come first, in the order of the call: numbers and references among the numbers.
void PlaceRegisters(const Program& program, const Routine& routine, GeneratorState::Registers& registers,
                    MachineRoutine& signature)
{
    registers.numbers.assign(routine.numberCount, NoRegister);
    registers.texts.assign(routine.textCount, NoRegister);
    std::uint32_t numbers = 0;
    std::uint32_t texts = 0;
    for (Index index = 0; index < routine.parameterCount; ++index) {
        const Parameter& parameter = program.parameters[routine.firstParameter + index];
        if (parameter.type == Type::Number)
            registers.numbers[parameter.slot] = numbers++;
        else
            registers.texts[parameter.slot] = parameter.byRef ? numbers++ : texts++;
    }
    signature.numberParameters = Count(numbers);
    signature.textParameters = Count(texts);
    for (std::uint32_t& number : registers.numbers)
        if (number == NoRegister)
            number = numbers++;
    for (std::uint32_t& text : registers.texts)
        if (text == NoRegister)
            text = texts++;
    signature.numberVariables = Count(numbers);
    signature.textVariables = Count(texts);
}

MachineRoutine SignatureOf(const Program& program, const Routine& routine, GeneratorState::Registers& registers)
{
    MachineRoutine signature;
    if (routine.name != cNames::NoName)
        signature.name = program.names.Text(routine.name);
    PlaceRegisters(program, routine, registers, signature);
    if (routine.kind == RoutineKind::Function) {
        const bool isText = routine.type == Type::Text;
        signature.result = isText ? ValueType::Text : ValueType::Number;
        signature.resultRegister =
            Count(isText ? registers.texts[routine.valueSlot] : registers.numbers[routine.valueSlot]);
    }
    return signature;
}

StructLayout LayoutOf(const Program& program, const LayoutInfo& read)
{
    StructLayout layout{read.structure, read.size, {}};
    for (Index index = read.firstField; index < read.firstField + read.fieldCount; ++index) {
        const FieldInfo& field = program.fields[index];
        layout.fields.push_back({std::string(program.names.Text(field.name)), field.type, field.offset, field.size});
    }
    return layout;
}

} // namespace

GeneratorState::GeneratorState(const Program& read) : program(read), isArgument(read.nodes.size())
{
    for (Index number = 0; number < read.nodes.size(); ++number) {
        const Node& node = read.nodes[number];
        if (node.kind != NodeKind::Call && node.kind != NodeKind::Builtin)
            continue;
        Index last = number;
        for (Index count = node.count; count > 0; --count) {
            isArgument[last - 1] = true;
            last = read.nodes[last - 1].first;
        }
    }
    for (const ArrayInfo& array : read.arrays)
        arrayNumbers.push_back(array.type == Type::Text ? textArrays++ : numberArrays++);
    registers.resize(read.routines.size());
    for (std::size_t index = 0; index < read.routines.size(); ++index)
        signatures.push_back(SignatureOf(read, read.routines[index], registers[index]));
}

MachineCode GenerateCode(const Program& program)
{
    MachineCode code;
    const GeneratorState state(program);
    cCodeWriter writer(code);
    for (Index routine = 0; routine < program.routines.size(); ++routine)
        cRoutineGenerator(state, writer, routine).Generate();
    code.globalNumbers = program.globalNumberCount + static_cast<std::uint32_t>(SystemVariable::Count);
    code.globalTexts = program.globalTextCount + static_cast<std::uint32_t>(SystemVariable::Count);
    code.systemNumbers = program.globalNumberCount;
    code.systemTexts = program.globalTextCount;
    code.numberArrays = state.numberArrays;
    code.textArrays = state.textArrays;
    code.structCount = static_cast<std::uint32_t>(program.structs.size());
    for (const LayoutInfo& layout : program.layouts)
        code.layouts.push_back(LayoutOf(program, layout));
    for (const DataItem& item : program.data)
        code.data.emplace_back(program.TextAt(item.offset, item.length));
    return code;
}

} // namespace ob::basic
