// SPDX-License-Identifier: GPL-3.0-or-later
// The Array Maker, by its controls.
#include "codetools/MakerBench.h"

#include "codetools/frmArray.h"
#include "codetools/modArray.h"
#include "shell/state/frmLoss.h"

#include <QPointer>
#include <QRadioButton>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// The program with an open maker.
struct ArrayBench {
    ArrayBench()
    {
        bench.Start();
        QApplication::clipboard()->setText(u"before"_s);
        bench.Choose(u"mnuToolArray"_s);
        maker = OpenWindow<frmArray>();
    }
    ~ArrayBench() { delete maker; }
    ArrayBench(const ArrayBench&) = delete;
    ArrayBench& operator=(const ArrayBench&) = delete;

    void Add(const QString& item)
    {
        Fill(*maker, "Text2", item);
        Press(*maker, "cmdAdd");
    }

    void ExpectLoss(const QString& lost, BoxAnswer answer)
    {
        bench.dialogs.ExpectMessage(LossQuestion(lost), answer, BoxIcon::Question, BoxButtons::OkCancel,
                                    u"Array Maker"_s);
    }

    void ExpectCopied() { bench.dialogs.ExpectMessage(ArrayCopiedText, BoxAnswer::Ok, BoxIcon::None); }

    TestBench bench;
    QPointer<frmArray> maker;
};

} // namespace

class win_frmArray : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWindowStartsWithItsDefaults();
    void itemsBecomeCodeOnTheClipboard();
    void enterAddsTheItem();
    void thePreviewIsWhatIsCopied();
    void numbersAreWithoutQuotes();
    void withoutItemsTheQuestionDecides();
    void anEmptyItemIsAnItemAndABarSplitsOne();
    void aBusyClipboardKeepsTheWindowOpen();
    void cancelAndEscapeCopyNothing();
    void theWindowStartsEmptyEachTime();
    void tabFollowsTheReadingOrder();
    void pastedLinesAreItems();
    void theCodeIsWhatTheFieldsShow();
    void enterInTheNameGoesToTheItem();
    void removeLastTakesTheLastItemOut();
    void anItemThatIsTypedAndNotAddedCounts();
    void escapeAsksBeforeItemsAreLost();
};

void win_frmArray::theWindowStartsWithItsDefaults()
{
    const ArrayBench b;
    QVERIFY(!b.maker->isModal());
    QVERIFY(Find<QRadioButton>(*b.maker, "optString")->isChecked());
}

void win_frmArray::itemsBecomeCodeOnTheClipboard()
{
    ArrayBench b;
    Fill(*b.maker, "Text1", u"days"_s);
    b.Add(u"Mon"_s);
    QCOMPARE(Find<QLineEdit>(*b.maker, "Text2")->text(), QString());
    QVERIFY(Find<QLineEdit>(*b.maker, "Text2")->hasFocus());
    b.Add(u"Tue"_s);
    b.ExpectCopied();
    Press(*b.maker, "OKButton");
    QVERIFY(b.bench.dialogs.Finished());
    QCOMPARE(OnClipboard(), MakerText("array/days.bas"));
    QTRY_VERIFY(b.maker.isNull());
}

void win_frmArray::enterAddsTheItem()
{
    ArrayBench b;
    Fill(*b.maker, "Text1", u"days"_s);
    for (const char* day : {"Mon", "Tue"}) {
        Fill(*b.maker, "Text2", QString::fromLatin1(day));
        QTest::keyClick(Find<QLineEdit>(*b.maker, "Text2"), Qt::Key_Return);
    }
    QCOMPARE(Previewed(*b.maker), WithLineFeeds(MakerText("array/days.bas")));
}

void win_frmArray::thePreviewIsWhatIsCopied()
{
    ArrayBench b;
    QCOMPARE(Previewed(*b.maker), WithLineFeeds(MakerText("array/no-items.bas")));
    Fill(*b.maker, "Text1", u"days$(x"_s);
    b.Add(u"Mon"_s);
    b.Add(u"Tue"_s);
    QCOMPARE(Previewed(*b.maker), WithLineFeeds(MakerText("array/string-both.bas")));
    Press(*b.maker, "optNumeric");
    QVERIFY(Previewed(*b.maker).contains(u"    days$(2) = Tue\n"_s));
    Press(*b.maker, "optString");
    QCOMPARE(Previewed(*b.maker), WithLineFeeds(MakerText("array/string-both.bas")));
}

