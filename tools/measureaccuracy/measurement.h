// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace halvane {

/// The errors of one quantity of one routine against the Swiss Ephemeris.
struct Measurement {
    std::string routine;
    std::string quantity;
    std::string unit;
    double bound = 0; ///< what the routine promises
    std::size_t count = 0;
    double rms = 0;
    double maximum = 0;
    std::string worst;         ///< where the maximum, or the last event of one side only, stands
    std::size_t one_sided = 0; ///< events that only the engine or only the reference has

    bool is_kept() const { return count > 0 && maximum <= bound && one_sided == 0; }
};

/// Collects the errors of one quantity.
class Errors {
public:
    Errors(const std::string& routine, const std::string& quantity, const std::string& unit, double bound);

    /// A not finite error counts as infinite.
    void add(double error, const std::string& where);
    void add_one_sided(const std::string& where);
    Measurement result() const;

private:
    Measurement measurement_;
    double squares_ = 0;
};

/// Difference of two angles, folded to -180 to 180                                        [deg]
double angle_error(double found, double wanted);

/// First and last instant that is measured: 1900 January 1 and 2101 January 1              [d]
inline constexpr double first_instant = 2415020.5;
inline constexpr double last_instant = 2488434.5;

/// Places of Sun and Moon, Earth orientation and coordinates at 2000 instants, with dynamical time.
/// Reads `loc.vsk`, which it also rewrites; needs the series loaded.
std::vector<Measurement> measure_places();

/// Rise, set, transit, twilights and shadow time of 600 days at 60 places up to 60 deg of latitude.
/// Rewrites `loc.vsk` and `pref.vsk`; needs the series loaded.
std::vector<Measurement> measure_events();

/// All measurements, with settings of their own.
std::vector<Measurement> measure_all();

/// The measurements as a table in Markdown.
std::string markdown_table(const std::vector<Measurement>& measurements);

} // namespace halvane
