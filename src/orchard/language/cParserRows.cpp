// SPDX-License-Identifier: GPL-3.0-or-later
// Statements with fixed arguments, read by their rows, and those that speak with the system: open, struct, calldll.
#include "orchard/language/cParser.h"
#include "orchard/language/modReadErrors.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace ob::basic {

namespace {

struct DataTypeRow {
    std::string_view word;
    Index size; // in bytes; 0 when it goes by the declaration, or none
};

// In the order of DataType.
constexpr DataTypeRow DataTypes[] = {
    {"boolean", 4}, {"char", 0},   {"double", 8}, {"dword", 4},  {"long", 4}, {"ptr", 4},
    {"short", 2},   {"struct", 4}, {"ulong", 4},  {"ushort", 2}, {"void", 0}, {"word", 2},
};

constexpr Index LargestStruct = std::numeric_limits<std::int32_t>::max();

} // namespace

cParser::Outcome cParser::LibraryStatement(Command command)
{
    if (!ArgumentsOf(RowOf(command).arguments))
        return Outcome::Failed;
    Add(StatementKind::Command, static_cast<std::uint8_t>(command));
    return Outcome::Complete;
}

// Whether the token is the comma or semicolon of a row.
bool cParser::IsSign(char sign) const
{
    return Is(sign == ',' ? TokenKind::Comma : TokenKind::Semicolon);
}

bool cParser::ArgumentsOf(std::string_view shape)
{
    std::size_t group = 0;
    for (std::size_t at = 0; at < shape.size(); ++at) {
        switch (shape[at]) {
        case '[':
            if (!IsSign(shape[at + 1]))
                at = shape.find(']', at);
            break;
        case ']':
            break;
        case '{':
            group = at;
            if (!IsSign(shape[at + 1]))
                at = shape.find('}', at);
            break;
        case '}':
            if (IsSign(shape[group + 1]))
                at = group;
            break;
        case ',':
            if (!Expect(TokenKind::Comma, "\",\""))
                return false;
            break;
        case ';':
            if (!Expect(TokenKind::Semicolon, "\";\""))
                return false;
            break;
        case '~':
            Accept(TokenKind::Comma);
            break;
        default:
            if (!Argument(shape[at]))
                return false;
        }
    }
    return true;
}

bool cParser::Argument(char shape)
{
    switch (shape) {
    case '@':
        return ExpectWord(Keyword::As);
    case 'n':
        return Value(Wanted::Number);
    case 't':
        return Value(Wanted::Text);
    case 'e':
        return Value(Wanted::Value);
    case 'N':
        return TargetOperand(Wanted::Number);
    case 'T':
        return TargetOperand(Wanted::Text);
    case 'V':
        return TargetOperand(Wanted::Value);
    case 'A':
    case 'a':
        return ArrayOperand(shape == 'A');
    case 'h':
        return HandleOperand();
    case 'l':
        return LabelOrSubOperand();
    case 'm':
        return MenuItem();
    default:
        return WordOperand();
    }
}

bool cParser::HandleOperand()
{
    if (!Is(TokenKind::Handle) && !Is(TokenKind::HandleOf))
        return Fail("a handle");
    const Token handle = token;
    if (Is(TokenKind::Handle)) {
        Emit(NodeKind::Handle, Type::None, handle.name, 0, handle.offset);
    } else {
        const Index variable = Emit(NodeKind::Variable, Type::Text, handle.name, 0, handle.offset);
        EmitOver(NodeKind::HandleOf, Type::None, 1, variable, 0, handle.offset);
    }
    Advance();
    return true;
}

bool cParser::LabelOrSubOperand()
{
    if (Is(TokenKind::Name) && !IsReserved(Meaning(token))) {
        Emit(NodeKind::Routine, Type::None, token.name, 0, token.offset);
        Advance();
        return true;
    }
    const Offset place = token.offset;
    if (!Is(TokenKind::Label) && !Is(TokenKind::Number))
        return Fail("a label or a sub");
    const NameId name = LabelName();
    if (name == cNames::NoName)
        return false;
    Emit(NodeKind::Label, Type::None, name, 0, place);
    return true;
}

