#include "phases/phaseyear.h"

#include "calendar/modctim.h"
#include "calendar/moddeltat.h"
#include "calendar/modjul.h"
#include "calendar/modsummer.h"
#include "calendar/numberformat.h"

#include <cmath>

namespace halvane {

PhaseYear phase_year(const PhaseSettings& settings, const std::string& delta_t_text) {
    return {numeric_prefix(settings.year), settings.geocentric, settings.local_ut1,
            numeric_prefix(delta_t_text),  read_pref(),         read_loc()};
}

std::string proposed_delta_t(const std::string& year_text) {
    double jd = 0;
    double delta_t = 0;
    modjul(numeric_prefix(year_text), 6, 15, 0, jd);
    moddeltat(jd, delta_t);
    return format_number(delta_t * 86400, "##########00.00");
}

LocalPhase local_phase(const PhaseYear& run, Phase phase, double k) {
    LocalPhase local{refined_phase(phase, phase_estimate(phase, k), run.geocentric), false};
    if (run.local_ut1)
        local.jd -= run.delta_t / 86400;
    double year = 0;
    double month = 0;
    double day = 0;
    modjuc(local.jd + 0.5, year, month, day);
    local.summer = in_summer_time(run.preferences, year, month, std::floor(day));
    if (local.summer)
        local.jd += 1.0 / 24;
    local.jd += run.location.zone / 24;
    return local;
}

double first_lunation(double year) {
    return std::floor((year - 2000) * 12.3685) - 1;
}

std::string phase_text(const PhaseYear& run, const LocalPhase& phase) {
    double year = 0;
    double month = 0;
    double day = 0;
    modjuc(phase.jd + 0.5, year, month, day);
    if (year != run.year)
        return "----";
    const double whole_day = std::floor(day);
    std::string clock;
    modctim(precision_of(run.preferences), (day - whole_day) * 24, clock);
    return format_number(whole_day, "##00") + "/" + format_number(month, "##00") + "/" +
           format_number(year, "##0000") + "  " + clock;
}

} // namespace halvane
