// SPDX-License-Identifier: GPL-3.0-or-later
// Find and replace over a real code window, with the boxes scripted.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/StoppedReplace.h"
#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "editor/modFind.h"
#include "shell/state/Module1.h"
#include "shell/state/modNames.h"

#include <QMdiSubWindow>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// "text" with the selection in brackets and the caret as a bar: "a[bc|]d", "|abc".
QByteArray State(const cDocument* document)
{
    QByteArray text = TestBench::Text(document);
    const auto ask = [&](unsigned message) { return static_cast<qsizetype>(SendSci(document->sci, message)); };
    const qsizetype start = ask(SCI_GETSELECTIONSTART);
    const qsizetype end = ask(SCI_GETSELECTIONEND);
    const qsizetype caret = ask(SCI_GETCURRENTPOS);
    if (start == end)
        return text.insert(caret, '|');
    text.insert(end, caret == end ? "|]" : "]");
    return text.insert(start, caret == start ? "[|" : "[");
}

void Select(const cDocument* document, qsizetype anchor, qsizetype caret)
{
    SendSci(document->sci, SCI_SETSEL, static_cast<std::uintptr_t>(anchor), static_cast<std::intptr_t>(caret));
}

} // namespace

class win_modFind : public QObject {
    Q_OBJECT

private:
    // The program with one code window that contains the text, with the caret at its start.
    cDocument* Open(const char* text) { return Open(QByteArray(text)); }

    cDocument* Open(const QByteArray& text)
    {
        bench.reset();
        bench = std::make_unique<TestBench>();
        bench->Start();
        QuitQuery = false;
        bench->Choose(u"mnuFileNew"_s);
        TestBench::Type(bench->Active(), text);
        Select(bench->Active(), 0, 0);
        SendSci(bench->Active()->sci, SCI_EMPTYUNDOBUFFER);
        SendSci(bench->Active()->sci, SCI_SETSAVEPOINT);
        return bench->Active();
    }

    void ExpectNoMore(const char* text) const
    {
        bench->dialogs.ExpectMessage(u"No more instances of <%1>  found."_s.arg(QString::fromUtf8(text)), BoxAnswer::Ok,
                                     BoxIcon::None);
    }

    void ExpectNotFoundAgain(const char* text) const
    {
        bench->dialogs.ExpectMessage(u"<%1>  not found."_s.arg(QString::fromUtf8(text)), BoxAnswer::Ok, BoxIcon::None);
    }

    void ExpectReplace(BoxAnswer answer) const
    {
        bench->dialogs.ExpectMessage(u"Replace?"_s, answer, BoxIcon::Question, BoxButtons::YesNoCancel);
    }

    void ExpectConfirm(BoxAnswer answer) const
    {
        bench->dialogs.ExpectMessage(u"Confirm each replacement?"_s, answer, BoxIcon::Question, BoxButtons::YesNo,
                                     u"Confirm?"_s);
    }

    void ExpectThis(BoxAnswer answer) const
    {
        bench->dialogs.ExpectMessage(u"Replace this selection?"_s, answer, BoxIcon::Question, BoxButtons::YesNoCancel,
                                     u"Replace?"_s);
    }

    void ExpectCount(int count) const
    {
        bench->dialogs.ExpectMessage(u"Number of replacements made: %1"_s.arg(count), BoxAnswer::Ok,
                                     BoxIcon::Information, BoxButtons::Ok, u"Finished"_s);
    }

    // As the buttons do: the active code window, or the box that there is none.
    template <class Work>
    static void OnDocument(Work work)
    {
        if (const cDocument* document = NeedDocument())
            work(*document);
    }
    static QString T(const char* text) { return QString::fromUtf8(text); }
    static void Find(const char* text)
    {
        OnDocument([&](auto& document) { FindText(document, T(text)); });
    }
    static void Again(const char* text)
    {
        OnDocument([&](auto& document) { FindAgain(document, T(text)); });
    }
    static void Replace(const char* find, const char* by)
    {
        OnDocument([&](auto& document) { ReplaceText(document, T(find), T(by)); });
    }
    static void All(const char* find, const char* by, const MakeReplaceWatch& makeWatch = {})
    {
        OnDocument([&](auto& document) { ReplaceAllText(document, T(find), T(by), makeWatch); });
    }

