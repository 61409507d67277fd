// SPDX-License-Identifier: GPL-3.0-or-later
// The text of the status bar: which window it belongs to, and how long it is true.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"

#include <QDialog>
#include <QLabel>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QString Status(TestBench& bench)
{
    return bench.Frame().findChild<QLabel*>(u"statusText"_s)->text();
}

} // namespace

class win_frmStatusBar : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textFollowsTheActiveWindow();
    void textOfAClosedWindowIsGone();
    void formHasATextOfItsOwn();
    void savedIsSaidUntilTheNextChange();
    void undoOfTheLoadedTextSaysHowToBringItBack();
    void undoOfTypedTextSaysNothing();
};

void win_frmStatusBar::textFollowsTheActiveWindow()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, "end\r\n"), bench.Write(u"b.bas"_s, "beep\r\n")});
    QVERIFY(Status(bench).startsWith(u"b.bas  Size: 6 KB"_s));
    bench.Frame().ShowDocument(*Documents[1]);
    QVERIFY(Status(bench).startsWith(u"a.bas  Size: 5 KB"_s));
    SetStatusText(u"of a"_s);
    bench.Frame().ShowDocument(*Documents[2]);
    QVERIFY(Status(bench).startsWith(u"b.bas"_s));
    bench.Frame().ShowDocument(*Documents[1]);
    QCOMPARE(Status(bench), u"of a"_s);
    bench.Choose(u"mnuFileNew"_s);
    QCOMPARE(Status(bench), QString());
}

void win_frmStatusBar::textOfAClosedWindowIsGone()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, "end\r\n"), bench.Write(u"b.bas"_s, "beep\r\n")});
    bench.Choose(u"mnuFileClose"_s);
    QVERIFY(Status(bench).startsWith(u"a.bas"_s));
    bench.Choose(u"mnuFileClose"_s);
    QCOMPARE(Status(bench), QString());
}

void win_frmStatusBar::formHasATextOfItsOwn()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, "end\r\n")});
    bench.AnswerModals([](QDialog& dialog) { dialog.reject(); });
    bench.Choose(u"mnuFileNewGui"_s);
    QCOMPARE(Status(bench), u"Right click the window or controls for a properties dialog!"_s);
    bench.Frame().ShowDocument(*Documents[1]);
    QVERIFY(Status(bench).startsWith(u"a.bas"_s));
    QuitQuery = false;
}

void win_frmStatusBar::savedIsSaidUntilTheNextChange()
{
    TestBench bench;
    const QString path = bench.Write(u"a.bas"_s, "end\r\n");
    bench.Start({path, bench.Write(u"b.bas"_s, "beep\r\n")});
    bench.Frame().ShowDocument(*Documents[1]);
    bench.Choose(u"mnuFileSave"_s);
    QCOMPARE(Status(bench), u"File saved as "_s + path);
    QTest::keyClick(bench.ActiveWindowEdit(), Qt::Key_Right);
    QCOMPARE(Status(bench), u"File saved as "_s + path);
    QTest::keyClicks(bench.ActiveWindowEdit(), u"x"_s);
    QCOMPARE(Status(bench), QString());
    // Also while another window is in front.
    bench.Choose(u"mnuFileSave"_s);
    bench.Frame().ShowDocument(*Documents[2]);
    TestBench::Type(Documents[1].get(), "y");
    QVERIFY(Status(bench).startsWith(u"b.bas"_s));
    bench.Frame().ShowDocument(*Documents[1]);
    QCOMPARE(Status(bench), QString());
    QuitQuery = false;
}

void win_frmStatusBar::undoOfTheLoadedTextSaysHowToBringItBack()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, "end\r\n")});
    const QString opened = Status(bench);
    QTest::keyClick(bench.ActiveWindowEdit(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray());
    QVERIFY(Status(bench).contains(u"Ctrl+R"_s));
    QTest::keyClick(bench.ActiveWindowEdit(), Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("end"));
    QCOMPARE(Status(bench), opened);
}

void win_frmStatusBar::undoOfTypedTextSaysNothing()
{
    TestBench bench;
    bench.Start();
    bench.Choose(u"mnuFileNew"_s);
    QTest::keyClicks(bench.ActiveWindowEdit(), u"x"_s);
    bench.Choose(u"mnuEditUndo"_s);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray());
    QCOMPARE(Status(bench), QString());
}

OB_BENCH_TEST(win_frmStatusBar)
#include "win_frmStatusBar.moc"
