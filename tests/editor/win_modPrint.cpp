// SPDX-License-Identifier: GPL-3.0-or-later
// Printing with the real control and real pages, in a PDF that another program reads.
#include "editor/PdfPages.h"
#include "editor/PrintedPages.h"
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/dlgPrinting.h"
#include "editor/document/cDocument.h"
#include "editor/document/modStyling.h"
#include "platform/dialogs/frmPrinter.h"
#include "shell/state/Module1.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QToolBar>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString Question = u"Would you like to print in color?  If all pages do not print properly in color "
                         "on your system, then select 'No'."_s;

// A printer whose pages go to a file.
class FilePrinting final : public cPrinting {
public:
    explicit FilePrinting(QString file) : path(std::move(file)) {}

    bool HasDefaultPrinter() override { return !path.isEmpty(); }
    std::unique_ptr<cPrintJob> StartOnDefaultPrinter(const QString& title) override
    {
        auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(path);
        printer->setDocName(title);
        return StartOn(std::move(printer));
    }

private:
    QString path;
};

// The program with a text in its window, and no printer on the system.
struct PrintBench {
    explicit PrintBench(const QByteArray& program)
    {
        SetPrinting(&noPrinter);
        // However slow the machine is, the window appears only in a test that waits for it.
        dlgPrinting::Patience = std::chrono::hours(1);
        bench.Start({bench.Write(u"game.bas"_s, program)});
        SendSci(Text(), SCI_GOTOPOS, 0);
    }
    ~PrintBench()
    {
        SetPrinting(nullptr);
        dlgPrinting::Patience = std::chrono::seconds(1);
    }
    PrintBench(const PrintBench&) = delete;
    PrintBench& operator=(const PrintBench&) = delete;

    Sci Text() const { return bench.Active()->sci; }
    QString Pdf() const { return bench.Path(u"out.pdf"_s); }

    void ExpectQuestions(BoxAnswer inColor)
    {
        bench.dialogs.ExpectMessage(Question, inColor, BoxIcon::Question, BoxButtons::YesNoCancel);
        if (!Printing().HasDefaultPrinter())
            bench.dialogs.ExpectFile(FilePurpose::Save, u"Print to PDF"_s, u"PDF (*.pdf)|*.pdf"_s, Pdf());
    }

    void Print(BoxAnswer inColor)
    {
        ExpectQuestions(inColor);
        bench.Choose(u"mnuFilePrint"_s);
        QVERIFY(bench.dialogs.Finished());
    }

    void Select(std::intptr_t from, std::intptr_t to) const
    {
        SendSci(Text(), SCI_SETSEL, static_cast<std::uintptr_t>(from), to);
    }

    TestBench bench;
    FilePrinting noPrinter{QString()};
};

QByteArray Program(int lines)
{
    QByteArray text;
    for (int i = 1; i <= lines; ++i)
        text += "print \"line\"; " + QByteArray::number(i) + " ' comment\r\n";
    return text;
}

QStringList LinesOfProgram(const QByteArray& program)
{
    QStringList lines = QString::fromUtf8(program).split(u"\r\n"_s);
    lines.removeAll(QString());
    return lines;
}

// The number of dots on a page that are close to a colour; the edges of characters are paler than their middle.
int CountColor(const QImage& page, const QColor& color)
{
    int count = 0;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x) {
            const QColor dot = page.pixelColor(x, y);
            const int distance = std::abs(dot.red() - color.red()) + std::abs(dot.green() - color.green()) +
                                 std::abs(dot.blue() - color.blue());
            count += distance < 90 ? 1 : 0;
        }
    return count;
}

QColor ToColor(ColorRef color)
{
    return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF), static_cast<int>(color >> 16 & 0xFF)};
}

} // namespace

class win_modPrint : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void programIsPrintedWhole_data();
    void programIsPrintedWhole();
    void selectedLineIsPrintedAlone_data();
    void selectedLineIsPrintedAlone();
    void caretAtTheEndGivesAnEmptyPage_data();
    void caretAtTheEndGivesAnEmptyPage();
    void printBeginsAtTheCaret();
    void noPageWithoutTextFollowsTheLast();
    void colorsAreOnThePage();
    void plainTextIsBlack();
    void darkWindowPrintsReadably();
    void screenIsAsBefore();
    void longLinesAreWrapped();
    void lineOverManyPagesIsPrintedWhole();
    void otherScriptsArePrinted();
    void fontsAreInTheFile();
    void printerGetsTheSamePages_data();
    void printerGetsTheSamePages();
    void toolbarButtonPrints();
    void fileThatCannotBeWrittenIsReported();
    void longPrintShowsItsPageAndCanBeCancelled();
    void shortPrintShowsNoWindow();
    void lineNumberMarginStaysInAWrappedWindow();
};

