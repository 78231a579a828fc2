// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/finemap.h"
#include "finemap/worldoutline.h"

#include <vector>

namespace halvane {

/// The coast of the mainland of the Americas; empty where the outline has none.
MapRing mainland_of_the_americas(const WorldOutline& world);

/// A part of the land within one coast.
class Land {
public:
    explicit Land(const MapRing& coast);

    /// In     point  longitude -180 to 180
    bool holds(const MapPosition& point) const;

    /// What it shares with a window, by whole degrees outwards.
    MapWindow box_within(const MapWindow& window) const;

private:
    /// The longitudes at which a parallel meets the coast, rising.
    std::vector<double> crossings(double latitude) const;

    MapRing coast_;
    double south_ = 0; ///< of the first of the parallels                                          [deg]
    std::vector<std::vector<double>> of_whole_degrees_; ///< crossings of the parallels
};

} // namespace halvane
