// SPDX-License-Identifier: MIT
#include "base/sharedwork.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace halvane {
namespace {

class SharedWork {
public:
    SharedWork(std::size_t pieces, const std::function<DoPiece()>& begin) : pieces_(pieces), begin_(begin) {}

    bool run(Progress& progress) {
        {
            Threads threads(given_up_);
            start(threads.all);
            watch(threads.all.size(), progress);
        }
        if (failure_)
            std::rethrow_exception(failure_);
        return done_ == pieces_;
    }

private:
    /// Joins its threads at its end, also when a failure is raised beside them; they begin no piece then.
    struct Threads {
        explicit Threads(std::atomic<bool>& no_more_pieces) : given_up(no_more_pieces) {}
        Threads(const Threads&) = delete;
        Threads& operator=(const Threads&) = delete;
        ~Threads() {
            given_up = true;
            for (std::thread& thread : all)
                thread.join();
        }
        std::atomic<bool>& given_up;
        std::vector<std::thread> all;
    };

    /// Starts a thread on each core. Where the system gives fewer, these do all; none is a failure.
    void start(std::vector<std::thread>& threads) {
        const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
        const std::size_t wanted = std::min(cores, pieces_);
        threads.reserve(wanted);
        try {
            while (threads.size() < wanted)
                threads.emplace_back([this] { work(); });
        } catch (const std::system_error&) {
            if (threads.empty())
                throw;
        }
    }

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
        ++ended_threads_;
        ended_.notify_one();
    }

    /// Tells how far the threads have come, and hands a cancel on to them.
    void watch(std::size_t threads, Progress& progress) {
        constexpr std::chrono::milliseconds pace(20);
        std::unique_lock lock(mutex_);
        bool ended = false;
        while (!ended) { // the last word is told after the last piece
            ended = ended_.wait_for(lock, pace, [&] { return ended_threads_ == threads; });
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
    std::size_t ended_threads_ = 0;
    std::exception_ptr failure_;
};

} // namespace

bool share_work(std::size_t pieces, const std::function<DoPiece()>& begin, Progress& progress) {
    return pieces == 0 || SharedWork(pieces, begin).run(progress);
}

} // namespace halvane
