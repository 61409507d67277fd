// SPDX-License-Identifier: GPL-3.0-or-later
// Printing: what is printed, in which steps, and what happens on failure.
#include "editor/PrintedPages.h"
#include "editor/PrintedSci.h"

#include "core/CoreBench.h"

#include <QGuiApplication>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString Question = u"Would you like to print in color?  If all pages do not print properly in color "
                         "on your system, then select 'No'."_s;

// The core with one code window whose control is simulated.
struct Bench : CoreBench {
    explicit Bench(const QByteArray& text = {}, const QString& caption = u"/home/me/game.bas"_s)
        : document(Open(caption))
    {
        sci.text = text;
        document.sci = &sci;
    }

    void ExpectQuestion(BoxAnswer answer)
    {
        dialogs.ExpectMessage(Question, answer, BoxIcon::Question, BoxButtons::YesNoCancel);
    }

    PrintEnd Color(FakeJob& job) { return PrintInColor(document, RangeToPrint(&sci), job, watch); }
    PrintEnd Plain(FakeJob& job) { return PrintPlain(document, RangeToPrint(&sci), 4, job, watch); }

    PrintedSci sci;
    cDocument& document;
    FakePrinting printing;
    CountingWatch watch;
};

// Lines of ten bytes.
QByteArray Lines(int count)
{
    return QByteArray("print 10\r\n").repeated(count);
}

// Where each page began.
QList<long> Starts(const PrintedSci& sci)
{
    QList<long> starts;
    for (const PrintedSci::Order& order : sci.orders)
        starts.append(order.record.chrg.cpMin);
    return starts;
}

} // namespace

class tst_modPrint : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void withoutACodeWindowAMessageIsShown();
    void cancelPrintsNothing();
    void rangeIsTheSelection();
    void rangeRunsFromTheCaretToOnePastTheEnd();
    void formatterGetsTheWholePageAndBothDevices();
    void colorGoesPageByPage();
    void restOfTenBytesGetsNoPage();
    void withoutASelectionNoEmptyPageFollows();
    void rangeThatEndsBelowTenGivesAnEmptyPage();
    void caretAtTheEndGivesAnEmptyPage();
    void paperWithoutRoomForALineEnds();
    void selectionUpToALineStartEndsWithTheLineBefore_data();
    void selectionUpToALineStartEndsWithTheLineBefore();
    void stopEndsTheJobUnsent();
    void closedWindowEndsTheJobUnsent();
    void plainSelectionStaysSelected();
    void plainWithoutASelectionLeavesTheFirstCharacterSelected();
    void plainGoesPageByPage();
    void emptyTextPrintsAnEmptyPage_data();
    void emptyTextPrintsAnEmptyPage();
    void defaultPrinterGetsTheFilesName();
    void printerThatRejectsJobsIsNotReported();
    void printerErrorIsNotReported_data();
    void printerErrorIsNotReported();
    void stopWhileSendingCancelsTheJob();
    void noPrinterAsksForAPdf();
    void pdfNameCanBeDeclined();
    void namesOfJobAndPdf_data();
    void namesOfJobAndPdf();
};

void tst_modPrint::withoutACodeWindowAMessageIsShown()
{
    CoreBench bench;
    FakePrinting printing;
    CountingWatch watch;
    bench.dialogs.ExpectMessage(u"No code window is active!"_s);
    PrintActiveDocument(printing, watch);
    QVERIFY(printing.log.isEmpty());
}

void tst_modPrint::cancelPrintsNothing()
{
    Bench bench("print 1\r\n");
    bench.ExpectQuestion(BoxAnswer::Cancel);
    PrintActiveDocument(bench.printing, bench.watch);
    QVERIFY(bench.printing.log.isEmpty());
    QVERIFY(bench.sci.messages.isEmpty());
}

void tst_modPrint::rangeIsTheSelection()
{
    PrintedSci sci;
    sci.text = "print 1\r\nprint 2\r\n";
    sci.Select(12, 3);
    const PrintRange range = RangeToPrint(&sci);
    QCOMPARE(range.start, 3);
    QCOMPARE(range.end, 12);
    QVERIFY(range.source == PrintSource::Selection);
}

void tst_modPrint::rangeRunsFromTheCaretToOnePastTheEnd()
{
    PrintedSci sci;
    sci.text = "print 1\r\nprint 2\r\n";
    sci.Select(9, 9);
    const PrintRange range = RangeToPrint(&sci);
    QCOMPARE(range.start, 9);
    QCOMPARE(range.end, sci.text.size() + 1);
    QVERIFY(range.source == PrintSource::FromCaret);
}

