// SPDX-License-Identifier: GPL-3.0-or-later
// What the windows of all makers of code share: inserting at the caret, Enter in fields, the question before a loss.
#pragma once

#include <QDialog>
#include <QList>

#include <optional>

class QLineEdit;
class QPushButton;

namespace ob {

class frmInsertButton;

class frmMaker : public QDialog {
    Q_OBJECT

public:
    explicit frmMaker(QWidget* parent);

protected:
    // The button inserts the code at the caret of the active program, as one step of undo, and closes the window. It is
    // grey while no program is active, or there is no code.
    void SetInsertButton(QPushButton* button);
    void RefreshInsert();

    // Enter in one of the fields goes to the next one that is enabled; in the last it presses the default button.
    void SetEnterOrder(const QList<QLineEdit*>& fields);

    // Whether the maker has code to insert now.
    virtual bool HasCode() const { return true; }

    // The code to pass on, after whatever the maker asks for first; nothing when the user went back.
    virtual std::optional<QString> FinishedCode() = 0;

    // What would be lost if the window closed now, as AskBeforeLoss wants it.
    virtual QString Lost() const = 0;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    frmInsertButton* insert = nullptr; // belongs to its button
    QList<QLineEdit*> enterOrder;
};

} // namespace ob
