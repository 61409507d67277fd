// SPDX-License-Identifier: GPL-3.0-or-later
// How far a long print is, with a way out.
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

// Comes up by itself when the print takes longer than Patience. Until then no key and no click gets through, so that
// nothing happens to the text; then only those for this window.
class dlgPrinting final : public QDialog, public cPrintWatch {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "printing";
    static inline std::chrono::milliseconds Patience{1000}; // only tests change it

    explicit dlgPrinting(QWidget* parent = nullptr);
    ~dlgPrinting() override;

    PrintWish NextPage(const PrintPlace& place) override;

private:
    void Show(const PrintPlace& place);

    std::unique_ptr<Ui::dlgPrinting> ui;
    QElapsedTimer clock; // runs from the end of the first page on
};

void mnuFilePrint_Click();

} // namespace ob
