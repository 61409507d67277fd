// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the Edit menu on a real control: auto-indent, keyword list, syntax tip, block comment.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "editor/document/modBookmarks.h"
#include "editor/document/modSyntaxTable.h"
#include "editor/frmDocument.h"
#include "editor/modEdit.h"
#include "editor/modEditText.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"

#include <QAbstractScrollArea>
#include <QComboBox>
#include <QFile>
#include <QListWidget>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr char NoCodeWindow[] = "No code window is active!";

// The program with one file in a window.
struct EditBench {
    explicit EditBench(const QByteArray& text)
    {
        bench.Start({bench.Write(u"a.bas"_s, text + "\r\n")});
        QuitQuery = false;
    }

    Sci sci() const { return bench.Active()->sci; }
    QWidget* Edit() const { return bench.ActiveWindowEdit(); }
    std::intptr_t Ask(unsigned message, std::uintptr_t wParam = 0) const { return SendSci(sci(), message, wParam); }
    std::intptr_t Caret() const { return Ask(SCI_GETCURRENTPOS); }
    QByteArray Text() const { return TestBench::Text(bench.Active()); }
    void Select(std::intptr_t anchor, std::intptr_t caret) const
    {
        SendSci(sci(), SCI_SETSEL, static_cast<std::uintptr_t>(anchor), caret);
    }
    void GoTo(std::intptr_t position) const { Select(position, position); }
    void Key(Qt::Key key) const { QTest::keyClick(Edit(), key); }
    void Type(const char* text) const { QTest::keyClicks(Edit(), QString::fromUtf8(text)); }

    // The text with "|" where the caret is.
    QByteArray Marked() const { return Text().insert(static_cast<qsizetype>(Caret()), '|'); }

    TestBench bench;
};

QStringList ShownList(const EditBench& b)
{
    QStringList words;
    const auto* list = b.Edit()->findChild<QListWidget*>();
    for (int i = 0; list != nullptr && i < list->count(); ++i)
        words.append(list->item(i)->text());
    return words;
}

QByteArray Chosen(const EditBench& b)
{
    QByteArray word(64, '\0');
    SendSci(b.sci(), SCI_AUTOCGETCURRENTTEXT, 0, word.data());
    return word.constData();
}

// The distance of the tip from the foot of the character at that position: columns in pixels, lines in whole lines.
QPoint TipOffset(const EditBench& b, std::intptr_t position)
{
    const auto tips = b.Edit()->findChildren<QWidget*>();
    const auto tip = std::ranges::find_if(tips, [](const QWidget* child) {
        return child->isVisible() && QByteArray(child->metaObject()->className()).contains("CallTip");
    });
    if (tip == tips.end())
        return {-1, -1};
    const auto ask = [&](unsigned message) { return static_cast<int>(SendSci(b.sci(), message, 0, position)); };
    const QPoint letter(ask(SCI_POINTXFROMPOSITION), ask(SCI_POINTYFROMPOSITION));
    const auto* area = qobject_cast<QAbstractScrollArea*>(b.Edit());
    const QPoint offset = (*tip)->pos() - area->viewport()->mapToGlobal(letter);
    const int lineHeight = static_cast<int>(b.Ask(SCI_TEXTHEIGHT));
    // The tip's own margin is a few pixels.
    return {std::abs(offset.x()) < 10 ? 0 : offset.x(), (offset.y() + lineHeight / 2) / lineHeight};
}

} // namespace

