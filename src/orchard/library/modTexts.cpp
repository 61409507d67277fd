// SPDX-License-Identifier: GPL-3.0-or-later
// Functions of texts over views.
#include "orchard/library/modTexts.h"

#include <algorithm>
#include <array>
#include <vector>

#include "orchard/library/modNumbers.h"

namespace ob::basic {

namespace {

constexpr std::size_t npos = std::string_view::npos;

// A count, or OutOfRange for a negative one.
std::size_t Count(double value)
{
    const std::int64_t count = WholePart(value);
    if (count < 0)
        Fail(ErrorNumber::OutOfRange, "a negative count");
    return static_cast<std::size_t>(count);
}

// A position from 1 as an index from 0.
std::size_t Index(double position)
{
    return static_cast<std::size_t>(std::max<std::int64_t>(WholePart(position), 1) - 1);
}

struct CaseTables {
    std::array<char, 256> lower = {};
    std::array<char, 256> upper = {};

    constexpr CaseTables()
    {
        for (int code = 0; code < 256; ++code)
            lower[static_cast<std::size_t>(code)] = upper[static_cast<std::size_t>(code)] = static_cast<char>(code);
        for (int code = 'A'; code <= 'Z'; ++code)
            Pair(code, code + 32);
        constexpr int multiplication = 0xD7;
        for (int code = 0xC0; code <= 0xDE; ++code)
            if (code != multiplication)
                Pair(code, code + 32);
        Pair(0x8A, 0x9A);
        Pair(0x8C, 0x9C);
        Pair(0x8E, 0x9E);
        Pair(0x9F, 0xFF);
    }

    constexpr void Pair(int capital, int small)
    {
        lower[static_cast<std::size_t>(capital)] = static_cast<char>(small);
        upper[static_cast<std::size_t>(small)] = static_cast<char>(capital);
    }
};

constexpr CaseTables cases;

std::string Mapped(std::string_view text, char (*map)(char))
{
    std::string mapped(text);
    std::transform(mapped.begin(), mapped.end(), mapped.begin(), map);
    return mapped;
}

// For each front of a pattern, how much of its end is a front again.
std::vector<std::size_t> Borders(std::string_view pattern)
{
    std::vector<std::size_t> borders(pattern.size(), 0);
    for (std::size_t at = 1, length = 0; at < pattern.size(); ++at) {
        while (length > 0 && pattern[at] != pattern[length])
            length = borders[length - 1];
        if (pattern[at] == pattern[length])
            ++length;
        borders[at] = length;
    }
    return borders;
}

// The plain search is fastest for a short pattern, but takes the product of both lengths where all is alike.
std::size_t Find(std::string_view text, std::string_view sought, std::size_t from)
{
    constexpr std::size_t shortPattern = 32;
    if (sought.size() <= shortPattern || from >= text.size() || text.size() - from < sought.size())
        return text.find(sought, from);
    const std::vector<std::size_t> borders = Borders(sought);
    std::size_t matched = 0;
    for (std::size_t at = from; at < text.size(); ++at) {
        if (matched == 0 && (at = text.find(sought[0], at)) == npos)
            return npos;
        while (matched > 0 && text[at] != sought[matched])
            matched = borders[matched - 1];
        if (text[at] == sought[matched] && ++matched == sought.size())
            return at + 1 - matched;
    }
    return npos;
}

std::string_view SpacedWord(std::string_view text, std::int64_t number)
{
    std::size_t end = 0;
    for (; number > 0; --number) {
        const std::size_t start = text.find_first_not_of(' ', end);
        if (start == npos)
            return {};
        end = std::min(text.find(' ', start), text.size());
        if (number == 1)
            return text.substr(start, end - start);
    }
    return {};
}

} // namespace

std::string_view Left(std::string_view text, double count)
{
    return text.substr(0, Count(count));
}

std::string_view Right(std::string_view text, double count)
{
    const std::size_t length = std::min(Count(count), text.size());
    return text.substr(text.size() - length);
}

std::string_view Mid(std::string_view text, double from)
{
    return text.substr(std::min(Index(from), text.size()));
}

std::string_view Mid(std::string_view text, double from, double count)
{
    return Mid(text, from).substr(0, Count(count));
}

double Instr(std::string_view text, std::string_view sought, double from)
{
    if (sought.empty())
        return 0;
    const std::size_t at = Find(text, sought, Index(from));
    return at == npos ? 0 : static_cast<double>(at + 1);
}

std::string_view Trim(std::string_view text)
{
    const std::size_t start = text.find_first_not_of(' ');
    return start == npos ? std::string_view() : text.substr(start, text.find_last_not_of(' ') + 1 - start);
}

char LowerCharacter(char c)
{
    return cases.lower[static_cast<unsigned char>(c)];
}

char UpperCharacter(char c)
{
    return cases.upper[static_cast<unsigned char>(c)];
}

std::string Lower(std::string_view text)
{
    return Mapped(text, LowerCharacter);
}

std::string Upper(std::string_view text)
{
    return Mapped(text, UpperCharacter);
}

int CompareIgnoringCase(std::string_view left, std::string_view right)
{
    const std::size_t length = std::min(left.size(), right.size());
    for (std::size_t at = 0; at < length; ++at) {
        const int difference = static_cast<unsigned char>(LowerCharacter(left[at])) -
                               static_cast<unsigned char>(LowerCharacter(right[at]));
        if (difference != 0)
            return difference;
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

std::string_view Word(std::string_view text, double number, std::string_view delimiter)
{
    std::int64_t left = WholePart(number);
    if (delimiter.empty() || delimiter == " ")
        return SpacedWord(text, left);
    if (left < 1)
        return {};
    std::size_t start = 0;
    std::size_t end = Find(text, delimiter, 0);
    for (; left > 1; --left) {
        if (end == npos)
            return {};
        start = end + delimiter.size();
        end = Find(text, delimiter, start);
    }
    return text.substr(start, end == npos ? npos : end - start);
}

std::string Space(double count)
{
    const std::size_t length = Count(count);
    if (length >= std::string().max_size())
        Fail(ErrorNumber::OutOfMemory);
    return std::string(length, ' ');
}

char Chr(double code)
{
    const std::int64_t whole = WholePart(code);
    if (whole < 0 || whole > 255)
        Fail(ErrorNumber::OutOfRange, "a character outside 0 to 255");
    return static_cast<char>(whole);
}

} // namespace ob::basic
