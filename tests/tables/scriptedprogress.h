#pragma once

#include "app/report/progress.h"

#include <vector>

namespace halvane {

/// Writes down what a run tells, and cancels it at a row.
class ScriptedProgress : public Progress {
public:
    /// `cancelled_row` counts from 1; 0 cancels at none.
    explicit ScriptedProgress(int cancelled_row = 0) : cancelled_row_(cancelled_row) {}
    void percent(double value) override { told.push_back(value); }
    bool yield() override { return ++rows != cancelled_row_; }

    std::vector<double> told;
    int rows = 0;

private:
    int cancelled_row_;
};

} // namespace halvane
