// SPDX-License-Identifier: MIT
#include "base/sharedwork.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace halvane {
namespace {

class SharedWork {
public:
    SharedWork(std::size_t pieces, const std::function<DoPiece()>& begin) : pieces_(pieces), begin_(begin) {}

    bool run(Progress& progress) {
        const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
        under_way_ = std::min(cores, pieces_);
        std::vector<std::thread> threads;
        for (std::size_t i = 0, count = under_way_; i < count; ++i)
            threads.emplace_back([this] { work(); });
        watch(progress);
        for (std::thread& thread : threads)
            thread.join();
        if (failure_)
            std::rethrow_exception(failure_);
        return done_ == pieces_;
    }

private:
    void work() {
        try {
            const DoPiece do_piece = begin_();
            for (std::size_t piece = next_++; piece < pieces_ && !given_up_; piece = next_++) {
                do_piece(piece);
                ++done_;
            }
        } catch (...) {
            const std::lock_guard lock(mutex_);
            if (!failure_)
                failure_ = std::current_exception();
            given_up_ = true;
        }
        const std::lock_guard lock(mutex_);
        --under_way_;
        ended_.notify_one();
    }

    /// Tells how far the threads have come, and hands a cancel on to them.
    void watch(Progress& progress) {
        constexpr std::chrono::milliseconds pace(20);
        std::unique_lock lock(mutex_);
        while (under_way_ > 0) {
            ended_.wait_for(lock, pace);
            lock.unlock();
            progress.percent(100.0 * static_cast<double>(done_) / static_cast<double>(pieces_));
            if (!progress.yield())
                given_up_ = true;
            lock.lock();
        }
    }

    const std::size_t pieces_;
    const std::function<DoPiece()>& begin_;
    std::atomic<std::size_t> next_{0};
    std::atomic<std::size_t> done_{0};
    std::atomic<bool> given_up_{false};
    std::mutex mutex_;
    std::condition_variable ended_;
    std::size_t under_way_ = 0;
    std::exception_ptr failure_;
};

} // namespace

bool share_work(std::size_t pieces, const std::function<DoPiece()>& begin, Progress& progress) {
    return pieces == 0 || SharedWork(pieces, begin).run(progress);
}

} // namespace halvane
