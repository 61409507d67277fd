// SPDX-License-Identifier: GPL-3.0-or-later
// Expressions: operators and open parentheses wait on a stack until what they apply to has been read.
#include "orchard/language/cParser.h"
#include "orchard/language/modReadErrors.h"

#include <cmath>

namespace ob::basic {

namespace {

// How tight operators bind. A minus after ^ covers the next operand alone.
constexpr std::uint8_t RankOr = 1;
constexpr std::uint8_t RankXor = 2;
constexpr std::uint8_t RankAnd = 3;
constexpr std::uint8_t RankNot = 4;
constexpr std::uint8_t RankComparison = 5;
constexpr std::uint8_t RankSum = 6;
constexpr std::uint8_t RankProduct = 7;
constexpr std::uint8_t RankMinus = 8;
constexpr std::uint8_t RankPower = 9;
constexpr std::uint8_t RankMinusInPower = 10;

struct BinaryOperator {
    NodeKind node = NodeKind::Number; // Number when the token is none
    std::uint8_t rank = 0;
};

BinaryOperator OperatorOf(WordMeaning word)
{
    if (word.Is(Keyword::And))
        return {NodeKind::And, RankAnd};
    if (word.Is(Keyword::Or))
        return {NodeKind::Or, RankOr};
    if (word.Is(Keyword::Mod))
        return {NodeKind::Mod, RankProduct};
    if (word.Is(Keyword::Xor))
        return {NodeKind::Xor, RankXor};
    return {};
}

BinaryOperator OperatorOf(TokenKind kind)
{
    switch (kind) {
    case TokenKind::Plus:
        return {NodeKind::Add, RankSum};
    case TokenKind::Minus:
        return {NodeKind::Subtract, RankSum};
    case TokenKind::Star:
        return {NodeKind::Multiply, RankProduct};
    case TokenKind::Slash:
        return {NodeKind::Divide, RankProduct};
    case TokenKind::Caret:
        return {NodeKind::Power, RankPower};
    case TokenKind::Equal:
        return {NodeKind::Equal, RankComparison};
    case TokenKind::NotEqual:
        return {NodeKind::NotEqual, RankComparison};
    case TokenKind::Less:
        return {NodeKind::Less, RankComparison};
    case TokenKind::Greater:
        return {NodeKind::Greater, RankComparison};
    case TokenKind::LessEqual:
        return {NodeKind::LessEqual, RankComparison};
    case TokenKind::GreaterEqual:
        return {NodeKind::GreaterEqual, RankComparison};
    default:
        return {};
    }
}

} // namespace

Index cParser::Emit(NodeKind kind, Type type, Index a, Index b, Offset offset)
{
    const Index node = NodeCount();
    program.nodes.push_back({kind, type, Scope::Local, Use::Value, 0, node, a, b, offset});
    return node;
}

void cParser::EmitOver(NodeKind kind, Type type, Index count, Index first, Index a, Offset offset)
{
    program.nodes.push_back({kind, type, Scope::Local, Use::Value, count, first, a, NoIndex, offset});
}

// Reads an expression up to the token that cannot belong to it. With Start::Operator its first operand has been read;
// with Start::Item it is over after the parenthesis that closes its first operand.
bool cParser::Expression(Start start)
{
    Follows follows = Follows::Nothing;
    if (start == Start::Operator || (start == Start::Item && Is(TokenKind::RightParenthesis)) || Operand())
        follows = Operator(start);
    while (follows == Follows::Operand && Operand())
        follows = Operator(start);
    pending.clear();
    return follows == Follows::End;
}

bool cParser::Value(Wanted wanted)
{
    if (!Expression())
        return false;
    parsed.checks.push_back({NodeCount() - 1, wanted});
    return true;
}

// Reads one operand with the signs, parentheses and calls that open in front of it. A call without arguments is an
// operand whose closing parenthesis is still to come.
bool cParser::Operand()
{
    for (;;) {
        if (Prefix())
            continue;
        if (!Is(TokenKind::Name) || IsReserved(Meaning(token)))
            return Leaf();
        const Token name = token;
        Advance();
        if (!Is(TokenKind::LeftParenthesis) || Meaning(name).kind == WordKind::StructPath)
            return NameOperand(name);
        if (IsStatementWord(Meaning(name))) {
            ReportAt(name, "a value");
            return false;
        }
        OpenCall(name);
        if (Is(TokenKind::RightParenthesis))
            return true;
    }
}

// Takes a sign, `not` or a parenthesis.
bool cParser::Prefix()
{
    const Offset place = token.offset;
    if (Is(TokenKind::LeftParenthesis)) {
        pending.push_back({PendingKind::Group, 0, NodeKind::Number, NodeCount(), 0, 0, place});
    } else if (Is(TokenKind::Minus)) {
        const bool isInPower =
            !pending.empty() && pending.back().kind == PendingKind::Operator && pending.back().rank >= RankPower;
        const std::uint8_t rank = isInPower ? RankMinusInPower : RankMinus;
        pending.push_back({PendingKind::Operator, rank, NodeKind::Negate, 0, 1, 0, place});
    } else if (IsWord(Keyword::Not)) {
        pending.push_back({PendingKind::Operator, RankNot, NodeKind::Not, 0, 1, 0, place});
    } else {
        return false;
    }
    Advance();
    return true;
}

// An operand that is a token of its own.
bool cParser::Leaf()
{
    switch (token.kind) {
    case TokenKind::Number:
        if (!std::isfinite(token.number))
            return Fail("a number that is not so large");
        EmitNumber(token.number);
        break;
    case TokenKind::Text:
        Emit(NodeKind::Text, Type::Text, token.offset + 1, token.length - 2, token.offset);
        break;
    case TokenKind::OpenText:
        token.offset += token.length;
        token.length = 0;
        return Fail("the quote that ends the text");
    case TokenKind::Constant: {
        double value = 0;
        if (findConstant && !findConstant(Spelling(token.name), value))
            ReportAt(token, "a constant of the system's interfaces");
        EmitNumber(value);
        break;
    }
    case TokenKind::Handle:
    case TokenKind::HandleOf:
        return HandleOperand();
    default:
        return Fail("a value");
    }
    Advance();
    return true;
}

void cParser::EmitNumber(double value)
{
    Emit(NodeKind::Number, Type::Number, static_cast<Index>(program.numbers.size()), 0, token.offset);
    program.numbers.push_back(value);
}

bool cParser::NameOperand(const Token& name)
{
    if (Meaning(name).kind == WordKind::StructPath)
        StructOperand(name);
    else
        Emit(NodeKind::Variable, TypeOf(name.name), name.name, 0, name.offset);
    return true;
}

// A function or an array's item, whose arguments follow.
void cParser::OpenCall(const Token& name)
{
    const bool isBuiltin = Meaning(name).kind == WordKind::Function;
    pending.push_back({isBuiltin ? PendingKind::Builtin : PendingKind::Call, 0, NodeKind::Item, NodeCount(), 0,
                       isBuiltin ? Meaning(name).number : name.name, name.offset});
    Advance();
}

// name.struct or name.field.struct. Names have points too: the field is what follows the last one.
void cParser::StructOperand(const Token& name)
{
    constexpr std::size_t suffix = std::string_view(".struct").size();
    std::string_view path = Spelling(name.name);
    path.remove_suffix(suffix);
    const std::size_t point = path.rfind('.');
    if (point == std::string_view::npos || point == 0 || point + 1 == path.size()) {
        Emit(NodeKind::Struct, Type::None, program.names.Intern(path), 0, name.offset);
        return;
    }
    const NameId structure = program.names.Intern(path.substr(0, point));
    Emit(NodeKind::Field, Type::Number, structure, program.names.Intern(path.substr(point + 1)), name.offset);
}

// Takes what may follow an operand: closing parentheses, then an operator or the comma of a call, after which an
// operand follows.
cParser::Follows cParser::Operator(Start start)
{
    for (;;) {
        const BinaryOperator sign = Is(TokenKind::Name) ? OperatorOf(Meaning(token)) : OperatorOf(token.kind);
        Reduce(sign.rank);
        if (sign.rank > 0) {
            pending.push_back({PendingKind::Operator, sign.rank, sign.node, 0, 2, 0, token.offset});
            Advance();
            return Follows::Operand;
        }
        if (pending.empty())
            return Follows::End;
        if (Is(TokenKind::Comma) && pending.back().kind != PendingKind::Group) {
            ++pending.back().count;
            Advance();
            return Follows::Operand;
        }
        if (!Is(TokenKind::RightParenthesis)) {
            Fail(pending.back().kind == PendingKind::Group ? "\")\"" : "\",\" or \")\"");
            return Follows::Nothing;
        }
        Advance();
        CloseParenthesis();
        if (start == Start::Item && pending.empty())
            return Follows::End;
    }
}

void cParser::CloseParenthesis()
{
    const Pending call = pending.back();
    pending.pop_back();
    if (call.kind == PendingKind::Group)
        parsed.enclosed.push_back(NodeCount() - 1);
    const Index count = call.first == NodeCount() ? 0 : call.count + 1;
    if (call.kind == PendingKind::Builtin)
        EmitOver(NodeKind::Builtin, RowOf(static_cast<Function>(call.name)).type, count, call.first, call.name,
                 call.offset);
    else if (call.kind == PendingKind::Call)
        EmitOver(NodeKind::Item, TypeOf(call.name), count, call.first, call.name, call.offset);
}

// Applies the waiting operators that bind at least as tight as the rank, up to an open parenthesis.
void cParser::Reduce(std::uint8_t rank)
{
    while (!pending.empty() && pending.back().kind == PendingKind::Operator && pending.back().rank >= rank) {
        EmitOperator(pending.back());
        pending.pop_back();
    }
}

void cParser::EmitOperator(const Pending& sign)
{
    const Index right = NodeCount() - 1;
    Index first = program.nodes[right].first;
    if (sign.count == 2)
        first = program.nodes[first - 1].first;
    EmitOver(sign.node, Type::Number, sign.count, first, 0, sign.offset);
}

} // namespace ob::basic
