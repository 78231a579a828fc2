// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/criteria.h"
#include "ephemeris/ephemeris.h"
#include "stored/date.h"
#include "stored/visib.h"

#include <array>

namespace halvane {

/// What a map starts from: the geocentric conjunction and the days around it.
struct MapConjunction {
    double universal = 0;         ///< conjunction, UT1                                          [d]
    double delta_t = 0;           ///< at it, obtained once                                      [d]
    std::array<double, 5> days{}; ///< 0 h of its date, and one and two days after and before    [d]
};

/// Repeats the conjunction search, always geocentric.
/// In     start  Julian day near a New Moon, dynamical time; Conjunction::dynamical                [d]
MapConjunction map_conjunction(Ephemeris& ephemeris, double start);

/// 0 h of the day `choice` (0, 1, 2): that many days after the conjunction's date for a new crescent, before
/// it for an old one                                                                               [d]
double map_day(const MapConjunction& conjunction, CrescentKind kind, int choice);

/// What one map is drawn of.
struct MapRun {
    Criterion criterion = Criterion::vesk;
    CrescentKind kind = CrescentKind::new_crescent;
    double day = 0; ///< 0 h of the civil date, without a zone                                   [d]
    MapConjunction conjunction;
};

/// A point of the map as it is drawn.
struct MapPoint {
    int longitude = 0; ///< east positive                                                        [deg]
    int latitude = 0;  ///< north positive                                                       [deg]
    VisibilityClass visibility = VisibilityClass::not_possible;
    bool evaluated = false; ///< false: filled from the block's five points
    bool operator==(const MapPoint&) const = default;
};

/// The grid that a map is drawn on, in blocks                                                     [deg]
struct MapGrid {
    static constexpr int west = -180;
    static constexpr int east = 178;
    static constexpr int north = 60;
    static constexpr int south = -68;
    static constexpr int step = 2;        ///< from one place of the grid to the next
    static constexpr int block_step = 10; ///< from one block to the next
    static constexpr int block_span = 8;  ///< from the first to the last place of a block
    static constexpr int blocks = 36 * 13;

    /// The western and the northern side of the block that a place of the grid belongs to.
    static int block_west_of(int longitude);
    static int block_north_of(int latitude);
};

/// Takes the points of a map in drawing order.
class MapReceiver {
public:
    virtual ~MapReceiver() = default;
    virtual void point(const MapPoint& point) = 0;
    /// After each block; false stops the map.
    virtual bool go_on() = 0;
};

/// Topocentric conjunction of a point.
struct PointConjunction {
    double universal = 0; ///< UT1, to a quarter of a second                                     [d]
    int rounds = 0;       ///< of the search; 10 at most from a conjunction of the same lunation
};
/// In     start    where the search begins, taken as dynamical time                             [d]
///        delta_t  taken off the result                                                         [d]
PointConjunction point_conjunction(Ephemeris& ephemeris, const Observer& observer, double start,
                                   double delta_t);

/// The class of one point. The conjunction is refined for the point, topocentric, from `conjunction` and left
/// there for the next [d]. Reads no file. A value exactly in the gap of Yallop's bands is not painted.
VisibilityClass evaluate_point(Ephemeris& ephemeris, const MapRun& run, double longitude, double latitude,
                               double& conjunction);

/// Evaluates and fills the world in blocks of 10 degrees, longitude by longitude, latitude from 60 north
/// down: five points of each first; where they agree the block is filled, elsewhere every second degree is
/// evaluated. Returns false when the receiver has stopped it.
bool draw_visibility_map(const TheoryPointer& theory, const MapRun& run, MapReceiver& receiver);

/// Position of a point on the map's picture of 748 by 412 pixels.
struct MapPixel {
    double x, y;
};
MapPixel map_pixel(double longitude, double latitude);

/// Longitude and latitude under a pixel; the map's read-out has its own factors                 [deg]
struct MapPlace {
    double longitude, latitude;
};
MapPlace map_place(double x, double y);

inline constexpr int map_width = 748;
inline constexpr int map_height = 412;

} // namespace halvane
