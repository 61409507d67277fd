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

using namespace ob;

class win_frmKey : public QObject {
    Q_OBJECT

private:
    QString Key() const { return window->findChild<QLabel*>(QStringLiteral("lblKey"))->text(); }
    QString Ascii() const { return window->findChild<QLineEdit*>(QStringLiteral("txtAscii"))->text(); }
    QPlainTextEdit* Codes() const { return window->findChild<QPlainTextEdit*>(QStringLiteral("txtCodes")); }
    QPushButton* Done() const { return window->findChild<QPushButton*>(QStringLiteral("cmdDone")); }

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
        QCOMPARE(Codes()->toPlainText(), KeyCodeText().replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
        QVERIFY(Codes()->isReadOnly());
        QVERIFY(Key().isEmpty() && Ascii().isEmpty());
    }

    void aCharacterKeyShowsItsCharacterInBothPlaces()
    {
        QTest::keyClick(window->focusWidget(), 'a');
        QCOMPARE(Key(), QStringLiteral("a   97"));
        QCOMPARE(Ascii(), QStringLiteral("a   97"));
    }

    void otherKeysShowTheirCodeAndLeaveTheLastCharacter()
    {
        QTest::keyClick(window->focusWidget(), 'a');
        Press(Qt::Key_F5, Qt::ShiftModifier);
        QCOMPARE(Key(), QStringLiteral("Shift  116"));
        QCOMPARE(Ascii(), QStringLiteral("a   97"));
        Press(Qt::Key_Left);
        QCOMPARE(Key(), QStringLiteral("37"));
        Press(Qt::Key_Control);
        QCOMPARE(Key(), QStringLiteral("Ctrl  17"));
    }

    void tabEnterAndEscapeAreOrdinaryKeys()
    {
        QWidget* field = window->focusWidget();
        Press(Qt::Key_Tab);
        QCOMPARE(Key(), QStringLiteral("\t   9"));
        Press(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(Key(), QStringLiteral("\t   9"));
        Press(Qt::Key_Return);
        QCOMPARE(Key(), QStringLiteral("\r   13"));
        Press(Qt::Key_Escape);
        QCOMPARE(Key(), QStringLiteral("\u001b   27"));
        QVERIFY(window->isVisible());
        QCOMPARE(window->focusWidget(), field);
    }

    void keysAreShownButNotEnteredOrPasted()
    {
        QTest::keyClick(window->focusWidget(), 'a');
        QTest::keyClick(window->focusWidget(), 'b');
        QCOMPARE(Ascii(), QStringLiteral("b   98"));
        Press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(Ascii(), QStringLiteral("\u0016   22"));
    }

    void theTableMarksTheLineOfTheKey()
    {
        Press(Qt::Key_F12);
        QCOMPARE(Codes()->textCursor().selectedText(), QStringLiteral("VK_F12        123  F12 key"));
        QTest::keyClick(window->focusWidget(), 'q');
        QCOMPARE(Codes()->textCursor().selectedText(), QStringLiteral("VK_Q          81   Q key"));
    }

    void altLettersLeaveTheField()
    {
        Press(Qt::Key_T, Qt::AltModifier);
        QCOMPARE(window->focusWidget(), Codes());
        QCOMPARE(Key(), QStringLiteral("Alt  84"));
        Press(Qt::Key_Tab);
        QCOMPARE(window->focusWidget(), Done());
        QVERIFY(window->isVisible());
        Press(Qt::Key_P, Qt::AltModifier);
        QCOMPARE(window->focusWidget()->objectName(), QStringLiteral("txtAscii"));
        Press(Qt::Key_D, Qt::AltModifier);
        QTRY_VERIFY(!window->isVisible());
    }

    void outsideTheFieldKeysAreShownAndWork()
    {
        Codes()->setFocus();
        Press(Qt::Key_Down);
        QCOMPARE(Key(), QStringLiteral("40"));
        QCOMPARE(Codes()->textCursor().blockNumber(), 1);
        Press(Qt::Key_Escape);
        QCOMPARE(Key(), QStringLiteral("\u001b   27"));
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
        bench.ExpectModal(QStringLiteral("frmKey"),
                          [](QDialog& dialog) { dialog.findChild<QPushButton*>(QStringLiteral("cmdDone"))->click(); });
        mnuToolKeyCode_Click();
    }
};

OB_BENCH_TEST(win_frmKey)
#include "win_frmKey.moc"
