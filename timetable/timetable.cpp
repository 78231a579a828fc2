// SPDX-License-Identifier: MIT
#include "timetable/timetable.h"

#include "base/failure.h"
#include "calendar/civildate.h"
#include "calendar/modsummer.h"
#include "calendar/shownclock.h"
#include "qibla/direction.h"
#include "qibla/qibladay.h"
#include "settings/enginesettings.h"
#include "timetable/clockunits.h"
#include "timetable/hijridays.h"
#include "timetable/skydays.h"

#include <algorithm>
#include <cmath>

namespace halvane {
namespace {

std::int64_t seconds_since_epoch(double jd) {
    return std::llround((jd - unix_epoch) * seconds_of_day);
}

int offset_of(const DayClock& clock) {
    return static_cast<int>(std::lround(clock.ahead() * seconds_of_hour));
}

int whole_days(int seconds) {
    return seconds >= 0 ? seconds / seconds_of_day : -((-seconds + seconds_of_day - 1) / seconds_of_day);
}

/// Seconds from 0 h of the date, brought to whole minutes or seconds.
int rounded_seconds(double hours, Rounding rounding, int precision) {
    if (rounding == Rounding::nearest)
        return static_cast<int>(std::floor(hours / 24)) * seconds_of_day +
               shown_clock(precision, hours).seconds;
    constexpr double tolerance = 1e-6; // a time on the minute is not moved to the next by its last digits
    const int unit = precision == 0 ? 1 : seconds_of_minute;
    const double units = hours * seconds_of_hour / unit;
    const double whole =
        rounding == Rounding::up ? std::ceil(units - tolerance) : std::floor(units + tolerance);
    return static_cast<int>(whole) * unit;
}

/// Puts the times of one date on the clock.
class RowClock {
public:
    RowClock(const TimetablePlace& place, double jd, int offset, int precision)
        : place_(place), midnight_(seconds_since_epoch(jd) - offset), offset_(offset), precision_(precision) {
    }

    /// In     seconds  from 0 h of the date, on the clock that stood at its noon
    LocalClock on_clock(int seconds) const {
        const int offset = offset_at(midnight_ + seconds);
        const int local = seconds + offset - offset_;
        const int day = whole_days(local);
        return {day, local - day * seconds_of_day, offset};
    }

    RowTime time(const SkyTime& time, Rounding rounding) const {
        if (!time)
            return {std::nullopt, time.missing, TimeSource::sky};
        return {on_clock(rounded_seconds(*time.hours, rounding, precision_)), NoEvent::none, time.source};
    }

    /// A clock that is fixed, whatever changes about it.
    RowTime fixed(int minutes) const {
        const int seconds = minutes * seconds_of_minute;
        return {LocalClock{0, seconds, offset_at(midnight_ + seconds)}, NoEvent::none, TimeSource::sky};
    }

    RowTime later(const RowTime& time, int minutes, bool up_to_five) const {
        constexpr int five_minutes = 300;
        RowTime moved = time;
        int seconds = moved.clock->day * seconds_of_day + moved.clock->seconds + minutes * seconds_of_minute;
        if (up_to_five)
            seconds = (seconds + five_minutes - 1) / five_minutes * five_minutes;
        moved.clock->day = whole_days(seconds);
        moved.clock->seconds = seconds - moved.clock->day * seconds_of_day;
        return moved;
    }

    bool changes() const {
        return place_.zone && offset_at(midnight_) != offset_at(midnight_ + seconds_of_day);
    }

private:
    int offset_at(std::int64_t utc) const {
        return place_.zone ? place_.zone->offset_at_second(utc) : offset_;
    }

    const TimetablePlace& place_;
    std::int64_t midnight_; ///< of the clock at noon, since 1970                                   [s]
    int offset_;
    int precision_;
};

SkyTime part_of_night(const SkyDay& day, bool until_fajer, double part) {
    const SkyTime& maghreb = day.times[DayTime::maghreb];
    const SkyTime& end = until_fajer ? day.next_fajer : day.next_shuroq;
    if (!maghreb || !end)
        return {};
    const TimeSource source = is_by_rule(end.source) ? end.source : maghreb.source;
    return {*maghreb.hours + (*end.hours - *maghreb.hours) * part, source};
}

class Maker {
public:
    Maker(Ephemeris& ephemeris, Timetable& timetable)
        : ephemeris_(ephemeris), timetable_(timetable),
          hijri_(timetable.settings.hijri, timetable.settings.span),
          days_(sky_days(ephemeris, timetable.settings)),
          precision_(profile().preferences ? precision_of(*profile().preferences)
                                           : (profile().seconds ? 0 : 1)) {
        if (days_->whole_minutes())
            precision_ = 1;
        timetable_.to_second = precision_ == 0;
        if (profile().page.shows(TimetableColumn::moon_phase))
            phases_.emplace(ephemeris, span().first - 1, span().last + 2);
        if (profile().page.shows(TimetableColumn::qiblah_sun))
            take_qiblah();
    }

    void add_row(double jd) {
        const DayClock clock = clock_on(place(), jd);
        TimetableRow row;
        row.jd = jd;
        row.date = civil_date(jd);
        row.hijri = hijri_.on(jd);
        row.weekday = static_cast<int>(std::fmod(jd + 1.5, 7));
        row.offset = offset_of(clock);
        const RowClock on(place(), jd, row.offset, precision_);
        row.clock_changes = on.changes();
        take_times(row, days_->day(jd), on);
        take_iqamah(row, on);
        const double midnight = jd - clock.ahead() / 24;
        if (phases_)
            row.moon = phases_->on(midnight, midnight + 1);
        if (qiblah_)
            take_qiblah_sun(row, clock, on);
        compare_zone(row);
        timetable_.rows.push_back(std::move(row));
    }

private:
    const Profile& profile() const { return timetable_.settings.profile; }
    const TimetablePlace& place() const { return timetable_.settings.place; }
    const DaySpan& span() const { return timetable_.settings.span; }
    Rounding rounding(DayTime time) const { return profile().rounding[time]; }

