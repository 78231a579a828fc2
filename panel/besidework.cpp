// SPDX-License-Identifier: MIT
#include "panel/besidework.h"

#include "routines/waitseconds.h"

#include <chrono>
#include <future>
#include <memory>
#include <thread>
#include <utility>

namespace halvane {

std::optional<std::string> made_beside(std::function<std::string()> work, Progress& progress) {
    constexpr double a_moment = 0.02; // [s]
    const auto task = std::make_shared<std::packaged_task<std::string()>>(std::move(work));
    std::future<std::string> bytes = task->get_future();
    std::thread([task] { (*task)(); }).detach();
    progress.percent(0);
    while (bytes.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        waitseconds(a_moment);
        if (!progress.yield())
            return std::nullopt;
    }
    return bytes.get();
}

} // namespace halvane
