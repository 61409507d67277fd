// SPDX-License-Identifier: GPL-3.0-or-later
// The lexer's words: the keyword list of the program and the few words that open and close blocks.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace ob {

// What a word does to the line's structure, whether or not the keyword list holds it.
enum class WordRole : unsigned char {
    None,
    If,
    Then,
    Else,
    End,
    Select,
    Case,
    Routine, // sub, function: opens a block, and closes it after `end`
    Opener,  // for, while, do
    Closer,  // next, wend, loop
    Rem,
};

struct WordInfo {
    WordRole role = WordRole::None;
    bool isKeyword = false;
};

// A set of words, looked up once for every word of a text. A to Z equal a to z; all other bytes are compared exactly.
class KeywordSet {
public:
    // `list` holds words separated by spaces, tabs or line ends. One "(" at a word's end is dropped.
    explicit KeywordSet(std::string_view list = {});

    // `word` points to `length` > 0 bytes of word characters, of which `readable` >= length may be read.
    WordInfo Find(const char* word, std::size_t length, std::size_t readable) const;

    bool Contains(std::string_view word) const
    {
        return !word.empty() && Find(word.data(), word.size(), word.size()).isKeyword;
    }

private:
    static constexpr std::size_t ShortLength = 16;

    // A word of up to 16 bytes as two numbers, padded with zeros. With bit 0x20 set, word characters stay distinct but
    // for the case of A to Z; bytes from 0x80 on would not, so words with such bytes are long words.
    struct Key {
        std::uint64_t low = 0;
        std::uint64_t high = 0;
    };

    struct Slot {
        Key key;
        WordInfo info;
    };

    static Key MakeKey(const char* word, std::size_t length, std::size_t readable);
    static bool HasHighByte(Key key) { return ((key.low | key.high) & 0x8080808080808080u) != 0; }
    std::size_t FirstSlot(Key key) const
    {
        return static_cast<std::size_t>(((key.low ^ std::rotl(key.high, 23)) * 0x9E3779B97F4A7C15u) >> shift);
    }

    void Insert(std::string_view word, WordRole role, bool isKeyword);
    WordInfo FindLong(std::string_view word) const;

    std::vector<Slot> slots;
    int shift = 0;
    std::vector<std::string> longWords;
};

inline KeywordSet::Key KeywordSet::MakeKey(const char* word, std::size_t length, std::size_t readable)
{
    constexpr std::uint64_t CaseBits = 0x2020202020202020u;
    constexpr std::uint64_t Masks[] = {
        0, 0xFF, 0xFFFF, 0xFFFFFF, 0xFFFFFFFF, 0xFFFFFFFFFF, 0xFFFFFFFFFFFF, 0xFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF};
    if (std::endian::native == std::endian::little && readable >= ShortLength) {
        Key key;
        std::memcpy(&key.low, word, 8);
        std::memcpy(&key.high, word + 8, 8);
        key.low = (key.low | CaseBits) & Masks[length < 8 ? length : 8];
        key.high = (key.high | CaseBits) & Masks[length < 8 ? 0 : length - 8];
        return key;
    }
    unsigned char bytes[ShortLength] = {};
    for (std::size_t i = 0; i < length; ++i)
        bytes[i] = static_cast<unsigned char>(static_cast<unsigned char>(word[i]) | 0x20u);
    Key key;
    std::memcpy(&key.low, bytes, 8);
    std::memcpy(&key.high, bytes + 8, 8);
    return key;
}

inline WordInfo KeywordSet::Find(const char* word, std::size_t length, std::size_t readable) const
{
    if (length > ShortLength)
        return FindLong({word, length});
    const Key key = MakeKey(word, length, readable);
    if (HasHighByte(key))
        return FindLong({word, length});
    for (std::size_t i = FirstSlot(key); slots[i].key.low != 0; i = (i + 1) & (slots.size() - 1))
        if (slots[i].key.low == key.low && slots[i].key.high == key.high)
            return slots[i].info;
    return {};
}

} // namespace ob
