// SPDX-License-Identifier: GPL-3.0-or-later
// The form builder's palette.
#include "guibuilder/frmPalette.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

namespace ob {

static QCheckBox* MakeSwitch(QWidget* parent, const char* name, const char* icon, const char* tip)
{
    auto* box = new QCheckBox(parent);
    box->setObjectName(QString::fromLatin1(name));
    box->setIcon(QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(icon))));
    box->setToolTip(QString::fromLatin1(tip));
    box->setAccessibleName(QString::fromLatin1(tip));
    return box;
}

frmPalette::frmPalette(QWidget* parent) : QFrame(parent)
{
    setObjectName(QStringLiteral("picGui"));
    setFrameShape(QFrame::StyledPanel);
    auto* heading = new QLabel(QStringLiteral("Gui Tools"), this);
    heading->setObjectName(QStringLiteral("lblGui"));
    cmdGuiX = new QToolButton(this);
    cmdGuiX->setObjectName(QStringLiteral("cmdGuiX"));
    cmdGuiX->setIcon(QIcon(QStringLiteral(":/icons/panel-close.svg")));
    cmdGuiX->setIconSize(QSize(12, 12));
    cmdGuiX->setAutoRaise(true);
    cmdGuiX->setToolTip(QStringLiteral("Close Gui Toolbar"));
    cmdGuiX->setAccessibleName(cmdGuiX->toolTip());
    connect(cmdGuiX, &QToolButton::clicked, this, &frmPalette::CloseWanted);
    chkGrid = MakeSwitch(this, "chkGrid", "grid", "Visible Grid On/Off");
    chkLock = MakeSwitch(this, "chkLock", "lock", "Lock/Unlock Controls");

    auto* top = new QHBoxLayout;
    top->addWidget(heading, 1);
    top->addWidget(cmdGuiX);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(6, 4, 4, 6);
    column->addLayout(top);
    column->addWidget(chkGrid);
    column->addWidget(chkLock);
    column->addStretch(1);
}

} // namespace ob
