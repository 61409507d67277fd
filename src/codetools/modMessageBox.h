// SPDX-License-Identifier: GPL-3.0-or-later
// The message box maker: the code of a message box with a sound.
#pragma once

#include "platform/dialogs/modDialogs.h"

namespace ob {

struct MessageBoxSpec {
    QString title;
    QString message;
    BoxIcon icon = BoxIcon::None;
    BoxButtons buttons = BoxButtons::Ok;
};

inline const QString MessageBoxCopiedText = QStringLiteral(
    "MessageBox code has been copied to the clipboard.  Please choose 'Paste' to paste it into your code.");

// The same with default words for an empty title and an empty message.
MessageBoxSpec WithDefaultTexts(MessageBoxSpec spec);

// The code, with lines ending in CR LF. Title and message are inserted unchanged.
QString MessageBoxCode(const MessageBoxSpec& spec);

} // namespace ob