void tst_modPrint::formatterGetsTheWholePageAndBothDevices()
{
    Bench bench(QByteArray(50, 'x'));
    bench.sci.Select(5, 45);
    FakeJob job(bench.printing.log);
    QVERIFY(bench.Color(job) == PrintEnd::Printed);
    QCOMPARE(bench.sci.colorMode, 4u);
    QVERIFY(bench.sci.messages.indexOf(SCI_SETPRINTCOLOURMODE) < bench.sci.messages.indexOf(SCI_FORMATRANGE));
    QCOMPARE(bench.sci.orders.size(), 1);
    const auto& [draw, record] = bench.sci.orders.first();
    QCOMPARE(draw, static_cast<std::uintptr_t>(-1));
    QCOMPARE(record.hdc, static_cast<void*>(&job.Painter()));
    QCOMPARE(record.hdcTarget, record.hdc);
    for (const Sci_Rectangle& rect : {record.rc, record.rcPage}) {
        QCOMPARE(rect.left, 0);
        QCOMPARE(rect.top, 0);
        QCOMPARE(rect.right, 400);
        QCOMPARE(rect.bottom, 200);
    }
    QCOMPARE(record.chrg.cpMin, 5);
    QCOMPARE(record.chrg.cpMax, 45);
    QCOMPARE(bench.printing.log, QStringList{u"end"_s});
}

void tst_modPrint::colorGoesPageByPage()
{
    Bench bench(Lines(25));
    bench.sci.Select(0, 250);
    FakeJob job(bench.printing.log);
    QVERIFY(bench.Color(job) == PrintEnd::Printed);
    QCOMPARE(Starts(bench.sci), (QList<long>{0, 100, 200}));
    QCOMPARE(bench.printing.log.join(QLatin1Char(' ')), u"page page end"_s);
    QCOMPARE(bench.watch.places.size(), 2);
    QCOMPARE(bench.watch.places.last().page, 3);
    QCOMPARE(bench.watch.places.last().done, 200);
    QCOMPARE(bench.watch.places.last().all, 250);
}

void tst_modPrint::restOfTenBytesGetsNoPage()
{
    Bench bench(Lines(22));
    bench.sci.Select(0, 210);
    FakeJob job(bench.printing.log);
    QVERIFY(bench.Color(job) == PrintEnd::Printed);
    QCOMPARE(Starts(bench.sci), (QList<long>{0, 100}));
    QCOMPARE(bench.printing.log.join(QLatin1Char(' ')), u"page end"_s);
    bench.sci.orders.clear();
    bench.sci.Select(0, 211);
    QVERIFY(bench.Color(job) == PrintEnd::Printed);
    QCOMPARE(Starts(bench.sci), (QList<long>{0, 100, 200}));
}

void tst_modPrint::withoutASelectionNoEmptyPageFollows()
{
    Bench bench(Lines(15));
    FakeJob job(bench.printing.log);
    QVERIFY(bench.Color(job) == PrintEnd::Printed);
    QCOMPARE(Starts(bench.sci), (QList<long>{0, 100}));
    QCOMPARE(bench.printing.log.join(QLatin1Char(' ')), u"page end"_s);
}

void tst_modPrint::rangeThatEndsBelowTenGivesAnEmptyPage()
{
    Bench bench(Lines(15));
    bench.sci.Select(2, 10);
    FakeJob job(bench.printing.log);
    QVERIFY(bench.Color(job) == PrintEnd::Printed);
    QVERIFY(bench.sci.orders.isEmpty());
    QCOMPARE(bench.printing.log, QStringList{u"end"_s});
}

void tst_modPrint::caretAtTheEndGivesAnEmptyPage()
{
    Bench bench(Lines(15));
    bench.sci.Select(150, 150);
    FakeJob job(bench.printing.log);
    QVERIFY(bench.Color(job) == PrintEnd::Printed);
    QVERIFY(bench.sci.orders.isEmpty());
    QCOMPARE(bench.printing.log, QStringList{u"end"_s});
}

void tst_modPrint::paperWithoutRoomForALineEnds()
{
    Bench bench(Lines(15));
    bench.sci.pageBytes = 0;
    FakeJob job(bench.printing.log);
    QVERIFY(bench.Color(job) == PrintEnd::Printed);
    QCOMPARE(bench.sci.orders.size(), 1);
}

