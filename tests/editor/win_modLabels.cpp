// SPDX-License-Identifier: GPL-3.0-or-later
// The label lists above the text: their contents, their jumps, and the bookmark buttons next to them.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "editor/document/modBookmarks.h"
#include "editor/frmDocument.h"
#include "editor/modLabels.h"
#include "shell/state/Module1.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// The program with one file in a window; what a user sees and does in it.
struct LabelBench {
    explicit LabelBench(const QByteArray& file)
    {
        bench.Start({bench.Write(u"a.bas"_s, file)});
        bench.Frame().resize(900, 600);
        QApplication::processEvents();
        QuitQuery = false;
    }

    Sci sci() const { return bench.Active()->sci; }
    std::intptr_t Ask(unsigned message, std::uintptr_t wParam = 0) const { return SendSci(sci(), message, wParam); }
    std::intptr_t Caret() const { return Ask(SCI_GETCURRENTPOS); }
    std::intptr_t CaretLine() const { return Ask(SCI_LINEFROMPOSITION, static_cast<std::uintptr_t>(Caret())); }
    std::intptr_t TopLine() const { return Ask(SCI_GETFIRSTVISIBLELINE); }

    template <class Control>
    Control* Find(const char* name) const
    {
        return bench.ActiveWindow()->findChild<Control*>(QString::fromLatin1(name));
    }
    QComboBox* List(const char* name) const { return Find<QComboBox>(name); }
    QStringList Items(const char* name) const
    {
        QStringList texts;
        for (int i = 0; i < List(name)->count(); ++i)
            texts.append(List(name)->itemText(i));
        return texts;
    }

    void Press(const char* name) const { QTest::mouseClick(Find<QAbstractButton>(name), Qt::LeftButton); }

    // Opens the list and clicks the entry there.
    void Choose(const char* name, int index) const
    {
        QComboBox* list = List(name);
        list->showPopup();
        const QModelIndex item = list->model()->index(index, 0);
        list->view()->scrollTo(item);
        QTest::mouseMove(list->view()->viewport(), list->view()->visualRect(item).center());
        QTest::mouseClick(list->view()->viewport(), Qt::LeftButton, {}, list->view()->visualRect(item).center());
        QApplication::processEvents();
    }

    void Replace(std::intptr_t from, std::intptr_t to, const QByteArray& text) const
    {
        SendSci(sci(), SCI_SETTARGETRANGE, static_cast<std::uintptr_t>(from), to);
        SendSci(sci(), SCI_REPLACETARGET, static_cast<std::uintptr_t>(text.size()), text.constData());
    }

    TestBench bench;
};

// Labels on the lines 10, 20, ... of that many lines.
QByteArray LongProgram(int lines)
{
    QByteArray text;
    for (int line = 0; line < lines; ++line)
        text += line % 10 == 0 && line > 0 ? "[l" + QByteArray::number(line) + "]\r\n" : QByteArray("print 1\r\n");
    return text + "end  \r\n";
}

} // namespace

class win_modLabels : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aTextWithoutLabelsShowsThePlaceholder();
    void theFirstLabelShowsAtFirst();
    void theLabelShownSurvivesARebuild();
    void theLabelChosenInTheSortedListSurvivesToo();
    void aRebuildLeavesTheCaretWhereTheSelectionBegan_data();
    void aRebuildLeavesTheCaretWhereTheSelectionBegan();
    void aSelectedLabelIsScrolledToTheTop();
    void aLabelIsScrolledToTheTopOfWrappedText();
    void equalLabelsLeadToTheFirst();
    void aMissingLabelLeavesTheCaret();
    void aLabelWithTrailingSpacesLeavesTheCaret();
    void theSameLabelCanBeChosenAgain();
    void returnJumpsToATypedLabel();
    void theWheelSelectsNothing();
    void sortingSwapsTheLists();
    void sortingMovesCaretAndView();
    void theSortedListLeadsToItsLabels();
    void theLabelsOfTheReturnedLineAreListed();
    void bookmarksStopAtTheEnds();
    void theNextBookmarkIsScrolledToTheTop();
    void bookmarksBeyond32767DoNotWork();
    void manyLabelsAreListedAtOnce();
};

void win_modLabels::aTextWithoutLabelsShowsThePlaceholder()
{
    LabelBench b("print\r\n");
    for (const char* name : {"cboLabels", "cboSorted"}) {
        QCOMPARE(b.List(name)->count(), 0);
        QCOMPARE(b.List(name)->currentText(), QString());
        QCOMPARE(b.List(name)->lineEdit()->placeholderText(), u"[ branch labels ]"_s);
    }
    QVERIFY(b.List("cboLabels")->isVisible());
    QVERIFY(!b.List("cboSorted")->isVisible());
    b.Press("cmdSort");
    QVERIFY(b.List("cboSorted")->isVisible());
    QCOMPARE(b.List("cboSorted")->currentText(), QString());
}

