#include "events/modriseset.h"

#include "base/failure.h"
#include "calendar/moddeltat.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/series.h"
#include "ephemeris/sun.h"
#include "events/correction.h"
#include "events/modquad.h"
#include "stored/loc.h"
#include "stored/pref.h"

#include <array>
#include <cmath>
#include <limits>

namespace halvane {

double sunhorizonalt = 0;
double moonhorizonalt = 0;
std::optional<double> forcedtwilight;

double horizon_dip(double height) {
    const double root = std::sqrt(std::fabs(height));
    const double dip = 0.02917 * root + 0.0061667 * root;
    return height < 0 ? -dip : dip;
}

double horizon_refraction(double pressure, double temperature) {
    constexpr double standard = 0.5692857;
    if (pressure == 1010 && temperature == 10)
        return standard;
    return standard * (0.28 * pressure / (temperature + 273));
}

namespace {

/// The low Sun's altitudes of one day stand at the same hours for every threshold: they are computed once for
/// the searches of that day.
class ScannedSun {
public:
    /// Sine of the altitude at `hour` of the day `jd0`.
    double sine_of_altitude(const Observer& observer, double jd0, int hour) {
        if (jd0 != jd0_ || location_ != loc_version() || reference_ != tdtinput ||
            generation_ != series_generation())
            start(jd0);
        double& value = sine_[static_cast<std::size_t>(hour)];
        if (std::isnan(value)) {
            const double jd = jd0 + hour / 24.0;
            const SunPlace sun = geocentric_sun_low(jd);
            value = std::sin(altitude_of(observer, jd, sun.right_ascension, sun.declination) *
                             radians_per_degree);
        }
        return value;
    }

private:
    void start(double jd0) {
        sine_.fill(std::numeric_limits<double>::quiet_NaN());
        jd0_ = jd0;
        location_ = loc_version();
        reference_ = tdtinput;
        generation_ = series_generation();
    }
    static constexpr std::size_t hours_scanned = 26;
    std::array<double, hours_scanned> sine_{};
    double jd0_ = std::numeric_limits<double>::quiet_NaN();
    unsigned location_ = 0;
    int reference_ = 0;
    unsigned generation_ = 0;
};

struct Search {
    std::string_view body;
    double jd0;
    const Preferences& preferences;
    const Location& location;
    const Observer& observer;
    MoonPlace moon_at_one; ///< the Moon one hour after the day's start, when she is the body

    bool is_moon() const { return body == "Moon"; }
    bool is_twilight() const { return body == "Fajer" || body == "Isha"; }
    bool dip_counts() const { return preferences.elevation_setting == "1"; }
    double refraction() const { return horizon_refraction(location.pressure, location.temperature); }
};

double sun_threshold(const Search& search) {
    const double radius = geocentric_sun_medium(search.jd0 + 0.5).radius;
    const double depression = search.refraction() + 0.2665639 / radius - 0.0024;
    const double dip = horizon_dip(search.location.elevation);
    sunhorizonalt = -(dip + depression);
    return search.dip_counts() ? sunhorizonalt : -depression;
}

/// `horizon` is false while the scan follows the Moon's parallax: `moonhorizonalt` is set once a day.
double moon_threshold(const Search& search, const MoonPlace& moon, bool horizon) {
    const double depression = search.refraction() + moon.topocentric_semidiameter - moon.parallax;
    const double with_dip = -(horizon_dip(search.location.elevation) + depression);
    if (horizon)
        moonhorizonalt = with_dip;
    return search.dip_counts() ? with_dip : -depression;
}

double twilight_threshold(const Search& search) {
    const double stored =
        search.body == "Fajer" ? search.preferences.fajer_angle : search.preferences.isha_angle;
    return -forcedtwilight.value_or(stored);
}

/// Altitude at which a shadow has grown by its rule's length since noon.
/// Source Meeus, Astronomical Algorithms, chapter "Atmospheric Refraction" (both refractions).
double asr_threshold(const Search& search) {
    const double declination = geocentric_sun_medium(search.jd0 + 0.5).declination * radians_per_degree;
    const double latitude = search.observer.latitude * radians_per_degree;
    const double x = std::sin(latitude) * std::sin(declination) + std::cos(declination) * std::cos(latitude);
    const double noon = std::atan(x / std::sqrt(1 - x * x));
    const double noon_degrees = noon * degrees_per_radian;
    const double air = (search.location.pressure / 1010) * (283 / (search.location.temperature + 273));
    const double lift =
        1.02 / std::tan((noon_degrees + 10.3 / (noon_degrees + 5.11)) * radians_per_degree) / 60 * air;
    const double apparent_noon = noon + lift * radians_per_degree;

    const double shadow = 1 / std::tan(apparent_noon) + (search.preferences.asr_rule == "1" ? 1 : 2);
    const double u = std::atan(shadow) + pi / 2;
    const double apparent = 90 - std::fabs((pi / 2 - u) * degrees_per_radian);
    const double refraction = 1 / std::tan((apparent + 7.31 / (apparent + 4.4)) * radians_per_degree) * air;
    return apparent - refraction / 60;
}

double threshold(const Search& search) {
    if (search.body == "Sun")
        return sun_threshold(search);
    if (search.is_moon())
        return moon_threshold(search, search.moon_at_one, true);
    return search.is_twilight() ? twilight_threshold(search) : asr_threshold(search);
}

struct Found {
    bool rise = false;
    bool set = false;
    bool above = false; ///< above the threshold at the day's start
    double rise_hours = 0;
    double set_hours = 0;
};

/// Sine of the altitude of a body at an hour of the day.
class Altitudes {
public:
    explicit Altitudes(const Search& search) : search_(search) {}

