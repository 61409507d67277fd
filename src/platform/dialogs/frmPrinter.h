// SPDX-License-Identifier: GPL-3.0-or-later
// The system's printers.
#pragma once

#include "platform/dialogs/modPrinter.h"

class QPrinter;

namespace ob {

class frmPrinter final : public cPrinting {
public:
    bool HasDefaultPrinter() override;
    std::unique_ptr<cPrintJob> StartOnDefaultPrinter(const QString& title) override;
};

// A job on a printer that has been set up; null when the printer cannot be used.
std::unique_ptr<cPrintJob> StartOn(std::unique_ptr<QPrinter> printer);

// The printers in use: the system's, or those that a test has set instead. The owner keeps them alive; null restores
// the system's. Returns what a test had set before.
cPrinting& Printing();
cPrinting* SetPrinting(cPrinting* printing);

} // namespace ob
