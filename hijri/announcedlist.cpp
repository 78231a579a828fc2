// SPDX-License-Identifier: MIT
#include "hijri/announcedlist.h"

#include "base/failure.h"
#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "hijri/hijrimonths.h"
#include "report/csvwriter.h"
#include "report/valuetext.h"
#include "stored/programfolder.h"
#include "stored/textfile.h"
#include "timetable/inifile.h"
#include "timetable/inivalues.h"
#include "timetable/placewords.h"
#include "timetable/span.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>

namespace halvane {
namespace {

constexpr const char* file_name = "hijri-announced.csv";
constexpr std::array<const char*, 4> headings{"year", "month", "first_day", "announced_by"};
constexpr double noon_after_midnight = 0.5;
constexpr double farthest_from_tabular = 5; // [d]
constexpr int shortest_month = 29;
constexpr int longest_month = 30;
constexpr std::array<Word<AnnouncedUse>, 3> use_words{
    {{"none", AnnouncedUse::none}, {"whole", AnnouncedUse::whole}, {"sound", AnnouncedUse::sound}}};
constexpr std::array<AnnouncedUse, 3> uses{AnnouncedUse::none, AnnouncedUse::whole, AnnouncedUse::sound};

bool is_head(const AnnouncedRow& row) {
    return std::equal(row.fields.begin(), row.fields.end(), headings.begin(), headings.end());
}

TwinWords month_words(HijriMonthNumber month) {
    const auto name = [month](Language language) {
        return hijri_month_name(month.month(), language) + " " + std::to_string(month.year());
    };
    return {name(Language::english), name(Language::arabic)};
}

/// A number of a row; words of what is wrong with it.
TwinWords take_whole(int& target, const char* heading, const std::string& text, int first, int last) {
    const std::optional<double> number = number_of_text(text);
    if (!number || std::floor(*number) != *number || *number < first || *number > last)
        return wanted_words(heading, std::to_string(first) + " ... " + std::to_string(last), text);
    target = static_cast<int>(*number);
    return {};
}

TwinWords take_first_day(double& first_day, const std::string& text) {
    const SpanAnswer date = dates_span(text, text);
    if (!date.refused) {
        first_day = date.span.first + noon_after_midnight;
        return {};
    }
    return joined(alike(headings[2]), ": ", *date.refused);
}

/// A row by itself; words of what is wrong with it.
TwinWords take_start(AnnouncedStart& start, const AnnouncedRow& row) {
    if (!row.unread.empty())
        return TwinText{"its quote marks do not go together", "علامات التنصيص فيه غير متوافقة"};
    if (row.fields.size() != headings.size())
        return field_count_words(headings.size(), row.fields.size());
    int year = 0;
    int month = 0;
    for (const TwinWords& words :
         {take_whole(year, headings[0], row.fields[0], static_cast<int>(hijri_rule_years.first),
                     static_cast<int>(hijri_rule_years.last)),
          take_whole(month, headings[1], row.fields[1], 1, 12),
          take_first_day(start.first_day, row.fields[2])})
        if (!words.english.empty())
            return words;
    start.month = HijriMonthNumber::of(year, month);
    start.announced_by = row.fields[3];
    const double days = start.first_day - day_number_of_hijri(year, month, 1);
    if (std::fabs(days) > farthest_from_tabular) {
        const std::string count = plain_number(std::fabs(days));
        return {count + " days from the tabular start of " + month_words(start.month).english,
                "يبعد " + count + " يوما عن بداية " + month_words(start.month).arabic +
                    " في التقويم الحسابي"};
    }
    return {};
}

/// The starts of a list as they are taken line by line: each has to go with those above it.
class Taken {
public:
    /// Returns what is wrong; empty words where nothing is, and the start is taken.
    TwinWords take(const AnnouncedStart& start, int line) {
        const auto after = starts_.lower_bound(start.month);
        if (after != starts_.end() && after->first == start.month)
            return twice(start.month, after->second.line);
        const Line taken{start, line};
        if (after != starts_.begin())
            if (TwinWords words = apart(std::prev(after)->second, taken, std::prev(after)->second.line);
                !words.english.empty())
                return words;
        if (after != starts_.end())
            if (TwinWords words = apart(taken, after->second, after->second.line); !words.english.empty())
                return words;
        starts_.emplace_hint(after, start.month, taken);
        return {};
    }

    std::vector<AnnouncedStart> starts() const {
        std::vector<AnnouncedStart> all;
        for (const auto& [month, line] : starts_)
            all.push_back(line.start);
        return all;
    }

private:
    struct Line {
        AnnouncedStart start;
        int line = 0;
    };

    static TwinWords twice(HijriMonthNumber month, int line) {
        const TwinWords name = month_words(month);
        const std::string number = std::to_string(line);
        return {name.english + " stands in line " + number + " already",
                name.arabic + " موجود في السطر " + number};
    }

