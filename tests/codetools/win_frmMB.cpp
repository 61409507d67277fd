// SPDX-License-Identifier: GPL-3.0-or-later
// The MessageBox Maker, by its controls.
#include "codetools/MakerBench.h"

#include "codetools/frmMB.h"
#include "codetools/modMessageBox.h"
#include "shell/state/frmLoss.h"

#include <QLabel>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// The program with the maker open over it while the script runs.
class MakerScript {
public:
    MakerScript() { bench.Start(); }

    void Play(const std::function<void(QDialog&)>& script)
    {
        QApplication::clipboard()->setText(u"before"_s);
        bench.ExpectModal(u"frmMB"_s, script);
        bench.Choose(u"mnuToolMB"_s);
    }

    void ExpectCopied() { bench.dialogs.ExpectMessage(MessageBoxCopiedText, BoxAnswer::Ok, BoxIcon::None); }

    TestBench bench;
};

QString Code(const QDialog& maker)
{
    return Find<QPlainTextEdit>(maker, "txtCode")->toPlainText();
}

} // namespace

class win_frmMB : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWindowStartsWithItsDefaults();
    void createGeneratesTheCodeAndCopyCopiesIt();
    void createTakesEveryChoice();
    void onlyCreateFillsTheFieldsAndTheCode();
    void previewShowsTheBoxItself_data();
    void previewShowsTheBoxItself();
    void copyBeforeCreateCopiesAnEmptyText();
    void editedCodeIsCopiedUnchanged();
    void aBusyClipboardKeepsTheWindowOpen();
    void enterCreatesAndEscapeCloses();
    void tabFollowsTheReadingOrder();
    void theWholeCodeIsSeenInOnePane();
    void aChangeAfterCreateIsPointedOut();
    void copyLooksGreyWithNothingToCopy();
    void theCodeIsWhatTheFieldsShow();
    void theWindowFitsTheScreenWithLargeFonts();
    void theMainWindowIsActiveAfterCopyAndExit();
};

void win_frmMB::theWindowStartsWithItsDefaults()
{
    MakerScript s;
    s.Play([](QDialog& maker) {
        QVERIFY(Find<QRadioButton>(maker, "optNone")->isChecked());
        QVERIFY(Find<QRadioButton>(maker, "optOK0")->isChecked());
        QVERIFY(maker.isModal());
        Press(maker, "cmdCancel");
    });
    QCOMPARE(OnClipboard(), u"before"_s);
}

void win_frmMB::createGeneratesTheCodeAndCopyCopiesIt()
{
    MakerScript s;
    s.ExpectCopied();
    s.Play([](QDialog& maker) {
        Fill(maker, "txtTitle", u"My \"title\""_s);
        Fill(maker, "txtMessage", u"Save \"it\"?"_s);
        Press(maker, "optQuestion");
        Press(maker, "optOK3");
        Press(maker, "cmdCreate");
        QCOMPARE(Code(maker), WithLineFeeds(MakerText("messagebox/question-yesnocancel.bas")));
        Press(maker, "cmdCopy");
    });
    QVERIFY(s.bench.dialogs.Finished());
    QCOMPARE(OnClipboard(), MakerText("messagebox/question-yesnocancel.bas"));
}

void win_frmMB::createTakesEveryChoice()
{
    MakerScript s;
    s.Play([](QDialog& maker) {
        Press(maker, "cmdCreate");
        QCOMPARE(Code(maker), WithLineFeeds(MakerText("messagebox/defaults.bas")));
        const auto chosen = [&](const char* option, const char* word) {
            Press(maker, option);
            Press(maker, "cmdCreate");
            const QString flags = Code(maker).section(u'\n', 2, 2);
            QVERIFY2(flags.contains(QLatin1Char(' ') + QLatin1String(word) + QLatin1Char(' ')), qPrintable(flags));
        };
        chosen("optCritical", "_MB_ICONHAND");
        chosen("optExclaim", "_MB_ICONEXCLAMATION");
        chosen("optQuestion", "_MB_ICONQUESTION");
        chosen("optInfo", "_MB_ICONINFORMATION");
        chosen("optNone", "0");
        chosen("optOK1", "_MB_OKCANCEL");
        chosen("optOK2", "_MB_YESNO");
        chosen("optOK3", "_MB_YESNOCANCEL");
        chosen("optOK4", "_MB_RETRYCANCEL");
        chosen("optOK5", "_MB_ABORTRETRYIGNORE");
        chosen("optOK0", "_MB_OK");
        Fill(maker, "txtTitle", u"Halt"_s);
        Fill(maker, "txtMessage", u"Stop?"_s);
        Press(maker, "optCritical");
        Press(maker, "optOK1");
        Press(maker, "cmdCreate");
        QCOMPARE(Code(maker), WithLineFeeds(MakerText("messagebox/critical-okcancel.bas")));
        Press(maker, "cmdCancel");
    });
}

