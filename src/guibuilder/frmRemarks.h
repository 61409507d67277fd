// SPDX-License-Identifier: GPL-3.0-or-later
// The remarks on a form, in a pane at the bottom of the main window that is in nobody's way.
#pragma once

#include "guibuilder/modRemarks.h"

#include <QDockWidget>

class QListWidget;
class QListWidgetItem;

namespace ob {

class frmRemarks final : public QDockWidget {
    Q_OBJECT

public:
    explicit frmRemarks(QWidget* parent = nullptr);

    // Shows the remarks without taking the keyboard; closes the pane when there are none.
    void ShowRemarks(const std::vector<FormRemark>& shown);

Q_SIGNALS:
    // The user wants to see the control of a remark.
    void ControlWanted(ControlRef control);

private:
    void TakeHeight();
    void Choose(const QListWidgetItem& item);

    QListWidget* lstRemarks = nullptr;
    std::vector<FormRemark> remarks;
};

} // namespace ob