void win_modLabels::theFirstLabelShowsAtFirst()
{
    LabelBench b("print\r\n[b] 'x\r\n[a]\r\nend \r\n");
    QCOMPARE(b.Items("cboLabels"), (QStringList{u"[b] 'x"_s, u"[a]"_s}));
    QCOMPARE(b.Items("cboSorted"), (QStringList{u"[a]"_s, u"[b] 'x"_s}));
    QCOMPARE(b.List("cboLabels")->currentText(), u"[b] 'x"_s);
    QCOMPARE(b.List("cboLabels")->currentIndex(), 0);
    b.Press("cmdSort");
    QCOMPARE(b.List("cboSorted")->currentText(), u"[b] 'x"_s);
    QCOMPARE(b.List("cboSorted")->currentIndex(), 1);
}

void win_modLabels::theLabelShownSurvivesARebuild()
{
    LabelBench b("[a]\r\n[b]\r\n[c]\r\nend \r\n");
    b.Choose("cboLabels", 1);
    b.Replace(5, 8, "x");
    b.Press("cmdBranch");
    QCOMPARE(b.Items("cboLabels"), (QStringList{u"[a]"_s, u"[c]"_s}));
    QCOMPARE(b.List("cboLabels")->currentText(), u"[b]"_s);
    QCOMPARE(b.List("cboLabels")->currentIndex(), -1);
    b.Replace(0, b.Ask(SCI_GETLENGTH), "print");
    b.Press("cmdBranch");
    QCOMPARE(b.List("cboLabels")->count(), 0);
    QCOMPARE(b.List("cboLabels")->currentText(), u"[b]"_s);
}

void win_modLabels::theLabelChosenInTheSortedListSurvivesToo()
{
    LabelBench b("[b]\r\n[a]\r\nend \r\n");
    b.Press("cmdSort");
    b.Choose("cboSorted", 0);
    b.Press("cmdBranch");
    QCOMPARE(b.List("cboSorted")->currentText(), u"[a]"_s);
    b.Press("cmdSort");
    QCOMPARE(b.List("cboLabels")->currentText(), u"[a]"_s);
    QCOMPARE(b.List("cboLabels")->currentIndex(), 1);
}

void win_modLabels::aRebuildLeavesTheCaretWhereTheSelectionBegan_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("anchor");
    QTest::addColumn<int>("caret");
    QTest::addColumn<int>("after");
    QTest::newRow("a selection") << QByteArray("one\r\ntwo") << 7 << 3 << 3;
    QTest::newRow("forwards") << QByteArray("one\r\ntwo") << 2 << 6 << 2;
    QTest::newRow("at the start") << QByteArray("one\r\ntwo") << 0 << 0 << 1;
    QTest::newRow("at one") << QByteArray("one\r\ntwo") << 1 << 1 << 1;
    QTest::newRow("after a character of two bytes") << QByteArray("\xE4n\r\ntwo") << 0 << 0 << 2;
    QTest::newRow("never inside a line end") << QByteArray("\r\ntwo") << 0 << 0 << 0;
    QTest::newRow("in an empty text") << QByteArray() << 0 << 0 << 0;
}

void win_modLabels::aRebuildLeavesTheCaretWhereTheSelectionBegan()
{
    QFETCH(QByteArray, text);
    QFETCH(int, anchor);
    QFETCH(int, caret);
    LabelBench b(text + "\r\n");
    SendSci(b.sci(), SCI_SETSEL, static_cast<std::uintptr_t>(anchor), caret);
    b.Press("cmdBranch");
    QTEST(static_cast<int>(b.Caret()), "after");
    QCOMPARE(b.Ask(SCI_GETSELECTIONSTART), b.Ask(SCI_GETSELECTIONEND));
}

void win_modLabels::aSelectedLabelIsScrolledToTheTop()
{
    LabelBench b(LongProgram(500));
    for (const int index : {24, 3, 40, 0}) {
        b.Choose("cboLabels", index);
        QCOMPARE(b.CaretLine(), index * 10 + 10);
        QCOMPARE(b.TopLine(), index * 10 + 10);
        QCOMPARE(b.Caret(), b.Ask(SCI_POSITIONFROMLINE, static_cast<std::uintptr_t>(b.CaretLine())));
        QCOMPARE(b.bench.Frame().focusWidget(), b.bench.ActiveWindowEdit());
        QCOMPARE(b.List("cboLabels")->currentText(), u"[l%1]"_s.arg(index * 10 + 10));
    }
}

