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

// What to print, in bytes of the control's text: the selection, or from the caret to one behind the text's end.
enum class PrintSource { Selection, FromCaret };
struct PrintRange {
    std::intptr_t start = 0;
    std::intptr_t end = 0;
    PrintSource source = PrintSource::FromCaret;
};
PrintRange RangeToPrint(Sci sci);

// How far a job is. First its pages are drawn, then a printer gets them; `done` of `all` is in the unit of the work.
enum class PrintWork { Drawing, Sending };
struct PrintPlace {
    PrintWork work = PrintWork::Drawing;
    int page = 1;
    std::intptr_t done = 0;
    std::intptr_t all = 0;
};

// Called between two pages: lets events run, and tells whether the user still wants the print.
enum class PrintWish { GoOn, Stop };
class cPrintWatch {
public:
    cPrintWatch() = default;
    cPrintWatch(const cPrintWatch&) = delete;
    cPrintWatch& operator=(const cPrintWatch&) = delete;
    virtual ~cPrintWatch() = default;

    virtual PrintWish NextPage(const PrintPlace& place) = 0;
};

enum class PrintEnd { Printed, Stopped, Failed };

// Both put the range on the job's pages and end the job; Stopped when the watch says so or the window has been closed
// in the meantime, and then nothing comes out, as far as the printer can take back what it has. Long lines are broken
// at the page's edge.
PrintEnd PrintInColor(const cDocument& document, const PrintRange& range, cPrintJob& job, cPrintWatch& watch);

// The range stays selected in the window; without a selection at the start the first character is selected instead.
// Tabs are `tabSize` characters wide.
PrintEnd PrintPlain(const cDocument& document, const PrintRange& range, int tabSize, cPrintJob& job,
                    cPrintWatch& watch);

// The name of the job: the file's name without its folder.
QString PrintTitle(const QString& caption);

// The name that is offered for a PDF of the window, without a folder: "game.pdf" for "/home/me/game.bas".
QString PdfNameOf(const QString& caption);

// Asks whether to print in colour, and does it on the default printer. When there is none, asks for the name of a PDF.
// What goes wrong with the printer ends it without a word; a file that cannot be written raises as ReplaceFile does.
void PrintActiveDocument(cPrinting& printing, cPrintWatch& watch);

} // namespace ob
