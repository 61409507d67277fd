// SPDX-License-Identifier: GPL-3.0-or-later
// A question before a window closes with work in it.
#pragma once

#include <QString>

#include <functional>

class QDialog;

namespace ob {

// Escape and the close button of the window ask first while something would be lost; its own buttons do not. `lost`
// names it with its number, as the start of a sentence: "3 items", "The list of 12 bitmaps"; empty for nothing.
void AskBeforeLoss(QDialog& window, std::function<QString()> lost);

// "1 item", "2 items"; empty for none.
QString CountOf(qsizetype count, const QString& one, const QString& many);

inline QString LossQuestion(const QString& lost)
{
    return QStringLiteral("Close this window? %1 will be lost.").arg(lost);
}

} // namespace ob