void win_modLabels::aLabelIsScrolledToTheTopOfWrappedText()
{
    QByteArray text;
    for (int line = 0; line < 200; ++line)
        text += line == 100 ? QByteArray("[here]\r\n") : QByteArray("print ").repeated(60) + "\r\n";
    LabelBench b(text + "end\r\n");
    SendSci(b.sci(), SCI_SETWRAPMODE, 1);
    b.bench.ActiveWindow()->grab();
    b.Choose("cboLabels", 0);
    QCOMPARE(b.CaretLine(), 100);
    QCOMPARE(b.TopLine(), b.Ask(SCI_VISIBLEFROMDOCLINE, 100));
    QVERIFY(b.TopLine() > 100);
}

void win_modLabels::equalLabelsLeadToTheFirst()
{
    LabelBench b("print\r\n[A]\r\nprint\r\n[a]\r\nend \r\n");
    b.Choose("cboLabels", 1);
    QCOMPARE(b.CaretLine(), 1);
}

void win_modLabels::aMissingLabelLeavesTheCaret()
{
    LabelBench b(LongProgram(100));
    SendSci(b.sci(), SCI_GOTOPOS, 20);
    const std::intptr_t start = b.Ask(SCI_POSITIONFROMLINE, 50);
    b.Replace(start, start + 2, "xx");
    const std::intptr_t top = b.TopLine();
    b.Choose("cboLabels", 4);
    QCOMPARE(b.Caret(), 20);
    QCOMPARE(b.TopLine(), top);
    QCOMPARE(b.bench.Frame().focusWidget(), b.bench.ActiveWindowEdit());
}

void win_modLabels::aLabelWithTrailingSpacesLeavesTheCaret()
{
    LabelBench b("print\r\n[a]  \r\nend \r\n");
    QCOMPARE(b.Items("cboLabels"), QStringList{u"[a]  "_s});
    b.Choose("cboLabels", 0);
    QCOMPARE(b.Caret(), 0);
}

void win_modLabels::theSameLabelCanBeChosenAgain()
{
    LabelBench b(LongProgram(200));
    b.Choose("cboLabels", 9);
    SendSci(b.sci(), SCI_GOTOPOS, 0);
    b.Choose("cboLabels", 9);
    QCOMPARE(b.CaretLine(), 100);
}

void win_modLabels::returnJumpsToATypedLabel()
{
    LabelBench b(LongProgram(200));
    QLineEdit* field = b.List("cboLabels")->lineEdit();
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, u"[l120]"_s);
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(b.CaretLine(), 120);
    QCOMPARE(b.bench.Frame().focusWidget(), b.bench.ActiveWindowEdit());
    QCOMPARE(b.Ask(SCI_GETMODIFY), 0);
    QCOMPARE(b.List("cboLabels")->count(), 19);
}

