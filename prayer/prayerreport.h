// SPDX-License-Identifier: MIT
#pragma once

#include "prayer/highlatitude.h"
#include "prayer/prayerday.h"
#include "report/report.h"
#include "report/reportrun.h"

#include <optional>
#include <span>

namespace halvane {

/// A row of the report.
struct PrayerRow {
    DateNumbers date;
    bool summer = false;
    PrayerTimes times;
    /// By the alternative method: in the place of the Fajer and the Isha of `times`.
    std::optional<SmoothedDay> smoothed;
};

/// What its row holds.
std::span<const ColumnOf<PrayerRow>> prayer_columns();
/// The same without the marks of the alternative method.
std::span<const ColumnOf<PrayerRow>> plain_prayer_columns();

/// The head of `results.out`. The title rows follow the stored precision, also where the rows of the
/// alternative method are in minutes.
void write_prayer_head(Report& report, const PrayerSettings& settings, const ReportPeriod& period);

/// One row; `number` counts the rows from 1.
void write_prayer_row(Report& report, int precision, const PrayerRow& row, int number);

/// The rule and the remarks after the last row.
void write_prayer_closing(Report& report);

/// Width of the rules of the prayer and the Moon report.
inline constexpr int prayer_rule = 71;

/// An empty line follows every fifth row.
void end_row(Report& report, int number);

/// The settings lines between the location and the rule that both reports have.
void write_height_setting(Report& report, const Preferences& preferences);
void write_city_setting(Report& report, const Location& location);

} // namespace halvane
