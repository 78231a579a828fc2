// SPDX-License-Identifier: MIT
#pragma once

#include "batch/pagemaker.h"

namespace halvane {

/// All that a program of the batch does, from its command line to its exit status. Failures are printed.
int run_batch(int argc, char** argv, const PageMaker& pages);

} // namespace halvane