void tst_modPrint::selectionUpToALineStartEndsWithTheLineBefore_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("last");
    QTest::newRow("whole line") << 13 << 26 << 24;
    QTest::newRow("without its end") << 13 << 24 << 24;
    QTest::newRow("into the next line") << 13 << 27 << 27;
    QTest::newRow("up to the text's end") << 13 << 39 << 37;
}

void tst_modPrint::selectionUpToALineStartEndsWithTheLineBefore()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(int, last);
    Bench bench("print line1\r\nprint line2\r\nprint line3\r\n");
    bench.sci.Select(from, to);
    FakeJob job(bench.printing.log);
    QVERIFY(bench.Color(job) == PrintEnd::Printed);
    QCOMPARE(bench.sci.orders.size(), 1);
    QCOMPARE(bench.sci.orders.first().record.chrg.cpMin, from);
    QCOMPARE(bench.sci.orders.first().record.chrg.cpMax, last);
}

void tst_modPrint::stopEndsTheJobUnsent()
{
    Bench bench(Lines(100));
    bench.watch.allowed = 2;
    FakeJob job(bench.printing.log);
    QVERIFY(bench.Color(job) == PrintEnd::Stopped);
    QCOMPARE(bench.sci.orders.size(), 3);
    QVERIFY(!bench.printing.log.contains(u"end"_s));
}

void tst_modPrint::closedWindowEndsTheJobUnsent()
{
    Bench bench(Lines(100));
    bench.watch.turn = [&] { bench.document.sci = nullptr; };
    FakeJob job(bench.printing.log);
    QVERIFY(bench.Color(job) == PrintEnd::Stopped);
    QCOMPARE(bench.sci.orders.size(), 1);
    QVERIFY(!bench.printing.log.contains(u"end"_s));
}

void tst_modPrint::plainSelectionStaysSelected()
{
    Bench bench("print 1\r\nprint 2\r\n");
    bench.sci.Select(12, 3);
    FakeJob job(bench.printing.log);
    QVERIFY(bench.Plain(job) == PrintEnd::Printed);
    QCOMPARE(bench.sci.anchor, 3);
    QCOMPARE(bench.sci.caret, 12);
}

void tst_modPrint::plainWithoutASelectionLeavesTheFirstCharacterSelected()
{
    Bench bench("print 1\r\nprint 2\r\n");
    bench.sci.Select(9, 9);
    FakeJob job(bench.printing.log);
    QVERIFY(bench.Plain(job) == PrintEnd::Printed);
    QCOMPARE(bench.sci.anchor, 0);
    QCOMPARE(bench.sci.caret, 1);
}

void tst_modPrint::plainGoesPageByPage()
{
    Bench bench(QByteArray("print 1\r\n").repeated(100));
    FakeJob job(bench.printing.log);
    QVERIFY(bench.Plain(job) == PrintEnd::Printed);
    QVERIFY(bench.watch.places.size() > 3);
    for (qsizetype i = 0; i < bench.watch.places.size(); ++i) {
        QCOMPARE(bench.watch.places[i].page, i + 2);
        QCOMPARE(bench.watch.places[i].all, bench.sci.text.size());
        QVERIFY(bench.watch.places[i].done > (i == 0 ? 0 : bench.watch.places[i - 1].done));
    }
    QCOMPARE(bench.printing.log.count(u"page"_s), bench.watch.places.size());

    bench.printing.log.clear();
    bench.watch.places.clear();
    bench.watch.allowed = 1;
    bench.sci.Select(0, 0);
    QVERIFY(bench.Plain(job) == PrintEnd::Stopped);
    QVERIFY(!bench.printing.log.contains(u"end"_s));
}

void tst_modPrint::emptyTextPrintsAnEmptyPage_data()
{
    QTest::addColumn<BoxAnswer>("answer");
    QTest::newRow("in color") << BoxAnswer::Yes;
    QTest::newRow("plain") << BoxAnswer::No;
}

void tst_modPrint::emptyTextPrintsAnEmptyPage()
{
    QFETCH(BoxAnswer, answer);
    Bench bench;
    bench.ExpectQuestion(answer);
    PrintActiveDocument(bench.printing, bench.watch);
    QVERIFY(bench.sci.orders.isEmpty());
    QCOMPARE(bench.printing.log.join(QLatin1Char(' ')), u"start game.bas end"_s);
}

