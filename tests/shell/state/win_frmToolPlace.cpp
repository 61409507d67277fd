// SPDX-License-Identifier: GPL-3.0-or-later
// Size, place and folder of tools, by opening and closing tools of the program.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "imagetools/pictures/frmBitmap.h"
#include "platform/dialogs/frmFolderBrowser.h"
#include "shell/state/frmTool.h"
#include "shell/state/modPlaces.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QRect Room()
{
    return QGuiApplication::primaryScreen()->availableGeometry();
}

// A tool that needs much room.
class LargeTool final : public QDialog {
public:
    explicit LargeTool(QSize least)
    {
        setObjectName(u"largeTool"_s);
        auto* column = new QVBoxLayout(this);
        auto* filling = new QLabel(u"large"_s);
        filling->setMinimumSize(least);
        column->addWidget(filling);
        last = new QPushButton(u"Last"_s);
        column->addWidget(last);
    }

    QPushButton* last;
};

} // namespace

class win_frmToolPlace : public QObject {
    Q_OBJECT

    std::unique_ptr<TestBench> bench;

    void InWav(const std::function<void(QDialog&)>& script) const
    {
        bench->ExpectModal(u"frmWav"_s, [script](QDialog& dialog) {
            script(dialog);
            dialog.reject();
        });
        bench->Choose(u"mnuToolWav"_s);
    }

private Q_SLOTS:
    void init()
    {
        bench = std::make_unique<TestBench>();
        bench->Start();
    }
    void cleanup() { bench.reset(); }

    void aToolOpensAsItWasClosed()
    {
        const QRect place(60, 90, 610, 430);
        InWav([&](QDialog& dialog) { dialog.setGeometry(place); });
        InWav([&](QDialog& dialog) { QCOMPARE(dialog.geometry(), place); });
    }

    void aPlaceOffTheScreenIsPulledIn()
    {
        RememberPlace(u"frmWav"_s, {Room().right() - 40, Room().bottom() - 30, 600, 400});
        InWav([&](QDialog& dialog) {
            QVERIFY(Room().contains(dialog.geometry()));
            QCOMPARE(dialog.size(), QSize(600, 400));
        });
    }

    void aFirstSizeStaysWithinTheScreen()
    {
        LargeTool tool({100, 100});
        tool.resize(Room().size() * 2);
        PrepareTool(tool, "index");
        tool.show();
        QVERIFY(Room().size().boundedTo(tool.size()) == tool.size());
        QVERIFY(tool.findChild<QScrollArea*>() == nullptr);
    }

    void aWindowThatNeedsMoreThanTheScreenScrolls()
    {
        LargeTool tool(Room().size() + QSize(200, 300));
        PrepareTool(tool, "index");
        tool.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tool));
        QVERIFY(Room().size().boundedTo(tool.size()) == tool.size());
        auto* area = tool.findChild<QScrollArea*>();
        QVERIFY(area != nullptr && area->verticalScrollBar()->maximum() > 0);
        area->ensureWidgetVisible(tool.last);
        QVERIFY(!tool.last->visibleRegion().isEmpty());
    }

    void thePanesOfASplitterCountToo()
    {
        LargeTool tool({10, 10});
        auto* splitter = new QSplitter;
        for (int pane = 0; pane < 2; ++pane) {
            splitter->addWidget(new QLabel(u"pane"_s));
            splitter->widget(pane)->setMinimumWidth(Room().width() * 2 / 3);
        }
        tool.layout()->addWidget(splitter);
        PrepareTool(tool, "index");
        tool.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tool));
        QVERIFY(tool.width() <= Room().width());
        QVERIFY(tool.findChild<QScrollArea*>() != nullptr);
    }

    void largeFontsKeepEveryToolOnTheScreen()
    {
        const QFont before = QApplication::font();
        QFont large = before;
        large.setPointSize(40);
        QApplication::setFont(large);
        bench->Choose(u"mnuToolBitmap"_s);
        const auto* preview = bench->Frame().findChild<frmBitmap*>();
        const QSize size = preview == nullptr ? QSize() : preview->size();
        QApplication::setFont(before);
        QVERIFY(preview != nullptr);
        QVERIFY2(Room().size().boundedTo(size) == size, qPrintable(u"%1 x %2"_s.arg(size.width()).arg(size.height())));
    }

    void aBrowsingToolOpensInItsLastFolder()
    {
        QDir().mkdir(bench->Path(u"sounds"_s));
        bench->Write(u"sounds/horn.wav"_s, "horn");
        InWav([&](QDialog& dialog) {
            auto* browser = dialog.findChild<FolderBrowser*>();
            QCOMPARE(browser->Folder(), QDir::currentPath());
            browser->ShowFolder(bench->Path(u"sounds"_s));
        });
        InWav([&](QDialog& dialog) {
            const auto* browser = dialog.findChild<FolderBrowser*>();
            QCOMPARE(browser->Folder(), bench->Path(u"sounds"_s));
            QTRY_COMPARE(browser->Files(), QStringList(u"horn.wav"_s));
        });
    }

    void aFolderThatHasGoneGivesTheCurrentOne()
    {
        RememberFolder(u"frmWav"_s, bench->Path(u"gone"_s));
        bench->Write(u"beep.wav"_s, "beep");
        InWav([&](QDialog& dialog) {
            const auto* browser = dialog.findChild<FolderBrowser*>();
            QTRY_COMPARE(browser->Folder(), QDir::currentPath());
            QTRY_COMPARE(browser->Files(), QStringList(u"beep.wav"_s));
        });
    }

    void aFileBoxStartsWhereTheToolLastChose()
    {
        LargeTool tool({10, 10});
        const FileSpec open = {FilePurpose::Open, u"Open"_s, {}, {}, u"All|*.*"_s};
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, u"All|*.*"_s, u"/somewhere/else/x.bmp"_s);
        QCOMPARE(ToolFileBox(tool, open), u"/somewhere/else/x.bmp"_s);
        QCOMPARE(bench->dialogs.LastFile().folder, QString());
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, u"All|*.*"_s, {});
        QCOMPARE(ToolFileBox(tool, open), QString());
        QCOMPARE(QDir(bench->dialogs.LastFile().folder), QDir(u"/somewhere/else"_s));
        QCOMPARE(QDir(LastFolder(u"largeTool"_s)), QDir(u"/somewhere/else"_s));
    }
};

OB_BENCH_TEST(win_frmToolPlace)
#include "win_frmToolPlace.moc"
