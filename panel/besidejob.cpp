// SPDX-License-Identifier: MIT
#include "panel/besidejob.h"

#include <QTimer>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace halvane {

namespace {

constexpr int look_interval = 15; // [ms]

} // namespace

/// What the panel's thread and the one that works share. `done` is set last and looked at first.
struct BesideJob::Shared : public Progress {
    explicit Shared(Work to_do) : work(std::move(to_do)) {}
    void percent(double value) override { how_far = static_cast<int>(value); }
    bool yield() override { return !cancelled; }

    void run() {
        try {
            work(*this);
        } catch (...) {
            failure = std::current_exception();
        }
        done = true;
    }

    const Work work;
    std::atomic<int> how_far = 0;
    std::atomic<bool> cancelled = false;
    std::atomic<bool> done = false;
    std::exception_ptr failure;
};

/// The thread that does one work after the other.
class BesideJob::Worker {
public:
    Worker() : thread_([this] { run(); }) {}
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;
    ~Worker() {
        {
            const std::lock_guard lock(mutex_);
            is_over_ = true;
        }
        wanted_.notify_one();
        thread_.join();
    }

    /// Takes the place of a work that has not begun.
    void give(std::shared_ptr<Shared> next) {
        {
            const std::lock_guard lock(mutex_);
            next_ = std::move(next);
        }
        wanted_.notify_one();
    }

private:
    void run() {
        while (const std::shared_ptr<Shared> job = next())
            if (!job->cancelled)
                job->run();
    }

    /// Waits for the next work; none when it is over.
    std::shared_ptr<Shared> next() {
        std::unique_lock lock(mutex_);
        wanted_.wait(lock, [this] { return is_over_ || next_ != nullptr; });
        return is_over_ ? nullptr : std::exchange(next_, nullptr);
    }

    std::mutex mutex_;
    std::condition_variable wanted_;
    std::shared_ptr<Shared> next_;
    bool is_over_ = false;
    std::thread thread_; ///< begins when all else is there
};

BesideJob::BesideJob(QObject* parent)
    : QObject(parent), worker_(std::make_unique<Worker>()), timer_(new QTimer(this)) {
    timer_->setInterval(look_interval);
    connect(timer_, &QTimer::timeout, this, &BesideJob::look);
}

BesideJob::~BesideJob() {
    cancel();
}

void BesideJob::start(Work work) {
    cancel();
    job_ = std::make_shared<Shared>(std::move(work));
    worker_->give(job_);
    timer_->start();
}

void BesideJob::cancel() {
    timer_->stop();
    failure_ = nullptr;
    if (job_ != nullptr)
        job_->cancelled = true;
    job_.reset();
}

void BesideJob::look() {
    if (!job_->done) {
        emit advanced(job_->how_far);
        return;
    }
    timer_->stop();
    const std::shared_ptr<Shared> job = std::exchange(job_, nullptr);
    failure_ = job->failure;
    emit ended();
}

} // namespace halvane
