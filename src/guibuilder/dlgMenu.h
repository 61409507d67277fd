// SPDX-License-Identifier: GPL-3.0-or-later
// Edits the menus of the form under design. Each step changes the form at once; there is no cancel.
#pragma once

#include "guibuilder/modMenuEditor.h"

#include <QDialog>

#include <memory>

class QListWidget;
class QPushButton;

namespace Ui {
class dlgMenu;
}

namespace ob {

class dlgMenu final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "menu-editor";

    explicit dlgMenu(QWidget* parent = nullptr);
    ~dlgMenu() override;

    // However the dialog is closed, the designed window's menu bar shows the menus as they are now.
    void done(int result) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Buttons { Off, On };

    // The buttons that a list's keys press.
    struct ListButtons {
        QPushButton* add;
        QPushButton* edit;
        QPushButton* remove;
        QPushButton* up;
        QPushButton* down;
    };

    void ConnectButtons();
    void ConnectLists();
    ListButtons ButtonsOf(const QObject* list) const;

    void lstNames_Click();
    void lstItems_Click(const QListWidget& clicked, QListWidget& other);
    void cmdAddMenu_Click();
    void cmdEditMenu_Click();
    void cmdRemoveMenu_Click();
    void MoveMenuBy(MoveDirection direction);
    void cmdAddItem_Click();
    void cmdEditItem_Click();
    void cmdRemoveItem_Click();
    void MoveItemBy(MoveDirection direction);

    void ReloadNameList(int selected);
    void ReloadItemLists();
    void SelectItem(int item);
    std::optional<QString> ChosenMenu() const;
    std::optional<MenuItemParts> ChosenItem() const;
    void EnableNameButtons(Buttons state);
    void EnableItemButtons(Buttons state);

    std::unique_ptr<Ui::dlgMenu> ui;
    int currentMenu = 0; // kept when no name is selected any more
};

} // namespace ob