void win_frmArray::numbersAreWithoutQuotes()
{
    ArrayBench b;
    Press(*b.maker, "optNumeric");
    Fill(*b.maker, "Text1", u"total"_s);
    for (const char* item : {"1", "-2.5", "x + 1"})
        b.Add(QString::fromLatin1(item));
    b.ExpectCopied();
    Press(*b.maker, "OKButton");
    QCOMPARE(OnClipboard(), MakerText("array/numeric.bas"));
}

void win_frmArray::withoutItemsTheQuestionDecides()
{
    ArrayBench b;
    b.bench.dialogs.ExpectMessage(NoArrayItemsText, BoxAnswer::No, BoxIcon::Critical, BoxButtons::YesNo);
    Press(*b.maker, "OKButton");
    QVERIFY(b.bench.dialogs.Finished());
    QVERIFY(b.maker->isVisible());
    QCOMPARE(OnClipboard(), u"before"_s);
    QCOMPARE(Find<QLineEdit>(*b.maker, "Text1")->text(), u"Array$"_s);
    b.bench.dialogs.ExpectMessage(NoArrayItemsText, BoxAnswer::Yes, BoxIcon::Critical, BoxButtons::YesNo);
    b.ExpectCopied();
    Press(*b.maker, "OKButton");
    QVERIFY(b.bench.dialogs.Finished());
    QCOMPARE(OnClipboard(), MakerText("array/no-items.bas"));
    QTRY_VERIFY(b.maker.isNull());
}

void win_frmArray::anEmptyItemIsAnItemAndABarSplitsOne()
{
    ArrayBench b;
    Fill(*b.maker, "Text1", u"a$"_s);
    for (const char* item : {"left|right", "", "|"})
        b.Add(QString::fromLatin1(item));
    b.ExpectCopied();
    Press(*b.maker, "OKButton");
    QCOMPARE(OnClipboard(), MakerText("array/parts.bas"));
}

void win_frmArray::aBusyClipboardKeepsTheWindowOpen()
{
    ArrayBench b;
    Fill(*b.maker, "Text1", u"days"_s);
    b.Add(u"Mon"_s);
    b.Add(u"Tue"_s);
    {
        const TakenClipboard taken;
        b.bench.dialogs.ExpectMessage(ClipboardTakenText, BoxAnswer::Ok, BoxIcon::Exclamation);
        Press(*b.maker, "OKButton");
    }
    QVERIFY(b.bench.dialogs.Finished());
    QVERIFY(b.maker->isVisible());
    QCOMPARE(OnClipboard(), u"before"_s);
    b.ExpectCopied();
    Press(*b.maker, "OKButton");
    QCOMPARE(OnClipboard(), MakerText("array/days.bas"));
}

void win_frmArray::cancelAndEscapeCopyNothing()
{
    for (const bool byKey : {false, true}) {
        ArrayBench b;
        b.Add(u"Mon"_s);
        if (byKey) {
            b.ExpectLoss(u"1 item"_s, BoxAnswer::Ok);
            QTest::keyClick(b.maker, Qt::Key_Escape);
        } else
            Press(*b.maker, "CancelButton");
        QTRY_VERIFY(b.maker.isNull());
        QCOMPARE(OnClipboard(), u"before"_s);
    }
}

void win_frmArray::theWindowStartsEmptyEachTime()
{
    ArrayBench b;
    b.Add(u"Mon"_s);
    b.bench.Choose(u"mnuToolArray"_s);
    QCOMPARE(OpenWindow<frmArray>(), b.maker.data());
    QVERIFY(Previewed(*b.maker).contains(u"Mon"_s));
    Press(*b.maker, "CancelButton");
    QTRY_VERIFY(b.maker.isNull());
    b.bench.Choose(u"mnuToolArray"_s);
    b.maker = OpenWindow<frmArray>();
    QCOMPARE(Previewed(*b.maker), WithLineFeeds(MakerText("array/no-items.bas")));
}

void win_frmArray::tabFollowsTheReadingOrder()
{
    const ArrayBench b;
    QVERIFY(QTest::qWaitForWindowActive(b.maker));
    QCOMPARE(TabOrder(*b.maker, "Text1").join(u' '),
             u"Text1 Text2 cmdAdd optString codePreview OKButton CancelButton"_s);
}

