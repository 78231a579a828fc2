// SPDX-License-Identifier: MIT
#include "prayer/alertschedule.h"

#include "calendar/locationclock.h"
#include "calendar/modjul.h"
#include "stored/date.h"

#include <algorithm>
#include <cmath>

namespace halvane {
namespace {

/// Yesterday's, today's and tomorrow's: a beep or a late alert may belong to a neighbouring day.
std::vector<PrayerMoment> moments_about(const TheoryPointer& theory, double today,
                                        const Preferences& preferences, const Location& location) {
    const MachineTime date = clock_at(today * seconds_per_day);
    double jd = 0;
    modjul(date.year, date.month, date.day, 0, jd);
    std::vector<PrayerMoment> moments;
    for (const int days_ahead : {-1, 0, 1}) {
        const std::vector<PrayerMoment> day =
            prayer_moments(prayer_times(theory, preferences, location, jd + days_ahead), today + days_ahead,
                           preferences, location);
        moments.insert(moments.end(), day.begin(), day.end());
    }
    sort_by_time(moments);
    return moments;
}

Athan athan_of(const AlertSettings& settings, Prayer prayer) {
    const auto chosen = [](bool mecca) { return mecca ? Athan::mecca : Athan::jerusalem; };
    switch (prayer) {
    case Prayer::dhohur:
        return chosen(settings.dhohur_mecca);
    case Prayer::aser:
        return chosen(settings.asr_mecca);
    case Prayer::maghreb:
        return chosen(settings.maghreb_mecca);
    case Prayer::isha:
        return chosen(settings.isha_mecca);
    case Prayer::fajer:
        break;
    }
    return Athan::jerusalem;
}

} // namespace

void AlertSchedule::take_settings(const MachineTime& now) {
    const AlertSettings settings = read_alert();
    const Preferences preferences = read_pref();
    const Location location = read_loc();
    const double today = day_count_of(location_clock(preferences, location, now).time);
    if (preferences_ != preferences || location_ != location || today_ != today) {
        read_date(); // wanted of these times as of the main panel's
        moments_ = moments_about(theory_, today, preferences, location);
        preferences_ = preferences;
        location_ = location;
        today_ = today;
    }
    settings_ = settings;
}

void AlertSchedule::refresh(const MachineTime& now) {
    constexpr double slice_length = 10; // [s]
    const double slice = std::floor(seconds_of(now) / slice_length);
    if (slice_ == slice)
        return;
    try {
        take_settings(now);
        trouble_.reset();
    } catch (const RunTimeFailure& failure) {
        if (!preferences_)
            throw;
        trouble_ = failure.parts();
    }
    slice_ = slice;
}

void AlertSchedule::forget(double present) {
    constexpr double corrected_date = seconds_per_day / 2;
    constexpr double kept = 3 * seconds_per_day;
    const bool corrected = last_ && *last_ - present > corrected_date;
    std::erase_if(announced_, [&](const auto& entry) {
        return entry.second < present - kept || (corrected && entry.second > present);
    });
}

bool AlertSchedule::announce(const PrayerMoment& moment, Alert::Kind kind, double seconds) {
    return seconds > since_ && seconds <= present_ &&
           announced_.try_emplace({moment.day, kind, moment.prayer}, seconds).second;
}

std::vector<Alert> AlertSchedule::due(const MachineTime& now) {
    constexpr double oldest = 3600;
    refresh(now);
    present_ = seconds_of(now);
    since_ = std::max(std::min(last_.value_or(present_ - 1), present_ - 1), present_ - oldest);
    forget(present_);
    last_ = present_;

    const bool windows = settings_.window_and_athan == 1 || settings_.window_only == 1;
    const bool beeps = settings_.beep == 1 && settings_.lead >= 0;
    std::vector<Alert> alerts;
    for (auto moment = moments_.begin(); moment != moments_.end(); ++moment) {
        const auto add = [&](Alert::Kind kind, Athan athan) {
            const auto next = std::next(moment);
            const bool has_next = next != moments_.end();
            alerts.push_back({kind, moment->prayer, athan, moment->clock,
                              has_next ? std::optional(next->prayer) : std::nullopt,
                              has_next ? next->clock : ShownClock()});
        };
        // A beep that comes after the time it was to warn of has lost its use.
        const bool useful = settings_.lead == 0 || present_ < moment->seconds;
        if (beeps && useful && announce(*moment, Alert::Kind::beep, moment->seconds - settings_.lead * 60))
            add(Alert::Kind::beep, Athan::none);
        if (windows && announce(*moment, Alert::Kind::window, moment->seconds))
            add(Alert::Kind::window,
                settings_.window_and_athan == 1 ? athan_of(settings_, moment->prayer) : Athan::none);
    }
    return alerts;
}

std::optional<ComingPrayer> AlertSchedule::coming(const MachineTime& now) {
    refresh(now);
    const double present = seconds_of(now);
    for (const PrayerMoment& moment : moments_)
        if (moment.seconds > present)
            return ComingPrayer{moment.prayer, moment.clock};
    return std::nullopt;
}

} // namespace halvane
