// SPDX-License-Identifier: GPL-3.0-or-later
// The chart of the language's colour names. Escape closes it, like every dialog.
#include "imagetools/colors/frmColorNames.h"

#include "shell/state/frmTool.h"
#include "ui_frmColorNames.h"

namespace ob {

frmColorNames::frmColorNames(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmColorNames>())
{
    ui->setupUi(this);
}

frmColorNames::~frmColorNames() = default;

void mnuColorNames_Click()
{
    ShowToolModally<frmColorNames>();
}

} // namespace ob
