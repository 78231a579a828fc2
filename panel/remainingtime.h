// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

namespace halvane {

/// The time a run still needs, told only when it is sound: once the run has gone on for some seconds, and
/// only while its pace now is that of all of it so far.
class RemainingTime {
public:
    /// In     seconds  since some fixed instant
    ///        percent  how far the run has come; less than before begins a new run
    void tell(double seconds, double percent);
    /// [s]
    std::optional<double> left() const;

private:
    struct Moment {
        double seconds;
        double percent;
    };
    double left_since(const Moment& earlier) const;

    std::vector<Moment> moments_;
    Moment now_{0, 0};
};

} // namespace halvane
