// SPDX-License-Identifier: GPL-3.0-or-later
// The progress of long operations.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace ob {

// Each may be left empty.
struct ProgressEvents {
    std::function<void(std::int32_t maximum)> InitProgress;
    std::function<void(std::int32_t position)> Progress;
    std::function<void(std::int32_t milliseconds)> Complete;
};

// Raises one operation's events and measures its time.
class cProgress {
public:
    explicit cProgress(const ProgressEvents& listeners) : events(listeners) {}

    void Init(std::int64_t maximum) const
    {
        if (events.InitProgress)
            events.InitProgress(static_cast<std::int32_t>(maximum));
    }
    void At(std::int64_t position) const
    {
        if (events.Progress)
            events.Progress(static_cast<std::int32_t>(position));
    }
    void Complete() const
    {
        using namespace std::chrono;
        if (events.Complete)
            events.Complete(
                static_cast<std::int32_t>(duration_cast<milliseconds>(steady_clock::now() - start).count()));
    }
    bool HasListener() const { return static_cast<bool>(events.Progress); }

private:
    const ProgressEvents& events;
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

// Operations report one position per column, though they work line by line: the columns' positions are spread evenly
// over the lines, in order.
class cColumnProgress {
public:
    cColumnProgress(const cProgress& operation, std::int32_t width, std::int32_t height)
        : progress(operation), columns(width), lines(height)
    {
    }

    void LinesDone(std::int64_t done)
    {
        if (!progress.HasListener())
            return;
        for (const std::int64_t end = columns * done / lines; reported < end; ++reported)
            progress.At(reported * 3);
    }

private:
    const cProgress& progress;
    std::int64_t columns;
    std::int64_t lines;
    std::int64_t reported = 0;
};

} // namespace ob
