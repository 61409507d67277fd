// SPDX-License-Identifier: GPL-3.0-or-later
// Plain text on the pages of a PDF, read back by another program.
#include "editor/PdfPages.h"

#include "editor/modPlainPages.h"
#include "platform/dialogs/modPrinter.h"
#include "platform/language/cRuntimeError.h"

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

struct Pdf {
    QTemporaryDir folder;
    QString path = folder.filePath(u"out.pdf"_s);

    // Returns the number of pages.
    int Print(const QString& text, int tabSize = 4) const
    {
        const auto job = StartPdf(path, u"game.bas"_s);
        cPlainPages pages(text, *job, tabSize);
        int count = 1;
        for (; pages.FillPage() == PageEnd::MoreToCome; ++count)
            job->NewPage();
        job->End([](const SendingPlace&) { return SendingRequest::GoOn; });
        return count;
    }
};

QStringList NumberedLines(int count)
{
    QStringList lines;
    for (int i = 1; i <= count; ++i)
        lines.append(u"print \"line %1\""_s.arg(i));
    return lines;
}

} // namespace

class tst_modPlainPages : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void allLinesArePrintedInOrder_data();
    void allLinesArePrintedInOrder();
    void firstLineOfTheFirstPageIsEmpty();
    void emptyLinesAtTheEndNeedNoPage();
    void emptyLinesInTheMiddleAreKept();
    void longLineIsWrapped();
    void endlessLineIsPrintedWhole();
    void tabsReachTheirColumns();
    void otherScriptsArePrinted();
    void emptyTextIsOneEmptyPage();
    void titleIsInTheFile();
    void fontsAreInTheFile();
    void droppedJobLeavesTheOldFile();
    void fileThatCannotBeWrittenRaises();
};

void tst_modPlainPages::allLinesArePrintedInOrder_data()
{
    QTest::addColumn<QString>("lineEnd");
    QTest::newRow("CR LF") << u"\r\n"_s;
    QTest::newRow("LF") << u"\n"_s;
    QTest::newRow("CR") << u"\r"_s;
}

void tst_modPlainPages::allLinesArePrintedInOrder()
{
    QFETCH(QString, lineEnd);
    const QStringList lines = NumberedLines(200);
    const Pdf pdf;
    const int pages = pdf.Print(lines.join(lineEnd) + lineEnd);
    QVERIFY(pages > 2);
    QCOMPARE(PdfField(pdf.path, u"Pages"_s), QString::number(pages));
    QCOMPARE(LinesOf(pdf.path), lines);
    for (const QStringList& page : PagesOf(pdf.path))
        QVERIFY(!page.isEmpty());
}

void tst_modPlainPages::firstLineOfTheFirstPageIsEmpty()
{
    const Pdf pdf;
    pdf.Print(NumberedLines(200).join(QLatin1Char('\n')));
    const QList<QStringList> pages = PagesOf(pdf.path);
    QCOMPARE(pages[1].size(), pages[0].size() + 1);
}

void tst_modPlainPages::emptyLinesAtTheEndNeedNoPage()
{
    const Pdf pdf;
    QCOMPARE(pdf.Print(u"end\r\n"_s + u"\r\n"_s.repeated(500)), 1);
}

void tst_modPlainPages::emptyLinesInTheMiddleAreKept()
{
    const Pdf pdf;
    const int pages = pdf.Print(u"cls"_s + u"\r\n"_s.repeated(150) + u"end"_s);
    QVERIFY(pages > 1);
    QCOMPARE(PagesOf(pdf.path).first(), QStringList{u"cls"_s});
    QCOMPARE(PagesOf(pdf.path).last(), QStringList{u"end"_s});
}

void tst_modPlainPages::longLineIsWrapped()
{
    QStringList words;
    for (int i = 1000; i < 1100; ++i)
        words.append(u"word%1"_s.arg(i));
    const Pdf pdf;
    pdf.Print(words.join(QLatin1Char(' ')) + u"\r\nend"_s);
    const QStringList lines = LinesOf(pdf.path);
    QVERIFY(lines.size() > 5);
    QCOMPARE(lines.last(), u"end"_s);
    QCOMPARE(lines.join(QLatin1Char(' ')), words.join(QLatin1Char(' ')) + u" end"_s);
}

