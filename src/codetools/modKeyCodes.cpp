// SPDX-License-Identifier: GPL-3.0-or-later
// Keys as a BASIC program sees them.
#include "codetools/modKeyCodes.h"

#include "platform/language/modAnsi.h"
#include "shell/state/modTexts.h"

#include <QStringList>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

struct KeyRow {
    int key;
    int code;
};

// clang-format off
constexpr KeyRow keypadRows[] = {
    {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107}, {Qt::Key_Comma, 108}, {Qt::Key_Minus, 109}, {Qt::Key_Period, 110},
    {Qt::Key_Slash, 111},
};

constexpr KeyRow keyRows[] = {
    {Qt::Key_Cancel, 3}, {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9}, {Qt::Key_Backtab, 9}, {Qt::Key_Clear, 12},
    {Qt::Key_Return, 13}, {Qt::Key_Enter, 13}, {Qt::Key_Shift, 16}, {Qt::Key_Control, 17}, {Qt::Key_Alt, 18},
    {Qt::Key_AltGr, 18}, {Qt::Key_Pause, 19}, {Qt::Key_CapsLock, 20}, {Qt::Key_Escape, 27}, {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33}, {Qt::Key_PageDown, 34}, {Qt::Key_End, 35}, {Qt::Key_Home, 36}, {Qt::Key_Left, 37},
    {Qt::Key_Up, 38}, {Qt::Key_Right, 39}, {Qt::Key_Down, 40}, {Qt::Key_Select, 41}, {Qt::Key_Printer, 42},
    {Qt::Key_Execute, 43}, {Qt::Key_Print, 44}, {Qt::Key_SysReq, 44}, {Qt::Key_Insert, 45}, {Qt::Key_Delete, 46},
    {Qt::Key_Help, 47},
    // The symbols above the digits, and those of the keys around the letters.
    {Qt::Key_ParenRight, 48}, {Qt::Key_Exclam, 49}, {Qt::Key_At, 50}, {Qt::Key_NumberSign, 51},
    {Qt::Key_Dollar, 52}, {Qt::Key_Percent, 53}, {Qt::Key_AsciiCircum, 54}, {Qt::Key_Ampersand, 55},
    {Qt::Key_Asterisk, 56}, {Qt::Key_ParenLeft, 57},
    {Qt::Key_Semicolon, 186}, {Qt::Key_Colon, 186}, {Qt::Key_Equal, 187}, {Qt::Key_Plus, 187},
    {Qt::Key_Comma, 188}, {Qt::Key_Less, 188}, {Qt::Key_Minus, 189}, {Qt::Key_Underscore, 189},
    {Qt::Key_Period, 190}, {Qt::Key_Greater, 190}, {Qt::Key_Slash, 191}, {Qt::Key_Question, 191},
    {Qt::Key_QuoteLeft, 192}, {Qt::Key_AsciiTilde, 192}, {Qt::Key_BracketLeft, 219}, {Qt::Key_BraceLeft, 219},
    {Qt::Key_Backslash, 220}, {Qt::Key_Bar, 220}, {Qt::Key_BracketRight, 221}, {Qt::Key_BraceRight, 221},
    {Qt::Key_Apostrophe, 222}, {Qt::Key_QuoteDbl, 222},
    // Keys of more recent keyboards.
    {Qt::Key_Meta, 91}, {Qt::Key_Super_L, 91}, {Qt::Key_Super_R, 92}, {Qt::Key_Menu, 93}, {Qt::Key_Sleep, 95},
    {Qt::Key_NumLock, 144}, {Qt::Key_ScrollLock, 145}, {Qt::Key_Back, 166}, {Qt::Key_Forward, 167},
    {Qt::Key_Refresh, 168}, {Qt::Key_Stop, 169}, {Qt::Key_Search, 170}, {Qt::Key_Favorites, 171},
    {Qt::Key_HomePage, 172}, {Qt::Key_VolumeMute, 173}, {Qt::Key_VolumeDown, 174}, {Qt::Key_VolumeUp, 175},
    {Qt::Key_MediaNext, 176}, {Qt::Key_MediaPrevious, 177}, {Qt::Key_MediaStop, 178}, {Qt::Key_MediaPlay, 179},
    {Qt::Key_MediaTogglePlayPause, 179}, {Qt::Key_LaunchMail, 180},
};
// clang-format on

