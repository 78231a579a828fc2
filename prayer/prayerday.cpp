// SPDX-License-Identifier: MIT
#include "prayer/prayerday.h"

#include "base/failure.h"
#include "calendar/civildate.h"
#include "calendar/shownclock.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "events/suntransit.h"
#include "prayer/highlatitude.h"
#include "settings/enginesettings.h"

#include <cmath>

namespace halvane {
namespace {

/// Hours by which a place so many kilometres further east comes earlier.
double hours_of_city(double kilometres, double latitude) {
    if (kilometres == 0)
        return 0;
    const double phi = latitude * radians_per_degree;
    const double kilometres_per_degree = 111.413 * std::cos(phi) - 0.094 * std::cos(3 * phi);
    return kilometres / kilometres_per_degree * 4 / 60;
}

/// An event moved by some hours: beyond the day there is none.
TaggedTime moved(const TaggedTime& event, double hours) {
    const double* time = hours_of(event);
    if (time == nullptr)
        return event;
    const double result = *time + hours;
    return within_day(result) ? TaggedTime(result) : TaggedTime(NoEvent::none);
}

/// One day's calculation; the steps share its settings and what the steps before have found.
class DayCalculation {
public:
    DayCalculation(Ephemeris& ephemeris, const PrayerSettings& settings, double jd, int summer_hours)
        : ephemeris_(ephemeris), settings_(settings), jd_(jd),
          clock_ahead_(settings.location.zone + summer_hours),
          start_(Instant::of_ut1(jd - clock_ahead_ / 24)) {
        day_.summer_hours = summer_hours;
    }

    PrayerDay run() {
        find_sun();
        find_twilights();
        if (day_.refused)
            return day_;
        find_aser();
        find_dhohur();
        return day_;
    }

private:
    RiseSet search(Target target) const {
        return find_rise_set(ephemeris_, target, start_, settings_.observer, settings_.horizon);
    }

    void find_sun() {
        const auto [rise, set, horizon_altitude] = search(Target::sun);
        sunset_altitude_ = horizon_altitude;
        if (is(rise, NoEvent::up) || is(rise, NoEvent::down)) {
            day_.times.shuroq = rise;
            day_.times.maghreb = set;
        } else {
            day_.times.shuroq = moved(rise, -settings_.city);
            day_.times.maghreb = moved(set, settings_.add_maghreb / 60.0);
        }
    }

    void search_twilights(TaggedTime& fajer, TaggedTime& isha) const {
        const RiseSet morning = search(Target::fajer);
        fajer = morning.rise;
        const bool alike = settings_.horizon.fajer_angle == settings_.horizon.isha_angle;
        isha = alike ? morning.set : search(Target::isha).set;
    }

    void find_twilights() {
        TaggedTime fajer;
        TaggedTime isha;
        search_twilights(fajer, isha);
        if (is(fajer, NoEvent::bright) && settings_.high_latitude &&
            settings_.latitude > lowest_alternative_latitude) {
            day_.refused = settings_.latitude > highest_alternative_latitude;
            if (day_.refused)
                return;
            take_night_fraction(fajer, isha);
        }
        // A word stays as it is: only a time is moved.
        day_.times.fajer = moved(fajer, -settings_.city - settings_.preferences.subtract_fajer / 60);
        day_.times.isha = isha;
    }

    void take_night_fraction(TaggedTime& fajer, TaggedTime& isha) {
        const double* shuroq = hours_of(day_.times.shuroq);
        const double* maghreb = hours_of(day_.times.maghreb);
        if (shuroq == nullptr || (maghreb == nullptr && !is(day_.times.maghreb, NoEvent::none)))
            throw RunTimeFailure(TwinWords{"The alternative method for high latitudes needs Shuroq and "
                                           "Maghreb, but a day of this location has none.",
                                           "تحتاج الحسابات البديلة لخطوط العرض العليا إلى الشروق و المغرب، و "
                                           "في هذا الموقع يوم بدونهما."});
        const NightTwilights night = night_fraction_twilights(
            settings_.latitude, *shuroq, maghreb != nullptr ? *maghreb : 24, settings_.add_maghreb);
        fajer = night.fajer;
        isha = night.isha;
        day_.by_night_fraction = true;
    }

