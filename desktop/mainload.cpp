// SPDX-License-Identifier: MIT
#include "desktop/mainload.h"

#include "base/failure.h"
#include "base/twintext.h"
#include "calendar/hijriconversion.h"
#include "calendar/locationclock.h"
#include "calendar/moddateconv.h"
#include "calendar/modday.h"
#include "calendar/modjul.h"
#include "calendar/zonetext.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/date.h"
#include "stored/loc.h"
#include "stored/pref.h"

namespace halvane {

namespace {

constexpr double noon_after_midnight = 0.5; // [d]

constexpr TwinText comma{", ", "، "};

/// The main panel spells the months as the conversion panel does.
std::string month_name(int month, Language language) {
    return conversion_months(ConversionDirection::civil_to_hijri, language)
        .at(static_cast<std::size_t>(month) - 1);
}

std::string whole(double value) {
    return std::to_string(static_cast<long>(value));
}

std::string hijri_text(const HijriDate& date, Language language) {
    return whole(date.day) + " " + hijri_month_name(date.month, language) + " " + whole(date.year);
}

/// Runs one part of the load step.
template <class Part>
void run_part(bool pass_over, Part part) {
    try {
        part();
    } catch (const RunTimeFailure&) {
        if (!pass_over)
            throw;
    }
}

double julian_day(const MachineTime& date) {
    double jd = 0;
    modjul(date.year, date.month, date.day, 0, jd);
    return jd;
}

/// The times of the date so many days after the machine's.
PrayerTimes times_of_day(const MainPanelState& state, int ahead) {
    return prayer_times(loaded_theory(), state.preferences, state.location, state.todayjd + ahead);
}

/// The moments of the days about today, which a clock far from the machine's asks for.
std::vector<PrayerMoment> moments_about(const MainPanelState& state, const PrayerTimes& today) {
    constexpr int days_around[] = {-1, 1, 2};
    const double day = day_count_of(state.loaded_at);
    std::vector<PrayerMoment> moments = prayer_moments(today, day, state.preferences, state.location);
    for (const int ahead : days_around) {
        // Today's times stand, whether or not those that only the remaining time asks for can be had.
        run_part(true, [&] {
            const PrayerTimes times = times_of_day(state, ahead);
            for (const PrayerMoment& moment :
                 prayer_moments(times, day + ahead, state.preferences, state.location))
                moments.push_back(moment);
        });
    }
    sort_by_time(moments);
    return moments;
}

} // namespace

std::string day_text(const MachineTime& date, Language language) {
    return weekday_name(julian_day(date) + noon_after_midnight, language) + comma.in(language) +
           std::to_string(date.day) + " " + month_name(date.month, language) + " " +
           std::to_string(date.year);
}

std::string date_line(const MachineTime& today, double todayjd, Language language) {
    static constexpr TwinText head{"Machine's Date: ", "تاريخ الجهاز:  "};
    const HijriDate hijri = hijri_of_day_number(todayjd + noon_after_midnight);
    return head.in(language) + day_text(today, language) + " ( " + hijri_text(hijri, language) + " )";
}

std::optional<std::string> hijri_tip(KeptReckoning& kept, const MainPanelState& state) {
    static constexpr TwinText by{" by ", " حسب "};
    try {
        const double day_number = state.todayjd + noon_after_midnight;
        const HijriReckoningPointer hijri = kept.now(loaded_theory(), state.loaded_at.year);
        if (!hijri)
            return std::nullopt;
        const std::optional<HijriDate> date = hijri->months(day_number, day_number).date_of(day_number);
        if (!date)
            return std::nullopt;
        return hijri_text(*date, state.language) + by.in(state.language) + hijri->name.in(state.language);
    } catch (const RunTimeFailure&) {
        return std::nullopt;
    }
}

std::string clock_line(const std::string& short_time, Language language) {
    static constexpr TwinText head{"Machine's Time: ", "وقت الجهاز: "};
    return head.in(language) + short_time;
}

std::optional<std::string> place_clock_line(const MainPanelState& state, const MachineTime& local,
                                            const MachineTime& universal,
                                            std::string (*short_time)(const MachineTime&)) {
    const LocationClock clock = location_clock(state.preferences, state.location, universal);
    if (agree(clock, local))
        return std::nullopt;
    const std::string zone = zone_text(clock.hours_ahead);
    std::string now = short_time(clock.time);
    if (!same_day(clock.time, local))
        now += comma.in(state.language) + day_text(clock.time, state.language);
    return TwinWords("Prayer times follow the location's clock, " + zone + ": now " + now,
                     "المواقيت بتوقيت الموقع، \u2068" + zone + "\u2069: الآن " + now)
        .in(state.language);
}

std::optional<std::string> other_day_line(const MainPanelState& state, const MachineTime& local,
                                          const MachineTime& universal) {
    const LocationClock clock = location_clock(state.preferences, state.location, universal);
    if (same_day(state.loaded_at, local) && same_day(state.loaded_at, clock.time))
        return std::nullopt;
    static constexpr TwinText head{"These are of ", "هذه مواقيت "};
    return head.in(state.language) + day_text(state.loaded_at, state.language);
}

void load_main_panel(MainPanelFace& face, MainPanelState& state) {
    load_termfull();
    state.location = read_loc();
    load_term();
    load_mterm();
    state.preferences = read_pref();
    state.language = state.preferences.language();
    const bool pass_over = state.language == Language::arabic;

    face.show_language(state.language);
    state.loaded_at = machine_time();
    modjul(state.loaded_at.year, state.loaded_at.month, state.loaded_at.day, 0, state.todayjd);
    PrayerTexts texts;
    state.moments.clear();
    run_part(pass_over, [&] {
        read_date(); // wanted of the load, though the times are of the machine's date
        const PrayerTimes times = times_of_day(state, 0);
        texts = texts_of(times, precision_of(state.preferences));
        state.moments = moments_about(state, times);
    });
    face.show_today(texts);
    face.show_location(state.location.name);
    run_part(pass_over, [&] { face.show_date(date_line(state.loaded_at, state.todayjd, state.language)); });
    face.show_clock();
    run_part(pass_over, [] { load_elp(); });
}

} // namespace halvane
