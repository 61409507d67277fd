// SPDX-License-Identifier: GPL-3.0-or-later
// The key codes window and the keys pressed in it.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "codetools/frmKey.h"
#include "codetools/modKeyCodes.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>

using namespace Qt::StringLiterals;

using namespace ob;

class win_frmKey : public QObject {
    Q_OBJECT

private:
    QString Key() const { return window->findChild<QLabel*>(u"lblKey"_s)->text(); }
    QString Ascii() const { return window->findChild<QLineEdit*>(u"txtAscii"_s)->text(); }
    QPlainTextEdit* Codes() const { return window->findChild<QPlainTextEdit*>(u"txtCodes"_s); }
    QPushButton* Done() const { return window->findChild<QPushButton*>(u"cmdDone"_s); }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(window->focusWidget(), key, modifiers);
    }

    std::unique_ptr<frmKey> window;

private Q_SLOTS:
    void init()
    {
        window = std::make_unique<frmKey>();
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    void cleanup() { window.reset(); }

    void theTableIsShown()
    {
        QCOMPARE(Codes()->toPlainText(), KeyCodeText().replace(u"\r\n"_s, u"\n"_s));
        QVERIFY(Codes()->isReadOnly());
        QVERIFY(Key().isEmpty() && Ascii().isEmpty());
    }

    void aCharacterKeyShowsItsCharacterInBothPlaces()
    {
        QTest::keyClick(window->focusWidget(), 'a');
        QCOMPARE(Key(), u"a   97"_s);
        QCOMPARE(Ascii(), u"a   97"_s);
    }

    void otherKeysShowTheirCodeAndLeaveTheLastCharacter()
    {
        QTest::keyClick(window->focusWidget(), 'a');
        Press(Qt::Key_F5, Qt::ShiftModifier);
        QCOMPARE(Key(), u"Shift  116"_s);
        QCOMPARE(Ascii(), u"a   97"_s);
        Press(Qt::Key_Left);
        QCOMPARE(Key(), u"37"_s);
        Press(Qt::Key_Control);
        QCOMPARE(Key(), u"Ctrl  17"_s);
    }

    void tabEnterAndEscapeAreOrdinaryKeys()
    {
        QWidget* field = window->focusWidget();
        Press(Qt::Key_Tab);
        QCOMPARE(Key(), u"\t   9"_s);
        Press(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(Key(), u"\t   9"_s);
        Press(Qt::Key_Return);
        QCOMPARE(Key(), u"\r   13"_s);
        Press(Qt::Key_Escape);
        QCOMPARE(Key(), u"\u001b   27"_s);
        QVERIFY(window->isVisible());
        QCOMPARE(window->focusWidget(), field);
    }

    void keysAreShownButNotEnteredOrPasted()
    {
        QTest::keyClick(window->focusWidget(), 'a');
        QTest::keyClick(window->focusWidget(), 'b');
        QCOMPARE(Ascii(), u"b   98"_s);
        Press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(Ascii(), u"\u0016   22"_s);
    }

    void theTableMarksTheLineOfTheKey()
    {
        Press(Qt::Key_F12);
        QCOMPARE(Codes()->textCursor().selectedText(), u"VK_F12        123  F12 key"_s);
        QTest::keyClick(window->focusWidget(), 'q');
        QCOMPARE(Codes()->textCursor().selectedText(), u"VK_Q          81   Q key"_s);
    }

    void altLettersLeaveTheField()
    {
        Press(Qt::Key_T, Qt::AltModifier);
        QCOMPARE(window->focusWidget(), Codes());
        QCOMPARE(Key(), u"Alt  84"_s);
        Press(Qt::Key_Tab);
        QCOMPARE(window->focusWidget(), Done());
        QVERIFY(window->isVisible());
        Press(Qt::Key_P, Qt::AltModifier);
        QCOMPARE(window->focusWidget()->objectName(), u"txtAscii"_s);
        Press(Qt::Key_D, Qt::AltModifier);
        QTRY_VERIFY(!window->isVisible());
    }

    void outsideTheFieldKeysAreShownAndWork()
    {
        Codes()->setFocus();
        Press(Qt::Key_Down);
        QCOMPARE(Key(), u"40"_s);
        QCOMPARE(Codes()->textCursor().blockNumber(), 1);
        Press(Qt::Key_Escape);
        QCOMPARE(Key(), u"\u001b   27"_s);
        QVERIFY(!window->isVisible());
    }

    void doneCloses()
    {
        QTest::mouseClick(Done(), Qt::LeftButton);
        QVERIFY(!window->isVisible());
    }

    void theMenuItemShowsItModally()
    {
        TestBench bench;
        bench.ExpectModal(u"frmKey"_s, [](QDialog& dialog) { dialog.findChild<QPushButton*>(u"cmdDone"_s)->click(); });
        mnuToolKeyCode_Click();
    }
};

OB_BENCH_TEST(win_frmKey)
#include "win_frmKey.moc"
