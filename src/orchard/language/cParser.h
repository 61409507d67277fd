// SPDX-License-Identifier: GPL-3.0-or-later
// The parser: from tokens to statements and operands whose names are not resolved yet.
#pragma once

#include "orchard/language/cScanner.h"
#include "orchard/language/modProgram.h"
#include "orchard/language/modRead.h"

#include <string>
#include <string_view>
#include <vector>

namespace ob::basic {

// What an operand has to be, besides what its form says.
enum class Wanted : std::uint8_t { Number, Text, Value };

struct Check {
    Index node; // the operand's last
    Wanted wanted;
};

// What the resolver needs beyond the program. In nodes that are not resolved `a` is a name; so is `other` of Goto,
// Gosub, OnError, Restore and Call, and `a` of Label and Routine.
struct Parsed {
    std::vector<Check> checks;    // in the order of the nodes
    std::vector<Index> enclosed;  // nodes in parentheses of their own, rising
    std::vector<bool> isAssigned; // by name: a word of the language that the program uses as a name too

    bool IsAssigned(NameId name) const { return name < isAssigned.size() && isAssigned[name]; }
};

// Works without recursion: operators and open blocks are on stacks of its own, so that nesting is bounded by memory
// alone.
class cParser {
public:
    cParser(Program& target, Parsed& parsed, ConstantLookup lookup);

    // Reads the whole text.
    void Run();

    // Reads a text that is one expression, as the only operand of a Print.
    void RunExpression();

private:
    enum class Outcome : std::uint8_t {
        Complete, // the end of the statement has to follow
        Open,     // another statement may follow at once
        Failed,   // an error was noted
    };
    enum class BlockKind : std::uint8_t { If, LineIf, For, While, Do, Select };
    static constexpr std::size_t BlockKindCount = 6;
    struct Block {
        BlockKind kind;
        bool hasElse = false;
        Index statement;              // its first
        Index waiting = NoIndex;      // the If or Case whose target is the next part
        Index lastExit = NoIndex;     // the last statement that leaves the block; each has the one before as its target
        Index outer = NoIndex;        // the next block of its kind further out
        NameId name = cNames::NoName; // For: the variable
        Offset offset;
    };
    enum class PendingKind : std::uint8_t { Operator, Group, Call, Builtin };
    struct Pending {
        PendingKind kind;
        std::uint8_t rank = 0; // of an operator: how tight it binds
        NodeKind node = NodeKind::Number;
        Index first = 0; // of a call: where its arguments begin
        Index count = 0;
        Index name = 0;
        Offset offset = 0;
    };
    enum class Start : std::uint8_t { Operand, Operator, Item };
    enum class Follows : std::uint8_t { Operand, End, Nothing }; // Nothing after an error

    // Tokens
    void Advance() { token = scanner.Next(); }
    bool Is(TokenKind kind) const { return token.kind == kind; }
    bool IsWord(Keyword keyword) const;
    bool IsNamed(std::string_view word) const;
    bool Accept(TokenKind kind);
    bool AcceptWord(Keyword keyword);
    bool Expect(TokenKind kind, std::string_view expected);
    bool ExpectWord(Keyword keyword);
    bool AtStatementEnd() const;
    std::string_view Spelling(NameId name) const { return program.names.Text(name); }
    WordMeaning Meaning(const Token& name) const { return program.names.Meaning(name.name); }
    static bool IsReserved(WordMeaning meaning);
    static bool IsStatementWord(WordMeaning meaning);

    // Errors
    bool Fail(std::string_view expected);
    Outcome Failed(std::string_view expected);
    void ReportAt(const Token& place, std::string_view expected);
    void Recover();

    // Building
    Index Emit(NodeKind kind, Type type, Index a, Index b, Offset offset);
    void EmitOver(NodeKind kind, Type type, Index count, Index first, Index a, Offset offset);
    Index Add(StatementKind kind, std::uint8_t detail = 0);
    void BeginStatement(Offset offset);
    void DropOperands();
    Index Here() const { return static_cast<Index>(program.statements.size()); }
    Index NodeCount() const { return static_cast<Index>(program.nodes.size()); }
    Type TypeOf(NameId name) const { return program.names.IsText(name) ? Type::Text : Type::Number; }
    void MarkAssigned(NameId name);

