// SPDX-License-Identifier: GPL-3.0-or-later
// The properties of the window under design.
#include "guibuilder/frmColorDefault.h"

#include "guibuilder/cGuiWindow.h"
#include "guibuilder/modGui.h"
#include "guibuilder/modGuiCommands.h"
#include "guibuilder/modWindowDefaults.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/language/modRuntime.h"
#include "shell/state/frmTool.h"
#include "ui_frmColorDefault.h"

#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace ob {

frmColorDefault::frmColorDefault(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmColorDefault>())
{
    ui->setupUi(this);
    for (const std::string_view type : WindowTypes)
        ui->Combo1->addItem(LatinText(type));
    ShowValues(DefaultsOf(GuiDesign().form, ScreenScale()));
    // The first text of every form is whole.
    constexpr int usualCharacters = 36;
    ui->txtStatus->setMinimumWidth(fontMetrics().averageCharWidth() * usualCharacters);
    StatusActive();
    ShowNote();
    // Of a long text the beginning is more useful.
    for (QLineEdit* field : findChildren<QLineEdit*>())
        field->home(false);
    ui->txtCaption->setFocus();
    ui->txtCaption->selectAll();
    On(ui->Combo1, &QComboBox::currentIndexChanged, this, &frmColorDefault::Combo1_Click);
    On(ui->chkMenu, &QCheckBox::toggled, this, &frmColorDefault::chkMenu_Click);
    connect(ui->chkStatusbar, &QCheckBox::toggled, this, [this](bool on) {
        StatusActive();
        ShowStatusNote(on);
    });
    On(ui->cmdFont, this, &frmColorDefault::cmdFont_Click);
    On(ui->OKButton, this, &frmColorDefault::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmColorDefault::~frmColorDefault() = default;

std::array<frmColorPicker*, 7> frmColorDefault::Pickers() const
{
    return {ui->imgCombo0, ui->imgCombo1, ui->imgCombo2, ui->imgCombo3, ui->imgCombo4, ui->imgCombo5, ui->imgCombo6};
}

void frmColorDefault::ShowValues(const WindowDefaults& values)
{
    ui->txtCaption->setText(values.caption);
    ui->txtHandle->setText(values.handle);
    ui->Combo1->setCurrentIndex(ui->Combo1->findText(values.windowType, Qt::MatchExactly | Qt::MatchCaseSensitive));
    ui->txtFont->setText(values.fontName);
    fontSize = values.fontSize;
    ShowFontSize();
    ui->txtWidth->setText(values.width);
    ui->txtHeight->setText(values.height);
    for (std::size_t color = 0; color < values.colors.size(); ++color)
        Pickers()[color]->SelectName(values.colors[color]);
    ui->chkTooltip->setChecked(values.tooltips);
    ui->chkStatusbar->setChecked(values.statusbar);
    ui->chkTimer->setChecked(values.timer);
    ui->chkMenu->setChecked(values.menu);
    ui->txtStatus->setText(values.statusText);
}

WindowDefaults frmColorDefault::Values() const
{
    WindowDefaults values;
    values.caption = ui->txtCaption->text();
    values.handle = ui->txtHandle->text();
    values.windowType = ui->Combo1->currentText();
    values.fontName = ui->txtFont->text();
    values.fontSize = fontSize;
    values.width = ui->txtWidth->text();
    values.height = ui->txtHeight->text();
    for (std::size_t color = 0; color < values.colors.size(); ++color)
        values.colors[color] = Pickers()[color]->Name();
    values.tooltips = ui->chkTooltip->isChecked();
    values.statusbar = ui->chkStatusbar->isChecked();
    values.timer = ui->chkTimer->isChecked();
    values.menu = ui->chkMenu->isChecked();
    values.statusText = ui->txtStatus->text();
    return values;
}

void frmColorDefault::ShowFontSize()
{
    ui->lblFontSize->setText(fontSize + u" pt"_s);
}

void frmColorDefault::ShowNote()
{
    ui->lblGraphics->setText(IsGraphicsType(ui->Combo1->currentText())
                                 ? u"The window's background is GraphicsColor$."_s
                                 : u"GraphicsColor$ is for graphics windows only."_s);
}

void frmColorDefault::StatusActive()
{
    ui->txtStatus->setEnabled(ui->chkStatusbar->isChecked());
}

void frmColorDefault::Combo1_Click()
{
    const QString type = ui->Combo1->currentText();
    const bool hasMenu = !IsDialogType(type);
    if (!hasMenu) {
        const QSignalBlocker quiet(ui->chkMenu);
        ui->chkMenu->setChecked(false);
    }
    ui->chkMenu->setEnabled(hasMenu);
    GuiShowMenu(hasMenu && GuiDesign().form.GuiMenuOn ? MenuBar::Shown : MenuBar::Hidden);
    EnableMenuEditor(type);
    ShowNote();
}

void frmColorDefault::chkMenu_Click()
{
    GuiShowMenu(ui->chkMenu->isChecked() ? MenuBar::Shown : MenuBar::Hidden);
}

void frmColorDefault::cmdFont_Click()
{
    const auto font = FontBox(FontOf(Values()));
    if (!font)
        return;
    ui->txtFont->setText(font->name);
    fontSize = NumberText(font->size);
    ShowFontSize();
}

void frmColorDefault::OKButton_Click()
{
    ApplyDefaults(GuiDesign().form, Values(), ScreenScale());
    accept();
}

DefaultsEnd ShowColorDefault()
{
    frmColorDefault dialog(ToolOwner());
    PrepareTool(dialog, frmColorDefault::ManualPage);
    if (dialog.exec() != QDialog::Accepted)
        return DefaultsEnd::Cancelled;
    GuiWindow->RefreshGui();
    return DefaultsEnd::Confirmed;
}

} // namespace ob
