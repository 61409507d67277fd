// SPDX-License-Identifier: GPL-3.0-or-later
// How tool windows come and go.
#include "shell/frmTool.h"

#include "shell/frmHelp.h"

#include <QShortcut>

namespace ob {

QWidget* ToolOwner()
{
    return dynamic_cast<QWidget*>(MainForm);
}

void BindManualPage(QWidget& tool, const char* page)
{
    auto* key = new QShortcut(QKeySequence(Qt::Key_F1), &tool);
    QObject::connect(key, &QShortcut::activated, &tool,
                     [page] { RunCommand([page] { ShowManual(QString::fromLatin1(page)); }); });
}

} // namespace ob
