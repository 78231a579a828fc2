// SPDX-License-Identifier: MIT
#include "prayer/moonrun.h"

#include "calendar/civildate.h"
#include "calendar/modsummer.h"
#include "prayer/moonreport.h"
#include "report/reportrun.h"

#include <memory>
#include <utility>

namespace halvane {
namespace {

class MoonRun final : public RunOf<MoonRow> {
public:
    MoonRun(TheoryPointer theory, DaySettings settings)
        : theory_(std::move(theory)), settings_(std::move(settings)),
          days_(days_of(settings_.date.start, settings_.date.end)),
          period_(report_period(settings_.date, days_)) {}

    const char* task() const override { return "moon"; }
    const char* report_name() const override { return "mresults.out"; }

    RunOutcome each_row(const TakeRow& take, Progress& progress) const override {
        Ephemeris ephemeris(theory_);
        return each_day(days_, progress, YieldPlace::after_row, [&](double jd) {
            const int summer_hours = summer_hours_of(settings_.preferences, jd);
            take({civil_date(jd), summer_hours == 1,
                  moon_day(ephemeris, settings_.preferences, settings_.location, jd, summer_hours)});
            return RunOutcome::done;
        });
    }

    std::span<const ColumnOf<MoonRow>> columns() const override { return moon_columns(); }

    Facts facts() const override {
        Facts facts;
        add_place(facts, settings_.location);
        add_period(facts, period_);
        return facts;
    }

private:
    void write_head(Report& report) const override {
        write_moon_head(report, settings_.preferences, settings_.location, period_);
    }
    void write_row(Report& report, const MoonRow& row, int number) const override {
        write_moon_row(report, precision_of(settings_.preferences), row, number);
    }
    void write_closing(Report& report, RunOutcome /*outcome*/, int /*rows*/) const override {
        write_moon_closing(report);
    }

    TheoryPointer theory_;
    DaySettings settings_;
    RunDays days_;
    ReportPeriod period_;
};

} // namespace

RunPointer moon_run(const TheoryPointer& theory, const MachineTime& today) {
    return std::make_shared<MoonRun>(theory, stored_day_settings(today));
}

} // namespace halvane
