// SPDX-License-Identifier: GPL-3.0-or-later
// Printing to a PDF file.
#include "platform/dialogs/modPrinter.h"

#include "platform/files/modFiles.h"

#include <QBuffer>
#include <QLocale>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>

#include <utility>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr qreal MarginMillimetres = 15;

QPageSize::PageSizeId UsualPaper()
{
    const bool isAmerican = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    return isAmerican ? QPageSize::Letter : QPageSize::A4;
}

// The pages are in memory until the end, so that a cancelled job leaves the old file unchanged.
class PdfJob final : public cPrintJob {
public:
    PdfJob(QString filePath, const QString& title) : path(std::move(filePath)), writer(&bytes)
    {
        bytes.open(QIODevice::WriteOnly);
        writer.setTitle(title);
        writer.setCreator(u"Orchard Bench " OB_VERSION ""_s);
        const QMarginsF margins(MarginMillimetres, MarginMillimetres, MarginMillimetres, MarginMillimetres);
        writer.setPageLayout({QPageSize(UsualPaper()), QPageLayout::Portrait, margins, QPageLayout::Millimeter});
        painter.begin(&writer);
    }

    QPainter& Painter() override { return painter; }
    QSize ScaleSize() const override { return {writer.width(), writer.height()}; }
    PrinterState NewPage() override { return writer.newPage() ? PrinterState::Ready : PrinterState::Failed; }

    PrinterState End(const SendingTurn&) override
    {
        if (!painter.end())
            return PrinterState::Failed;
        ReplaceFile(path, bytes.data(), Durability::Unsynced);
        return PrinterState::Ready;
    }

private:
    QString path;
    QBuffer bytes;
    QPdfWriter writer;
    QPainter painter;
};

} // namespace

std::unique_ptr<cPrintJob> StartPdf(const QString& path, const QString& title)
{
    return std::make_unique<PdfJob>(path, title);
}

} // namespace ob
