// SPDX-License-Identifier: GPL-3.0-or-later
// The progress of making a package, with a Cancel button.
#include "engine/run/dlgProcess.h"

#include "ui_dlgProcess.h"

#include <algorithm>

namespace ob {

dlgProcess::dlgProcess(Leaving howLeft, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::dlgProcess>()), leaving(howLeft)
{
    ui->setupUi(this);
    ui->cmdCancel->setVisible(leaving == Leaving::Allowed);
    resize(width(), sizeHint().height());
    connect(ui->cmdCancel, &QPushButton::clicked, this, &dlgProcess::reject);
}

dlgProcess::~dlgProcess() = default;

void dlgProcess::ShowState(const QString& text, double share)
{
    // A long name must not widen the window.
    const int width = ui->lblProcess->width();
    ui->lblProcess->setText(ui->lblProcess->fontMetrics().elidedText(text, Qt::ElideMiddle, width));
    ui->lblProcess->setAccessibleName(text);
    ui->pgbProcess->setValue(static_cast<int>(std::clamp(share, 0.0, 1.0) * ui->pgbProcess->maximum()));
}

void dlgProcess::reject()
{
    if (leaving == Leaving::NotAllowed)
        return;
    isCancelled = true;
    QDialog::reject();
}

} // namespace ob
