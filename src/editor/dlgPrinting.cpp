// SPDX-License-Identifier: GPL-3.0-or-later
// The progress of a long print, with a Cancel button.
#include "editor/dlgPrinting.h"

#include "platform/dialogs/frmPrinter.h"
#include "platform/work/cWork.h"
#include "shell/state/frmTool.h"

#include "ui_dlgPrinting.h"

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr int WholeBar = 1000;

} // namespace

dlgPrinting::dlgPrinting(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::dlgPrinting>())
{
    ui->setupUi(this);
    ui->pgbPages->setMaximum(WholeBar);
    setModal(true);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

dlgPrinting::~dlgPrinting() = default;

PrintRequest dlgPrinting::NextPage(const PrintPlace& place)
{
    if (!clock.isValid())
        clock.start();
    if (!isVisible() && !clock.hasExpired(Patience.count())) {
        LetEventsRun(QEventLoop::ExcludeUserInputEvents);
        return PrintRequest::GoOn;
    }
    Show(place);
    LetEventsRun();
    return isVisible() ? PrintRequest::GoOn : PrintRequest::Stop;
}

void dlgPrinting::Show(const PrintPlace& place)
{
    const bool isSending = place.work == PrintWork::Sending;
    ui->lblPage->setText(isSending ? u"Sending page %1 of %2 to the printer"_s.arg(place.page).arg(place.all)
                                   : u"Page %1"_s.arg(place.page));
    ui->pgbPages->setValue(static_cast<int>(place.done * WholeBar / std::max<std::intptr_t>(1, place.all)));
    show();
}

void mnuFilePrint_Click()
{
    dlgPrinting watch(ToolOwner());
    PrepareTool(watch, dlgPrinting::ManualPage);
    PrintActiveDocument(Printing(), watch);
}

} // namespace ob
