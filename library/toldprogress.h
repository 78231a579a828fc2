// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"
#include "halvane/engine.h"

namespace halvane::v1 {

/// Tells the user's own progress, which may be none.
class ToldProgress final : public halvane::Progress {
public:
    explicit ToldProgress(v1::Progress* told) : told_(told) {}
    void percent(double value) override { percent_ = value; }
    bool yield() override { return told_ == nullptr || told_->goes_on(percent_); }

private:
    v1::Progress* told_;
    double percent_ = 0;
};

/// Raises Error (cancelled).
[[noreturn]] void raise_cancelled();

} // namespace halvane::v1