void win_frmMB::onlyCreateFillsTheFieldsAndTheCode()
{
    MakerScript s;
    s.bench.dialogs.ExpectMessage({}, BoxAnswer::Ok, BoxIcon::None, BoxButtons::Ok, {});
    s.Play([](QDialog& maker) {
        Press(maker, "cmdTest");
        QCOMPARE(Find<QLineEdit>(maker, "txtTitle")->text(), QString());
        QCOMPARE(Find<QLineEdit>(maker, "txtMessage")->text(), QString());
        QCOMPARE(Code(maker), QString());
        Press(maker, "cmdCreate");
        QCOMPARE(Find<QLineEdit>(maker, "txtTitle")->text(), u"Information"_s);
        QCOMPARE(Find<QLineEdit>(maker, "txtMessage")->text(), u"Message text goes here!"_s);
        QCOMPARE(Code(maker), WithLineFeeds(MakerText("messagebox/defaults.bas")));
        Fill(maker, "txtTitle", u"Later"_s);
        QCOMPARE(Code(maker), WithLineFeeds(MakerText("messagebox/defaults.bas")));
        Press(maker, "cmdCancel");
    });
    QVERIFY(s.bench.dialogs.Finished());
}

void win_frmMB::previewShowsTheBoxItself_data()
{
    QTest::addColumn<QByteArray>("icon");
    QTest::addColumn<QByteArray>("buttons");
    QTest::addColumn<BoxIcon>("boxIcon");
    QTest::addColumn<BoxButtons>("boxButtons");
    QTest::addColumn<BoxAnswer>("answer");
    const auto row = [](const char* icon, const char* buttons, BoxIcon boxIcon, BoxButtons boxButtons,
                        BoxAnswer answer) {
        QTest::addRow("%s %s", icon, buttons)
            << QByteArray(icon) << QByteArray(buttons) << boxIcon << boxButtons << answer;
    };
    row("optNone", "optOK0", BoxIcon::None, BoxButtons::Ok, BoxAnswer::Ok);
    row("optCritical", "optOK1", BoxIcon::Critical, BoxButtons::OkCancel, BoxAnswer::Cancel);
    row("optExclaim", "optOK2", BoxIcon::Exclamation, BoxButtons::YesNo, BoxAnswer::No);
    row("optQuestion", "optOK3", BoxIcon::Question, BoxButtons::YesNoCancel, BoxAnswer::Yes);
    row("optInfo", "optOK4", BoxIcon::Information, BoxButtons::RetryCancel, BoxAnswer::Retry);
    row("optNone", "optOK5", BoxIcon::None, BoxButtons::AbortRetryIgnore, BoxAnswer::Ignore);
}

void win_frmMB::previewShowsTheBoxItself()
{
    QFETCH(QByteArray, icon);
    QFETCH(QByteArray, buttons);
    QFETCH(BoxIcon, boxIcon);
    QFETCH(BoxButtons, boxButtons);
    QFETCH(BoxAnswer, answer);
    MakerScript s;
    s.bench.dialogs.ExpectMessage(u"<b>& \"really\"?"_s, answer, boxIcon, boxButtons, u"A title"_s);
    s.Play([&](QDialog& maker) {
        Fill(maker, "txtTitle", u"A title"_s);
        Fill(maker, "txtMessage", u"<b>& \"really\"?"_s);
        Press(maker, icon);
        Press(maker, buttons);
        Press(maker, "cmdTest");
        QVERIFY(maker.isVisible());
        Press(maker, "cmdCancel");
    });
    QVERIFY(s.bench.dialogs.Finished());
    QCOMPARE(OnClipboard(), u"before"_s);
}

void win_frmMB::copyBeforeCreateCopiesAnEmptyText()
{
    MakerScript s;
    s.ExpectCopied();
    s.Play([](QDialog& maker) { Press(maker, "cmdCopy"); });
    QVERIFY(s.bench.dialogs.Finished());
    QCOMPARE(OnClipboard(), QString());
}

void win_frmMB::editedCodeIsCopiedUnchanged()
{
    MakerScript s;
    s.ExpectCopied();
    s.Play([](QDialog& maker) {
        Press(maker, "cmdCreate");
        auto* code = Find<QPlainTextEdit>(maker, "txtCode");
        code->moveCursor(QTextCursor::Start);
        QTest::keyClicks(code, u"'mine"_s);
        QTest::keyClick(code, Qt::Key_Return);
        Press(maker, "cmdCopy");
    });
    QCOMPARE(OnClipboard(), u"'mine\r\n"_s + MakerText("messagebox/defaults.bas"));
}

void win_frmMB::aBusyClipboardKeepsTheWindowOpen()
{
    MakerScript s;
    s.bench.dialogs.ExpectMessage(ClipboardTakenText, BoxAnswer::Ok, BoxIcon::Exclamation);
    s.ExpectCopied();
    s.Play([](QDialog& maker) {
        Press(maker, "cmdCreate");
        {
            const TakenClipboard taken;
            Press(maker, "cmdCopy");
        }
        QVERIFY(maker.isVisible());
        QCOMPARE(OnClipboard(), u"before"_s);
        Press(maker, "cmdCopy");
    });
    QVERIFY(s.bench.dialogs.Finished());
    QCOMPARE(OnClipboard(), MakerText("messagebox/defaults.bas"));
}

