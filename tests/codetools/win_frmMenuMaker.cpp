// SPDX-License-Identifier: GPL-3.0-or-later
// The Menu Maker, by its controls.
#include "codetools/MakerBench.h"

#include "codetools/frmMenuMaker.h"
#include "codetools/modMenuCode.h"
#include "shell/state/frmLoss.h"

#include <QLabel>
#include <QPointer>
#include <QRadioButton>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// The program with an open maker.
struct MenuBench {
    MenuBench()
    {
        bench.Start();
        QApplication::clipboard()->setText(u"before"_s);
        bench.Choose(u"mnuMaker"_s);
        maker = OpenWindow<frmMenuMaker>();
    }
    ~MenuBench() { delete maker; }
    MenuBench(const MenuBench&) = delete;
    MenuBench& operator=(const MenuBench&) = delete;

    void Add(const char* item, const char* branch)
    {
        Fill(*maker, "Text2", QString::fromLatin1(item));
        Fill(*maker, "Text3", QString::fromLatin1(branch));
        Press(*maker, "cmdAdd");
    }

    void Copy()
    {
        bench.dialogs.ExpectMessage(MenuCopiedText, BoxAnswer::Ok, BoxIcon::None);
        Press(*maker, "cmdCopy");
        QVERIFY(bench.dialogs.Finished());
    }

    QString Field(const char* name) const { return Find<QLineEdit>(*maker, name)->text(); }

    TestBench bench;
    QPointer<frmMenuMaker> maker;
};

} // namespace

class win_frmMenuMaker : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWindowStartsWithItsDefaults();
    void itemsBecomeAStatementOnTheClipboard();
    void thePreviewIsTheStatementSoFar();
    void aPopupMenuHasNoHandle();
    void emptyFieldsGetNumberedNames();
    void labelsAreCompleted();
    void enterAddsTheItem();
    void aBusyClipboardKeepsTheWindowOpen();
    void cancelAndEscapeCopyNothing();
    void tabFollowsTheReadingOrder();
    void enterGoesThroughTheFields();
    void removeLastTakesTheLastItemOut();
    void anItemThatIsTypedAndNotAddedCounts();
    void theCodeIsWhatTheFieldsShow();
};

void win_frmMenuMaker::theWindowStartsWithItsDefaults()
{
    const MenuBench b;
    QVERIFY(!b.maker->isModal());
    QVERIFY(Find<QRadioButton>(*b.maker, "optType0")->isChecked());
    QVERIFY(Find<QLineEdit>(*b.maker, "Text1")->hasFocus());
}

void win_frmMenuMaker::itemsBecomeAStatementOnTheClipboard()
{
    MenuBench b;
    Fill(*b.maker, "Text1", u"File"_s);
    b.Add("Open", "[open]");
    QCOMPARE(b.Field("Text2"), QString());
    QCOMPARE(b.Field("Text3"), QString());
    QVERIFY(Find<QLineEdit>(*b.maker, "Text2")->hasFocus());
    b.Add("Exit", "[quit]");
    b.Copy();
    QCOMPARE(OnClipboard(), MakerText("menu/file.txt"));
    QTRY_VERIFY(b.maker.isNull());
}

void win_frmMenuMaker::thePreviewIsTheStatementSoFar()
{
    MenuBench b;
    QCOMPARE(Previewed(*b.maker), MakerText("menu/no-items.txt"));
    Press(*b.maker, "cmdAdd");
    QCOMPARE(Previewed(*b.maker), u"Menu #main, \"Menu Name\", \"Item Name\", [BranchLabel]"_s);
    Fill(*b.maker, "Text1", u"Edit"_s);
    Fill(*b.maker, "Text4", u"my window"_s);
    QCOMPARE(Previewed(*b.maker), u"Menu #my_window, \"Edit\", \"Item Name\", [BranchLabel]"_s);
}

void win_frmMenuMaker::aPopupMenuHasNoHandle()
{
    MenuBench b;
    const auto* handle = Find<QLineEdit>(*b.maker, "Text4");
    const auto* label = Find<QLabel>(*b.maker, "Label4");
    QVERIFY(handle->isEnabled() && label->isEnabled());
    Press(*b.maker, "optType1");
    QVERIFY(!handle->isEnabled() && !label->isEnabled());
    QCOMPARE(Previewed(*b.maker), MakerText("menu/popup-no-items.txt"));
    Press(*b.maker, "optType0");
    QVERIFY(handle->isEnabled() && label->isEnabled());
    Press(*b.maker, "optType1");
    b.Add("Cut", "cut");
    b.Add(" | ", "nowhere");
    b.Add("Paste", "[paste]");
    b.Copy();
    QCOMPARE(OnClipboard(), MakerText("menu/popup.txt"));
}

void win_frmMenuMaker::emptyFieldsGetNumberedNames()
{
    MenuBench b;
    Fill(*b.maker, "Text1", u" File "_s);
    Fill(*b.maker, "Text4", u"  "_s);
    b.Add("", "");
    b.Add("|", "");
    b.Add("  ", " three ");
    b.Add(" Four ", " ");
    b.Copy();
    QCOMPARE(OnClipboard(), MakerText("menu/numbered.txt"));
}

void win_frmMenuMaker::labelsAreCompleted()
{
    MenuBench b;
    Fill(*b.maker, "Text1", u"M"_s);
    b.Add("a", "[a b]");
    b.Add("b", "my item");
    b.Add("c", "[open");
    b.Add("d", "shut]");
    b.Add("e", "]shut");
    b.Add("f", "a[b]c");
    b.Add("g", "  g  ");
    b.Add("h", "x=y");
    b.Add("i", "a  b.");
    b.Copy();
    QCOMPARE(OnClipboard(), MakerText("menu/labels.txt"));
}

