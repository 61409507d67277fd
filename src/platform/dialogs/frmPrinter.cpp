// SPDX-License-Identifier: GPL-3.0-or-later
// The system's printers.
#include "platform/dialogs/frmPrinter.h"

#include <QPainter>
#include <QPicture>
#include <QPrinter>
#include <QPrinterInfo>

#include <deque>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

cPrinting* inPlace = nullptr;

// A page kept until all pages are complete. Its metrics are those of the printer.
class Page final : public QPicture {
public:
    explicit Page(const QPrinter& device) : printer(device) {}

protected:
    int metric(PaintDeviceMetric which) const override
    {
        switch (which) {
        case PdmWidth:
            return printer.width();
        case PdmHeight:
            return printer.height();
        case PdmWidthMM:
            return printer.widthMM();
        case PdmHeightMM:
            return printer.heightMM();
        case PdmDpiX:
        case PdmPhysicalDpiX:
            return printer.logicalDpiX();
        case PdmDpiY:
        case PdmPhysicalDpiY:
            return printer.logicalDpiY();
        default:
            return QPicture::metric(which);
        }
    }

private:
    const QPrinter& printer;
};

// The printing system may be unable to cancel a job once it has begun, so it gets the pages when all are complete.
class PrinterJob final : public cPrintJob {
public:
    explicit PrinterJob(std::unique_ptr<QPrinter> device) : printer(std::move(device)) { OpenPage(); }

    QPainter& Painter() override { return painter; }
    QSize ScaleSize() const override { return {printer->width(), printer->height()}; }

    PrinterState NewPage() override
    {
        painter.end();
        return OpenPage();
    }

    PrinterState End(const SendingTurn& turn) override
    {
        painter.end();
        QPainter paper;
        if (!paper.begin(printer.get()))
            return PrinterState::Failed;
        SendingPlace place{1, static_cast<int>(pages.size())};
        for (Page& page : pages) {
            if (place.page > 1 && !printer->newPage())
                return PrinterState::Failed;
            SendPage(page, paper);
            if (turn(place) == SendingRequest::TakeBack && printer->abort())
                return PrinterState::TakenBack;
            ++place.page;
        }
        const bool isSent = paper.end() && printer->printerState() != QPrinter::Error;
        return isSent ? PrinterState::Ready : PrinterState::Failed;
    }

private:
    PrinterState OpenPage()
    {
        pages.emplace_back(*printer);
        return painter.begin(&pages.back()) ? PrinterState::Ready : PrinterState::Failed;
    }

    void SendPage(Page& page, QPainter& paper) const
    {
        // A picture assumes the screen's resolution and is scaled up to the printer's.
        const QPicture screen;
        paper.save();
        paper.scale(static_cast<qreal>(screen.logicalDpiX()) / printer->logicalDpiX(),
                    static_cast<qreal>(screen.logicalDpiY()) / printer->logicalDpiY());
        page.play(&paper);
        paper.restore();
    }

    std::unique_ptr<QPrinter> printer;
    std::deque<Page> pages;
    QPainter painter;
};

} // namespace

bool frmPrinter::HasDefaultPrinter()
{
    return !QPrinterInfo::defaultPrinter().isNull();
}

std::unique_ptr<cPrintJob> frmPrinter::StartOnDefaultPrinter(const QString& title)
{
    auto printer = std::make_unique<QPrinter>(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
    printer->setDocName(title);
    printer->setCreator(u"Orchard Bench " OB_VERSION ""_s);
    return StartOn(std::move(printer));
}

std::unique_ptr<cPrintJob> StartOn(std::unique_ptr<QPrinter> printer)
{
    if (!printer->isValid())
        return nullptr;
    return std::make_unique<PrinterJob>(std::move(printer));
}

cPrinting& Printing()
{
    static frmPrinter system;
    return inPlace != nullptr ? *inPlace : system;
}

cPrinting* SetPrinting(cPrinting* printing)
{
    return std::exchange(inPlace, printing);
}

} // namespace ob
