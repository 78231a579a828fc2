// SPDX-License-Identifier: MIT
#pragma once

#include "batch/tasks.h"

namespace halvane {

/// The task of timetables.
Task timetable_task(const PageMaker& pages);

} // namespace halvane
