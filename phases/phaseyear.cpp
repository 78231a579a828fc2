// SPDX-License-Identifier: MIT
#include "phases/phaseyear.h"

#include "base/numberformat.h"
#include "base/record.h"
#include "calendar/civildate.h"
#include "calendar/modctim.h"
#include "calendar/moddeltat.h"
#include "calendar/modjul.h"
#include "calendar/modsummer.h"
#include "calendar/yearlimits.h"
#include "settings/enginesettings.h"

#include <cmath>

namespace halvane {

PhaseYear phase_year(const PhaseSettings& settings, const std::string& delta_t_text) {
    return {numeric_prefix(settings.year), settings.geocentric, settings.local_ut1,
            numeric_prefix(delta_t_text),  read_pref(),         read_loc()};
}

std::optional<Refusal> refused_phase_year(const PhaseYear& run) {
    return refused_year(run.year, phase_years);
}

std::optional<Refusal> refused_delta_t(const PhaseYear& run) {
    // Neither does a value that is no number lie within the limit.
    if (!run.local_ut1 || std::fabs(run.delta_t) <= largest_delta_t)
        return std::nullopt;
    const std::string largest = plain_number(largest_delta_t);
    return Refusal{{"Delta T Error", "خطأ"},
                   {"Delta T must be a number of seconds from -" + largest + " to " + largest + ".",
                    "يجب أن تكون قيمة Delta T عددا من الثواني لا يتجاوز " + largest + "."}};
}

std::string proposed_delta_t(const std::string& year_text) {
    const double year = numeric_prefix(year_text);
    if (!phase_years.holds(year))
        return {};
    double jd = 0;
    double delta_t = 0;
    modjul(year, 6, 15, 0, jd);
    moddeltat(jd, delta_t);
    return format_number(delta_t * 86400, "##########00.00");
}

LocalPhase local_phase(Ephemeris& ephemeris, const PhaseYear& run, Phase phase, double k) {
    const Observer observer = observer_of(run.location);
    LocalPhase local{
        refined_phase(ephemeris, phase, phase_estimate(phase, k), run.geocentric ? nullptr : &observer),
        false};
    if (run.local_ut1)
        local.jd -= run.delta_t / 86400;
    local.summer = summer_hours_of(run.preferences, local.jd) == 1;
    if (local.summer)
        local.jd += 1.0 / 24;
    local.jd += run.location.zone / 24;
    return local;
}

double first_lunation(double year) {
    return std::floor((year - 2000) * 12.3685) - 1;
}

std::string phase_text(const PhaseYear& run, const LocalPhase& phase) {
    const DateNumbers date = civil_date(phase.jd);
    return format_number(date.day, "##00") + "/" + format_number(date.month, "##00") + "/" +
           format_number(date.year, "##0000") + "  " +
           modctim(precision_of(run.preferences), hours_of_day(phase.jd));
}

} // namespace halvane
