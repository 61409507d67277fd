// SPDX-License-Identifier: GPL-3.0-or-later
// The list of a program's variables.
#include "engine/run/dlgShowVar.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "engine/run/cVariableTable.h"
#include "engine/run/modVariables.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/frmHold.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/work/cWork.h"
#include "shell/state/frmTool.h"
#include "ui_dlgShowVar.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace ob {

// A long text is scanned on a thread of its own; meanwhile it must stay as it is, so that the lines are those of the
// text.
static ScannedText ScanHeld(Sci sci)
{
    const frmHold hold;
    return RunWork([text = QByteArrayView(SciText(sci)).toByteArray()](cWorkLink&) { return ScanText(text); });
}

dlgShowVar::dlgShowVar(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::dlgShowVar>()), document(ActiveDocument())
{
    ui->setupUi(this);
    table = new cVariableTable(ScanHeld(document == nullptr ? nullptr : document->sci), this);
    ui->lvVar->setModel(table);
    ui->lvVar->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    QHeaderView* header = ui->lvVar->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Stretch);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    On(header, &QHeaderView::sectionClicked, this, &dlgShowVar::lvVar_ColumnClick);
    On(ui->lvVar, &QTableView::doubleClicked, this, &dlgShowVar::cmdGoto_Click);
    On(ui->cmdGoto, this, &dlgShowVar::cmdGoto_Click);
    connect(ui->cmdExit, &QPushButton::clicked, this, &QDialog::reject);
}

dlgShowVar::~dlgShowVar() = default;

void dlgShowVar::lvVar_ColumnClick(int column)
{
    order = order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    ui->lvVar->horizontalHeader()->setSortIndicatorShown(true);
    ui->lvVar->horizontalHeader()->setSortIndicator(column, order);
    table->sort(column, order);
}

void dlgShowVar::cmdGoto_Click()
{
    const QModelIndexList chosen = ui->lvVar->selectionModel()->selectedRows();
    if (chosen.isEmpty()) {
        MsgBox(u"No variable is selected."_s, BoxIcon::Critical, BoxButtons::Ok, u"Error"_s);
        return;
    }
    GotoVariableLine(document->sci, table->Entry(chosen.first().row()).line);
}

void mnuToolShowVar_Click()
{
    if (NeedDocument() != nullptr)
        ShowToolModally<dlgShowVar>();
}

} // namespace ob
