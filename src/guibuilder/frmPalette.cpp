// SPDX-License-Identifier: GPL-3.0-or-later
// The form builder's palette.
#include "guibuilder/frmPalette.h"

#include "guibuilder/modGui.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

namespace ob {

namespace {

enum class Needs { Nothing, Form };

struct ToolRow {
    const char* tip;
    const char* icon;
    const char* arms; // KindTraits::toolName; null for a command
    Needs needs;
};

// By their places, from 0.
constexpr ToolRow tools[] = {
    {"New Gui Form", "tool-new-form", nullptr, Needs::Nothing},
    {"Compile to BAS Code with Outline", "tool-compile-outline", nullptr, Needs::Form},
    {"Load Gui Form", "tool-load-form", nullptr, Needs::Nothing},
    {"Save Gui Form", "tool-save-form", nullptr, Needs::Nothing},
    {"Command Button", "tool-button", "Button", Needs::Form},
    {"BmpButton", "tool-bmpbutton", "Bmpbutton", Needs::Form},
    {"StaticText", "tool-statictext", "Statictext", Needs::Form},
    {"GroupBox", "tool-groupbox", "Groupbox", Needs::Form},
    {"TextBox", "tool-textbox", "Textbox", Needs::Form},
    {"TextEditor", "tool-texteditor", "Texteditor", Needs::Form},
    {"CheckBox", "tool-checkbox", "Checkbox", Needs::Form},
    {"RadioButton", "tool-radiobutton", "Radiobutton", Needs::Form},
    {"ListBox", "tool-listbox", "Listbox", Needs::Form},
    {"ComboBox", "tool-combobox", "Combobox", Needs::Form},
    {"GraphicBox", "tool-graphicbox", "Graphicbox", Needs::Form},
    {"Window Defaults", "tool-window-defaults", nullptr, Needs::Form},
    {"Open Menu Editor", "tool-menu-editor", nullptr, Needs::Form},
    {"Compile GUI Code", "tool-compile-simple", nullptr, Needs::Form},
};

// The places in the order shown, two a row: form and program first, then the controls. -1 parts the groups.
constexpr int shown[] = {0, 2, 3, 15, 1, 17, 16, -1, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, -1};

} // namespace

frmPalette::frmPalette(QWidget* parent) : QFrame(parent)
{
    setObjectName(QStringLiteral("picGui"));
    setFrameShape(QFrame::StyledPanel);
    setToolTip(QStringLiteral("Tools and controls for Gui Builder"));
    auto* heading = new QLabel(QStringLiteral("Gui Tools"), this);
    heading->setObjectName(QStringLiteral("lblGui"));
    cmdGuiX = MakeButton("cmdGuiX", "panel-close", QStringLiteral("Close Gui Toolbar"));
    cmdGuiX->setIconSize(QSize(12, 12));
    connect(cmdGuiX, &QToolButton::clicked, this, &frmPalette::CloseWanted);
    chkGrid = MakeButton("chkGrid", "grid", QStringLiteral("Visible Grid On/Off"));
    chkLock = MakeButton("chkLock", "lock", QStringLiteral("Lock/Unlock Controls"));
    for (QToolButton* button : {chkGrid, chkLock})
        button->setCheckable(true);
    connect(chkGrid, &QToolButton::toggled, this, [this](bool down) {
        GuiGridOn = !down;
        Q_EMIT GridSwitched();
    });
    connect(chkLock, &QToolButton::toggled, this, [this](bool down) {
        GuiLocked = down;
        Q_EMIT LockSwitched();
    });

    auto* top = new QHBoxLayout;
    top->addWidget(heading, 1);
    top->addWidget(cmdGuiX);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(6, 4, 4, 6);
    column->addLayout(top);
    MakeTools(*column);
    auto* switches = new QHBoxLayout;
    switches->setSpacing(2);
    switches->addWidget(chkGrid);
    switches->addWidget(chkLock);
    switches->addStretch(1);
    column->addLayout(switches);
    column->addStretch(1);
    Refresh();
}

QToolButton* frmPalette::MakeButton(const char* name, const char* icon, const QString& tip)
{
    auto* button = new QToolButton(this);
    button->setObjectName(QString::fromLatin1(name));
    button->setIcon(QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(icon))));
    button->setIconSize(QSize(20, 20));
    button->setAutoRaise(true);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    return button;
}

void frmPalette::MakeTools(QVBoxLayout& column)
{
    for (std::size_t place = 0; place < std::size(tools); ++place) {
        QToolButton* button = MakeButton("", tools[place].icon, QString::fromLatin1(tools[place].tip));
        button->setObjectName(QStringLiteral("cmdTools%1").arg(place));
        button->setCheckable(tools[place].arms != nullptr);
        connect(button, &QToolButton::clicked, this, [this, place] { Q_EMIT ToolPressed(static_cast<int>(place)); });
        cmdTools.push_back(button);
    }
    usable.assign(cmdTools.size(), true);

    QGridLayout* grid = nullptr;
    int next = 0;
    for (const int place : shown) {
        if (place < 0) {
            auto* line = new QFrame(this);
            line->setFrameShape(QFrame::HLine);
            line->setFrameShadow(QFrame::Sunken);
            column.addWidget(line);
            grid = nullptr;
            continue;
        }
        if (grid == nullptr) {
            grid = new QGridLayout;
            grid->setSpacing(2);
            grid->setColumnStretch(2, 1);
            column.addLayout(grid);
            next = 0;
        }
        grid->addWidget(cmdTools[static_cast<std::size_t>(place)], next / 2, next % 2);
        ++next;
    }
}

void frmPalette::Refresh()
{
    for (std::size_t place = 0; place < std::size(tools); ++place) {
        const ToolRow& row = tools[place];
        cmdTools[place]->setEnabled(row.needs == Needs::Nothing || (GuiFormOpen && usable[place]));
        if (row.arms != nullptr)
            cmdTools[place]->setChecked(GuiPlacing && GuiToolName == QLatin1String(row.arms));
    }
    chkGrid->setChecked(!GuiGridOn);
    chkLock->setChecked(GuiLocked);
}

void frmPalette::EnableTool(int place, bool enable)
{
    usable[static_cast<std::size_t>(place)] = enable;
    Refresh();
}

QString frmPalette::ArmedBy(int place)
{
    return QString::fromLatin1(tools[place].arms);
}

} // namespace ob
