// SPDX-License-Identifier: GPL-3.0-or-later
// Expressions of eval: read as a program of their own that declares what the outer one has of their names, then moved
// over to the outer one's slots.
#include "orchard/language/cParser.h"
#include "orchard/language/cResolver.h"
#include "orchard/language/modRead.h"
#include "orchard/language/modReadErrors.h"

#include <algorithm>
#include <utility>

namespace ob::basic {

namespace {

class cExpressionReader {
public:
    cExpressionReader(Program& target, const Program& outside, Index place)
        : inner(target), outer(outside), routine(place)
    {
    }

    void Declare();
    void MoveOver();

private:
    void DeclareFunction(NameId name);
    void DeclareStruct(NameId name);
    void MoveOver(Node& node);
    void MoveVariable(Node& node);
    NameId OuterName(NameId name) const { return outer.names.Find(inner.names.Text(name)); }
    static Index IndexOf(const auto& rows, auto&& isIt);

    Program& inner;
    const Program& outer;
    Index routine;
    std::vector<Index> outerRoutines{0}; // by the inner program's routines
    std::vector<Index> outerStructs;     // by the inner program's structs
};

Index cExpressionReader::IndexOf(const auto& rows, auto&& isIt)
{
    for (std::size_t at = 0; at < rows.size(); ++at)
        if (isIt(rows[at]))
            return static_cast<Index>(at);
    return NoIndex;
}

void cExpressionReader::Declare()
{
    // Fields are names too, so there may be more of them after each struct.
    const std::size_t count = inner.names.Count();
    for (NameId name = 0; name < count; ++name) {
        DeclareFunction(name);
        DeclareStruct(name);
    }
}

void cExpressionReader::DeclareFunction(NameId name)
{
    const Index called = FindRoutine(outer, inner.names.Text(name));
    if (called == NoIndex)
        return;
    Routine declared = outer.routines[called];
    declared.name = name;
    declared.firstParameter = static_cast<Index>(inner.parameters.size());
    declared.labelCount = 0;
    for (Index at = 0; at < declared.parameterCount; ++at)
        inner.parameters.push_back(outer.parameters[outer.routines[called].firstParameter + at]);
    inner.routines.push_back(declared);
    outerRoutines.push_back(called);
}

void cExpressionReader::DeclareStruct(NameId name)
{
    const NameId outerName = OuterName(name);
    const Index structure =
        outerName == cNames::NoName
            ? NoIndex
            : IndexOf(outer.structs, [&](const StructInfo& known) { return known.name == outerName; });
    if (structure == NoIndex)
        return;
    const auto declared = static_cast<Index>(inner.structs.size());
    inner.structs.push_back({name, NoIndex});
    outerStructs.push_back(structure);
    for (const LayoutInfo& known : outer.layouts) {
        if (known.structure != structure)
            continue;
        LayoutInfo layout = known;
        layout.structure = declared;
        layout.firstField = static_cast<Index>(inner.fields.size());
        for (Index at = known.firstField; at < known.firstField + known.fieldCount; ++at) {
            FieldInfo field = outer.fields[at];
            field.name = inner.names.Intern(outer.names.Text(field.name));
            inner.fields.push_back(field);
        }
        inner.layouts.push_back(layout);
    }
}

void cExpressionReader::MoveOver()
{
    for (Node& node : inner.nodes)
        MoveOver(node);
}

// The inner program has one routine and no globals, so its variables are all in its list.
void cExpressionReader::MoveVariable(Node& node)
{
    if (node.scope == Scope::System)
        return;
    const Index variable = IndexOf(
        inner.variables, [&](const VariableInfo& known) { return known.type == node.type && known.slot == node.a; });
    VariableInfo found{};
    const Use use = std::exchange(node.use, Use::Value);
    if (FindVariable(outer, routine, inner.names.Text(inner.variables[variable].name), found)) {
        node.scope = found.scope;
        node.a = found.slot;
        node.use = use;
    } else if (node.type == Type::Text) {
        node.kind = NodeKind::Text;
        node.a = node.b = 0;
    } else {
        node.kind = NodeKind::Number;
        node.a = static_cast<Index>(inner.numbers.size());
        inner.numbers.push_back(0);
    }
}

void cExpressionReader::MoveOver(Node& node)
{
    switch (node.kind) {
    case NodeKind::Variable:
        MoveVariable(node);
        break;
    case NodeKind::Item: {
        const NameId name = OuterName(inner.arrays[node.a].name);
        node.a = IndexOf(outer.arrays, [&](const ArrayInfo& known) { return known.name == name; });
        break;
    }
    case NodeKind::Handle: {
        const NameId name = OuterName(inner.handles[node.a]);
        node.a = IndexOf(outer.handles, [&](NameId known) { return known == name; });
        break;
    }
    case NodeKind::Call:
        node.a = outerRoutines[node.a];
        break;
    case NodeKind::Field:
        node.b = OuterName(node.b);
        node.a = outerStructs[node.a];
        break;
    case NodeKind::Struct:
        node.a = outerStructs[node.a];
        break;
    default:
        break;
    }
}

} // namespace

Program ReadExpression(std::string text, const Program& outer, Index routine, ConstantLookup findConstant)
{
    text.resize(std::min(text.size(), text.find('\0')));
    Program program;
    program.source = std::make_unique<const std::string>(std::move(text));
    program.lines = cLineTable(*program.source);
    Parsed parsed;
    cParser(program, parsed, findConstant).RunExpression();
    parsed.isAssigned.assign(program.names.Count(), true); // what the outer program may use as names, so may this
    cExpressionReader reader(program, outer, routine);
    reader.Declare();
    cResolver(program, parsed).Run();
    if (program.errors.empty() && program.nodes.back().type == Type::None)
        AddError(program, 0, static_cast<Index>(program.source->size()), "a value");
    if (program.errors.empty())
        reader.MoveOver();
    return program;
}

} // namespace ob::basic
