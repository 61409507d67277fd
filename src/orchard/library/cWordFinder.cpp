// SPDX-License-Identifier: GPL-3.0-or-later
// Words from where the last one was found.
#include "orchard/library/cWordFinder.h"

#include "orchard/library/modNumbers.h"
#include "orchard/library/modTexts.h"

namespace ob::basic {

std::string_view cWordFinder::Find(std::string_view text, double number, std::string_view delimiter)
{
    const std::int64_t wanted = WholePart(number);
    const bool isSame = last > 0 && text.data() == known.data() && text.size() == known.size() && delimiter == splitter;
    const bool isOn = isSame && wanted >= last;
    const std::string_view word = isOn ? Word(text.substr(place), static_cast<double>(wanted - last + 1), delimiter)
                                       : Word(text, number, delimiter);
    // A word that is not there has no place.
    if (word.data() == nullptr)
        return word;
    known = text;
    splitter = delimiter;
    last = wanted;
    place = static_cast<std::size_t>(word.data() - text.data());
    return word;
}

} // namespace ob::basic
