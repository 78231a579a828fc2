// SPDX-License-Identifier: MIT
#include "qibla/qiblahrun.h"

#include "base/failure.h"
#include "calendar/civildate.h"
#include "calendar/modsummer.h"
#include "qibla/direction.h"
#include "report/reportrun.h"
#include "settings/enginesettings.h"

#include <memory>
#include <utility>

namespace halvane {
namespace {

QiblahSearch search_of(const DaySettings& settings, double azimuth, double delta_t) {
    const Location& location = settings.location;
    QiblahSearch search;
    search.observer = observer_of(location);
    search.zone = location.zone;
    search.azimuth = azimuth;
    search.delta_t = delta_t;
    search.altitude_limit =
        qiblah_altitude_limit(location.elevation, location.pressure, location.temperature);
    search.precision = precision_of(settings.preferences);
    return search;
}

class QiblahRun final : public RunOf<QiblahRow> {
public:
    QiblahRun(TheoryPointer theory, DaySettings settings, float direction, QiblahMark mark)
        : theory_(std::move(theory)), settings_(std::move(settings)), direction_(direction), mark_(mark),
          days_(days_of(settings_.date.start, settings_.date.end)),
          period_(report_period(settings_.date, days_)), search_(about_place(settings_.location.name, [this] {
              return search_of(settings_, target_azimuth(direction_, mark_ == QiblahMark::shadow),
                               mean_delta_t(days_));
          })) {}

    const char* task() const override { return mark_ == QiblahMark::sun ? "qibla-sun" : "qibla-shadow"; }
    const char* report_name() const override { return "results.out"; }

    RunOutcome each_row(const TakeRow& take, Progress& progress) const override {
        Ephemeris ephemeris(theory_);
        return about_place(settings_.location.name, [&] {
            return each_day(days_, progress, YieldPlace::before_row, [&](double jd) {
                const int summer_hours = summer_hours_of(settings_.preferences, jd);
                take({civil_date(jd), summer_hours == 1, qiblah_day(ephemeris, search_, jd, summer_hours)});
                return RunOutcome::done;
            });
        });
    }

    std::span<const ColumnOf<QiblahRow>> columns() const override { return qiblah_columns(); }

    Facts facts() const override {
        Facts facts;
        add_place(facts, settings_.location);
        add_period(facts, period_);
        add_fact(facts, "qiblah_direction", static_cast<double>(direction_));
        return facts;
    }

private:
    void write_head(Report& report) const override {
        write_qiblah_head(report, settings_.preferences, settings_.location, period_, direction_, mark_);
    }
    void write_row(Report& report, const QiblahRow& row, int number) const override {
        write_qiblah_row(report, search_.precision, row, number);
    }
    void write_closing(Report& report, RunOutcome /*outcome*/, int /*rows*/) const override {
        write_qiblah_closing(report);
    }

    TheoryPointer theory_;
    DaySettings settings_;
    float direction_;
    QiblahMark mark_;
    RunDays days_;
    ReportPeriod period_;
    QiblahSearch search_;
};

} // namespace

float stored_qiblah_direction() {
    const Location& location = read_loc();
    return about_place(location.name,
                       [&] { return qiblah_direction(longitude_of(location), latitude_of(location)); });
}

RunPointer qiblah_run(const TheoryPointer& theory, const MachineTime& today, float direction,
                      QiblahMark mark) {
    return std::make_shared<QiblahRun>(theory, stored_day_settings(today), direction, mark);
}

} // namespace halvane
