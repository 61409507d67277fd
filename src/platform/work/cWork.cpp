// SPDX-License-Identifier: GPL-3.0-or-later
// Work in the background.
#include "platform/work/cWork.h"

#include <QCoreApplication>
#include <QObject>
#include <QTimer>

#include <system_error>
#include <vector>

namespace ob {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto patienceAtEnd = 2s;

ThreadMaker& CurrentMaker()
{
    static ThreadMaker maker;
    return maker;
}

std::thread MakeThread(std::function<void()> run)
{
    try {
        return CurrentMaker() ? CurrentMaker()(std::move(run)) : std::thread(std::move(run));
    } catch (const std::system_error&) {
        throw NoThread();
    }
}

struct LetGoThread {
    std::thread thread;
    std::function<bool(Clock::time_point)> waitUntilDone;
};

struct LetGoThreads {
    std::mutex mutex;
    std::vector<LetGoThread> threads;
    bool isRegistered = false;
};

// Never destroyed: a thread that hangs cannot be.
LetGoThreads& LetGo()
{
    static auto* const all = new LetGoThreads;
    return *all;
}

void JoinDone(std::vector<LetGoThread>& threads, Clock::time_point end)
{
    std::erase_if(threads, [end](LetGoThread& each) {
        if (!each.waitUntilDone(end))
            return false;
        each.thread.join();
        return true;
    });
}

void WaitAtEnd()
{
    WaitForWorkLetGo(patienceAtEnd);
    // The next application object has a list of its own.
    LetGo().isRegistered = false;
}

void LetGoOf(LetGoThread thread)
{
    LetGoThreads& all = LetGo();
    const std::lock_guard lock(all.mutex);
    JoinDone(all.threads, Clock::now());
    all.threads.push_back(std::move(thread));
    if (!std::exchange(all.isRegistered, true))
        qAddPostRoutine(WaitAtEnd);
}

} // namespace

// --- The link. ------------------------------------------------------------------------------------------------------

cWorkLink::cWorkLink() : owner(std::make_unique<QObject>()) {}

cWorkLink::~cWorkLink() = default;

void cWorkLink::Post(std::function<void()> call)
{
    const std::lock_guard lock(mutex);
    if (owner)
        QMetaObject::invokeMethod(owner.get(), std::move(call), Qt::QueuedConnection);
}

void cWorkLink::PostAndWait(const std::function<void()>& call)
{
    const auto isOver = std::make_shared<bool>(false);
    Post([this, call, isOver] {
        call();
        ReleaseAfterTurn(isOver);
    });
    std::unique_lock lock(mutex);
    changed.wait(lock, [&] { return *isOver || !owner; });
    if (!*isOver)
        throw OwnerGone();
}

// A timer of the event loop comes after all that is waiting there.
void cWorkLink::ReleaseAfterTurn(const std::shared_ptr<bool>& isOver)
{
    if (!owner)
        return;
    QTimer::singleShot(0, owner.get(), [this, isOver] {
        {
            const std::lock_guard lock(mutex);
            *isOver = true;
        }
        changed.notify_all();
    });
}

void cWorkLink::CutOff()
{
    Cancel();
    std::unique_ptr<QObject> gone;
    {
        const std::lock_guard lock(mutex);
        gone = std::move(owner);
    }
    changed.notify_all();
}

void cWorkLink::SetDone()
{
    {
        const std::lock_guard lock(mutex);
        isDone = true;
    }
    changed.notify_all();
}

bool cWorkLink::WaitUntilDone(Clock::time_point end)
{
    std::unique_lock lock(mutex);
    return changed.wait_until(lock, end, [this] { return isDone; });
}

// --- The thread. ----------------------------------------------------------------------------------------------------

void cWorkThread::Begin(std::function<void(cWorkLink&)> body, std::function<void()> ended)
{
    Leave();
    const auto fresh = std::make_shared<cWorkLink>();
    thread = MakeThread([fresh, run = std::move(body), end = std::move(ended)] {
        run(*fresh);
        fresh->Post(end);
        fresh->SetDone();
    });
    link = fresh;
}

void cWorkThread::Cancel()
{
    if (link)
        link->Cancel();
}

void cWorkThread::CutOff()
{
    if (link)
        link->CutOff();
}

void cWorkThread::Join()
{
    if (thread.joinable())
        thread.join();
}

void cWorkThread::Leave()
{
    CutOff();
    if (thread.joinable() && farewell == Farewell::LetGo)
        LetGoOf({std::move(thread), [left = link](Clock::time_point end) { return left->WaitUntilDone(end); }});
    Join();
    link.reset();
}

// --- The rest. ------------------------------------------------------------------------------------------------------

void LetEventsRun(QEventLoop::ProcessEventsFlags which)
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec(which);
}

WorkLeft WaitForWorkLetGo(std::chrono::milliseconds patience)
{
    LetGoThreads& all = LetGo();
    const std::lock_guard lock(all.mutex);
    JoinDone(all.threads, Clock::now() + patience);
    return all.threads.empty() ? WorkLeft::None : WorkLeft::Hanging;
}

ThreadMaker SetThreadMaker(ThreadMaker maker)
{
    return std::exchange(CurrentMaker(), std::move(maker));
}

} // namespace ob
