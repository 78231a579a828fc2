// SPDX-License-Identifier: MIT
#include "prayer/prayerday.h"
#include "timetable/clockunits.h"
#include "timetable/highlatituderules.h"
#include "timetable/hijridays.h"
#include "timetable/night.h"
#include "timetable/skydays.h"

#include <array>
#include <cmath>
#include <utility>

namespace halvane {
namespace {

NightSky sky_of(const TimetableSettings& settings) {
    const Profile& profile = settings.profile;
    const PrayerSettings place = prayer_settings(Preferences(), settings.place.location, DayMode::today);
    NightSky sky{place.observer, place.longitude, place.horizon, profile.maghreb_angle};
    sky.horizon.height_counts = profile.height_counts;
    sky.horizon.fajer_angle = profile.fajer_angle;
    // Where Isha is an interval its angle is searched for nothing, so it is that of Fajer: one search gives
    // both.
    sky.horizon.isha_angle = profile.isha_minutes > 0 ? profile.fajer_angle : profile.isha_angle;
    return sky;
}

NightSky at_latitude(NightSky sky, double latitude, double elevation) {
    sky.observer = observer_at(sky.longitude, latitude, elevation);
    return sky;
}

/// The nights of one observer; the two last ones are kept.
class Nights {
public:
    Nights(Ephemeris& ephemeris, const NightSky& sky) : ephemeris_(ephemeris), sky_(sky) {}

    const NightSky& sky() const { return sky_; }

    /// In     ahead  of the place's clock from Universal Time on the date                           [h]
    const Night& after(double jd, double ahead) {
        for (const Kept& kept : kept_)
            if (kept.jd == jd)
                return kept.night;
        std::swap(kept_[0], kept_[1]);
        const double transit = transit_of_date(ephemeris_, sky_.longitude, jd, ahead);
        kept_[1] = {jd, night_after(ephemeris_, sky_, jd, transit)};
        return kept_[1].night;
    }

private:
    struct Kept {
        double jd = 0; ///< that no date has
        Night night;
    };
    Ephemeris& ephemeris_;
    NightSky sky_;
    std::array<Kept, 2> kept_;
};

bool is_in_order(const OfSix<SkyTime>& times) {
    for (std::size_t i = 0; i < times.values.size(); ++i)
        if (!times.values[i] || (i > 0 && *times.values[i].hours < *times.values[i - 1].hours))
            return false;
    return true;
}

void take_source(SkyDay& day, TimeSource source) {
    for (SkyTime& time : day.times.values)
        time.source = source;
    for (SkyTime* time : {&day.aser_standard, &day.aser_hanafi, &day.next_fajer, &day.next_shuroq})
        time->source = source;
}

class RuleDays final : public SkyDays {
public:
    RuleDays(Ephemeris& ephemeris, const TimetableSettings& settings)
        : ephemeris_(ephemeris), settings_(settings), hijri_(settings.hijri, settings.span),
          nights_(ephemeris, sky_of(settings)), lower_(ephemeris, lower_sky()),
          parts_(night_parts(profile().high_latitude, profile().fajer_angle, profile().isha_angle)),
          city_(prayer_settings(Preferences(), settings.place.location, DayMode::today).city) {}

    SkyDay day(double jd) override {
        const Night before = ruled_night(jd - 1); // before the other: the two last ones are kept
        SkyDay day = of_nights(jd, before, ruled_night(jd), nights_.sky());
        if (borrows() && !is_in_order(day.times)) {
            const Night lower_before = lower_night(jd - 1);
            day = of_nights(jd, lower_before, lower_night(jd), lower_.sky());
            take_source(day, TimeSource::nearest_latitude);
        }
        return day;
    }

private:
    const Profile& profile() const { return settings_.profile; }
    bool isha_by_angle() const { return profile().isha_minutes == 0; }
    bool borrows() const {
        return (profile().high_latitude == HighLatitudeRule::nearest_latitude ||
                profile().high_latitude == HighLatitudeRule::share) &&
               std::fabs(latitude_of(settings_.place.location)) > reference_latitude_of(profile());
    }

    NightSky lower_sky() const {
        const Location& location = settings_.place.location;
        const double latitude = std::copysign(reference_latitude_of(profile()), latitude_of(location));
        return at_latitude(sky_of(settings_), latitude, location.elevation);
    }

