// SPDX-License-Identifier: GPL-3.0-or-later
// The Menu Maker: items, added one by one, become a menu statement on the clipboard or in the active program.
#pragma once

#include "codetools/frmMaker.h"
#include "codetools/modMenuCode.h"

#include <QSet>

#include <memory>

namespace Ui {
class frmMenuMaker;
}

namespace ob {

class frmMenuMaker final : public frmMaker {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "menu-maker";

    explicit frmMenuMaker(QWidget* parent = nullptr);
    ~frmMenuMaker() override;

protected:
    std::optional<QString> FinishedCode() override;
    QString Lost() const override;

private:
    MenuSpec Spec() const;
    MenuTail WholeTail() const;
    bool HasTypedItem() const;
    void EmptyItem();
    void ShowPreview();

    void optType_Click();
    void cmdAdd_Click();
    void cmdRemove_Click();
    void cmdCopy_Click();

    std::unique_ptr<Ui::frmMenuMaker> ui;
    MenuTail tail;
    QSet<const QLineEdit*> typed; // the fields of the item that the user has changed
    QList<qsizetype> ends;        // the length of the tail's list before each item
};

void mnuMaker_Click();

} // namespace ob
