// SPDX-License-Identifier: GPL-3.0-or-later
// Asks for the purpose of the toolbar code: a new window, or an existing one.
#pragma once

#include <QDialog>
#include <QString>

#include <memory>
#include <optional>

namespace Ui {
class dlgTBOK;
}

namespace ob {

class dlgTBOK final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "toolbar-maker";

    explicit dlgTBOK(QWidget* parent = nullptr);
    ~dlgTBOK() override;

    // After accept(): the handle of the existing window; nothing for a new one.
    std::optional<QString> Handle() const { return handle; }

private:
    void optAdd_Click();
    void OKButton_Click();

    std::unique_ptr<Ui::dlgTBOK> ui;
    std::optional<QString> handle;
};

} // namespace ob
