// SPDX-License-Identifier: MIT
#include "prayer/prayerrun.h"

#include "calendar/civildate.h"
#include "prayer/highlatitude.h"
#include "prayer/prayerreport.h"
#include "report/reportrun.h"

#include <memory>
#include <utility>
#include <vector>

namespace halvane {

const TwinMessage high_latitude_message{
    {"High-Latitude Error!", "خطأ"},
    {"The Alternative Method Does Not Work Above Latitude 65. Please Disable The High-Latitude Alternative "
     "Method Calculations From The Preferences Menu!",
     "طريقة حساب المواقيت البديلة لا تصلح بعد خط عرض 65، يرجى عدم تفعيل خيار حساب المواقيت البديلة لمناطق "
     "خطوط العرض العليا من قائمة الخيارات"}};

namespace {

class PrayerRun final : public RunOf<PrayerRow> {
public:
    PrayerRun(TheoryPointer theory, const DaySettings& stored)
        : theory_(std::move(theory)),
          settings_(prayer_settings(stored.preferences, stored.location, DayMode::report)),
          forced_year_(forces_year(settings_)),
          days_(forced_year_ ? days_of({stored.date.start.year, 1, 1}, {stored.date.start.year, 12, 31})
                             : days_of(stored.date.start, stored.date.end)),
          period_(report_period(stored.date, days_)) {
        if (forced_year_)
            force_year(settings_);
    }

    const char* task() const override { return "prayer"; }
    const char* report_name() const override { return "results.out"; }

    RunOutcome each_row(const TakeRow& take, Progress& progress) const override {
        Ephemeris ephemeris(theory_);
        std::vector<AlternativeDay> year;
        const RunOutcome outcome = each_day(days_, progress, YieldPlace::after_row, [&](double jd) {
            const PrayerDay day =
                prayer_day(ephemeris, settings_, jd, summer_hours_of(settings_.preferences, jd));
            if (day.refused)
                return RunOutcome::refused;
            if (forced_year_)
                year.push_back(alternative_day(day, civil_date(jd)));
            else
                take({civil_date(jd), day.summer_hours == 1, day.times, std::nullopt});
            return RunOutcome::done;
        });
        if (outcome == RunOutcome::done && forced_year_)
            take_smoothed(year, take);
        return outcome;
    }

    std::span<const ColumnOf<PrayerRow>> columns() const override { return prayer_columns(); }

    Facts facts() const override {
        Facts facts;
        add_place(facts, settings_.location);
        add_period(facts, period_);
        add_fact(facts, "alternative_method", forced_year_);
        add_fact(facts, "fajer_angle", settings_.horizon.fajer_angle);
        add_fact(facts, "isha_angle", settings_.horizon.isha_angle);
        return facts;
    }

private:
    static void take_smoothed(const std::vector<AlternativeDay>& days, const TakeRow& take) {
        const std::vector<SmoothedDay> year = smoothed_year(days);
        for (std::size_t k = 0; k < year.size(); ++k)
            take({days[k].date, days[k].summer, days[k].times, year[k]});
    }

    void write_head(Report& report) const override { write_prayer_head(report, settings_, period_); }
    void write_row(Report& report, const PrayerRow& row, int number) const override {
        write_prayer_row(report, settings_.precision, row, number);
    }
    void write_closing(Report& report, RunOutcome /*outcome*/, int /*rows*/) const override {
        write_prayer_closing(report);
    }

    TheoryPointer theory_;
    PrayerSettings settings_;
    bool forced_year_;
    RunDays days_;
    ReportPeriod period_;
};

} // namespace

RunPointer prayer_run(const TheoryPointer& theory, const MachineTime& today) {
    return std::make_shared<PrayerRun>(theory, stored_day_settings(today));
}

PrayerTexts today_prayer_times(const TheoryPointer& theory, double todayjd) {
    const Preferences preferences = read_pref();
    read_date();
    return texts_of(prayer_times(theory, preferences, read_loc(), todayjd), precision_of(preferences));
}

} // namespace halvane
