// SPDX-License-Identifier: GPL-3.0-or-later
// The edit control: its styles are the lexer's after any edit, and a keystroke costs no more than its line.
#include "SciBench.h"
#include "scilexer/modLexer.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>
#include <QtTest>

#include <string>
#include <string_view>
#include <vector>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr std::intptr_t Everything = -1;
constexpr QRgb BraceColor = qRgb(0, 0, 255);
constexpr QRgb BadBraceColor = qRgb(255, 0, 0);

// The lexer's own result for the first `length` bytes, which end a line or the text.
Look LexedLook(std::string_view text, std::size_t length)
{
    const KeywordSet keywords(basicKeywords);
    std::vector<unsigned char> styles(text.size());
    Look look;
    int state = 0;
    for (std::size_t at = 0; at < length;) {
        const LexedLine line = LexFirstLine(state, text.substr(at), keywords, styles.data() + at);
        look.states.push_back(line.state);
        look.levels.push_back(FoldLevel(state, line.state, text.substr(at, line.length)));
        state = line.state;
        at += line.length;
    }
    look.styles.assign(styles.begin(), styles.begin() + static_cast<std::ptrdiff_t>(length));
    return look;
}

bool IsAsLexed(const SciBench& bench)
{
    return bench.StyledLook() == LexedLook(bench.Text(), static_cast<std::size_t>(bench.StyledLinesEnd()));
}

bool HasColor(const QImage& image, QRgb color)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if ((image.pixel(x, y) & RGB_MASK) == (color & RGB_MASK))
                return true;
    return false;
}

const char* const Pieces[] = {"for i = 1 to 2",
                              "next",
                              "if a then",
                              "end if",
                              "'",
                              "\"",
                              "[a]",
                              "rem ",
                              "#h",
                              "\r\n",
                              "\r",
                              "\n",
                              "\r\n\r\n",
                              ":",
                              " ",
                              "12.5",
                              "while x\nwend\n",
                              "do\r\n",
                              "loop",
                              "print ",
                              "(",
                              "sub x\r\n",
                              "then",
                              "end "};

} // namespace

class win_SciLexerOB : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsWithUtf8AndCrLf();
    void stylesAreTheLexers();
    void stylesNothingWithoutTheLanguageLexer();
    void lexesNoFurtherThanIsVisible();
    void randomEditsKeepTheStylesOfAFreshLex_data();
    void randomEditsKeepTheStylesOfAFreshLex();
    void randomEditsBeforeOnePaintKeepStyles();
    void undoAndRedoKeepStyles();
    void aNewKeywordListRestyles();
    void foldLevelsDependOnTheProperty();
    void aJumpOverAMillionLinesColoursInTheBackground();
    void aKeystrokeInAMillionLinesLexesFewLines();
    void anOpenedBlockLexesNoFurtherThanIsVisible();
    void blocksOpenedOneBeforeTheOtherKeepStates();
    void aDeletionThatScrollsKeepsStates();
    void strangeTextIsStyled_data();
    void strangeTextIsStyled();
    void bracesAtTheCaretAreHighlighted_data();
    void bracesAtTheCaretAreHighlighted();
    void droppedFilesGoToTheSurroundingWindow();
    void returnAddsCrLf();
};

void win_SciLexerOB::startsWithUtf8AndCrLf()
{
    constexpr unsigned getCodePage = 2137;
    constexpr unsigned getEolMode = 2030;
    constexpr unsigned getLexer = 4002;
    QWidget frame;
    const SciLexerOB_Window made = MakeControl(&frame);
    QVERIFY(made.window != nullptr);
    QCOMPARE(made.window->parentWidget(), &frame);
    QVERIFY(qobject_cast<QAbstractScrollArea*>(made.window) != nullptr);
    QCOMPARE(SendSci(made.sci, getCodePage), 65001);
    QCOMPARE(SendSci(made.sci, getEolMode), 0);
    QCOMPARE(SendSci(made.sci, getLexer), 0);
    SendSci(made.sci, SCI_SETLEXER, 8);
    QCOMPARE(SendSci(made.sci, getLexer), 8);
}