void win_frmArray::pastedLinesAreItems()
{
    ArrayBench b;
    Fill(*b.maker, "Text1", u"days"_s);
    Paste(*b.maker, "Text2", u"Mon\r\nTue\n"_s);
    QCOMPARE(Find<QLineEdit>(*b.maker, "Text2")->text(), QString());
    QCOMPARE(Previewed(*b.maker), WithLineFeeds(MakerText("array/days.bas")));
    Paste(*b.maker, "Text2", u"We"_s);
    Paste(*b.maker, "Text2", u"d\n\nFri"_s);
    QVERIFY(Previewed(*b.maker).contains(u"DIM days$(5)\n"_s));
    QVERIFY(Previewed(*b.maker).contains(u"days$(3) = \"Wed\"\n    days$(4) = \"\"\n    days$(5) = \"Fri\"\n"_s));
}

void win_frmArray::theCodeIsWhatTheFieldsShow()
{
    ArrayBench b;
    Paste(*b.maker, "Text1", u"two\nwords\n"_s);
    QCOMPARE(Find<QLineEdit>(*b.maker, "Text1")->text(), u"two words"_s);
    QVERIFY(Previewed(*b.maker).startsWith(u"    DIM two words$(-1)\n"_s));
}

void win_frmArray::enterInTheNameGoesToTheItem()
{
    const ArrayBench b;
    QVERIFY(QTest::qWaitForWindowActive(b.maker));
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        Find<QLineEdit>(*b.maker, "Text1")->setFocus();
        QTest::keyClick(Find<QLineEdit>(*b.maker, "Text1"), static_cast<Qt::Key>(key));
        QVERIFY(Find<QLineEdit>(*b.maker, "Text2")->hasFocus());
        QCOMPARE(Previewed(*b.maker), WithLineFeeds(MakerText("array/no-items.bas")));
    }
}

void win_frmArray::removeLastTakesTheLastItemOut()
{
    ArrayBench b;
    const auto* remove = Find<QAbstractButton>(*b.maker, "cmdRemove");
    QVERIFY(!remove->isEnabled());
    Fill(*b.maker, "Text1", u"days"_s);
    for (const char* item : {"Mon", "Tue", ""})
        b.Add(QString::fromLatin1(item));
    Press(*b.maker, "cmdRemove");
    QCOMPARE(Previewed(*b.maker), WithLineFeeds(MakerText("array/days.bas")));
    Fill(*b.maker, "Text2", u"Wed"_s);
    Press(*b.maker, "cmdRemove");
    QCOMPARE(Previewed(*b.maker), WithLineFeeds(MakerText("array/days.bas")));
    Press(*b.maker, "cmdRemove");
    Press(*b.maker, "cmdRemove");
    QVERIFY(Previewed(*b.maker).startsWith(u"    DIM days$(-1)\n"_s));
    QVERIFY(!remove->isEnabled());
}

void win_frmArray::anItemThatIsTypedAndNotAddedCounts()
{
    ArrayBench b;
    Fill(*b.maker, "Text1", u"days"_s);
    b.Add(u"Mon"_s);
    Fill(*b.maker, "Text2", u"Tue"_s);
    QCOMPARE(Previewed(*b.maker), WithLineFeeds(MakerText("array/days.bas")));
    b.ExpectCopied();
    Press(*b.maker, "OKButton");
    QVERIFY(b.bench.dialogs.Finished());
    QCOMPARE(OnClipboard(), MakerText("array/days.bas"));
}

void win_frmArray::escapeAsksBeforeItemsAreLost()
{
    ArrayBench b;
    b.Add(u"Mon"_s);
    Fill(*b.maker, "Text2", u"Tue"_s);
    b.ExpectLoss(u"2 items"_s, BoxAnswer::Cancel);
    QTest::keyClick(Find<QLineEdit>(*b.maker, "Text2"), Qt::Key_Escape);
    QVERIFY(b.maker->isVisible());
    b.ExpectLoss(u"2 items"_s, BoxAnswer::Cancel);
    QVERIFY(!b.maker->close());
    QVERIFY(b.maker->isVisible());
    b.ExpectLoss(u"2 items"_s, BoxAnswer::Ok);
    QVERIFY(b.maker->close());
    QVERIFY(b.bench.dialogs.Finished());
}

OB_BENCH_TEST(win_frmArray)
#include "win_frmArray.moc"
