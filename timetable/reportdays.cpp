// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "calendar/civildate.h"
#include "calendar/modjul.h"
#include "prayer/highlatitude.h"
#include "prayer/prayerrun.h"
#include "timetable/clockunits.h"
#include "timetable/skydays.h"

#include <array>
#include <cmath>

namespace halvane {
namespace {

/// A profile's rules in the form of the stored preferences.
Preferences preferences_of(const Profile& profile) {
    if (profile.preferences)
        return *profile.preferences;
    Preferences preferences;
    preferences.fajer_angle = profile.fajer_angle;
    preferences.isha_angle = profile.isha_angle;
    preferences.subtract_fajer = -profile.added[DayTime::fajer];
    preferences.add_dhohur = profile.added[DayTime::dhohur];
    preferences.add_asr = profile.added[DayTime::aser];
    preferences.add_maghreb = profile.added[DayTime::maghreb];
    preferences.asr_rule = profile.hanafi ? "2" : "1";
    preferences.elevation_setting = profile.height_counts ? "1" : "0";
    preferences.clock_precision = profile.seconds ? "0" : "1";
    preferences.high_latitude = profile.high_latitude == HighLatitudeRule::year ? 1 : 0;
    return preferences;
}

/// What the preferences have no word for, on top of the times                                       [h]
double added_beside(const Profile& profile, DayTime time) {
    const bool beside = time == DayTime::shuroq || time == DayTime::isha;
    return profile.preferences || !beside ? 0 : profile.added[time] / minutes_of_hour;
}

/// A smoothed Isha is a clock alone: one before Maghreb is past midnight.
SkyTime after_maghreb(const SkyTime& isha, const SkyTime& maghreb) {
    const bool past_midnight = isha && maghreb && *isha.hours < *maghreb.hours;
    return past_midnight ? isha.after(hours_per_day) : isha;
}

SkyTime smoothed(const SmoothedTwilight& twilight) {
    return {twilight.clock.seconds / 3600.0,
            twilight.mark == TwilightMark::none ? TimeSource::sky : TimeSource::year};
}

class ReportDays final : public SkyDays {
public:
    ReportDays(Ephemeris& ephemeris, const TimetableSettings& settings)
        : ephemeris_(ephemeris), settings_(settings), preferences_(preferences_of(settings.profile)),
          run_(settings_for(clock_on(settings.place, settings.span.first).zone)),
          by_year_(forces_year(run_)) {}

    bool whole_minutes() const override { return by_year_; }

    SkyDay day(double jd) override {
        SkyDay day;
        day.times = times_of(jd);
        other_asers(day, jd);
        const OfSix<SkyTime>& next = times_of(jd + 1);
        const double clock_change =
            clock_on(settings_.place, jd + 1).ahead() - clock_on(settings_.place, jd).ahead();
        day.next_fajer = next[DayTime::fajer].after(hours_per_day - clock_change);
        day.next_shuroq = next[DayTime::shuroq].after(hours_per_day - clock_change);
        return day;
    }

private:
    PrayerSettings settings_for(double zone) const {
        Location location = settings_.place.location;
        location.zone = zone;
        PrayerSettings run = prayer_settings(preferences_, location, DayMode::report);
        if (forces_year(run))
            force_year(run);
        return run;
    }

    PrayerDay prayer_day_of(double jd) { return prayer_day_of(jd, run_.horizon.shadow_lengths); }

    PrayerDay prayer_day_of(double jd, int shadow_lengths) {
        const DayClock clock = clock_on(settings_.place, jd);
        if (clock.zone != run_.location.zone)
            run_ = settings_for(clock.zone);
        PrayerSettings run = run_;
        run.horizon.shadow_lengths = shadow_lengths;
        const PrayerDay day = prayer_day(ephemeris_, run, jd, clock.summer_hours);
        if (day.refused)
            throw RunTimeFailure(TwinWords(high_latitude_message.text));
        return day;
    }

    const OfSix<SkyTime>& times_of(double jd) {
        for (const Kept& kept : kept_)
            if (kept.jd == jd)
                return kept.times;
        std::swap(kept_[0], kept_[1]);
        kept_[1] = {jd, by_year_ ? times_of_year(jd) : plain(prayer_day_of(jd).times)};
        return kept_[1].times;
    }

    OfSix<SkyTime> plain(const PrayerTimes& times) const {
        OfSix<SkyTime> result;
        for (const DayTime time : day_times)
            result[time] = SkyTime(times.*six_times.at(static_cast<std::size_t>(time)))
                               .after(added_beside(settings_.profile, time));
        return result;
    }

    OfSix<SkyTime> times_of_year(double jd) {
        const double year = civil_date(jd).year;
        if (year != year_) {
            first_of_year_ = jd_of(year, 1, 1);
            days_.clear();
            for (double k = first_of_year_; k <= jd_of(year, 12, 31); ++k)
                days_.push_back(alternative_day(prayer_day_of(k), civil_date(k)));
            smoothed_ = smoothed_year(days_);
            year_ = year;
        }
        const auto index = static_cast<std::size_t>(jd - first_of_year_);
        OfSix<SkyTime> result = plain(days_.at(index).times);
        result[DayTime::fajer] = smoothed(smoothed_.at(index).fajer);
        result[DayTime::isha] = after_maghreb(smoothed(smoothed_.at(index).isha), result[DayTime::maghreb])
                                    .after(added_beside(settings_.profile, DayTime::isha));
        return result;
    }

    static double jd_of(double year, double month, double day) {
        double jd = 0;
        modjul(year, month, day, 0, jd);
        return jd;
    }

    /// The Aser by each shadow, where its column is wanted.
    void other_asers(SkyDay& day, double jd) {
        const bool hanafi = run_.horizon.shadow_lengths != 1;
        (hanafi ? day.aser_hanafi : day.aser_standard) = day.times[DayTime::aser];
        const TimetableColumn other = hanafi ? TimetableColumn::aser_standard : TimetableColumn::aser_hanafi;
        if (settings_.profile.page.shows(other))
            (hanafi ? day.aser_standard : day.aser_hanafi) =
                SkyTime(prayer_day_of(jd, hanafi ? 1 : 2).times.aser);
    }

    struct Kept {
        double jd = 0; ///< that no date has
        OfSix<SkyTime> times;
    };

    Ephemeris& ephemeris_;
    const TimetableSettings& settings_;
    Preferences preferences_;
    PrayerSettings run_; ///< of the zone last asked for
    bool by_year_;
    std::array<Kept, 2> kept_;
    double year_ = 0.5; ///< whole once a year has been made
    double first_of_year_ = 0;
    std::vector<AlternativeDay> days_;
    std::vector<SmoothedDay> smoothed_;
};

} // namespace

std::unique_ptr<SkyDays> report_days(Ephemeris& ephemeris, const TimetableSettings& settings) {
    return std::make_unique<ReportDays>(ephemeris, settings);
}

} // namespace halvane