void win_modPrint::programIsPrintedWhole_data()
{
    QTest::addColumn<BoxAnswer>("way");
    QTest::newRow("in color") << BoxAnswer::Yes;
    QTest::newRow("plain") << BoxAnswer::No;
}

void win_modPrint::programIsPrintedWhole()
{
    QFETCH(BoxAnswer, way);
    PrintBench print(Program(300));
    print.Print(way);
    // Loading drops the last two bytes, which are the last line end.
    QCOMPARE(LinesOf(print.Pdf()), LinesOfProgram(Program(300)));
    QVERIFY(PdfField(print.Pdf(), u"Pages"_s).toInt() > 4);
    QCOMPARE(PdfField(print.Pdf(), u"Title"_s), u"game.bas"_s);
}

void win_modPrint::selectedLineIsPrintedAlone_data()
{
    QTest::addColumn<BoxAnswer>("way");
    QTest::addColumn<int>("lineEnd");
    QTest::newRow("in color") << BoxAnswer::Yes << 0;
    QTest::newRow("in color, with its end") << BoxAnswer::Yes << 2;
    QTest::newRow("plain") << BoxAnswer::No << 0;
    QTest::newRow("plain, with its end") << BoxAnswer::No << 2;
}

void win_modPrint::selectedLineIsPrintedAlone()
{
    QFETCH(BoxAnswer, way);
    QFETCH(int, lineEnd);
    PrintBench print(Program(9));
    const qsizetype length = Program(1).size();
    print.Select(4 * length, 5 * length - 2 + lineEnd);
    print.Print(way);
    QCOMPARE(LinesOf(print.Pdf()), QStringList{LinesOfProgram(Program(9))[4]});
    QCOMPARE(PdfField(print.Pdf(), u"Pages"_s), u"1"_s);
    QCOMPARE(SendSci(print.Text(), SCI_GETSELECTIONSTART), 4 * length);
    QCOMPARE(SendSci(print.Text(), SCI_GETSELECTIONEND), 5 * length - 2 + lineEnd);
}

void win_modPrint::caretAtTheEndGivesAnEmptyPage_data()
{
    programIsPrintedWhole_data();
}

void win_modPrint::caretAtTheEndGivesAnEmptyPage()
{
    QFETCH(BoxAnswer, way);
    PrintBench print(Program(9));
    SendSci(print.Text(), SCI_GOTOPOS, static_cast<std::uintptr_t>(Program(9).size()));
    print.Print(way);
    QVERIFY(LinesOf(print.Pdf()).isEmpty());
    QCOMPARE(PdfField(print.Pdf(), u"Pages"_s), u"1"_s);
}

void win_modPrint::printBeginsAtTheCaret()
{
    PrintBench print(Program(20));
    SendSci(print.Text(), SCI_GOTOPOS, static_cast<std::uintptr_t>(10 * Program(1).size() + 4));
    print.Print(BoxAnswer::Yes);
    const QStringList lines = LinesOf(print.Pdf());
    QCOMPARE(lines.last(), LinesOfProgram(Program(20)).last());
    QVERIFY(!lines.contains(LinesOfProgram(Program(20)).first()));
}

void win_modPrint::noPageWithoutTextFollowsTheLast()
{
    PrintBench print(Program(9));
    print.Print(BoxAnswer::Yes);
    QCOMPARE(PagesOf(print.Pdf()).size(), 1);
    QVERIFY(!PagesOf(print.Pdf()).last().isEmpty());
}

void win_modPrint::colorsAreOnThePage()
{
    PrintBench print(Program(40));
    print.Print(BoxAnswer::Yes);
    const QImage page = FirstPage(print.Pdf());
    QVERIFY(!page.isNull());
    QVERIFY(CountColor(page, ToColor(Editor.KeywordColor)) > 100);
    QVERIFY(CountColor(page, ToColor(Editor.QuoteColor)) > 100);
    QVERIFY(CountColor(page, ToColor(Editor.CommentColor)) > 100);
    // White paper with text on it.
    QVERIFY(CountColor(page, Qt::white) > page.width() * page.height() * 3 / 4);
}

void win_modPrint::plainTextIsBlack()
{
    PrintBench print(Program(40));
    print.Print(BoxAnswer::No);
    const QImage page = FirstPage(print.Pdf());
    QVERIFY(!page.isNull());
    QVERIFY(CountColor(page, Qt::black) > 1000);
    QVERIFY(page.allGray());
}