class win_modEdit : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void returnIndentsAsTheTextFunctionSays_data();
    void returnIndentsAsTheTextFunctionSays();
    void returnInTheMiddleOfALineIndentsItsRest();
    void returnAtTheStartOfTheSecondLineWorks();
    void returnDoesNotIndentWithTheSettingOff();
    void returnOfACaretOnTheFirstLineKeepsItsIndentation();
    void returnIsUndoneInTwoSteps();
    void heldReturnIndentsOnceAtItsEnd();
    void aKeyPressedBeforeReturnIsReleasedIsIndentedToo();
    void returnKeepsTheView();
    void indentationIsCountedInCharacters();

    void theKeywordListShowsEveryWordInItsOrder();
    void aWordsStartSelectsFromTheList();
    void everyWordOfTheListIsFoundByItsStart();
    void wordsOfTheUserAreNotOffered();
    void returnThatSelectedFromTheListIndentsAllTheSame_data();
    void returnThatSelectedFromTheListIndentsAllTheSame();

    void theTipShowsAtTheWord();
    void theTipOfASelectionShowsAtTheTextsStart();
    void theTipHidesOnAScroll();
    void theListAndTheTipReplaceEachOther();

    void blockCommentIsOneStep();
    void blockCommentKeepsTheSelection();
    void blockCommentWithoutASelectionLeavesTheCaretAfterTheLine();
    void blockCommentOfNothingChangesNothing();
    void blockCommentKeepsBookmarks();
    void blockCommentKeepsNuls();
    void commentsOfTheProgrammerAreInsertedAtTheCaret();
    void commandsNeedACodeWindow();
};

void win_modEdit::returnIndentsAsTheTextFunctionSays_data()
{
    QTest::addColumn<QByteArray>("line");
    for (const char* line : {"print", "  print", "   ", "\tprint", " \t print", "if x then", "  FOR i = 1 to 2", "do",
                             "do ", "\tif x", "if(x)", "\xC3\xA4\xC3\xB6"})
        QTest::newRow(line) << QByteArray(line);
}

void win_modEdit::returnIndentsAsTheTextFunctionSays()
{
    QFETCH(QByteArray, line);
    for (const int tabSize : {1, 3, 4, 8}) {
        EditBench b("a");
        Editor.TabSize = tabSize;
        SendSci(b.sci(), SCI_SETTABWIDTH, static_cast<std::uintptr_t>(tabSize));
        SendSci(b.sci(), SCI_CLEARALL);
        const QByteArray text = "x\r\n" + line + "\r\ny";
        TestBench::Type(b.bench.Active(), text);
        b.GoTo(3 + line.size());
        b.Key(Qt::Key_Return);
        const TextChange change = ReturnAtEnd(text, 3, tabSize);
        QCOMPARE(b.Text(), QByteArray(text).replace(change.from, change.to - change.from, change.replacement));
        QCOMPARE(b.Caret(), change.from + change.replacement.size());
    }
}

void win_modEdit::returnInTheMiddleOfALineIndentsItsRest()
{
    const EditBench b("  while a: print: wend");
    b.GoTo(10);
    b.Key(Qt::Key_Return);
    // The rest's own spaces count as its indentation, which is replaced.
    QCOMPARE(b.Marked(), QByteArray("  while a:\r\n      |print: wend"));
}

void win_modEdit::returnAtTheStartOfTheSecondLineWorks()
{
    const EditBench b(" a\r\nb");
    b.GoTo(0);
    b.Key(Qt::Key_Return);
    QCOMPARE(b.Marked(), QByteArray("\r\n|a\r\nb"));
}

void win_modEdit::returnDoesNotIndentWithTheSettingOff()
{
    const EditBench b("  if x then");
    Editor.AutoIndent = false;
    b.GoTo(11);
    b.Key(Qt::Key_Return);
    QCOMPARE(b.Marked(), QByteArray("  if x then\r\n|"));
}

void win_modEdit::returnOfACaretOnTheFirstLineKeepsItsIndentation()
{
    const EditBench b("   abc");
    b.GoTo(5);
    AddTab(*b.bench.Active());
    QCOMPARE(b.Text(), QByteArray("abc"));
    QCOMPARE(b.Caret(), 3);
}

