// SPDX-License-Identifier: GPL-3.0-or-later
// The resolver: gives names their slots, calls their routines, jumps their statements, and checks types.
#pragma once

#include "orchard/language/cParser.h"
#include "orchard/language/modProgram.h"

#include <span>
#include <string_view>
#include <vector>

namespace ob::basic {

// One pass over the nodes in their order: what an operand needs has been worked out when it is reached.
class cResolver {
public:
    cResolver(Program& target, const Parsed& parsed);

    void Run();

private:
    // What a name stands for; NoIndex where it stands for nothing of the kind.
    struct Meanings {
        Index mainVariable = NoIndex; // in mainVariables
        Index ownVariable = NoIndex;  // in `variables`, when ownRoutine is the routine at hand
        Index ownRoutine = NoIndex;
        Index global = NoIndex;
        Index mainLabel = NoIndex;
        Index anyLabel = NoIndex; // of any routine
        Index ownLabel = NoIndex; // when ownLabelRoutine is the routine at hand
        Index ownLabelRoutine = NoIndex;
        Index array = NoIndex;
        Index routine = NoIndex;
        Index structure = NoIndex;
        Index handle = NoIndex;
    };

    bool IsTab(const Statement& statement, Index node) const;

    // Declarations
    void NoteRoutines();
    void NoteGlobals();
    void NoteLabels();
    void NoteStructs();
    bool AreAlike(const LayoutInfo& a, const LayoutInfo& b) const;
    void EnterRoutine(Index entered);
    void AddVariables();

    // Names
    void ResolveNode(Index node, const Statement& statement);
    void ResolveVariable(Node& node);
    const VariableInfo& LocalVariable(NameId name);
    VariableInfo NewVariable(NameId name, Scope scope);
    void ResolveItem(Index node);
    void ResolveArray(Node& node);
    void ResolveField(Node& node);
    const FieldInfo* FieldOfAny(const Node& node, Index structure);
    void ResolveStruct(Node& node);
    void ResolveRoutine(Node& node, const Statement& statement);
    Index ArrayOf(NameId name);
    Index LabelOf(NameId name) const;
    void ResolveLabel(Node& node, const Statement& statement);

    // Types
    void ResolveOperator(Index node);
    void ResolveSum(Index node, Index left, Index right);
    void ResolveBuiltin(Index node);
    void CheckBuiltinArgument(Index node, char shape);
    Type TypeOfDate(const Node& node) const;
    void Settle(Index node, Type type);
    void Want(Index node, Type type);
    void WantValue(Index node);
    void WantSameTypes(Index left, Index right);
    void CheckArguments(Index routineIndex, Index first, Index end, Offset place);

    // Statements
    void CheckStatement(Statement& statement);
    void ResolveJump(Statement& statement);
    void ResolveRestore(Statement& statement);
    void ResolveCall(Statement& statement);
    void CheckCase(const Statement& statement);
    void CheckCallDll(const Statement& statement);
    void CheckCallBack(const Statement& statement);

    // Errors
    Offset StartOf(Index node) const;
    Token TokenAt(Offset place);
    void Report(Offset place, std::string_view expected);
    void Report(Offset place, std::string found, std::string expected);
    std::string NameOfRoutine() const;

    Meanings& Of(NameId name) { return meanings[name]; }
    Node& At(Index node) { return program.nodes[node]; }
    std::string_view Spelling(NameId name) const { return program.names.Text(name); }

    Program& program;
    const Parsed& parsed;
    std::vector<Meanings> meanings; // by name
    std::vector<VariableInfo> mainVariables;
    std::vector<Index> operands;
    Index routine = 0;
};

} // namespace ob::basic
