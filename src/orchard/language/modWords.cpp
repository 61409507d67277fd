// SPDX-License-Identifier: GPL-3.0-or-later
// The tables of words, and the search in all of them at once.
#include "orchard/language/modWords.h"

#include <algorithm>
#include <array>

namespace ob::basic {

namespace {

template <typename Enumerator>
constexpr std::size_t Size = static_cast<std::size_t>(Enumerator::Count);

// In the order of Keyword.
constexpr std::string_view Keywords[] = {
    "call",    "callback", "calldll", "case",     "data",   "dim",    "do",    "else", "elseif", "end",
    "endif",   "exit",     "for",     "function", "global", "gosub",  "goto",  "if",   "input",  "let",
    "line",    "loop",     "lprint",  "next",     "on",     "open",   "print", "read", "redim",  "rem",
    "restore", "resume",   "return",  "select",   "stop",   "struct", "sub",   "wend", "while",  "and",
    "as",      "byref",    "mod",     "not",      "or",     "step",   "then",  "to",   "until",  "xor",
};
static_assert(std::size(Keywords) == static_cast<std::size_t>(Keyword::Xor) + 1);

// In the order of Command.
constexpr CommandRow Commands[] = {
    {"beep", ""},
    {"bmpbutton", "h,t,l,w,n,n[,n,n]"},
    {"bmpsave", "t,t"},
    {"button", "h,t,l,w,n,n[,n,n]"},
    {"checkbox", "h,t,l,l,n,n,n,n"},
    {"close", "h"},
    {"cls", ""},
    {"colordialog", "t,T"},
    {"combobox", "h,A,l,n,n,n,n"},
    {"confirm", "t;T"},
    {"cursor", "w"},
    {"dump", ""},
    {"field", "h,n@V{,n@V}"},
    {"filedialog", "t,t,T"},
    {"files", "t,t,A"},
    {"fontdialog", "t,T"},
    {"get", "h,n"},
    {"gettrim", "h,n"},
    {"graphicbox", "h,n,n,n,n"},
    {"groupbox", "h,t,n,n,n,n"},
    {"kill", "t"},
    {"listbox", "h,A,l,n,n,n,n"},
    {"loadbmp", "t,e"},
    {"locate", "n~n"},
    {"mainwin", "n~n"},
    {"maphandle", "h,t"},
    {"menu", "h,t{,m}"},
    {"name", "t@t"},
    {"nomainwin", ""},
    {"notice", "t"},
    {"oncomerror", "l"},
    {"out", "n,n"},
    {"playmidi", "t,N"},
    {"playwave", "t[,w]"},
    {"popupmenu", "m{,m}"},
    {"printerdialog", ""},
    {"prompt", "t;T"},
    {"put", "h,n"},
    {"radiobutton", "h,t,l,l,n,n,n,n"},
    {"randomize", "n"},
    {"readjoystick", "n"},
    {"run", "t[,w]"},
    {"scan", ""},
    {"seek", "h,n"},
    {"sort", "a,n,n[,n]"},
    {"statictext", "h,t,n,n,n,n"},
    {"stopmidi", ""},
    {"stylebits", "h,n,n,n,n"},
    {"textbox", "h,n,n,n,n"},
    {"texteditor", "h,n,n,n,n"},
    {"timer", "n[,l]"},
    {"titlebar", "t"},
    {"trace", "n"},
    {"unloadbmp", "t"},
    {"wait", ""},
};
static_assert(std::size(Commands) == Size<Command>);

// In the order of Function.
constexpr FunctionRow Functions[] = {
    {"abs", Type::Number, "n"},      {"acs", Type::Number, "n"},         {"asc", Type::Number, "t"},
    {"asn", Type::Number, "n"},      {"atn", Type::Number, "n"},         {"chr$", Type::Text, "n"},
    {"cos", Type::Number, "n"},      {"date$", Type::Either, "[e]"},     {"dechex$", Type::Text, "n"},
    {"eof", Type::Number, "h"},      {"eval", Type::Number, "t"},        {"eval$", Type::Text, "t"},
    {"exp", Type::Number, "n"},      {"hbmp", Type::Number, "t"},        {"hexdec", Type::Number, "t"},
    {"hwnd", Type::Number, "h"},     {"inp", Type::Number, "n"},         {"input$", Type::Text, "[h,]n"},
    {"inputto$", Type::Text, "h,t"}, {"instr", Type::Number, "t,t[,n]"}, {"int", Type::Number, "n"},
    {"left$", Type::Text, "t,n"},    {"len", Type::Number, "s"},         {"loc", Type::Number, "h"},
    {"lof", Type::Number, "h"},      {"log", Type::Number, "n"},         {"lower$", Type::Text, "t"},
    {"max", Type::Number, "n,n"},    {"mid$", Type::Text, "t,n[,n]"},    {"midipos", Type::Number, ""},
    {"min", Type::Number, "n,n"},    {"mkdir", Type::Number, "t"},       {"rmdir", Type::Number, "t"},
    {"right$", Type::Text, "t,n"},   {"rnd", Type::Number, "n"},         {"sgn", Type::Number, "n"},
    {"sin", Type::Number, "n"},      {"space$", Type::Text, "n"},        {"sqr", Type::Number, "n"},
    {"str$", Type::Text, "n"},       {"tab", Type::None, "n"},           {"tan", Type::Number, "n"},
    {"time$", Type::Either, "[t]"},  {"trim$", Type::Text, "t"},         {"txcount", Type::Number, "h"},
    {"upper$", Type::Text, "t"},     {"using", Type::Text, "t,n"},       {"val", Type::Number, "t"},
    {"winstring", Type::Text, "n"},  {"word$", Type::Text, "t,n[,t]"},
};
static_assert(std::size(Functions) == Size<Function>);

// In the order of SystemVariable.
constexpr SystemVariableRow SystemVariables[] = {
    {"BackgroundColor$", Type::Text}, {"ComboboxColor$", Type::Text},  {"CommandLine$", Type::Text},
    {"DefaultDir$", Type::Text},      {"DisplayHeight", Type::Number}, {"DisplayWidth", Type::Number},
    {"Drives$", Type::Text},          {"Err", Type::Number},           {"Err$", Type::Text},
    {"ForegroundColor$", Type::Text}, {"Inkey$", Type::Text},          {"Joy1button1", Type::Number},
    {"Joy1button2", Type::Number},    {"Joy1x", Type::Number},         {"Joy1y", Type::Number},
    {"Joy1z", Type::Number},          {"Joy2button1", Type::Number},   {"Joy2button2", Type::Number},
    {"Joy2x", Type::Number},          {"Joy2y", Type::Number},         {"Joy2z", Type::Number},
    {"ListboxColor$", Type::Text},    {"MouseX", Type::Number},        {"MouseY", Type::Number},
    {"Platform$", Type::Text},        {"PrinterFont$", Type::Text},    {"TextboxColor$", Type::Text},
    {"TexteditorColor$", Type::Text}, {"UpperLeftX", Type::Number},    {"UpperLeftY", Type::Number},
    {"Version$", Type::Text},         {"WindowHeight", Type::Number},  {"WindowWidth", Type::Number},
};
static_assert(std::size(SystemVariables) == Size<SystemVariable>);

constexpr std::size_t LongestWord = 16;

struct Entry {
    std::array<char, LongestWord> word; // small, filled up with NUL
    WordMeaning meaning;
};

constexpr std::array<char, LongestWord> Folded(std::string_view word)
{
    std::array<char, LongestWord> folded{};
    for (std::size_t at = 0; at < word.size(); ++at)
        folded[at] = static_cast<char>(word[at] >= 'A' && word[at] <= 'Z' ? word[at] + ('a' - 'A') : word[at]);
    return folded;
}

constexpr std::size_t EntryCount =
    std::size(Keywords) + std::size(Commands) + std::size(Functions) + std::size(SystemVariables) + 1;

constexpr std::array<Entry, EntryCount> Entries = [] {
    std::array<Entry, EntryCount> entries{};
    std::size_t count = 0;
    const auto add = [&](std::string_view word, WordKind kind, std::size_t number) {
        entries[count++] = {Folded(word), {kind, static_cast<std::uint8_t>(number)}};
    };
    for (std::size_t at = 0; at < std::size(Keywords); ++at)
        add(Keywords[at], WordKind::Keyword, at);
    for (std::size_t at = 0; at < std::size(Commands); ++at)
        add(Commands[at].word, WordKind::Command, at);
    for (std::size_t at = 0; at < std::size(Functions); ++at)
        add(Functions[at].word, WordKind::Function, at);
    add("remdir", WordKind::Function, static_cast<std::size_t>(Function::RemDir));
    for (std::size_t at = 0; at < std::size(SystemVariables); ++at)
        add(SystemVariables[at].word, WordKind::SystemVariable, at);
    std::ranges::sort(entries, {}, &Entry::word);
    return entries;
}();

} // namespace

const CommandRow& RowOf(Command command)
{
    return Commands[static_cast<std::size_t>(command)];
}

const FunctionRow& RowOf(Function function)
{
    return Functions[static_cast<std::size_t>(function)];
}

const SystemVariableRow& RowOf(SystemVariable variable)
{
    return SystemVariables[static_cast<std::size_t>(variable)];
}

std::string_view WordOf(Keyword keyword)
{
    return Keywords[static_cast<std::size_t>(keyword)];
}

namespace {

bool EndsInStruct(std::string_view word)
{
    constexpr std::string_view suffix = ".struct";
    if (word.size() <= suffix.size())
        return false;
    const std::string_view end = word.substr(word.size() - suffix.size());
    return std::ranges::equal(end, suffix, [](char a, char b) { return a == b || (a != '.' && (a | 0x20) == b); });
}

} // namespace

WordMeaning MeaningOf(std::string_view word)
{
    if (EndsInStruct(word))
        return {WordKind::StructPath, 0};
    if (word.size() > LongestWord)
        return {};
    const auto folded = Folded(word);
    const auto found = std::ranges::lower_bound(Entries, folded, {}, &Entry::word);
    return found != Entries.end() && found->word == folded ? found->meaning : WordMeaning{};
}

} // namespace ob::basic