void win_modEdit::returnIsUndoneInTwoSteps()
{
    const EditBench b("  if x then");
    b.GoTo(11);
    b.Key(Qt::Key_Return);
    QCOMPARE(b.Text(), QByteArray("  if x then\r\n      "));
    SendSci(b.sci(), SCI_UNDO);
    QCOMPARE(b.Text(), QByteArray("  if x then\r\n"));
    SendSci(b.sci(), SCI_UNDO);
    QCOMPARE(b.Text(), QByteArray("  if x then"));
    SendSci(b.sci(), SCI_REDO);
    SendSci(b.sci(), SCI_REDO);
    QCOMPARE(b.Text(), QByteArray("  if x then\r\n      "));
}

void win_modEdit::heldReturnIndentsOnceAtItsEnd()
{
    const EditBench b("  a");
    b.GoTo(3);
    const auto send = [&](QEvent::Type type, bool repeat) {
        QKeyEvent key(type, Qt::Key_Return, Qt::NoModifier, u"\r"_s, repeat);
        QApplication::sendEvent(b.Edit(), &key);
    };
    send(QEvent::KeyPress, false);
    send(QEvent::KeyRelease, true);
    send(QEvent::KeyPress, true);
    QCOMPARE(b.Text(), QByteArray("  a\r\n\r\n"));
    send(QEvent::KeyRelease, false);
    // The line before the last is empty.
    QCOMPARE(b.Marked(), QByteArray("  a\r\n\r\n|"));
}

void win_modEdit::aKeyPressedBeforeReturnIsReleasedIsIndentedToo()
{
    const EditBench b("  a");
    b.GoTo(3);
    QTest::keyPress(b.Edit(), Qt::Key_Return);
    QTest::keyClick(b.Edit(), Qt::Key_B);
    QTest::keyRelease(b.Edit(), Qt::Key_Return);
    QCOMPARE(b.Marked(), QByteArray("  a\r\n  b|"));
}

void win_modEdit::returnKeepsTheView()
{
    const EditBench b(QByteArray("  print\r\n").repeated(300));
    SendSci(b.sci(), SCI_GOTOLINE, 150);
    SendSci(b.sci(), SCI_LINESCROLL, 0, 145 - b.Ask(SCI_GETFIRSTVISIBLELINE));
    b.Key(Qt::Key_End);
    b.Key(Qt::Key_Return);
    QCOMPARE(b.Ask(SCI_GETFIRSTVISIBLELINE), 145);
    QCOMPARE(b.Ask(SCI_LINEFROMPOSITION, static_cast<std::uintptr_t>(b.Caret())), 151);
}

void win_modEdit::indentationIsCountedInCharacters()
{
    // The position is past the end of the line; the caret must not end up inside a character or a line end.
    const EditBench b("   a\r\n   \xE4\xF6\xFC\xE4\r\n\xE4\xF6\xFC");
    b.GoTo(6 + 3 + 4);
    AddTab(*b.bench.Active());
    QCOMPARE(b.Caret(), 6 + 3 + 8);
    AddTab(*b.bench.Active());
    // Three characters further are CR, LF and a character of two bytes.
    QCOMPARE(b.Caret(), 6 + 3 + 8 + 4);
    QCOMPARE(b.Text(), QByteArray("   a\r\n   \xC3\xA4\xC3\xB6\xC3\xBC\xC3\xA4\r\n\xC3\xA4\xC3\xB6\xC3\xBC"));
}

void win_modEdit::theKeywordListShowsEveryWordInItsOrder()
{
    EditBench b("");
    b.bench.Choose(u"mnuEditInsert"_s);
    QVERIFY(b.Ask(SCI_AUTOCACTIVE) != 0);
    QCOMPARE(ShownList(b).join(QLatin1Char(' ')) + QLatin1Char(' '), QString::fromLatin1(Words().KeywordList));
    b.Key(Qt::Key_Escape);
    QCOMPARE(b.Ask(SCI_AUTOCACTIVE), 0);
    QCOMPARE(b.Text(), QByteArray());
}

