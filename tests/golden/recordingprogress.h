// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"

#include <functional>
#include <vector>

namespace halvane {

/// A run's progress that writes down what it is told and cancels at a chosen yield.
class RecordingProgress : public Progress {
public:
    static constexpr int never = -1;
    /// In     cancel_at  the yield, counted from 1, that answers "cancelled", and so do all after it
    explicit RecordingProgress(int cancel_at = never) : cancel_at_(cancel_at) {}

    void percent(double value) override { percents.push_back(value); }
    bool yield() override {
        ++yields;
        if (at_yield)
            at_yield(yields);
        return cancel_at_ == never || yields < cancel_at_;
    }

    std::vector<double> percents;
    int yields = 0;
    std::function<void(int)> at_yield; ///< what a user does during the run's n-th yield

private:
    int cancel_at_;
};

} // namespace halvane
