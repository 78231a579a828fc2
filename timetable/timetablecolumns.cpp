// SPDX-License-Identifier: MIT
#include "timetable/timetablecolumns.h"

#include <algorithm>
#include <iterator>

namespace halvane {
namespace {

using enum TimetableColumn;

constexpr ColumnNames table[] = {
    {date, "date", {"Date", "التاريخ"}, {"Date", "التاريخ"}},
    {weekday, "weekday", {"Day", "اليوم"}, {"Day", "اليوم"}},
    {hijri, "hijri", {"Hijri", "الهجري"}, {"Hijri", "الهجري"}},
    {imsak, "imsak", {"Imsak", "الإمساك"}, {"Imsak", "الإمساك"}},
    {fajer, "fajer", {"Fajer", "الفجر"}, {"Fajr", "الفجر"}},
    {fajer_iqamah, "fajer_iqamah", {"Fajer Iqamah", "إقامة الفجر"}, {"Fajr Iqamah", "إقامة الفجر"}},
    {shuroq, "shuroq", {"Shuroq", "الشروق"}, {"Sunrise", "الشروق"}},
    {dhohur, "dhohur", {"Dhohur", "الظهر"}, {"Dhuhr", "الظهر"}},
    {dhohur_iqamah, "dhohur_iqamah", {"Dhohur Iqamah", "إقامة الظهر"}, {"Dhuhr Iqamah", "إقامة الظهر"}},
    {jumuah, "jumuah", {"Jumu'ah", "الجمعة"}, {"Jumu'ah", "الجمعة"}},
    {aser, "aser", {"Aser", "العصر"}, {"Asr", "العصر"}},
    {aser_standard,
     "aser_standard",
     {"Aser (standard)", "العصر (الجمهور)"},
     {"Asr (standard)", "العصر (الجمهور)"}},
    {aser_hanafi, "aser_hanafi", {"Aser (Hanafi)", "العصر (حنفي)"}, {"Asr (Hanafi)", "العصر (حنفي)"}},
    {aser_iqamah, "aser_iqamah", {"Aser Iqamah", "إقامة العصر"}, {"Asr Iqamah", "إقامة العصر"}},
    {maghreb, "maghreb", {"Maghreb", "المغرب"}, {"Maghrib", "المغرب"}},
    {maghreb_iqamah,
     "maghreb_iqamah",
     {"Maghreb Iqamah", "إقامة المغرب"},
     {"Maghrib Iqamah", "إقامة المغرب"}},
    {isha, "isha", {"Isha", "العشاء"}, {"Isha", "العشاء"}},
    {isha_iqamah, "isha_iqamah", {"Isha Iqamah", "إقامة العشاء"}, {"Isha Iqamah", "إقامة العشاء"}},
    {midnight, "midnight", {"Midnight", "منتصف الليل"}, {"Midnight", "منتصف الليل"}},
    {last_third, "last_third", {"Last third", "الثلث الأخير"}, {"Last third", "الثلث الأخير"}},
    {moon_phase, "moon_phase", {"Moon", "القمر"}, {"Moon", "القمر"}},
    {qiblah_sun, "qiblah_sun", {"Sun at Qiblah", "الشمس نحو القبلة"}, {"Sun at Qiblah", "الشمس نحو القبلة"}},
    {rules, "rules", {"Rules", "القواعد"}, {"Rules", "القواعد"}},
};

} // namespace

std::span<const ColumnNames> column_names() {
    return table;
}

const ColumnNames& names_of(TimetableColumn column) {
    return *std::find_if(std::begin(table), std::end(table),
                         [column](const ColumnNames& names) { return names.column == column; });
}

std::optional<TimetableColumn> find_column(std::string_view key) {
    for (const ColumnNames& names : table)
        if (key == names.key)
            return names.column;
    return std::nullopt;
}

std::vector<TimetableColumn> usual_columns() {
    return {date, weekday, hijri, fajer, shuroq, dhohur, aser, maghreb, isha};
}

} // namespace halvane
