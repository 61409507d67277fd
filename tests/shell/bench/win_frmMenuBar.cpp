// SPDX-License-Identifier: GPL-3.0-or-later
// The keys of the menu bar, and menus that have nothing to show.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "shell/bench/frmMenuBar.h"

#include <QAction>
#include <QMenu>

using namespace Qt::StringLiterals;

using namespace ob;

class win_frmMenuBar : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { bench.reset(); }
    void aLetterOfTwoMenusSelectsOneAfterTheOther();
    void theSelectedMenuOpensByEnterOrDown();
    void escapeGivesTheKeyboardBack();
    void aLetterOfOneMenuOpensIt();
    void anEmptyRecentListIsDisabled();

private:
    frmMenuBar& Bar() const { return *bench->Frame().findChild<frmMenuBar*>(); }
    QString Selected() const { return Bar().activeAction() == nullptr ? QString() : Bar().activeAction()->text(); }
    QStringList Marked() const;
    bool IsAnyOpen() const { return QApplication::activePopupWidget() != nullptr; }

    std::unique_ptr<TestBench> bench;
};

void win_frmMenuBar::init()
{
    bench = std::make_unique<TestBench>();
    bench->Start();
    bench->Choose(u"mnuFileNew"_s);
    QVERIFY(QTest::qWaitForWindowActive(&bench->Frame()));
    bench->ActiveWindowEdit()->setFocus();
}

// The menus that the bar paints as selected.
QStringList win_frmMenuBar::Marked() const
{
    const QImage picture = Bar().grab().toImage();
    const QColor mark = Bar().palette().color(QPalette::Highlight);
    QStringList marked;
    for (const QAction* menu : Bar().actions())
        if (const QRect place = Bar().actionGeometry(const_cast<QAction*>(menu)); picture.rect().contains(place))
            if (picture.pixelColor(place.left() + 3, place.center().y()) == mark)
                marked.append(menu->text());
    return marked;
}

void win_frmMenuBar::aLetterOfTwoMenusSelectsOneAfterTheOther()
{
    const QStringList order = {u"&Options"_s, u"&Orchard BASIC"_s, u"&Options"_s};
    for (const QString& menu : order) {
        QTest::keyClick(bench->ActiveWindowEdit(), Qt::Key_O, Qt::AltModifier);
        QCOMPARE(Selected(), menu);
        QVERIFY(!IsAnyOpen());
        QCOMPARE(Marked(), QStringList{menu});
    }
    // Without Alt too, once a menu is selected; a key that means nothing does nothing.
    QTest::keyClicks(bench->ActiveWindowEdit(), u"oq"_s);
    QCOMPARE(Selected(), u"&Orchard BASIC"_s);
    QTest::keyClick(bench->ActiveWindowEdit(), Qt::Key_Left);
    QCOMPARE(Selected(), u"&Options"_s);
    QVERIFY(!IsAnyOpen());
    QCOMPARE(TestBench::Text(bench->Active()), QByteArray());
}

void win_frmMenuBar::theSelectedMenuOpensByEnterOrDown()
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Down}) {
        QTest::keyClick(bench->ActiveWindowEdit(), Qt::Key_O, Qt::AltModifier);
        QTest::keyClick(bench->ActiveWindowEdit(), Qt::Key_O);
        QTest::keyClick(bench->ActiveWindowEdit(), key);
        QVERIFY(IsAnyOpen());
        QCOMPARE(QApplication::activePopupWidget()->objectName(), u"mnuOrchard"_s);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        QVERIFY(!IsAnyOpen());
    }
    QTest::keyClick(bench->ActiveWindowEdit(), Qt::Key_X);
    QCOMPARE(TestBench::Text(bench->Active()), QByteArray("x"));
}

void win_frmMenuBar::escapeGivesTheKeyboardBack()
{
    QTest::keyClick(bench->ActiveWindowEdit(), Qt::Key_O, Qt::AltModifier);
    QTest::keyClick(bench->ActiveWindowEdit(), Qt::Key_Escape);
    QCOMPARE(Selected(), QString());
    QTest::keyClick(bench->ActiveWindowEdit(), Qt::Key_X);
    QCOMPARE(TestBench::Text(bench->Active()), QByteArray("x"));
}

void win_frmMenuBar::aLetterOfOneMenuOpensIt()
{
    QTest::keyClick(bench->ActiveWindowEdit(), Qt::Key_T, Qt::AltModifier);
    QVERIFY(IsAnyOpen());
    QCOMPARE(QApplication::activePopupWidget()->objectName(), u"mnuToolS"_s);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
}

void win_frmMenuBar::anEmptyRecentListIsDisabled()
{
    const QAction* list = bench->Frame().Item(u"mnuRecentList"_s);
    QVERIFY(!list->isEnabled());
    bench->Choose(u"mnuFileNew"_s);
    TestBench::Type(bench->Active(), "end\r\n");
    const QString path = bench->Path(u"saved.bas"_s);
    bench->Active()->SetCaption(path);
    bench->Choose(u"mnuFileSave"_s);
    QVERIFY(list->isEnabled());
    list->menu()->popup(QPoint(0, 0));
    QVERIFY(list->menu()->isVisible());
    QCOMPARE(list->menu()->actions().first()->text(), path);
    list->menu()->close();
}

OB_BENCH_TEST(win_frmMenuBar)
#include "win_frmMenuBar.moc"
