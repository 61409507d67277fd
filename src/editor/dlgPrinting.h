// SPDX-License-Identifier: GPL-3.0-or-later
// The progress of a long print, with a Cancel button.
#pragma once

#include "editor/modPrint.h"

#include <QDialog>
#include <QElapsedTimer>

#include <chrono>
#include <memory>

namespace Ui {
class dlgPrinting;
}

namespace ob {

// Appears by itself when the print takes longer than Patience. Until then no key and no click gets through, so that the
// text cannot change; after that, only those for this window.
class dlgPrinting final : public QDialog, public cPrintWatch {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "printing";
    static inline std::chrono::milliseconds Patience{1000}; // changed only by tests

    explicit dlgPrinting(QWidget* parent = nullptr);
    ~dlgPrinting() override;

    PrintRequest NextPage(const PrintPlace& place) override;

private:
    void Show(const PrintPlace& place);

    std::unique_ptr<Ui::dlgPrinting> ui;
    QElapsedTimer clock; // started at the end of the first page
};

void mnuFilePrint_Click();

} // namespace ob