void win_modEdit::aWordsStartSelectsFromTheList()
{
    EditBench b("x = LEF(a$, 1)");
    b.GoTo(7);
    b.bench.Choose(u"mnuEditInsert"_s);
    QCOMPARE(Chosen(b), QByteArray("Left$("));
    b.Key(Qt::Key_Tab);
    QCOMPARE(b.Marked(), QByteArray("x = Left$(|(a$, 1)"));
    SendSci(b.sci(), SCI_UNDO);
    QCOMPARE(b.Text(), QByteArray("x = LEF(a$, 1)"));
}

void win_modEdit::everyWordOfTheListIsFoundByItsStart()
{
    EditBench b("");
    for (const QByteArray& word : Words().KeywordList.trimmed().split(' ')) {
        SendSci(b.sci(), SCI_CLEARALL);
        // The parenthesis is not part of the word before the caret.
        const QByteArray letters = QByteArray(word).replace('(', QByteArray()).toLower();
        if (letters.contains('_'))
            continue;
        TestBench::Type(b.bench.Active(), letters);
        InsertKeyword(b.sci());
        QVERIFY2(Chosen(b).toLower().startsWith(letters), (word + " gives " + Chosen(b)).constData());
    }
}

void win_modEdit::wordsOfTheUserAreNotOffered()
{
    TestBench bench;
    QFile words(bench.ProgramPath(u"keywords.txt"_s));
    QVERIFY(words.open(QIODevice::WriteOnly));
    words.write("zebra\r\n");
    words.close();
    bench.Start({bench.Write(u"a.bas"_s, "\r\n")});
    bench.Choose(u"mnuEditInsert"_s);
    const auto* list = bench.ActiveWindowEdit()->findChild<QListWidget*>();
    QVERIFY(list != nullptr);
    QCOMPARE(list->findItems(u"Print"_s, Qt::MatchExactly).size(), 1);
    QCOMPARE(list->findItems(u"zebra"_s, Qt::MatchContains).size(), 0);
}

void win_modEdit::returnThatSelectedFromTheListIndentsAllTheSame_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("result");
    // The caret is after "pri".
    QTest::newRow("first line") << QByteArray("pri") << QByteArray("Print|");
    QTest::newRow("first line, indented") << QByteArray("  pri\r\nx") << QByteArray("Print\r\n|x");
    QTest::newRow("after an if") << QByteArray(" if x then\r\npri") << QByteArray(" if x then\r\n     Print|");
    QTest::newRow("below a plain line") << QByteArray("cls\r\n  pri\r\nx") << QByteArray("cls\r\nPrint\r\n|x");
    QTest::newRow("indented alike") << QByteArray("  cls\r\n  pri\r\nx") << QByteArray("  cls\r\n  Print\r\n|x");
}

void win_modEdit::returnThatSelectedFromTheListIndentsAllTheSame()
{
    QFETCH(QByteArray, text);
    EditBench b(text);
    b.GoTo(text.indexOf("pri") + 3);
    b.bench.Choose(u"mnuEditInsert"_s);
    b.Key(Qt::Key_Return);
    QCOMPARE(b.Ask(SCI_AUTOCACTIVE), 0);
    QTEST(b.Marked(), "result");
}

void win_modEdit::theTipShowsAtTheWord()
{
    EditBench b("x = left$(a$, 1)");
    b.bench.Frame().resize(1400, 700);
    b.GoTo(9);
    b.bench.Choose(u"mnuEditSyntax"_s);
    QVERIFY(b.Ask(SCI_CALLTIPACTIVE) != 0);
    QCOMPARE(TipOffset(b, 4), QPoint(0, 1));
    QCOMPARE(b.Ask(SCI_GETSELECTIONSTART), 9);
    QCOMPARE(b.Ask(SCI_GETSELECTIONEND), 9);
    QVERIFY(b.bench.Active()->SyntaxTipShown);
    QCOMPARE(b.Ask(SCI_GETMODIFY), 0);
}

