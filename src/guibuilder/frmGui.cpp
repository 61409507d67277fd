// SPDX-License-Identifier: GPL-3.0-or-later
// The form under design as a child window.
#include "guibuilder/frmGui.h"

#include "editor/document/modDocument.h"
#include "guibuilder/frmSurface.h"
#include "guibuilder/frmSurfaceStyle.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/dialogs/modDialogs.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modIcons.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// All in pixels.
constexpr int MenuHeight = 20;
constexpr int LeastWidth = 120;
constexpr int LeastHeight = 60;

int Pixels(float twips, int twipsPerPixel)
{
    constexpr double limit = 16000;
    return static_cast<int>(std::clamp(std::round(static_cast<double>(twips) / twipsPerPixel), -limit, limit));
}

// The menu bar of the designed window: "&" underlines, as it will there.
class MenuBarLabel final : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Window));
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(rect().adjusted(6, 0, 0, 0), Qt::AlignVCenter | Qt::TextShowMnemonic | Qt::TextSingleLine,
                         text());
    }
};

// A panel of the status bar. In a form that is too narrow for its text, the text ends in dots and the tip has all of
// it.
class PanelLabel final : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        drawFrame(&painter);
        const QRect room = contentsRect();
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, room.width());
        setToolTip(shown == text() ? QString() : text());
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(room, Qt::AlignVCenter | Qt::TextSingleLine, shown);
    }
};

void TakeChange(float& twips, int before, int change, int twipsPerPixel)
{
    if (change != 0)
        twips = static_cast<float>((before + change) * twipsPerPixel);
}

} // namespace

frmGui::frmGui(cDesigner& target, QWidget* parent) : QWidget(parent), designer(target), design(target.Design())
{
    setObjectName(u"frmGui"_s);
    GuiFormLoaded();
    designer.FormLoaded();
    setWindowIcon(BenchIcon(u"form"_s, IconGround::Title));

    lblMenu = new MenuBarLabel(this);
    lblMenu->setObjectName(u"lblMenu"_s);
    lblMenu->setTextFormat(Qt::PlainText);
    // The text may be long, the window narrow.
    lblMenu->setMinimumWidth(0);
    lblMenu->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    lblMenu->installEventFilter(this);
    picBase = new frmSurface(designer, this);
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
    sBar->setObjectName(u"sBar"_s);
    QPalette plain;
    plain.setColor(QPalette::Window, QColor(240, 240, 240));
    plain.setColor(QPalette::WindowText, Qt::black);
    sBar->setPalette(plain);
    sBar->setAutoFillBackground(true);
    sBar->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    sBar->installEventFilter(this);
    lblStatusbar = new QLabel(u"Click Statusbar to Add or Remove Panels"_s, sBar);
    lblStatusbar->setObjectName(u"lblStatusbar"_s);
    lblStatusbar->setAutoFillBackground(true);
    lblStatusbar->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // The panels need their space first.
    lblStatusbar->setMinimumWidth(0);
    lblStatusbar->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    panelRow = new QHBoxLayout(sBar);
    panelRow->setContentsMargins(2, 2, 6, 2);
    panelRow->setSpacing(2);
    panelRow->setSizeConstraint(QLayout::SetNoConstraint);
    panelRow->addWidget(lblStatusbar, 1);
}

void frmGui::Join(QMdiSubWindow& window)
{
    frame = &window;
    frame->setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    frame->setWindowIcon(windowIcon());
    frame->installEventFilter(this);
    Refresh();
}

// The form's rectangle for its window, in pixels.
QRect frmGui::FormRect() const
{
    const SurfaceScale scale = designer.Scale();
    return {Pixels(design.form.left, scale.x), Pixels(design.form.top, scale.y), Pixels(design.form.width, scale.x),
            Pixels(design.form.height, scale.y)};
}

void frmGui::PlaceWindow()
{
    const QRect wanted = FormRect();
    if (frame == nullptr || wanted == wantedRect || frame->isMinimized())
        return;
    wantedRect = wanted;
    shownRect = {};
    // Whatever the form's rectangle, part of the frame must stay within reach.
    const QSize size = wanted.size().expandedTo(QSize(LeastWidth, LeastHeight));
    shownScroll = ScrollPlace();
    frame->setGeometry(QRect(wanted.topLeft() - shownScroll, size));
    shownRect = frame->geometry();
}

QPoint frmGui::ScrollPlace() const
{
    const QMdiArea* area = frame->mdiArea();
    return area == nullptr ? QPoint()
                           : QPoint(area->horizontalScrollBar()->value(), area->verticalScrollBar()->value());
}

// Only a side that the user has moved gets a new value: those of a file may have fractions, or be too small for a
// window of this desktop.
void frmGui::TakeWindowRect()
{
    const QRect now = frame->geometry();
    if (frame->isMinimized() || frame->isMaximized() || !shownRect.isValid() || !frame->isVisible())
        return;
    // Scrolling the area moves the frame, not the form.
    const QPoint scroll = ScrollPlace();
    const QPoint moved = now.topLeft() - shownRect.topLeft() + (scroll - shownScroll);
    const SurfaceScale screen = designer.Scale();
    TakeChange(design.form.left, wantedRect.x(), moved.x(), screen.x);
    TakeChange(design.form.top, wantedRect.y(), moved.y(), screen.y);
    TakeChange(design.form.width, shownRect.width(), now.width() - shownRect.width(), screen.x);
    TakeChange(design.form.height, shownRect.height(), now.height() - shownRect.height(), screen.y);
    shownRect = now;
    shownScroll = scroll;
    wantedRect = FormRect();
}

