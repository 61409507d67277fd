// SPDX-License-Identifier: GPL-3.0-or-later
// A search of our own: the control's folds only A to Z, and for long texts its time grows with the product of the
// lengths of the text and the document.
#pragma once

#include <QByteArrayView>

#include <optional>
#include <string>
#include <vector>

namespace ob {

// Folded: each character equals its capital, in every script. A character folds to a single character, so "ß" equals
// "ẞ" but never "ss".
enum class CaseRule { Exact, Folded };

// From `start` up to `end`, in bytes.
struct ByteRange {
    qsizetype start = 0;
    qsizetype end = 0;
};

// A text to search for, compiled once. Texts are UTF-8; a malformed byte is a character of its own.
class TextPattern {
public:
    TextPattern(QByteArrayView pattern, CaseRule rule);

    // The first match that starts at or after `from`, which must be the start of a character; nothing for an empty
    // pattern. A folded match may be longer or shorter than the pattern. Linear in the length of the text.
    std::optional<ByteRange> FindIn(QByteArrayView text, qsizetype from = 0) const;

private:
    std::u32string characters;
    std::vector<std::size_t> fallback; // how much is still matched when the character after so many differs
    CaseRule caseRule;
};

} // namespace ob
