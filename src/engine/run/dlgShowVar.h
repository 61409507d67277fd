// SPDX-License-Identifier: GPL-3.0-or-later
// The list of a program's variables.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class dlgShowVar;
}

namespace ob {

class cDocument;
class cVariableTable;

class dlgShowVar final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "show-variables";

    explicit dlgShowVar(QWidget* parent = nullptr);
    ~dlgShowVar() override;

private:
    void lvVar_ColumnClick(int column);
    void cmdGoto_Click();

    std::unique_ptr<Ui::dlgShowVar> ui;
    cDocument* document = nullptr;
    cVariableTable* table = nullptr;
    Qt::SortOrder order = Qt::DescendingOrder; // the first click changes it to ascending
};

// Shows a message when there is no code window.
void mnuToolShowVar_Click();

} // namespace ob
