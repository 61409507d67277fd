// SPDX-License-Identifier: GPL-3.0-or-later
// The list of variables, by its controls, over a real code window.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "engine/run/dlgShowVar.h"
#include "shell/bench/modStart.h"
#include "shell/state/Module1.h"
#include "shell/state/modNames.h"

#include <QElapsedTimer>
#include <QHeaderView>
#include <QPushButton>
#include <QTableView>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QTableView* List(const QDialog& dialog)
{
    return dialog.findChild<QTableView*>(u"lvVar"_s);
}

QPushButton* Button(const QDialog& dialog, const char* name)
{
    return dialog.findChild<QPushButton*>(QString::fromLatin1(name));
}

// "name@line" for each row.
QStringList Rows(const QDialog& dialog)
{
    QStringList rows;
    const QAbstractItemModel* model = List(dialog)->model();
    for (int row = 0; row < model->rowCount(); ++row)
        rows.append(model->index(row, 0).data().toString() + QLatin1Char('@') + model->index(row, 1).data().toString());
    return rows;
}

void ClickColumn(const QDialog& dialog, int column)
{
    const QHeaderView* header = List(dialog)->horizontalHeader();
    const QPoint place(header->sectionViewportPosition(column) + 20, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
}

void ClickRow(const QDialog& dialog, int row)
{
    QTableView* list = List(dialog);
    const QModelIndex index = list->model()->index(row, 0);
    list->scrollTo(index);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(index).center());
}

std::intptr_t CaretLine(const cDocument* document)
{
    const auto caret = static_cast<std::uintptr_t>(SendSci(document->sci, SCI_GETCURRENTPOS));
    return SendSci(document->sci, SCI_LINEFROMPOSITION, caret);
}

} // namespace

class win_dlgShowVar : public QObject {
    Q_OBJECT

private:
    // Opens the tool over a window with the text, and runs the script in it.
    static void WithText(TestBench& bench, const QByteArray& text, const std::function<void(QDialog&)>& script)
    {
        bench.Start();
        mnuFileNew(bench);
        TestBench::Type(bench.Active(), text);
        bench.ExpectModal(u"dlgShowVar"_s, [&script](QDialog& dialog) {
            script(dialog);
            Button(dialog, "cmdExit")->click();
        });
        mnuToolShowVar_Click();
    }

    static void mnuFileNew(TestBench& bench)
    {
        if (bench.Active() == nullptr)
            bench.Choose(u"mnuFileNew"_s);
    }

private Q_SLOTS:
    void init()
    {
        ResetBench();
        ShowTips = false;
        QuitQuery = false;
    }