    void find_aser() {
        const TaggedTime shadow = search(Target::aser).set;
        const double* hours = hours_of(shadow);
        if (is(day_.times.maghreb, NoEvent::down))
            day_.times.aser = NoEvent::down;
        else if (hours == nullptr)
            day_.times.aser = NoEvent::none;
        else
            day_.times.aser = moved(shadow, settings_.preferences.add_asr / 60);
    }

    void find_dhohur() {
        const auto [t, instant, sun] = find_sun_transit(
            ephemeris_, jd_, {clock_ahead_, day_.summer_hours + 12.0, settings_.zone_offset});
        const double altitude =
            altitude_of(ephemeris_, instant, settings_.observer, sun.right_ascension, sun.declination);
        day_.times.dhohur =
            require_finite(t + settings_.preferences.add_dhohur / 60, {"a clock time", "وقت"});
        if (altitude <= sunset_altitude_)
            day_.times.dhohur = NoEvent::none;
        if (shown_alike(day_.times.shuroq, day_.times.maghreb, settings_.precision) &&
            !is(day_.times.shuroq, NoEvent::up))
            day_.times.dhohur = day_.times.shuroq;
    }

    Ephemeris& ephemeris_;
    const PrayerSettings& settings_;
    double jd_;
    double clock_ahead_;         ///< zone and summer hours [h]
    Instant start_;              ///< local midnight
    double sunset_altitude_ = 0; ///< of the horizon with its dip [deg]
    PrayerDay day_;
};

} // namespace

PrayerSettings prayer_settings(const Preferences& preferences, const Location& location, DayMode mode) {
    PrayerSettings settings;
    settings.preferences = preferences;
    settings.location = location;
    settings.observer = observer_of(settings.location);
    settings.horizon = horizon_of(settings.preferences, settings.location);
    settings.longitude = longitude_of(settings.location);
    settings.latitude = latitude_of(settings.location);
    settings.city = hours_of_city(settings.location.city_offset, settings.latitude);
    settings.zone_offset = (settings.location.zone * 15 - settings.longitude) * 4;
    settings.add_maghreb = static_cast<float>(settings.preferences.add_maghreb);
    require_finite(settings.add_maghreb, {"the minutes added to Maghreb", "الدقائق المضافة إلى المغرب"});
    settings.precision = precision_of(settings.preferences);
    settings.high_latitude = mode == DayMode::report && settings.preferences.high_latitude == 1;
    return settings;
}

bool forces_year(const PrayerSettings& settings) {
    return settings.high_latitude && settings.latitude > lowest_alternative_latitude &&
           settings.latitude <= highest_alternative_latitude;
}

void force_year(PrayerSettings& settings) {
    settings.precision = 1;
    settings.horizon.fajer_angle = settings.horizon.isha_angle = alternative_twilight_angle;
}

PrayerSettings read_prayer_settings(DayMode mode) {
    return prayer_settings(read_pref(), read_loc(), mode);
}

PrayerDay prayer_day(Ephemeris& ephemeris, const PrayerSettings& settings, double jd, int summer_hours) {
    return about_place(settings.location.name, [&] {
        return about_day(jd, [&] { return DayCalculation(ephemeris, settings, jd, summer_hours).run(); });
    });
}

PrayerTimes prayer_times(const TheoryPointer& theory, const Preferences& preferences,
                         const Location& location, double jd) {
    Ephemeris ephemeris(theory);
    return prayer_day(ephemeris, prayer_settings(preferences, location, DayMode::today), jd,
                      summer_hours_of(preferences, jd))
        .times;
}

} // namespace halvane
