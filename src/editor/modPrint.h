// SPDX-License-Identifier: GPL-3.0-or-later
// Printing the active code window: in colour by the control's own page formatter, or as plain text.
#pragma once

#include "scilexer/modSci.h"

#include <QString>

#include <cstdint>

namespace ob {

class cDocument;
class cPrinting;
class cPrintJob;

// What to print, in bytes of the control's text: the selection, or from the caret to one past the end of the text.
enum class PrintSource { Selection, FromCaret };
struct PrintRange {
    std::intptr_t start = 0;
    std::intptr_t end = 0;
    PrintSource source = PrintSource::FromCaret;
};
PrintRange RangeToPrint(Sci sci);

// The progress of a job. First its pages are drawn, then they are sent to a printer; `done` and `all` are in the unit
// of the work.
enum class PrintWork { Drawing, Sending };
struct PrintPlace {
    PrintWork work = PrintWork::Drawing;
    int page = 1;
    std::intptr_t done = 0;
    std::intptr_t all = 0;
};

// Called between two pages: processes events, and returns whether to continue.
enum class PrintRequest { GoOn, Stop };
class cPrintWatch {
public:
    cPrintWatch() = default;
    cPrintWatch(const cPrintWatch&) = delete;
    cPrintWatch& operator=(const cPrintWatch&) = delete;
    virtual ~cPrintWatch() = default;

    virtual PrintRequest NextPage(const PrintPlace& place) = 0;
};

enum class PrintEnd { Printed, Stopped, Failed };

// Both print the range on the job's pages and end the job. Stopped when the watch says so or the window has been closed
// in the meantime; then nothing is printed, as far as the printer can discard what it has received. Long lines are
// wrapped at the edge of the page.
PrintEnd PrintInColor(const cDocument& document, const PrintRange& range, cPrintJob& job, cPrintWatch& watch);

// The range stays selected in the window; without a selection at the start, the first character is selected instead.
// Tabs are `tabSize` characters wide.
PrintEnd PrintPlain(const cDocument& document, const PrintRange& range, int tabSize, cPrintJob& job,
                    cPrintWatch& watch);

// The name of the print job: the file name without its folder.
QString PrintTitle(const QString& caption);

// The suggested name for a PDF of the window, without a folder: "game.pdf" for "/home/me/game.bas".
QString PdfNameOf(const QString& caption);

// Asks whether to print in colour, and prints on the default printer. When there is none, asks for the name of a PDF. A
// printer failure ends it without a message; a file that cannot be written raises as ReplaceFile does.
void PrintActiveDocument(cPrinting& printing, cPrintWatch& watch);

} // namespace ob
