// SPDX-License-Identifier: MIT
#include "timetable/comparetable.h"

#include "base/failure.h"
#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "calendar/locationclock.h"
#include "report/valuetext.h"
#include "timetable/cells.h"
#include "timetable/rowtexts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numeric>

namespace halvane {
namespace {

// --- The comparison ---------------------------------------------------------------------------------------

/// Ours for a column of a table.
std::optional<int> seconds_in(const TimetableRow& row, TimetableColumn column) {
    const std::vector<RowTime> times = times_in(row, column);
    if (times.empty() || !times.front().clock)
        return std::nullopt;
    return times.front().clock->seconds;
}

/// Between two of a rising list, by the part `share` of its length.
double quantile(const std::vector<double>& rising, double share) {
    const double place = share * static_cast<double>(rising.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const std::size_t above = std::min(below + 1, rising.size() - 1);
    return rising[below] + (place - static_cast<double>(below)) * (rising[above] - rising[below]);
}

int count_within(const std::vector<double>& differences, double added, double minutes) {
    return static_cast<int>(
        std::count_if(differences.begin(), differences.end(), [added, minutes](double difference) {
            return std::fabs(difference - added) <= minutes;
        }));
}

/// In     differences  in minutes
ColumnComparison comparison_of(TimetableColumn column, std::vector<double> differences) {
    ColumnComparison made;
    made.column = column;
    made.compared = static_cast<int>(differences.size());
    if (differences.empty())
        return made;
    std::sort(differences.begin(), differences.end());
    made.least = differences.front();
    made.greatest = differences.back();
    made.median = quantile(differences, 0.5);
    made.mean = std::accumulate(differences.begin(), differences.end(), 0.0) / made.compared;
    made.spread = (quantile(differences, 0.75) - quantile(differences, 0.25)) / 2;
    const bool whole = std::all_of(differences.begin(), differences.end(), [](double difference) {
        return difference == std::nearbyint(difference);
    });
    made.minutes_to_add = whole ? std::nearbyint(made.median) : made.median;
    made.same = count_within(differences, *made.minutes_to_add, 0.5);
    made.within_one = count_within(differences, *made.minutes_to_add, 1);
    return made;
}

/// A difference of clocks [min], from [s], of the nearest two of their repetitions.
double wrapped_minutes(int seconds, double period) {
    return (seconds - period * std::nearbyint(seconds / period)) / 60;
}

using RowPair = std::pair<const ForeignTable::Row*, const TimetableRow*>;

std::vector<RowPair> common_rows(const ForeignTable& table, const Timetable& timetable) {
    std::map<double, const TimetableRow*> days;
    for (const TimetableRow& row : timetable.rows)
        days.emplace(row.jd, &row);
    std::vector<RowPair> pairs;
    for (const ForeignTable::Row& row : table.rows)
        if (const auto day = days.find(row.jd); day != days.end())
            pairs.emplace_back(&row, day->second);
    return pairs;
}

// --- Its text ---------------------------------------------------------------------------------------------

/// Characters of a UTF-8 text.
std::size_t length_of(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string blanks(std::size_t wanted, std::string_view text) {
    const std::size_t length = length_of(text);
    return std::string(wanted > length ? wanted - length : 0, ' ');
}

std::string signed_minutes(double minutes) {
    const double tenths = std::nearbyint(minutes * 10) / 10;
    return (tenths > 0 ? "+" : "") + format_number(tenths == 0 ? 0 : tenths, "0.0");
}

/// A line of a table: a name, then values under their headings.
std::string table_line(const std::string& name, const std::vector<std::string>& values) {
    constexpr std::size_t name_width = 16;
    constexpr std::size_t value_width = 11;
    std::string line = name + blanks(name_width, name);
    for (const std::string& value : values)
        (line += blanks(value_width, value)) += value;
    return line + '\n';
}

std::vector<std::string> values_of(const ColumnComparison& column) {
    if (!column.minutes_to_add)
        return {"0"};
    return {std::to_string(column.compared),
            signed_minutes(column.median),
            signed_minutes(column.mean),
            signed_minutes(column.least),
            signed_minutes(column.greatest),
            format_number(column.spread, "0.0"),
            signed_minutes(*column.minutes_to_add),
            std::to_string(column.same),
            std::to_string(column.within_one)};
}

constexpr std::array<TwinText, 9> headings{{{"Days", "الأيام"},
                                            {"Median", "الوسيط"},
                                            {"Mean", "المتوسط"},
                                            {"Least", "الأصغر"},
                                            {"Greatest", "الأكبر"},
                                            {"Spread", "التشتت"},
                                            {"To add", "يضاف"},
                                            {"Then same", "ثم يتفق"},
                                            {"Within 1", "ضمن دقيقة"}}};

constexpr TwinText title{"The table's times less these, in minutes",
                         "أوقات الجدول ناقص هذه الأوقات، بالدقائق"};
constexpr TwinText half_days{"The table's clock is of 12 hours: differences are taken within 6 hours.",
                             "ساعة الجدول من 12 ساعة: تؤخذ الفروق ضمن 6 ساعات."};
constexpr TwinText meaning{
    "Spread: half the distance of the quartiles. To add: minutes that bring the median to 0.\n"
    "Then same, within 1: days that then agree to the minute, and to one minute.",
    "التشتت: نصف المسافة بين الربيعين. يضاف: الدقائق التي تجعل الوسيط صفرا.\n"
    "ثم يتفق، ضمن دقيقة: الأيام التي تتفق بعد الإضافة تماما، و ضمن دقيقة واحدة."};

std::string days_line(const TableComparison& comparison, Language language) {
    const std::string first = iso_date(civil_date(comparison.first));
    const std::string last = iso_date(civil_date(comparison.last));
    const std::string days = std::to_string(comparison.days);
    return language == Language::english
               ? "Days in common: " + days + ", from " + first + " to " + last + '\n'
               : "الأيام المشتركة: " + days + "، من " + first + " إلى " + last + '\n';
}

std::string text_in(const TableComparison& comparison, PrayerNames names, Language language) {
    std::string text = std::string(title.in(language)) + '\n' + days_line(comparison, language);
    if (comparison.twelve_hours)
        (text += half_days.in(language)) += '\n';
    std::vector<std::string> head;
    head.reserve(headings.size());
    for (const TwinText& heading : headings)
        head.emplace_back(heading.in(language));
    text += '\n' + table_line("", head);
    for (const ColumnComparison& column : comparison.columns)
        text += table_line(name_of(column.column, names).in(language), values_of(column));
    return text + '\n' + meaning.in(language) + '\n';
}

} // namespace

TableComparison compare_table(const ForeignTable& table, const Timetable& timetable) {
    const std::vector<RowPair> pairs = common_rows(table, timetable);
    if (pairs.empty())
        throw RunTimeFailure(TwinWords{table.path + ": no day of the table is in the timetable.",
                                       table.path + ": لا يوجد يوم مشترك بين الجدول و المواقيت."});
    TableComparison comparison;
    comparison.days = static_cast<int>(pairs.size());
    comparison.twelve_hours = table.twelve_hours;
    const auto [first, last] =
        std::minmax_element(pairs.begin(), pairs.end(),
                            [](const RowPair& a, const RowPair& b) { return a.first->jd < b.first->jd; });
    comparison.first = first->first->jd;
    comparison.last = last->first->jd;
    const double period = table.twelve_hours ? seconds_per_day / 2 : seconds_per_day;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        std::vector<double> differences;
        for (const auto& [theirs, ours] : pairs)
            if (const std::optional<int> seconds = seconds_in(*ours, table.columns[i]);
                seconds && theirs->seconds[i])
                differences.push_back(wrapped_minutes(*theirs->seconds[i] - *seconds, period));
        comparison.columns.push_back(comparison_of(table.columns[i], std::move(differences)));
    }
    return comparison;
}

TwinWords comparison_text(const TableComparison& comparison, PrayerNames names) {
    return {text_in(comparison, names, Language::english), text_in(comparison, names, Language::arabic)};
}

} // namespace halvane
