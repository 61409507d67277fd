// SPDX-License-Identifier: GPL-3.0-or-later
// The form under design as a child window.
#include "guibuilder/frmGui.h"

#include "editor/modDocument.h"
#include "guibuilder/frmSurface.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/modDialogs.h"
#include "shell/Module1.h"
#include "shell/cMainForm.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace ob {

namespace {

constexpr int MenuHeight = 20; // pixels

// The look of the generated window, whatever the bench's own colours are.
constexpr char PlainLook[] = "background: #f0f0f0; color: #000000;";

int Pixels(float twips, int twipsPerPixel)
{
    constexpr double limit = 16000;
    return static_cast<int>(std::clamp(std::round(static_cast<double>(twips) / twipsPerPixel), -limit, limit));
}

QRect WindowRect()
{
    return {Pixels(GuiDesign.left, TwipsPerPixelX), Pixels(GuiDesign.top, TwipsPerPixelY),
            Pixels(GuiDesign.width, TwipsPerPixelX), Pixels(GuiDesign.height, TwipsPerPixelY)};
}

// The menu bar of the designed window: "&" underlines, as it will there.
class MenuBarLabel final : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), QColor(240, 240, 240));
        painter.setPen(Qt::black);
        painter.drawText(rect().adjusted(6, 0, 0, 0), Qt::AlignVCenter | Qt::TextShowMnemonic | Qt::TextSingleLine,
                         text());
    }
};

void TakeChange(float& twips, int now, int before, int twipsPerPixel)
{
    if (now != before)
        twips = static_cast<float>(now * twipsPerPixel);
}

} // namespace

frmGui::frmGui(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("frmGui"));
    GuiFormLoaded();
    setWindowIcon(QIcon(QStringLiteral(":/icons/form.svg")));

    lblMenu = new MenuBarLabel(this);
    lblMenu->setObjectName(QStringLiteral("lblMenu"));
    lblMenu->setTextFormat(Qt::PlainText);
    // The text may be long, the window narrow.
    lblMenu->setMinimumWidth(0);
    lblMenu->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    lblMenu->installEventFilter(this);
    picBase = new frmSurface(this);
    MakeStatusBar();

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(lblMenu);
    column->addWidget(picBase, 1);
    column->addWidget(sBar);
    setFocusProxy(picBase);
    Refresh();
}

void frmGui::MakeStatusBar()
{
    sBar = new QWidget(this);
    sBar->setObjectName(QStringLiteral("sBar"));
    sBar->setAttribute(Qt::WA_StyledBackground);
    sBar->setStyleSheet(QStringLiteral("#sBar, #sBar QLabel { %1 }").arg(QLatin1String(PlainLook)));
    sBar->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    sBar->installEventFilter(this);
    lblStatusbar = new QLabel(QStringLiteral("Click Statusbar to Add or Remove Panels"), sBar);
    lblStatusbar->setObjectName(QStringLiteral("lblStatusbar"));
    lblStatusbar->setStyleSheet(QStringLiteral("color: #606060;"));
    panelRow = new QHBoxLayout(sBar);
    panelRow->setContentsMargins(2, 2, 6, 2);
    panelRow->setSpacing(2);
    panelRow->addStretch(1);
    panelRow->addWidget(lblStatusbar);
}

void frmGui::Join(QMdiSubWindow& window)
{
    frame = &window;
    frame->setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    frame->installEventFilter(this);
    Refresh();
}

void frmGui::PlaceWindow()
{
    const QRect wanted = WindowRect();
    if (frame == nullptr || wanted == wantedRect || frame->isMinimized())
        return;
    wantedRect = wanted;
    shownRect = {};
    frame->setGeometry(wanted);
    shownRect = frame->geometry();
}

// Only a side that the user has drawn elsewhere gets a new measure: those of a file may have fractions, and be too
// small for a window of this desktop.
void frmGui::TakeWindowRect()
{
    const QRect now = frame->geometry();
    if (frame->isMinimized() || frame->isMaximized() || !shownRect.isValid() || !frame->isVisible())
        return;
    TakeChange(GuiDesign.left, now.x(), shownRect.x(), TwipsPerPixelX);
    TakeChange(GuiDesign.top, now.y(), shownRect.y(), TwipsPerPixelY);
    TakeChange(GuiDesign.width, now.width(), shownRect.width(), TwipsPerPixelX);
    TakeChange(GuiDesign.height, now.height(), shownRect.height(), TwipsPerPixelY);
    shownRect = now;
    wantedRect = WindowRect();
}

