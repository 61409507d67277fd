// SPDX-License-Identifier: GPL-3.0-or-later
// Plain text put on pages, line under line.
#pragma once

#include <QFont>
#include <QString>

namespace ob {

class cPrintJob;

enum class PageEnd { MoreToCome, AllPrinted };

// Prints an empty line and then the text, in the system's font of even widths. Lines end with CR LF, LF or CR; one that
// is wider than the page goes on below itself.
class cPlainPages {
public:
    // The job must outlive this. A tab reaches the next column that is a multiple of `tabSize`.
    cPlainPages(const QString& printedText, cPrintJob& printJob, int tabSize);

    // Fills the job's page that is open. Empty lines at the end of the text need no page of their own.
    PageEnd FillPage();

    // How much has been printed of how much, in characters.
    qsizetype Position() const { return position; }
    qsizetype Length() const { return text.size(); }

private:
    // Both go on from the position: to the line's end, as far as there is room above `bottom`, and over it.
    void PrintLine(qreal bottom);
    void SkipLineEnd();

    QString text; // with blanks for tabs
    cPrintJob& job;
    QFont font;
    qreal lineHeight = 0; // device pixels
    qreal y = 0;          // device pixels
    qsizetype position = 0;
    qsizetype textEnd = 0; // behind the last character that is no line end
};

} // namespace ob
