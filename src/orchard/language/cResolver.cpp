// SPDX-License-Identifier: GPL-3.0-or-later
// Declarations and names.
#include "orchard/language/cResolver.h"

#include "orchard/language/modReadErrors.h"

#include <algorithm>
#include <utility>

namespace ob::basic {

cResolver::cResolver(Program& target, const Parsed& result)
    : program(target), parsed(result), meanings(target.names.Count())
{
}

void cResolver::Run()
{
    NoteRoutines();
    NoteGlobals();
    NoteLabels();
    NoteStructs();
    auto check = parsed.checks.begin();
    for (Statement& statement : program.statements) {
        if (statement.kind == StatementKind::RoutineStart)
            EnterRoutine(statement.other);
        for (Index node = statement.firstNode; node < statement.endNode; ++node)
            ResolveNode(node, statement);
        for (; check != parsed.checks.end() && check->node < statement.endNode; ++check) {
            if (check->wanted == Wanted::Value && !IsTab(statement, check->node))
                WantValue(check->node);
            else if (check->wanted != Wanted::Value)
                Want(check->node, check->wanted == Wanted::Text ? Type::Text : Type::Number);
        }
        CheckStatement(statement);
        if (statement.kind == StatementKind::RoutineEnd)
            routine = 0;
    }
    AddVariables();
    std::ranges::stable_sort(program.errors, {}, &ReadError::offset);
}

// Whether the operand is a tab of print, which has no value.
bool cResolver::IsTab(const Statement& statement, Index node) const
{
    const bool isPrint = statement.kind == StatementKind::Print || statement.kind == StatementKind::PrintTo ||
                         statement.kind == StatementKind::PrintPrinter;
    return isPrint && program.nodes[node].kind == NodeKind::Builtin &&
           program.nodes[node].a == static_cast<Index>(Function::Tab);
}

void cResolver::NoteRoutines()
{
    for (std::size_t at = 1; at < program.routines.size(); ++at) {
        const Routine& declared = program.routines[at];
        if (declared.name == cNames::NoName)
            continue;
        Index& known = Of(declared.name).routine;
        if (known != NoIndex)
            Report(declared.offset, "another name: \"" + std::string(Spelling(declared.name)) + "\" is the one of " +
                                        LineName(program, program.routines[known].offset));
        else
            known = static_cast<Index>(at);
    }
}

// Names that are listed twice are one variable; those of the system are shared as they are.
void cResolver::NoteGlobals()
{
    std::vector<VariableInfo> globals;
    for (VariableInfo& global : program.globals) {
        Index& known = Of(global.name).global;
        if (known != NoIndex || program.names.Meaning(global.name).kind == WordKind::SystemVariable)
            continue;
        known = static_cast<Index>(globals.size());
        global.slot = global.type == Type::Text ? program.globalTextCount++ : program.globalNumberCount++;
        globals.push_back(global);
    }
    program.globals = std::move(globals);
}

// Puts the labels in the order of their routines, as the main program goes on after its subs and functions.
void cResolver::NoteLabels()
{
    std::ranges::stable_sort(program.labels, {}, &LabelInfo::routine);
    std::vector<Index> seen(program.names.Count(), NoIndex); // by name: the last label of it
    for (std::size_t at = 0; at < program.labels.size(); ++at) {
        const LabelInfo& label = program.labels[at];
        Routine& owner = program.routines[label.routine];
        if (owner.labelCount++ == 0)
            owner.firstLabel = static_cast<Index>(at);
        program.statements[label.statement].other = static_cast<Index>(at);
        Of(label.name).anyLabel = static_cast<Index>(at);
        const Index last = std::exchange(seen[label.name], static_cast<Index>(at));
        if (last != NoIndex && program.labels[last].routine == label.routine)
            Report(program.statements[label.statement].offset,
                   "another label, as this one is in " +
                       LineName(program, program.statements[program.labels[last].statement].offset));
        else if (label.routine == 0)
            Of(label.name).mainLabel = static_cast<Index>(at);
    }
}

bool cResolver::AreAlike(const LayoutInfo& a, const LayoutInfo& b) const
{
    const auto fields = program.fields.begin();
    return std::equal(fields + a.firstField, fields + a.firstField + a.fieldCount, fields + b.firstField,
                      fields + b.firstField + b.fieldCount, [](const FieldInfo& first, const FieldInfo& second) {
                          return first.name == second.name && first.type == second.type && first.size == second.size;
                      });
}

void cResolver::NoteStructs()
{
    std::vector<Index> first(program.structs.size(), NoIndex);
    for (std::size_t at = 0; at < program.structs.size(); ++at)
        Of(program.structs[at].name).structure = static_cast<Index>(at);
    for (std::size_t at = 0; at < program.layouts.size(); ++at) {
        const LayoutInfo& layout = program.layouts[at];
        StructInfo& structure = program.structs[layout.structure];
        Index& known = first[layout.structure];
        if (known == NoIndex)
            structure.layout = known = static_cast<Index>(at);
        else if (!AreAlike(layout, program.layouts[known]))
            structure.layout = NoIndex;
    }
}

VariableInfo cResolver::NewVariable(NameId name, Scope scope)
{
    const Type type = program.names.IsText(name) ? Type::Text : Type::Number;
    Routine& owner = program.routines[routine];
    return {name, type, scope, type == Type::Text ? owner.textCount++ : owner.numberCount++};
}

void cResolver::EnterRoutine(Index entered)
{
    routine = entered;
    Routine& owner = program.routines[routine];
    owner.firstVariable = static_cast<Index>(program.variables.size());
    const auto own = [&](NameId name, Scope scope) {
        Of(name).ownRoutine = routine;
        Of(name).ownVariable = static_cast<Index>(program.variables.size());
        program.variables.push_back(NewVariable(name, scope));
        return program.variables.back().slot;
    };
    for (Index at = owner.firstParameter; at < owner.firstParameter + owner.parameterCount; ++at) {
        Parameter& parameter = program.parameters[at];
        if (Of(parameter.name).ownRoutine == routine)
            Report(parameter.offset, "a parameter of another name");
        parameter.slot = own(parameter.name, parameter.byRef ? Scope::ByRef : Scope::Local);
    }
    if (owner.kind == RoutineKind::Function && owner.name != cNames::NoName) {
        if (Of(owner.name).ownRoutine == routine)
            Report(owner.offset, "another name than that of a parameter");
        owner.valueSlot = own(owner.name, Scope::Local);
    }
    for (Index label = owner.firstLabel; label < owner.firstLabel + owner.labelCount; ++label) {
        Of(program.labels[label].name).ownLabel = label;
        Of(program.labels[label].name).ownLabelRoutine = routine;
    }
}

// Those of the main program come first; they were met before, between and after those of the routines.
void cResolver::AddVariables()
{
    const auto shift = static_cast<Index>(mainVariables.size());
    for (std::size_t at = 1; at < program.routines.size(); ++at) {
        Routine& owner = program.routines[at];
        const Index end = at + 1 < program.routines.size() ? program.routines[at + 1].firstVariable
                                                           : static_cast<Index>(program.variables.size());
        owner.variableCount = end - owner.firstVariable;
    }
    for (std::size_t at = 1; at < program.routines.size(); ++at)
        program.routines[at].firstVariable += shift;
    program.routines[0].variableCount = shift;
    program.variables.insert(program.variables.begin(), mainVariables.begin(), mainVariables.end());
}

// A variable of the routine at hand, new at its first use.
const VariableInfo& cResolver::LocalVariable(NameId name)
{
    Meanings& known = Of(name);
    if (routine == 0) {
        known.mainVariable = static_cast<Index>(mainVariables.size());
        return mainVariables.emplace_back(NewVariable(name, Scope::Local));
    }
    known.ownRoutine = routine;
    known.ownVariable = static_cast<Index>(program.variables.size());
    return program.variables.emplace_back(NewVariable(name, Scope::Local));
}

void cResolver::ResolveVariable(Node& node)
{
    const NameId name = node.a;
    const Meanings& known = Of(name);
    const WordMeaning meaning = program.names.Meaning(name);
    const bool isWord = meaning.kind == WordKind::Keyword || meaning.kind == WordKind::Command;
    if (isWord && !parsed.IsAssigned(name))
        Report(node.offset, "a value");
    const bool isOwn = routine != 0 && known.ownRoutine == routine;
    if (isOwn || (routine == 0 && known.mainVariable != NoIndex)) {
        const VariableInfo& variable = isOwn ? program.variables[known.ownVariable] : mainVariables[known.mainVariable];
        node.scope = variable.scope;
        node.a = variable.slot;
    } else if (known.global != NoIndex) {
        node.scope = Scope::Global;
        node.a = program.globals[known.global].slot;
    } else if (meaning.kind == WordKind::SystemVariable) {
        node.scope = Scope::System;
        node.a = meaning.number;
    } else {
        node.a = LocalVariable(name).slot;
    }
}

Index cResolver::ArrayOf(NameId name)
{
    Index& known = Of(name).array;
    if (known == NoIndex) {
        known = static_cast<Index>(program.arrays.size());
        program.arrays.push_back({name, program.names.IsText(name) ? Type::Text : Type::Number});
    }
    return known;
}

// A call, or an array's item.
void cResolver::ResolveItem(Index index)
{
    Node& node = At(index);
    const NameId name = node.a;
    const Index called = Of(name).routine;
    if (called != NoIndex && (node.use == Use::Target || node.use == Use::Size)) {
        Report(node.offset, "an array: this is the name of a sub or function");
    } else if (called != NoIndex && program.routines[called].kind == RoutineKind::Sub) {
        Report(node.offset, "a function or an array: this is the name of a sub");
    } else if (called != NoIndex) {
        node.kind = NodeKind::Call;
        node.use = Use::Value;
        node.a = called;
        CheckArguments(called, node.first, index, node.offset);
    } else if (node.count == 0) {
        node.kind = NodeKind::Array;
        ResolveArray(node);
    } else {
        constexpr Index mostDimensions = 2;
        if (node.count > mostDimensions)
            Report(node.offset, Quoted(Spelling(name)) + " with " + std::to_string(node.count) + " indexes",
                   "one or two indexes");
        node.a = ArrayOf(name);
        operands.clear();
        AppendOperands(program, node.first, index, operands);
        for (const Index operand : operands)
            Want(operand, Type::Number);
    }
}

void cResolver::ResolveArray(Node& node)
{
    if (Of(node.a).routine != NoIndex)
        Report(node.offset, "an array: this is the name of a sub or function");
    node.type = Type::None;
    node.a = ArrayOf(node.a);
}

void cResolver::ResolveStruct(Node& node)
{
    const Index structure = Of(node.a).structure;
    if (structure == NoIndex)
        Report(node.offset, Quoted(Spelling(node.a)), "the name of a struct");
    else
        node.a = structure;
}

void cResolver::ResolveField(Node& node)
{
    node.type = program.names.IsText(node.b) ? Type::Text : Type::Number;
    const Index structure = Of(node.a).structure;
    if (structure == NoIndex) {
        ResolveStruct(node);
        return;
    }
    node.a = structure;
    const Index layout = program.structs[structure].layout;
    const FieldInfo* field = layout == NoIndex ? FieldOfAny(node, structure) : FindField(program, layout, node.b);
    if (field)
        node.type = field->valueType;
    else
        Report(node.offset, Quoted(Spelling(node.b)),
               "a field of the struct \"" + std::string(Spelling(program.structs[structure].name)) + '"');
}

// The field as one of the struct's statements has it, when they differ: it is a text in all of them or a number.
const FieldInfo* cResolver::FieldOfAny(const Node& node, Index structure)
{
    const FieldInfo* first = nullptr;
    for (Index at = 0; at < program.layouts.size(); ++at) {
        const FieldInfo* field = program.layouts[at].structure == structure ? FindField(program, at, node.b) : nullptr;
        if (first && field && field->valueType != first->valueType) {
            Report(node.offset, "a field that is a text in one \"struct\" and a number in another", "one type");
            return first;
        }
        if (field)
            first = field;
    }
    return first;
}

// The sub that handles an event, or the function of a callback.
void cResolver::ResolveRoutine(Node& node, const Statement& statement)
{
    const Index called = Of(node.a).routine;
    const bool isCallBack = statement.kind == StatementKind::CallBack;
    const RoutineKind wanted = isCallBack ? RoutineKind::Function : RoutineKind::Sub;
    if (called == NoIndex || program.routines[called].kind != wanted)
        Report(node.offset, isCallBack ? "the name of a function" : "a label or the name of a sub");
    node.a = called;
}

// A label of the routine at hand; NoIndex when it has none of the name.
Index cResolver::LabelOf(NameId name) const
{
    const Meanings& known = meanings[name];
    if (routine == 0)
        return known.mainLabel;
    return known.ownLabelRoutine == routine ? known.ownLabel : NoIndex;
}

std::string cResolver::NameOfRoutine() const
{
    switch (program.routines[routine].kind) {
    case RoutineKind::Sub:
        return "a label of this sub";
    case RoutineKind::Function:
        return "a label of this function";
    default:
        return "a label of the main program";
    }
}

// The label of an event. The bench writes windows whose handlers are still to be written: the event is the error then.
void cResolver::ResolveLabel(Node& node, const Statement& statement)
{
    const auto command = static_cast<Command>(statement.detail);
    const bool isOfWindow = command != Command::Timer && command != Command::OnComError;
    node.b = node.a;
    node.a = LabelOf(node.b);
    if (node.a == NoIndex && (!isOfWindow || Of(node.b).anyLabel != NoIndex))
        Report(node.offset, NameOfRoutine());
}

Offset cResolver::StartOf(Index node) const
{
    return std::min(program.nodes[node].offset, program.nodes[program.nodes[node].first].offset);
}

Token cResolver::TokenAt(Offset place)
{
    cScanner scanner(*program.source, program.names);
    scanner.MoveTo(place);
    return scanner.Next();
}

void cResolver::Report(Offset place, std::string_view expected)
{
    AddError(program, place, TokenAt(place).length, expected);
}

void cResolver::Report(Offset place, std::string found, std::string expected)
{
    AddError(program, place, TokenAt(place).length, std::move(found), std::move(expected));
}

} // namespace ob::basic
