// SPDX-License-Identifier: GPL-3.0-or-later
// The tip of the day, by its controls.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "codetools/frmTip.h"
#include "codetools/modTips.h"
#include "shell/bench/modStart.h"
#include "shell/state/Module1.h"
#include "shell/state/frmTool.h"
#include "shell/state/modSettings.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QString Shown(const QDialog& tip)
{
    return tip.findChild<QLabel*>(u"lblTipText"_s)->text();
}

QPushButton* Button(const QDialog& tip, const char* name)
{
    return tip.findChild<QPushButton*>(QString::fromLatin1(name));
}

QCheckBox* Switch(const QDialog& tip)
{
    return tip.findChild<QCheckBox*>(u"chkLoadTipsAtStartup"_s);
}

QString Stored()
{
    return ReadSetting(u"ShowTips"_s, u"never stored"_s);
}

QList<frmTip*> OpenTips()
{
    QList<frmTip*> open;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* tip = qobject_cast<frmTip*>(window); tip != nullptr && tip->isVisible())
            open.append(tip);
    return open;
}

} // namespace

class win_frmTip : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { ResetBench(); }
    void cleanup() { SetRandomSource({}); }

    void nextTipShowsOneAfterAnotherAndWrapsAround()
    {
        const TestBench bench;
        SetRandomSource([] { return 53.5 / 55; });
        frmTip tip(nullptr);
        tip.show();
        QVERIFY(QTest::qWaitForWindowActive(&tip));
        QCOMPARE(Shown(tip), LoadTips().at(54));
        QTest::mouseClick(Button(tip, "cmdNextTip"), Qt::LeftButton);
        QCOMPARE(Shown(tip), LoadTips().at(0));
        QTest::keyClick(&tip, Qt::Key_N, Qt::AltModifier);
        QTRY_COMPARE(Shown(tip), LoadTips().at(1));
        tip.close();
    }

    void theSwitchIsStoredAtOnce()
    {
        const TestBench bench;
        ShowTips = true;
        frmTip tip(nullptr);
        tip.show();
        QVERIFY(Switch(tip)->isChecked());
        WriteSetting(u"ShowTips"_s, u"untouched"_s);
        Switch(tip)->click();
        QCOMPARE(Stored(), u"False"_s);
        QVERIFY(!ShowTips);
        Switch(tip)->click();
        QCOMPARE(Stored(), u"True"_s);
        QVERIFY(ShowTips);
        tip.close();
    }

    void theSwitchShowsTheSetting()
    {
        const TestBench bench;
        ShowTips = false;
        const frmTip tip(nullptr);
        QVERIFY(!Switch(tip)->isChecked());
    }

    void everyWayOfClosingStoresTheSwitch_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("OK") << 0;
        QTest::newRow("Enter") << 1;
        QTest::newRow("Escape") << 2;
        QTest::newRow("the frame's cross") << 3;
    }

    void everyWayOfClosingStoresTheSwitch()
    {
        QFETCH(int, way);
        const TestBench bench;
        ShowTips = false;
        frmTip tip(nullptr);
        tip.show();
        switch (way) {
        case 0:
            Button(tip, "cmdOK")->click();
            break;
        case 1:
            QTest::keyClick(&tip, Qt::Key_Return);
            break;
        case 2:
            QTest::keyClick(&tip, Qt::Key_Escape);
            break;
        default:
            tip.close();
        }
        QVERIFY(!tip.isVisible());
        QCOMPARE(Stored(), u"False"_s);
    }

    void theMenuItemShowsOneTipWindowBesideTheFrame()
    {
        const TestBench bench;
        mnuOptionShowTip_Click();
        const QList<frmTip*> open = OpenTips();
        QCOMPARE(open.size(), 1);
        QVERIFY(!open.first()->isModal());
        mnuOptionShowTip_Click();
        QCOMPARE(OpenTips(), open);
        open.first()->close();
        QVERIFY(OpenTips().isEmpty());
    }

    void itCanBeShownModallyAsAtTheStart()
    {
        TestBench bench;
        bench.ExpectModal(u"frmTip"_s, [](QDialog& tip) { Button(tip, "cmdOK")->click(); });
        ShowToolModally<frmTip>();
    }
};

OB_BENCH_TEST(win_frmTip)
#include "win_frmTip.moc"
