// SPDX-License-Identifier: GPL-3.0-or-later
// The colours in the preferences: their samples, their defaults, and when the code windows show them.
#include "shell/bench/OptionsBench.h"
#include "support/BenchTest.h"

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr std::uintptr_t LabelStyle = 8;

} // namespace

class win_frmOptionsColors : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sampleAsksForAColor_data();
    void sampleAsksForAColor();
    void commentSamplesShowThePair();
    void cancelledColorBoxChangesNothing();
    void spaceOnASampleAsksForAColor();
    void colorAloneStylesAllOpenWindows();
    void colorAndThenCancelKeepsTheOldColor();
    void defaultColorsStayAfterCancel();
    void noColoringHidesTheSamples();
};

void win_frmOptionsColors::sampleAsksForAColor_data()
{
    QTest::addColumn<ColorRef*>("setting");
    QTest::addColumn<bool>("back");
    QTest::newRow("lblComments") << &Editor.CommentColor << false;
    QTest::newRow("lblCommentback") << &Editor.CommentBackColor << true;
    QTest::newRow("lblBranch") << &Editor.BranchColor << false;
    QTest::newRow("lblKeywords") << &Editor.KeywordColor << false;
    QTest::newRow("lblQuote") << &Editor.QuoteColor << false;
    QTest::newRow("lblHighlight") << &Editor.HighlightColor << true;
    QTest::newRow("lblNumber") << &Editor.NumberColor << false;
    QTest::newRow("lblHandle") << &Editor.HandleColor << false;
}

void win_frmOptionsColors::sampleAsksForAColor()
{
    QFETCH(ColorRef*, setting);
    QFETCH(bool, back);
    const char* sample = QTest::currentDataTag();
    constexpr ColorRef chosen = 0x123456;
    OptionsBench options;
    const ColorRef before = *setting;
    options.bench.dialogs.ExpectColor(u"Color Previewer"_s, before, chosen);
    options.ClickSample(sample);
    QCOMPARE(back ? options.Back(sample) : options.Fore(sample), Shown(chosen));
    QCOMPARE(*setting, before);
    options.Click("cmdApply");
    QCOMPARE(*setting, chosen);
    QCOMPARE(Stored("HandleColor"), QString::number(Editor.HandleColor));
    QVERIFY(options.bench.dialogs.Finished());
}

void win_frmOptionsColors::commentSamplesShowThePair()
{
    OptionsBench options;
    options.bench.dialogs.ExpectColor(u"Color Previewer"_s, Editor.CommentColor, 0x0000FF);
    options.ClickSample("lblComments");
    options.bench.dialogs.ExpectColor(u"Color Previewer"_s, Editor.CommentBackColor, 0x00FF00);
    options.ClickSample("lblCommentback");
    for (const char* sample : {"lblComments", "lblCommentback"}) {
        QCOMPARE(options.Fore(sample), QColor(255, 0, 0));
        QCOMPARE(options.Back(sample), QColor(0, 255, 0));
    }
}

void win_frmOptionsColors::cancelledColorBoxChangesNothing()
{
    OptionsBench options;
    // The stored value stays, even if it is not a colour that can be shown.
    options.Click("cmdCancel");
    options.Settle();
    Editor.QuoteColor = 0xFFFFFFFF;
    options.Open();
    options.bench.dialogs.ExpectColor(u"Color Previewer"_s, 0xFFFFFFFF, std::nullopt);
    options.ClickSample("lblQuote");
    options.Click("cmdApply");
    QCOMPARE(Editor.QuoteColor, ColorRef{0xFFFFFFFF});
}

void win_frmOptionsColors::spaceOnASampleAsksForAColor()
{
    OptionsBench options;
    options.Find<QTabWidget>("tbsOptions")->setCurrentIndex(2);
    options.bench.dialogs.ExpectColor(u"Color Previewer"_s, Editor.NumberColor, 0x0000FF);
    QTest::keyClick(options.Find<QLabel>("lblNumber"), Qt::Key_Space);
    QCOMPARE(options.Fore("lblNumber"), QColor(255, 0, 0));
    // The right button and a release elsewhere open no box.
    QTest::mouseClick(options.Find<QLabel>("lblNumber"), Qt::RightButton);
    QTest::mousePress(options.Find<QLabel>("lblNumber"), Qt::LeftButton);
    QTest::mouseRelease(options.Find<QLabel>("lblNumber"), Qt::LeftButton, {}, QPoint(-20, -20));
    QVERIFY(options.bench.dialogs.Finished());
}

