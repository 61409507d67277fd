// SPDX-License-Identifier: GPL-3.0-or-later
// The wording of errors.
#include "orchard/language/modReadErrors.h"

#include <utility>

namespace ob::basic {

std::string Quoted(std::string_view piece)
{
    constexpr std::size_t longest = 40;
    if (piece.empty())
        return "the end of the line";
    if (piece.size() == 1 && static_cast<unsigned char>(piece[0] - ' ') >= 0x7F - ' ')
        return "chr$(" + std::to_string(static_cast<unsigned char>(piece[0])) + ")";
    std::string shown(piece.substr(0, longest));
    for (char& c : shown)
        if (static_cast<unsigned char>(c) < ' ' || c == 0x7F)
            c = ' ';
    if (piece.size() > longest)
        shown += "...";
    return piece.front() == '"' ? shown : '"' + shown + '"';
}

void AddError(Program& program, Offset offset, Index length, std::string_view expected)
{
    std::string found = Quoted(program.TextAt(offset, length));
    if (length == 0 && offset >= program.source->size())
        found = "the end of the program";
    program.errors.push_back({offset, length, std::move(found), std::string(expected)});
}

void AddError(Program& program, Offset offset, Index length, std::string found, std::string expected)
{
    program.errors.push_back({offset, length, std::move(found), std::move(expected)});
}

std::string LineName(const Program& program, Offset offset)
{
    return "line " + std::to_string(program.lines.PlaceOf(offset).line);
}

} // namespace ob::basic