void frmGui::ShowPanels()
{
    const std::vector<QString>& texts = GuiDesign.panels;
    while (panelLabels.size() > texts.size()) {
        delete panelLabels.back();
        panelLabels.pop_back();
    }
    while (panelLabels.size() < texts.size()) {
        auto* label = new QLabel(sBar);
        label->setTextFormat(Qt::PlainText);
        label->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
        label->setMinimumWidth(20);
        panelRow->insertWidget(static_cast<int>(panelLabels.size()), label);
        panelLabels.push_back(label);
    }
    for (std::size_t panel = 0; panel < texts.size(); ++panel)
        panelLabels[panel]->setText(texts[panel]);
    sBar->setVisible(GuiDesign.GuiStatusbarOn);
}

void frmGui::Refresh()
{
    setWindowTitle(GuiDesign.caption);
    lblMenu->setFixedHeight(GuiDesign.GuiMenuOn ? MenuHeight : 0);
    lblMenu->setVisible(GuiDesign.GuiMenuOn);
    lblMenu->setText(GuiDesign.menuLabel);
    ShowPanels();
    if (GuiFormLoading)
        picBase->Restart();
    else
        picBase->Refresh();
    PlaceWindow();
}

void frmGui::Activate()
{
    MainForm->EnableItem(QStringLiteral("mnuEdit"), false);
    EnableCodeCommands(Switch::Off);
    EnableRunCommands(Switch::On);
    picBase->Refresh();
    picBase->setFocus();
}

void frmGui::closeEvent(QCloseEvent* event)
{
    // The question is about this form, and saving asks for the active child.
    if (frame != nullptr && frame->mdiArea() != nullptr && GuiFormModified)
        frame->mdiArea()->setActiveSubWindow(frame);
    UnloadAnswer answer = UnloadAnswer::Stay;
    RunCommand([&] { answer = QueryGuiUnload(); });
    if (answer == UnloadAnswer::Stay) {
        event->ignore();
        return;
    }
    frame = nullptr;
    GuiFormUnloaded();
    EnableRunCommands(Switch::Off);
    event->accept();
    Q_EMIT Unloaded(this);
}

void frmGui::mouseReleaseEvent(QMouseEvent* event)
{
    picBase->Designer().ClearSelection();
    picBase->update();
    if (event->button() == Qt::RightButton)
        RunCommand([this] { picBase->ShowWindowDefaults(); });
}

bool frmGui::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == frame && frame != nullptr) {
        if (event->type() == QEvent::WindowStateChange && frame->isMaximized())
            frame->showNormal();
        else if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
            TakeWindowRect();
        return false;
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        const Qt::MouseButton button = static_cast<QMouseEvent*>(event)->button();
        RunCommand([&] {
            if (watched == lblMenu)
                lblMenu_Click(button);
            else
                sBar_Click();
        });
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void frmGui::lblMenu_Click(Qt::MouseButton button)
{
    if (button != Qt::LeftButton && MsgBox(QStringLiteral("Do you want to remove the menu?"), BoxIcon::Question,
                                           BoxButtons::YesNo, QStringLiteral("MenuBar")) == BoxAnswer::Yes) {
        GuiShowMenu(MenuBar::Hidden);
        picBase->Designer().Commit();
        return;
    }
    picBase->ShowMenuEditor();
}

void frmGui::sBar_Click()
{
    const BoxAnswer answer =
        MsgBox(QStringLiteral("Click YES to add a panel.  Click NO to delete a panel."), BoxIcon::Question,
               BoxButtons::YesNoCancel, QStringLiteral("Would you like to add a panel?"));
    if (answer == BoxAnswer::Yes) {
        const auto text = InputBox(QStringLiteral("Panel Caption?"), {}, {});
        if (!text)
            return;
        GuiDesign.panels.push_back(*text);
    } else if (answer == BoxAnswer::No && GuiDesign.panels.size() > 1) {
        GuiDesign.panels.pop_back();
    } else if (answer == BoxAnswer::No) {
        MsgBox(QStringLiteral("You cannot remove the first panel."), BoxIcon::Critical);
        return;
    }
    picBase->Designer().Commit();
    Refresh();
}

} // namespace ob
