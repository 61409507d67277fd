// SPDX-License-Identifier: GPL-3.0-or-later
// Lays out the buttons of a toolbar, saves their pictures as one bitmap and writes the code for it.
#pragma once

#include "codetools/frmMaker.h"
#include "codetools/modToolbarCode.h"

#include <QImage>

#include <memory>

namespace Ui {
class dlgToolbar;
}

namespace ob {

class dlgToolbar final : public frmMaker {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "toolbar-maker";

    explicit dlgToolbar(QWidget* parent = nullptr);
    ~dlgToolbar() override;

protected:
    bool HasCode() const override { return !pictures.isEmpty(); }
    std::optional<QString> FinishedCode() override;
    QString Lost() const override;

private:
    void AddButton(const QImage& picture);
    void ShowButtons();
    void ShowNewest();
    ToolbarSpec Spec() const;

    void cmdAdd_Click();
    void cmdStandard_Click();
    void cmdRemove_Click();
    void OKButton_Click();

    std::unique_ptr<Ui::dlgToolbar> ui;
    QList<QImage> pictures;
};

void mnuToolbar_Click();

} // namespace ob
