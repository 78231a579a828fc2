// SPDX-License-Identifier: MIT
#include "prayer/prayerrun.h"

#include "calendar/civildate.h"
#include "prayer/highlatitude.h"
#include "prayer/prayerreport.h"
#include "report/reportrun.h"
#include "stored/programfolder.h"

#include <vector>

namespace halvane {

const TwinMessage high_latitude_message{
    {"High-Latitude Error!", "خطأ"},
    {"The Alternative Method Does Not Work Above Latitude 65. Please Disable The High-Latitude Alternative "
     "Method Calculations From The Preferences Menu!",
     "طريقة حساب المواقيت البديلة لا تصلح بعد خط عرض 65، يرجى عدم تفعيل خيار حساب المواقيت البديلة لمناطق "
     "خطوط العرض العليا من قائمة الخيارات"}};

namespace {

/// The alternative method works on a whole calendar year.
bool forces_year(const PrayerSettings& settings) {
    return settings.high_latitude && settings.latitude > lowest_alternative_latitude &&
           settings.latitude <= highest_alternative_latitude;
}

class PrayerReportRun {
public:
    PrayerReportRun(Ephemeris& ephemeris, Progress& progress, const PrayerSettings& settings)
        : ephemeris_(ephemeris), progress_(progress), settings_(settings),
          forced_year_(forces_year(settings)), report_(program_path("results.out")) {}

    RunOutcome run(const CalculationDate& date) {
        const CalculationPeriod period = calculation_period(date);
        days_ = forced_year_ ? days_of({period.start.year, 1, 1}, {period.start.year, 12, 31})
                             : days_of(period.start, period.end);
        write_prayer_head(report_, settings_, report_period(date, days_), settings_.horizon.fajer_angle,
                          settings_.horizon.isha_angle);
        const RunOutcome outcome = write_days();
        if (outcome != RunOutcome::refused)
            write_prayer_closing(report_);
        report_.commit();
        return outcome;
    }

private:
    RunOutcome write_days() {
        for (double jd = days_.first; jd <= days_.last; jd += 1) {
            tell_progress(progress_, days_, jd);
            const PrayerDay day =
                prayer_day(ephemeris_, settings_, jd, summer_hours_of(settings_.preferences, jd));
            if (day.refused)
                return RunOutcome::refused;
            if (forced_year_)
                stored_.push_back(alternative_day(day, civil_date(jd)));
            else
                write_row({civil_date(jd), day.summer_hours == 1, day.times, std::nullopt});
            if (!progress_.yield())
                return RunOutcome::cancelled;
        }
        if (forced_year_)
            write_smoothed();
        return RunOutcome::done;
    }

    void write_smoothed() {
        const std::vector<SmoothedDay> year = smoothed_year(stored_);
        for (std::size_t k = 0; k < year.size(); ++k)
            write_row({stored_[k].date, stored_[k].summer, stored_[k].times, year[k]});
    }

    void write_row(const PrayerRow& row) { write_prayer_row(report_, settings_.precision, row, ++rows_); }

    Ephemeris& ephemeris_;
    Progress& progress_;
    const PrayerSettings& settings_;
    bool forced_year_;
    Report report_;
    RunDays days_;
    std::vector<AlternativeDay> stored_;
    int rows_ = 0;
};

} // namespace

RunOutcome write_prayer_report(const TheoryPointer& theory, Progress& progress) {
    PrayerSettings settings = read_prayer_settings(DayMode::report);
    const CalculationDate date = read_date();
    if (forces_year(settings)) {
        settings.precision = 1;
        settings.horizon.fajer_angle = settings.horizon.isha_angle = alternative_twilight_angle;
    }
    Ephemeris ephemeris(theory);
    return PrayerReportRun(ephemeris, progress, settings).run(date);
}

PrayerTexts today_prayer_times(const TheoryPointer& theory, double todayjd) {
    const Preferences preferences = read_pref();
    read_date();
    return texts_of(prayer_times(theory, preferences, read_loc(), todayjd), precision_of(preferences));
}

} // namespace halvane
