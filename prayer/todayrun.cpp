// SPDX-License-Identifier: MIT
#include "prayer/todayrun.h"

#include "calendar/modjul.h"
#include "prayer/prayerreport.h"
#include "prayer/prayertexts.h"
#include "report/reportrun.h"

#include <memory>
#include <utility>

namespace halvane {
namespace {

class TodayRun final : public RunOf<PrayerRow> {
public:
    TodayRun(TheoryPointer theory, DaySettings settings, const DateNumbers& today)
        : theory_(std::move(theory)), settings_(std::move(settings)), today_(today) {}

    const char* task() const override { return "today"; }
    const char* report_name() const override { return ""; }

    RunOutcome each_row(const TakeRow& take, Progress& /*progress*/) const override {
        double jd = 0;
        modjul(today_.year, today_.month, today_.day, 0, jd);
        take({today_, summer_hours_of(settings_.preferences, jd) == 1,
              prayer_times(theory_, settings_.preferences, settings_.location, jd), std::nullopt});
        return RunOutcome::done;
    }

    std::span<const ColumnOf<PrayerRow>> columns() const override { return plain_prayer_columns(); }

    Facts facts() const override {
        Facts facts;
        add_place(facts, settings_.location);
        return facts;
    }

private:
    void write_head(Report& /*report*/) const override {}
    void write_row(Report& report, const PrayerRow& row, int /*number*/) const override {
        const PrayerTexts texts = texts_of(row.times, precision_of(settings_.preferences));
        report.line("Fajer " + texts.fajer).line("Shuroq " + texts.shuroq).line("Dhohur " + texts.dhohur);
        report.line("Aser " + texts.aser).line("Maghreb " + texts.maghreb).line("Isha " + texts.isha);
    }
    void write_closing(Report& /*report*/, RunOutcome /*outcome*/, int /*rows*/) const override {}

    TheoryPointer theory_;
    DaySettings settings_;
    DateNumbers today_;
};

} // namespace

RunPointer today_run(const TheoryPointer& theory, const MachineTime& today) {
    return std::make_shared<TodayRun>(theory, stored_day_settings(today), date_of(today));
}

} // namespace halvane