void win_modLabels::theWheelSelectsNothing()
{
    LabelBench b(LongProgram(100));
    QComboBox* list = b.List("cboLabels");
    const QPointF place(list->rect().center());
    QWheelEvent turn(place, list->mapToGlobal(place), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(list, &turn);
    QCOMPARE(list->currentText(), u"[l10]"_s);
    QCOMPARE(b.Caret(), 0);
}

void win_modLabels::sortingSwapsTheLists()
{
    LabelBench b("[b]\r\n[a]\r\nend \r\n");
    auto* sort = b.Find<QPushButton>("cmdSort");
    QCOMPARE(sort->text(), u"Sort"_s);
    QCOMPARE(sort->toolTip(), u"Toggle Branch Label Sort Order"_s);
    const QRect place = b.List("cboLabels")->geometry();
    b.Press("cmdSort");
    QCOMPARE(sort->text(), u"No Sort"_s);
    QVERIFY(!b.List("cboLabels")->isVisible());
    QVERIFY(b.List("cboSorted")->isVisible());
    QCOMPARE(b.List("cboSorted")->geometry(), place);
    QCOMPARE(b.bench.Frame().focusWidget(), b.bench.ActiveWindowEdit());
    b.Press("cmdSort");
    QCOMPARE(sort->text(), u"Sort"_s);
    QVERIFY(b.List("cboLabels")->isVisible());
    QVERIFY(!b.List("cboSorted")->isVisible());
}

void win_modLabels::sortingMovesCaretAndView()
{
    LabelBench b(LongProgram(500));
    SendSci(b.sci(), SCI_GOTOLINE, 200);
    SendSci(b.sci(), SCI_LINESCROLL, 0, 195 - b.TopLine());
    QCOMPARE(b.TopLine(), 195);
    b.Press("cmdSort");
    QCOMPARE(b.CaretLine(), 195);
    QCOMPARE(b.TopLine(), 199);
}

void win_modLabels::theSortedListLeadsToItsLabels()
{
    LabelBench b(LongProgram(500));
    b.Press("cmdSort");
    // A digit's code is lower than the bracket's.
    QCOMPARE(b.Items("cboSorted").mid(0, 2), (QStringList{u"[l100]"_s, u"[l10]"_s}));
    b.Choose("cboSorted", 0);
    QCOMPARE(b.CaretLine(), 100);
    QCOMPARE(b.TopLine(), 100);
    QCOMPARE(b.List("cboSorted")->currentText(), u"[l100]"_s);
}

void win_modLabels::theLabelsOfTheReturnedLineAreListed()
{
    LabelBench b("print\r\n");
    SendSci(b.sci(), SCI_GOTOPOS, 0);
    QTest::keyClicks(b.bench.ActiveWindowEdit(), u"[new]"_s);
    QCOMPARE(b.Items("cboLabels"), QStringList());
    QTest::keyClick(b.bench.ActiveWindowEdit(), Qt::Key_Return);
    QCOMPARE(b.Items("cboLabels"), QStringList{u"[new]"_s});
    QCOMPARE(b.List("cboLabels")->currentText(), u"[new]"_s);
    QCOMPARE(b.Caret(), 7);
}

void win_modLabels::bookmarksStopAtTheEnds()
{
    LabelBench b(LongProgram(100));
    for (const std::uintptr_t line : {30, 60}) {
        SendSci(b.sci(), SCI_GOTOLINE, line);
        b.Press("cmdToggle");
    }
    b.Press("cmdNext");
    QCOMPARE(b.CaretLine(), 60);
    b.Press("cmdPrev");
    QCOMPARE(b.CaretLine(), 30);
    b.Press("cmdPrev");
    QCOMPARE(b.CaretLine(), 30);
    SendSci(b.sci(), SCI_GOTOLINE, 0);
    b.Press("cmdPrev");
    QCOMPARE(b.CaretLine(), 0);
    QCOMPARE(b.bench.Frame().focusWidget(), b.bench.ActiveWindowEdit());
}

void win_modLabels::theNextBookmarkIsScrolledToTheTop()
{
    LabelBench b(LongProgram(1000));
    SendSci(b.sci(), SCI_GOTOLINE, 500);
    b.Press("cmdToggle");
    SendSci(b.sci(), SCI_GOTOLINE, 0);
    b.Press("cmdNext");
    QCOMPARE(b.CaretLine(), 500);
    QCOMPARE(b.TopLine(), 500);
}

void win_modLabels::bookmarksBeyond32767DoNotWork()
{
    LabelBench b(QByteArray("x\r\n").repeated(70'000));
    SendSci(b.sci(), SCI_GOTOLINE, 32767);
    b.Press("cmdToggle");
    SendSci(b.sci(), SCI_GOTOLINE, 65535);
    b.Press("cmdToggle");
    SendSci(b.sci(), SCI_GOTOLINE, 10);
    b.Press("cmdNext");
    QCOMPARE(b.CaretLine(), 32767);
    // 65535 is -1 in 16 bits: no bookmark.
    b.Press("cmdNext");
    QCOMPARE(b.CaretLine(), 32767);
    SendSci(b.sci(), SCI_GOTOLINE, 40'000);
    b.Press("cmdToggle");
    SendSci(b.sci(), SCI_GOTOLINE, 35'000);
    b.Press("cmdNext");
    QVERIFY(b.CaretLine() != 40'000);
}

void win_modLabels::manyLabelsAreListedAtOnce()
{
    LabelBench b(LongProgram(500'000));
    QElapsedTimer timer;
    timer.start();
    b.Press("cmdBranch");
    QVERIFY2(timer.elapsed() < 5'000, qPrintable(u"%1 ms"_s.arg(timer.elapsed())));
    QCOMPARE(b.List("cboSorted")->count(), 49'999);
    timer.restart();
    b.List("cboLabels")->showPopup();
    QApplication::processEvents();
    QVERIFY2(timer.elapsed() < 5'000, qPrintable(u"%1 ms"_s.arg(timer.elapsed())));
    b.List("cboLabels")->hidePopup();
}

OB_BENCH_TEST(win_modLabels)
#include "win_modLabels.moc"
