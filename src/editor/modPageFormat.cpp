// SPDX-License-Identifier: GPL-3.0-or-later
// The control's own page formatter. It is exact when it measures from the start of a line, which is how the end of a
// page is found when the page begins further along in the line.
#include "editor/modPageFormat.h"

#include <functional>

namespace ob {

namespace {

constexpr std::uintptr_t Measure = 0;
constexpr auto Draw = static_cast<std::uintptr_t>(-1);

std::intptr_t Format(Sci sci, std::uintptr_t draw, const Sci_RangeToFormat& record)
{
    return SendSci(sci, SCI_FORMATRANGE, draw, reinterpret_cast<std::intptr_t>(&record));
}

std::intptr_t LineOf(Sci sci, std::intptr_t position)
{
    return SendSci(sci, SCI_LINEFROMPOSITION, static_cast<std::uintptr_t>(position));
}

std::intptr_t StartOf(Sci sci, std::intptr_t line)
{
    return SendSci(sci, SCI_POSITIONFROMLINE, static_cast<std::uintptr_t>(line));
}

// The lowest number from 1 on for which the test holds, given that it holds for every higher one too.
int LowestThat(const std::function<bool(int)>& isEnough)
{
    int tooLow = 0;
    int enough = 1;
    while (!isEnough(enough)) {
        tooLow = enough;
        enough *= 2;
    }
    while (enough - tooLow > 1) {
        const int middle = tooLow + (enough - tooLow) / 2;
        (isEnough(middle) ? enough : tooLow) = middle;
    }
    return enough;
}

} // namespace

std::intptr_t cPageFormatter::DrawPage(void* device)
{
    record.hdc = record.hdcTarget = device;
    std::intptr_t reached = Format(sci, Draw, record);
    if (reached > record.chrg.cpMin)
        reached = EndOfBrokenLine(reached);
    record.chrg.cpMin = static_cast<long>(reached);
    return reached;
}

// The end of the page when the page begins within a line that continues beyond it; otherwise the end that was reached.
std::intptr_t cPageFormatter::EndOfBrokenLine(std::intptr_t reached)
{
    const std::intptr_t line = LineOf(sci, record.chrg.cpMin);
    const std::intptr_t start = StartOf(sci, line);
    const std::intptr_t next = StartOf(sci, line + 1);
    const int room = record.rc.bottom - record.rc.top;
    if (record.chrg.cpMin == start || EndIn(room, start) >= next)
        return reached;
    MeasureRow(start);
    if (drawn.lineStart != start)
        MeasureDrawn(start);
    drawn.height += room / rowHeight * rowHeight;
    const std::intptr_t end = EndIn(drawn.height, start);
    return end < next ? end : reached;
}

void cPageFormatter::MeasureRow(std::intptr_t lineStart)
{
    if (rowHeight == 0)
        rowHeight = LowestThat([&](int height) { return EndIn(height, lineStart) > lineStart; });
}

void cPageFormatter::MeasureDrawn(std::intptr_t lineStart)
{
    const int rows = LowestThat([&](int count) { return EndIn(count * rowHeight, lineStart) > record.chrg.cpMin; });
    drawn = {lineStart, (rows - 1) * rowHeight};
}

// The position up to which the rows of a line fit into that height.
std::intptr_t cPageFormatter::EndIn(int height, std::intptr_t lineStart) const
{
    Sci_RangeToFormat measured = record;
    measured.rc.bottom = measured.rc.top + height;
    const auto line = static_cast<std::uintptr_t>(LineOf(sci, lineStart));
    measured.chrg = {static_cast<long>(lineStart), static_cast<long>(SendSci(sci, SCI_GETLINEENDPOSITION, line))};
    return Format(sci, Measure, measured);
}

} // namespace ob