    /// In     line  of the one of the two that stands above
    static TwinWords apart(const Line& earlier, const Line& later, int line) {
        const int months = later.start.month.value - earlier.start.month.value;
        const int days = static_cast<int>(later.start.first_day - earlier.start.first_day);
        if (days >= shortest_month * months && days <= longest_month * months)
            return {};
        const TwinWords name = month_words(earlier.start.month);
        const std::string count = std::to_string(days);
        const std::string number = std::to_string(line);
        if (months == 1)
            return {name.english + " would be a month of " + count + " days, by line " + number,
                    "يصبح " + name.arabic + " شهرا من " + count + " يوما، بحسب السطر " + number};
        const std::string many = std::to_string(months);
        const std::string wanted =
            std::to_string(shortest_month * months) + " ... " + std::to_string(longest_month * months);
        return {"the " + many + " months from " + name.english + " on would have " + count +
                    " days, by line " + number + "; wanted " + wanted,
                "تصبح الأشهر من " + name.arabic + " (عددها " + many + ") من " + count + " يوما، بحسب السطر " +
                    number + "، و المطلوب " + wanted};
    }

    std::map<HijriMonthNumber, Line> starts_;
};

AnnouncedList checked(std::vector<AnnouncedRow> rows) {
    AnnouncedList list;
    list.rows = std::move(rows);
    Taken taken;
    for (std::size_t i = 0; i < list.rows.size(); ++i) {
        const AnnouncedRow& row = list.rows[i];
        AnnouncedStart start;
        TwinWords words = take_start(start, row);
        if (words.english.empty())
            words = taken.take(start, row.line);
        if (!words.english.empty())
            list.problems.push_back({i, row.line, std::move(words)});
    }
    list.starts = taken.starts();
    return list;
}

/// A blank at an end, and a row of nothing, are read back only from within quote marks; a line end is not
/// read back at all.
void append_field(std::string& text, std::string field, bool is_alone) {
    constexpr std::string_view blanks = " \t";
    std::replace(field.begin(), field.end(), '\n', ' ');
    const bool has_blanks = !field.empty() && (blanks.find(field.front()) != std::string_view::npos ||
                                               blanks.find(field.back()) != std::string_view::npos);
    if (has_blanks || (is_alone && field.empty()))
        append_quoted_csv_field(text, field);
    else
        append_csv_field(text, field);
}

std::string line_of(const AnnouncedRow& row) {
    std::string text = row.unread;
    for (std::size_t i = 0; i < row.fields.size(); ++i) {
        if (i > 0)
            text += ',';
        append_field(text, row.fields[i], row.fields.size() == 1);
    }
    return text + "\r\n";
}

std::string head_line() {
    return line_of({1, {headings.begin(), headings.end()}, {}});
}

std::string path_of_list() {
    return program_path(file_name);
}

} // namespace

AnnouncedList announced_of_text(std::string_view text) {
    std::vector<AnnouncedRow> rows = read_csv_lines(text);
    if (!rows.empty() && is_head(rows.front()))
        rows.erase(rows.begin());
    return checked(std::move(rows));
}

AnnouncedList announced_of_rows(std::vector<AnnouncedRow> rows) {
    int line = 2;
    for (AnnouncedRow& row : rows)
        row.line = line++;
    return checked(std::move(rows));
}

std::string text_of(std::span<const AnnouncedRow> rows) {
    std::string text = head_line();
    for (const AnnouncedRow& row : rows)
        text += line_of(row);
    return text;
}

AnnouncedRow row_of(const AnnouncedStart& start) {
    return {0,
            {std::to_string(start.month.year()), std::to_string(start.month.month()),
             iso_date(civil_date(start.first_day)), start.announced_by},
            {}};
}

const char* key_of(AnnouncedUse use) {
    for (const Word<AnnouncedUse>& word : use_words)
        if (word.value == use)
            return word.word;
    return "";
}

std::optional<AnnouncedUse> announced_use_of(std::string_view key) {
    AnnouncedUse use{};
    if (take_word(use, key, use_words).empty())
        return use;
    return std::nullopt;
}

std::span<const AnnouncedUse> announced_uses() {
    return uses;
}

TwinWords words_of(std::span<const AnnouncedProblem> problems) {
    TwinWords all;
    for (const AnnouncedProblem& problem : problems) {
        const TwinWords words = line_words(file_name, problem.line, problem.words);
        all = all.english.empty() ? words : joined(all, "\n", words);
    }
    return all;
}

AnnouncedList read_announced() {
    try {
        return announced_of_text(read_text_file(path_of_list()));
    } catch (const RunTimeFailure& failure) {
        if (failure.parts().kind != FailureKind::missing_file)
            throw;
        return {};
    }
}

void write_announced(std::span<const AnnouncedRow> rows) {
    save_text_file(path_of_list(), text_of(rows));
}

} // namespace halvane
