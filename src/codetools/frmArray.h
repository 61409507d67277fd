// SPDX-License-Identifier: GPL-3.0-or-later
// The Array Maker: a list of items becomes the code of an array, on the clipboard or in the active program.
#pragma once

#include "codetools/frmMaker.h"

#include <memory>

namespace Ui {
class frmArray;
}

namespace ob {

struct ArraySpec;

class frmArray final : public frmMaker {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "array-maker";

    explicit frmArray(QWidget* parent = nullptr);
    ~frmArray() override;

protected:
    std::optional<QString> FinishedCode() override;
    QString Lost() const override;

private:
    ArraySpec Spec() const;
    QString AllItems() const;
    void ShowPreview();

    void Text2_Change();
    void cmdAdd_Click();
    void cmdRemove_Click();
    void OKButton_Click();

    std::unique_ptr<Ui::frmArray> ui;
    QString items; // each preceded by "|"
};

void mnuToolArray_Click();

} // namespace ob
