// SPDX-License-Identifier: GPL-3.0-or-later
// QScintilla's base class. Its header needs Qt's short keywords, which the project switches off.
#pragma once

#include <QAbstractScrollArea>

#define signals Q_SIGNALS
#define slots Q_SLOTS
#include <Qsci/qsciscintillabase.h>
#undef signals
#undef slots
