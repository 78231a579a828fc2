// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"
#include "batch/finemapoptions.h"
#include "batch/pagemaker.h"
#include "batch/tasks.h"

namespace halvane {

/// Makes the fine map, or the three of a conjunction, that the options ask for; gives the exit status.
/// Error  raises UsageMistake for a mistake on the command line.
int run_fine_map(const FineMapOptions& options, const PageMaker& painter, Progress& progress);

/// In     painter  who draws the pages
Task atlas_task(const PageMaker& painter);

} // namespace halvane
