// SPDX-License-Identifier: GPL-3.0-or-later
// Work in the background: results, errors, progress, cancelling, owners that go, threads that cannot be had, the end.
#include "platform/work/cWork.h"

#include <QCoreApplication>
#include <QTest>
#include <QTimer>

#include <optional>
#include <system_error>

// What the application object calls first when it goes.
extern void Q_CORE_EXPORT qt_call_post_routines();

using namespace ob;
using namespace std::chrono_literals;

namespace {

// Opens once, for all that wait.
class Gate {
public:
    void Open() { opened.set_value(); }
    void Wait() const { isOpen.wait(); }

private:
    std::promise<void> opened;
    std::shared_future<void> isOpen = opened.get_future().share();
};

// Threads that the system does not give, for as long as this lives.
class NoThreads {
public:
    NoThreads()
    {
        before = SetThreadMaker([](const std::function<void()>&) -> std::thread {
            throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
        });
    }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;
    ~NoThreads() { SetThreadMaker(before); }

private:
    ThreadMaker before;
};

int UntilCancelled(cWorkLink& link)
{
    while (!link.IsCancelled())
        std::this_thread::sleep_for(1ms);
    return 7;
}

} // namespace

class tst_cWork : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theResultComesOnTheThreadThatAsked()
    {
        const auto here = std::this_thread::get_id();
        std::thread::id workedOn;
        std::thread::id endedOn;
        int result = 0;
        cWork<int> work;
        work.Start(
            [&](cWorkLink&) {
                workedOn = std::this_thread::get_id();
                return 42;
            },
            [&] {
                endedOn = std::this_thread::get_id();
                result = work.Take();
            });
        QVERIFY(work.IsStarted());
        QTRY_COMPARE(result, 42);
        QVERIFY(!work.IsStarted());
        QVERIFY(workedOn != here);
        QVERIFY(endedOn == here);
    }

    void anErrorOfTheWorkIsThrownByTake()
    {
        bool hasEnded = false;
        cWork<int> work;
        work.Start([](cWorkLink&) -> int { throw std::runtime_error("melted"); }, [&] { hasEnded = true; });
        QTRY_VERIFY(hasEnded);
        QVERIFY_EXCEPTION_THROWN(work.Take(), std::runtime_error);
        QVERIFY(!work.IsStarted());
    }

    void aResultThatHasBeenTakenIsNotAnnounced()
    {
        bool hasEnded = false;
        cWork<int> work;
        work.Start([](cWorkLink&) { return 1; }, [&] { hasEnded = true; });
        QVERIFY(work.IsDone(10s));
        QCOMPARE(work.Take(), 1);
        QTest::qWait(20);
        QVERIFY(!hasEnded);
    }

    void progressComesInOrderAndBeforeTheEnd()
    {
        const auto here = std::this_thread::get_id();
        QList<int> seen;
        cWork<int> work;
        work.Start(
            [&](cWorkLink& link) {
                for (int step = 0; step < 1000; ++step)
                    link.Post([&, step] { seen.append(std::this_thread::get_id() == here ? step : -1); });
                return 0;
            },
            [&] {
                work.Take();
                seen.append(1000);
            });
        QTRY_VERIFY(!work.IsStarted());
        QCOMPARE(seen.size(), 1001);
        QVERIFY(std::is_sorted(seen.begin(), seen.end()));
        QCOMPARE(seen.first(), 0);
    }

    void workThatIsCancelledEndsByItself()
    {
        cWork<int> work;
        work.Start(UntilCancelled);
        QVERIFY(!work.IsDone(20ms));
        work.Cancel();
        QVERIFY(work.IsDone(10s));
        QCOMPARE(work.Take(), 7);
    }

    void anotherPieceEndsTheOneBefore()
    {
        QList<int> ends;
        cWork<int> work;
        work.Start(UntilCancelled, [&] { ends.append(1); });
        work.Start([](cWorkLink&) { return 2; }, [&] { ends.append(work.Take()); });
        QTRY_COMPARE(ends, QList<int>{2});
        QTest::qWait(20);
        QCOMPARE(ends, QList<int>{2});
    }

    // --- Owners that go. ---

    void anOwnerThatGoesCancelsAndWaits()
    {
        std::atomic<bool> hasEnded = false;
        int calls = 0;
        {
            cWork<int> work;
            work.Start(
                [&](cWorkLink& link) {
                    UntilCancelled(link);
                    link.Post([&] { ++calls; });
                    hasEnded = true;
                    return 0;
                },
                [&] { ++calls; });
        }
        QVERIFY(hasEnded);
        QTest::qWait(20);
        QCOMPARE(calls, 0);
    }

    void anOwnerThatGoesDropsWhatWasPosted()
    {
        int calls = 0;
        {
            cWork<int> work;
            work.Start(
                [&](cWorkLink& link) {
                    link.Post([&] { ++calls; });
                    return 0;
                },
                [&] { ++calls; });
            QVERIFY(work.IsDone(10s));
        }
        QTest::qWait(20);
        QCOMPARE(calls, 0);
    }

    void aQuestionToAnOwnerThatGoesEndsTheWork()
    {
        std::atomic<bool> isUnwound = false;
        {
            cWork<int> work;
            work.Start([&](cWorkLink& link) {
                try {
                    return link.Ask([] { return 1; });
                } catch (const OwnerGone&) {
                    isUnwound = true;
                    throw;
                }
            });
        }
        QVERIFY(isUnwound);
    }

    void anOwnerMayGoAtTheEnd()
    {
        auto work = std::make_unique<cWork<int>>();
        work->Start([](cWorkLink&) { return 1; }, [&] { work.reset(); });
        QTRY_VERIFY(work == nullptr);
    }

    void workThatHangsIsLetGo()
    {
        const auto gate = std::make_shared<Gate>();
        {
            cWork<int> work(Farewell::LetGo);
            work.Start([gate](cWorkLink&) {
                gate->Wait();
                return 0;
            });
        }
        QVERIFY(WaitForWorkLetGo(20ms) == WorkLeft::Hanging);
        gate->Open();
        QVERIFY(WaitForWorkLetGo(10s) == WorkLeft::None);
    }

    // --- Work that a command waits for. ---

    void eventsRunWhileACommandWaits()
    {
        Gate gate;
        QTimer::singleShot(20, this, [&] { gate.Open(); });
        QCOMPARE(RunWork([&](cWorkLink&) {
                     gate.Wait();
                     return 5;
                 }),
                 5);
    }

    void anErrorReachesTheCommand()
    {
        QVERIFY_EXCEPTION_THROWN(RunWork([](cWorkLink&) -> int { throw std::runtime_error("melted"); }),
                                 std::runtime_error);
    }

    void aQuestionIsAnsweredHereAndEventsGetATurn()
    {
        const auto here = std::this_thread::get_id();
        std::atomic<int> turns = 0;
        QTimer ticks;
        connect(&ticks, &QTimer::timeout, this, [&] { ++turns; });
        ticks.start(0);
        const int answer = RunWork([&](cWorkLink& link) {
            int good = 0;
            for (int step = 1; step <= 50; ++step) {
                const int before = turns;
                const bool isHere = link.Ask([&] { return std::this_thread::get_id() == here; });
                good += isHere && turns > before ? 1 : 0;
            }
            return good;
        });
        QCOMPARE(answer, 50);
    }

    void anErrorOfAnAnswerGoesThroughTheWork()
    {
        bool wasSeen = false;
        const auto work = [&](cWorkLink& link) {
            try {
                link.Ask([] { throw std::runtime_error("melted"); });
            } catch (const std::runtime_error&) {
                wasSeen = true;
                throw;
            }
            return 0;
        };
        QVERIFY_EXCEPTION_THROWN(RunWork(work), std::runtime_error);
        QVERIFY(wasSeen);
    }

    void aCommandWithoutResultIsWaitedForToo()
    {
        bool isDone = false;
        RunWork([&](cWorkLink&) { isDone = true; });
        QVERIFY(isDone);
    }

    void theEndOfTheLoopEndsTheWork()
    {
        std::optional<bool> wasUnwound;
        QTimer::singleShot(0, this, [&] {
            QTimer::singleShot(20, this, [] { QCoreApplication::exit(); });
            try {
                RunWork([](cWorkLink& link) {
                    UntilCancelled(link);
                    return link.Ask([] { return 1; });
                });
                wasUnwound = false;
            } catch (const OwnerGone&) {
                wasUnwound = true;
            }
        });
        QCoreApplication::exec();
        QVERIFY(wasUnwound == true);
    }

    void eventsRunBetweenSlices()
    {
        bool hasRun = false;
        QTimer::singleShot(0, this, [&] { hasRun = true; });
        LetEventsRun();
        QVERIFY(hasRun);
    }

    // --- The system. ---

    void aThreadThatCannotBeHadIsAnError()
    {
        const NoThreads none;
        bool hasRun = false;
        cWork<int> work;
        QVERIFY_EXCEPTION_THROWN(work.Start([&](cWorkLink&) {
            hasRun = true;
            return 0;
        }),
                                 NoThread);
        QVERIFY(!work.IsStarted());
        QVERIFY_EXCEPTION_THROWN(RunWork([&](cWorkLink&) { hasRun = true; }), NoThread);
        QVERIFY(!hasRun);
    }

    void theApplicationWaitsForWorkThatWasLetGo()
    {
        // The work ends after the owner has gone and before the application is gone.
        static std::atomic<bool> hasEnded = false;
        {
            cWork<int> work(Farewell::LetGo);
            work.Start([](cWorkLink&) {
                std::this_thread::sleep_for(200ms);
                hasEnded = true;
                return 0;
            });
        }
        QVERIFY(!hasEnded);
        // Called once more by the application's end, when there is nothing left to wait for.
        qt_call_post_routines();
        QVERIFY(hasEnded);
    }
};

QTEST_GUILESS_MAIN(tst_cWork)
#include "tst_cWork.moc"
