// SPDX-License-Identifier: GPL-3.0-or-later
// The program's own help: a window over the manual's pages, with contents, search, back and forward.
#pragma once

#include "shell/help/cManualHistory.h"

#include <QDialog>
#include <QString>

#include <memory>

class QListWidgetItem;
class QTreeWidgetItem;
class QUrl;

namespace Ui {
class frmHelp;
}

namespace ob {

class frmHelpResults;

class frmHelp final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "index";

    explicit frmHelp(QWidget* parent);
    ~frmHelp() override;

    // Goes to a place; a missing page is replaced by one that says so.
    void GoTo(const ManualPlace& place);

    ManualPlace Here() const { return history.IsEmpty() ? ManualPlace() : history.Here().place; }

    // A window under a modal one cannot be used, so this one belongs to the modal window while that is open.
    void Attach(QWidget* modal);

private:
    void cmdBack_Click();
    void cmdForward_Click();
    void cmdContents_Click();
    void treeContents_Click(const QTreeWidgetItem* item);
    void txtSearch_Change();
    void txtSearch_Return();
    void lstResults_Click(const QListWidgetItem* item);
    void txtPage_Click(const QUrl& link);

    bool eventFilter(QObject* watched, QEvent* event) override;

    void ConnectControls();
    void MakeKeys();
    void FillContents();
    void ShowHere();
    void ShowInContents();
    void LeavePage();

    std::unique_ptr<Ui::frmHelp> ui;
    frmHelpResults* look = nullptr;
    cManualHistory history;
};

// Opens the manual, created on first use, at a page ("preferences"); the empty name is the contents page.
void ShowManual(const QString& page);

void mnuHelpInstruct_Click();

} // namespace ob
