#include "prayer/alertschedule.h"

#include "calendar/clocktext.h"
#include "calendar/modjul.h"
#include "calendar/platformdate.h"
#include "prayer/cmdcom.h"

#include <algorithm>
#include <array>

namespace halvane {
namespace {

constexpr double seconds_per_day = 86400;

/// A prayer's moment on the local clock.
struct Moment {
    double day;     ///< platform day count of its civil date
    double seconds; ///< since the platform's day 0
    Prayer prayer;
    std::string time;
};

double seconds_of(const MachineTime& now) {
    return platform_day_count(now.year, now.month, now.day) * seconds_per_day + now.hour * 3600.0 +
           now.minute * 60.0 + now.second;
}

void add_day(const MachineTime& now, int days_ahead, std::vector<Moment>& moments) {
    double jd = 0;
    modjul(now.year, now.month, now.day, 0, jd);
    const PrayerTimes times = today_prayer_times(jd + days_ahead);
    const double day = platform_day_count(now.year, now.month, now.day) + days_ahead;
    const std::array<std::pair<Prayer, const std::string*>, 5> prayers{{{Prayer::fajer, &times.fajer},
                                                                        {Prayer::dhohur, &times.dhohur},
                                                                        {Prayer::aser, &times.aser},
                                                                        {Prayer::maghreb, &times.maghreb},
                                                                        {Prayer::isha, &times.isha}}};
    for (const auto& [prayer, text] : prayers)
        if (const std::optional<int> seconds = seconds_of_clock_text(*text))
            moments.push_back({day, day * seconds_per_day + *seconds, prayer, *text});
}

/// The prayers of yesterday, today and tomorrow in the order of their times: a beep or a late alert may
/// belong to a neighbouring day.
std::vector<Moment> moments_around(const MachineTime& now) {
    std::vector<Moment> moments;
    for (const int days_ahead : {-1, 0, 1})
        add_day(now, days_ahead, moments);
    std::stable_sort(moments.begin(), moments.end(),
                     [](const Moment& a, const Moment& b) { return a.seconds < b.seconds; });
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

std::vector<Alert> AlertSchedule::due(const MachineTime& now) {
    constexpr double oldest = 3600;
    constexpr double kept_days = 3;
    const double present = seconds_of(now);
    const double since = std::max(std::min(last_.value_or(present - 1), present - 1), present - oldest);
    last_ = present;
    const AlertSettings settings = read_alert();
    std::vector<Alert> alerts;
    if (settings.beep != 1 && settings.window_and_athan != 1 && settings.window_only != 1)
        return alerts;

    const std::vector<Moment> moments = moments_around(now);
    const auto announce = [&](const Moment& moment, double seconds, Alert alert) {
        if (seconds > since && seconds <= present &&
            announced_.insert({moment.day, alert.kind, moment.prayer}).second)
            alerts.push_back(std::move(alert));
    };
    for (auto moment = moments.begin(); moment != moments.end(); ++moment) {
        const auto next = std::next(moment);
        const bool has_next = next != moments.end();
        Alert alert{Alert::Kind::beep,
                    moment->prayer,
                    Athan::none,
                    moment->time,
                    has_next ? std::optional(next->prayer) : std::nullopt,
                    has_next ? next->time : std::string()};
        // A beep that would come at or after the prayer itself has lost its use.
        if (settings.beep == 1 && settings.lead > 0 && present < moment->seconds)
            announce(*moment, moment->seconds - settings.lead * 60, alert);
        alert.kind = Alert::Kind::window;
        alert.athan = settings.window_and_athan == 1 ? athan_of(settings, moment->prayer) : Athan::none;
        if (settings.window_and_athan == 1 || settings.window_only == 1)
            announce(*moment, moment->seconds, alert);
    }
    std::erase_if(announced_, [&now](const Key& key) {
        return std::get<0>(key) < platform_day_count(now.year, now.month, now.day) - kept_days;
    });
    return alerts;
}

std::optional<ComingPrayer> AlertSchedule::coming(const MachineTime& now) {
    const double present = seconds_of(now);
    for (const Moment& moment : moments_around(now))
        if (moment.seconds > present)
            return ComingPrayer{moment.prayer, moment.time};
    return std::nullopt;
}

} // namespace halvane
