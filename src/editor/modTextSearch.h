// SPDX-License-Identifier: GPL-3.0-or-later
// A search beside the control's own, which folds the case of A to Z only, and for long texts takes a time that grows
// with the text's length and the document's at once.
#pragma once

#include <QByteArrayView>

#include <optional>
#include <string>
#include <vector>

namespace ob {

// Folded: each character stands for its capital too, in every script. A character folds to one character, so "ß" is
// "ẞ" but never "ss".
enum class CaseRule { Exact, Folded };

// From `start` up to `end`, in bytes.
struct ByteRange {
    qsizetype start = 0;
    qsizetype end = 0;
};

// A text to look for, made ready once. Texts are UTF-8; a byte that is malformed is a character of its own.
class TextPattern {
public:
    TextPattern(QByteArrayView pattern, CaseRule rule);

    // The first match that starts at `from` or behind it, with `from` at the start of a character; nothing for an
    // empty pattern. A folded match may be longer or shorter than the pattern. The time grows with the text alone.
    std::optional<ByteRange> FindIn(QByteArrayView text, qsizetype from = 0) const;

private:
    std::u32string characters;
    std::vector<std::size_t> fallback; // how much is still matched when the character behind so many differs
    CaseRule caseRule;
};

} // namespace ob
