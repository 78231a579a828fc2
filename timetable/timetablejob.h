// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/timetable.h"

#include <QObject>
#include <exception>
#include <memory>
#include <optional>

class QTimer;

namespace halvane {

/// Calculates timetables beside the event loop, one after the other: a new one cancels the one before.
class TimetableJob : public QObject {
    Q_OBJECT
public:
    explicit TimetableJob(QObject* parent = nullptr);
    TimetableJob(const TimetableJob&) = delete;
    TimetableJob& operator=(const TimetableJob&) = delete;
    ~TimetableJob() override;

    void start(const TheoryPointer& theory, TimetableSettings settings);
    /// Neither signal comes any more.
    void cancel();
    bool is_running() const { return job_ != nullptr; }

    /// What the last work gave; nothing after a failure.
    std::optional<Timetable> take_result();
    /// Why it gave nothing.
    std::exception_ptr failure() const { return failure_; }

signals:
    void advanced(int percent);
    void ended();

private:
    struct Shared;
    void look();

    std::shared_ptr<Shared> job_; ///< under way
    QTimer* timer_;
    std::optional<Timetable> result_;
    std::exception_ptr failure_;
};

} // namespace halvane
