// SPDX-License-Identifier: GPL-3.0-or-later
// Waits for work in the background while the window's thread goes on painting, and lets the user cancel it.
#pragma once

#include "platform/work/cWork.h"

#include <QEventLoop>
#include <QString>

#include <chrono>
#include <optional>
#include <type_traits>
#include <utility>

namespace ob {

// One wait. No window gets input during it. After a moment a box shows the words and a Cancel button; Escape cancels
// from the start.
class frmPatience final {
public:
    enum class End { Done, Cancelled };

    explicit frmPatience(QString words) : shownWords(std::move(words)) {}

    End Wait();    // until Finish is called, the user cancels, or the program ends
    void Finish(); // called by events during the wait

private:
    QString shownWords;
    QEventLoop loop;
    End end = End::Cancelled;
};

// Runs the work on a thread of its own and gives its result, or throws what it threw; nothing when the user has
// cancelled it. Work that was cancelled runs on alone and its result is dropped, so it must own all that it touches and
// change nothing. Throws NoThread.
template <class Work>
auto RunPatiently(const QString& words, Work work) -> std::optional<std::invoke_result_t<Work&>>
{
    // Work as short as this is not worth a turn of the event loop.
    constexpr std::chrono::milliseconds moment(100);
    frmPatience wait(words);
    cWork<std::invoke_result_t<Work&>> running(Farewell::LetGo);
    running.Start([routine = std::move(work)](cWorkLink&) { return routine(); }, [&wait] { wait.Finish(); });
    if (!running.IsDone(moment) && wait.Wait() == frmPatience::End::Cancelled)
        return std::nullopt;
    return running.Take();
}

} // namespace ob
