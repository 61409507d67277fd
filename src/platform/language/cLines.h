// SPDX-License-Identifier: GPL-3.0-or-later
// A text's lines, one after another, in the text's own memory. CR LF, LF and CR each end a line.
#pragma once

#include <QByteArrayView>

namespace ob {

class cLines {
public:
    explicit cLines(QByteArrayView text);

    // Goes to the next line; false after the last. A text that ends in a line end has no empty line after it here.
    bool Next();

    int Number() const { return number; } // from 0

    // The line without its end.
    QByteArrayView Line() const { return {start, stop - start}; }

    // The line as the scans for labels and variables take it. They cut the line end by cutting two characters, so a
    // last line without an end loses its last two, but always keeps one.
    QByteArrayView ScannedLine() const;

private:
    const char* Find(const char*& found, char mark) const;

    // The next mark of each kind; searched again only after the one found last, so that a text with a single kind is
    // still read once. Null before the first search.
    const char* nextReturn = nullptr;
    const char* nextFeed = nullptr;

    const char* start;
    const char* stop;
    const char* next;
    const char* end;
    int number = -1;
};

} // namespace ob
