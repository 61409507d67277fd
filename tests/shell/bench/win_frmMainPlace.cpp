// SPDX-License-Identifier: GPL-3.0-or-later
// Where the main window opens: at a first start, maximized, off the screen, in a given size.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "shell/bench/modStart.h"
#include "shell/state/modOptions.h"
#include "shell/state/modPlaces.h"
#include "shell/state/modSettings.h"

#include <QDialog>
#include <QScreen>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// A new user's start: the tip that comes with it is closed.
void StartAsNewUser(TestBench& bench)
{
    bench.AnswerModals([](QDialog& tip) { tip.reject(); });
    bench.Start();
    QApplication::processEvents();
}

QRect FrameRect(TestBench& bench)
{
    return {bench.Frame().pos(), bench.Frame().size()};
}

QRect Screen(TestBench& bench)
{
    return bench.Frame().screen()->availableGeometry();
}

} // namespace

class win_frmMainPlace : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void firstStartIsMaximized();
    void firstStartKeepsItsNormalRectangle();
    void normalWindowIsNotMaximizedAtTheNextStart();
    void maximizedWindowIsMaximizedAgain();
    void maximizedWindowStaysSoWithAForm();
    void placeThatHangsOffTheScreenIsPulledInWhole_data();
    void placeThatHangsOffTheScreenIsPulledInWhole();
    void givenSizeIsTheWindowsSize();
};

void win_frmMainPlace::firstStartIsMaximized()
{
    TestBench bench(TestBench::Store::Bare);
    StartAsNewUser(bench);
    QVERIFY(bench.Frame().isMaximized());
    QVERIFY(bench.Frame().width() > 6500 / 15);
}

void win_frmMainPlace::firstStartKeepsItsNormalRectangle()
{
    TestBench bench(TestBench::Store::Bare);
    StartAsNewUser(bench);
    bench.Frame().showNormal();
    QTRY_COMPARE(bench.Frame().size(), QSize(6500 / 15, 6500 / 15));
    QVERIFY(bench.Close());
    QCOMPARE(ReadWindowPlace().width, 6495);
}

void win_frmMainPlace::normalWindowIsNotMaximizedAtTheNextStart()
{
    TestBench bench(TestBench::Store::Bare);
    StartAsNewUser(bench);
    bench.Frame().showNormal();
    QApplication::processEvents();
    bench.Frame().resize(500, 450);
    QVERIFY(bench.Close());
    StartAsNewUser(bench);
    QVERIFY(!bench.Frame().isMaximized());
    QCOMPARE(bench.Frame().size(), QSize(500, 450));
}

void win_frmMainPlace::maximizedWindowIsMaximizedAgain()
{
    TestBench bench;
    SaveWindowPlace({150, 300, 7500, 6000});
    bench.Start();
    const QRect normal = bench.Frame().geometry();
    bench.Frame().showMaximized();
    QApplication::processEvents();
    const QSize maximized = bench.Frame().size();
    QVERIFY(bench.Close());
    // The rectangle of a maximized window is the maximized one.
    QCOMPARE(ReadWindowPlace().width, static_cast<float>(maximized.width() * 15));
    bench.Start();
    QVERIFY(bench.Frame().isMaximized());
    bench.Frame().showNormal();
    QTRY_COMPARE(bench.Frame().geometry(), normal);
}

void win_frmMainPlace::maximizedWindowStaysSoWithAForm()
{
    TestBench bench;
    const QRect normal(40, 40, 433, 433);
    WriteRemembered(u"Bench"_s, u"Maximized"_s, u"True"_s);
    RememberPlace(u"frmMain"_s, normal);
    bench.AnswerModals([](QDialog& box) { box.accept(); });
    bench.Start({u"" OB_TEST_DATA "/../../samples/address-book.obf"_s});
    QApplication::processEvents();
    QVERIFY(bench.Frame().isMaximized());
    // The form's tools need more height than that, and a window that grows before it is shown is not maximized.
    QVERIFY(bench.Frame().normalGeometry().height() >= bench.Frame().minimumSizeHint().height());
    bench.Frame().showNormal();
    QApplication::processEvents();
    QCOMPARE(bench.Frame().geometry().topLeft(), normal.topLeft());
    QCOMPARE(bench.Frame().width(), normal.width());
}

void win_frmMainPlace::placeThatHangsOffTheScreenIsPulledInWhole_data()
{
    QTest::addColumn<QRect>("stored");
    QTest::newRow("left and above") << QRect(-300, -100, 500, 400);
    QTest::newRow("right and below") << QRect(700, 700, 500, 400);
    QTest::newRow("too large") << QRect(10, 10, 5000, 4000);
    QTest::newRow("far away") << QRect(90'000, 0, 500, 400);
}

void win_frmMainPlace::placeThatHangsOffTheScreenIsPulledInWhole()
{
    QFETCH(QRect, stored);
    TestBench bench;
    const auto twips = [](int pixels) { return static_cast<float>(15 * pixels); };
    SaveWindowPlace({twips(stored.x()), twips(stored.y()), twips(stored.width()), twips(stored.height())});
    bench.Start();
    QVERIFY(Screen(bench).contains(FrameRect(bench)));
    if (stored.width() < Screen(bench).width())
        QCOMPARE(bench.Frame().size(), stored.size());
}

void win_frmMainPlace::givenSizeIsTheWindowsSize()
{
    const TestBench bench;
    WriteSetting(u"MainWidth"_s, u"7500"_s);
    std::unique_ptr<frmMain> frame;
    StartRoutine([&frame] {
        frame = std::make_unique<frmMain>();
        return frame.get();
    });
    frame->Load(frmMain::FirstSize);
    QVERIFY(!frame->isMaximized());
    QCOMPARE(frame->size(), QSize(1280, 800));
}

OB_BENCH_TEST(win_frmMainPlace)
#include "win_frmMainPlace.moc"
