// SPDX-License-Identifier: GPL-3.0-or-later
// Building the lexer's word table, and the search for the rare words that do not fit into it.
#include "scilexer/modKeywords.h"

#include <algorithm>
#include <utility>

namespace ob {

namespace {

constexpr std::pair<std::string_view, WordRole> StructureWords[] = {
    {"if", WordRole::If},        {"then", WordRole::Then},        {"else", WordRole::Else},
    {"end", WordRole::End},      {"select", WordRole::Select},    {"case", WordRole::Case},
    {"sub", WordRole::Routine},  {"function", WordRole::Routine}, {"for", WordRole::Opener},
    {"while", WordRole::Opener}, {"do", WordRole::Opener},        {"next", WordRole::Closer},
    {"wend", WordRole::Closer},  {"loop", WordRole::Closer},      {"rem", WordRole::Rem},
};

char ToLower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::vector<std::string> SplitWords(std::string_view list)
{
    constexpr std::string_view separators = " \t\r\n";
    std::vector<std::string> words;
    for (std::size_t begin = list.find_first_not_of(separators); begin != std::string_view::npos;) {
        const std::size_t end = std::min(list.find_first_of(separators, begin), list.size());
        std::string word(list.substr(begin, end - begin));
        if (word.back() == '(')
            word.pop_back();
        // A NUL would look like the padding of a key, and no word of a text contains one.
        if (!word.empty() && word.find('\0') == std::string::npos)
            words.push_back(std::move(word));
        begin = list.find_first_not_of(separators, end);
    }
    return words;
}

} // namespace

KeywordSet::KeywordSet(std::string_view list)
{
    const std::vector<std::string> words = SplitWords(list);
    // At most a quarter full, so that looking up a word that is not in the set usually meets an empty slot at once.
    const std::size_t size = std::bit_ceil(std::max<std::size_t>(64, 4 * (words.size() + std::size(StructureWords))));
    slots.resize(size);
    shift = 64 - std::countr_zero(size);
    for (const auto& [word, role] : StructureWords)
        Insert(word, role, false);
    for (const std::string& word : words)
        Insert(word, WordRole::None, true);
    std::sort(longWords.begin(), longWords.end());
}

void KeywordSet::Insert(std::string_view word, WordRole role, bool isKeyword)
{
    const Key key = word.size() <= ShortLength ? MakeKey(word.data(), word.size(), word.size()) : Key{};
    if (word.size() > ShortLength || HasHighByte(key)) {
        std::string lower(word);
        std::transform(lower.begin(), lower.end(), lower.begin(), ToLower);
        longWords.push_back(std::move(lower));
        return;
    }
    std::size_t i = FirstSlot(key);
    while (slots[i].key.low != 0 && (slots[i].key.low != key.low || slots[i].key.high != key.high))
        i = (i + 1) & (slots.size() - 1);
    slots[i].key = key;
    if (role != WordRole::None)
        slots[i].info.role = role;
    slots[i].info.isKeyword = slots[i].info.isKeyword || isKeyword;
}

WordInfo KeywordSet::FindLong(std::string_view word) const
{
    const auto isLess = [](const std::string& listed, std::string_view searched) {
        return std::lexicographical_compare(listed.begin(), listed.end(), searched.begin(), searched.end(),
                                            [](char a, char b) { return ToLower(a) < ToLower(b); });
    };
    const auto found = std::lower_bound(longWords.begin(), longWords.end(), word, isLess);
    const bool isEqual =
        found != longWords.end() && found->size() == word.size() &&
        std::equal(word.begin(), word.end(), found->begin(), [](char a, char b) { return ToLower(a) == b; });
    return {WordRole::None, isEqual};
}

} // namespace ob
