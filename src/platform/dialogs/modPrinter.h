// SPDX-License-Identifier: GPL-3.0-or-later
// The destination of printed pages: the default printer, or a PDF file.
#pragma once

#include <QSize>
#include <QString>

#include <functional>
#include <memory>

class QPainter;

namespace ob {

enum class PrinterState { Ready, Failed, TakenBack };

// The progress of sending the pages, and the caller's reaction: not every printing system can take a job back; where it
// cannot, the remaining pages are printed too.
struct SendingPlace {
    int page = 1;
    int pages = 1;
};
enum class SendingRequest { GoOn, TakeBack };
using SendingTurn = std::function<SendingRequest(const SendingPlace& place)>;

// A print job, with its first page open. Nothing is printed and no file is written before End is called: a job
// destroyed without it has no effect.
class cPrintJob {
public:
    cPrintJob() = default;
    cPrintJob(const cPrintJob&) = delete;
    cPrintJob& operator=(const cPrintJob&) = delete;
    virtual ~cPrintJob() = default;

    // Draws on the open page; 0, 0 is the upper left corner of the printable area, and the unit is the device's pixel.
    virtual QPainter& Painter() = 0;

    // Width and height of that area, in device pixels.
    virtual QSize ScaleSize() const = 0;

    virtual PrinterState NewPage() = 0;

    // Sends the pages to the printer or the file; a slow printer calls `turn` between two pages. Raises the errors of
    // ReplaceFile when the file cannot be written.
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

    // A job with that title on the default printer; null when the printer does not accept it.
    virtual std::unique_ptr<cPrintJob> StartOnDefaultPrinter(const QString& title) = 0;
};

// A job with that title that writes a PDF file to that path, on the usual paper of the user's country. An existing file
// is replaced at the end.
std::unique_ptr<cPrintJob> StartPdf(const QString& path, const QString& title);

} // namespace ob
