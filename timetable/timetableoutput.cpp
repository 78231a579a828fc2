// SPDX-License-Identifier: MIT
#include "timetable/timetableoutput.h"

#include "panel/besidework.h"
#include "routines/machineclock.h"
#include "timetable/timetablepdf.h"
#include "timetable/timetablerules.h"

namespace halvane {

namespace {

struct KindWords {
    TimetableFormat format;
    TwinText words;
};

constexpr KindWords kinds[] = {
    {TimetableFormat::pdf, {"PDF, the printed page", "PDF، الصفحة المطبوعة"}},
    {TimetableFormat::csv, {"CSV table", "جدول CSV"}},
    {TimetableFormat::display_csv, {"CSV for screens of mosques", "جدول CSV لشاشات المساجد"}},
    {TimetableFormat::ics, {"Calendar", "تقويم إلكتروني"}},
    {TimetableFormat::json, {"JSON", "JSON"}},
    {TimetableFormat::html, {"Web page", "صفحة ويب"}},
};

} // namespace

QList<SaveKind> timetable_kinds(Language language) {
    QList<SaveKind> all;
    for (const KindWords& kind : kinds)
        all += save_kind(text_of(kind.words, language), QString::fromStdString(ending_of(kind.format)));
    return all;
}

std::string bytes_of(const Timetable& timetable, const PageSettings& page, TimetableFormat format) {
    return format == TimetableFormat::pdf ? pdf_of(timetable, page)
                                          : text_of_timetable(timetable, page, format, utc_second_now());
}

std::optional<std::string> bytes_of(const Timetable& timetable, const PageSettings& page,
                                    TimetableFormat format, Progress& progress) {
    return made_beside([timetable, page, format] { return bytes_of(timetable, page, format); }, progress);
}

} // namespace halvane