bool cParser::ArrayOperand(bool isText)
{
    const Token name = token;
    const std::string_view expected = isText ? "a text array with \"()\"" : "an array with \"()\"";
    if (!Is(TokenKind::Name) || IsReserved(Meaning(name)) || (isText && TypeOf(name.name) != Type::Text))
        return Fail(expected);
    Advance();
    if (!Accept(TokenKind::LeftParenthesis) || !Accept(TokenKind::RightParenthesis)) {
        ReportAt(name, expected);
        return false;
    }
    Emit(NodeKind::Array, Type::None, name.name, 0, name.offset);
    return true;
}

bool cParser::WordOperand()
{
    if (Is(TokenKind::Text) || Is(TokenKind::OpenText) || (Is(TokenKind::Name) && program.names.IsText(token.name)))
        return Value(Wanted::Text);
    if (!Is(TokenKind::Name))
        return Fail("a word or a text");
    Emit(NodeKind::Word, Type::None, token.name, 0, token.offset);
    Advance();
    return true;
}

bool cParser::MenuItem()
{
    if (Is(TokenKind::Bar)) {
        Emit(NodeKind::Bar, Type::None, 0, 0, token.offset);
        Advance();
        return true;
    }
    return Value(Wanted::Text) && Expect(TokenKind::Comma, "\",\"") && LabelOrSubOperand();
}

cParser::Outcome cParser::Open()
{
    if (!Value(Wanted::Text) || !ExpectWord(Keyword::For))
        return Outcome::Failed;
    if (!Is(TokenKind::Name))
        return Failed("what it is opened for");
    Emit(NodeKind::Word, Type::None, token.name, 0, token.offset);
    Advance();
    if (!ExpectWord(Keyword::As) || !HandleOperand())
        return Outcome::Failed;
    if (IsNamed("len")) {
        Advance();
        if (!Expect(TokenKind::Equal, "\"=\"") || !Value(Wanted::Number))
            return Outcome::Failed;
    }
    Add(StatementKind::Open);
    return Outcome::Complete;
}

// The name of a type, in any case.
bool cParser::TypeOperand(DataType& type)
{
    const auto found = std::ranges::find_if(DataTypes, [&](const DataTypeRow& row) { return IsNamed(row.word); });
    if (found == std::end(DataTypes))
        return Fail("a type: long, ulong, short, ushort, word, dword, double, boolean, ptr, struct");
    type = static_cast<DataType>(found - std::begin(DataTypes));
    Advance();
    return true;
}

// The struct of the name, new when it is the first of it.
Index cParser::StructOf(NameId name)
{
    if (name >= structs.size())
        structs.resize(program.names.Count(), NoIndex);
    if (structs[name] == NoIndex) {
        structs[name] = static_cast<Index>(program.structs.size());
        program.structs.push_back({name, NoIndex});
    }
    return structs[name];
}

cParser::Outcome cParser::Struct()
{
    if (!Is(TokenKind::Name))
        return Failed("the name of a struct");
    LayoutInfo layout{StructOf(token.name), static_cast<Index>(program.fields.size()), 0, 0};
    Advance();
    ++structCount;
    if (!Is(TokenKind::Comma))
        return Failed("\",\" and a field");
    while (Accept(TokenKind::Comma))
        if (!StructField(layout))
            return Outcome::Failed;
    program.statements[Add(StatementKind::DefineType)].other = static_cast<Index>(program.layouts.size());
    program.layouts.push_back(layout);
    return Outcome::Complete;
}