void win_frmOptionsColors::colorAloneStylesAllOpenWindows()
{
    OptionsBench options;
    options.bench.Choose(u"mnuFileNew"_s);
    options.bench.Choose(u"mnuFileNew"_s);
    const std::size_t last = Documents.size() - 1;
    QVERIFY(last >= 2 && Documents[last - 1]->sci != nullptr && Documents[last]->sci != nullptr);
    options.bench.dialogs.ExpectColor(u"Color Previewer"_s, Editor.BranchColor, 0x123456);
    options.ClickSample("lblBranch");
    for (const std::size_t slot : {last - 1, last})
        QVERIFY(options.Sci(slot, 2481 /* SCI_STYLEGETFORE */, LabelStyle) != 0x123456);
    options.Click("cmdApply");
    for (const std::size_t slot : {last - 1, last})
        QCOMPARE(options.Sci(slot, 2481, LabelStyle), std::intptr_t{0x123456});
}

void win_frmOptionsColors::colorAndThenCancelKeepsTheOldColor()
{
    OptionsBench options;
    const ColorRef before = Editor.KeywordColor;
    options.bench.dialogs.ExpectColor(u"Color Previewer"_s, before, 0x123456);
    options.ClickSample("lblKeywords");
    options.Click("cmdCancel");
    options.Settle();
    QCOMPARE(Editor.KeywordColor, before);
    options.Open();
    QCOMPARE(options.Fore("lblKeywords"), Shown(before));
}

void win_frmOptionsColors::defaultColorsStayAfterCancel()
{
    OptionsBench options;
    options.bench.Choose(u"mnuFileNew"_s);
    const std::size_t slot = Documents.size() - 1;
    options.bench.dialogs.ExpectColor(u"Color Previewer"_s, Editor.BranchColor, 0x123456);
    options.ClickSample("lblBranch");
    options.Click("cmdApply");
    QCOMPARE(Editor.BranchColor, ColorRef{0x123456});
    options.Click("chkDefaultColors");
    QVERIFY(!options.On("chkDefaultColors"));
    QCOMPARE(Editor.BranchColor, Rgb(200, 0, 0));
    QCOMPARE(options.Fore("lblBranch"), QColor(200, 0, 0));
    // Open windows change only at the next Apply.
    QCOMPARE(options.Sci(slot, 2481, LabelStyle), std::intptr_t{0x123456});
    options.Click("cmdCancel");
    options.Settle();
    QCOMPARE(Editor.BranchColor, Rgb(200, 0, 0));
    QCOMPARE(Stored("BranchColor"), QString::number(0x123456));
    QVERIFY(options.bench.Close());
    QCOMPARE(Stored("BranchColor"), QString::number(Rgb(200, 0, 0)));
}

void win_frmOptionsColors::noColoringHidesTheSamples()
{
    OptionsBench options;
    options.Find<QTabWidget>("tbsOptions")->setCurrentIndex(2);
    QVERIFY(options.Find<QLabel>("lblBranch")->isVisible());
    QVERIFY(!options.Find<QLabel>("lblNoColor")->isVisible());
    options.Click("optColorOff");
    QVERIFY(!options.Find<QLabel>("lblBranch")->isVisible());
    QVERIFY(options.Find<QLabel>("lblNoColor")->isVisible());
    QCOMPARE(Editor.SyntaxColor, 1);
    options.Click("cmdOK");
    options.Settle();
    QCOMPARE(Editor.SyntaxColor, 0);
    options.Open();
    options.Find<QTabWidget>("tbsOptions")->setCurrentIndex(2);
    QVERIFY(options.On("optColorOff") && !options.On("optColorOn"));
    QVERIFY(options.Find<QLabel>("lblNoColor")->isVisible());
    options.Click("optColorOn");
    options.Click("cmdApply");
    QCOMPARE(Editor.SyntaxColor, 1);
}

OB_BENCH_TEST(win_frmOptionsColors)
#include "win_frmOptionsColors.moc"
