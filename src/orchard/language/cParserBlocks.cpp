// SPDX-License-Identifier: GPL-3.0-or-later
// Blocks, routines and labels: the open ones are on a stack, and their statements are joined as the closing ones come.
#include "orchard/language/cParser.h"
#include "orchard/language/modReadErrors.h"

#include <algorithm>
#include <string>

namespace ob::basic {

std::string_view cParser::CloserOf(BlockKind kind)
{
    switch (kind) {
    case BlockKind::LineIf:
    case BlockKind::If:
        return "end if";
    case BlockKind::For:
        return "next";
    case BlockKind::While:
        return "wend";
    case BlockKind::Do:
        return "loop";
    case BlockKind::Select:
        return "end select";
    }
    return {};
}

std::string_view cParser::OpenerOf(BlockKind kind)
{
    switch (kind) {
    case BlockKind::LineIf:
    case BlockKind::If:
        return "if";
    case BlockKind::For:
        return "for";
    case BlockKind::While:
        return "while";
    case BlockKind::Do:
        return "do";
    case BlockKind::Select:
        return "select case";
    }
    return {};
}

// Ifs of a line count as ifs.
Index cParser::InnermostOf(BlockKind kind) const
{
    const Index block = innermost[static_cast<std::size_t>(kind)];
    if (kind != BlockKind::If)
        return block;
    const Index ofLine = innermost[static_cast<std::size_t>(BlockKind::LineIf)];
    return block == NoIndex || (ofLine != NoIndex && ofLine > block) ? ofLine : block;
}

void cParser::OpenBlock(BlockKind kind, Index statement, NameId name)
{
    Index& inner = innermost[static_cast<std::size_t>(kind)];
    blocks.push_back({kind, false, statement, NoIndex, NoIndex, inner, name, statementOffset});
    inner = static_cast<Index>(blocks.size() - 1);
}

void cParser::PopBlock()
{
    innermost[static_cast<std::size_t>(blocks.back().kind)] = blocks.back().outer;
    blocks.pop_back();
}

// Notes a statement that goes on where the block ends.
void cParser::Chain(Block& block, Index statement)
{
    program.statements[statement].target = block.lastExit;
    block.lastExit = statement;
}

void cParser::PatchExits(Index last, Index target)
{
    while (last != NoIndex) {
        const Index before = program.statements[last].target;
        program.statements[last].target = target;
        last = before;
    }
}

void cParser::ReportOpenBlock(const Block& block, const Token& place)
{
    ReportAt(place, '"' + std::string(CloserOf(block.kind)) + "\" for the \"" + std::string(OpenerOf(block.kind)) +
                        "\" of " + LineName(program, block.offset));
}

// Closes all blocks where none may be open.
void cParser::CloseBlocks(const Token& place)
{
    for (; !blocks.empty(); PopBlock())
        ReportOpenBlock(blocks.back(), place);
}

// Makes the innermost block one of the kind. Blocks that are still open inside it are an error, and none at all.
bool cParser::FindOpen(BlockKind kind, const Token& word)
{
    const Index found = InnermostOf(kind);
    if (found == NoIndex) {
        ReportAt(word, '"' + std::string(OpenerOf(kind)) + "\" before it");
        return false;
    }
    if (found + 1 < blocks.size())
        ReportOpenBlock(blocks.back(), word);
    while (found + 1 < blocks.size())
        PopBlock();
    return true;
}

void cParser::LabelStatement()
{
    BeginStatement(token.offset);
    NameId name = token.name;
    if (Is(TokenKind::Number)) {
        name = LineNumber();
        if (name == cNames::NoName) {
            Fail("a whole number or a statement");
            Recover();
            return;
        }
    }
    const Index label = static_cast<Index>(program.labels.size());
    program.labels.push_back({name, routine, Here(), static_cast<Index>(program.data.size())});
    Advance();
    program.statements[Add(StatementKind::Label)].other = label;
}

// The name of the whole number that is the token; NoName when it is none. Zeros in front do not count.
NameId cParser::LineNumber()
{
    std::string_view digits = scanner.TextOf(token);
    if (!std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; }))
        return cNames::NoName;
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size() - 1));
    return program.names.Intern(digits);
}

