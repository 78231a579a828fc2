// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/timetable.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace halvane {

/// The use of the series that suits an ephemeris for so many places: for a few of them the polynomials would
/// cost more than they save.
SeriesUse series_use(std::size_t places);

/// Calculates the timetables of several places on all cores.
/// In     take  is given each as it is done, with the place's number from 0; by several threads at once
/// Returns whether all were done: false after a cancel.
/// Error  raises the first failure of a calculation or of `take`; the other places are given up.
bool make_timetables(const TheoryPointer& theory, const std::vector<TimetableSettings>& settings,
                     const std::function<void(std::size_t number, const Timetable& timetable)>& take,
                     Progress& progress);

} // namespace halvane
