// SPDX-License-Identifier: GPL-3.0-or-later
// The Array Maker, by its controls.
#include "codetools/MakerBench.h"

#include "codetools/frmArray.h"
#include "codetools/modArray.h"

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
        if (byKey)
            QTest::keyClick(b.maker, Qt::Key_Escape);
        else
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

OB_BENCH_TEST(win_frmArray)
#include "win_frmArray.moc"
