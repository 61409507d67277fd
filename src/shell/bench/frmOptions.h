// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences.
#pragma once

#include "shell/bench/modPreferences.h"

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class frmOptions;
}

namespace ob {

class frmOptions final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "preferences";

    explicit frmOptions(QWidget* parent = nullptr);
    ~frmOptions() override;

private:
    void ConnectRow(const PreferenceRow& row);
    void ConnectButtons();
    void OnClick(const char* button, std::function<void()> handler);
    QWidget& Control(const char* name) const;

    void ShowFields();
    void ShowField(const PreferenceRow& row);
    void ShowSamples();
    void ShowSampleFonts();

    void cmdFont_Click();
    void txtTabSize_Change();
    void Browse_Click(const PreferenceRow& row);
    void optColor_Click();
    void ColorSample_Click(const PreferenceRow& row);
    void chkDefaultColors_Click();
    void cmdAssoc_Click();
    void cmdApply_Click();
    void NextTab();

    std::unique_ptr<Ui::frmOptions> ui;
    Preferences values;
};

void mnuShowOptions_Click();

} // namespace ob