void win_SciLexerOB::stylesAreTheLexers()
{
    SciBench bench(BasicSource(3).Lines(5000));
    SendSci(bench.sci, SCI_COLOURISE, 0, Everything);
    QCOMPARE(SendSci(bench.sci, SCI_GETENDSTYLED), bench.Length());
    const Look look = bench.StyledLook();
    QVERIFY(look == LexedLook(bench.Text(), bench.Text().size()));
    QCOMPARE(look.states.size(), std::size_t{5000});
    QVERIFY(*std::max_element(look.states.begin(), look.states.end()) > 10);
    for (const int style : {0, 1, 2, 3, 4, 5, 6, 7, 8})
        QVERIFY(std::find(look.styles.begin(), look.styles.end(), style) != look.styles.end());
}

void win_SciLexerOB::stylesNothingWithoutTheLanguageLexer()
{
    QWidget frame;
    const SciLexerOB_Window made = MakeControl(&frame);
    made.window->resize(300, 200);
    SendSci(made.sci, SCI_SETKEYWORDS, 0, "print");
    SendSci(made.sci, SCI_ADDTEXT, 5, "print");
    made.window->grab();
    QCOMPARE(SendSci(made.sci, SCI_GETSTYLEAT, 0), 0);
    SendSci(made.sci, SCI_SETLEXER, 8);
    made.window->grab();
    QCOMPARE(SendSci(made.sci, SCI_GETSTYLEAT, 0), 3);
}

void win_SciLexerOB::lexesNoFurtherThanIsVisible()
{
    SciBench bench(BasicSource(4).Lines(20000));
    SendSci(bench.sci, SCI_GOTOPOS, 0);
    const std::intptr_t lexed = bench.LinesLexedByPainting();
    QVERIFY2(lexed > 5 && lexed < 100, qPrintable(QString::number(lexed)));
    QVERIFY(IsAsLexed(bench));
    QCOMPARE(bench.LinesLexedByPainting(), 0);
}

void win_SciLexerOB::randomEditsKeepTheStylesOfAFreshLex_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<bool>("isPlain");
    QTest::addColumn<int>("reach");
    for (int seed = 1; seed <= 2; ++seed) {
        QTest::addRow("anywhere in a program, seed %d", seed) << seed << false << 1000000;
        QTest::addRow("anywhere in plain lines, seed %d", seed) << seed << true << 1000000;
        QTest::addRow("near the end of plain lines, seed %d", seed) << seed << true << 600;
        QTest::addRow("near the end of a short text, seed %d", seed) << seed << false << 3000;
    }
}

