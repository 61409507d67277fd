// SPDX-License-Identifier: GPL-3.0-or-later
// The lexer on any bytes: a text styled line by line has the same styles as the text styled as a whole.
#include "scilexer/modLexer.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const ob::KeywordSet keywords("if then else end for print left$( abs( a averyveryverylongword");
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<unsigned char> whole(size);
    const int finalState = ob::LexText(text, keywords, whole.data());

    int state = 0;
    for (std::size_t at = 0; at < size;) {
        std::vector<unsigned char> rest(size - at);
        const std::size_t length = ob::LexFirstLine(state, text.substr(at), keywords, rest.data()).length;
        // Copies of exactly one line's size reveal an access past its end.
        const std::vector<char> line(data + at, data + at + length);
        std::vector<unsigned char> styles(length);
        const std::string_view lineText(line.data(), length);
        const int before = state;
        state = ob::LexLine(state, lineText, keywords, styles.data());
        if (length == 0 || !std::equal(styles.begin(), styles.end(), whole.begin() + static_cast<std::ptrdiff_t>(at)) ||
            ob::FoldLevel(before, state, lineText) < ob::FoldBase)
            std::abort();
        for (std::size_t column = 0; column < std::min<std::size_t>(length, 64); ++column)
            if (const auto partner = ob::MatchBrace(lineText, styles.data(), column);
                partner && ob::MatchBrace(lineText, styles.data(), *partner) != column)
                std::abort();
        at += length;
    }
    if (state != finalState)
        std::abort();
    return 0;
}
