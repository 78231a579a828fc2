// SPDX-License-Identifier: MIT
#include "timetable/manyplaces.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>

namespace halvane {
namespace {

using Take = std::function<void(std::size_t, const Timetable&)>;

/// Several threads that share out places among them.
class Workers {
public:
    Workers(const TheoryPointer& theory, const std::vector<TimetableSettings>& settings, const Take& take)
        : theory_(theory), settings_(settings), take_(take) {}

    bool run(Progress& progress) {
        const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
        std::vector<std::thread> threads;
        under_way_ = std::min(cores, settings_.size());
        for (std::size_t i = 0, count = under_way_; i < count; ++i)
            threads.emplace_back([this] { work(); });
        watch(progress);
        for (std::thread& thread : threads)
            thread.join();
        if (failure_)
            std::rethrow_exception(failure_);
        return done_ == settings_.size();
    }

private:
    /// The progress of a thread: it only learns that the work is given up.
    class Told final : public Progress {
    public:
        explicit Told(const std::atomic<bool>& given_up) : given_up_(given_up) {}
        void percent(double /*value*/) override {}
        bool yield() override { return !given_up_; }

    private:
        const std::atomic<bool>& given_up_;
    };

    /// For a few places the polynomials would cost more than they save.
    SeriesUse series_use() const {
        constexpr std::size_t few_places = 4;
        return settings_.size() > few_places ? SeriesUse::interpolated_year : SeriesUse::each_instant;
    }

    void work() {
        try {
            Told progress(given_up_);
            Ephemeris ephemeris(theory_, series_use());
            for (std::size_t number = next_++; number < settings_.size() && !given_up_; number = next_++) {
                const std::optional<Timetable> timetable =
                    make_timetable(ephemeris, settings_[number], progress);
                if (!timetable)
                    break;
                take_(number, *timetable);
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
        constexpr std::chrono::milliseconds pace(50);
        std::unique_lock lock(mutex_);
        while (under_way_ > 0) {
            ended_.wait_for(lock, pace);
            lock.unlock();
            progress.percent(100.0 * static_cast<double>(done_) / static_cast<double>(settings_.size()));
            if (!progress.yield())
                given_up_ = true;
            lock.lock();
        }
    }

    const TheoryPointer& theory_;
    const std::vector<TimetableSettings>& settings_;
    const Take& take_;
    std::atomic<std::size_t> next_{0};
    std::atomic<std::size_t> done_{0};
    std::atomic<bool> given_up_{false};
    std::mutex mutex_;
    std::condition_variable ended_;
    std::size_t under_way_ = 0;
    std::exception_ptr failure_;
};

} // namespace

bool make_timetables(const TheoryPointer& theory, const std::vector<TimetableSettings>& settings,
                     const Take& take, Progress& progress) {
    return settings.empty() || Workers(theory, settings, take).run(progress);
}

} // namespace halvane
