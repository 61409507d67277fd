// SPDX-License-Identifier: GPL-3.0-or-later
// The Array Maker: a list of items becomes the code of an array, on the clipboard.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmArray;
}

namespace ob {

struct ArraySpec;

class frmArray final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "array-maker";

    explicit frmArray(QWidget* parent = nullptr);
    ~frmArray() override;

private:
    ArraySpec Spec() const;
    void ShowPreview();

    void cmdAdd_Click();
    void OKButton_Click();

    std::unique_ptr<Ui::frmArray> ui;
    QString items; // each preceded by "|"
};

void mnuToolArray_Click();

} // namespace ob
