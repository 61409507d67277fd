// SPDX-License-Identifier: GPL-3.0-or-later
// The panels of a form's status bar in forms wide and narrow.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "guibuilder/modGui.h"
#include "shell/state/Module1.h"

#include <QDialog>
#include <QImage>
#include <QLabel>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QLabel* FirstPanel(TestBench& bench)
{
    for (QLabel* label : bench.Frame().findChildren<QLabel*>())
        if (label->text() == FirstPanelText)
            return label;
    return nullptr;
}

// The right border of a panel is left out.
bool HasInkAtItsEnd(QWidget& label)
{
    constexpr int border = 3;
    const QImage picture = label.grab().toImage();
    const QRgb ground = picture.pixel(picture.width() - border - 1, border);
    for (int y = border; y < picture.height() - border; ++y)
        if (picture.pixel(picture.width() - border - 1, y) != ground)
            return true;
    return false;
}

} // namespace

class win_frmGuiPanels : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textThatHasNoSpaceEndsInDotsAndItsTipIsWhole()
    {
        TestBench bench;
        bench.Start();
        bench.AnswerModals([](QDialog& dialog) { dialog.reject(); });
        bench.Choose(u"mnuFileNewGui"_s);
        GuiForm& form = GuiDesign().form;
        form.GuiStatusbarOn = true;
        form.panels = {FirstPanelText};
        form.width = 9000;
        bench.Frame().RefreshGui();
        QApplication::processEvents();
        QLabel* panel = FirstPanel(bench);
        QVERIFY(panel != nullptr && panel->isVisible());
        panel->grab();
        QCOMPARE(panel->toolTip(), QString());
        form.width = 2700;
        bench.Frame().RefreshGui();
        QApplication::processEvents();
        QVERIFY(panel->fontMetrics().horizontalAdvance(FirstPanelText) > panel->contentsRect().width());
        QVERIFY(!HasInkAtItsEnd(*panel));
        QCOMPARE(panel->toolTip(), FirstPanelText);
        QuitQuery = false;
    }
};

OB_BENCH_TEST(win_frmGuiPanels)
#include "win_frmGuiPanels.moc"
