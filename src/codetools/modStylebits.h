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
    QStringList entries; // the selected entries, in the order of the list
};

inline const QString NoStylebitsText = QStringLiteral("No stylebits are selected.");
inline const QString StylebitsCopiedText =
    QStringLiteral("Stylebits have been copied to the clipboard. Paste into your source code. Be sure to change the "
                   "window or control handle to match the handle in your code.");
inline const QString StylebitsSyntax =
    QStringLiteral("stylebits #handle, AddBits, RemoveBits, AddExBits, RemoveExBits");

// The kinds of control and window to choose from.
QStringList StylebitObjects();

// The entries for an object, "NAME = what it does". The object's name is case-sensitive; an unknown one has only the
// entries that all objects have.
QStringList StylebitEntries(const QString& object, StyleKind kind);

// The text of an entry before its first space.
QString StylebitName(const QString& entry);

// The statement, without a line end; empty without entries.
std::optional<QString> StylebitsCode(const StylebitsSpec& spec);

// How to use the maker: paragraphs with an empty line between them.
QString StylebitsHelp();

} // namespace ob