cParser::Outcome cParser::If()
{
    bool isRight = Value(Wanted::Number);
    const bool endsHere = Is(TokenKind::EndOfLine) || Is(TokenKind::EndOfText);
    if (isRight && !IsWord(Keyword::Then))
        isRight = Fail("\"then\"");
    if (!isRight) {
        DropOperands();
        while (!IsWord(Keyword::Then) && !Is(TokenKind::EndOfLine) && !Is(TokenKind::EndOfText))
            Advance();
    }
    const bool hasThen = AcceptWord(Keyword::Then);
    const bool isBlock =
        hasThen ? Is(TokenKind::EndOfLine) || Is(TokenKind::EndOfText) || Is(TokenKind::Colon) || IsWord(Keyword::Rem)
                : endsHere;
    const Index statement = Add(StatementKind::If);
    OpenBlock(isBlock ? BlockKind::If : BlockKind::LineIf, statement);
    blocks.back().waiting = statement;
    return JumpOrStatement();
}

// After then and else: a label or a line number is a jump.
cParser::Outcome cParser::JumpOrStatement()
{
    if (!Is(TokenKind::Label) && !Is(TokenKind::Number))
        return Outcome::Open;
    BeginStatement(token.offset);
    return Jump(StatementKind::Goto);
}

// The end of the part before an else. Ifs of the line that have their else are over.
bool cParser::BeginElse(const Token& word)
{
    while (!blocks.empty() && blocks.back().kind == BlockKind::LineIf && blocks.back().hasElse)
        CloseIf();
    if (!FindOpen(BlockKind::If, word))
        return false;
    Block& block = blocks.back();
    if (block.hasElse) {
        ReportAt(word, "\"end if\", as this \"if\" has its \"else\"");
        return false;
    }
    Chain(block, Add(StatementKind::Else));
    program.statements[block.waiting].target = Here();
    return true;
}

cParser::Outcome cParser::Else(const Token& word)
{
    if (!BeginElse(word))
        return Outcome::Failed;
    blocks.back().hasElse = true;
    blocks.back().waiting = NoIndex;
    return JumpOrStatement();
}

cParser::Outcome cParser::ElseIf(const Token& word)
{
    if (!BeginElse(word))
        return Outcome::Failed;
    BeginStatement(word.offset);
    const bool isRight = Value(Wanted::Number) && ExpectWord(Keyword::Then);
    if (!isRight)
        DropOperands();
    blocks.back().waiting = Add(StatementKind::If);
    return isRight ? JumpOrStatement() : Outcome::Failed;
}

void cParser::CloseIf()
{
    BeginStatement(token.offset);
    const Index end = Add(StatementKind::EndIf);
    if (blocks.back().waiting != NoIndex)
        program.statements[blocks.back().waiting].target = end;
    PatchExits(blocks.back().lastExit, end);
    PopBlock();
}

// The end of a line ends the ifs of the line.
void cParser::CloseLineIfs()
{
    while (!blocks.empty() && blocks.back().kind == BlockKind::LineIf)
        CloseIf();
}

cParser::Outcome cParser::EndIf(const Token& word)
{
    if (!FindOpen(BlockKind::If, word))
        return Outcome::Failed;
    CloseIf();
    return Outcome::Complete;
}

cParser::Outcome cParser::For()
{
    const Token name = token;
    const bool isRight = ForHead();
    if (!isRight)
        DropOperands();
    OpenBlock(BlockKind::For, Add(StatementKind::For), name.kind == TokenKind::Name ? name.name : cNames::NoName);
    return isRight ? Outcome::Complete : Outcome::Failed;
}

bool cParser::ForHead()
{
    const Token name = token;
    if (!Is(TokenKind::Name) || IsReserved(Meaning(name)) || Meaning(name).kind == WordKind::StructPath)
        return Fail("a variable");
    Advance();
    NameOperand(name);
    if (!MakeTarget(NodeCount() - 1, name) || !Expect(TokenKind::Equal, "\"=\""))
        return false;
    if (!Value(Wanted::Number) || !ExpectWord(Keyword::To) || !Value(Wanted::Number))
        return false;
    return !AcceptWord(Keyword::Step) || Value(Wanted::Number);
}

cParser::Outcome cParser::Next(const Token& word)
{
    if (!FindOpen(BlockKind::For, word))
        return Outcome::Failed;
    const NameId name = blocks.back().name;
    if (!AtStatementEnd() && name != cNames::NoName) {
        if (!Is(TokenKind::Name) || token.name != name)
            Fail('"' + std::string(Spelling(name)) + "\", the variable of the \"for\" of " +
                 LineName(program, blocks.back().offset));
        Advance();
    }
    EndLoop(StatementKind::Next, 0);
    return Outcome::Complete;
}

