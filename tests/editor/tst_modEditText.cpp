// SPDX-License-Identifier: GPL-3.0-or-later
// Block comment and auto-indent on texts, without a control.
#include "editor/modEditText.h"

#include <QTest>

using namespace ob;

namespace {

constexpr char Unchanged[] = "(unchanged)";

QByteArray Applied(QByteArray text, const std::optional<TextChange>& change)
{
    if (!change)
        return Unchanged;
    return text.replace(change->from, change->to - change->from, change->replacement);
}

// The text after Block Comment; "<" and ">" in it are the ends of the selection, and do not belong to it.
QByteArray Commented(QByteArray marked)
{
    const qsizetype start = marked.indexOf('<');
    marked.remove(start, 1);
    const qsizetype end = marked.indexOf('>');
    marked.remove(end, 1);
    return Applied(marked, BlockComment(marked, start, end));
}

// The text after Return at the end of a line, from 0.
QByteArray Returned(const QByteArray& text, int line, int tabSize = 4)
{
    const std::optional<qsizetype> start = StartOfLine(text, line);
    return start ? Applied(text, ReturnAtEnd(text, *start, tabSize)) : QByteArray(Unchanged);
}

} // namespace

class tst_modEditText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void linesBeginWhereTheControlSaysSo()
    {
        const QByteArray text = "ab\r\n\r\nc\nd\re";
        const QList<qsizetype> starts = {0, 4, 6, 8, 10};
        for (int line = 0; line < starts.size(); ++line)
            QCOMPARE(StartOfLine(text, line).value_or(-1), starts[line]);
        QVERIFY(!StartOfLine(text, starts.size()));
        QVERIFY(!StartOfLine(text, -1));
        QCOMPARE(StartOfLine("a\r\n", 1).value_or(-1), 3);
        QVERIFY(!StartOfLine("a\r\n", 2));
        QCOMPARE(StartOfLine({}, 0).value_or(-1), 0);
        QVERIFY(!StartOfLine({}, 1));
        QVERIFY(!StartOfLine({}, -1));
    }

    void blockCommentChangesTheSelectedLines_data()
    {
        QTest::addColumn<QByteArray>("marked");
        QTest::addColumn<QByteArray>("result");
        const auto row = [](const char* name, const char* marked, const char* result) {
            QTest::newRow(name) << QByteArray(marked) << QByteArray(result);
        };
        row("whole lines", "<a\r\n  b\r\n>c\r\n", "'a\r\n'  b\r\nc\r\n");
        row("from the middle to the middle", "a<b\r\ncd>e\r\nf\r\n", "'ab\r\n'cde\r\nf\r\n");
        row("the caret alone", "x\r\nab<>c\r\ny\r\n", "x\r\n'abc\r\ny\r\n");
        row("the caret on line 0, column 0", "<>abc\r\nd\r\n", "'abc\r\nd\r\n");
        row("the caret at a line's start", "x\r\n<>abc\r\ny\r\n", Unchanged);
        row("the caret after one character", "x\r\na<>bc\r\ny\r\n", Unchanged);
        row("and after one of two bytes", "x\r\n\xC3\xA4<>bc\r\ny\r\n", Unchanged);
        row("after two characters of two bytes", "x\r\n\xC3\xA4\xC3\xB6<>\r\ny\r\n", "x\r\n'\xC3\xA4\xC3\xB6\r\ny\r\n");
        row("an end one character into a line leaves it out", "<x\r\ny\r\nz>z\r\n", "'x\r\n'y\r\nzz\r\n");
        row("empty lines are lines", "<a\r\n\r\nb\r\n>", "'a\r\n'\r\n'b\r\n");
        row("quotes go, the indentation stays", "<'a\r\n  'b\r\n    c\r\n>", "a\r\n  b\r\n    c\r\n");
        row("only the first quote goes", "<''a\r\n'b 'c\r\n>", "'a\r\nb 'c\r\n");
        row("rem at the line's start goes, with its space", "<rem a\r\nREM b\r\n  rem c\r\nremark\r\n>",
            "a\r\nb\r\n  rem c\r\nremark\r\n");
        row("rem after a quote goes with it", "<'rem a\r\n  'rem b\r\n>", "a\r\n  rem b\r\n");
        row("rem alone stays", "<rem\r\n'a\r\n>", "rem\r\na\r\n");
        row("a first line that begins as rem does decides", "<  remote = 1\r\n'a\r\n>", "  remote = 1\r\na\r\n");
        row("the first line decides for all", "<a\r\n'b\r\nrem c\r\n>", "'a\r\n''b\r\n'rem c\r\n");
        row("a first line of spaces is no comment", "<  \r\n'b\r\n>", "'  \r\n''b\r\n");
        row("a tab is no space", "<\t'a\r\n>", "'\t'a\r\n");
        row("a quote alone", "<'\r\n>", "\r\n");
        row("other line ends stay", "<a\nb\rc\n>d", "'a\n'b\r'c\nd");
        row("between them too", "<'a\n'b\r'c\n>d", "a\nb\rc\nd");
    }

    void blockCommentChangesTheSelectedLines()
    {
        QFETCH(QByteArray, marked);
        QTEST(Commented(marked), "result");
    }

    void aLastLineWithoutALineEndLosesTwoCharacters_data()
    {
        QTest::addColumn<QByteArray>("marked");
        QTest::addColumn<QByteArray>("result");
        const auto row = [](const char* name, const char* marked, const char* result) {
            QTest::newRow(name) << QByteArray(marked) << QByteArray(result);
        };
        row("alone", "<abcd>", "'ab");
        row("after others", "<a\r\nbcde>", "'a\r\n'bc");
        row("the two spaces of a save", "a\r\n<end  >", "a\r\n'end");
        row("characters of several bytes", "<a\xC3\xA4\xE2\x82\xAC>", "'a");
        row("uncommented", "<'abcd>", "ab");
        row("of two characters the quote stays", "<ab>", "'");
        row("of one too little", "<a>", "'");
        row("an empty text stays empty", "<>", "");
        row("of a quote and a character the line end before goes too", "<'a\r\n'x>", "a\r");
        row("a quote alone is cut before it is looked at", "<'>", "'");
        row("rem alone is no comment then", "<rem>", "'r");
        row("an empty last line is left out", "<a\r\nb\r\n>", "'a\r\n'b\r\n");
    }

    void aLastLineWithoutALineEndLosesTwoCharacters()
    {
        QFETCH(QByteArray, marked);
        QTEST(Commented(marked), "result");
    }

    void commentAndUncommentRestoreTheLines()
    {
        const QByteArray text = "for i = 1 to 2\r\n    print i 'twice\r\n\r\nnext i\r\nend\r\n";
        const QByteArray commented = Applied(text, BlockComment(text, 0, text.size()));
        QCOMPARE(commented, QByteArray("'for i = 1 to 2\r\n'    print i 'twice\r\n'\r\n'next i\r\n'end\r\n"));
        QCOMPARE(Applied(commented, BlockComment(commented, 0, commented.size())), text);
    }

    void nulsAreCharacters()
    {
        const QByteArray text("a\0b\r\n\0\r\nc\r\n", 11);
        QCOMPARE(Applied(text, BlockComment(text, 0, text.size())), QByteArray("'a\0b\r\n'\0\r\n'c\r\n", 14));
    }

    void returnKeepsTheIndentation_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<int>("indentation");
        const auto row = [](const char* line, int indentation) {
            QTest::newRow(*line == '\0' ? "empty" : line) << QByteArray(line) << indentation;
        };
        row("", 0);
        row("print", 0);
        row("  print", 2);
        row("     ", 5);
        row("\tprint", 4);
        row("  \tprint", 4);
        row("\t  print", 6);
        row("if x then", 4);
        row("  IF x then", 6);
        row("for i = 1 to 5", 4);
        row("While 1", 4);
        row("do while x", 4);
        row("do ", 4);
        row("do", 0);
        row("  do", 2);
        row("iffy x", 0);
        row("if(x) then", 0);
        row("do\tx", 0);
        row("\tif x then", 4);
        row("next i", 0);
        row("  wend", 2);
        row("else if x then", 0);
    }

    void returnKeepsTheIndentation()
    {
        QFETCH(QByteArray, line);
        QFETCH(int, indentation);
        const QByteArray spaces(indentation, ' ');
        QCOMPARE(Returned("a\r\n" + line + "\r\nb", 1), "a\r\n" + line + "\r\n" + spaces + "\r\nb");
        QCOMPARE(Returned(line, 0), line + "\r\n" + spaces);
    }

    void theTabSizeIsTheStep()
    {
        QCOMPARE(Returned("  if x then", 0, 8), QByteArray("  if x then\r\n          "));
        QCOMPARE(Returned("\tif x then", 0, 1), QByteArray("\tif x then\r\n "));
        QCOMPARE(Returned("\t\tprint", 0, 3), QByteArray("\t\tprint\r\n      "));
    }

    void returnKeepsTheLineEndsAround()
    {
        QCOMPARE(Returned(" a\nb", 0), QByteArray(" a\r\n \nb"));
        QCOMPARE(Returned(" a\rb", 0), QByteArray(" a\r\n \rb"));
        QCOMPARE(Returned("a\r\n", 1), QByteArray("a\r\n\r\n"));
        QCOMPARE(Returned({}, 0), QByteArray("\r\n"));
    }

    void linesThatMayContainLabelsAreRecognized()
    {
        for (const char* line : {"[a]", "x$ = a$[1]", "goSUB [x]", "a subtle word", "FUNCTION f", "dysfunctional"})
            QVERIFY2(MayHoldLabel(line), line);
        for (const char* line : {"", "print", "su b", "functio n", "]"})
            QVERIFY2(!MayHoldLabel(line), line);
    }
};

QTEST_APPLESS_MAIN(tst_modEditText)
#include "tst_modEditText.moc"
