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
    // Text and job must outlive this. Tabs are `tabSize` characters wide.
    cPlainPages(const QString& printedText, cPrintJob& printJob, int tabSize);

    // Fills the job's page that is open. Empty lines at the end of the text need no page of their own.
    PageEnd FillPage();

    // How much of the text has been printed, in characters.
    qsizetype Position() const { return position; }

private:
    // Both go on from the position: what fits above `bottom` of the line that ends there, and over the line's end.
    void PrintLine(qsizetype lineEnd, qreal bottom);
    void SkipLineEnd();

    const QString& text;
    cPrintJob& job;
    QFont font;
    qreal tabWidth = 0; // device pixels, as all that follow
    qreal lineHeight = 0;
    qreal y = 0;
    qsizetype position = 0;
    qsizetype textEnd = 0; // behind the last character that is no line end
};

} // namespace ob