// Edits with paints or style requests for some part of the text in between. `reach` is the distance of the edits from
// the end of the text. In plain lines only the edits open blocks, so that their effects reach far.
void win_SciLexerOB::randomEditsKeepTheStylesOfAFreshLex()
{
    QFETCH(int, seed);
    QFETCH(bool, isPlain);
    QFETCH(int, reach);
    BasicSource random(static_cast<std::uint64_t>(seed) + 100);
    std::string text = random.Lines(reach == 3000 ? 40 : 600);
    if (isPlain) {
        text.clear();
        for (int i = 0; i < 2000; ++i)
            text += "print i, \"line\"\r\n";
    }
    SciBench bench(text);
    SendSci(bench.sci, SCI_COLOURISE, 0, Everything);
    for (int step = 0; step < 2000; ++step) {
        const auto length = static_cast<std::size_t>(bench.Length());
        const std::size_t room = random.Below(std::min(length, static_cast<std::size_t>(reach)) + 1);
        const auto from = static_cast<std::intptr_t>(length - room);
        const bool isLong = length > text.size() + 500;
        const std::size_t cut = random.Below(3) == 0 ? std::min(room, random.Below(isLong ? 400 : 60)) : 0;
        bench.Replace(from, from + static_cast<std::intptr_t>(cut),
                      cut != 0 && random.Below(2) == 0 ? "" : Pieces[random.Below(std::size(Pieces))]);
        switch (random.Below(4)) {
        case 0:
            bench.Paint();
            break;
        case 1:
            // Styles at least up to another place.
            SendSci(bench.sci, SCI_GOTOPOS, random.Below(static_cast<std::size_t>(bench.Length()) + 1));
            bench.Paint();
            break;
        default:
            break;
        }
        if (step % 10 == 0)
            QVERIFY2(IsAsLexed(bench), qPrintable(QString::number(step)));
    }
    SendSci(bench.sci, SCI_GOTOPOS, static_cast<std::uintptr_t>(bench.Length()));
    bench.Paint();
    QCOMPARE(SendSci(bench.sci, SCI_GETENDSTYLED), bench.Length());
    const Look kept = bench.StyledLook();
    SendSci(bench.sci, SCI_COLOURISE, 0, Everything);
    QVERIFY(kept == bench.StyledLook());
    QVERIFY(kept == LexedLook(bench.Text(), bench.Text().size()));
}

void win_SciLexerOB::randomEditsBeforeOnePaintKeepStyles()
{
    BasicSource random(55);
    for (int round = 0; round < 100; ++round) {
        SciBench bench(random.Lines(300));
        SendSci(bench.sci, SCI_COLOURISE, 0, Everything);
        for (std::size_t edits = 1 + random.Below(6); edits > 0; --edits) {
            const auto length = static_cast<std::size_t>(bench.Length());
            const auto from = static_cast<std::intptr_t>(random.Below(length + 1));
            const std::size_t cut = std::min(length - static_cast<std::size_t>(from), random.Below(80));
            bench.Replace(from, from + static_cast<std::intptr_t>(cut), Pieces[random.Below(std::size(Pieces))]);
        }
        SendSci(bench.sci, SCI_GOTOPOS, static_cast<std::uintptr_t>(bench.Length()));
        bench.Paint();
        QCOMPARE(SendSci(bench.sci, SCI_GETENDSTYLED), bench.Length());
        QVERIFY2(IsAsLexed(bench), qPrintable(QString::number(round)));
    }
}

void win_SciLexerOB::undoAndRedoKeepStyles()
{
    BasicSource random(77);
    SciBench bench(random.Lines(400));
    bench.Paint();
    for (int step = 0; step < 300; ++step) {
        const auto length = static_cast<std::size_t>(bench.Length());
        const auto from = static_cast<std::intptr_t>(random.Below(length + 1));
        bench.Replace(from, std::min<std::intptr_t>(bench.Length(), from + 9), Pieces[random.Below(std::size(Pieces))]);
        for (std::size_t count = random.Below(4); count > 0; --count)
            SendSci(bench.sci, random.Below(2) == 0 ? SCI_UNDO : SCI_REDO);
        bench.Paint();
        QVERIFY2(IsAsLexed(bench), qPrintable(QString::number(step)));
    }
}

void win_SciLexerOB::aNewKeywordListRestyles()
{
    SciBench bench("alpha beta\r\n");
    bench.Paint();
    QCOMPARE(SendSci(bench.sci, SCI_GETSTYLEAT, 6), 7);
    SendSci(bench.sci, SCI_SETKEYWORDS, 0, "BETA( gamma");
    bench.Paint();
    QCOMPARE(SendSci(bench.sci, SCI_GETSTYLEAT, 0), 7);
    QCOMPARE(SendSci(bench.sci, SCI_GETSTYLEAT, 6), 3);
    SendSci(bench.sci, SCI_SETKEYWORDS, 1, "alpha");
    bench.Paint();
    QCOMPARE(SendSci(bench.sci, SCI_GETSTYLEAT, 0), 7);
    SendSci(bench.sci, SCI_SETKEYWORDS, 0, "alpha");
    bench.Paint();
    QCOMPARE(SendSci(bench.sci, SCI_GETSTYLEAT, 0), 3);
    QCOMPARE(SendSci(bench.sci, SCI_GETSTYLEAT, 6), 7);
}

