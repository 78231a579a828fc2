// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"

#include <QObject>
#include <exception>
#include <functional>
#include <memory>

class QTimer;

namespace halvane {

/// Works beside the event loop, one work after the other: a new one cancels the one before.
class BesideJob : public QObject {
    Q_OBJECT
public:
    /// Runs on the job's own thread, which is done when it returns. It owns or shares all that it needs.
    using Work = std::function<void(Progress& progress)>;

    explicit BesideJob(QObject* parent = nullptr);
    BesideJob(const BesideJob&) = delete;
    BesideJob& operator=(const BesideJob&) = delete;
    /// Cancels, and waits until the work has learned of it.
    ~BesideJob() override;

    /// The work begins once the one before has learned of its cancel.
    void start(Work work);
    /// The work learns of it when it next asks its progress. Neither signal comes any more.
    void cancel();
    bool is_running() const { return job_ != nullptr; }

    /// Why the last work ended without its result; null when it has one.
    std::exception_ptr failure() const { return failure_; }

signals:
    void advanced(int percent);
    void ended();

private:
    struct Shared;
    class Worker;
    void look();

    std::unique_ptr<Worker> worker_;
    std::shared_ptr<Shared> job_; ///< under way
    QTimer* timer_;
    std::exception_ptr failure_;
};

} // namespace halvane
