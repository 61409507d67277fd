// SPDX-License-Identifier: GPL-3.0-or-later
// Background work that does not begin before the test lets it, as on a disk that does not answer.
#pragma once

#include "platform/work/cWork.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace ob {

class HeldThreads final {
public:
    HeldThreads()
    {
        before = SetThreadMaker([this](std::function<void()> body) {
            ++made;
            return std::thread([gate = gate, body = std::move(body)] {
                {
                    std::unique_lock lock(gate->mutex);
                    gate->opened.wait(lock, [&] { return gate->isOpen; });
                }
                body();
            });
        });
    }
    HeldThreads(const HeldThreads&) = delete;
    HeldThreads& operator=(const HeldThreads&) = delete;
    ~HeldThreads()
    {
        Release();
        SetThreadMaker(std::move(before));
    }

    void Release() const
    {
        const std::scoped_lock lock(gate->mutex);
        gate->isOpen = true;
        gate->opened.notify_all();
    }

    int Made() const { return made; }

private:
    struct Gate {
        std::mutex mutex;
        std::condition_variable opened;
        bool isOpen = false;
    };

    std::shared_ptr<Gate> gate = std::make_shared<Gate>();
    ThreadMaker before;
    int made = 0;
};

} // namespace ob