template <std::size_t Count>
int CodeIn(const KeyRow (&rows)[Count], int key)
{
    const auto* row =
        std::find_if(std::begin(rows), std::end(rows), [key](const KeyRow& each) { return each.key == key; });
    return row == std::end(rows) ? 0 : row->code;
}

// Whether a press can produce a character at all: Alt alone is for menus; Alt with Ctrl is AltGr.
bool IsMenuKey(Qt::KeyboardModifiers modifiers)
{
    return modifiers.testFlag(Qt::AltModifier) && !modifiers.testFlag(Qt::ControlModifier);
}

bool IsControlKey(Qt::KeyboardModifiers modifiers)
{
    return modifiers.testFlag(Qt::ControlModifier) && !modifiers.testFlag(Qt::AltModifier);
}

// Keys that produce the same character on every system, whatever the toolkit reports.
std::optional<int> FixedCode(int key, Qt::KeyboardModifiers modifiers)
{
    const bool control = IsControlKey(modifiers);
    switch (key) {
    case Qt::Key_Backspace:
        return control ? 127 : 8;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return control ? std::nullopt : std::optional(9);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return control ? 10 : 13;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_Space:
        return 32;
    default:
        break;
    }
    if (control && key >= Qt::Key_A && key <= Qt::Key_Z)
        return key - Qt::Key_A + 1;
    if (control && key >= Qt::Key_BracketLeft && key <= Qt::Key_Underscore)
        return key - Qt::Key_BracketLeft + 27;
    return std::nullopt;
}

QStringList KeyCodeLines()
{
    QStringList lines = {u"Key Name   Decimal  Mouse or keyboard equivalent"_s, u"            Value"_s};
    if (const auto table = EmbeddedText(u"keycodes.txt"_s)) {
        const QString rows = QString::fromLatin1(table->data(), static_cast<qsizetype>(table->size()));
        lines += rows.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    return lines;
}

} // namespace

QString KeyCodeText()
{
    return KeyCodeLines().join(QLatin1String("\r\n")) + QLatin1String("\r\n");
}

int KeyCodeLine(int virtualKey)
{
    const QStringList lines = KeyCodeLines();
    for (qsizetype line = 2; line < lines.size(); ++line) {
        const QStringList fields = lines[line].split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (fields.size() > 1 && fields[1].toInt() == virtualKey)
            return static_cast<int>(line);
    }
    return -1;
}

int VirtualKeyOf(int key, Qt::KeyboardModifiers modifiers)
{
    const bool keypad = modifiers.testFlag(Qt::KeypadModifier);
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return key - Qt::Key_A + 65;
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return key - Qt::Key_0 + (keypad ? 96 : 48);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return key - Qt::Key_F1 + 112;
    const int onKeypad = keypad ? CodeIn(keypadRows, key) : 0;
    return onKeypad != 0 ? onKeypad : CodeIn(keyRows, key);
}

QString KeyDownText(int key, Qt::KeyboardModifiers modifiers)
{
    const int code = VirtualKeyOf(key, modifiers);
    if (code == 0)
        return {};
    QString text;
    if (modifiers.testFlag(Qt::ShiftModifier) || key == Qt::Key_Shift)
        text += QLatin1String("Shift  ");
    if (modifiers.testFlag(Qt::ControlModifier) || key == Qt::Key_Control)
        text += QLatin1String("Ctrl  ");
    if (modifiers.testFlag(Qt::AltModifier) || key == Qt::Key_Alt || key == Qt::Key_AltGr)
        text += QLatin1String("Alt  ");
    return text + QString::number(code);
}

std::optional<int> KeyPressCode(int key, Qt::KeyboardModifiers modifiers, QStringView text)
{
    if (IsMenuKey(modifiers))
        return std::nullopt;
    if (const auto code = FixedCode(key, modifiers))
        return code;
    // With Ctrl no other key produces a character, and Delete never does, though some systems report one for it.
    if (IsControlKey(modifiers) || key == Qt::Key_Delete || text.isEmpty())
        return std::nullopt;
    return static_cast<unsigned char>(AnsiFromText(text).bytes.front());
}

QString KeyPressText(int code)
{
    const char character = static_cast<char>(code);
    return TextFromAnsi(QByteArrayView(&character, 1)) + QLatin1String("   ") + QString::number(code);
}

} // namespace ob
