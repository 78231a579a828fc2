// SPDX-License-Identifier: MIT
#include "tests/timetable/writtensheet.h"

#include <array>

namespace halvane {
namespace {

constexpr int days = 31;
constexpr int first_weekday = 4; // 2026 January 1 is a Thursday
constexpr int friday = 5;
constexpr int hijri_begin = 20;

constexpr std::array<TwinText, 7> weekdays{{{"Sun", "الأحد"},
                                            {"Mon", "الاثنين"},
                                            {"Tue", "الثلاثاء"},
                                            {"Wed", "الأربعاء"},
                                            {"Thu", "الخميس"},
                                            {"Fri", "الجمعة"},
                                            {"Sat", "السبت"}}};

TwinWords alike(const std::string& text) {
    return {text, text};
}

TwinWords hijri_day(int day) {
    if (day == 1)
        return {"12 Rajab", "12 رجب"};
    if (day == hijri_begin)
        return {"1 Sha'ban", "1 شعبان"};
    return alike(std::to_string(day < hijri_begin ? day + 11 : day - hijri_begin + 1));
}

/// A clock of its own for each cell: "HH:MM".
std::string clock_of(int day, std::size_t column) {
    const std::string minute = std::to_string(day + 10);
    const std::string hour = std::to_string(column + 5);
    return (hour.size() < 2 ? "0" + hour : hour) + ":" + minute;
}

SheetCell cell_of(TimetableColumn column, std::size_t number, int day) {
    SheetCell cell;
    switch (column) {
    case TimetableColumn::date:
        cell.text = alike(std::to_string(day));
        break;
    case TimetableColumn::weekday:
        cell.text = weekdays.at(static_cast<std::size_t>((day - 1 + first_weekday) % 7));
        break;
    case TimetableColumn::hijri:
        cell.text = hijri_day(day);
        break;
    default:
        cell.text = alike(clock_of(day, number));
        cell.marked = day == 5 && (column == TimetableColumn::fajer || column == TimetableColumn::isha);
    }
    return cell;
}

SheetRow row_of(const std::vector<TimetableColumn>& columns, int day) {
    SheetRow row;
    for (std::size_t number = 0; number < columns.size(); ++number)
        row.cells.push_back(cell_of(columns[number], number, day));
    row.friday = (day - 1 + first_weekday) % 7 == friday;
    row.hijri_month_begins = day == hijri_begin;
    return row;
}

void lengthen(TimetableSheet& sheet) {
    sheet.place = {"Mosque and Islamic Cultural Centre of Llanfairpwllgwyngyll in the County of Anglesey",
                   "المسجد الجامع و المركز الثقافي الإسلامي في لانفاير في مقاطعة الجزيرة الكبرى"};
    for (int note = 0; note < 6; ++note)
        sheet.notes.emplace_back(
            "On 31 days the stored zone and summer dates differ from the time zone of the "
            "place; this timetable follows the time zone.",
            "في 31 يوما يختلف التوقيت المخزون و تواريخ التوقيت الصيفي عن المنطقة الزمنية للمكان، "
            "و هذا التقويم حسب المنطقة الزمنية.");
}

} // namespace

TimetableSheet written_sheet(const SheetSize& size) {
    TimetableSheet sheet;
    sheet.title = {"Prayer times, January 2026", "مواقيت الصلاة، كانون الثاني 2026"};
    sheet.hijri_months = {"Rajab – Sha'ban 1447", "رجب – شعبان 1447"};
    sheet.place = {"Amman", "الأردن"};
    sheet.coordinates = {"31°57' N, 35°57' E, 757 m",
                         "\u206631°57'\u2069 شمالا، \u206635°57'\u2069 شرقا، 757 م"};
    sheet.zone = {"Time zone Asia/Amman (UT +3)", "التوقيت \u2066Asia/Amman (UT +3)\u2069"};
    sheet.rules = {"Fajer 18°, Isha 17°, Aser standard", "الفجر 18°، العشاء 17°، العصر للجمهور"};
    for (const TimetableColumn column : size.columns)
        sheet.columns.push_back({column, names_of(column).halvane});
    for (int day = 1; day <= days; ++day)
        sheet.rows.push_back(row_of(size.columns, day));
    sheet.notes.emplace_back("* by the middle of the night", "* بمنتصف الليل");
    if (size.long_texts)
        lengthen(sheet);
    return sheet;
}

} // namespace halvane