    // Statements
    void Statement();
    Outcome WordStatement();
    Outcome KeywordStatement(Keyword keyword, const Token& word);
    Outcome OtherKeyword(Keyword keyword, const Token& word);
    Outcome Comment(const Token& word);
    Outcome NameStatement(const Token& word);
    Outcome Assignment(const Token& name);
    Outcome AssignTo(const Token& name);
    Outcome Let();
    Outcome CallSub();
    Outcome CallArguments(const Token& name);
    Outcome CallAfterParenthesis(const Token& name);
    Outcome Print(StatementKind kind);
    Outcome PrintTo();
    bool PrintItems();
    Outcome Input(StatementKind console, StatementKind file);
    bool IsPromptAhead();
    Outcome Targets(StatementKind kind, std::uint8_t detail = 0);
    Outcome Data();
    NameId LabelName();
    void AddNamed(StatementKind kind, NameId name, Offset place);
    Outcome Jump(StatementKind kind);
    Outcome Restore();
    Outcome On();
    Outcome Dim();
    Outcome Global();

    // Statements by their rows, and those that speak with the system
    Outcome LibraryStatement(Command command);
    bool IsSign(char sign) const;
    bool ArgumentsOf(std::string_view shape);
    bool Argument(char shape);
    bool TargetOperand(Wanted wanted);
    bool MakeTarget(Index node, const Token& place);
    bool HandleOperand();
    bool LabelOrSubOperand();
    bool ArrayOperand(bool isText);
    bool WordOperand();
    bool MenuItem();
    Outcome Open();
    bool TypeOperand(DataType& type);
    Index StructOf(NameId name);
    Outcome Struct();
    bool StructField(LayoutInfo& layout);
    bool FieldLength(Index& length);
    Outcome CallDll();
    bool DllValue(DataType& type);
    Outcome CallBack();
    bool CallBackType();

    // Blocks
    void LabelStatement();
    NameId LineNumber();
    Outcome If();
    Outcome Else(const Token& word);
    Outcome ElseIf(const Token& word);
    bool BeginElse(const Token& word);
    Outcome JumpOrStatement();
    void CloseIf();
    void CloseLineIfs();
    Outcome EndIf(const Token& word);
    Outcome For();
    bool ForHead();
    Outcome Next(const Token& word);
    Outcome While();
    Outcome Wend(const Token& word);
    Outcome Do();
    Outcome Loop(const Token& word);
    void EndLoop(StatementKind kind, std::uint8_t detail);
    bool ConditionPart(std::uint8_t& detail);
    Outcome Exit();
    Outcome Select();
    Outcome Case(const Token& word);
    Outcome EndSelect(const Token& word);
    Outcome End(const Token& word);
    Outcome RoutineStart(RoutineKind kind, const Token& word);
    bool RoutineHead(Routine& started);
    bool ParameterList(Routine& started);
    Outcome RoutineEnd(RoutineKind kind, const Token& word);
    void CloseRoutine();
    void FinishRoutine(const Token& place);
    void OpenBlock(BlockKind kind, Index statement, NameId name = cNames::NoName);
    bool FindOpen(BlockKind kind, const Token& word);
    Index InnermostOf(BlockKind kind) const;
    void PopBlock();
    void CloseBlocks(const Token& place);
    void ReportOpenBlock(const Block& block, const Token& place);
    void PatchExits(Index last, Index target);
    void Chain(Block& block, Index statement);
    static std::string_view CloserOf(BlockKind kind);
    static std::string_view OpenerOf(BlockKind kind);

    // Expressions
    bool Expression(Start start = Start::Operand);
    bool Value(Wanted wanted);
    bool Operand();
    bool Prefix();
    bool Leaf();
    void EmitNumber(double value);
    bool NameOperand(const Token& name);
    void StructOperand(const Token& name);
    void OpenCall(const Token& name);
    Follows Operator(Start start);
    void CloseParenthesis();
    void Reduce(std::uint8_t rank);
    void EmitOperator(const Pending& pending);

    Program& program;
    Parsed& parsed;
    ConstantLookup findConstant;
    cScanner scanner;
    Token token;
    std::vector<Block> blocks;
    std::array<Index, BlockKindCount> innermost; // by kind: the innermost block of it, NoIndex when there is none
    std::vector<Pending> pending;
    std::vector<Index> structs;     // by name
    std::vector<Index> fieldStruct; // by name: the last struct statement that has a field of it
    Index structCount = 0;          // struct statements so far
    Index routine = 0;              // the one that is being read
    Index statementNode = 0;
    std::size_t statementCheck = 0;
    Offset statementOffset = 0;
};

} // namespace ob::basic
