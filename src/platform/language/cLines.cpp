// SPDX-License-Identifier: GPL-3.0-or-later
// A text's lines, one after another.
#include "platform/language/cLines.h"

#include <algorithm>
#include <cstring>

namespace ob {

cLines::cLines(QByteArrayView text)
    : start(text.data()), stop(text.data()), next(text.data()), end(text.data() + text.size())
{
}

const char* cLines::Find(const char*& found, char mark) const
{
    if (found == nullptr || found < start) {
        const void* hit = std::memchr(start, mark, static_cast<std::size_t>(end - start));
        found = hit == nullptr ? end : static_cast<const char*>(hit);
    }
    return found;
}

bool cLines::Next()
{
    if (next == end)
        return false;
    ++number;
    start = next;
    stop = std::min(Find(nextReturn, '\r'), Find(nextFeed, '\n'));
    next = stop;
    if (stop != end)
        next += end - stop >= 2 && stop[0] == '\r' && stop[1] == '\n' ? 2 : 1;
    return true;
}

QByteArrayView cLines::ScannedLine() const
{
    QByteArrayView line = Line();
    if (stop != end)
        return line;
    for (int character = 0; character < 2; ++character) {
        // Whole UTF-8 characters are cut.
        qsizetype lead = line.size() - 1;
        while (lead > 0 && (static_cast<unsigned char>(line[lead]) & 0xC0) == 0x80)
            --lead;
        if (lead <= 0)
            break;
        line.truncate(lead);
    }
    return line;
}

} // namespace ob