// A form cannot be maximized: its size is part of it. What was set while it was minimized shows when it is restored.
void frmGui::TakeWindowState()
{
    const bool refused = frame->isMaximized();
    shownRect = {};
    wantedRect = {};
    if (refused)
        frame->showNormal();
    QTimer::singleShot(0, this, [this] { PlaceWindow(); });
}

void frmGui::ShowPanels()
{
    const std::vector<QString>& texts = design.form.panels;
    while (panelLabels.size() > texts.size()) {
        delete panelLabels.back();
        panelLabels.pop_back();
    }
    while (panelLabels.size() < texts.size()) {
        auto* label = new PanelLabel(sBar);
        label->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
        label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
        label->setMinimumWidth(20);
        panelRow->insertWidget(static_cast<int>(panelLabels.size()), label);
        panelLabels.push_back(label);
    }
    for (std::size_t panel = 0; panel < texts.size(); ++panel)
        panelLabels[panel]->setText(texts[panel]);
    sBar->setVisible(design.form.GuiStatusbarOn);
}

void frmGui::Refresh()
{
    setWindowTitle(design.form.caption);
    lblMenu->setFixedHeight(design.form.GuiMenuOn ? MenuHeight : 0);
    lblMenu->setVisible(design.form.GuiMenuOn);
    lblMenu->setText(design.form.menuLabel);
    ShowPanels();
    lblStatusbar->setVisible(design.GuiStatusNoteOn);
    picBase->Refresh();
    TakeColors();
    PlaceWindow();
}

// The labels have the window's colours, the status bar's panels those of the desktop that the program will run on.
void frmGui::TakeColors()
{
    const SurfaceStyle& style = picBase->Style();
    for (QLabel* label : {lblMenu, lblStatusbar}) {
        QPalette colors = label->palette();
        colors.setColor(QPalette::Window, style.surface);
        colors.setColor(QPalette::WindowText, style.fore);
        label->setPalette(colors);
    }
}

void frmGui::Activate()
{
    MainForm->EnableItem(u"mnuEdit"_s, false);
    EnableCodeCommands(Switch::Off);
    EnableRunCommands(Switch::On);
    picBase->Refresh();
    picBase->setFocus();
}

void frmGui::BringUp()
{
    if (frame != nullptr && frame->mdiArea() != nullptr)
        frame->mdiArea()->setActiveSubWindow(frame);
}

void frmGui::ArmTool(const QString& toolName)
{
    BringUp();
    picBase->ArmTool(toolName);
}

void frmGui::ShowControl(ControlRef control)
{
    BringUp();
    picBase->ShowControl(control);
}

void frmGui::closeEvent(QCloseEvent* event)
{
    // The question is about this form, and saving applies to the active child.
    if (design.GuiFormModified)
        BringUp();
    UnloadAnswer answer = UnloadAnswer::Stay;
    RunCommand([&] { answer = QueryGuiUnload(); });
    if (answer == UnloadAnswer::Stay) {
        event->ignore();
        return;
    }
    frame = nullptr;
    GuiFormUnloaded();
    designer.FormUnloaded();
    EnableRunCommands(Switch::Off);
    event->accept();
    Q_EMIT Unloaded(this);
}

void frmGui::mouseReleaseEvent(QMouseEvent* event)
{
    designer.ClearSelection();
    picBase->update();
    if (event->button() == Qt::RightButton)
        RunCommand([this] { picBase->ShowWindowDefaults(); });
}

bool frmGui::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == frame && frame != nullptr) {
        if (event->type() == QEvent::WindowStateChange)
            TakeWindowState();
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
    if (button != Qt::LeftButton && MsgBox(u"Do you want to remove the menu?"_s, BoxIcon::Question, BoxButtons::YesNo,
                                           u"MenuBar"_s) == BoxAnswer::Yes) {
        GuiShowMenu(MenuBar::Hidden);
        designer.Commit();
        return;
    }
    picBase->ShowMenuEditor();
}

void frmGui::sBar_Click()
{
    const BoxAnswer answer = MsgBox(u"Click YES to add a panel.  Click NO to delete a panel."_s, BoxIcon::Question,
                                    BoxButtons::YesNoCancel, u"Would you like to add a panel?"_s);
    if (answer == BoxAnswer::Yes) {
        const auto text = InputBox(u"Panel Caption?"_s, {}, {});
        if (!text)
            return;
        design.form.panels.push_back(*text);
    } else if (answer == BoxAnswer::No && design.form.panels.size() > 1) {
        design.form.panels.pop_back();
    } else if (answer == BoxAnswer::No) {
        MsgBox(u"You cannot remove the first panel."_s, BoxIcon::Critical);
        return;
    }
    designer.Commit();
    Refresh();
}

} // namespace ob
