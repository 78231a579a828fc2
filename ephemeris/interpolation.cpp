// SPDX-License-Identifier: MIT
#include "ephemeris/interpolation.h"

#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

namespace {

constexpr double piece_length = 0.5; // two pieces a day

/// Newton's divided differences, in place.
template <std::size_t N>
void divide_differences(const std::array<double, N>& node, std::array<InterpolatedSeries::Values, N>& value) {
    for (std::size_t order = 1; order < N; ++order)
        for (std::size_t i = N - 1; i >= order; --i)
            for (std::size_t k = 0; k < value[i].size(); ++k)
                value[i][k] = (value[i][k] - value[i - 1][k]) / (node[i] - node[i - order]);
}

/// The largest whole number up to `x`, which is of a size that an integer takes.
double floor_of(double x) {
    const auto whole = static_cast<double>(static_cast<long long>(x));
    return whole > x ? whole - 1 : whole;
}

} // namespace

InterpolatedSeries::Nodes InterpolatedSeries::chebyshev_nodes() {
    Nodes node{};
    for (std::size_t i = 0; i < nodes; ++i)
        node[i] = std::cos(pi * (static_cast<double>(i) + 0.5) / static_cast<double>(nodes));
    return node;
}

InterpolatedSeries::InterpolatedSeries(const Theory& theory, Function function, std::size_t days_kept)
    : theory_(&theory), function_(function), node_(chebyshev_nodes()), pieces_(days_kept * pieces_of_day) {}

void InterpolatedSeries::compute(Piece& piece) const {
    for (std::size_t i = 0; i < nodes; ++i) {
        Values& value = piece.coefficients[i];
        value = function_(*theory_, (piece.index + (node_[i] + 1) / 2) * piece_length);
        value[0] = piece.coefficients[0][0] + rev180(value[0] - piece.coefficients[0][0]);
    }
    divide_differences(node_, piece.coefficients);
}

InterpolatedSeries::Values InterpolatedSeries::at(double days) {
    constexpr double longest_span = 1e9;
    if (!(std::fabs(days) < longest_span))
        return function_(*theory_, days);
    const double position = days / piece_length;
    const double index = floor_of(position);
    Piece& piece = pieces_[static_cast<std::size_t>(static_cast<long long>(index)) & (pieces_.size() - 1)];
    if (piece.index != index) {
        piece.index = index;
        compute(piece);
    }
    const double x = 2 * (position - index) - 1;
    Values value = piece.coefficients[nodes - 1];
    for (std::size_t i = nodes - 1; i-- > 0;)
        for (std::size_t k = 0; k < value.size(); ++k)
            value[k] = value[k] * (x - node_[i]) + piece.coefficients[i][k];
    return value;
}

} // namespace halvane
