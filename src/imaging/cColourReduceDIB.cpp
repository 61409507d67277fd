// SPDX-License-Identifier: GPL-3.0-or-later
// Turns pictures grey, black and white, or into the colours of a palette.
#include "imaging/cColourReduceDIB.h"

#include "imaging/cImagingError.h"
#include "imaging/modBlackAndWhite.h"
#include "imaging/modGrey.h"
#include "imaging/modMapColors.h"

#include <algorithm>

namespace ob {

namespace {

std::int64_t LastOffset(const cDIBSection& picture)
{
    return (std::int64_t{picture.Width()} - 1) * 3;
}

// The target determines the size of the work; padding at the end of the source's lines counts as memory.
void RequireRoom(const cDIBSection& source, const cDIBSection& target)
{
    if (source.hdc() == 0 || target.hdc() == 0 || LastOffset(target) + 2 >= source.BytesPerScanLine() ||
        target.Height() > source.Height())
        RaiseSubscriptError();
}

// Reports the operation's progress while it runs band by band.
template <class Band>
void RunInBands(const cProgress& progress, const cDIBSection& picture, Band band)
{
    constexpr std::int32_t bandHeight = 16;
    cColumnProgress columns(progress, picture.Width(), picture.Height());
    for (std::int32_t first = 0; first < picture.Height(); first += bandHeight) {
        const std::int32_t end = std::min(picture.Height(), first + bandHeight);
        band(first, end);
        columns.LinesDone(end);
    }
}

void CopyResult(cDIBSection& source, const cDIBSection& target)
{
    if (&source != &target)
        source.LoadPictureBlt(target);
}

} // namespace

void cColourReduceDIB::GrayScale(cDIBSection& picture) const
{
    const cProgress progress(events);
    // This maximum alone counts pixels, while the positions count bytes.
    progress.Init(std::int64_t{picture.Width()} - 1);
    if (picture.hdc() == 0)
        RaiseSubscriptError();
    RunInBands(progress, picture, [&](std::int32_t first, std::int32_t end) {
        for (std::int32_t y = first; y < end; ++y)
            MakeLineGrey(picture.Line(y), picture.Width());
    });
    progress.Complete();
}

void cColourReduceDIB::BlackAndWhite(cDIBSection& source, cDIBSection& target) const
{
    const cProgress progress(events);
    GrayScale(source);
    progress.Init(LastOffset(target));
    RequireRoom(source, target);
    cBlackAndWhiteLines lines(source, target);
    RunInBands(progress, target, [&](std::int32_t first, std::int32_t end) { lines.Make(first, end); });
    CopyResult(source, target);
    progress.Complete();
}

void cColourReduceDIB::ApplyPalette(cDIBSection& source, cDIBSection& target, const cPalette& palette,
                                    Dither dither) const
{
    const cProgress progress(events);
    progress.Init(LastOffset(target));
    RequireRoom(source, target);
    cMappedLines lines(source, target, palette.Entries());
    RunInBands(progress, target, [&](std::int32_t first, std::int32_t end) {
        if (dither == Dither::On)
            lines.MakeDithered(first, end);
        else
            lines.Make(first, end);
    });
    CopyResult(source, target);
    progress.Complete();
}

} // namespace ob
