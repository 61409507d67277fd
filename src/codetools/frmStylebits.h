// SPDX-License-Identifier: GPL-3.0-or-later
// The Stylebits Wizard: checked style bits become a stylebits statement, on the clipboard or in the
// active program.
#pragma once

#include "codetools/frmMaker.h"

#include <memory>

namespace Ui {
class frmStylebits;
}

namespace ob {

struct StylebitsSpec;

class frmStylebits final : public frmMaker {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "stylebits";

    explicit frmStylebits(QWidget* parent = nullptr);
    ~frmStylebits() override;

protected:
    bool HasCode() const override;
    std::optional<QString> FinishedCode() override;
    QString Lost() const override;

private:
    StylebitsSpec Spec() const;
    void ShowPreview();

    void cboObject_Click();
    void cmdCopy_Click();
    void cmdHelp_Click();

    std::unique_ptr<Ui::frmStylebits> ui;
    QString copied; // the statement that is on the clipboard
};

void mnuToolStylebit_Click();

} // namespace ob
