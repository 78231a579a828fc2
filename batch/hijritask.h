// SPDX-License-Identifier: MIT
#pragma once

#include "batch/tasks.h"

namespace halvane {

/// The task of Hijri months.
Task hijri_task(const PageMaker& pages);

} // namespace halvane
