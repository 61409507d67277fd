// SPDX-License-Identifier: GPL-3.0-or-later
// Plain text laid out on pages, line by line.
#pragma once

#include <QFont>
#include <QString>

namespace ob {

class cPrintJob;

enum class PageEnd { MoreToCome, AllPrinted };

// Prints an empty line and then the text, in the system's fixed-width font. Lines end with CR LF, LF or CR; a line that
// is wider than the page is wrapped.
class cPlainPages {
public:
    // The job must outlive this object. A tab advances to the next column that is a multiple of `tabSize`.
    cPlainPages(const QString& printedText, cPrintJob& printJob, int tabSize);

    // Fills the current page of the job. Empty lines at the end of the text need no page of their own.
    PageEnd FillPage();

    // Progress in characters: how many have been printed, out of how many.
    qsizetype Position() const { return position; }
    qsizetype Length() const { return text.size(); }

private:
    // Both start at the position: one prints up to the end of the line, as far as there is room above `bottom`; the
    // other skips the line end.
    void PrintLine(qreal bottom);
    void SkipLineEnd();

    QString text; // with spaces for tabs
    cPrintJob& job;
    QFont font;
    qreal lineHeight = 0; // device pixels
    qreal y = 0;          // device pixels
    qsizetype position = 0;
    qsizetype textEnd = 0; // after the last character that is not part of a line end
};

} // namespace ob
