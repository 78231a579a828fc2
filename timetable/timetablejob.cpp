// SPDX-License-Identifier: MIT
#include "timetable/timetablejob.h"

#include <QThreadPool>
#include <QTimer>
#include <atomic>
#include <utility>

namespace halvane {

namespace {

constexpr int look_interval = 15; // [ms]

} // namespace

/// What the panel's thread and the one that calculates share. `done` is set last and looked at first.
struct TimetableJob::Shared : public Progress {
    void percent(double value) override { how_far = static_cast<int>(value); }
    bool yield() override { return !cancelled; }

    void run(const TheoryPointer& theory, const TimetableSettings& settings) {
        try {
            result = make_timetable(theory, settings, *this);
        } catch (...) {
            failure = std::current_exception();
        }
        done = true;
    }

    std::atomic<int> how_far = 0;
    std::atomic<bool> cancelled = false;
    std::atomic<bool> done = false;
    std::optional<Timetable> result;
    std::exception_ptr failure;
};

TimetableJob::TimetableJob(QObject* parent) : QObject(parent), timer_(new QTimer(this)) {
    timer_->setInterval(look_interval);
    connect(timer_, &QTimer::timeout, this, &TimetableJob::look);
}

TimetableJob::~TimetableJob() {
    cancel();
}

void TimetableJob::start(const TheoryPointer& theory, TimetableSettings settings) {
    cancel();
    job_ = std::make_shared<Shared>();
    QThreadPool::globalInstance()->start(
        [job = job_, theory, settings = std::move(settings)] { job->run(theory, settings); });
    timer_->start();
}

void TimetableJob::cancel() {
    timer_->stop();
    result_.reset();
    failure_ = nullptr;
    if (job_ != nullptr)
        job_->cancelled = true;
    job_.reset();
}

void TimetableJob::look() {
    if (!job_->done) {
        emit advanced(job_->how_far);
        return;
    }
    timer_->stop();
    const std::shared_ptr<Shared> job = std::exchange(job_, nullptr);
    result_ = std::move(job->result);
    failure_ = job->failure;
    emit ended();
}

std::optional<Timetable> TimetableJob::take_result() {
    return std::exchange(result_, std::nullopt);
}

} // namespace halvane
