// SPDX-License-Identifier: GPL-3.0-or-later
// The properties of the window under design.
#pragma once

#include <QDialog>

#include <array>
#include <memory>

namespace Ui {
class frmColorDefault;
}

namespace ob {

class frmColorPicker;
struct WindowDefaults;

class frmColorDefault final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "window-properties";

    explicit frmColorDefault(QWidget* parent = nullptr);
    ~frmColorDefault() override;

private:
    std::array<frmColorPicker*, 7> Pickers() const;
    void ShowValues(const WindowDefaults& values);
    WindowDefaults Values() const;
    void ShowFontSize();
    void ShowNote();
    void StatusActive();
    void Combo1_Click();
    void chkMenu_Click();
    void cmdFont_Click();
    void OKButton_Click();

    std::unique_ptr<Ui::frmColorDefault> ui;
    QString fontSize; // points
};

enum class DefaultsEnd { Cancelled, Confirmed };

// Shows the dialog modally over the main window; OK refreshes the form. The window type and the menu's check box take
// effect at once, and remain when the dialog is cancelled.
DefaultsEnd ShowColorDefault();

} // namespace ob
