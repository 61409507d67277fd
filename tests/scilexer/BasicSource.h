// SPDX-License-Identifier: GPL-3.0-or-later
// Synthetic BASIC programs of any size for tests and benchmarks: the same text for the same arguments.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ob {

inline constexpr std::string_view basicKeywords =
    "abs( and append as asc( beep button call case chr$( close cls confirm cos( data dim do else end eof( exit field "
    "for function get global gosub goto graphicbox if input input$( instr( int( kill left$( len( let line loadbmp "
    "locate lof( loop lower$( max( menu mid$( min( name next nomainwin notice on open or out output print prompt put "
    "random read redim( rem restore return right$( rnd( run scan select sin( space$( sqr( statictext step str$( sub "
    "textbox then time$( timer to trim$( until upper$( using( val( wait wend while window windowheight windowwidth "
    "word$( xor";

// Generates statements whose names, numbers and lengths vary from line to line.
class BasicSource {
public:
    explicit BasicSource(std::uint64_t seed) : state(seed * 2 + 1) {}

    // A program of `lineCount` lines, each ended by CR LF; most lines have 20 to 80 bytes.
    std::string Lines(std::size_t lineCount)
    {
        std::string text;
        text.reserve(lineCount * 52);
        for (std::size_t i = 0; i < lineCount; ++i) {
            text.append((i / 8 % 4) * 4, ' ');
            AddStatement(text);
            text += "\r\n";
        }
        return text;
    }

    std::size_t Below(std::size_t limit)
    {
        state = state * 6364136223846793005u + 1442695040888963407u;
        return static_cast<std::size_t>(state >> 33) % limit;
    }

private:
    template <std::size_t n>
    std::string_view Any(const std::array<std::string_view, n>& choice)
    {
        return choice[Below(n)];
    }

    std::string Name()
    {
        static constexpr std::array<std::string_view, 16> parts = {
            "total", "row",  "index",  "player", "Score", "file",  "menu",   "posX",
            "width", "line", "buffer", "key",    "count", "hMain", "sprite", "value"};
        std::string name(Any(parts));
        if (Below(3) == 0)
            name += Any(parts);
        if (Below(3) == 0)
            name += static_cast<char>('0' + Below(10));
        if (Below(3) == 0)
            name += '$';
        return name;
    }

    std::string Number()
    {
        std::string number = std::to_string(Below(2000));
        if (Below(5) == 0)
            number.append(".").append(std::to_string(Below(99)));
        return number;
    }

    std::string Words()
    {
        static constexpr std::array<std::string_view, 12> words = {
            "draw", "the", "next", "picture", "when", "all", "lines", "are", "ready", "and", "shown", "again"};
        std::string text;
        for (std::size_t i = 2 + Below(6); i > 0; --i)
            text.append(Any(words)) += i > 1 ? " " : "";
        return text;
    }

    std::string Term() { return Filled(Any(terms)); }

    void AddStatement(std::string& text) { text += Filled(Any(statements)); }

    // A pattern with n for a name, 9 for a number, w for words and t for a term after each percent sign.
    std::string Filled(std::string_view pattern)
    {
        std::string text;
        for (std::size_t i = 0; i < pattern.size(); ++i) {
            if (pattern[i] != '%') {
                text += pattern[i];
                continue;
            }
            const char kind = pattern[++i];
            text += kind == 'n' ? Name() : kind == '9' ? Number() : kind == 'w' ? Words() : Term();
        }
        return text;
    }

    static constexpr std::array<std::string_view, 5> terms = {"int(rnd(1) * %9)", "%n + %9", "(%n - %9) / %9",
                                                              "val(mid$(%n, %9, 2))", "%9"};

    static constexpr std::array<std::string_view, 16> statements = {
        "' %w",
        "print \"%w\"; %n; using(\"####.##\", %n)",
        "if %n > %9 then %n = %t",
        "for %n = 1 to %9 step 2",
        "next %n",
        "print #%n, \"%w\"",
        "if instr(%n, \"%w\") <> 0 then",
        "end if",
        "[%nLoop]",
        "call %n %t, %t 'keep %w",
        "statictext #main.text%9, \"%w\", %9, 20, 30, 40",
        "gosub [%nDone]",
        "%n = left$(%n, %9) + chr$(13) + %n",
        "%n = %t * %t",
        "%n = %t",
        "%n = %n * %t + %t",
    };

    std::uint64_t state;
};

} // namespace ob