void win_SciLexerOB::foldLevelsDependOnTheProperty()
{
    SciBench bench("for i = 1 to 2\r\n\r\nprint i\r\nnext i\r\nend\r\n");
    bench.Paint();
    const auto level = [&](std::uintptr_t line) { return SendSci(bench.sci, SCI_GETFOLDLEVEL, line); };
    QCOMPARE(level(0), 0x2400);
    QCOMPARE(level(1), 0x1401);
    QCOMPARE(level(2), 0x401);
    QCOMPARE(level(3), 0x401);
    QCOMPARE(level(4), 0x400);
    SendSciTexts(bench.sci, SCI_SETPROPERTY, "fold", "0");
    bench.Insert(0, "do\r\n");
    bench.Paint();
    QCOMPARE(level(4), 0x401);
    SendSciTexts(bench.sci, SCI_SETPROPERTY, "fold", "1");
    bench.Paint();
    QCOMPARE(level(4), 0x402);
}

void win_SciLexerOB::aJumpOverAMillionLinesColoursInTheBackground()
{
    SciBench bench(BasicSource(6).Lines(1000000));
    SendSci(bench.sci, SCI_GOTOPOS, 0);
    bench.Paint();
    SendSci(bench.sci, SCI_GOTOPOS, static_cast<std::uintptr_t>(bench.Length()));
    QVERIFY(bench.LinesLexedByPainting() < 200000);
    QVERIFY(SendSci(bench.sci, SCI_GETENDSTYLED) < bench.Length());
    QTRY_COMPARE_WITH_TIMEOUT(SendSci(bench.sci, SCI_GETENDSTYLED), bench.Length(), 60000);
    QVERIFY(IsAsLexed(bench));
}

void win_SciLexerOB::aKeystrokeInAMillionLinesLexesFewLines()
{
    SciBench bench(BasicSource(5).Lines(1000000));
    SendSci(bench.sci, SCI_COLOURISE, 0, Everything);
    // A line whose changes open and close no block.
    const std::size_t print = bench.Text().find("\nprint", 24000000) + 1;
    SendSci(bench.sci, SCI_GOTOPOS, print);
    bench.Paint();
    for (const char* piece : {"x", "\"", "'", "\r\n", "[", "\r\n"}) {
        bench.Insert(SendSci(bench.sci, SCI_GETCURRENTPOS), piece);
        const std::intptr_t lexed = bench.LinesLexedByPainting();
        QVERIFY2(lexed >= 1 && lexed <= 4, qPrintable(QString::number(lexed)));
        QCOMPARE(SendSci(bench.sci, SCI_GETENDSTYLED), bench.Length());
    }
    for (int i = 0; i < 3; ++i) {
        SendSci(bench.sci, SCI_UNDO);
        QVERIFY(bench.LinesLexedByPainting() <= 6);
        QCOMPARE(SendSci(bench.sci, SCI_GETENDSTYLED), bench.Length());
    }
    QVERIFY(IsAsLexed(bench));
}