void win_modEdit::theTipOfASelectionShowsAtTheTextsStart()
{
    EditBench b("x\r\nx = left$(a$, 1)");
    b.Select(7, 12);
    b.bench.Choose(u"mnuEditSyntax"_s);
    QVERIFY(b.Ask(SCI_CALLTIPACTIVE) != 0);
    QCOMPARE(TipOffset(b, 0), QPoint(0, 1));
    QCOMPARE(b.Ask(SCI_GETSELECTIONSTART), 12);
    QCOMPARE(b.Ask(SCI_GETSELECTIONEND), 12);
}

void win_modEdit::theTipHidesOnAScroll()
{
    EditBench b(QByteArray("cls\r\n").repeated(300));
    b.GoTo(3);
    b.bench.Choose(u"mnuEditSyntax"_s);
    QVERIFY(b.Ask(SCI_CALLTIPACTIVE) != 0);
    qobject_cast<QAbstractScrollArea*>(b.Edit())->verticalScrollBar()->triggerAction(QScrollBar::SliderSingleStepAdd);
    QCOMPARE(b.Ask(SCI_CALLTIPACTIVE), 0);
    QVERIFY(!b.bench.Active()->SyntaxTipShown);
}

void win_modEdit::theListAndTheTipReplaceEachOther()
{
    EditBench b("cls");
    b.GoTo(3);
    b.bench.Choose(u"mnuEditSyntax"_s);
    b.bench.Choose(u"mnuEditInsert"_s);
    QCOMPARE(b.Ask(SCI_CALLTIPACTIVE), 0);
    QVERIFY(b.Ask(SCI_AUTOCACTIVE) != 0);
    b.bench.Choose(u"mnuEditSyntax"_s);
    QVERIFY(b.Ask(SCI_CALLTIPACTIVE) != 0);
    QCOMPARE(b.Ask(SCI_AUTOCACTIVE), 0);
}

void win_modEdit::blockCommentIsOneStep()
{
    const QByteArray text = "a\r\n  b\r\n\xE4\r\nend ";
    EditBench b(text);
    b.Select(0, 12);
    QTest::keyClick(b.Edit(), Qt::Key_B, Qt::ControlModifier);
    QCOMPARE(b.Text(), QByteArray("'a\r\n'  b\r\n'\xC3\xA4\r\nend "));
    b.Select(0, 14);
    QTest::keyClick(b.Edit(), Qt::Key_B, Qt::ControlModifier);
    QCOMPARE(b.Text(), QByteArray("a\r\n  b\r\n\xC3\xA4\r\nend "));
    SendSci(b.sci(), SCI_UNDO);
    QCOMPARE(b.Text(), QByteArray("'a\r\n'  b\r\n'\xC3\xA4\r\nend "));
    SendSci(b.sci(), SCI_UNDO);
    QCOMPARE(b.Text(), QByteArray("a\r\n  b\r\n\xC3\xA4\r\nend "));
    QCOMPARE(b.Ask(SCI_GETMODIFY), 0);
}

void win_modEdit::blockCommentKeepsTheSelection()
{
    EditBench b("a\r\nb\r\nc\r\nend ");
    b.Select(3, 9);
    b.bench.Choose(u"mnuEditComment"_s);
    QCOMPARE(b.Text(), QByteArray("a\r\n'b\r\n'c\r\nend "));
    QCOMPARE(b.Ask(SCI_GETSELECTIONSTART), 3);
    QCOMPARE(b.Ask(SCI_GETSELECTIONEND), 11);
    // The same lines again, however short they are.
    for (int i = 0; i < 2; ++i) {
        b.bench.Choose(u"mnuEditComment"_s);
        QCOMPARE(b.Text(), QByteArray("a\r\nb\r\nc\r\nend "));
        b.bench.Choose(u"mnuEditComment"_s);
        QCOMPARE(b.Text(), QByteArray("a\r\n'b\r\n'c\r\nend "));
    }
}