// Adds the statement that ends the innermost loop and joins the two.
void cParser::EndLoop(StatementKind kind, std::uint8_t detail)
{
    const Index end = Add(kind, detail);
    program.statements[end].target = blocks.back().statement;
    program.statements[blocks.back().statement].target = end + 1;
    PatchExits(blocks.back().lastExit, end + 1);
    PopBlock();
}

cParser::Outcome cParser::While()
{
    const bool isRight = Value(Wanted::Number);
    if (!isRight)
        DropOperands();
    OpenBlock(BlockKind::While, Add(StatementKind::While));
    return isRight ? Outcome::Complete : Outcome::Failed;
}

cParser::Outcome cParser::Wend(const Token& word)
{
    if (!FindOpen(BlockKind::While, word))
        return Outcome::Failed;
    EndLoop(StatementKind::Wend, 0);
    return Outcome::Complete;
}

// The condition of do and loop, where there is one.
bool cParser::ConditionPart(std::uint8_t& detail)
{
    detail = static_cast<std::uint8_t>(IsWord(Keyword::While)   ? Condition::While
                                       : IsWord(Keyword::Until) ? Condition::Until
                                                                : Condition::None);
    if (detail == static_cast<std::uint8_t>(Condition::None))
        return true;
    Advance();
    if (Value(Wanted::Number))
        return true;
    DropOperands();
    return false;
}

cParser::Outcome cParser::Do()
{
    std::uint8_t detail = 0;
    const bool isRight = ConditionPart(detail);
    OpenBlock(BlockKind::Do, Add(StatementKind::Do, detail));
    return isRight ? Outcome::Complete : Outcome::Failed;
}

cParser::Outcome cParser::Loop(const Token& word)
{
    std::uint8_t detail = 0;
    const bool isRight = ConditionPart(detail);
    if (!FindOpen(BlockKind::Do, word))
        return Outcome::Failed;
    EndLoop(StatementKind::Loop, detail);
    return isRight ? Outcome::Complete : Outcome::Failed;
}

cParser::Outcome cParser::Exit()
{
    const bool isSub = IsWord(Keyword::Sub);
    if (isSub || IsWord(Keyword::Function)) {
        if (program.routines[routine].kind != (isSub ? RoutineKind::Sub : RoutineKind::Function))
            return Failed(isSub ? "a sub around it" : "a function around it");
        Add(StatementKind::ExitRoutine);
        Advance();
        return Outcome::Complete;
    }
    const bool isFor = IsWord(Keyword::For);
    if (!isFor && !IsWord(Keyword::While) && !IsWord(Keyword::Do))
        return Failed("\"for\", \"while\", \"do\", \"sub\" or \"function\"");
    const BlockKind kind = isFor ? BlockKind::For : IsWord(Keyword::While) ? BlockKind::While : BlockKind::Do;
    const Index block = InnermostOf(kind);
    if (block == NoIndex)
        return Failed("a \"" + std::string(OpenerOf(kind)) + "\" around it");
    Chain(blocks[block], Add(StatementKind::Exit));
    Advance();
    return Outcome::Complete;
}

cParser::Outcome cParser::Select()
{
    bool isRight = AcceptWord(Keyword::Case) || Fail("\"case\"");
    if (isRight && !AtStatementEnd())
        isRight = Value(Wanted::Value);
    if (!isRight)
        DropOperands();
    const Index statement = Add(StatementKind::Select);
    OpenBlock(BlockKind::Select, statement);
    blocks.back().waiting = statement;
    return isRight ? Outcome::Complete : Outcome::Failed;
}

cParser::Outcome cParser::Case(const Token& word)
{
    if (!FindOpen(BlockKind::Select, word))
        return Outcome::Failed;
    Block& block = blocks.back();
    if (block.hasElse) {
        ReportAt(word, "\"end select\" after \"case else\"");
        return Outcome::Failed;
    }
    if (block.waiting != block.statement)
        Chain(block, Add(StatementKind::EndCase));
    program.statements[block.waiting].target = Here();
    BeginStatement(word.offset);
    block.hasElse = IsWord(Keyword::Else);
    if (AcceptWord(Keyword::Else)) {
        block.waiting = NoIndex;
        Add(StatementKind::CaseElse);
        return Outcome::Open;
    }
    bool isRight = Value(Wanted::Value);
    while (isRight && Accept(TokenKind::Comma))
        isRight = Value(Wanted::Value);
    if (!isRight)
        DropOperands();
    block.waiting = Add(StatementKind::Case);
    program.statements[block.waiting].other = block.statement;
    return isRight ? Outcome::Complete : Outcome::Failed;
}

