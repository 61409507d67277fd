// SPDX-License-Identifier: GPL-3.0-or-later
// The control's own page formatter.
#pragma once

#include "scilexer/modSci.h"

#include <cstdint>

namespace ob {

// The argument of SCI_FORMATRANGE, laid out as the control expects. A device is a QPainter that draws on the page.
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

// Draws a range page by page. The end of a page is exact even where the control's formatter is wrong: it counts the
// rows of a broken line that were drawn on an earlier page as drawn on this page too.
class cPageFormatter {
public:
    // The record contains the range and the area available on every page.
    cPageFormatter(Sci control, const Sci_RangeToFormat& firstPage) : sci(control), record(firstPage) {}

    // Draws the next page: the lines that the rest of the range touches, as far as there is room. Returns the position
    // where the following page begins; the position where this page begins when not even a row fits.
    std::intptr_t DrawPage(void* device);

    // Where the next page begins.
    std::intptr_t Position() const { return record.chrg.cpMin; }

private:
    // The height of the rows of a line that earlier pages have drawn.
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
    int rowHeight = 0; // 0 until it is needed
    Drawn drawn;
};

} // namespace ob
