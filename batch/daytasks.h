// SPDX-License-Identifier: MIT
#pragma once

#include "batch/tasks.h"

namespace halvane {

// The tasks of a moment or a day, for status bars and terminals. They write no file that is not asked for.

Task next_task();
Task day_task();
Task sun_task();

} // namespace halvane
