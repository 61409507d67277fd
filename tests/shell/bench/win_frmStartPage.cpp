// SPDX-License-Identifier: GPL-3.0-or-later
// The start page in the empty area of the main window.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "shell/bench/frmStartPage.h"
#include "shell/help/frmHelp.h"
#include "shell/state/modSettings.h"

#include <QAbstractButton>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QMdiArea>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

frmStartPage& Page(TestBench& bench)
{
    return *bench.Frame().findChild<frmStartPage*>();
}

QAbstractButton* Button(TestBench& bench, const char* name)
{
    return Page(bench).findChild<QAbstractButton*>(QString::fromLatin1(name));
}

void Press(TestBench& bench, const char* name)
{
    QVERIFY2(Button(bench, name) != nullptr && Button(bench, name)->isVisible(), name);
    QTest::mouseClick(Button(bench, name), Qt::LeftButton);
    QApplication::processEvents();
}

} // namespace

class win_frmStartPage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void emptyAreaOffersTheFirstThingsToDo();
    void newOpensAProgramAndThePageGoes();
    void openAsksForAFile();
    void newFormOpensAForm();
    void firstStepsAreThePageOfTheManual();
    void recentFilesAreListedAndOpened();
    void pageComesBackWithTheFileJustUsed();
    void pageFillsTheArea();
    void pageIsUsedByKeys_data();
    void pageIsUsedByKeys();
};

void win_frmStartPage::emptyAreaOffersTheFirstThingsToDo()
{
    TestBench bench;
    bench.Start();
    QVERIFY(Page(bench).isVisible());
    QStringList texts;
    for (const char* name : {"cmdStartNew", "cmdStartOpen", "cmdStartForm", "cmdStartSteps"})
        texts.append(Button(bench, name)->text());
    QCOMPARE(texts, (QStringList{u"New"_s, u"Open"_s, u"New form"_s, u"First steps"_s}));
    // Nothing was opened yet, so nothing is recent.
    QVERIFY(Button(bench, "cmdStartRecent1") == nullptr);
}

void win_frmStartPage::newOpensAProgramAndThePageGoes()
{
    TestBench bench;
    bench.Start();
    Press(bench, "cmdStartNew");
    QVERIFY(bench.Active() != nullptr);
    QCOMPARE(bench.Active()->Caption(), u"untitled.bas"_s);
    QVERIFY(!Page(bench).isVisible());
}

void win_frmStartPage::openAsksForAFile()
{
    TestBench bench;
    const QString path = bench.Write(u"a.bas"_s, "end\r\n");
    bench.Start();
    bench.dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s,
                             u"BASIC Code (*.bas)(*.oba)(*.bak)|*.BAS;*.OBA;*.BAK"_s, path);
    Press(bench, "cmdStartOpen");
    QVERIFY(bench.Active() != nullptr);
    QCOMPARE(bench.Active()->Caption(), path);
}

void win_frmStartPage::newFormOpensAForm()
{
    TestBench bench;
    bench.Start();
    bench.AnswerModals([](QDialog& dialog) { dialog.reject(); });
    Press(bench, "cmdStartForm");
    QCOMPARE(bench.Frame().ActiveKind(), ActiveChild::Gui);
    QVERIFY(!Page(bench).isVisible());
}

void win_frmStartPage::firstStepsAreThePageOfTheManual()
{
    TestBench bench;
    bench.Start();
    Press(bench, "cmdStartSteps");
    const frmHelp* manual = nullptr;
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (const auto* help = qobject_cast<const frmHelp*>(window))
            manual = help;
    QVERIFY(manual != nullptr && manual->isVisible());
    QCOMPARE(manual->Here().page, u"first-steps"_s);
}

void win_frmStartPage::recentFilesAreListedAndOpened()
{
    TestBench bench;
    const QString first = bench.Write(u"R&D.bas"_s, "end\r\n");
    const QString second = bench.Write(u"b.bas"_s, "beep\r\n");
    WriteSetting(u"MRU1"_s, first);
    WriteSetting(u"MRU2"_s, second);
    WriteSetting(u"MRU3"_s, bench.Path(u"gone.bas"_s));
    bench.Start();
    QCOMPARE(Button(bench, "cmdStartRecent1")->text(), u"R&&D.bas"_s);
    QVERIFY(Button(bench, "cmdStartRecent3") == nullptr);
    Press(bench, "cmdStartRecent2");
    QVERIFY(bench.Active() != nullptr);
    QCOMPARE(bench.Active()->Caption(), second);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("beep"));
}

void win_frmStartPage::pageComesBackWithTheFileJustUsed()
{
    TestBench bench;
    const QString path = bench.Write(u"a.bas"_s, "end\r\n");
    bench.Start({path});
    QVERIFY(!Page(bench).isVisible());
    bench.Choose(u"mnuFileClose"_s);
    QTRY_VERIFY(Page(bench).isVisible());
    QCOMPARE(Button(bench, "cmdStartRecent1")->text(), u"a.bas"_s);
    // A file that has gone is not offered.
    bench.Choose(u"mnuFileNew"_s);
    QFile::remove(path);
    bench.Choose(u"mnuFileClose"_s);
    QTRY_VERIFY(Page(bench).isVisible());
    QVERIFY(Button(bench, "cmdStartRecent1") == nullptr);
}

void win_frmStartPage::pageFillsTheArea()
{
    TestBench bench;
    bench.Start();
    bench.Frame().resize(700, 600);
    QApplication::processEvents();
    QCOMPARE(Page(bench).geometry(), bench.Frame().Area().viewport()->rect());
}

void win_frmStartPage::pageIsUsedByKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Space") << static_cast<int>(Qt::Key_Space);
    QTest::newRow("Enter") << static_cast<int>(Qt::Key_Return);
}

void win_frmStartPage::pageIsUsedByKeys()
{
    QFETCH(int, key);
    TestBench bench;
    WriteSetting(u"MRU1"_s, bench.Write(u"a.bas"_s, "end\r\n"));
    bench.Start();
    bench.Frame().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&bench.Frame()));
    QStringList order;
    for (int i = 0; i < 5; ++i) {
        order.append(bench.Frame().focusWidget()->objectName());
        QTest::keyClick(bench.Frame().focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(order, (QStringList{u"cmdStartNew"_s, u"cmdStartOpen"_s, u"cmdStartForm"_s, u"cmdStartSteps"_s,
                                 u"cmdStartRecent1"_s}));
    Button(bench, "cmdStartNew")->setFocus();
    QTest::keyClick(Button(bench, "cmdStartNew"), static_cast<Qt::Key>(key));
    QVERIFY(bench.Active() != nullptr);
}

OB_BENCH_TEST(win_frmStartPage)
#include "win_frmStartPage.moc"
