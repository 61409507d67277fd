// SPDX-License-Identifier: GPL-3.0-or-later
// The editor of the user's own keywords for the colouring.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmKeywords;
}

namespace ob {

class frmKeywords final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "custom-keywords";

    explicit frmKeywords(QWidget* parent = nullptr);
    ~frmKeywords() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void cmdOkay_Click();
    void cmdDelete_Click();

    std::unique_ptr<Ui::frmKeywords> ui;
};

void mnuOptionsKeywords_Click();

} // namespace ob