void tst_modPlainPages::endlessLineIsPrintedWhole()
{
    QString line;
    for (int i = 0; line.size() < 200'000; ++i)
        line += QString::number(i);
    const Pdf pdf;
    QElapsedTimer clock;
    clock.start();
    pdf.Print(line);
    QVERIFY2(clock.elapsed() < 10'000, "the time grows with the square of the line's length");
    const QStringList rows = LinesOf(pdf.path);
    QCOMPARE(rows.join(QString()), line);
    // Every row but the last is filled to the edge of the page, even where pieces meet.
    for (qsizetype i = 0; i < rows.size() - 1; ++i)
        QCOMPARE(rows[i].size(), rows[0].size());
}

void tst_modPlainPages::tabsReachTheirColumns()
{
    const Pdf pdf;
    pdf.Print(u"\tx\r\nab\tx\r\n    x\r\n"_s);
    const QByteArray words = OutputOf(u"pdftotext"_s, {u"-bbox"_s, pdf.path, u"-"_s});
    QList<QByteArray> places;
    for (const QByteArray& line : words.split('\n'))
        if (line.contains(">x<"))
            places.append(line.mid(line.indexOf("xMin"), 16));
    QCOMPARE(places.size(), 3);
    QCOMPARE(places[1], places[0]);
    QCOMPARE(places[2], places[0]);
}

void tst_modPlainPages::otherScriptsArePrinted()
{
    const Pdf pdf;
    const QString text = QString::fromUtf8("print \"Grüße, Привет, Ελλάδα €\"");
    pdf.Print(text);
    QCOMPARE(LinesOf(pdf.path), QStringList{text});
}

void tst_modPlainPages::emptyTextIsOneEmptyPage()
{
    const Pdf pdf;
    QCOMPARE(pdf.Print({}), 1);
    QCOMPARE(PdfField(pdf.path, u"Pages"_s), u"1"_s);
    QVERIFY(LinesOf(pdf.path).isEmpty());
}

void tst_modPlainPages::titleIsInTheFile()
{
    const Pdf pdf;
    pdf.Print(u"end"_s);
    QCOMPARE(PdfField(pdf.path, u"Title"_s), u"game.bas"_s);
    QVERIFY(PdfField(pdf.path, u"Creator"_s).startsWith(u"Orchard Bench "_s));
}

void tst_modPlainPages::fontsAreInTheFile()
{
    const Pdf pdf;
    pdf.Print(u"end"_s);
    const QList<QByteArray> table = OutputOf(u"pdffonts"_s, {pdf.path}).trimmed().split('\n');
    QVERIFY(table.size() > 2);
    // The column "emb" shows whether a font is embedded in the file.
    const qsizetype column = table[0].indexOf("emb");
    for (const QByteArray& row : table.sliced(2))
        QCOMPARE(row.mid(column, 3), QByteArray("yes"));
}

void tst_modPlainPages::droppedJobLeavesTheOldFile()
{
    const Pdf pdf;
    QFile old(pdf.path);
    QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
    old.close();
    {
        const auto job = StartPdf(pdf.path, u"game.bas"_s);
        cPlainPages(u"end"_s, *job, 4).FillPage();
        job->NewPage();
    }
    QVERIFY(old.open(QIODevice::ReadOnly));
    QCOMPARE(old.readAll(), QByteArray("old"));
    QCOMPARE(QDir(pdf.folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"out.pdf"_s});
}

void tst_modPlainPages::fileThatCannotBeWrittenRaises()
{
    const Pdf pdf;
    const auto write = [&](const QString& path) {
        const auto job = StartPdf(path, u"game.bas"_s);
        job->End([](const SendingPlace&) { return SendingRequest::GoOn; });
    };
    QVERIFY_EXCEPTION_THROWN(write(pdf.folder.filePath(u"gone/out.pdf"_s)), RuntimeError);
    QVERIFY_EXCEPTION_THROWN(write(pdf.folder.path()), RuntimeError);
    QVERIFY(QDir(pdf.folder.path()).isEmpty());
}

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    tst_modPlainPages test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_modPlainPages.moc"
