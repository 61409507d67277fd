// SPDX-License-Identifier: GPL-3.0-or-later
// Work in the background: a thread for each piece, and its result or error for the thread that started it.
#pragma once

#include <QEventLoop>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <type_traits>
#include <utility>

class QObject;

namespace ob {

// The system has no thread for the work.
class NoThread : public std::runtime_error {
public:
    NoThread() : std::runtime_error("The system cannot start another thread.") {}
};

// Whoever started the work is gone. It unwinds the work; nobody sees it unless the whole program ends meanwhile.
class OwnerGone : public std::exception {
public:
    const char* what() const noexcept override { return "The work has lost its owner."; }
};

// What a piece of work sees of its owner, who is on another thread.
class cWorkLink {
public:
    cWorkLink();
    cWorkLink(const cWorkLink&) = delete;
    cWorkLink& operator=(const cWorkLink&) = delete;
    ~cWorkLink();

    // Whether the work is to end as soon as it can.
    bool IsCancelled() const { return isCancelled; }

    // Makes the call on the owner's thread, after the calls posted before. It is dropped when the owner goes first.
    void Post(std::function<void()> call);

    // Makes the call there, gives its result or throws what it throws, and comes back only after the events of that
    // thread have had a turn. Throws OwnerGone. The owner must not go within the call.
    template <class Call>
    auto Ask(Call call)
    {
        const auto task = std::make_shared<std::packaged_task<std::invoke_result_t<Call&>()>>(std::move(call));
        auto answer = task->get_future();
        PostAndWait([task] { (*task)(); });
        return answer.get();
    }

private:
    friend class cWorkThread;

    void PostAndWait(const std::function<void()>& call);
    void ReleaseAfterTurn(const std::shared_ptr<bool>& isOver);
    void Cancel() { isCancelled = true; }
    void CutOff(); // on the owner's thread, also more than once
    void SetDone();
    bool WaitUntilDone(std::chrono::steady_clock::time_point end);

    std::atomic<bool> isCancelled = false;
    std::mutex mutex; // of what follows
    std::condition_variable changed;
    std::unique_ptr<QObject> owner; // what calls are posted to; null once the owner is gone
    bool isDone = false;
};

// What happens to work that still runs when its owner goes or starts another piece. Both cancel it.
//
// LetGo is for disks: a read from one that does not answer hangs in the system and can be neither cancelled nor joined.
// So the work must own all that it touches. The end of the program waits two seconds in all for work that was let go.
enum class Farewell { Wait, LetGo };

// The half of cWork that knows nothing of results.
class cWorkThread {
public:
    cWorkThread(const cWorkThread&) = delete;
    cWorkThread& operator=(const cWorkThread&) = delete;

    // Asks the work to end as soon as it can.
    void Cancel();

    // Cancels, and leaves the work without an owner: its posted calls are dropped, and Ask throws.
    void CutOff();

protected:
    explicit cWorkThread(Farewell howLeft) : farewell(howLeft) {}
    ~cWorkThread() { Leave(); }

    void Begin(std::function<void(cWorkLink&)> body, std::function<void()> ended);
    void Join();

private:
    void Leave();

    Farewell farewell;
    std::shared_ptr<cWorkLink> link;
    std::thread thread;
};

// One piece of work at a time. All its functions are for the thread that made it, which needs an event loop for calls
// from the work to arrive.
template <class Result>
class cWork final : public cWorkThread {
public:
    using Work = std::function<Result(cWorkLink&)>;

    explicit cWork(Farewell howLeft = Farewell::Wait) : cWorkThread(howLeft) {}

    // Runs the work on a thread of its own; work that was started before is left as at the end. `ended` is called on
    // this thread once the result can be taken, unless it has been taken by then. Throws NoThread.
    void Start(Work work, std::function<void()> ended = {})
    {
        result = {};
        const auto task = std::make_shared<std::packaged_task<Result(cWorkLink&)>>(std::move(work));
        auto coming = task->get_future();
        Begin([task](cWorkLink& owner) { (*task)(owner); },
              [this, call = std::move(ended)] {
                  if (call && IsStarted())
                      call();
              });
        result = std::move(coming);
    }

    // From Start until Take.
    bool IsStarted() const { return result.valid(); }

    // Whether the result is there, waiting for it that long at most.
    bool IsDone(std::chrono::milliseconds patience = {}) const
    {
        return result.valid() && result.wait_for(patience) == std::future_status::ready;
    }

    // The result, waiting for it; throws what the work threw.
    Result Take()
    {
        std::future<Result> taken = std::exchange(result, {});
        taken.wait();
        Join();
        return taken.get();
    }

private:
    std::future<Result> result;
};

// Runs the work, which gets a cWorkLink, on a thread of its own while events run here, and gives its result or throws
// what it threw. Whoever calls this holds back the input that must not come meanwhile. Throws NoThread.
template <class Work>
auto RunWork(Work work)
{
    cWork<std::invoke_result_t<Work&, cWorkLink&>> running;
    QEventLoop loop;
    running.Start(std::move(work), [&loop] { loop.quit(); });
    loop.exec();
    // The end of the program ends the loop too, and then nobody is there to answer the work.
    if (!running.IsDone())
        running.CutOff();
    return running.Take();
}

// For work that has to stay on the window's thread and is done in slices: lets events run between two of them.
void LetEventsRun(QEventLoop::ProcessEventsFlags which = QEventLoop::AllEvents);

// Waits that long at most for work that was let go. The end of the application does it by itself.
enum class WorkLeft { None, Hanging };
WorkLeft WaitForWorkLetGo(std::chrono::milliseconds patience);

// What makes threads. A test puts its own in place, which may throw std::system_error; an empty one gives place to the
// usual one. Gives back the one before.
using ThreadMaker = std::function<std::thread(std::function<void()>)>;
ThreadMaker SetThreadMaker(ThreadMaker maker);

} // namespace ob