void tst_modPrint::defaultPrinterGetsTheFilesName()
{
    Bench bench("print 1\r\nprint 2\r\n");
    bench.ExpectQuestion(BoxAnswer::Yes);
    PrintActiveDocument(bench.printing, bench.watch);
    QCOMPARE(bench.printing.log.first(), u"start game.bas"_s);
    QCOMPARE(bench.printing.log.last(), u"end"_s);
}

void tst_modPrint::printerThatRejectsJobsIsNotReported()
{
    Bench bench("print 1\r\nprint 2\r\n");
    bench.printing.takesJobs = false;
    bench.ExpectQuestion(BoxAnswer::No);
    PrintActiveDocument(bench.printing, bench.watch);
    QVERIFY(bench.sci.orders.isEmpty());
    QVERIFY(!bench.sci.messages.contains(SCI_SETSEL));
}

void tst_modPrint::printerErrorIsNotReported_data()
{
    emptyTextPrintsAnEmptyPage_data();
}

void tst_modPrint::printerErrorIsNotReported()
{
    QFETCH(BoxAnswer, answer);
    for (const bool failsAtTheEnd : {false, true}) {
        Bench bench(QByteArray("print 1\r\n").repeated(100));
        bench.printing.prepare = [&](FakeJob& job) { (failsAtTheEnd ? job.end : job.newPage) = PrinterState::Failed; };
        bench.ExpectQuestion(answer);
        PrintActiveDocument(bench.printing, bench.watch);
        QCOMPARE(bench.printing.log.last(), failsAtTheEnd ? u"end"_s : u"page"_s);
        // The text stays selected: only a successful print clears the selection.
        if (answer == BoxAnswer::No)
            QCOMPARE(bench.sci.caret, bench.sci.text.size());
    }
}

void tst_modPrint::stopWhileSendingCancelsTheJob()
{
    Bench bench(QByteArray(50, 'x'));
    bench.sci.Select(0, 50);
    bench.watch.allowed = 3;
    FakeJob job(bench.printing.log);
    job.pagesToSend = 10;
    QVERIFY(bench.Color(job) == PrintEnd::Stopped);
    QCOMPARE(bench.watch.places.size(), 4);
    QVERIFY(bench.watch.places.last().work == PrintWork::Sending);
    QCOMPARE(bench.watch.places.last().page, 4);
    QCOMPARE(bench.watch.places.last().all, 10);
}

void tst_modPrint::noPrinterAsksForAPdf()
{
    Bench bench("print 1\r\nprint 2\r\n");
    bench.printing.hasPrinter = false;
    const QString path = bench.Path(u"out.pdf"_s);
    bench.ExpectQuestion(BoxAnswer::No);
    bench.dialogs.ExpectFile(FilePurpose::Save, u"Print to PDF"_s, u"PDF (*.pdf)|*.pdf"_s, path);
    PrintActiveDocument(bench.printing, bench.watch);
    QVERIFY(CoreBench::Get(path).startsWith("%PDF-"));
    QVERIFY(bench.printing.log.isEmpty());
}

void tst_modPrint::pdfNameCanBeDeclined()
{
    Bench bench("print 1\r\nprint 2\r\n");
    bench.printing.hasPrinter = false;
    bench.ExpectQuestion(BoxAnswer::No);
    bench.dialogs.ExpectFile(FilePurpose::Save, u"Print to PDF"_s, u"PDF (*.pdf)|*.pdf"_s, {});
    PrintActiveDocument(bench.printing, bench.watch);
    QVERIFY(!bench.sci.messages.contains(SCI_SETSEL));
}

void tst_modPrint::namesOfJobAndPdf_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("pdf");
    const auto row = [](const char* caption, const char* title, const char* pdf) {
        QTest::newRow(caption) << QString::fromUtf8(caption) << QString::fromUtf8(title) << QString::fromUtf8(pdf);
    };
    row("/home/me/game.bas", "game.bas", "game.pdf");
    row("/home/me.too/game", "game", "game.pdf");
    row("untitled.bas", "untitled.bas", "untitled.pdf");
    row("Document 2", "Document 2", "Document 2.pdf");
    row("/home/me/.bas", ".bas", ".bas.pdf");
    row("/home/me/a.b.bas", "a.b.bas", "a.b.pdf");
}

void tst_modPrint::namesOfJobAndPdf()
{
    QFETCH(QString, caption);
    QTEST(PrintTitle(caption), "title");
    QTEST(PdfNameOf(caption), "pdf");
}

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    tst_modPrint test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_modPrint.moc"
