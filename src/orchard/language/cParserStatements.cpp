// SPDX-License-Identifier: GPL-3.0-or-later
// Statements of the language itself: assignments, calls, input and output, data, jumps, arrays.
#include "orchard/language/cParser.h"
#include "orchard/language/modReadErrors.h"

namespace ob::basic {

// Marks a variable, item or field, given by its node, as one that is set.
bool cParser::MakeTarget(Index node, const Token& place)
{
    Node& target = program.nodes[node];
    const bool isItem = target.kind == NodeKind::Item && target.count > 0;
    if (!isItem && target.kind != NodeKind::Variable && target.kind != NodeKind::Field) {
        ReportAt(place, "a variable");
        return false;
    }
    target.use = Use::Target;
    if (target.kind == NodeKind::Variable)
        MarkAssigned(target.a);
    return true;
}

// A variable, item or field that is set.
bool cParser::TargetOperand(Wanted wanted)
{
    const Token name = token;
    if (!Is(TokenKind::Name) || IsReserved(Meaning(name)) || IsStatementWord(Meaning(name)))
        return Fail("a variable");
    Advance();
    const bool isItem = Is(TokenKind::LeftParenthesis) && Meaning(name).kind != WordKind::StructPath;
    if (isItem)
        OpenCall(name);
    if (!(isItem ? Expression(Start::Item) : NameOperand(name)) || !MakeTarget(NodeCount() - 1, name))
        return false;
    parsed.checks.push_back({NodeCount() - 1, wanted});
    return true;
}

cParser::Outcome cParser::Targets(StatementKind kind, std::uint8_t detail)
{
    do {
        if (!TargetOperand(Wanted::Value))
            return Outcome::Failed;
    } while (Accept(TokenKind::Comma));
    Add(kind, detail);
    return Outcome::Complete;
}

// A statement that starts with a name.
cParser::Outcome cParser::NameStatement(const Token& word)
{
    if (Is(TokenKind::Equal) || Meaning(word).kind == WordKind::StructPath)
        return Assignment(word);
    if (!Is(TokenKind::LeftParenthesis))
        return CallArguments(word);
    if (Meaning(word).kind == WordKind::Function) {
        ReportAt(word, "a statement");
        return Outcome::Failed;
    }
    OpenCall(word);
    if (!Expression(Start::Item))
        return Outcome::Failed;
    return Is(TokenKind::Equal) ? AssignTo(word) : CallAfterParenthesis(word);
}

cParser::Outcome cParser::Assignment(const Token& name)
{
    NameOperand(name);
    return AssignTo(name);
}

// The target has been read.
cParser::Outcome cParser::AssignTo(const Token& name)
{
    if (!MakeTarget(NodeCount() - 1, name) || !Expect(TokenKind::Equal, "\"=\"") || !Expression())
        return Outcome::Failed;
    Add(StatementKind::Assign);
    return Outcome::Complete;
}

cParser::Outcome cParser::Let()
{
    const Token name = token;
    if (!Is(TokenKind::Name) || IsReserved(Meaning(name)))
        return Failed("a variable");
    Advance();
    if (!Is(TokenKind::LeftParenthesis) || Meaning(name).kind == WordKind::StructPath)
        return Assignment(name);
    OpenCall(name);
    return Expression(Start::Item) ? AssignTo(name) : Outcome::Failed;
}

cParser::Outcome cParser::CallSub()
{
    const Token name = token;
    if (!Is(TokenKind::Name) || IsReserved(Meaning(name)))
        return Failed("the name of a sub");
    Advance();
    if (!Is(TokenKind::LeftParenthesis))
        return CallArguments(name);
    OpenCall(name);
    return Expression(Start::Item) ? CallAfterParenthesis(name) : Outcome::Failed;
}

cParser::Outcome cParser::CallArguments(const Token& name)
{
    if (!AtStatementEnd()) {
        do {
            if (!Expression())
                return Outcome::Failed;
        } while (Accept(TokenKind::Comma));
    }
    AddNamed(StatementKind::Call, name.name, name.offset);
    return Outcome::Complete;
}

// After `name (a)`, which may be all arguments or the beginning of the first.
cParser::Outcome cParser::CallAfterParenthesis(const Token& name)
{
    const Index count = program.nodes.back().count;
    program.nodes.pop_back();
    if (count == 1 && !AtStatementEnd()) {
        if (!Expression(Start::Operator))
            return Outcome::Failed;
        if (Accept(TokenKind::Comma))
            return CallArguments(name);
    }
    AddNamed(StatementKind::Call, name.name, name.offset);
    return Outcome::Complete;
}

cParser::Outcome cParser::Print(StatementKind kind)
{
    if (kind == StatementKind::Print && (Is(TokenKind::Handle) || Is(TokenKind::HandleOf)))
        return PrintTo();
    if (!PrintItems())
        return Outcome::Failed;
    Add(kind);
    return Outcome::Complete;
}

cParser::Outcome cParser::PrintTo()
{
    HandleOperand();
    Accept(TokenKind::Comma);
    if (!PrintItems())
        return Outcome::Failed;
    Add(StatementKind::PrintTo);
    return Outcome::Complete;
}

bool cParser::PrintItems()
{
    bool isSeparated = true;
    while (!AtStatementEnd()) {
        if (Is(TokenKind::Semicolon) || Is(TokenKind::Comma)) {
            Emit(NodeKind::Separator, Type::None, Is(TokenKind::Comma), 0, token.offset);
            Advance();
            isSeparated = true;
        } else if (!isSeparated) {
            return Fail("\";\" or \",\" or the end of the statement");
        } else {
            if (!Value(Wanted::Value))
                return false;
            isSeparated = false;
        }
    }
    return true;
}

cParser::Outcome cParser::Input(StatementKind console, StatementKind file)
{
    if (Is(TokenKind::Handle) || Is(TokenKind::HandleOf)) {
        HandleOperand();
        if (!Expect(TokenKind::Comma, "\",\""))
            return Outcome::Failed;
        return Targets(file);
    }
    if (!Is(TokenKind::Text) && !Is(TokenKind::OpenText) && !IsPromptAhead())
        return Targets(console);
    if (!Value(Wanted::Text))
        return Outcome::Failed;
    if (!Accept(TokenKind::Semicolon) && !Expect(TokenKind::Comma, "\";\""))
        return Outcome::Failed;
    return Targets(console, HasPrompt);
}

// Whether a `;` follows in the statement: what is before it is a prompt. The token is looked at again.
bool cParser::IsPromptAhead()
{
    const Token first = token;
    while (!AtStatementEnd() && !Is(TokenKind::Semicolon))
        Advance();
    const bool isAhead = Is(TokenKind::Semicolon);
    scanner.MoveTo(first.offset);
    Advance();
    return isAhead;
}

cParser::Outcome cParser::Data()
{
    scanner.MoveTo(token.offset);
    if (!Is(TokenKind::EndOfLine) && !Is(TokenKind::Colon) && !Is(TokenKind::EndOfText)) {
        do {
            const Token item = scanner.DataItem();
            Advance();
            if (item.kind == TokenKind::OpenText)
                return Failed("the quote that ends the text");
            program.data.push_back({item.offset, item.length});
        } while (Is(TokenKind::Comma));
    } else {
        Advance();
    }
    if (!Is(TokenKind::EndOfLine) && !Is(TokenKind::Colon) && !Is(TokenKind::EndOfText))
        return Failed("\",\" or the end of the statement");
    Add(StatementKind::Data);
    return Outcome::Complete;
}

// A label or a line number as a name; NoName and an error when it is neither.
NameId cParser::LabelName()
{
    const NameId name = Is(TokenKind::Label) ? token.name : Is(TokenKind::Number) ? LineNumber() : cNames::NoName;
    if (name == cNames::NoName)
        Fail("a label");
    else
        Advance();
    return name;
}

// Adds a statement that goes to a label or sub.
void cParser::AddNamed(StatementKind kind, NameId name, Offset place)
{
    const Index statement = Add(kind);
    program.statements[statement].other = name;
    program.statements[statement].target = place;
}

cParser::Outcome cParser::Jump(StatementKind kind)
{
    const Offset place = token.offset;
    const NameId name = LabelName();
    if (name == cNames::NoName)
        return Outcome::Failed;
    AddNamed(kind, name, place);
    return Outcome::Complete;
}

cParser::Outcome cParser::Restore()
{
    if (!AtStatementEnd())
        return Jump(StatementKind::Restore);
    Add(StatementKind::Restore);
    return Outcome::Complete;
}

cParser::Outcome cParser::On()
{
    if (!IsNamed("error"))
        return Failed("\"error\"");
    Advance();
    if (!ExpectWord(Keyword::GoTo))
        return Outcome::Failed;
    if (!Is(TokenKind::Number) || token.number != 0)
        return Jump(StatementKind::OnError);
    Advance();
    Add(StatementKind::OnError);
    return Outcome::Complete;
}

cParser::Outcome cParser::Dim()
{
    do {
        const Token name = token;
        if (!Is(TokenKind::Name) || IsReserved(Meaning(name)) || IsStatementWord(Meaning(name)) ||
            Meaning(name).kind == WordKind::Function || Meaning(name).kind == WordKind::StructPath)
            return Failed("the name of an array");
        Advance();
        if (!Is(TokenKind::LeftParenthesis))
            return Failed("\"(\" and the size of the array");
        OpenCall(name);
        if (!Expression(Start::Item))
            return Outcome::Failed;
        Node& item = program.nodes.back();
        item.use = Use::Size;
        if (item.count == 0) {
            ReportAt(name, "an array with one or two sizes");
            return Outcome::Failed;
        }
    } while (Accept(TokenKind::Comma));
    Add(StatementKind::Dim);
    return Outcome::Complete;
}

cParser::Outcome cParser::Global()
{
    if (routine != 0)
        AddError(program, statementOffset, static_cast<Index>(WordOf(Keyword::Global).size()),
                 "a statement; \"global\" belongs into the main program");
    do {
        if (!Is(TokenKind::Name) || IsReserved(Meaning(token)) || IsStatementWord(Meaning(token)) ||
            Meaning(token).kind == WordKind::StructPath)
            return Failed("the name of a variable");
        program.globals.push_back({token.name, TypeOf(token.name), Scope::Global, 0});
        Advance();
    } while (Accept(TokenKind::Comma));
    Add(StatementKind::Global);
    return Outcome::Complete;
}

} // namespace ob::basic