cParser::Outcome cParser::EndSelect(const Token& word)
{
    if (!FindOpen(BlockKind::Select, word))
        return Outcome::Failed;
    const Index end = Add(StatementKind::EndSelect);
    if (blocks.back().waiting != NoIndex)
        program.statements[blocks.back().waiting].target = end;
    PatchExits(blocks.back().lastExit, end);
    PopBlock();
    return Outcome::Complete;
}

// `end` alone, or what it ends.
cParser::Outcome cParser::End(const Token& word)
{
    const Token ended = token;
    if (AcceptWord(Keyword::If))
        return EndIf(word);
    if (AcceptWord(Keyword::Select))
        return EndSelect(word);
    if (AcceptWord(Keyword::Sub))
        return RoutineEnd(RoutineKind::Sub, ended);
    if (AcceptWord(Keyword::Function))
        return RoutineEnd(RoutineKind::Function, ended);
    Add(StatementKind::End);
    return Outcome::Complete;
}

// Ends the routine that is being read where it has to be over.
void cParser::FinishRoutine(const Token& place)
{
    CloseBlocks(place);
    if (routine == 0)
        return;
    const bool isSub = program.routines[routine].kind == RoutineKind::Sub;
    ReportAt(place, (isSub ? "\"end sub\" for the \"sub\" of " : "\"end function\" for the \"function\" of ") +
                        LineName(program, program.routines[routine].offset));
    CloseRoutine();
}

void cParser::CloseRoutine()
{
    const Index end = Add(StatementKind::RoutineEnd);
    program.statements[end].other = routine;
    program.statements[program.routines[routine].firstStatement].target = end + 1;
    program.routines[routine].endStatement = end + 1;
    routine = 0;
}

cParser::Outcome cParser::RoutineStart(RoutineKind kind, const Token& word)
{
    FinishRoutine(word);
    BeginStatement(word.offset);
    Routine started{};
    started.name = cNames::NoName;
    started.kind = kind;
    started.offset = token.offset;
    started.firstStatement = Here();
    started.firstParameter = static_cast<Index>(program.parameters.size());
    const bool isRight = RoutineHead(started);
    routine = static_cast<Index>(program.routines.size());
    program.routines.push_back(started);
    program.statements[Add(StatementKind::RoutineStart)].other = routine;
    return isRight ? Outcome::Complete : Outcome::Failed;
}

bool cParser::RoutineHead(Routine& started)
{
    const bool isFunction = started.kind == RoutineKind::Function;
    if (!Is(TokenKind::Name) || IsReserved(Meaning(token)) || IsStatementWord(Meaning(token)) ||
        Meaning(token).kind == WordKind::StructPath || (isFunction && Meaning(token).kind == WordKind::Function))
        return Fail(isFunction ? "the name of a new function" : "the name of a new sub");
    started.name = token.name;
    started.type = isFunction ? TypeOf(token.name) : Type::None;
    Advance();
    const bool isEnclosed = Accept(TokenKind::LeftParenthesis);
    const bool hasParameters = isEnclosed ? !Is(TokenKind::RightParenthesis) : !AtStatementEnd();
    if (hasParameters && !ParameterList(started))
        return false;
    return !isEnclosed || Expect(TokenKind::RightParenthesis, "\",\" or \")\"");
}

bool cParser::ParameterList(Routine& started)
{
    do {
        const bool byRef = AcceptWord(Keyword::ByRef);
        if (!Is(TokenKind::Name) || IsReserved(Meaning(token)) || IsStatementWord(Meaning(token)) ||
            Meaning(token).kind == WordKind::StructPath)
            return Fail("the name of a parameter");
        program.parameters.push_back({token.name, TypeOf(token.name), byRef, 0, token.offset});
        MarkAssigned(token.name);
        ++started.parameterCount;
        Advance();
    } while (Accept(TokenKind::Comma));
    return true;
}

cParser::Outcome cParser::RoutineEnd(RoutineKind kind, const Token& word)
{
    const bool isSub = kind == RoutineKind::Sub;
    if (routine == 0) {
        ReportAt(word, isSub ? "a \"sub\" before it" : "a \"function\" before it");
        return Outcome::Failed;
    }
    CloseBlocks(word);
    if (program.routines[routine].kind != kind)
        ReportAt(word, isSub ? "\"function\"" : "\"sub\"");
    CloseRoutine();
    return Outcome::Complete;
}

} // namespace ob::basic
