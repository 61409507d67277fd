// SPDX-License-Identifier: GPL-3.0-or-later
// The Syntax Viewer: every word of the catalogue, and the syntax of the selected one.
#pragma once

#include <QDialog>

#include <memory>
#include <string_view>
#include <vector>

namespace Ui {
class frmSyntax;
}

namespace ob {

// Resets itself each time it becomes active after another window of the program.
class frmSyntax final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "code-window";

    explicit frmSyntax(QWidget* parent = nullptr);
    ~frmSyntax() override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Form_Activate();
    void cmbList_Click(int index);
    void cmdCopy_Click();

    std::unique_ptr<Ui::frmSyntax> ui;
    std::vector<std::string_view> rows;
    bool startsAfresh = true;
    bool isClosing = false;
};

void mnuSyntaxViewer_Click();

} // namespace ob
