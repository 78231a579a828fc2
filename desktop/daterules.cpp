// SPDX-License-Identifier: MIT
#include "desktop/daterules.h"

#include "base/numberformat.h"
#include "base/record.h"
#include "calendar/platformdate.h"

namespace halvane {

namespace {

DateBoxes boxes_of(const DateNumbers& date) {
    return {plain_number(date.year), plain_number(date.month), plain_number(date.day)};
}

DateNumbers numbers_of(const DateBoxes& boxes) {
    return {numeric_prefix(boxes.year), numeric_prefix(boxes.month), numeric_prefix(boxes.day)};
}

DateChoice choice_of(const CalculationDate& record) {
    if (record.period)
        return DateChoice::period;
    return record.one_day ? DateChoice::one_day : DateChoice::system_date;
}

} // namespace

DatePanel date_panel_of(const CalculationDate& record) {
    return {choice_of(record), boxes_of(record.from), boxes_of(record.to), boxes_of(record.one)};
}

CalculationDate calculation_date_of(const DatePanel& panel) {
    CalculationDate record;
    record.from = numbers_of(panel.from);
    record.to = numbers_of(panel.to);
    record.one = numbers_of(panel.one);
    record.one_day = panel.choice == DateChoice::one_day;
    record.period = panel.choice == DateChoice::period;
    record.system_date = panel.choice == DateChoice::system_date;
    record.start = record.one_day ? record.one : record.from;
    record.end = record.one_day ? record.one : record.to;
    return record;
}

bool ends_before_start(const CalculationDate& record) {
    if (!record.period)
        return false;
    const DateNumbers& start = record.start;
    const DateNumbers& end = record.end;
    return platform_day_count(end.year, end.month, end.day) <
           platform_day_count(start.year, start.month, start.day);
}

} // namespace halvane
