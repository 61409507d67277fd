// SPDX-License-Identifier: GPL-3.0-or-later
// The search that takes no notice of case in any script; the control's own knows A to Z only.
#pragma once

#include <QByteArrayView>

#include <optional>
#include <string>

namespace ob {

// A text with each character in its folded case: "Ä" and "ä" are one. A character folds to one character, so "ß" is
// "ẞ" but never "ss".
using FoldedText = std::u32string;

// Of UTF-8. A byte that is malformed is a character of its own, which matches that byte only.
FoldedText FoldCase(QByteArrayView text);

// From `start` up to `end`, in bytes. A match may be longer or shorter than the text that was looked for.
struct ByteRange {
    qsizetype start = 0;
    qsizetype end = 0;
};

// The first match of the folded text in UTF-8 that starts at `from` or behind it; nothing for an empty text.
std::optional<ByteRange> FindFolded(QByteArrayView text, const FoldedText& folded, qsizetype from = 0);

} // namespace ob