void win_modPrint::darkWindowPrintsReadably()
{
    PrintBench print("game = title\r\n" + QByteArray("game = title\r\n").repeated(20));
    Editor.EditForeColor = Rgb(230, 230, 230);
    Editor.EditBackColor = Rgb(20, 20, 20);
    Editor.NumberColor = Rgb(255, 255, 128);
    SetSciColors(print.Text(), Editor);
    print.Print(BoxAnswer::Yes);
    const QImage page = FirstPage(print.Pdf());
    QVERIFY(!page.isNull());
    QVERIFY(CountColor(page, QColor(25, 25, 25)) > 500);
    QVERIFY(CountColor(page, Qt::white) > page.width() * page.height() * 3 / 4);
    // The window keeps its own.
    QCOMPARE(SendSci(print.Text(), SCI_STYLEGETFORE, 7), static_cast<std::intptr_t>(Editor.EditForeColor));
    QCOMPARE(SendSci(print.Text(), SCI_STYLEGETFORE, 6), static_cast<std::intptr_t>(Editor.NumberColor));
}

void win_modPrint::screenIsAsBefore()
{
    PrintBench print(Program(300));
    print.Select(10, 400);
    SendSci(print.Text(), SCI_LINESCROLL, 0, 5);
    QApplication::processEvents();
    const QImage before = print.bench.ActiveWindowEdit()->grab().toImage();
    print.Print(BoxAnswer::Yes);
    QCOMPARE(print.bench.ActiveWindowEdit()->grab().toImage(), before);
}

void win_modPrint::longLinesAreWrapped()
{
    QStringList words;
    for (int i = 1000; i < 1100; ++i)
        words.append(u"word%1"_s.arg(i));
    PrintBench print(words.join(QLatin1Char(' ')).toUtf8() + "\r\nend\r\n");
    print.Print(BoxAnswer::Yes);
    const QStringList lines = LinesOf(print.Pdf());
    QVERIFY(lines.size() > 5);
    QCOMPARE(lines.join(QLatin1Char(' ')), words.join(QLatin1Char(' ')) + u" end"_s);
}

void win_modPrint::lineOverManyPagesIsPrintedWhole()
{
    QStringList words;
    for (int i = 10000; i < 11600; ++i)
        words.append(u"word%1"_s.arg(i));
    PrintBench print("cls\r\n" + words.join(QLatin1Char(' ')).toUtf8() + "\r\n" + Program(30));
    print.Print(BoxAnswer::Yes);
    QVERIFY(PagesOf(print.Pdf()).size() >= 4);
    const QStringList expected = QStringList{u"cls"_s} + words + LinesOfProgram(Program(30));
    QCOMPARE(LinesOf(print.Pdf()).join(QLatin1Char(' ')), expected.join(QLatin1Char(' ')));

    // From the row where the selection begins.
    const std::intptr_t start = TestBench::Text(print.bench.Active()).indexOf("word10200") + 3;
    print.Select(start, SendSci(print.Text(), SCI_GETLENGTH));
    print.Print(BoxAnswer::Yes);
    const QString rest = LinesOf(print.Pdf()).join(QLatin1Char(' '));
    QVERIFY(rest.first(120).contains(u"word10200"_s));
    QVERIFY(expected.join(QLatin1Char(' ')).endsWith(rest));
}

void win_modPrint::otherScriptsArePrinted()
{
    PrintBench print("cls\r\n");
    const QString line = QString::fromUtf8("print \"Grüße, Привет, Ελλάδα €\"");
    TestBench::Type(print.bench.Active(), line.toUtf8());
    for (const BoxAnswer way : {BoxAnswer::Yes, BoxAnswer::No}) {
        SendSci(print.Text(), SCI_GOTOPOS, 0);
        print.Print(way);
        QCOMPARE(LinesOf(print.Pdf()).first(), line + u"cls"_s);
    }
}

void win_modPrint::fontsAreInTheFile()
{
    PrintBench print(Program(9));
    print.Print(BoxAnswer::Yes);
    const QList<QByteArray> table = OutputOf(u"pdffonts"_s, {print.Pdf()}).trimmed().split('\n');
    QVERIFY(table.size() > 2);
    const qsizetype column = table[0].indexOf("emb");
    for (const QByteArray& row : table.sliced(2))
        QCOMPARE(row.mid(column, 3), QByteArray("yes"));
}

void win_modPrint::printerGetsTheSamePages_data()
{
    programIsPrintedWhole_data();
}

