// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"

namespace halvane::bench {

/// The progress of a run that nobody watches.
class NoProgress : public Progress {
public:
    void percent(double /*value*/) override {}
    bool yield() override { return true; }
};

} // namespace halvane::bench
