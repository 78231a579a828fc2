// SPDX-License-Identifier: MIT
#include "tests/timetable/handmadetimetable.h"
#include "tests/timetable/otherreckoning.h"
#include "timetable/sheetnotes.h"
#include "timetable/timetablefiles.h"
#include "timetable/timetablehtml.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace halvane {
namespace {

SheetCell cell_of(const std::string& english, const std::string& arabic) {
    return {TwinWords(english, arabic)};
}

/// A sheet of three days with their date, weekday and Isha.
TimetableSheet handmade_sheet() {
    TimetableSheet sheet;
    sheet.title = {"Prayer times, February 2026", "مواقيت الصلاة، شباط 2026"};
    sheet.month = {"February 2026", "شباط 2026"};
    sheet.hijri_months = {"Ramadan 1447", "رمضان 1447"};
    sheet.place = {"Amman", "Amman"};
    sheet.coordinates = {"31°57' N", "31°57' شمالا"};
    sheet.zone = {"UT +3", "UT +3"};
    sheet.rules = {"Isha 17°", "العشاء 17°"};
    sheet.columns = {{TimetableColumn::date, TwinWords("Date", "التاريخ")},
                     {TimetableColumn::weekday, TwinWords("Day", "اليوم")},
                     {TimetableColumn::isha, TwinWords("Isha", "العشاء")}};
    sheet.rows.resize(3);
    sheet.rows[0].cells = {cell_of("18", "18"), cell_of("Wed", "الأربعاء"), cell_of("6:40 pm", "6:40 م")};
    sheet.rows[1].cells = {cell_of("19", "19"), cell_of("Thu", "الخميس"), cell_of("6:41 pm", "6:41 م")};
    sheet.rows[2].cells = {cell_of("20", "20"), cell_of("Fri", "الجمعة"), cell_of("6:42 pm", "6:42 م")};
    sheet.rows[0].hijri_month_begins = true;
    sheet.rows[2].friday = true;
    return sheet;
}

std::string html_of(const TimetableSheet& sheet, PageLanguage language,
                    const Timetable& timetable = handmade_timetable()) {
    PageSettings page;
    page.columns.clear();
    for (const SheetColumn& column : sheet.columns)
        page.columns.push_back(column.column);
    page.language = language;
    return html_of_sheets(std::span(&sheet, 1), timetable, page);
}

std::size_t count_of(const std::string& text, std::string_view part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

void expect_in_order(const std::string& text, const std::vector<std::string>& parts) {
    std::size_t at = 0;
    for (const std::string& part : parts) {
        const std::size_t found = text.find(part, at);
        ASSERT_NE(found, std::string::npos) << "missing, or before the one above: " << part << "\n" << text;
        at = found + part.size();
    }
}

TEST(TimetablePage, IsATableWithHeadingsAndTimes) {
    const std::string month_begins = "<tr class=\"month-begins\"><th scope=\"row\" class=\"words\"><time "
                                     "datetime=\"2026-02-18\">18</time></th>"
                                     "<td class=\"words\">Wed</td><td><time "
                                     "datetime=\"2026-02-18T18:40:00+03:00\">6:40 pm</time></td></tr>";
    const std::string friday = "<tr class=\"friday\"><th scope=\"row\" class=\"words\">"
                               "<time datetime=\"2026-02-20\">20</time></th>";
    expect_in_order(html_of(handmade_sheet(), PageLanguage::english),
                    {"<!DOCTYPE html>\n<html lang=\"en\" dir=\"ltr\">", "<meta charset=\"utf-8\">",
                     "<title>Amman – Prayer times, February 2026</title>", "@page{size:A4 portrait;", "<h1 ",
                     ">Prayer times, February 2026</h1>", "Ramadan 1447", "Amman", "31°57' N", "UT +3",
                     "Isha 17°", "<caption class=\"unseen\">Prayer times, February 2026 – Amman</caption>",
                     "<th scope=\"col\">Date</th><th scope=\"col\">Day</th><th scope=\"col\">Isha</th>",
                     month_begins, "<time datetime=\"2026-02-19\">19</time></th>", friday, "</html>\n"});
}

TEST(SheetNotes, NameWhatTheHijriDatesAreToldBy) {
    Timetable timetable = handmade_timetable();
    const auto has_note = [&timetable](const char* words) {
        const std::vector<TwinWords> notes = notes_of(timetable, {}, timetable.rows);
        return std::any_of(notes.begin(), notes.end(), [words](const TwinWords& note) {
            return note.english == words || note.arabic == words;
        });
    };
    EXPECT_FALSE(has_note("Hijri dates: Other"));
    timetable.settings.hijri = other_reckoning();
    EXPECT_TRUE(has_note("Hijri dates: Other"));
    EXPECT_TRUE(has_note("التواريخ الهجرية: آخر"));
}

TEST(TimetablePage, NeedsNothingBesideIt) {
    const std::string text = html_of(handmade_sheet(), PageLanguage::both);
    for (const char* const other : {"<script", "<link", "<img", "src=", "url(", "@import", "http"})
        EXPECT_EQ(count_of(text, other), 0U) << other;
}

TEST(TimetablePage, RunsFromRightToLeftInArabic) {
    const std::string text = html_of(handmade_sheet(), PageLanguage::arabic);
    expect_in_order(text, {"<html lang=\"ar\" dir=\"rtl\">", ">مواقيت الصلاة، شباط 2026</h1>",
                           "<th scope=\"col\">العشاء</th>", "<td class=\"words\">الأربعاء</td>",
                           "<time datetime=\"2026-02-18T18:40:00+03:00\">6:40 م</time>"});
    EXPECT_EQ(count_of(text, "Prayer times"), 0U);
}

TEST(TimetablePage, HasBothLanguagesAndEachClockOnce) {
    const std::string text = html_of(handmade_sheet(), PageLanguage::both);
    expect_in_order(text,
                    {"<html lang=\"en\" dir=\"ltr\">", "<span>Prayer times, February 2026</span>",
                     "<span lang=\"ar\" dir=\"rtl\">مواقيت الصلاة، شباط 2026</span>", "<bdi>Amman</bdi>",
                     "<span>Isha</span> <span lang=\"ar\" dir=\"rtl\">العشاء</span>",
                     "<span>Wed</span> <span lang=\"ar\" dir=\"rtl\">الأربعاء</span>",
                     "<time datetime=\"2026-02-18T18:40:00+03:00\">6:40 pm</time>"});
    EXPECT_EQ(count_of(text, "6:40 م"), 0U);
}

TEST(TimetablePage, MarksTheTimesOfARuleAndTellsTheNotes) {
    TimetableSheet sheet = handmade_sheet();
    sheet.rows[1].cells[2].marked = true;
    sheet.notes = {{"* by a rule", "* حسب قاعدة"}};
    const std::string text = html_of(sheet, PageLanguage::english);
    expect_in_order(text,
                    {"6:41 pm</time><span class=\"mark\">*</span></td>", "</table>", "* by a rule</li>"});
    EXPECT_EQ(count_of(text, "class=\"mark\""), 1U);
}

TEST(TimetablePage, ShowsWhyThereIsNoTime) {
    Timetable timetable = handmade_timetable();
    timetable.rows[0].times[DayTime::isha] = no_time(NoEvent::bright);
    TimetableSheet sheet = handmade_sheet();
    sheet.rows[0].cells[2] = cell_of("bright", "مضيئة");
    expect_in_order(html_of(sheet, PageLanguage::both, timetable),
                    {"<td><span>bright</span> <span lang=\"ar\" dir=\"rtl\">مضيئة</span></td>"});
}

TEST(TimetablePage, TellsFridayInWordsWhereNoColumnDoes) {
    TimetableSheet sheet = handmade_sheet();
    EXPECT_EQ(count_of(html_of(sheet, PageLanguage::english), "Friday"), 0U);
    sheet.columns.erase(sheet.columns.begin() + 1);
    for (SheetRow& row : sheet.rows)
        row.cells.erase(row.cells.begin() + 1);
    expect_in_order(html_of(sheet, PageLanguage::english),
                    {">20</time><span class=\"unseen\"> Friday</span></th>"});
}

TEST(TimetablePage, EscapesNames) {
    TimetableSheet sheet = handmade_sheet();
    sheet.place = {"<b>A&\"B\"\x01</b>", "<b>A&\"B\"\x01</b>"};
    const std::string text = html_of(sheet, PageLanguage::english);
    expect_in_order(text, {"<title>&lt;b&gt;A&amp;&quot;B&quot;&lt;/b&gt; – ",
                           "<bdi>&lt;b&gt;A&amp;&quot;B&quot;&lt;/b&gt;</bdi>"});
    EXPECT_EQ(count_of(text, "<b>"), 0U);
}

TEST(TimetablePage, LeadsToEachOfItsMonths) {
    Timetable timetable = handmade_timetable();
    std::vector<TimetableSheet> sheets(2, handmade_sheet());
    sheets[0].rows.resize(2);
    sheets[1].rows.erase(sheets[1].rows.begin(), sheets[1].rows.begin() + 2);
    sheets[1].month = {"March 2026", "آذار 2026"};
    PageSettings page;
    page.paper = PaperSize::letter;
    const std::string text = html_of_sheets(sheets, timetable, page);
    expect_in_order(text, {"@page{size:Letter portrait;", "<h1><bdi>Amman</bdi></h1>",
                           "<a href=\"#sheet1\">February 2026</a>", "<a href=\"#sheet2\">March 2026</a>",
                           "<section class=\"sheet\" id=\"sheet1\"", "<h2 ", "2026-02-19T18:41:00+03:00",
                           "<section class=\"sheet\" id=\"sheet2\"", "2026-02-20T18:42:00+03:00"});
}

TEST(TimetablePage, LiesOnItsSideWithManyColumns) {
    PageSettings page;
    page.columns.clear();
    for (const ColumnNames& names : column_names())
        page.columns.push_back(names.column);
    const std::string text = halvane::html_of(handmade_timetable(), page);
    expect_in_order(text, {"@page{size:A4 landscape;", "<table class=\"many\">"});
    EXPECT_EQ(count_of(text, "<th scope=\"col\">"), page.columns.size());
    EXPECT_EQ(count_of(text, "<tr"), 4U) << "the headings and three days";
}

} // namespace
} // namespace halvane
