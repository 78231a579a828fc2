#include "app/mainload.h"

#include "app/stored/failure.h"
#include "app/stored/loc.h"
#include "app/stored/pref.h"
#include "calendar/hijriconversion.h"
#include "calendar/moddateconv.h"
#include "calendar/modday.h"
#include "calendar/modjul.h"
#include "ephemeris/series.h"

namespace halvane {

namespace {

constexpr double noon_after_midnight = 0.5; // [d]

/// The main panel spells the months as the conversion panel does.
std::string month_name(int month, bool english) {
    return conversion_months(ConversionDirection::civil_to_hijri, english ? 'E' : 'A')
        .at(static_cast<std::size_t>(month) - 1);
}

std::string whole(double value) {
    return std::to_string(static_cast<long>(value));
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

} // namespace

std::string date_line(const MachineTime& today, double todayjd, bool english) {
    const HijriDate hijri = hijri_of_day_number(todayjd + noon_after_midnight);
    const std::string weekday = modday(todayjd + noon_after_midnight, english ? 0 : 1);
    const std::string lead =
        english ? "Machine's Date: " + weekday + ", " : "تاريخ الجهاز:  " + weekday + "، ";
    return lead + std::to_string(today.day) + " " + month_name(today.month, english) + " " +
           std::to_string(today.year) + " ( " + whole(hijri.day) + " " +
           hijri_month_name(hijri.month, english ? 'E' : 'A') + " " + whole(hijri.year) + " )";
}

std::string clock_line(const std::string& short_time, bool english) {
    return (english ? "Machine's Time: " : "وقت الجهاز: ") + short_time;
}

void load_main_panel(MainPanelFace& face, MainPanelState& state) {
    load_termfull();
    const std::string location_name = read_loc().name;
    load_term();
    load_mterm();
    state.isenglish = read_pref().english;
    const bool pass_over = !state.isenglish;

    face.show_language(state.isenglish);
    state.loaded_at = machine_time();
    modjul(state.loaded_at.year, state.loaded_at.month, state.loaded_at.day, 0, state.todayjd);
    PrayerTimes times;
    run_part(pass_over, [&] { times = today_prayer_times(state.todayjd); });
    face.show_today(times);
    face.show_location(location_name);
    run_part(pass_over, [&] { face.show_date(date_line(state.loaded_at, state.todayjd, state.isenglish)); });
    face.show_clock();
    run_part(pass_over, [] { load_elp(); });
}

} // namespace halvane
