// SPDX-License-Identifier: GPL-3.0-or-later
// The toolbar maker's listing: a program, or code for one that is there, that makes a toolbar with tool tips.
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
    QString program;               // the file that the listing is saved as; empty: untitled.bas
    QString bitmap;                // the file of the buttons' pictures
    std::optional<QString> handle; // "#main" of the window that is there; nothing for a new window
};

// The listing, lines ending in CR LF. Names, labels and tips go in as they stand.
QString ToolbarCode(const ToolbarSpec& spec);

// What the two questions about button `number` (from 1) make of their answers: a label in brackets, "[branch1]" for an
// empty one, and a tip, "branch1 tooltip" for an empty one.
QString ToolbarBranchOf(const QString& answer, qsizetype number);
QString ToolbarTipOf(const QString& answer, qsizetype number);

inline const QString NoHandleText = QStringLiteral("You must specify the handle of the existing window.");

// A handle with its "#"; nothing for an empty text.
std::optional<QString> WindowHandleOf(const QString& text);

} // namespace ob