void win_frmMenuMaker::enterAddsTheItem()
{
    MenuBench b;
    QTest::keyClick(Find<QLineEdit>(*b.maker, "Text3"), Qt::Key_Return);
    QVERIFY(Previewed(*b.maker).endsWith(u", \"Item Name\", [BranchLabel]"_s));
    QVERIFY(b.maker->isVisible());
}

void win_frmMenuMaker::aBusyClipboardKeepsTheWindowOpen()
{
    MenuBench b;
    {
        const TakenClipboard taken;
        b.bench.dialogs.ExpectMessage(ClipboardTakenText, BoxAnswer::Ok, BoxIcon::Exclamation);
        Press(*b.maker, "cmdCopy");
    }
    QVERIFY(b.bench.dialogs.Finished());
    QVERIFY(b.maker->isVisible());
    QCOMPARE(OnClipboard(), u"before"_s);
    b.Copy();
    QCOMPARE(OnClipboard(), MakerText("menu/no-items.txt"));
}

void win_frmMenuMaker::cancelAndEscapeCopyNothing()
{
    for (const bool byKey : {false, true}) {
        MenuBench b;
        b.Add("Open", "[open]");
        if (byKey) {
            b.bench.dialogs.ExpectMessage(LossQuestion(u"1 item"_s), BoxAnswer::Ok, BoxIcon::Question,
                                          BoxButtons::OkCancel, u"Menu Maker"_s);
            QTest::keyClick(b.maker, Qt::Key_Escape);
        } else
            Press(*b.maker, "cmdCancel");
        QTRY_VERIFY(b.maker.isNull());
        QCOMPARE(OnClipboard(), u"before"_s);
    }
}

void win_frmMenuMaker::tabFollowsTheReadingOrder()
{
    const MenuBench b;
    QVERIFY(QTest::qWaitForWindowActive(b.maker));
    QCOMPARE(TabOrder(*b.maker, "Text1").join(u' '),
             u"Text1 Text4 optType0 Text2 Text3 cmdAdd codePreview cmdCopy cmdCancel"_s);
}

void win_frmMenuMaker::enterGoesThroughTheFields()
{
    const MenuBench b;
    QVERIFY(QTest::qWaitForWindowActive(b.maker));
    const auto enter = [&](const char* from, const char* to) {
        QVERIFY(Find<QLineEdit>(*b.maker, from)->hasFocus());
        QTest::keyClick(Find<QLineEdit>(*b.maker, from), Qt::Key_Return);
        QVERIFY2(Find<QLineEdit>(*b.maker, to)->hasFocus(), to);
    };
    enter("Text1", "Text4");
    enter("Text4", "Text2");
    enter("Text2", "Text3");
    QCOMPARE(Previewed(*b.maker), MakerText("menu/no-items.txt"));
    enter("Text3", "Text2");
    QVERIFY(Previewed(*b.maker).endsWith(u", \"Item Name\", [BranchLabel]"_s));
    Press(*b.maker, "optType1");
    Find<QLineEdit>(*b.maker, "Text1")->setFocus();
    enter("Text1", "Text2");
}

void win_frmMenuMaker::removeLastTakesTheLastItemOut()
{
    MenuBench b;
    const auto* remove = Find<QAbstractButton>(*b.maker, "cmdRemove");
    QVERIFY(!remove->isEnabled());
    Fill(*b.maker, "Text1", u"File"_s);
    b.Add("Open", "[open]");
    b.Add("Exit", "[quit]");
    b.Add("", "");
    b.Add("|", "");
    Press(*b.maker, "cmdRemove");
    Press(*b.maker, "cmdRemove");
    QCOMPARE(Previewed(*b.maker), MakerText("menu/file.txt"));
    Fill(*b.maker, "Text2", u"More"_s);
    Press(*b.maker, "cmdRemove");
    QCOMPARE(Previewed(*b.maker), MakerText("menu/file.txt"));
    b.Add("", "");
    QVERIFY(Previewed(*b.maker).endsWith(u", \"MenuItem  3\", [BranchLabel.3]"_s));
    for (int i = 0; i < 3; ++i)
        Press(*b.maker, "cmdRemove");
    QCOMPARE(Previewed(*b.maker), u"Menu #main, \"File\""_s);
    QVERIFY(!remove->isEnabled());
}

void win_frmMenuMaker::anItemThatIsTypedAndNotAddedCounts()
{
    MenuBench b;
    Fill(*b.maker, "Text1", u"File"_s);
    b.Add("Open", "[open]");
    Fill(*b.maker, "Text2", u"Exit"_s);
    Fill(*b.maker, "Text3", u"[quit]"_s);
    QCOMPARE(Previewed(*b.maker), MakerText("menu/file.txt"));
    b.Copy();
    QCOMPARE(OnClipboard(), MakerText("menu/file.txt"));
}

void win_frmMenuMaker::theCodeIsWhatTheFieldsShow()
{
    MenuBench b;
    for (const char* name : {"Text1", "Text2", "Text3", "Text4"}) {
        Fill(*b.maker, name, {});
        Paste(*b.maker, name, u"a\r\nb\n"_s);
        QCOMPARE(b.Field(name), u"a b"_s);
    }
    QCOMPARE(Previewed(*b.maker), u"Menu #a_b, \"a b\", \"a b\", [a.b]"_s);
}

OB_BENCH_TEST(win_frmMenuMaker)
#include "win_frmMenuMaker.moc"
