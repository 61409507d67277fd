// SPDX-License-Identifier: GPL-3.0-or-later
// The find and replace dialog, its controls and keys, over a real code window.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "editor/frmDocument.h"
#include "editor/frmFind.h"
#include "editor/frmReplaceWatch.h"
#include "shell/state/Module1.h"
#include "shell/state/modNames.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

frmFind* Dialog()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* dialog = qobject_cast<frmFind*>(window); dialog != nullptr && dialog->isVisible())
            return dialog;
    return nullptr;
}

template <class Control>
Control* Get(const char* name)
{
    auto* control = Dialog() == nullptr ? nullptr : Dialog()->findChild<Control*>(QString::fromLatin1(name));
    if (control == nullptr)
        qFatal("the dialog has no %s now", name);
    return control;
}

QLineEdit* Text1()
{
    return Get<QLineEdit>("Text1");
}

QLineEdit* Text2()
{
    return Get<QLineEdit>("Text2");
}

bool BecomesActive(const QWidget* window)
{
    return QTest::qWaitFor([window] { return QApplication::activeWindow() == window; });
}

void OpenDialog()
{
    mnuEditFind_Click();
    QVERIFY(Dialog() != nullptr);
    QVERIFY(BecomesActive(Dialog()));
}

void Press(const char* button)
{
    QTest::mouseClick(Get<QPushButton>(button), Qt::LeftButton);
}

// The key with Alt; a button pressed this way stays down for a moment.
void PressKey(Qt::Key key)
{
    QTest::keyClick(Dialog()->focusWidget(), key, Qt::AltModifier);
    QTest::qWait(200);
}

void Select(const cDocument* document, std::uintptr_t anchor, std::intptr_t caret)
{
    SendSci(document->sci, SCI_SETSEL, anchor, caret);
}

std::intptr_t SelectionStart(const cDocument* document)
{
    return SendSci(document->sci, SCI_GETSELECTIONSTART);
}

// Counts how often the text is painted.
class PaintCounter final : public QObject {
public:
    explicit PaintCounter(QWidget* edit) : viewport(qobject_cast<QAbstractScrollArea*>(edit)->viewport())
    {
        viewport->installEventFilter(this);
    }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++count;
        return false;
    }

private:
    QWidget* viewport;
};

} // namespace

class win_frmFind : public QObject {
    Q_OBJECT

private:
    cDocument* Open(const QByteArray& text)
    {
        bench = std::make_unique<TestBench>();
        Finding().FindFlags = 0;
        Finding().FindFromStart = false;
        Finding().LastFind.clear();
        bench->Start();
        QuitQuery = false;
        bench->Choose(u"mnuFileNew"_s);
        TestBench::Type(bench->Active(), text);
        Select(bench->Active(), 0, 0);
        return bench->Active();
    }

    void ExpectConfirm(BoxAnswer answer) const
    {
        bench->dialogs.ExpectMessage(u"Confirm each replacement?"_s, answer, BoxIcon::Question, BoxButtons::YesNo,
                                     u"Confirm?"_s);
    }

    void ExpectEmpty(const char* message) const
    {
        bench->dialogs.ExpectMessage(QString::fromLatin1(message), BoxAnswer::Ok, BoxIcon::Exclamation);
    }

    // Replaces "o" by "(o)" from the start, which does not end by itself, and runs a script meanwhile.
    void ReplaceForEver(const std::function<void()>& meanwhile) const
    {
        OpenDialog();
        Text1()->setText(u"o"_s);
        Text2()->setText(u"(o)"_s);
        Finding().FindFromStart = true;
        ExpectConfirm(BoxAnswer::No);
        QTimer::singleShot(0, bench.get(), meanwhile);
        Press("cmdReplaceAll");
    }

    std::unique_ptr<TestBench> bench;

private Q_SLOTS:
    void cleanup()
    {
        if (Dialog() != nullptr)
            Dialog()->reject();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        bench.reset();
    }

    void mnemonicsAreAllDifferent()
    {
        Open("foo");
        OpenDialog();
        QStringList keys;
        for (const QWidget* control : Dialog()->findChildren<QWidget*>()) {
            const QString text = control->property("text").toString();
            if (const qsizetype mark = text.indexOf(QLatin1Char('&')); mark >= 0)
                keys.append(text.mid(mark + 1, 1).toUpper());
        }
        QCOMPARE(keys.size(), 10);
        QCOMPARE(QSet<QString>(keys.begin(), keys.end()).size(), 10);
    }

