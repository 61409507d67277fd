// SPDX-License-Identifier: GPL-3.0-or-later
// Keys as a BASIC program sees them: virtual-key codes, characters with their ASCII values, and the table of names.
#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace ob {

// The heading and the table of virtual keys, with lines ending in CR LF.
QString KeyCodeText();

// The line of KeyCodeText, from 0, that names the virtual-key code; -1 when none does.
int KeyCodeLine(int virtualKey);

// The Windows virtual-key code of a Qt::Key; 0 for a key without one. A shifted symbol counts as its key on a US
// keyboard.
int VirtualKeyOf(int key, Qt::KeyboardModifiers modifiers);

// "Shift  Ctrl  65": the modifiers held and the virtual-key code. A modifier key counts as held itself. Nothing for a
// key without a code.
QString KeyDownText(int key, Qt::KeyboardModifiers modifiers);

// The code, 0 to 255 in the ANSI code page, of the character that a program receives for a pressed key; text is the
// toolkit's text for the key. Nothing for a key that produces no character.
std::optional<int> KeyPressCode(int key, Qt::KeyboardModifiers modifiers, QStringView text);

// "a   97": the character and its value.
QString KeyPressText(int code);

} // namespace ob
