// SPDX-License-Identifier: MIT
#pragma once

#include "qibla/qibladay.h"
#include "report/reportrun.h"
#include "stored/loc.h"
#include "stored/pref.h"

#include <span>

namespace halvane {

/// What stands in the direction of the Qiblah at the times of a report.
enum class QiblahMark { sun, shadow };

/// A row of the Qiblah report.
struct QiblahRow {
    DateNumbers date;
    bool summer = false;
    QiblahDay day;
};

/// What its row holds.
std::span<const ColumnOf<QiblahRow>> qiblah_columns();

/// The head of the Qiblah report; `direction` is the Qiblah's, whatever the mark                [deg]
void write_qiblah_head(Report& report, const Preferences& preferences, const Location& location,
                       const ReportPeriod& period, float direction, QiblahMark mark);

/// One row; `number` counts the rows from 1, and an empty line stands before every fifth one.
void write_qiblah_row(Report& report, int precision, const QiblahRow& row, int number);

/// The rule and the remarks after the last row.
void write_qiblah_closing(Report& report);

} // namespace halvane
