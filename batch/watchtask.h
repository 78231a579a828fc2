// SPDX-License-Identifier: MIT
#pragma once

#include "batch/tasks.h"

namespace halvane {

/// The task of the watch sheet.
Task watch_task(const PageMaker& pages);

} // namespace halvane
