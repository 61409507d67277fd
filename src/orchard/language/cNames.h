// SPDX-License-Identifier: GPL-3.0-or-later
// The distinct spellings of a program's names, each once, with what the language knows of the word.
#pragma once

#include "orchard/language/modWords.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace ob::basic {

using NameId = std::uint32_t;

// Texts are kept as views: whoever interns one keeps its bytes alive. `a` and `A` are two names, and so are `a` and
// `a$`.
class cNames {
public:
    cNames();

    // The name's number, the next one when the spelling is new. The word's meaning is looked up then, in any case.
    NameId Intern(std::string_view text);

    // The name's number, or NoName when nothing in the program is spelled so.
    NameId Find(std::string_view text) const;

    std::string_view Text(NameId name) const { return names[name].text; }
    WordMeaning Meaning(NameId name) const { return names[name].meaning; }
    // Whether it names a text: it ends in `$`.
    bool IsText(NameId name) const { return names[name].text.back() == '$'; }
    std::size_t Count() const { return names.size(); }

    static constexpr NameId NoName = 0xFFFFFFFF;

private:
    struct Name {
        std::string_view text;
        std::uint32_t hash;
        WordMeaning meaning;
    };

    std::size_t SlotOf(std::string_view text, std::uint32_t hash) const;
    void Grow();

    std::vector<Name> names;
    std::vector<NameId> slots; // open addressing, a power of two
};

} // namespace ob::basic