void win_SciLexerOB::anOpenedBlockLexesNoFurtherThanIsVisible()
{
    constexpr std::intptr_t fewLines = 700; // the visible text, and some 8 KB more
    std::string text;
    for (int i = 0; i < 100000; ++i)
        text += "print \"line\"\r\n";
    SciBench bench(text);
    SendSci(bench.sci, SCI_COLOURISE, 0, Everything);
    SendSci(bench.sci, SCI_GOTOLINE, 50000);
    bench.Paint();
    const auto typeAndCount = [&](std::string_view typed) {
        bench.Insert(SendSci(bench.sci, SCI_GETCURRENTPOS), typed);
        return bench.LinesLexedByPainting();
    };

    QVERIFY(typeAndCount("for i = 1 to 2\r\n") < fewLines);
    QVERIFY(SendSci(bench.sci, SCI_GETENDSTYLED) < bench.Length());
    QVERIFY(IsAsLexed(bench));
    // The text of the block while the block is open.
    for (const char* typed : {"    print i", "\r\n", "    cls\r\n"}) {
        QVERIFY(typeAndCount(typed) < 6);
        QVERIFY(SendSci(bench.sci, SCI_GETENDSTYLED) < bench.Length());
        QVERIFY(IsAsLexed(bench));
    }
    // Closing it validates the old rest without lexing it.
    QVERIFY(typeAndCount("next i\r\n") < fewLines);
    QCOMPARE(SendSci(bench.sci, SCI_GETENDSTYLED), bench.Length());
    QVERIFY(IsAsLexed(bench));
}

void win_SciLexerOB::blocksOpenedOneBeforeTheOtherKeepStates()
{
    std::string text;
    for (int i = 0; i < 5000; ++i)
        text += "print \"line\"\r\n";
    SciBench bench(text);
    SendSci(bench.sci, SCI_COLOURISE, 0, Everything);
    const auto typeAt = [&](std::uintptr_t line, std::string_view typed) {
        SendSci(bench.sci, SCI_GOTOLINE, line);
        bench.Paint();
        bench.Insert(SendSci(bench.sci, SCI_GETCURRENTPOS), typed);
        bench.Paint();
        return IsAsLexed(bench);
    };
    QVERIFY(typeAt(2000, "for i = 1 to 2\r\n"));
    QVERIFY(typeAt(100, "while a\r\n"));
    QVERIFY(typeAt(50, "cls\r\n"));
    QVERIFY(typeAt(1000, "wend\r\n"));
    QVERIFY(typeAt(3000, "next i\r\n"));
    QVERIFY(typeAt(4000, "cls\r\n"));
    SendSci(bench.sci, SCI_GOTOPOS, static_cast<std::uintptr_t>(bench.Length()));
    bench.Paint();
    QCOMPARE(SendSci(bench.sci, SCI_GETENDSTYLED), bench.Length());
    QVERIFY(IsAsLexed(bench));
}

// The shorter text moves the scroll bar, which requests styles while the deletion is still in progress.
void win_SciLexerOB::aDeletionThatScrollsKeepsStates()
{
    std::string text;
    for (int i = 0; i < 300; ++i)
        text += i == 290 ? "for i = 1 to 2\r\n" : "print \"line\"\r\n";
    SciBench bench(text);
    SendSci(bench.sci, SCI_COLOURISE, 0, Everything);
    SendSci(bench.sci, SCI_GOTOPOS, static_cast<std::uintptr_t>(bench.Length()));
    bench.Paint();
    bench.Replace(SendSci(bench.sci, SCI_POSITIONFROMLINE, 289), SendSci(bench.sci, SCI_POSITIONFROMLINE, 291), "");
    bench.Paint();
    QCOMPARE(SendSci(bench.sci, SCI_GETENDSTYLED), bench.Length());
    QVERIFY(IsAsLexed(bench));
    QCOMPARE(SendSci(bench.sci, SCI_GETLINESTATE, 297), 0);
}

void win_SciLexerOB::strangeTextIsStyled_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("NUL bytes") << QByteArray("print \0\"a\0b\" [\0]\0\r\nrem \0x\r\n", 28);
    QTest::newRow("lone CR and LF") << QByteArray("for\rnext\n\r\n\n\r\rprint\r");
    // Longer lines have no colours.
    QTest::newRow("one long line") << QByteArray("print [x] \"a\" ").repeated(4600);
    QTest::newRow("one line of open brackets") << QByteArray(65000, '[');
    QTest::newRow("all bytes") << [] {
        QByteArray all;
        for (int i = 0; i < 512; ++i)
            all.append(static_cast<char>(i * 7));
        return all;
    }();
}

