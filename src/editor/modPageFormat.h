// SPDX-License-Identifier: GPL-3.0-or-later
// The control's own page formatter.
#pragma once

#include "scilexer/modSci.h"

#include <cstdint>

namespace ob {

// What SCI_FORMATRANGE takes, laid out as the control knows it. A device is a QPainter that draws on the page.
struct Sci_Rectangle {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};
struct Sci_CharacterRange {
    long cpMin = 0;
    long cpMax = 0;
};
struct Sci_RangeToFormat {
    void* hdc = nullptr;       // the device to draw on
    void* hdcTarget = nullptr; // the device to measure by
    Sci_Rectangle rc;          // where to draw, in device pixels
    Sci_Rectangle rcPage;      // the whole page
    Sci_CharacterRange chrg;   // what to draw
};

// Draws a range page by page. It is exact about a page's end also where the control's formatter is not: that one counts
// the rows of a broken line that an earlier page has drawn as drawn on this page too.
class cPageFormatter {
public:
    // The record holds what to draw and the room on every page.
    cPageFormatter(Sci control, const Sci_RangeToFormat& firstPage) : sci(control), record(firstPage) {}

    // Draws the next page: the lines that the rest of the range touches, as far as there is room. Gives the position at
    // which the page after it begins; the one at which this page begins when not even a row has room.
    std::intptr_t DrawPage(void* device);

    // Where the next page begins.
    std::intptr_t Position() const { return record.chrg.cpMin; }

private:
    // The rows of a line that earlier pages have drawn, as the height that they take.
    struct Drawn {
        std::intptr_t lineStart = -1;
        int height = 0;
    };

    std::intptr_t EndOfBrokenLine(std::intptr_t reached);
    void MeasureRow(std::intptr_t lineStart);
    void MeasureDrawn(std::intptr_t lineStart);
    std::intptr_t EndIn(int height, std::intptr_t lineStart) const;

    Sci sci;
    Sci_RangeToFormat record;
    int rowHeight = 0; // 0 until it has been needed
    Drawn drawn;
};

} // namespace ob