    double sine(int hour) {
        if (!search_.is_moon())
            return scanned_sun().sine_of_altitude(search_.observer, search_.jd0, hour);
        return sine_of(geocentric_moon_low(instant(hour)), hour);
    }
    MoonPlace moon(int hour) const {
        return hour == 1 ? search_.moon_at_one : moon_low(search_.observer, instant(hour));
    }
    double sine_of(const MoonPlace& moon, int hour) const {
        return std::sin(altitude_of(search_.observer, instant(hour), moon.right_ascension, moon.declination) *
                        radians_per_degree);
    }

private:
    double instant(int hour) const { return search_.jd0 + hour / 24.0; }
    static ScannedSun& scanned_sun() {
        static ScannedSun scanned;
        return scanned;
    }
    const Search& search_;
};

void take_roots(int hour, double ym, double y0, double yp, Found& found) {
    double xe = 0;
    double ye = 0;
    double root1 = 0;
    double root2 = 0;
    int roots = 0;
    modquad(ym, y0, yp, xe, ye, root1, root2, roots);
    if (roots == 1) {
        const bool rising = ym < 0;
        (rising ? found.rise : found.set) = true;
        (rising ? found.rise_hours : found.set_hours) = hour + root1;
    } else if (roots == 2) {
        found.rise = found.set = true;
        found.rise_hours = hour + (ye < 0 ? root2 : root1);
        found.set_hours = hour + (ye < 0 ? root1 : root2);
    }
}

/// Looks through the day in steps of two hours. `h0` follows the Moon's parallax and semidiameter.
Found scan(const Search& search, double& h0) {
    const auto sine_of_h0 = [&h0] { return std::sin(h0 * radians_per_degree); };
    Altitudes altitudes(search);
    Found found;
    double target = sine_of_h0();
    double ym = altitudes.sine(0) - target;
    found.above = ym > 0;
    for (int hour = 1; hour < 25 && !(found.rise && found.set); hour += 2) {
        double y0 = 0;
        if (search.is_moon()) {
            const MoonPlace moon = altitudes.moon(hour);
            h0 = moon_threshold(search, moon, false);
            target = sine_of_h0();
            y0 = altitudes.sine_of(moon, hour) - target;
        } else {
            y0 = altitudes.sine(hour) - target;
        }
        const double yp = altitudes.sine(hour + 1) - target;
        take_roots(hour, ym, y0, yp, found);
        ym = yp;
    }
    return found;
}

/// Corrects an event until a correction is below half a second.
double refine(const Search& search, double h0, double event) {
    constexpr double half_a_second = 0.00013889;
    constexpr int most_rounds = 51;
    double t = event;
    for (int rounds = 0; rounds < most_rounds; ++rounds) {
        t = event;
        modcrc(t, search.jd0, h0, search.observer.latitude, search.observer.longitude, search.body);
        if (std::fabs(event - t) <= half_a_second || has_left_the_theories(t))
            break;
        event = t;
    }
    return t;
}

} // namespace

void modriseset(std::string_view body, double jd0, TaggedTime& rise, TaggedTime& set) {
    const Observer observer = stored_observer();
    Search search{body, jd0, read_pref(), read_loc(), observer, {}};
    if (search.is_moon())
        search.moon_at_one = moon_low(observer, jd0 + 1.0 / 24);
    double h0 = require_finite(threshold(search), {"a rise or set altitude", "ارتفاع الشروق أو الغروب"});
    Found found = scan(search, h0);
    if (found.rise) {
        found.rise_hours = refine(search, h0, found.rise_hours);
        found.rise = within_day(found.rise_hours);
    }
    if (found.set) {
        found.set_hours = refine(search, h0, found.set_hours);
        found.set = within_day(found.set_hours);
    }
    if (!found.rise && !found.set) {
        rise = set = search.is_twilight() ? (found.above ? NoEvent::bright : NoEvent::dark)
                                          : (found.above ? NoEvent::up : NoEvent::down);
        return;
    }
    rise = found.rise ? TaggedTime(found.rise_hours) : TaggedTime(NoEvent::none);
    set = found.set ? TaggedTime(found.set_hours) : TaggedTime(NoEvent::none);
}

} // namespace halvane
