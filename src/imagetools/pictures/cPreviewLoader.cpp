// SPDX-License-Identifier: GPL-3.0-or-later
// Reads previews one at a time away from the window's thread.
#include "imagetools/pictures/cPreviewLoader.h"

#include "platform/dialogs/modDialogs.h"

#include <utility>

namespace ob {

using namespace std::chrono_literals;

// A reader that takes longer waits for a disk; it is let go so that others are not kept.
static constexpr std::chrono::milliseconds longestRead = 5s;

cPreviewLoader::cPreviewLoader(Read readPreview, std::function<void()> whenRead)
    : read(std::move(readPreview)), ready(std::move(whenRead))
{
    longest.setSingleShot(true);
    QObject::connect(&longest, &QTimer::timeout, &longest, [this] {
        if (next)
            RunCommand([this] { BeginNext(); });
    });
}

void cPreviewLoader::BeginNext()
{
    longest.stop();
    begun = Clock::now();
    running.Start([work = read, request = *std::exchange(next, std::nullopt)](cWorkLink&) { return work(request); },
                  ready);
}

void cPreviewLoader::Ask(const PreviewRequest& request)
{
    next = request;
    if (!IsBusy())
        BeginNext();
    else if (!longest.isActive())
        longest.start(std::chrono::ceil<std::chrono::milliseconds>(begun + longestRead - Clock::now()));
}

std::optional<Preview> cPreviewLoader::Take()
{
    if (!running.IsDone())
        return std::nullopt;
    Preview preview = running.Take();
    if (!next)
        return preview;
    BeginNext();
    return std::nullopt;
}

std::optional<Preview> cPreviewLoader::Wait(std::chrono::milliseconds patience)
{
    const auto end = Clock::now() + patience;
    while (IsBusy() && Clock::now() < end) {
        if (!running.IsDone(std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now())))
            break;
        if (auto preview = Take())
            return preview;
    }
    return std::nullopt;
}

} // namespace ob
