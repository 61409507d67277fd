// SPDX-License-Identifier: GPL-3.0-or-later
// Looking things up in a program.
#include "orchard/language/modProgram.h"

#include <algorithm>

namespace ob::basic {

void AppendOperands(const Program& program, Index first, Index end, std::vector<Index>& operands)
{
    const auto before = static_cast<std::ptrdiff_t>(operands.size());
    for (Index node = end; node > first; node = program.nodes[node - 1].first)
        operands.push_back(node - 1);
    std::reverse(operands.begin() + before, operands.end());
}

const FieldInfo* FindField(const Program& program, Index layout, NameId name)
{
    const LayoutInfo& fields = program.layouts[layout];
    const auto first = program.fields.begin() + fields.firstField;
    const auto found =
        std::find_if(first, first + fields.fieldCount, [&](const FieldInfo& field) { return field.name == name; });
    return found == first + fields.fieldCount ? nullptr : &*found;
}

Index FindLabel(const Program& program, Index routine, std::string_view text)
{
    const NameId name = program.names.Find(text);
    const Routine& owner = program.routines[routine];
    for (Index label = owner.firstLabel; label < owner.firstLabel + owner.labelCount; ++label)
        if (program.labels[label].name == name)
            return label;
    return NoIndex;
}

Index FindRoutine(const Program& program, std::string_view text)
{
    const NameId name = program.names.Find(text);
    for (Index routine = 1; name != cNames::NoName && routine < program.routines.size(); ++routine)
        if (program.routines[routine].name == name)
            return routine;
    return NoIndex;
}

bool FindVariable(const Program& program, Index routine, std::string_view text, VariableInfo& variable)
{
    const WordMeaning meaning = MeaningOf(text);
    const NameId name = program.names.Find(text);
    const Routine& owner = program.routines[routine];
    const auto first = program.variables.begin() + owner.firstVariable;
    const auto isName = [&](const VariableInfo& known) { return known.name == name; };
    const auto own = std::find_if(first, first + owner.variableCount, isName);
    const auto global = std::ranges::find_if(program.globals, isName);
    if (own != first + owner.variableCount) {
        variable = *own;
    } else if (global != program.globals.end()) {
        variable = *global;
    } else if (meaning.kind == WordKind::SystemVariable) {
        const auto system = static_cast<SystemVariable>(meaning.number);
        variable = {name, RowOf(system).type, Scope::System, meaning.number};
    } else {
        return false;
    }
    return true;
}

} // namespace ob::basic
