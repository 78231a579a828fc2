// SPDX-License-Identifier: MIT
#include "timetable/timetablejob.h"

#include <utility>

namespace halvane {

void TimetableJob::start(const TheoryPointer& theory, const TimetableSettings& settings) {
    result_ = std::make_shared<std::optional<Timetable>>();
    BesideJob::start([theory, settings, result = result_](Progress& progress) {
        *result = make_timetable(theory, settings, progress);
    });
}

std::optional<Timetable> TimetableJob::take_result() {
    return std::exchange(*result_, std::nullopt);
}

} // namespace halvane
