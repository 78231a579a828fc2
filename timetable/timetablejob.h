// SPDX-License-Identifier: MIT
#pragma once

#include "panel/besidejob.h"
#include "timetable/timetable.h"

#include <memory>
#include <optional>

namespace halvane {

/// Calculates timetables beside the event loop, one after the other: a new one cancels the one before.
class TimetableJob : public BesideJob {
    Q_OBJECT
public:
    using BesideJob::BesideJob;

    void start(const TheoryPointer& theory, const TimetableSettings& settings);

    /// What the last work gave; nothing after a failure.
    std::optional<Timetable> take_result();

private:
    std::shared_ptr<std::optional<Timetable>> result_;
};

} // namespace halvane
