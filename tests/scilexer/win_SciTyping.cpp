// SPDX-License-Identifier: GPL-3.0-or-later
// The edit control's keys: what types, what does not, and how much one undo takes back; and its margin and scroll bar.
#include "SciBench.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QtTest>

#include <string>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr unsigned GetStyleSize = 2062; // in hundredths of a point
constexpr std::uintptr_t DefaultStyle = 32;
constexpr std::uintptr_t LineNumberStyle = 33;

void Press(const SciBench& bench, int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(bench.control, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QCoreApplication::sendEvent(bench.control, &release);
}

std::string AfterUndo(const SciBench& bench)
{
    SendSci(bench.sci, SCI_UNDO);
    return bench.Text();
}

// The width of the widest number of so many digits, in pixels.
std::intptr_t NumberWidth(const SciBench& bench, std::size_t digits)
{
    return SendSci(bench.sci, SCI_TEXTWIDTH, LineNumberStyle, std::string(digits, '9').c_str());
}

} // namespace

class win_SciTyping : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void combinationsTypeNothing_data();
    void combinationsTypeNothing();
    void charactersOfTheThirdLevelAreTyped();
    void undoTakesAWordBack();
    void undoTakesALineBack();
    void undoTakesBackWhatWasTypedAfterAPause();
    void undoStepsDoNotMarkTheTextAsChanged();
    void numbersOfManyLinesFitTheMargin();
    void scrollBarAppearsForALineThatIsLonger();
};

void win_SciTyping::combinationsTypeNothing_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::newRow("Ctrl") << static_cast<int>(Qt::ControlModifier);
    QTest::newRow("Ctrl+Shift") << static_cast<int>(Qt::ControlModifier | Qt::ShiftModifier);
    QTest::newRow("Alt") << static_cast<int>(Qt::AltModifier);
    QTest::newRow("Alt+Shift") << static_cast<int>(Qt::AltModifier | Qt::ShiftModifier);
    QTest::newRow("Ctrl+Alt") << static_cast<int>(Qt::ControlModifier | Qt::AltModifier);
    QTest::newRow("Meta") << static_cast<int>(Qt::MetaModifier);
}

void win_SciTyping::combinationsTypeNothing()
{
    QFETCH(int, modifiers);
    const SciBench bench("one two");
    for (const QChar character : u"0123456789-=+;,.'!?#q"_s)
        Press(bench, character.toUpper().unicode(), Qt::KeyboardModifiers(modifiers), character);
    for (const QChar character : u"+-5"_s)
        Press(bench, character.unicode(), Qt::KeyboardModifiers(modifiers) | Qt::KeypadModifier, character);
    QCOMPARE(bench.Text(), std::string("one two"));
}

void win_SciTyping::charactersOfTheThirdLevelAreTyped()
{
    const SciBench bench("");
    Press(bench, Qt::Key_At, Qt::GroupSwitchModifier, u"@"_s);
    Press(bench, Qt::Key_Plus, Qt::KeypadModifier, u"+"_s);
    Press(bench, Qt::Key_A, Qt::ShiftModifier, u"A"_s);
    QCOMPARE(bench.Text(), std::string("@+A"));
}

void win_SciTyping::undoTakesAWordBack()
{
    const SciBench bench("");
    QTest::keyClicks(bench.control, u"print a, b2"_s);
    QCOMPARE(AfterUndo(bench), std::string("print a, "));
    QCOMPARE(AfterUndo(bench), std::string("print "));
    QCOMPARE(AfterUndo(bench), std::string());
}

void win_SciTyping::undoTakesALineBack()
{
    const SciBench bench("");
    for (const char* line : {"((", "))"}) {
        QTest::keyClicks(bench.control, QString::fromLatin1(line));
        QTest::keyClick(bench.control, Qt::Key_Return);
    }
    QCOMPARE(bench.Text(), std::string("((\r\n))\r\n"));
    QCOMPARE(AfterUndo(bench), std::string("((\r\n))"));
    QCOMPARE(AfterUndo(bench), std::string("((\r\n"));
    QCOMPARE(AfterUndo(bench), std::string("(("));
    SendSci(bench.sci, SCI_REDO);
    QCOMPARE(bench.Text(), std::string("((\r\n"));
}

void win_SciTyping::undoTakesBackWhatWasTypedAfterAPause()
{
    const SciBench bench("");
    QTest::keyClicks(bench.control, u"pri"_s);
    QTest::qWait(1700);
    QTest::keyClicks(bench.control, u"nt"_s);
    QCOMPARE(AfterUndo(bench), std::string("pri"));
}

void win_SciTyping::undoStepsDoNotMarkTheTextAsChanged()
{
    const SciBench bench("");
    QTest::keyClicks(bench.control, u"a b"_s);
    SendSci(bench.sci, SCI_SETSAVEPOINT);
    QVERIFY(!bench.control->isWindowModified());
    QTest::keyClicks(bench.control, u" c"_s);
    QVERIFY(bench.control->isWindowModified());
    SendSci(bench.sci, SCI_UNDO);
    SendSci(bench.sci, SCI_UNDO);
    QCOMPARE(SendSci(bench.sci, SCI_GETMODIFY), 0);
    QVERIFY(!bench.control->isWindowModified());
}

void win_SciTyping::numbersOfManyLinesFitTheMargin()
{
    SciBench bench;
    SendSci(bench.sci, SCI_STYLESETFONT, DefaultStyle, "Courier New");
    SendSci(bench.sci, SCI_STYLESETSIZE, DefaultStyle, 12);
    SendSci(bench.sci, SCI_STYLECLEARALL);
    const std::intptr_t width = SendSci(bench.sci, SCI_TEXTWIDTH, LineNumberStyle, "_9999");
    SendSci(bench.sci, SCI_SETMARGINWIDTHN, 0, width);
    bench.Insert(0, std::string(999, '\n'));
    bench.Paint();
    const std::intptr_t usual = SendSci(bench.sci, GetStyleSize, LineNumberStyle);
    QCOMPARE(SendSci(bench.sci, GetStyleSize, DefaultStyle), usual);
    bench.Insert(0, std::string(100'000, '\n'));
    bench.Paint();
    // The margin's width is as it was.
    QCOMPARE(SendSci(bench.sci, SCI_GETMARGINWIDTHN, 0), width);
    QVERIFY(NumberWidth(bench, 6) + 3 <= width);
    QVERIFY(SendSci(bench.sci, GetStyleSize, LineNumberStyle) < usual);
    bench.Insert(0, std::string(1'000'000, '\n'));
    bench.Paint();
    QVERIFY(NumberWidth(bench, 7) + 3 <= width);
    SendSci(bench.sci, SCI_CLEARALL);
    bench.Paint();
    QCOMPARE(SendSci(bench.sci, GetStyleSize, LineNumberStyle), usual);
}

void win_SciTyping::scrollBarAppearsForALineThatIsLonger()
{
    SciBench bench("short\r\n");
    const QScrollBar* bar = qobject_cast<QAbstractScrollArea*>(bench.control)->horizontalScrollBar();
    bench.Paint();
    QTRY_VERIFY(!bar->isVisible());
    bench.Insert(0, std::string(300, 'x'));
    bench.Paint();
    QTRY_VERIFY(bar->isVisible());
    SendSci(bench.sci, SCI_CLEARALL);
    bench.Insert(0, "short");
    bench.Paint();
    QTRY_VERIFY(!bar->isVisible());
}

QTEST_MAIN(win_SciTyping)
#include "win_SciTyping.moc"