void win_modEdit::blockCommentWithoutASelectionLeavesTheCaretAfterTheLine()
{
    EditBench b("a\r\nbcd\r\nc\r\nend ");
    b.GoTo(6);
    b.bench.Choose(u"mnuEditComment"_s);
    QCOMPARE(b.Marked(), QByteArray("a\r\n'bcd|\r\nc\r\nend "));
    QCOMPARE(b.Ask(SCI_GETSELECTIONSTART), b.Ask(SCI_GETSELECTIONEND));
}

void win_modEdit::blockCommentOfNothingChangesNothing()
{
    EditBench b("a\r\nbc\r\nend ");
    b.GoTo(4);
    b.bench.Choose(u"mnuEditComment"_s);
    QCOMPARE(b.Marked(), QByteArray("a\r\nb|c\r\nend "));
    QCOMPARE(b.Ask(SCI_GETMODIFY), 0);
}

void win_modEdit::blockCommentKeepsBookmarks()
{
    EditBench b("a\r\nb\r\nc\r\nd\r\nend ");
    for (const std::intptr_t position : {3, 6, 12}) {
        b.GoTo(position);
        ToggleBookmark(b.sci());
    }
    b.Select(0, 12);
    b.bench.Choose(u"mnuEditComment"_s);
    QCOMPARE(b.Text(), QByteArray("'a\r\n'b\r\n'c\r\n'd\r\nend "));
    QByteArray marked;
    for (std::uintptr_t line = 0; line < 5; ++line)
        marked.append(b.Ask(SCI_MARKERGET, line) == 0 ? '-' : 'x');
    QCOMPARE(marked, QByteArray("-xx-x"));
    ClearBookmarks(b.sci());
    QCOMPARE(b.Ask(SCI_MARKERGET, 1), 0);
}

void win_modEdit::blockCommentKeepsNuls()
{
    EditBench b(QByteArray("a\0b\r\nc\0\r\nend ", 13));
    b.Select(0, 9);
    b.bench.Choose(u"mnuEditComment"_s);
    QCOMPARE(b.Text(), QByteArray("'a\0b\r\n'c\0\r\nend ", 15));
}

void win_modEdit::commentsOfTheProgrammerAreInsertedAtTheCaret()
{
    EditBench b("a\r\nend ");
    QFile comments(b.bench.ProgramPath(u"comments.txt"_s));
    QVERIFY(comments.open(QIODevice::WriteOnly));
    comments.write("'by J\xF6rg\r\n'2005\r\n");
    comments.close();
    b.GoTo(3);
    b.bench.Choose(u"mnuEditInsertComments"_s);
    QCOMPARE(b.Marked(), QByteArray("a\r\n'by J\xC3\xB6rg\r\n'2005|end "));
    SendSci(b.sci(), SCI_UNDO);
    QCOMPARE(b.Text(), QByteArray("a\r\nend "));
    QVERIFY(comments.remove());
    b.bench.Choose(u"mnuEditInsertComments"_s);
    QCOMPARE(b.Text(), QByteArray("a\r\n'no programmer's comments on fileend "));
}

void win_modEdit::commandsNeedACodeWindow()
{
    TestBench bench;
    bench.Start();
    for (void (*command)() : {mnuEditInsert_Click, mnuEditSyntax_Click, mnuEditComment_Click,
                              mnuEditInsertComments_Click, mnuEditUndo_Click})
        command();
    GuiWindow->ShowGui();
    mnuEditSyntax_Click();
    for (void (*command)() : {mnuEditInsert_Click, mnuEditComment_Click, mnuEditUndo_Click}) {
        bench.dialogs.ExpectMessage(QString::fromLatin1(NoCodeWindow));
        command();
        QVERIFY(bench.dialogs.Finished());
    }
}

OB_BENCH_TEST(win_modEdit)
#include "win_modEdit.moc"