void win_modPrint::printerGetsTheSamePages()
{
    QFETCH(BoxAnswer, way);
    PrintBench print(Program(300));
    FilePrinting printer(print.Pdf());
    SetPrinting(&printer);
    print.Print(way);
    QCOMPARE(LinesOf(print.Pdf()), LinesOfProgram(Program(300)));
    const int pages = PdfField(print.Pdf(), u"Pages"_s).toInt();
    QVERIFY(pages > 4);
    // The lines fill the width and height of the paper as in a PDF.
    QCOMPARE(PagesOf(print.Pdf()).size(), pages);
    QVERIFY(PagesOf(print.Pdf()).first().size() > 40);
    QVERIFY(PagesOf(print.Pdf()).first().size() < 80);
    const QImage page = FirstPage(print.Pdf());
    QCOMPARE(page.allGray(), way == BoxAnswer::No);
    QVERIFY(CountColor(page, way == BoxAnswer::No ? QColor(Qt::black) : ToColor(Editor.KeywordColor)) > 100);
}

void win_modPrint::toolbarButtonPrints()
{
    PrintBench print(Program(9));
    print.bench.dialogs.ExpectMessage(Question, BoxAnswer::Cancel, BoxIcon::Question, BoxButtons::YesNoCancel);
    for (QAction* button : print.bench.Frame().findChild<QToolBar*>(u"tbToolBar"_s)->actions())
        if (button->objectName() == QLatin1String("Print"))
            button->trigger();
    QVERIFY(print.bench.dialogs.Finished());
}

void win_modPrint::fileThatCannotBeWrittenIsReported()
{
    PrintBench print(Program(9));
    QVERIFY(QDir().mkdir(print.Pdf()));
    print.ExpectQuestions(BoxAnswer::Yes);
    print.bench.dialogs.ExpectMessage(u"Run-time error '75':\nPath/File access error"_s);
    print.bench.Choose(u"mnuFilePrint"_s);
    QVERIFY(print.bench.dialogs.Finished());
    QVERIFY(QDir(print.Pdf()).isEmpty());
}

void win_modPrint::longPrintShowsItsPageAndCanBeCancelled()
{
    PrintBench print(Program(300));
    dlgPrinting::Patience = {};
    print.bench.Write(u"out.pdf"_s, "old");
    const QStringList files = QDir::current().entryList(QDir::Files | QDir::Hidden);
    print.bench.ExpectModal(u"dlgPrinting"_s, [](QDialog& dialog) {
        QVERIFY(dialog.findChild<QLabel*>(u"lblPage"_s)->text().startsWith(u"Page "_s));
        QVERIFY(dialog.findChild<QProgressBar*>(u"pgbPages"_s)->value() < 1000);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    print.Print(BoxAnswer::Yes);
    QCOMPARE(TestBench::Read(print.Pdf()), QByteArray("old"));
    QCOMPARE(QDir::current().entryList(QDir::Files | QDir::Hidden), files);
}

void win_modPrint::shortPrintShowsNoWindow()
{
    dlgPrinting watch;
    QVERIFY(watch.NextPage({PrintWork::Drawing, 2, 1, 2}) == PrintRequest::GoOn);
    QVERIFY(!watch.isVisible());
    QTest::qWait(static_cast<int>(dlgPrinting::Patience.count()) + 50);
    watch.setModal(false);
    QVERIFY(watch.NextPage({PrintWork::Drawing, 3, 500, 1000}) == PrintRequest::GoOn);
    QVERIFY(watch.isVisible());
    QCOMPARE(watch.findChild<QLabel*>(u"lblPage"_s)->text(), u"Page 3"_s);
    QCOMPARE(watch.findChild<QProgressBar*>(u"pgbPages"_s)->value(), 500);
    watch.NextPage({PrintWork::Sending, 2, 2, 4});
    QCOMPARE(watch.findChild<QLabel*>(u"lblPage"_s)->text(), u"Sending page 2 of 4 to the printer"_s);
    QTimer::singleShot(0, watch.findChild<QPushButton*>(u"cmdCancel"_s), &QPushButton::click);
    QVERIFY(watch.NextPage({PrintWork::Sending, 3, 3, 4}) == PrintRequest::Stop);
}

void win_modPrint::lineNumberMarginStaysInAWrappedWindow()
{
    PrintBench print(Program(30) + QByteArray("word ").repeated(100) + "\r\n" + Program(30));
    SendSci(print.Text(), SCI_SETWRAPMODE, 1);
    const std::intptr_t width = SendSci(print.Text(), SCI_GETMARGINWIDTHN, 0);
    QVERIFY(width > 0);
    print.Print(BoxAnswer::Yes);
    QCOMPARE(SendSci(print.Text(), SCI_GETMARGINWIDTHN, 0), width);
    QCOMPARE(LinesOf(print.Pdf()).first(), LinesOfProgram(Program(1)).first());
}

OB_BENCH_TEST(win_modPrint)
#include "win_modPrint.moc"
