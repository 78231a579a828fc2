// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace halvane {

class Theory;

/// Up to four smooth functions of time, from polynomials through their values at Chebyshev nodes. The pieces
/// are half a day long and computed when first asked for; those of the last days are kept.
/// Accuracy  3e-10 deg (tests/events), which is the rounding of the series' own arguments: a Julian day in a
///           double cannot tell the Moon's place to better than 6e-9 deg.
class InterpolatedSeries {
public:
    using Values = std::array<double, 4>;
    /// `days` of dynamical time from 2000. The first value may be an angle that jumps by 360.
    using Function = Values (*)(const Theory& theory, double days);
    /// `theory` must outlive the series.
    /// In     days_kept  of neighbouring days whose pieces are kept: a power of two
    InterpolatedSeries(const Theory& theory, Function function, std::size_t days_kept);

    Values at(double days);

private:
    static constexpr std::size_t nodes = 7;
    using Nodes = std::array<double, nodes>;
    static Nodes chebyshev_nodes();
    static constexpr std::size_t pieces_of_day = 2;
    struct Piece {
        double index = 0.5; ///< whole for a piece that has been computed
        std::array<Values, nodes> coefficients{};
    };
    void compute(Piece& piece) const;

    const Theory* theory_;
    Function function_;
    Nodes node_;
    std::vector<Piece> pieces_;
};

} // namespace halvane
