#pragma once

#include <utility>

namespace halvane {

/// Which time a Julian day handed to the engine is: 0 UT1, 1 dynamical time (TDT). Default 0. Every run
/// states its own through a TdtSpan; nothing else writes it. Single thread.
extern int tdtinput;

/// Sets `tdtinput` for the span of a run or of an open panel. Spans may end in any order (a panel can be
/// closed while a run of another one waits): the value of the latest span that lives holds.
class TdtSpan {
public:
    [[nodiscard]] explicit TdtSpan(int value) : saved_(std::exchange(tdtinput, value)), below_(latest_) {
        if (below_ != nullptr)
            below_->above_ = this;
        latest_ = this;
    }
    TdtSpan(const TdtSpan&) = delete;
    TdtSpan& operator=(const TdtSpan&) = delete;
    ~TdtSpan() {
        (above_ != nullptr ? above_->saved_ : tdtinput) = saved_;
        (above_ != nullptr ? above_->below_ : latest_) = below_;
        if (below_ != nullptr)
            below_->above_ = above_;
    }

private:
    static inline TdtSpan* latest_ = nullptr;
    int saved_;
    TdtSpan* below_;
    TdtSpan* above_ = nullptr;
};

/// Delta T = TDT - UT1.
/// In     jd       Julian day, UT1 or TDT alike      [d]
/// Out    delta_t  [d]
/// Reads no switch and keeps no copy. A plain fractional year, no calendar; branches from -500 to 2150, a
/// parabola outside.
/// Source Espenak and Meeus, Five Millennium Canon of Solar Eclipses, NASA/TP-2006-214141.
void moddeltat(double jd, double& delta_t);

} // namespace halvane