    std::unique_ptr<TestBench> bench;

private Q_SLOTS:
    void cleanup() { bench.reset(); }

    void findSelectsTheMatchWithTheCaretAfterIt()
    {
        const cDocument* document = Open("one two\r\none two\r\n");
        Find("TWO");
        QCOMPARE(State(document), QByteArray("one [two|]\r\none two\r\n"));
        QCOMPARE(Finding().FoundPos, 4);
        QCOMPARE(Finding().LastFind, u"TWO"_s);
        Find("two");
        QCOMPARE(State(document), QByteArray("one two\r\none [two|]\r\n"));
        QCOMPARE(Finding().FoundPos, 13);
    }

    void findFromTheCaretPassesTheCharacterAtIt()
    {
        const cDocument* document = Open("foo foo");
        Find("foo");
        QCOMPARE(State(document), QByteArray("foo [foo|]"));
    }

    void findFromTheStartStaysOnTheFirstMatch()
    {
        const cDocument* document = Open("foo foo");
        Finding().FindFromStart = true;
        for (int turn = 0; turn < 2; ++turn) {
            Find("foo");
            QCOMPARE(State(document), QByteArray("[foo|] foo"));
        }
        Again("foo");
        QCOMPARE(State(document), QByteArray("foo [|foo]"));
    }

    void failedFindIsReportedAndMovesTheCaret()
    {
        const cDocument* document = Open("one two three");
        Select(document, 4, 7);
        ExpectNoMore("four");
        Find("four");
        QCOMPARE(State(document), QByteArray("one| two three"));
        QCOMPARE(Finding().FoundPos, -1);
        QCOMPARE(Finding().LastFind, u"four"_s);
    }

    void failedFindLeavesNoCaretInsideACharacter()
    {
        const cDocument* document = Open("a\xc3\xa4\xc3\xa4 b");
        ExpectNoMore("xyz");
        Find("xyz");
        QCOMPARE(State(document), QByteArray("a\xc3\xa4|\xc3\xa4 b"));
    }

    void textLongerThanTheDocumentIsNotFound()
    {
        const cDocument* document = Open("ab");
        ExpectNoMore("abcdefgh");
        Find("abcdefgh");
        QCOMPARE(State(document), QByteArray("ab|"));
        ExpectNotFoundAgain("abcdefgh");
        Again("abcdefgh");
        QCOMPARE(State(document), QByteArray("[a|]b"));
        ExpectConfirm(BoxAnswer::No);
        ExpectNoMore("abcdefgh");
        ExpectCount(0);
        All("abcdefgh", "x");
        QCOMPARE(State(document), QByteArray("|ab"));
    }

    void emptyDocumentHoldsNothing()
    {
        const cDocument* document = Open("");
        ExpectNoMore("a");
        Find("a");
        ExpectNotFoundAgain("a");
        Again("a");
        bench->dialogs.ExpectMessage(u"Text not found."_s, BoxAnswer::Ok, BoxIcon::None);
        Replace("a", "b");
        ExpectConfirm(BoxAnswer::No);
        ExpectNoMore("a");
        ExpectCount(0);
        All("a", "b");
        QCOMPARE(State(document), QByteArray("|"));
    }

    void caseAndWholeWordCountOnRequest()
    {
        const cDocument* document = Open("# Total total$ totals total\r\n");
        Finding().FindFlags = FindMatchCase;
        Find("total");
        QCOMPARE(Finding().FoundPos, 8);
        Select(document, 0, 0);
        Finding().FindFlags = FindWholeWord;
        Find("total");
        QCOMPARE(Finding().FoundPos, 2);
        Find("total");
        QCOMPARE(Finding().FoundPos, 22);
    }

