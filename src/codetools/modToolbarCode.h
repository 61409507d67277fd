// SPDX-License-Identifier: GPL-3.0-or-later
// The toolbar maker's listing: a program, or code for an existing one, that creates a toolbar with tool tips.
#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace ob {

enum class ToolbarStyle { Flat, Raised };
enum class ToolbarBorder { Thin, Thick, None };

struct ToolbarButton {
    QString branch; // "[save]"
    QString tip;
};

struct ToolbarSpec {
    QList<ToolbarButton> buttons;
    ToolbarStyle style = ToolbarStyle::Flat;
    ToolbarBorder border = ToolbarBorder::None;
    QString program;               // the file name of the listing; empty: untitled.bas
    QString bitmap;                // the file of the buttons' pictures
    std::optional<QString> handle; // "#main" of the existing window; nothing for a new window
};

// The listing, with lines ending in CR LF. Names, labels and tips are inserted unchanged.
QString ToolbarCode(const ToolbarSpec& spec);

// What the answers to the two questions about button `number` (from 1) become: a label in brackets, "[branch1]" when
// empty, and a tip, "branch1 tooltip" when empty.
QString ToolbarBranchOf(const QString& answer, qsizetype number);
QString ToolbarTipOf(const QString& answer, qsizetype number);

inline const QString NoHandleText = QStringLiteral("You must specify the handle of the existing window.");

// A handle with its "#"; nothing for an empty text.
std::optional<QString> WindowHandleOf(const QString& text);

} // namespace ob