    void theColumnsHaveTheirHeadings()
    {
        TestBench bench;
        WithText(bench, "total = 1\r\n", [](QDialog& dialog) {
            const QAbstractItemModel* model = List(dialog)->model();
            QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), u"Variable Name"_s);
            QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), u"Line #"_s);
        });
    }

    void theColumnsShareTheWidth()
    {
        TestBench bench;
        WithText(bench, "total = 1\r\n", [](QDialog& dialog) {
            for (const int width : {440, 700}) {
                dialog.resize(width, 400);
                QApplication::processEvents();
                const QTableView* list = List(dialog);
                QVERIFY(qAbs(list->columnWidth(0) - list->columnWidth(1)) <= 1);
                QVERIFY(qAbs(list->columnWidth(0) + list->columnWidth(1) - list->viewport()->width()) <= 1);
            }
        });
    }

    void theListIsInScanOrderAndSortsByColumnClicks()
    {
        TestBench bench;
        WithText(bench, "zoo = 1\r\n\r\nif a=1 then b=2\r\n" + QByteArray("\r\n").repeated(7) + "cow = 3\r\n",
                 [](QDialog& dialog) {
                     const auto rows = [](const char* text) {
                         return QString::fromLatin1(text).split(QLatin1Char(' '));
                     };
                     QCOMPARE(Rows(dialog), rows("zoo@0 a@2 b@2 cow@10"));
                     ClickColumn(dialog, 0);
                     QCOMPARE(Rows(dialog), rows("a@2 b@2 cow@10 zoo@0"));
                     ClickColumn(dialog, 0);
                     QCOMPARE(Rows(dialog), rows("zoo@0 cow@10 b@2 a@2"));
                     ClickColumn(dialog, 1);
                     QCOMPARE(Rows(dialog), rows("zoo@0 cow@10 b@2 a@2"));
                     ClickColumn(dialog, 1);
                     QCOMPARE(Rows(dialog), rows("b@2 a@2 cow@10 zoo@0"));
                 });
    }

    void goToLineWithoutASelectionIsReported()
    {
        TestBench bench;
        bench.dialogs.ExpectMessage(u"No variable is selected."_s, BoxAnswer::Ok, BoxIcon::Critical, BoxButtons::Ok,
                                    u"Error"_s);
        WithText(bench, "total = 1\r\n", [](QDialog& dialog) { Button(dialog, "cmdGoto")->click(); });
    }

    void goToLineShowsTheLineOneBelowTheTop()
    {
        TestBench bench;
        WithText(bench, QByteArray("\r\n").repeated(200) + "total = 1\r\n" + QByteArray("\r\n").repeated(200),
                 [&bench](QDialog& dialog) {
                     ClickRow(dialog, 0);
                     Button(dialog, "cmdGoto")->click();
                     QCOMPARE(CaretLine(bench.Active()), 200);
                     QCOMPARE(SendSci(bench.Active()->sci, SCI_GETFIRSTVISIBLELINE), 199);
                     QVERIFY(dialog.isVisible());
                 });
    }

    void aDoubleClickAndTheEnterKeyGoToTheLine()
    {
        TestBench bench;
        WithText(bench, "one = 1\r\ntwo = 2\r\nthree = 3\r\n", [&bench](QDialog& dialog) {
            ClickRow(dialog, 2);
            const QModelIndex third = List(dialog)->model()->index(2, 0);
            QTest::mouseDClick(List(dialog)->viewport(), Qt::LeftButton, {}, List(dialog)->visualRect(third).center());
            QCOMPARE(CaretLine(bench.Active()), 2);
            ClickRow(dialog, 1);
            QTest::keyClick(List(dialog), Qt::Key_Return);
            QCOMPARE(CaretLine(bench.Active()), 1);
        });
    }

    void goToLineFollowsTheRowThroughASort()
    {
        TestBench bench;
        WithText(bench, "one = 1\r\ntwo = 2\r\nalpha = 3\r\n", [&bench](QDialog& dialog) {
            ClickRow(dialog, 1);
            ClickColumn(dialog, 0);
            Button(dialog, "cmdGoto")->click();
            QCOMPARE(CaretLine(bench.Active()), 1);
            ClickRow(dialog, 0);
            Button(dialog, "cmdGoto")->click();
            QCOMPARE(CaretLine(bench.Active()), 2);
        });
    }

    void anEmptyCodeWindowGivesAnEmptyList()
    {
        TestBench bench;
        WithText(bench, {}, [](QDialog& dialog) { QVERIFY(Rows(dialog).isEmpty()); });
    }

    void escapeCloses()
    {
        TestBench bench;
        WithText(bench, "total = 1\r\n", [](QDialog& dialog) {
            QTest::keyClick(&dialog, Qt::Key_Escape);
            QVERIFY(!dialog.isVisible());
        });
    }

    void withoutACodeWindowAMessageIsShown()
    {
        TestBench bench;
        bench.Start();
        if (bench.Active() != nullptr)
            bench.Choose(u"mnuFileClose"_s);
        bench.dialogs.ExpectMessage(NoCodeWindowText);
        mnuToolShowVar_Click();
    }

    // Rows that were created or measured one by one would take many times as long.
    void aMillionVariablesShowWithoutAWait()
    {
        TestBench bench;
        QElapsedTimer timer;
        QByteArray text;
        for (int line = 0; line < 1'000'000; ++line)
            text += "name" + QByteArray::number(line) + " = 1\r\n";
        bench.Start();
        mnuFileNew(bench);
        TestBench::Type(bench.Active(), text);
        bench.ExpectModal(u"dlgShowVar"_s, [&timer](QDialog& dialog) {
            QApplication::processEvents();
            const auto shown = timer.restart();
            ClickColumn(dialog, 0);
            QApplication::processEvents();
            qInfo("shown after %lld ms, sorted after %lld ms", static_cast<long long>(shown), timer.elapsed());
            QVERIFY2(shown < 5'000, qPrintable(QString::number(shown)));
            QVERIFY2(timer.elapsed() < 10'000, qPrintable(QString::number(timer.elapsed())));
            QCOMPARE(List(dialog)->model()->rowCount(), 1'000'000);
            QCOMPARE(List(dialog)->model()->index(1, 0).data().toString(), u"name1"_s);
            Button(dialog, "cmdExit")->click();
        });
        timer.start();
        mnuToolShowVar_Click();
    }
};

OB_BENCH_TEST(win_dlgShowVar)
#include "win_dlgShowVar.moc"
