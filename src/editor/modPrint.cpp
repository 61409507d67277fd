// SPDX-License-Identifier: GPL-3.0-or-later
// Printing the active code window.
#include "editor/modPrint.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "editor/modPageFormat.h"
#include "editor/modPlainPages.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/dialogs/modPrinter.h"
#include "platform/files/modFiles.h"
#include "shell/state/Module1.h"

#include <QByteArray>
#include <QPainter>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// Colour on white, the screen's default background left out.
constexpr std::uintptr_t ColorOnWhite = 4;

// A rest of so few bytes is assumed to be line ends, which need no page of their own.
constexpr std::intptr_t RestWithoutPage = 10;

std::uintptr_t Unsigned(std::intptr_t position)
{
    return static_cast<std::uintptr_t>(position);
}

// The formatter draws every line that the range touches, so a range up to the start of a line is drawn to the end of
// the line before.
std::intptr_t LastToDraw(Sci sci, const PrintRange& range)
{
    const std::intptr_t line = SendSci(sci, SCI_LINEFROMPOSITION, Unsigned(range.end));
    const bool isLineStart = SendSci(sci, SCI_POSITIONFROMLINE, Unsigned(line)) == range.end;
    if (range.source == PrintSource::FromCaret || line == 0 || !isLineStart)
        return range.end;
    return SendSci(sci, SCI_GETLINEENDPOSITION, Unsigned(line - 1));
}

Sci_RangeToFormat FirstPage(Sci sci, const PrintRange& range, const cPrintJob& job)
{
    const QSize size = job.ScaleSize();
    Sci_RangeToFormat record;
    record.rc = record.rcPage = {0, 0, size.width(), size.height()};
    record.chrg = {static_cast<long>(range.start), static_cast<long>(LastToDraw(sci, range))};
    return record;
}

PrintEnd EndJob(cPrintJob& job, cPrintWatch& watch)
{
    SendingRequest request = SendingRequest::GoOn;
    const PrinterState state = job.End([&](const SendingPlace& place) {
        // Asked only until the answer is to stop: a window that has been closed must not open again.
        if (request == SendingRequest::GoOn &&
            watch.NextPage({PrintWork::Sending, place.page, place.page, place.pages}) == PrintRequest::Stop)
            request = SendingRequest::TakeBack;
        return request;
    });
    switch (state) {
    case PrinterState::Ready:
        return PrintEnd::Printed;
    case PrinterState::TakenBack:
        return PrintEnd::Stopped;
    case PrinterState::Failed:
        break;
    }
    return PrintEnd::Failed;
}

// Starts the next page and processes events. Nothing on success.
std::optional<PrintEnd> TurnPage(const cDocument& document, cPrintJob& job, cPrintWatch& watch, const PrintPlace& place)
{
    const Sci sci = document.sci;
    if (job.NewPage() == PrinterState::Failed)
        return PrintEnd::Failed;
    if (watch.NextPage(place) == PrintRequest::Stop || document.sci != sci)
        return PrintEnd::Stopped;
    return std::nullopt;
}

QString SelectedText(Sci sci, const PrintRange& range)
{
    SendSci(sci, SCI_SETSEL, Unsigned(range.start), range.end);
    QByteArray text(static_cast<qsizetype>(range.end - range.start) + 1, '\0');
    SendSci(sci, SCI_GETSELTEXT, 0, text.data());
    const std::intptr_t selected = SendSci(sci, SCI_GETSELECTIONEND) - SendSci(sci, SCI_GETSELECTIONSTART);
    return QString::fromUtf8(text.constData(), static_cast<qsizetype>(selected));
}

QString AskForPdf(const QString& caption)
{
    return FileBox(
        {FilePurpose::Save, u"Print to PDF"_s, FolderOf(caption), PdfNameOf(caption), u"PDF (*.pdf)|*.pdf"_s});
}

