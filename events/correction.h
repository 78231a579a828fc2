#pragma once

namespace halvane {

/// Time by which an event's estimate is off: how long the body takes from its altitude to `h0`          [h]
/// In     altitude, h0, declination, hour_angle [deg]; cosine_latitude
/// Source Meeus, Astronomical Algorithms, chapter "Rising, Transit, and Setting".
double hours_to_altitude(double altitude, double h0, double cosine_latitude, double declination,
                         double hour_angle);

/// Whether a correction has thrown an estimate [h] out of every century: near a pole the body does not come
/// to the altitude, and the search is over. The theories have no meaning there.
bool has_left_the_theories(double hours);

} // namespace halvane