bool cParser::StructField(LayoutInfo& layout)
{
    FieldInfo field{token.name, DataType::Long, Type::Number, layout.size, 0};
    const Token name = token;
    if (!Is(TokenKind::Name))
        return Fail("the name of a field");
    if (name.name >= fieldStruct.size())
        fieldStruct.resize(program.names.Count(), NoIndex);
    if (fieldStruct[name.name] == structCount)
        return Fail("a field of another name");
    fieldStruct[name.name] = structCount;
    Advance();
    if (!ExpectWord(Keyword::As))
        return false;
    const Token type = token;
    if (!TypeOperand(field.type))
        return false;
    field.size = DataTypes[static_cast<std::size_t>(field.type)].size;
    if (field.type == DataType::Char && !FieldLength(field.size))
        return false;
    if (field.type == DataType::Void) {
        ReportAt(type, "a type that has a size");
        return false;
    }
    if (field.type == DataType::Char || (field.type == DataType::Ptr && program.names.IsText(field.name)))
        field.valueType = Type::Text;
    if (field.size > LargestStruct - layout.size)
        return Fail("a struct below 2 GB");
    layout.size += field.size;
    ++layout.fieldCount;
    program.fields.push_back(field);
    return true;
}

// The [n] of a char field, which the scanner takes for a label.
bool cParser::FieldLength(Index& length)
{
    if (!Is(TokenKind::Label))
        return Fail("the length of the field: char[n]");
    std::string_view digits = Spelling(token.name).substr(1);
    digits.remove_suffix(1);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), length);
    if (error != std::errc() || end != digits.data() + digits.size() || length == 0 || length > LargestStruct)
        return Fail("the length of the field: char[n]");
    Advance();
    return true;
}

cParser::Outcome cParser::CallDll()
{
    if (!HandleOperand() || !Expect(TokenKind::Comma, "\",\"") || !Value(Wanted::Text))
        return Outcome::Failed;
    if (!Is(TokenKind::Comma))
        return Failed("\",\" and the result, as: result as long");
    Token result;
    Index node = 0;
    DataType type{};
    while (Accept(TokenKind::Comma)) {
        result = token;
        if (!DllValue(type))
            return Outcome::Failed;
        node = NodeCount() - 2;
    }
    if (type == DataType::Struct || !MakeTarget(node, result)) {
        if (type == DataType::Struct)
            ReportAt(result, "the result, as: result as long");
        return Outcome::Failed;
    }
    Add(StatementKind::CallDll);
    return Outcome::Complete;
}

// A value and its type. The name of a struct is one as it is.
bool cParser::DllValue(DataType& type)
{
    const Token place = token;
    if (!Expression() || !ExpectWord(Keyword::As))
        return false;
    const Index node = NodeCount() - 1;
    const Offset typePlace = token.offset;
    if (!TypeOperand(type))
        return false;
    if (type == DataType::Struct) {
        Node& structure = program.nodes[node];
        if (structure.kind != NodeKind::Variable && structure.kind != NodeKind::Struct) {
            ReportAt(place, "the name of a struct");
            return false;
        }
        structure.kind = NodeKind::Struct;
        structure.type = Type::None;
    } else {
        parsed.checks.push_back(
            {node, type == DataType::Ptr || type == DataType::Void ? Wanted::Value : Wanted::Number});
    }
    Emit(NodeKind::DataType, Type::None, static_cast<Index>(type), 0, typePlace);
    return true;
}

cParser::Outcome cParser::CallBack()
{
    if (!TargetOperand(Wanted::Number) || !Expect(TokenKind::Comma, "\",\""))
        return Outcome::Failed;
    if (!Is(TokenKind::Name))
        return Failed("the name of a function");
    Emit(NodeKind::Routine, Type::None, token.name, 0, token.offset);
    Advance();
    if (!Expect(TokenKind::LeftParenthesis, "\"(\""))
        return Outcome::Failed;
    if (!Accept(TokenKind::RightParenthesis)) {
        do {
            if (!CallBackType())
                return Outcome::Failed;
        } while (Accept(TokenKind::Comma));
        if (!Expect(TokenKind::RightParenthesis, "\",\" or \")\""))
            return Outcome::Failed;
    }
    if (!Expect(TokenKind::Comma, "\",\"") || !CallBackType())
        return Outcome::Failed;
    Add(StatementKind::CallBack);
    return Outcome::Complete;
}

bool cParser::CallBackType()
{
    const Offset place = token.offset;
    DataType type{};
    if (!TypeOperand(type))
        return false;
    Emit(NodeKind::DataType, Type::None, static_cast<Index>(type), 0, place);
    return true;
}

} // namespace ob::basic
