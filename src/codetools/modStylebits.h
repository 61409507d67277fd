// SPDX-License-Identifier: GPL-3.0-or-later
// The stylebits maker: the style bits of each kind of control, and the statement that adds or removes some of them.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace ob {

enum class StyleKind { Regular, Extended };
enum class StyleChange { Add, Remove };

struct StylebitsSpec {
    StyleKind kind = StyleKind::Regular;
    StyleChange change = StyleChange::Add;
    QStringList entries; // those that are wanted, of the list, in its order
};

inline const QString NoStylebitsText = QStringLiteral("No stylebits are selected.");
inline const QString StylebitsCopiedText =
    QStringLiteral("Stylebits have been copied to the clipboard. Paste into your source code. Be sure to change the "
                   "window or control handle to match the handle in your code.");
inline const QString StylebitsSyntax =
    QStringLiteral("stylebits #handle, AddBits, RemoveBits, AddExBits, RemoveExBits");

// The kinds of control and window that can be chosen.
QStringList StylebitObjects();

// The entries for an object, "NAME = what it does". The object's name is case-sensitive; an unknown one has the entries
// that all objects have.
QStringList StylebitEntries(const QString& object, StyleKind kind);

// What stands before an entry's first blank.
QString StylebitName(const QString& entry);

// The statement, without a line end; nothing without entries.
std::optional<QString> StylebitsCode(const StylebitsSpec& spec);

// How to use the maker: paragraphs with an empty line between them.
QString StylebitsHelp();

} // namespace ob