std::unique_ptr<cPrintJob> StartJob(cPrinting& printing, const QString& caption)
{
    const QString title = PrintTitle(caption);
    if (printing.HasDefaultPrinter())
        return printing.StartOnDefaultPrinter(title);
    const QString path = AskForPdf(caption);
    return path.isEmpty() ? nullptr : StartPdf(path, title);
}

} // namespace

PrintRange RangeToPrint(Sci sci)
{
    const std::intptr_t start = SendSci(sci, SCI_GETSELECTIONSTART);
    const std::intptr_t end = SendSci(sci, SCI_GETSELECTIONEND);
    if (start != end)
        return {start, end, PrintSource::Selection};
    return {SendSci(sci, SCI_GETCURRENTPOS), SendSci(sci, SCI_GETLENGTH) + 1, PrintSource::FromCaret};
}

PrintEnd PrintInColor(const cDocument& document, const PrintRange& range, cPrintJob& job, cPrintWatch& watch)
{
    const Sci sci = document.sci;
    SendSci(sci, SCI_SETPRINTCOLOURMODE, ColorOnWhite);
    cPageFormatter formatter(sci, FirstPage(sci, range, job));
    // The formatter would draw the line at whose end the caret is.
    const bool isEmpty = range.start >= SendSci(sci, SCI_GETLENGTH);
    PrintPlace place{PrintWork::Drawing, 1, 0, range.end - range.start};
    // A range within the first few bytes gives an empty page.
    while (!isEmpty && range.end > RestWithoutPage) {
        const std::intptr_t begin = formatter.Position();
        const std::intptr_t reached = formatter.DrawPage(&job.Painter());
        // A page on which nothing would be drawn is not turned to. On paper shorter than a row, no progress is ever
        // made.
        if (reached >= range.end - RestWithoutPage || reached <= begin)
            break;
        ++place.page;
        place.done = reached - range.start;
        if (const auto end = TurnPage(document, job, watch, place))
            return *end;
    }
    return EndJob(job, watch);
}

PrintEnd PrintPlain(const cDocument& document, const PrintRange& range, int tabSize, cPrintJob& job, cPrintWatch& watch)
{
    cPlainPages pages(SelectedText(document.sci, range), job, tabSize);
    PrintPlace place{PrintWork::Drawing, 1, 0, pages.Length()};
    while (pages.FillPage() == PageEnd::MoreToCome) {
        ++place.page;
        place.done = pages.Position();
        if (const auto end = TurnPage(document, job, watch, place))
            return *end;
    }
    const PrintEnd end = EndJob(job, watch);
    if (end == PrintEnd::Printed && range.source == PrintSource::FromCaret)
        SendSci(document.sci, SCI_SETSEL, 0, 1);
    return end;
}

QString PrintTitle(const QString& caption)
{
    return NameOf(caption);
}

QString PdfNameOf(const QString& caption)
{
    const QString name = NameOf(caption);
    const qsizetype point = name.lastIndexOf(QLatin1Char('.'));
    return (point > 0 ? name.first(point) : name) + u".pdf"_s;
}

void PrintActiveDocument(cPrinting& printing, cPrintWatch& watch)
{
    const cDocument* document = NeedDocument();
    if (document == nullptr)
        return;
    const BoxAnswer answer =
        MsgBox(u"Would you like to print in color?  If all pages do not print properly in color on your "
               "system, then select 'No'."_s,
               BoxIcon::Question, BoxButtons::YesNoCancel);
    if (answer == BoxAnswer::Cancel)
        return;
    const PrintRange range = RangeToPrint(document->sci);
    const std::unique_ptr<cPrintJob> job = StartJob(printing, document->Caption());
    if (job == nullptr)
        return;
    if (answer == BoxAnswer::Yes)
        PrintInColor(*document, range, *job, watch);
    else
        PrintPlain(*document, range, Editor.TabSize, *job, watch);
}

} // namespace ob
