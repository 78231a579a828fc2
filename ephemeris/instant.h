// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/moddeltat.h"

namespace halvane {

/// The clock that a Julian day counts on: the turning Earth's (UT1) or that of the theories (TDT).
enum class TimeScale { ut1, dynamical };

/// A moment, built from a Julian day of either time scale; it gives both.
class Instant {
public:
    /// In     jd  Julian day in `scale`                                                          [d]
    Instant(double jd, TimeScale scale) : jd_(jd), scale_(scale) { moddeltat(jd, delta_t_); }
    static Instant of_ut1(double jd) { return {jd, TimeScale::ut1}; }
    static Instant of_dynamical(double jd) { return {jd, TimeScale::dynamical}; }

    /// The Julian day in the scale that the moment was built in                                  [d]
    double jd() const { return jd_; }
    TimeScale scale() const { return scale_; }

    /// TDT less UT1, taken at `jd()`                                                             [d]
    double delta_t() const { return delta_t_; }

    /// The Julian day in either scale; Delta T is taken at `jd()`                                [d]
    double ut1() const { return scale_ == TimeScale::ut1 ? jd_ : jd_ - delta_t_; }
    double dynamical() const { return scale_ == TimeScale::dynamical ? jd_ : jd_ + delta_t_; }

    /// The dynamical Julian day when `jd()` is taken for UT1 whatever its scale                   [d]
    double dynamical_as_of_ut1() const { return jd_ + delta_t_; }

    /// The moment so many days or hours later, in the same scale.
    Instant after(double days) const { return {jd_ + days, scale_}; }
    Instant after_hours(double hours) const { return {jd_ + hours / 24, scale_}; }

    bool operator==(const Instant&) const = default;

private:
    double jd_;
    TimeScale scale_;
    double delta_t_ = 0; ///< [d]
};

} // namespace halvane
