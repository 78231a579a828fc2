#pragma once

#include "calendar/switchguard.h"

#include <array>

namespace halvane {

/// Whether the low-precision Sun of the fast routines, the periodic terms of the Moon and both orientations
/// of the Earth come from interpolated series. Default false. Single thread.
extern bool interpolating;

/// Turns that on while it lives. Worth it for thousands of places within days of each other.
class InterpolationSpan {
public:
    InterpolationSpan() : guard_(interpolating, true) {}

private:
    SwitchGuard<bool> guard_;
};

/// Up to four smooth functions of time, from polynomials through their values at Chebyshev nodes. The pieces
/// are half a day long and computed when first asked for; the last 16 are kept.
/// Accuracy  3e-10 deg (tests/events), which is the rounding of the series' own arguments: a Julian day in a
///           double cannot tell the Moon's place to better than 6e-9 deg.
class InterpolatedSeries {
public:
    using Values = std::array<double, 4>;
    /// `days` of dynamical time from 2000. The first value may be an angle that jumps by 360.
    using Function = Values (*)(double days);
    explicit InterpolatedSeries(Function function) : function_(function) {}

    Values at(double days);

private:
    static constexpr int nodes = 7;
    static constexpr int kept_pieces = 16;
    struct Piece {
        double index = 0.5; ///< whole for a piece that has been computed
        unsigned generation = 0;
        std::array<Values, nodes> coefficients{};
    };
    void compute(Piece& piece) const;

    Function function_;
    std::array<Piece, kept_pieces> pieces_{};
};

} // namespace halvane
