// SPDX-License-Identifier: GPL-3.0-or-later
// Keys as a BASIC program sees them: the table, virtual-key codes, characters.
#include "codetools/modKeyCodes.h"

#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr auto None = Qt::NoModifier;
constexpr auto Shift = Qt::ShiftModifier;
constexpr auto Control = Qt::ControlModifier;
constexpr auto Alt = Qt::AltModifier;
constexpr auto Keypad = Qt::KeypadModifier;

QStringList Lines()
{
    return KeyCodeText().split(u"\r\n"_s);
}

// The value of a name in the table.
int TableValue(const QString& name)
{
    for (const QString& line : Lines())
        if (line.startsWith(name + QLatin1Char(' ')))
            return line.mid(name.size()).trimmed().section(QLatin1Char(' '), 0, 0).toInt();
    return -1;
}

} // namespace

class tst_modKeyCodes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theTableHasAHeadAndAHundredAndSevenLines()
    {
        const QStringList lines = Lines();
        QCOMPARE(lines.size(), 2 + 107 + 1);
        QCOMPARE(lines[0], u"Key Name   Decimal  Mouse or keyboard equivalent"_s);
        QCOMPARE(lines[1], u"            Value"_s);
        QCOMPARE(lines[2], u"VK_LBUTTON    01   Left mouse button"_s);
        QCOMPARE(lines[5], u"VK_MBUTTON    04   Middle mouse button (three-button mouse)"_s);
        QCOMPARE(lines[27], u"VK_SNAPSHOT   44   PRINT SCREEN key for Windows 3.0 and later"_s);
        QCOMPARE(lines[71], u"VK_NUMPAD4    100  Numeric keypad 4 key"_s);
        QCOMPARE(lines[108], u"VK_SCROLL     145  SCROLL LOCK key"_s);
        QVERIFY(lines.last().isEmpty());
        QVERIFY(!KeyCodeText().remove(u"\r\n"_s).contains(QLatin1Char('\n')));
    }

    void everyLineOfTheTableIsFoundByItsValue()
    {
        const QStringList lines = Lines();
        QSet<int> values;
        for (int line = 2; line < 109; ++line) {
            const int value = TableValue(lines[line].section(QLatin1Char(' '), 0, 0));
            values.insert(value);
            QCOMPARE(KeyCodeLine(value), line);
        }
        QCOMPARE(values.size(), 107);
        QCOMPARE(KeyCodeLine(0), -1);
        QCOMPARE(KeyCodeLine(186), -1);
    }

    void lettersDigitsAndFunctionKeysHaveTheirTableValue()
    {
        for (int i = 0; i < 26; ++i) {
            const int value = TableValue(u"VK_"_s + QChar('A' + i));
            QCOMPARE(VirtualKeyOf(Qt::Key_A + i, None), value);
            QCOMPARE(VirtualKeyOf(Qt::Key_A + i, Shift), value);
            QCOMPARE(VirtualKeyOf(Qt::Key_A + i, Control | Alt), value);
        }
        for (int i = 0; i < 10; ++i) {
            QCOMPARE(VirtualKeyOf(Qt::Key_0 + i, None), TableValue(u"VK_%1"_s.arg(i)));
            QCOMPARE(VirtualKeyOf(Qt::Key_0 + i, Keypad), TableValue(u"VK_NUMPAD%1"_s.arg(i)));
        }
        for (int i = 1; i <= 24; ++i)
            QCOMPARE(VirtualKeyOf(Qt::Key_F1 + i - 1, None), TableValue(u"VK_F%1"_s.arg(i)));
    }

    void namedKeysHaveTheirTableValue_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        const auto row = [](const char* name, int key, Qt::KeyboardModifiers modifiers = {}) {
            QTest::newRow(name) << key << static_cast<int>(modifiers);
        };
        row("VK_CANCEL", Qt::Key_Cancel);
        row("VK_BACK", Qt::Key_Backspace);
        row("VK_TAB", Qt::Key_Tab);
        row("VK_TAB/shifted", Qt::Key_Backtab, Shift);
        row("VK_CLEAR", Qt::Key_Clear, Keypad);
        row("VK_RETURN", Qt::Key_Return);
        row("VK_RETURN/keypad", Qt::Key_Enter, Keypad);
        row("VK_SHIFT", Qt::Key_Shift);
        row("VK_CONTROL", Qt::Key_Control);
        row("VK_MENU", Qt::Key_Alt);
        row("VK_MENU/right", Qt::Key_AltGr);
        row("VK_PAUSE", Qt::Key_Pause);
        row("VK_CAPITAL", Qt::Key_CapsLock);
        row("VK_ESCAPE", Qt::Key_Escape);
        row("VK_SPACE", Qt::Key_Space);
        row("VK_PRIOR", Qt::Key_PageUp);
        row("VK_NEXT", Qt::Key_PageDown);
        row("VK_END", Qt::Key_End);
        row("VK_HOME", Qt::Key_Home);
        row("VK_LEFT", Qt::Key_Left);
        row("VK_LEFT/keypad", Qt::Key_Left, Keypad);
        row("VK_UP", Qt::Key_Up);
        row("VK_RIGHT", Qt::Key_Right);
        row("VK_DOWN", Qt::Key_Down);
        row("VK_SELECT", Qt::Key_Select);
        row("VK_EXECUTE", Qt::Key_Execute);
        row("VK_SNAPSHOT", Qt::Key_Print);
        row("VK_SNAPSHOT/with Alt", Qt::Key_SysReq, Alt);
        row("VK_INSERT", Qt::Key_Insert);
        row("VK_DELETE", Qt::Key_Delete);
        row("VK_HELP", Qt::Key_Help);
        row("VK_MULTIPLY", Qt::Key_Asterisk, Keypad);
        row("VK_ADD", Qt::Key_Plus, Keypad);
        row("VK_SEPARATOR", Qt::Key_Comma, Keypad);
        row("VK_SUBTRACT", Qt::Key_Minus, Keypad);
        row("VK_DECIMAL", Qt::Key_Period, Keypad);
        row("VK_DIVIDE", Qt::Key_Slash, Keypad);
        row("VK_NUMLOCK", Qt::Key_NumLock, Keypad);
        row("VK_SCROLL", Qt::Key_ScrollLock);
    }

    void namedKeysHaveTheirTableValue()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        const QString name = QString::fromLatin1(QTest::currentDataTag()).section(QLatin1Char('/'), 0, 0);
        QVERIFY(TableValue(name) > 0);
        QCOMPARE(VirtualKeyOf(key, Qt::KeyboardModifiers(modifiers)), TableValue(name));
    }

    void symbolsCountAsTheirKey()
    {
        const QString shifted = u")!@#$%^&*("_s;
        for (int i = 0; i < 10; ++i)
            QCOMPARE(VirtualKeyOf(shifted[i].unicode(), Shift), 48 + i);
        const QString keys = u";=,-./`[\\]'"_s;
        const QString above = u":+<_>?~{|}\""_s;
        const QList<int> codes = {186, 187, 188, 189, 190, 191, 192, 219, 220, 221, 222};
        for (int i = 0; i < codes.size(); ++i) {
            QCOMPARE(VirtualKeyOf(keys[i].unicode(), None), codes[i]);
            QCOMPARE(VirtualKeyOf(above[i].unicode(), Shift), codes[i]);
        }
    }

    void aKeyWithoutACodeShowsNothing()
    {
        QCOMPARE(VirtualKeyOf(Qt::Key_unknown, None), 0);
        QCOMPARE(VirtualKeyOf(Qt::Key_Dead_Acute, None), 0);
        QCOMPARE(KeyDownText(Qt::Key_Dead_Acute, Shift), QString());
    }

    void aPressedKeyShowsModifiersAndCode()
    {
        QCOMPARE(KeyDownText(Qt::Key_A, None), u"65"_s);
        QCOMPARE(KeyDownText(Qt::Key_A, Shift), u"Shift  65"_s);
        QCOMPARE(KeyDownText(Qt::Key_F5, Control), u"Ctrl  116"_s);
        QCOMPARE(KeyDownText(Qt::Key_Delete, Alt | Control), u"Ctrl  Alt  46"_s);
        QCOMPARE(KeyDownText(Qt::Key_5, Alt | Control | Shift | Keypad), u"Shift  Ctrl  Alt  101"_s);
    }

    void aModifierAloneShowsItsNameAndCode()
    {
        QCOMPARE(KeyDownText(Qt::Key_Shift, None), u"Shift  16"_s);
        QCOMPARE(KeyDownText(Qt::Key_Shift, Shift), u"Shift  16"_s);
        QCOMPARE(KeyDownText(Qt::Key_Control, None), u"Ctrl  17"_s);
        QCOMPARE(KeyDownText(Qt::Key_Alt, None), u"Alt  18"_s);
        QCOMPARE(KeyDownText(Qt::Key_Control, Shift), u"Shift  Ctrl  17"_s);
    }

    void charactersHaveTheirAnsiValue_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("code");
        const auto row = [](const char* name, int key, Qt::KeyboardModifiers modifiers, const QString& text, int code) {
            QTest::newRow(name) << key << static_cast<int>(modifiers) << text << code;
        };
        row("letter", Qt::Key_A, None, u"a"_s, 97);
        row("capital", Qt::Key_A, Shift, u"A"_s, 65);
        row("keypad digit", Qt::Key_7, Keypad, u"7"_s, 55);
        row("space", Qt::Key_Space, None, u" "_s, 32);
        row("umlaut", Qt::Key_Adiaeresis, None, u"\u00e4"_s, 228);
        row("euro with the right Alt", Qt::Key_E, Alt | Control, u"\u20ac"_s, 128);
        row("not in the code page", Qt::Key_A, None, u"\u0430"_s, 63);
        row("Backspace", Qt::Key_Backspace, None, {}, 8);
        row("Ctrl+Backspace", Qt::Key_Backspace, Control, u"\u007f"_s, 127);
        row("Tab", Qt::Key_Tab, None, {}, 9);
        row("Shift+Tab", Qt::Key_Backtab, Shift, {}, 9);
        row("Enter", Qt::Key_Return, None, u"\r"_s, 13);
        row("keypad Enter", Qt::Key_Enter, Keypad, u"\r"_s, 13);
        row("Ctrl+Enter", Qt::Key_Return, Control, u"\r"_s, 10);
        row("Escape", Qt::Key_Escape, None, {}, 27);
        row("Ctrl+A", Qt::Key_A, Control, {}, 1);
        row("Ctrl+Z", Qt::Key_Z, Control, u"\u001a"_s, 26);
        row("Ctrl+[", Qt::Key_BracketLeft, Control, {}, 27);
        row("Ctrl+_", Qt::Key_Underscore, Control | Shift, {}, 31);
    }

    void charactersHaveTheirAnsiValue()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(QString, text);
        QFETCH(int, code);
        QCOMPARE(KeyPressCode(key, Qt::KeyboardModifiers(modifiers), text), std::optional(code));
    }

    void keysWithoutACharacterAreIgnored()
    {
        QCOMPARE(KeyPressCode(Qt::Key_F1, None, {}), std::nullopt);
        QCOMPARE(KeyPressCode(Qt::Key_Left, None, {}), std::nullopt);
        QCOMPARE(KeyPressCode(Qt::Key_Shift, Shift, {}), std::nullopt);
        QCOMPARE(KeyPressCode(Qt::Key_Delete, None, u"\u007f"), std::nullopt);
        QCOMPARE(KeyPressCode(Qt::Key_D, Alt, u"d"), std::nullopt);
        QCOMPARE(KeyPressCode(Qt::Key_5, Control, u"5"), std::nullopt);
        QCOMPARE(KeyPressCode(Qt::Key_Tab, Control, u"\t"), std::nullopt);
    }

    void aCharacterIsShownWithItsValue()
    {
        QCOMPARE(KeyPressText(97), u"a   97"_s);
        QCOMPARE(KeyPressText(32), u"    32"_s);
        QCOMPARE(KeyPressText(228), u"\u00e4   228"_s);
        QCOMPARE(KeyPressText(128), u"\u20ac   128"_s);
        QCOMPARE(KeyPressText(13), u"\r   13"_s);
    }
};

QTEST_APPLESS_MAIN(tst_modKeyCodes)
#include "tst_modKeyCodes.moc"