void win_SciLexerOB::strangeTextIsStyled()
{
    QFETCH(QByteArray, text);
    SciBench bench({text.constData(), static_cast<std::size_t>(text.size())});
    bench.Paint();
    QVERIFY(IsAsLexed(bench));
    // The gap is in the middle of the text, and so of a line.
    bench.Insert(bench.Length() / 2, "(");
    bench.Paint();
    SendSci(bench.sci, SCI_COLOURISE, 0, Everything);
    QCOMPARE(SendSci(bench.sci, SCI_GETENDSTYLED), bench.Length());
    QVERIFY(IsAsLexed(bench));
}

void win_SciLexerOB::bracesAtTheCaretAreHighlighted_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("caret");
    QTest::addColumn<bool>("good");
    QTest::addColumn<bool>("bad");
    QTest::newRow("after the brace") << QByteArray("f(a)") << 4 << true << false;
    QTest::newRow("before the brace") << QByteArray("f(a)") << 1 << true << false;
    QTest::newRow("no brace near") << QByteArray("(  a  )") << 3 << false << false;
    QTest::newRow("lone") << QByteArray("f(a") << 2 << false << true;
    QTest::newRow("partner on the next line") << QByteArray("f(a\r\n)") << 2 << false << true;
    QTest::newRow("label") << QByteArray("[a]") << 0 << true << false;
    QTest::newRow("lone in a comment") << QByteArray("' :)") << 4 << false << false;
    QTest::newRow("pair in a string") << QByteArray("\"(a)\"") << 4 << true << false;
    QTest::newRow("empty text") << QByteArray() << 0 << false << false;
}

void win_SciLexerOB::bracesAtTheCaretAreHighlighted()
{
    QFETCH(QByteArray, text);
    QFETCH(int, caret);
    QFETCH(bool, good);
    QFETCH(bool, bad);
    SciBench bench({text.constData(), static_cast<std::size_t>(text.size())});
    SendSci(bench.sci, SCI_STYLESETBACK, 34, 0xFF0000);
    SendSci(bench.sci, SCI_STYLESETBACK, 35, 0x0000FF);
    SendSci(bench.sci, SCI_GOTOPOS, static_cast<std::uintptr_t>(caret));
    const QImage first = bench.Paint();
    QCOMPARE(HasColor(first, BraceColor), good);
    QCOMPARE(HasColor(first, BadBraceColor), bad);

    // Away from every brace the highlight disappears.
    bench.Insert(bench.Length(), "\r\nprint");
    const QImage second = bench.Paint();
    QVERIFY(!HasColor(second, BraceColor));
    QVERIFY(!HasColor(second, BadBraceColor));
}

void win_SciLexerOB::droppedFilesGoToTheSurroundingWindow()
{
    SciBench bench("text");
    auto* viewport = qobject_cast<QAbstractScrollArea*>(bench.control)->viewport();
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(u"/tmp/a.bas"_s)});
    files.setText(u"/tmp/a.bas"_s);
    QMimeData words;
    words.setText(u"words"_s);

    const auto enter = [&](const QMimeData& mime) {
        QDragEnterEvent event(QPoint(20, 20), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &event);
        return event.isAccepted();
    };
    QVERIFY(enter(files));
    QCOMPARE(bench.frame.entered, 1);
    QVERIFY(enter(words));
    QCOMPARE(bench.frame.entered, 1);

    QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &drop);
    QCOMPARE(bench.Text(), std::string("text"));
}

void win_SciLexerOB::returnAddsCrLf()
{
    SciBench bench;
    QTest::keyClicks(bench.control, u"a"_s);
    QTest::keyClick(bench.control, Qt::Key_Return);
    QTest::keyClicks(bench.control, u"b"_s);
    QCOMPARE(bench.Text(), std::string("a\r\nb"));
}

QTEST_MAIN(win_SciLexerOB)
#include "win_SciLexerOB.moc"
