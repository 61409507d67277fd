// SPDX-License-Identifier: GPL-3.0-or-later
// Where pages go that the program prints: the default printer, or a PDF file.
#pragma once

#include <QSize>
#include <QString>

#include <functional>
#include <memory>

class QPainter;

namespace ob {

enum class PrinterState { Ready, Failed, TakenBack };

// How far the pages have been given away, and what the caller wants then: TakeBack is what some printing systems can
// do, and where they cannot, the rest goes out too.
struct SendingPlace {
    int page = 1;
    int pages = 1;
};
enum class SendingWish { GoOn, TakeBack };
using SendingTurn = std::function<SendingWish(const SendingPlace& place)>;

// One print job, from its first page on, which is open. Nothing comes out of the printer, and no file is written,
// before End has been called: a job that is let go without it leaves nothing behind.
class cPrintJob {
public:
    cPrintJob() = default;
    cPrintJob(const cPrintJob&) = delete;
    cPrintJob& operator=(const cPrintJob&) = delete;
    virtual ~cPrintJob() = default;

    // Draws on the page that is open; 0, 0 is the upper left corner of the part that can be printed on, and the unit
    // is the device's pixel.
    virtual QPainter& Painter() = 0;

    // Width and height of that part, in device pixels.
    virtual QSize ScaleSize() const = 0;

    virtual PrinterState NewPage() = 0;

    // Gives the pages to the printer or to the file; a printer that takes long calls `turn` between two pages. A file
    // that cannot be written raises as ReplaceFile does.
    virtual PrinterState End(const SendingTurn& turn) = 0;
};

// The printers of the system.
class cPrinting {
public:
    cPrinting() = default;
    cPrinting(const cPrinting&) = delete;
    cPrinting& operator=(const cPrinting&) = delete;
    virtual ~cPrinting() = default;

    virtual bool HasDefaultPrinter() = 0;

    // A job of that title on the default printer; null when the printer does not take it.
    virtual std::unique_ptr<cPrintJob> StartOnDefaultPrinter(const QString& title) = 0;
};

// A job of that title that ends as a PDF file of that path, on the paper that is usual where the user lives. An
// existing file is replaced at the end.
std::unique_ptr<cPrintJob> StartPdf(const QString& path, const QString& title);

} // namespace ob
