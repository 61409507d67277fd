// SPDX-License-Identifier: GPL-3.0-or-later
// What all makers of code share: inserting at the caret of the active program, and leaving.
#include "codetools/MakerBench.h"

#include "codetools/dlgTBOK.h"
#include "codetools/frmArray.h"
#include "codetools/frmMB.h"
#include "codetools/frmMenuMaker.h"
#include "codetools/frmStylebits.h"
#include "editor/document/cDocument.h"

#include <QListWidget>
#include <QRadioButton>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

using MakeWindow = std::unique_ptr<QDialog> (*)(QWidget* parent);
using UseWindow = void (*)(QDialog& maker);

template <class Maker>
std::unique_ptr<QDialog> Make(QWidget* parent)
{
    return std::make_unique<Maker>(parent);
}

// A program "print 1", with the "1" selected.
cDocument* NewProgram(TestBench& bench)
{
    bench.Choose(u"mnuFileNew"_s);
    TestBench::Type(bench.Active(), "print 1\r\n");
    SendSci(bench.Active()->sci, SCI_SETSEL, 6, 7);
    return bench.Active();
}

} // namespace

class win_frmMaker : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void insertReplacesTheSelectionInOneStepOfUndo_data();
    void insertReplacesTheSelectionInOneStepOfUndo();
    void insertFollowsThePrograms();
    void insertAsksWhatCreateAsks();
    void theHandleOfAWindowIsWhatItsFieldShows();
};

void win_frmMaker::insertReplacesTheSelectionInOneStepOfUndo_data()
{
    QTest::addColumn<MakeWindow>("make");
    QTest::addColumn<UseWindow>("use");
    QTest::addColumn<QByteArray>("code");
    QTest::newRow("array") << MakeWindow(Make<frmArray>) << UseWindow([](QDialog& maker) {
        Fill(maker, "Text1", u"days"_s);
        Fill(maker, "Text2", u"Mon"_s);
        Press(maker, "cmdAdd");
        Fill(maker, "Text2", u"Tue"_s);
    }) << MakerBytes("array/days.bas");
    QTest::newRow("menu") << MakeWindow(Make<frmMenuMaker>) << UseWindow([](QDialog& maker) {
        Fill(maker, "Text1", u"File"_s);
        Fill(maker, "Text2", u"Open"_s);
        Fill(maker, "Text3", u"[open]"_s);
        Press(maker, "cmdAdd");
        Fill(maker, "Text2", u"Exit"_s);
        Fill(maker, "Text3", u"[quit]"_s);
    }) << MakerBytes("menu/file.txt");
    QTest::newRow("message box") << MakeWindow(Make<frmMB>) << UseWindow([](QDialog& maker) {
        QVERIFY(!Find<QAbstractButton>(maker, "cmdInsert")->isEnabled());
        Press(maker, "cmdCreate");
    }) << MakerBytes("messagebox/defaults.bas");
    QTest::newRow("stylebits") << MakeWindow(Make<frmStylebits>) << UseWindow([](QDialog& maker) {
        QVERIFY(!Find<QAbstractButton>(maker, "cmdInsert")->isEnabled());
        Find<QListWidget>(maker, "lstBits")->item(2)->setCheckState(Qt::Checked);
    }) << QByteArray("stylebits #handle.ext, _BS_TOP, 0, 0, 0");
}

void win_frmMaker::insertReplacesTheSelectionInOneStepOfUndo()
{
    QFETCH(MakeWindow, make);
    QFETCH(UseWindow, use);
    QFETCH(QByteArray, code);
    TestBench bench;
    bench.Start();
    const cDocument* program = NewProgram(bench);
    QApplication::clipboard()->setText(u"before"_s);
    const auto maker = make(&bench.Frame());
    maker->show();
    use(*maker);
    Press(*maker, "cmdInsert");
    QVERIFY(!maker->isVisible());
    QTRY_COMPARE(QApplication::activeWindow(), &bench.Frame());
    QCOMPARE(TestBench::Text(program), "print " + code + "\r\n");
    QCOMPARE(OnClipboard(), u"before"_s);
    SendSci(program->sci, SCI_UNDO);
    QCOMPARE(TestBench::Text(program), QByteArray("print 1\r\n"));
}

void win_frmMaker::insertFollowsThePrograms()
{
    TestBench bench;
    bench.Start();
    bench.Choose(u"mnuToolArray"_s);
    auto* maker = OpenWindow<frmArray>();
    const auto* insert = Find<QAbstractButton>(*maker, "cmdInsert");
    QVERIFY(!insert->isEnabled());
    bench.Choose(u"mnuFileNew"_s);
    QVERIFY(insert->isEnabled());
    bench.ExpectModal(u"frmColorDefault"_s, [](QDialog& colors) { colors.accept(); });
    bench.Choose(u"mnuFileNewGui"_s);
    QVERIFY(!insert->isEnabled());
    bench.Choose(u"mnuFileNew"_s);
    QVERIFY(insert->isEnabled());
    delete maker;
}

void win_frmMaker::insertAsksWhatCreateAsks()
{
    TestBench bench;
    bench.Start();
    const cDocument* program = NewProgram(bench);
    frmArray maker(&bench.Frame());
    maker.show();
    bench.dialogs.ExpectMessage(u"No items contained in array.  Continue anyway?"_s, BoxAnswer::No, BoxIcon::Critical,
                                BoxButtons::YesNo);
    Press(maker, "cmdInsert");
    QVERIFY(bench.dialogs.Finished());
    QVERIFY(maker.isVisible());
    QCOMPARE(TestBench::Text(program), QByteArray("print 1\r\n"));
}

void win_frmMaker::theHandleOfAWindowIsWhatItsFieldShows()
{
    TestBench bench;
    bench.Start();
    dlgTBOK target(&bench.Frame());
    target.show();
    Find<QRadioButton>(target, "optAdd1")->click();
    Paste(target, "txtHandle", u"#main\n"_s);
    Press(target, "OKButton");
    QCOMPARE(target.Handle(), u"#main"_s);
}

OB_BENCH_TEST(win_frmMaker)
#include "win_frmMaker.moc"