    double ahead(double jd) const { return clock_on(settings_.place, jd).ahead(); }
    const Night& lower_night(double jd) { return lower_.after(jd, ahead(jd)); }

    Night ruled_night(double jd) {
        Night night = nights_.after(jd, ahead(jd));
        const RuleUse use = profile().rule_use;
        if (parts_)
            take_parts(night, *parts_, use, isha_by_angle());
        if (!borrows() || (use == RuleUse::missing && night.fajer && night.isha))
            return night;
        if (profile().high_latitude == HighLatitudeRule::nearest_latitude)
            take_clock(night, lower_night(jd), use, isha_by_angle());
        else if (const std::optional<NightParts> shares = night_shares(lower_night(jd)))
            take_parts(night, *shares, use, isha_by_angle());
        return night;
    }

    /// Minutes from Maghreb to Isha on a date; 0 where its angle counts.
    double isha_minutes(double jd) const {
        if (profile().isha_minutes_ramadan == 0)
            return profile().isha_minutes;
        const bool fasting = hijri_.on(jd).month == ramadan;
        return fasting ? profile().isha_minutes_ramadan : profile().isha_minutes;
    }

    double added_hours(DayTime time) const { return profile().added[time] / minutes_of_hour; }

    SkyDay of_nights(double jd, const Night& before, const Night& after, const NightSky& sky) {
        const double clock = ahead(jd);
        const double dawn = clock - hours_per_day - city_;
        const double next_dawn = clock - city_;
        SkyDay day;
        day.times[DayTime::fajer] = before.fajer.after(dawn + added_hours(DayTime::fajer));
        day.times[DayTime::shuroq] = before.sunrise.after(dawn + added_hours(DayTime::shuroq));
        day.next_fajer = after.fajer.after(next_dawn + added_hours(DayTime::fajer));
        day.next_shuroq = after.sunrise.after(next_dawn + added_hours(DayTime::shuroq));
        take_noon(day, jd, after, sky, clock);
        day.times[DayTime::maghreb] = after.maghreb.after(clock + added_hours(DayTime::maghreb));
        day.times[DayTime::isha] = isha(day, jd, after, clock);
        return day;
    }

    void take_noon(SkyDay& day, double jd, const Night& after, const NightSky& sky, double clock) {
        if (!after.sunset && after.sunset.missing != NoEvent::up) {
            // The Sun does not rise this day.
            for (SkyTime* time : {&day.times[DayTime::dhohur], &day.times[DayTime::aser], &day.aser_standard,
                                  &day.aser_hanafi})
                time->missing = NoEvent::down;
            return;
        }
        day.times[DayTime::dhohur] =
            SkyTime(after.transit, TimeSource::sky).after(clock + added_hours(DayTime::dhohur));
        const double late = clock + added_hours(DayTime::aser);
        if (wants(false))
            day.aser_standard = aser_before(ephemeris_, sky, jd, after, 1).after(late);
        if (wants(true))
            day.aser_hanafi = aser_before(ephemeris_, sky, jd, after, 2).after(late);
        day.times[DayTime::aser] = profile().hanafi ? day.aser_hanafi : day.aser_standard;
    }

    /// Whether an Aser is shown: each costs a search.
    bool wants(bool hanafi) const {
        return profile().hanafi == hanafi ||
               profile().page.shows(hanafi ? TimetableColumn::aser_hanafi : TimetableColumn::aser_standard);
    }

    SkyTime isha(const SkyDay& day, double jd, const Night& after, double clock) const {
        const double late = added_hours(DayTime::isha);
        if (isha_by_angle())
            return after.isha.after(clock + late);
        SkyTime time = day.times[DayTime::maghreb].after(isha_minutes(jd) / minutes_of_hour + late);
        time.source = TimeSource::interval;
        return time;
    }

    Ephemeris& ephemeris_;
    const TimetableSettings& settings_;
    HijriDays hijri_;
    Nights nights_;
    Nights lower_;
    std::optional<NightParts> parts_;
    double city_; ///< how much earlier Fajer and Shuroq come for the city                           [h]
};

} // namespace

std::unique_ptr<SkyDays> rule_days(Ephemeris& ephemeris, const TimetableSettings& settings) {
    return std::make_unique<RuleDays>(ephemeris, settings);
}

} // namespace halvane
