// SPDX-License-Identifier: GPL-3.0-or-later
// The parser's run over the statements, and what all of its parts share.
#include "orchard/language/cParser.h"

#include "orchard/language/modReadErrors.h"

#include <algorithm>

namespace ob::basic {

cParser::cParser(Program& target, Parsed& result, ConstantLookup lookup)
    : program(target), parsed(result), findConstant(lookup), scanner(*target.source, target.names)
{
    innermost.fill(NoIndex);
}

bool cParser::IsWord(Keyword keyword) const
{
    return Is(TokenKind::Name) && Meaning(token).Is(keyword);
}

// Whether the token is a word that the language reserves nowhere, in any case.
bool cParser::IsNamed(std::string_view word) const
{
    return Is(TokenKind::Name) && std::ranges::equal(scanner.TextOf(token), word, [](char a, char b) {
               return (a >= 'A' && a <= 'Z' ? a | 0x20 : a) == b;
           });
}

bool cParser::Accept(TokenKind kind)
{
    if (!Is(kind))
        return false;
    Advance();
    return true;
}

bool cParser::AcceptWord(Keyword keyword)
{
    if (!IsWord(keyword))
        return false;
    Advance();
    return true;
}

bool cParser::Expect(TokenKind kind, std::string_view expected)
{
    return Accept(kind) || Fail(expected);
}

bool cParser::ExpectWord(Keyword keyword)
{
    return AcceptWord(keyword) || Fail('"' + std::string(WordOf(keyword)) + '"');
}

bool cParser::AtStatementEnd() const
{
    return Is(TokenKind::EndOfLine) || Is(TokenKind::Colon) || Is(TokenKind::EndOfText) || IsWord(Keyword::Else) ||
           IsWord(Keyword::ElseIf);
}

// The words that only go on with a statement are never names.
bool cParser::IsReserved(WordMeaning meaning)
{
    return meaning.kind == WordKind::Keyword && meaning.number >= static_cast<std::uint8_t>(Keyword::And);
}

bool cParser::IsStatementWord(WordMeaning meaning)
{
    return meaning.kind == WordKind::Command || (meaning.kind == WordKind::Keyword && !IsReserved(meaning));
}

void cParser::ReportAt(const Token& place, std::string_view expected)
{
    AddError(program, place.offset, place.length, expected);
}

bool cParser::Fail(std::string_view expected)
{
    ReportAt(token, expected);
    return false;
}

cParser::Outcome cParser::Failed(std::string_view expected)
{
    Fail(expected);
    return Outcome::Failed;
}

void cParser::DropOperands()
{
    program.nodes.resize(statementNode);
    parsed.checks.resize(statementCheck);
    while (!parsed.enclosed.empty() && parsed.enclosed.back() >= statementNode)
        parsed.enclosed.pop_back();
}

// Drops what the statement has so far and moves to where the next one may start.
void cParser::Recover()
{
    DropOperands();
    while (!AtStatementEnd())
        Advance();
}

void cParser::MarkAssigned(NameId name)
{
    if (name >= parsed.isAssigned.size())
        parsed.isAssigned.resize(program.names.Count());
    parsed.isAssigned[name] = true;
}

void cParser::BeginStatement(Offset offset)
{
    statementNode = NodeCount();
    statementCheck = parsed.checks.size();
    statementOffset = offset;
}

// Adds a statement whose operands are the nodes since the last one.
Index cParser::Add(StatementKind kind, std::uint8_t detail)
{
    program.statements.push_back({kind, detail, statementNode, NodeCount(), NoIndex, NoIndex, statementOffset});
    statementNode = NodeCount();
    statementCheck = parsed.checks.size();
    return Here() - 1;
}

void cParser::Run()
{
    program.routines.push_back({});
    program.routines[0].name = cNames::NoName;
    Advance();
    bool isLineStart = true;
    while (!Is(TokenKind::EndOfText)) {
        if (isLineStart && Is(TokenKind::Number))
            LabelStatement();
        isLineStart = Is(TokenKind::EndOfLine);
        if (isLineStart)
            CloseLineIfs();
        if (isLineStart || Is(TokenKind::Colon))
            Advance();
        else
            Statement();
    }
    CloseLineIfs();
    FinishRoutine(token);
    BeginStatement(token.offset);
    Add(StatementKind::EndOfText);
    program.routines[0].endStatement = Here();
}

void cParser::RunExpression()
{
    program.routines.push_back({});
    program.routines[0].name = cNames::NoName;
    Advance();
    BeginStatement(0);
    if (Value(Wanted::Value) && !Is(TokenKind::EndOfText))
        Fail("the end of the expression");
    Add(StatementKind::Print);
}

void cParser::Statement()
{
    BeginStatement(token.offset);
    Outcome outcome = Outcome::Failed;
    switch (token.kind) {
    case TokenKind::EndOfText: // after a label in the last line
        return;
    case TokenKind::Label:
        LabelStatement();
        return;
    case TokenKind::Name:
        outcome = WordStatement();
        break;
    case TokenKind::Handle:
    case TokenKind::HandleOf:
        outcome = PrintTo();
        break;
    default:
        Fail("a statement");
        break;
    }
    if (outcome == Outcome::Complete && !AtStatementEnd())
        outcome = Failed("the end of the statement");
    if (outcome == Outcome::Failed)
        Recover();
}

cParser::Outcome cParser::WordStatement()
{
    const Token word = token;
    const WordMeaning meaning = Meaning(word);
    if (meaning.Is(Keyword::Rem))
        return Comment(word);
    Advance();
    if (IsReserved(meaning)) {
        ReportAt(word, "a statement");
        return Outcome::Failed;
    }
    if (!IsStatementWord(meaning))
        return NameStatement(word);
    if (Is(TokenKind::Equal))
        return Assignment(word);
    if (meaning.kind == WordKind::Command)
        return LibraryStatement(static_cast<Command>(meaning.number));
    return KeywordStatement(static_cast<Keyword>(meaning.number), word);
}

// The statements that make blocks; the others are in OtherKeyword.
cParser::Outcome cParser::KeywordStatement(Keyword keyword, const Token& word)
{
    switch (keyword) {
    case Keyword::If:
        return If();
    case Keyword::Else:
        return Else(word);
    case Keyword::ElseIf:
        return ElseIf(word);
    case Keyword::EndIf:
        return EndIf(word);
    case Keyword::For:
        return For();
    case Keyword::Next:
        return Next(word);
    case Keyword::While:
        return While();
    case Keyword::Wend:
        return Wend(word);
    case Keyword::Do:
        return Do();
    case Keyword::Loop:
        return Loop(word);
    case Keyword::Exit:
        return Exit();
    case Keyword::Select:
        return Select();
    case Keyword::Case:
        return Case(word);
    case Keyword::Sub:
        return RoutineStart(RoutineKind::Sub, word);
    case Keyword::Function:
        return RoutineStart(RoutineKind::Function, word);
    case Keyword::End:
        return End(word);
    default:
        return OtherKeyword(keyword, word);
    }
}

cParser::Outcome cParser::OtherKeyword(Keyword keyword, const Token& word)
{
    switch (keyword) {
    case Keyword::Call:
        return CallSub();
    case Keyword::CallBack:
        return CallBack();
    case Keyword::CallDll:
        return CallDll();
    case Keyword::Data:
        return Data();
    case Keyword::Dim:
    case Keyword::ReDim:
        return Dim();
    case Keyword::Global:
        return Global();
    case Keyword::GoSub:
        return Jump(StatementKind::Gosub);
    case Keyword::GoTo:
        return Jump(StatementKind::Goto);
    case Keyword::Input:
        return Input(StatementKind::Input, StatementKind::InputFrom);
    case Keyword::Let:
        return Let();
    case Keyword::Line:
        return ExpectWord(Keyword::Input) ? Input(StatementKind::LineInput, StatementKind::LineInputFrom)
                                          : Outcome::Failed;
    case Keyword::LPrint:
        return Print(StatementKind::PrintPrinter);
    case Keyword::On:
        return On();
    case Keyword::Open:
        return Open();
    case Keyword::Print:
        return Print(StatementKind::Print);
    case Keyword::Read:
        return Targets(StatementKind::Read);
    case Keyword::Restore:
        return Restore();
    case Keyword::Resume:
        Add(StatementKind::Resume);
        return Outcome::Complete;
    case Keyword::Return:
        Add(StatementKind::Return);
        return Outcome::Complete;
    case Keyword::Stop:
        Add(StatementKind::End);
        return Outcome::Complete;
    case Keyword::Struct:
        return Struct();
    default:
        ReportAt(word, "a statement");
        return Outcome::Failed;
    }
}

cParser::Outcome cParser::Comment(const Token& word)
{
    scanner.MoveTo(word.offset + word.length);
    scanner.SkipLine();
    Advance();
    return Outcome::Complete;
}

} // namespace ob::basic