void win_frmMB::enterCreatesAndEscapeCloses()
{
    MakerScript s;
    s.Play([&](QDialog& maker) {
        QTest::keyClick(Find<QLineEdit>(maker, "txtMessage"), Qt::Key_Return);
        QCOMPARE(Code(maker), WithLineFeeds(MakerText("messagebox/defaults.bas")));
        s.bench.dialogs.ExpectMessage(LossQuestion(u"The message"_s), BoxAnswer::Ok, BoxIcon::Question,
                                      BoxButtons::OkCancel, u"MessageBox Maker"_s);
        QTest::keyClick(&maker, Qt::Key_Escape);
        QVERIFY(!maker.isVisible());
    });
    QVERIFY(s.bench.dialogs.Finished());
}

void win_frmMB::tabFollowsTheReadingOrder()
{
    MakerScript s;
    s.Play([](QDialog& maker) {
        QTRY_COMPARE(QApplication::activeWindow(), &maker);
        QCOMPARE(TabOrder(maker, "txtTitle").join(u' '),
                 u"txtTitle txtMessage optNone optOK0 txtCode cmdCreate cmdTest cmdCopy cmdCancel"_s);
        Press(maker, "cmdCancel");
    });
}

void win_frmMB::theWholeCodeIsSeenInOnePane()
{
    MakerScript s;
    s.Play([](QDialog& maker) {
        QCOMPARE(maker.findChildren<QPlainTextEdit*>().size(), 1);
        Press(maker, "optInfo");
        Press(maker, "optOK5");
        Press(maker, "cmdCreate");
        const auto* code = Find<QPlainTextEdit>(maker, "txtCode");
        QCOMPARE(code->verticalScrollBar()->maximum(), 0);
        QCOMPARE(code->horizontalScrollBar()->maximum(), 0);
        Press(maker, "cmdCancel");
    });
}

void win_frmMB::aChangeAfterCreateIsPointedOut()
{
    MakerScript s;
    s.Play([](QDialog& maker) {
        const auto* state = Find<QLabel>(maker, "lblState");
        Press(maker, "optInfo");
        QCOMPARE(state->text(), QString());
        Press(maker, "cmdCreate");
        QCOMPARE(state->text(), QString());
        Press(maker, "optOK2");
        QCOMPARE(state->text(), u"The choices have changed: press Create again."_s);
        Press(maker, "cmdCreate");
        QCOMPARE(state->text(), QString());
        Press(maker, "cmdCancel");
    });
}

// It can be pressed all the same, as copyBeforeCreateCopiesAnEmptyText does.
void win_frmMB::copyLooksGreyWithNothingToCopy()
{
    MakerScript s;
    s.Play([](QDialog& maker) {
        const auto isGrey = [&] {
            return Find<QAbstractButton>(maker, "cmdCopy")->palette().color(QPalette::Active, QPalette::ButtonText) ==
                   maker.palette().color(QPalette::Disabled, QPalette::ButtonText);
        };
        QVERIFY(isGrey());
        Press(maker, "cmdCreate");
        QVERIFY(!isGrey());
        Find<QPlainTextEdit>(maker, "txtCode")->clear();
        QVERIFY(isGrey());
        Press(maker, "cmdCancel");
    });
}

void win_frmMB::theCodeIsWhatTheFieldsShow()
{
    MakerScript s;
    s.Play([](QDialog& maker) {
        Paste(maker, "txtTitle", u"One\r\ntwo"_s);
        Paste(maker, "txtMessage", u"Three\nfour\n"_s);
        Press(maker, "cmdCreate");
        QVERIFY(Code(maker).contains(u"    \"Three four\" as ptr, _ \n    \"One two\" as ptr, _\n"_s));
        Press(maker, "cmdCancel");
    });
}

void win_frmMB::theWindowFitsTheScreenWithLargeFonts()
{
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(before.pointSizeF() * 2);
    QApplication::setFont(large);
    MakerScript s;
    s.Play([](QDialog& maker) {
        const QSize screen = maker.screen()->availableSize();
        QVERIFY2(maker.width() <= screen.width(), qPrintable(QString::number(maker.width())));
        QVERIFY(maker.height() <= screen.height());
        QVERIFY2(maker.minimumSizeHint().width() <= screen.width(), "its fields can be used");
        Press(maker, "cmdCancel");
    });
    QApplication::setFont(before);
}

void win_frmMB::theMainWindowIsActiveAfterCopyAndExit()
{
    MakerScript s;
    s.ExpectCopied();
    s.Play([](QDialog& maker) {
        QTRY_COMPARE(QApplication::activeWindow(), &maker);
        Press(maker, "cmdCreate");
        Press(maker, "cmdCopy");
    });
    QTRY_COMPARE(QApplication::activeWindow(), &s.bench.Frame());
}

OB_BENCH_TEST(win_frmMB)
#include "win_frmMB.moc"
