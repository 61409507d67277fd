// SPDX-License-Identifier: GPL-3.0-or-later
// The Stylebits Wizard: checked style bits become a stylebits statement on the clipboard.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmStylebits;
}

namespace ob {

struct StylebitsSpec;

class frmStylebits final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "stylebits";

    explicit frmStylebits(QWidget* parent = nullptr);
    ~frmStylebits() override;

private:
    StylebitsSpec Spec() const;
    void ShowPreview();

    void cboObject_Click();
    void cmdCopy_Click();
    void cmdHelp_Click();

    std::unique_ptr<Ui::frmStylebits> ui;
};

void mnuToolStylebit_Click();

} // namespace ob
