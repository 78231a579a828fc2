// SPDX-License-Identifier: MIT
#include "timetable/night.h"

#include "events/suntransit.h"
#include "timetable/clockunits.h"

#include <cmath>

namespace halvane {
namespace {

class NightSearch {
public:
    NightSearch(Ephemeris& ephemeris, const NightSky& sky, double jd, double transit)
        : ephemeris_(ephemeris), sky_(sky), transit_(transit), start_(Instant::of_ut1(jd + transit / 24)) {}

    Night run() {
        Night night;
        night.transit = transit_;
        const RiseSet sun = search(Target::sun, sky_.horizon);
        night.sunset = from_date(sun.set);
        night.sunrise = from_date(sun.rise);
        const RiseSet dawn = search(Target::fajer, sky_.horizon);
        night.fajer = from_date(dawn.rise);
        const bool alike = sky_.horizon.fajer_angle == sky_.horizon.isha_angle;
        night.isha = from_date(alike ? dawn.set : search(Target::isha, sky_.horizon).set);
        night.maghreb = sky_.maghreb_angle == 0 ? night.sunset : maghreb_by_angle();
        return night;
    }

private:
    RiseSet search(Target target, const Horizon& horizon) {
        return find_rise_set(ephemeris_, target, start_, sky_.observer, horizon);
    }

    SkyTime maghreb_by_angle() {
        Horizon horizon = sky_.horizon;
        horizon.isha_angle = sky_.maghreb_angle;
        return from_date(search(Target::isha, horizon).set);
    }

    SkyTime from_date(const TaggedTime& since_transit) const {
        return SkyTime(since_transit).after(transit_);
    }

    Ephemeris& ephemeris_;
    const NightSky& sky_;
    double transit_;
    Instant start_;
};

} // namespace

double transit_of_date(Ephemeris& ephemeris, double longitude, double jd, double ahead) {
    // On a clock whose noon is within half a day of the observer's, whatever side of the date line its zone
    // is on.
    const double meridian = std::remainder(ahead * 15 - longitude, 360.0);
    return find_sun_transit(ephemeris, jd, {ahead, 12, meridian * 4}).hours - ahead;
}

Night night_after(Ephemeris& ephemeris, const NightSky& sky, double jd, double transit) {
    return NightSearch(ephemeris, sky, jd, transit).run();
}

SkyTime aser_before(Ephemeris& ephemeris, const NightSky& sky, double jd, const Night& night,
                    int shadow_lengths) {
    Horizon horizon = sky.horizon;
    horizon.shadow_lengths = shadow_lengths;
    const double start = night.transit - hours_per_day / 2.0;
    const RiseSet found =
        find_rise_set(ephemeris, Target::aser, Instant::of_ut1(jd + start / 24), sky.observer, horizon);
    const SkyTime aser = SkyTime(found.set).after(start);
    // A noon Sun on the horizon has a shadow so long that it has grown at once, and less than the
    // refraction's two formulae differ: the search then falls before noon or finds nothing.
    const bool at_noon = aser ? *aser.hours < night.transit : aser.missing == NoEvent::down;
    return at_noon ? SkyTime(night.transit, TimeSource::sky) : aser;
}

} // namespace halvane