    void withoutACodeWindowItDoesNotOpen()
    {
        bench = std::make_unique<TestBench>();
        bench->Start();
        bench->dialogs.ExpectMessage(NoCodeWindowText);
        mnuEditFind_Click();
        QVERIFY(Dialog() == nullptr);
    }

    void optionsShowTheLastSearch()
    {
        Open("foo");
        OpenDialog();
        QVERIFY(!Get<QCheckBox>("Check1")->isChecked());
        QVERIFY(!Get<QCheckBox>("Check2")->isChecked());
        QVERIFY(Get<QRadioButton>("optStart1")->isChecked());
        Press("CancelButton");
        QVERIFY(Dialog() == nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Finding().FindFlags = FindMatchCase | FindWholeWord;
        Finding().FindFromStart = true;
        OpenDialog();
        QVERIFY(Get<QCheckBox>("Check1")->isChecked());
        QVERIFY(Get<QCheckBox>("Check2")->isChecked());
        QVERIFY(Get<QRadioButton>("optStart0")->isChecked());
    }

    void selectionIsTakenAndSelected()
    {
        const cDocument* document = Open("one two");
        Select(document, 4, 7);
        OpenDialog();
        QCOMPARE(Text1()->text(), u"two"_s);
        QCOMPARE(Text1()->selectedText(), u"two"_s);
        QVERIFY(Text1()->hasFocus());
        QCOMPARE(Finding().LastFind, u"two"_s);
    }

    void withoutASelectionTheLastTextIsThere()
    {
        Open("one two");
        Finding().LastFind = u"before"_s;
        OpenDialog();
        QCOMPARE(Text1()->text(), u"before"_s);
        QVERIFY(Text1()->hasFocus());
    }

    void comingBackTakesTheNewSelection()
    {
        const cDocument* document = Open("one two");
        OpenDialog();
        Text1()->setText(u"typed"_s);
        Text2()->setFocus();
        bench->Frame().activateWindow();
        QVERIFY(BecomesActive(&bench->Frame()));
        Select(document, 0, 3);
        OpenDialog();
        QCOMPARE(Text1()->text(), u"one"_s);
        QVERIFY(Text1()->hasFocus());
    }

    void enterFindsNextAndTheDialogStays()
    {
        const cDocument* document = Open("foo bar foo bar");
        OpenDialog();
        QTest::keyClicks(Text1(), u"BAR"_s);
        QTest::keyClick(Text1(), Qt::Key_Return);
        QCOMPARE(SelectionStart(document), 4);
        QTest::keyClick(Text1(), Qt::Key_Return);
        QCOMPARE(SelectionStart(document), 12);
        QVERIFY(Dialog() != nullptr);
        QVERIFY(Text1()->hasFocus());
        QCOMPARE(Text1()->text(), u"BAR"_s);
    }

    void findReadsTheOptions()
    {
        const cDocument* document = Open("x Foo foobar foo");
        OpenDialog();
        Text1()->setText(u"foo"_s);
        PressKey(Qt::Key_S);
        PressKey(Qt::Key_H);
        PressKey(Qt::Key_T);
        PressKey(Qt::Key_F);
        QCOMPARE(Finding().FindFlags, FindMatchCase | FindWholeWord);
        QVERIFY(Finding().FindFromStart);
        QCOMPARE(SelectionStart(document), 13);
    }

    void replaceButtonsLeaveTheStartAlone()
    {
        Open("foo");
        OpenDialog();
        Get<QRadioButton>("optStart0")->setChecked(true);
        Get<QCheckBox>("Check2")->setChecked(true);
        Text1()->setText(u"bar"_s);
        Text2()->setText(u"x"_s);
        bench->dialogs.ExpectMessage(u"Text not found."_s, BoxAnswer::Ok, BoxIcon::None);
        Press("cmdReplace");
        QVERIFY(!Finding().FindFromStart);
        QCOMPARE(Finding().FindFlags, int(FindWholeWord));
    }

    void emptyFieldsAreReportedAndTheDialogStays()
    {
        const cDocument* document = Open("foo");
        OpenDialog();
        ExpectEmpty("No text specified!");
        Press("OKButton");
        ExpectEmpty("No text specified!");
        ExpectEmpty("No replacement text specified!");
        Press("cmdReplace");
        Text1()->setText(u"foo"_s);
        ExpectEmpty("No replacement text specified!");
        Press("cmdReplaceAll");
        QVERIFY(Dialog() != nullptr);
        QCOMPARE(TestBench::Text(document), QByteArray("foo"));
    }

    void replaceClosesTheDialogFirst()
    {
        const cDocument* document = Open("foo foo");
        Select(document, 0, 3);
        OpenDialog();
        QTest::keyClicks(Text2(), u"quux"_s);
        bench->dialogs.ExpectMessage(u"Replace?"_s, BoxAnswer::Yes, BoxIcon::Question, BoxButtons::YesNoCancel);
        bench->dialogs.ExpectMessage(u"Text not found."_s, BoxAnswer::Ok, BoxIcon::None);
        PressKey(Qt::Key_R);
        QVERIFY(Dialog() == nullptr);
        QCOMPARE(TestBench::Text(document), QByteArray("quux quux"));
    }

    void replaceAllTakesTheSelectionAlong()
    {
        const cDocument* document = Open("foo foo foo");
        Select(document, 4, 7);
        OpenDialog();
        QTest::keyClicks(Text2(), u"quux"_s);
        ExpectConfirm(BoxAnswer::No);
        bench->dialogs.ExpectMessage(u"No more instances of <foo>  found."_s, BoxAnswer::Ok, BoxIcon::None);
        bench->dialogs.ExpectMessage(u"Number of replacements made: 2"_s, BoxAnswer::Ok, BoxIcon::Information,
                                     BoxButtons::Ok, u"Finished"_s);
        PressKey(Qt::Key_A);
        QVERIFY(Dialog() == nullptr);
        QCOMPARE(TestBench::Text(document), QByteArray("foo quux quux"));
    }

    void aWholeProgramAsTheTextIsReportedShortened()
    {
        const cDocument* document = Open(QByteArray("abc\r\n").repeated(100'000));
        SendSci(document->sci, SCI_SELECTALL);
        OpenDialog();
        QCOMPARE(Finding().LastFind.size(), 500'000);
        bench->dialogs.ExpectMessage(u"<%1...>  not found."_s.arg(u"abc\r\n"_s.repeated(12).chopped(1)), BoxAnswer::Ok,
                                     BoxIcon::None);
        bench->Choose(u"mnuEditFindAgain"_s);
        const QString line(500, QLatin1Char('x'));
        Text1()->setText(line);
        bench->dialogs.ExpectMessage(u"No more instances of <%1...>  found."_s.arg(line.left(400)), BoxAnswer::Ok,
                                     BoxIcon::None);
        Press("OKButton");
    }

    void aLongSelectionIsFound()
    {
        const cDocument* document = Open(QByteArray("abc\r\n").repeated(1000));
        Select(document, 0, 1000);
        OpenDialog();
        Press("OKButton");
        QCOMPARE(SelectionStart(document), 1005);
        QCOMPARE(SendSci(document->sci, SCI_GETSELECTIONEND), 2005);
    }

    void codeWindowThatWasClosedIsReported()
    {
        Open("foo");
        OpenDialog();
        Text1()->setText(u"foo"_s);
        bench->Choose(u"mnuFileClose"_s);
        QVERIFY(bench->Active() == nullptr);
        bench->dialogs.ExpectMessage(NoCodeWindowText);
        Press("OKButton");
    }

    void escapeClosesAndThePlaceIsKept()
    {
        Open("foo");
        OpenDialog();
        Dialog()->move(137, 91);
        Dialog()->resize(611, Dialog()->height());
        QTest::keyClick(Text1(), Qt::Key_Escape);
        QVERIFY(Dialog() == nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        OpenDialog();
        QCOMPARE(Dialog()->pos(), QPoint(137, 91));
        QCOMPARE(Dialog()->width(), 611);
    }

    void theMatchIsNotCovered()
    {
        const cDocument* document = Open(QByteArray("line\r\n").repeated(12) + "and the needle\r\n");
        OpenDialog();
        auto* edit = qobject_cast<QAbstractScrollArea*>(bench->ActiveWindowEdit());
        const auto placeOf = [&](std::intptr_t position) {
            const int x = static_cast<int>(SendSci(document->sci, SCI_POINTXFROMPOSITION, 0, position));
            const int y = static_cast<int>(SendSci(document->sci, SCI_POINTYFROMPOSITION, 0, position));
            return QRect(edit->viewport()->mapToGlobal(QPoint(x, y)), QSize(20, 10));
        };
        const QRect needle = placeOf(TestBench::Text(document).indexOf("needle"));
        Dialog()->move(needle.topLeft() - QPoint(50, 50));
        QVERIFY(Dialog()->frameGeometry().intersects(needle));
        Text1()->setText(u"needle"_s);
        Press("OKButton");
        QVERIFY(!Dialog()->frameGeometry().intersects(needle));
    }

    void textIsPaintedOnceHoweverOftenTheEventLoopRuns()
    {
        const cDocument* document = Open("foo");
        QTest::qWait(50);
        PaintCounter paints(bench->ActiveWindowEdit());
        {
            frmReplaceWatch watch(bench->ActiveWindowEdit());
            for (int turn = 1; turn <= 3; ++turn) {
                SendSci(document->sci, SCI_REPLACESEL, 0, "more\r\n");
                QTest::qSleep(60);
                QVERIFY(watch.Round(turn) == RoundEnd::GoOn);
            }
            QCOMPARE(paints.count, 0);
        }
        QTest::qWait(50);
        QCOMPARE(paints.count, 1);
    }

    void replaceAllFromTheDialogPaintsOnce()
    {
        const cDocument* document = Open(QByteArray("foo and more of it\r\n").repeated(2000));
        OpenDialog();
        Text1()->setText(u"foo"_s);
        Text2()->setText(u"quux"_s);
        ExpectConfirm(BoxAnswer::No);
        bench->dialogs.ExpectMessage(u"No more instances of <foo>  found."_s, BoxAnswer::Ok, BoxIcon::None);
        bench->dialogs.ExpectMessage(u"Number of replacements made: 2000"_s, BoxAnswer::Ok, BoxIcon::Information,
                                     BoxButtons::Ok, u"Finished"_s);
        QTest::qWait(50);
        PaintCounter paints(bench->ActiveWindowEdit());
        Press("cmdReplaceAll");
        QCOMPARE(paints.count, 0);
        QTest::qWait(50);
        QVERIFY(paints.count > 0);
        QVERIFY(TestBench::Text(document).startsWith("quux and"));
    }

    void escapeStopsAnEndlessReplaceAll()
    {
        const cDocument* document = Open("o");
        ReplaceForEver([this] { QTest::keyClick(bench->ActiveWindowEdit(), Qt::Key_Escape); });
        const QByteArray text = TestBench::Text(document);
        QVERIFY(text.startsWith("(((") && text.endsWith(")))"));
        SendSci(document->sci, SCI_UNDO);
        QCOMPARE(TestBench::Text(document), QByteArray("o"));
        QVERIFY(bench->ActiveWindowEdit()->updatesEnabled());
    }

    void cancelOfTheProgressBoxStopsItToo()
    {
        const cDocument* document = Open("o");
        bench->ExpectModal(u"frmReplaceProgress"_s, [](QDialog& box) {
            QVERIFY(qobject_cast<QProgressDialog*>(&box)->labelText().startsWith(u"Replacements made so far: "_s));
            QTest::mouseClick(box.findChild<QPushButton*>(), Qt::LeftButton);
        });
        ReplaceForEver([] {});
        QVERIFY(TestBench::Text(document).startsWith("((("));
    }

    void escapeInTheProgressBoxStopsItToo()
    {
        const cDocument* document = Open("o");
        bench->ExpectModal(u"frmReplaceProgress"_s,
                           [](QDialog& box) { QTest::keyClick(box.windowHandle(), Qt::Key_Escape); });
        ReplaceForEver([] {});
        QVERIFY(TestBench::Text(document).startsWith("((("));
    }

    void nothingElseGetsThroughMeanwhile()
    {
        const cDocument* document = Open("o");
        ReplaceForEver([this] {
            QTest::keyClicks(bench->ActiveWindowEdit(), u"xyz"_s);
            QTest::keyClick(bench->ActiveWindowEdit(), Qt::Key_L, Qt::ControlModifier);
            QTest::mouseClick(bench->ActiveWindowEdit(), Qt::LeftButton);
            bench->Frame().close();
            QTest::keyClick(bench->ActiveWindowEdit(), Qt::Key_Escape);
        });
        QVERIFY(bench->Frame().isVisible());
        QVERIFY(!TestBench::Text(document).contains('x'));
        QVERIFY(TestBench::Text(document).contains("(o)"));
    }
};

OB_BENCH_TEST(win_frmFind)
#include "win_frmFind.moc"