    void take_times(TimetableRow& row, const SkyDay& day, const RowClock& on) {
        for (const DayTime time : day_times) {
            row.times[time] = on.time(day.times[time], rounding(time));
            note_rule(row.times[time].source);
        }
        row.aser_standard = on.time(day.aser_standard, rounding(DayTime::aser));
        row.aser_hanafi = on.time(day.aser_hanafi, rounding(DayTime::aser));
        if (row.times[DayTime::fajer].clock)
            row.imsak = on.later(row.times[DayTime::fajer],
                                 -static_cast<int>(std::lround(profile().imsak_minutes)), false);
        row.midnight = on.time(part_of_night(day, profile().night_until_fajer, 1.0 / 2), Rounding::nearest);
        row.last_third = on.time(part_of_night(day, profile().night_until_fajer, 2.0 / 3), Rounding::nearest);
    }

    void note_rule(TimeSource source) {
        std::vector<TimeSource>& rules = timetable_.rules;
        if (is_by_rule(source) && std::find(rules.begin(), rules.end(), source) == rules.end())
            rules.push_back(source);
    }

    void take_iqamah(TimetableRow& row, const RowClock& on) const {
        for (const DayTime time : prayed_times) {
            const Iqamah& iqamah = profile().iqamah[time];
            if (iqamah.kind == Iqamah::Kind::fixed)
                row.iqamah[time] = on.fixed(iqamah.minutes);
            else if (iqamah.kind == Iqamah::Kind::after && row.times[time].clock)
                row.iqamah[time] = on.later(row.times[time], iqamah.minutes, iqamah.up_to_five);
        }
        if (row.is_friday())
            for (const int minutes : profile().jumuah)
                row.jumuah.push_back(on.fixed(minutes));
    }

    void take_qiblah() {
        const Location& location = place().location;
        qiblah_.emplace();
        qiblah_->observer = observer_of(location);
        qiblah_->azimuth = qiblah_direction(longitude_of(location), latitude_of(location));
        qiblah_->delta_t = Instant::of_ut1((span().first + span().last) / 2).delta_t();
        qiblah_->altitude_limit =
            qiblah_altitude_limit(location.elevation, location.pressure, location.temperature);
        qiblah_->precision = precision_;
    }

    void take_qiblah_sun(TimetableRow& row, const DayClock& clock, const RowClock& on) {
        qiblah_->zone = clock.zone;
        const QiblahDay day = qiblah_day(ephemeris_, *qiblah_, row.jd, clock.summer_hours);
        for (const std::optional<QiblahMoment>& moment : {day.first, day.second})
            if (moment && !moment->below_horizon)
                row.qiblah_sun.push_back(on.time(SkyTime(TaggedTime(moment->hours)), Rounding::nearest));
    }

    void compare_zone(const TimetableRow& row) {
        if (!place().known_zone)
            return;
        const int stored = offset_of({place().location.zone, summer_hours_of(place().preferences, row.jd)});
        if (stored == place().known_zone->offset_on(row.jd))
            return;
        ZoneDifference& difference = timetable_.zone_difference;
        if (difference.days++ == 0)
            difference.first = row.jd;
        difference.last = row.jd;
    }

    Ephemeris& ephemeris_;
    Timetable& timetable_;
    HijriDays hijri_;
    std::unique_ptr<SkyDays> days_;
    int precision_; ///< as modctim takes it
    std::optional<MoonPhases> phases_;
    std::optional<QiblahSearch> qiblah_;
};

} // namespace

bool is_by_rule(TimeSource source) {
    return source != TimeSource::sky && source != TimeSource::interval;
}

const char* key_of(TimeSource source) {
    switch (source) {
    case TimeSource::sky:
        return "sky";
    case TimeSource::interval:
        return "interval";
    case TimeSource::middle:
        return "middle";
    case TimeSource::seventh:
        return "seventh";
    case TimeSource::angle:
        return "angle";
    case TimeSource::nearest_latitude:
        return "latitude";
    case TimeSource::share:
        return "share";
    case TimeSource::year:
        break;
    }
    return "year";
}

std::int64_t utc_seconds(const TimetableRow& row, const LocalClock& clock) {
    return seconds_since_epoch(row.jd) + std::int64_t{clock.day} * seconds_of_day + clock.seconds -
           clock.offset;
}

std::optional<Timetable> make_timetable(Ephemeris& ephemeris, const TimetableSettings& settings,
                                        Progress& progress) {
    constexpr int days_between_yields = 8;
    return about_place(settings.place.location.name, [&]() -> std::optional<Timetable> {
        Timetable timetable;
        timetable.settings = settings;
        timetable.settings.hijri = reckoning_within(settings.hijri, settings.span);
        const int days = settings.span.days();
        timetable.rows.reserve(static_cast<std::size_t>(days));
        Maker maker(ephemeris, timetable);
        for (int day = 0; day < days; ++day) {
            if (day % days_between_yields == 0) {
                progress.percent(100.0 * day / days);
                if (!progress.yield())
                    return std::nullopt;
            }
            const double jd = settings.span.first + day;
            about_day(jd, [&] { maker.add_row(jd); });
        }
        return timetable;
    });
}

std::optional<Timetable> make_timetable(const TheoryPointer& theory, const TimetableSettings& settings,
                                        Progress& progress) {
    Ephemeris ephemeris(theory);
    return make_timetable(ephemeris, settings, progress);
}

} // namespace halvane
