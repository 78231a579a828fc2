// SPDX-License-Identifier: MIT
#include "panel/besidejob.h"

#include <QThreadPool>
#include <QTimer>
#include <atomic>
#include <utility>

namespace halvane {

namespace {

constexpr int look_interval = 15; // [ms]

} // namespace

/// What the panel's thread and the one that works share. `done` is set last and looked at first.
struct BesideJob::Shared : public Progress {
    void percent(double value) override { how_far = static_cast<int>(value); }
    bool yield() override { return !cancelled; }

    void run(const Work& work) {
        try {
            work(*this);
        } catch (...) {
            failure = std::current_exception();
        }
        done = true;
    }

    std::atomic<int> how_far = 0;
    std::atomic<bool> cancelled = false;
    std::atomic<bool> done = false;
    std::exception_ptr failure;
};

BesideJob::BesideJob(QObject* parent) : QObject(parent), timer_(new QTimer(this)) {
    timer_->setInterval(look_interval);
    connect(timer_, &QTimer::timeout, this, &BesideJob::look);
}

BesideJob::~BesideJob() {
    cancel();
}

void BesideJob::start(Work work) {
    cancel();
    job_ = std::make_shared<Shared>();
    QThreadPool::globalInstance()->start([job = job_, work = std::move(work)] { job->run(work); });
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