    void charactersOfEveryScriptMatchTheirCapitals_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("find");
        QTest::addColumn<int>("flags");
        QTest::addColumn<QByteArray>("found");
        QTest::newRow("umlaut") << QByteArray("# GR\xc3\x96SSE!") << QByteArray("gr\xc3\xb6sse") << 0
                                << QByteArray("# [GR\xc3\x96SSE|]!");
        QTest::newRow("umlaut, case counts") << QByteArray("# GR\xc3\x96 gr\xc3\xb6!") << QByteArray("gr\xc3\xb6")
                                             << int(FindMatchCase) << QByteArray("# GR\xc3\x96 [gr\xc3\xb6|]!");
        QTest::newRow("characters after others")
            << QByteArray("\xc3\xa4\xc3\xb6\xc3\xbc caf\xc3\x89s") << QByteArray("CAF\xc3\xa9") << 0
            << QByteArray("\xc3\xa4\xc3\xb6\xc3\xbc [caf\xc3\x89|]s");
        QTest::newRow("capital is longer") << QByteArray("# stra\xe1\xba\x9e"
                                                         "e")
                                           << QByteArray("stra\xc3\x9f"
                                                         "e")
                                           << 0
                                           << QByteArray("# [stra\xe1\xba\x9e"
                                                         "e|]");
        QTest::newRow("capital is shorter") << QByteArray("# stra\xc3\x9f"
                                                          "e")
                                            << QByteArray("STRA\xe1\xba\x9e"
                                                          "E")
                                            << 0
                                            << QByteArray("# [stra\xc3\x9f"
                                                          "e|]");
        QTest::newRow("whole word") << QByteArray("# \xc3\x84hren \xc3\xa4hr \xc3\x84hr") << QByteArray("\xc3\xa4hr")
                                    << int(FindWholeWord) << QByteArray("# \xc3\x84hren [\xc3\xa4hr|] \xc3\x84hr");
        QTest::newRow("Greek") << QByteArray("# \xce\xa3\xce\xb1") << QByteArray("\xcf\x83\xce\x91") << 0
                               << QByteArray("# [\xce\xa3\xce\xb1|]");
        QTest::newRow("four bytes") << QByteArray("# \xf0\x90\x90\x80x") << QByteArray("\xf0\x90\x90\xa8") << 0
                                    << QByteArray("# [\xf0\x90\x90\x80|]x");
    }

    void charactersOfEveryScriptMatchTheirCapitals()
    {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, find);
        QFETCH(int, flags);
        QFETCH(QByteArray, found);
        const cDocument* document = Open(text);
        Finding().FindFlags = flags;
        Find(find.constData());
        QCOMPARE(State(document), found);
    }

    void findStepsOverWholeCharacters()
    {
        const cDocument* document = Open("\xc3\xa4\xc3\xa4\xc3\xa4");
        Find("\xc3\xa4");
        QCOMPARE(State(document), QByteArray("\xc3\xa4[\xc3\xa4|]\xc3\xa4"));
        Select(document, 1, 1);
        Again("\xc3\xa4");
        QCOMPARE(State(document), QByteArray("\xc3\xa4[|\xc3\xa4]\xc3\xa4"));
    }

    void findAgainLeavesTheCaretBeforeTheMatchAndMovesOn()
    {
        const cDocument* document = Open("foofoo foo");
        Finding().FindFromStart = true;
        Again("foo");
        QCOMPARE(State(document), QByteArray("foo[|foo] foo"));
        Again("foo");
        QCOMPARE(State(document), QByteArray("foofoo [|foo]"));
        QCOMPARE(Finding().FoundPos, 7);
        ExpectNotFoundAgain("foo");
        Again("foo");
        QCOMPARE(State(document), QByteArray("[f|]oofoo foo"));
        QCOMPARE(Finding().FoundPos, -1);
    }

    void missedFindAgainSelectsAWholeFirstCharacter()
    {
        const cDocument* document = Open("\xc3\xa4"
                                         "bc");
        ExpectNotFoundAgain("x");
        Again("x");
        QCOMPARE(State(document), QByteArray("[\xc3\xa4|]bc"));
    }

    void aDistantMatchIsShownWithItsSurroundings()
    {
        const cDocument* document =
            Open(QByteArray("line\r\n").repeated(500) + "needle\r\n" + QByteArray("line\r\n").repeated(500));
        Find("needle");
        const auto top = SendSci(document->sci, SCI_GETFIRSTVISIBLELINE);
        const auto lines = SendSci(document->sci, SCI_LINESONSCREEN);
        QVERIFY(lines > 10);
        QCOMPARE(500 - top, lines / 3);
    }

    void replaceChangesTheSelectionSilentlyAndThenAsks()
    {
        const cDocument* document = Open("foo foo foo foo foo foo");
        Select(document, 0, 3);
        ExpectReplace(BoxAnswer::Yes);
        ExpectReplace(BoxAnswer::No);
        ExpectReplace(BoxAnswer::Yes);
        ExpectReplace(BoxAnswer::Cancel);
        Replace("foo", "quux");
        QCOMPARE(State(document), QByteArray("quux quux foo quux [|foo] foo"));
    }

    void replaceEndsWithTheFirstCharacterSelected()
    {
        const cDocument* document = Open("foo bar foo");
        ExpectReplace(BoxAnswer::Yes);
        ExpectReplace(BoxAnswer::Yes);
        bench->dialogs.ExpectMessage(u"Text not found."_s, BoxAnswer::Ok, BoxIcon::None);
        Replace("foo", "x");
        QCOMPARE(State(document), QByteArray("[x|] bar x"));
        QCOMPARE(Finding().FoundPos, -1);
    }

    void everyReplacementIsAnUndoStepOfItsOwn()
    {
        const cDocument* document = Open("foo bar foo");
        ExpectReplace(BoxAnswer::Yes);
        ExpectReplace(BoxAnswer::Yes);
        bench->dialogs.ExpectMessage(u"Text not found."_s, BoxAnswer::Ok, BoxIcon::None);
        Replace("foo", "x");
        SendSci(document->sci, SCI_UNDO);
        QCOMPARE(TestBench::Text(document), QByteArray("x bar foo"));
    }

    void replaceAllReachesTheFirstCharacterAndLeavesNoSpace()
    {
        const cDocument* document = Open("foo bar foo\r\nfoo");
        ExpectConfirm(BoxAnswer::No);
        ExpectNoMore("foo");
        ExpectCount(3);
        All("foo", "quux");
        QCOMPARE(State(document), QByteArray("|quux bar quux\r\nquux"));
        QCOMPARE(Finding().FoundPos, -1);
        QCOMPARE(Finding().LastFind, u"foo"_s);
    }

    void replaceAllIsOneUndoStep()
    {
        const cDocument* document = Open("foo bar foo\r\nfoo");
        ExpectConfirm(BoxAnswer::No);
        ExpectNoMore("foo");
        ExpectCount(3);
        All("foo", "quux");
        SendSci(document->sci, SCI_UNDO);
        QCOMPARE(TestBench::Text(document), QByteArray("foo bar foo\r\nfoo"));
        QCOMPARE(SendSci(document->sci, SCI_GETMODIFY), 0);
        QCOMPARE(SendSci(document->sci, SCI_CANUNDO), 0);
    }

    void replaceAllThatFindsNothingLeavesTheTextUnchanged()
    {
        const cDocument* document = Open("foo");
        ExpectConfirm(BoxAnswer::No);
        ExpectNoMore("bar");
        ExpectCount(0);
        All("bar", "x");
        QCOMPARE(State(document), QByteArray("|foo"));
        QCOMPARE(SendSci(document->sci, SCI_GETMODIFY), 0);
        QCOMPARE(SendSci(document->sci, SCI_CANUNDO), 0);
    }

    void replaceAllBeginsAfterTheCaret()
    {
        const cDocument* document = Open("foo foo foo");
        Select(document, 3, 3);
        ExpectConfirm(BoxAnswer::No);
        ExpectNoMore("foo");
        ExpectCount(2);
        All("foo", "x");
        QCOMPARE(State(document), QByteArray("|foo x x"));
    }

    // The next search begins two characters after the start of the last match.
    void replaceAllSkipsAMatchRightAfterAShortOne()
    {
        const cDocument* document = Open("aaaa");
        ExpectConfirm(BoxAnswer::No);
        ExpectNoMore("a");
        ExpectCount(2);
        All("a", "b");
        QCOMPARE(State(document), QByteArray("|baba"));
    }

    void replaceAllFromTheStartMeetsEveryMatch()
    {
        const cDocument* document = Open("aaaa xaya\r\na");
        Select(document, 6, 6);
        Finding().FindFromStart = true;
        ExpectConfirm(BoxAnswer::No);
        ExpectNoMore("a");
        ExpectCount(7);
        All("a", "b");
        QCOMPARE(State(document), QByteArray("|bbbb xbyb\r\nb"));
    }

    void replaceAllFromTheStartFindsMatchesMadeByReplacements()
    {
        const cDocument* document = Open("x aaaaabccccc abc");
        Finding().FindFromStart = true;
        ExpectConfirm(BoxAnswer::No);
        ExpectNoMore("abc");
        ExpectCount(6);
        All("abc", "b");
        QCOMPARE(State(document), QByteArray("|x b b"));
    }

    void replaceAllTreatsTheSpaceAsText()
    {
        const cDocument* document = Open("a b");
        Finding().FindFromStart = true;
        ExpectConfirm(BoxAnswer::No);
        ExpectNoMore(" ");
        ExpectCount(2);
        All(" ", "\xc3\xa4-");
        QCOMPARE(State(document), QByteArray("|-a\xc3\xa4-b"));
    }

    void confirmedReplaceAllFollowsTheAnswers()
    {
        const cDocument* document = Open("foo foo foo foo");
        ExpectConfirm(BoxAnswer::Yes);
        ExpectThis(BoxAnswer::Yes);
        ExpectThis(BoxAnswer::No);
        ExpectThis(BoxAnswer::Yes);
        ExpectThis(BoxAnswer::No);
        ExpectNoMore("foo");
        ExpectCount(2);
        All("foo", "x");
        QCOMPARE(State(document), QByteArray("|x foo x foo"));
        SendSci(document->sci, SCI_UNDO);
        QCOMPARE(TestBench::Text(document), QByteArray("foo foo foo foo"));
    }

    void confirmedReplaceAllEndsOnCancelWithoutACount()
    {
        const cDocument* document = Open("foo foo foo");
        ExpectConfirm(BoxAnswer::Yes);
        ExpectThis(BoxAnswer::Yes);
        ExpectThis(BoxAnswer::Cancel);
        All("foo", "x");
        QCOMPARE(State(document), QByteArray("|x foo foo"));
        QCOMPARE(Finding().FoundPos, 3);
    }

    void confirmedReplaceAllFromTheStartMeetsARejectedMatchAgain()
    {
        const cDocument* document = Open("foo foo");
        Finding().FindFromStart = true;
        ExpectConfirm(BoxAnswer::Yes);
        for (int turn = 0; turn < 3; ++turn)
            ExpectThis(BoxAnswer::No);
        ExpectThis(BoxAnswer::Cancel);
        All("foo", "x");
        QCOMPARE(State(document), QByteArray("|foo foo"));
        QCOMPARE(SendSci(document->sci, SCI_GETMODIFY), 0);
    }

    void confirmedReplaceAllWhoseReplacementContainsTheTextEndsOnCancel()
    {
        const cDocument* document = Open("foo");
        Finding().FindFromStart = true;
        ExpectConfirm(BoxAnswer::Yes);
        ExpectThis(BoxAnswer::Yes);
        ExpectThis(BoxAnswer::Yes);
        ExpectThis(BoxAnswer::Cancel);
        All("foo", "a foo");
        QCOMPARE(State(document), QByteArray("|a a foo"));
    }

    void replaceAllWhoseReplacementContainsTheTextIsStoppedByTheWatch_data()
    {
        QTest::addColumn<bool>("fromStart");
        QTest::addColumn<QByteArray>("after");
        QTest::newRow("from the start") << true << QByteArray("|(((o)))");
        QTest::newRow("from the caret") << false << QByteArray("|(o)");
    }

    void replaceAllWhoseReplacementContainsTheTextIsStoppedByTheWatch()
    {
        QFETCH(bool, fromStart);
        QFETCH(QByteArray, after);
        const cDocument* document = Open("o");
        Finding().FindFromStart = fromStart;
        ExpectConfirm(BoxAnswer::No);
        if (!fromStart) {
            ExpectNoMore("o");
            ExpectCount(1);
        }
        All("o", "(o)", StoppedAfter(3));
        QCOMPARE(State(document), after);
        SendSci(document->sci, SCI_UNDO);
        QCOMPARE(TestBench::Text(document), QByteArray("o"));
    }

    void replaceAllKeepsBookmarksOnTheirLines()
    {
        const cDocument* document = Open("foo\r\nbar foo\r\nfoo");
        SendSci(document->sci, SCI_MARKERADD, 1, std::intptr_t{1});
        ExpectConfirm(BoxAnswer::No);
        ExpectNoMore("foo");
        ExpectCount(3);
        All("foo", "x");
        QCOMPARE(SendSci(document->sci, SCI_MARKERNEXT, 0, std::intptr_t{2}), 1);
        QCOMPARE(SendSci(document->sci, SCI_MARKERNEXT, 2, std::intptr_t{2}), -1);
    }

    void selectionIsPartOfReplaceAll()
    {
        const cDocument* document = Open("ab \xc3\xa4"
                                         "foo foo");
        Select(document, 5, 8);
        GoBeforeSelection(*document);
        QCOMPARE(State(document), QByteArray("ab |\xc3\xa4"
                                             "foo foo"));
        Select(document, 2, 5);
        GoBeforeSelection(*document);
        QCOMPARE(State(document), QByteArray("ab[ \xc3\xa4|]foo foo"));
        Select(document, 5, 5);
        GoBeforeSelection(*document);
        QCOMPARE(State(document), QByteArray("ab \xc3\xa4|foo foo"));
    }

    void selectionIsTheNextTextToFind()
    {
        const cDocument* document = Open("one \xc3\xa4\r\ntwo");
        Finding().LastFind = u"before"_s;
        QCOMPARE(TakeFindText(ActiveDocument()), u"before"_s);
        Select(document, 4, 8);
        QCOMPARE(TakeFindText(ActiveDocument()), QString::fromUtf8("\xc3\xa4\r\n"));
        QCOMPARE(Finding().LastFind, QString::fromUtf8("\xc3\xa4\r\n"));
    }

    void textWithALineEndIsFound()
    {
        const cDocument* document = Open("x\r\na\r\nb\r\n");
        Find("a\r\nb");
        QCOMPARE(State(document), QByteArray("x\r\n[a\r\nb|]\r\n"));
    }

    void withoutACodeWindowAMessageIsShown()
    {
        bench = std::make_unique<TestBench>();
        bench->Start();
        Finding().LastFind = u"foo"_s;
        for (int turn = 0; turn < 5; ++turn)
            bench->dialogs.ExpectMessage(NoCodeWindowText);
        Find("foo");
        Again("foo");
        Replace("foo", "x");
        All("foo", "x");
        mnuEditFindAgain_Click();
        QCOMPARE(TakeFindText(ActiveDocument()), u"foo"_s);
    }

    void findAgainDoesNothingBeforeAFirstSearch()
    {
        const cDocument* document = Open("foo foo");
        mnuEditFindAgain_Click();
        QCOMPARE(State(document), QByteArray("|foo foo"));
        Finding().LastFind = u"foo"_s;
        mnuEditFindAgain_Click();
        QCOMPARE(State(document), QByteArray("foo [|foo]"));
    }
};

OB_BENCH_TEST(win_modFind)
#include "win_modFind.moc"
