// SPDX-License-Identifier: MIT
#include "timetable/foreigntable.h"

#include "calendar/civildate.h"
#include "calendar/locationclock.h"
#include "calendar/modjul.h"
#include "report/valuetext.h"
#include "timetable/cells.h"
#include "timetable/csvtable.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <initializer_list>
#include <map>

namespace halvane {
namespace {

// --- Headings ---------------------------------------------------------------------------------------------

struct Spelling {
    std::string_view name; ///< as plain_heading makes it
    TimetableColumn column;
};

// Beside the names of column_names.
constexpr Spelling spellings[] = {
    {"imsaak", TimetableColumn::imsak},
    {"fajar", TimetableColumn::fajer},
    {"subh", TimetableColumn::fajer},
    {"sobh", TimetableColumn::fajer},
    {"صبح", TimetableColumn::fajer},
    {"shuruq", TimetableColumn::shuroq},
    {"shurooq", TimetableColumn::shuroq},
    {"zuhr", TimetableColumn::dhohur},
    {"zohr", TimetableColumn::dhohur},
    {"duhr", TimetableColumn::dhohur},
    {"thuhr", TimetableColumn::dhohur},
    {"jumah", TimetableColumn::jumuah},
    {"jummah", TimetableColumn::jumuah},
    {"asrmithl1", TimetableColumn::aser_standard},
    {"asrmithl2", TimetableColumn::aser_hanafi},
    {"asrshafi", TimetableColumn::aser_standard},
    {"magrib", TimetableColumn::maghreb},
    {"ishaa", TimetableColumn::isha},
    {"esha", TimetableColumn::isha},
};

constexpr std::string_view date_names[] = {"date", "ddate", "gregoriandate", "تاريخ", "تاريخميلادي"};

// Words of a heading that do not change its meaning.
constexpr std::string_view idle_words[] = {"begin", "begins", "start",  "starts", "time",
                                           "adhan", "athan",  "prayer", "صلاة",   "اذان"};

constexpr std::string_view together_words[] = {"iqamah", "iqama", "jamah", "jamaah", "jamaat", "اقامة"};

template <class List, class Value>
bool holds(const List& list, const Value& value) {
    return std::find(std::begin(list), std::end(list), value) != std::end(list);
}

void replace_all(std::string& text, std::string_view old, std::string_view replacement) {
    for (std::size_t at = text.find(old); at != std::string::npos; at = text.find(old, at))
        text.replace(at, old.size(), replacement);
}

/// Small letters, one form of the Arabic alef, and digits of either script as "0" to "9".
std::string plain(std::string_view given) {
    std::string text(given);
    for (char& c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    for (const std::string_view alef : {"أ", "إ", "آ"})
        replace_all(text, alef, "ا");
    constexpr std::array<std::string_view, 20> digits{"٠", "١", "٢", "٣", "٤", "٥", "٦", "٧", "٨", "٩",
                                                      "۰", "۱", "۲", "۳", "۴", "۵", "۶", "۷", "۸", "۹"};
    for (std::size_t i = 0; i < digits.size(); ++i)
        replace_all(text, digits.at(i), std::string(1, static_cast<char>('0' + i % 10)));
    return text;
}

/// Whether a word goes on with the character: letters, digits, and all beyond ASCII.
bool is_of_word(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || static_cast<unsigned char>(c) >= 0x80U;
}

std::vector<std::string> words_of_heading(std::string_view heading) {
    constexpr std::string_view article = "ال";
    const std::string text = plain(heading);
    std::vector<std::string> words;
    for (auto at = text.begin(); at != text.end();) {
        const auto begin = std::find_if(at, text.end(), is_of_word);
        at = std::find_if_not(begin, text.end(), is_of_word);
        std::string word(begin, at);
        if (word.starts_with(article))
            word.erase(0, article.size());
        if (!word.empty())
            words.push_back(word);
    }
    return words;
}

/// A heading without what spellings differ in: "Fajr Begins" is "fajr", "asr_mithl_1" is "asrmithl1".
struct PlainHeading {
    std::string name;
    bool together = false; ///< it is of an iqamah
};

PlainHeading plain_heading(std::string_view heading) {
    PlainHeading made;
    for (const std::string& word : words_of_heading(heading)) {
        if (holds(together_words, word))
            made.together = true;
        else if (!holds(idle_words, word))
            made.name += word;
    }
    return made;
}

std::optional<TimetableColumn> column_named(const std::string& name) {
    for (const ColumnNames& names : column_names())
        for (const char* const known :
             {names.key, names.halvane.english, names.common.english, names.halvane.arabic}) {
            const PlainHeading heading = plain_heading(known);
            if (!heading.together && heading.name == name)
                return names.column;
        }
    for (const Spelling& spelling : spellings)
        if (spelling.name == name)
            return spelling.column;
    return std::nullopt;
}

/// The column of times that a heading names.
std::optional<TimetableColumn> column_of_heading(std::string_view text) {
    const PlainHeading heading = plain_heading(text);
    std::optional<TimetableColumn> column = column_named(heading.name);
    if (column && heading.together)
        column = find_column(std::string(names_of(*column).key) + "_iqamah");
    if (!column || !has_times(*column) || *column == TimetableColumn::qiblah_sun)
        return std::nullopt;
    return column;
}

// --- Fields -----------------------------------------------------------------------------------------------

/// The numbers of a text of digits apart by one of the separators each; none for any other text.
std::vector<int> numbers_apart(std::string_view text, std::string_view separators) {
    std::vector<int> numbers;
    for (;;) {
        int number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error != std::errc() || text.starts_with('-'))
            return {};
        numbers.push_back(number);
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        if (text.empty())
            return numbers;
        if (separators.find(text.front()) == std::string_view::npos)
            return {};
        text.remove_prefix(1);
    }
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t begin = text.find_first_not_of(blanks);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

/// Takes one of the endings off; returns whether it was there.
bool take_ending(std::string_view& text, std::initializer_list<std::string_view> endings) {
    for (const std::string_view ending : endings)
        if (text.ends_with(ending)) {
            text = trimmed(text.substr(0, text.size() - ending.size()));
            return true;
        }
    return false;
}

struct FieldClock {
    int seconds = 0;
    bool half_told = false; ///< by "AM" or "PM"
};

bool is_no_time(std::string_view plain_text) {
    constexpr std::string_view words[] = {"up", "down", "bright", "dark", "–", "—"};
    return plain_text.find_first_not_of("-: ") == std::string_view::npos || holds(words, plain_text);
}

/// Nothing for a text that is no clock. Minutes have two digits: "16.5" may be a spreadsheet's 16.50.
std::optional<FieldClock> clock_of(std::string_view text) {
    constexpr std::string_view separators = ":.";
    FieldClock clock;
    const bool before_noon = take_ending(text, {"am", "a.m.", "ص"});
    const bool after_noon = !before_noon && take_ending(text, {"pm", "p.m.", "م"});
    clock.half_told = before_noon || after_noon;
    std::vector<int> parts = numbers_apart(text, separators);
    const std::size_t behind_hours = text.size() - std::min(text.find_first_of(separators), text.size());
    if (parts.size() == 2)
        parts.push_back(0);
    else if (parts.size() != 3 || behind_hours != std::string_view(":mm:ss").size())
        return std::nullopt;
    if (behind_hours < std::string_view(":mm").size() || parts[0] > 24 || parts[1] > 59 || parts[2] > 59)
        return std::nullopt;
    int hours = parts[0];
    if (clock.half_told) {
        if (hours < 1 || hours > 12)
            return std::nullopt;
        hours = hours % 12 + (after_noon ? 12 : 0);
    }
    clock.seconds = hours * 3600 + parts[1] * 60 + parts[2];
    if (clock.seconds > seconds_per_day)
        return std::nullopt;
    return clock;
}

/// Numbers of a date in the order in which they stand; the year is the first or the last.
struct FieldDate {
    std::vector<int> numbers;
    int line = 0;

    bool year_first() const { return numbers[0] > 31; }
};

[[noreturn]] void raise_unread(const std::string& path, int line, const std::string& found,
                               const TwinText& wanted) {
    raise_bad_line(path, line, std::string(wanted.english) + " cannot be read: \"" + found + '"',
                   std::string("تعذرت قراءة ") + wanted.arabic + ": \"" + found + '"');
}

FieldDate date_of(const std::string& field, int line, const std::string& path) {
    FieldDate date{numbers_apart(trimmed(plain(field)), "-/."), line};
    if (date.numbers.size() != 3 || (date.numbers[0] > 31) == (date.numbers[2] > 31))
        raise_unread(path, line, field, {"a date", "التاريخ"});
    return date;
}

/// Whether the day stands before the month in the dates that end with their year.
bool day_comes_first(const std::vector<FieldDate>& dates, const std::string& path) {
    const FieldDate* day_first = nullptr;
    const FieldDate* month_first = nullptr;
    const FieldDate* unclear = nullptr;
    for (const FieldDate& date : dates) {
        if (date.year_first())
            continue;
        if (date.numbers[0] > 12)
            day_first = &date;
        else if (date.numbers[1] > 12)
            month_first = &date;
        else
            unclear = &date;
    }
    if (day_first != nullptr && month_first != nullptr)
        raise_bad_line(path, month_first->line,
                       "the month stands before the day here and behind it in line " +
                           std::to_string(day_first->line),
                       "الشهر هنا قبل اليوم و بعده في السطر " + std::to_string(day_first->line));
    if (day_first == nullptr && month_first == nullptr && unclear != nullptr)
        raise_bad_line(path, unclear->line,
                       "no date of the table tells whether the day or the month stands first; "
                       "dates as 2026-02-18 do",
                       "لا يبين أي تاريخ في الجدول أيهما أولا، اليوم أم الشهر؛ اكتب التاريخ هكذا 2026-02-18");
    return month_first == nullptr;
}

double jd_of(const FieldDate& date, bool day_first, const std::string& path) {
    std::vector<int> ymd = date.numbers;
    if (!date.year_first()) {
        std::reverse(ymd.begin(), ymd.end());
        if (!day_first)
            std::swap(ymd[1], ymd[2]);
    }
    double jd = 0;
    modjul(ymd[0], ymd[1], ymd[2], 0, jd);
    const DateNumbers given{static_cast<double>(ymd[0]), static_cast<double>(ymd[1]),
                            static_cast<double>(ymd[2])};
    if (!(civil_date(jd) == given))
        raise_unread(path, date.line, iso_date(given), {"a date", "التاريخ"});
    return jd;
}

// --- The table --------------------------------------------------------------------------------------------

bool is_blank(const CsvRow& row) {
    return std::all_of(row.fields.begin(), row.fields.end(),
                       [](const std::string& field) { return trimmed(field).empty(); });
}

/// Reads the fields of a CSV table.
class ForeignReader {
public:
    ForeignReader(const CsvTable& csv, const std::string& path) : csv_(csv) { table_.path = path; }
    ForeignTable read();

private:
    void find_columns();
    void read_dates();
    void read_clocks();
    std::optional<int> clock_in(const CsvRow& row, std::size_t field);
    [[noreturn]] void raise_head(const char* english, const char* arabic) const {
        raise_bad_line(table_.path, csv_.head.line, english, arabic);
    }

    const CsvTable& csv_;
    ForeignTable table_;
    std::optional<std::size_t> date_field_;
    std::vector<std::size_t> time_fields_;
    int least_ = 0; ///< and greatest clock
    int greatest_ = 0;
    bool half_told_ = false;
};

void ForeignReader::find_columns() {
    for (std::size_t i = 0; i < csv_.head.fields.size(); ++i) {
        const std::string& heading = csv_.head.fields[i];
        if (!date_field_ && holds(date_names, plain_heading(heading).name))
            date_field_ = i;
        const std::optional<TimetableColumn> column = column_of_heading(heading);
        if (!column)
            continue;
        if (holds(table_.columns, *column))
            raise_bad_line(table_.path, csv_.head.line,
                           std::string("two columns are of ") + names_of(*column).common.english,
                           std::string("عمودان لوقت واحد: ") + names_of(*column).common.arabic);
        table_.columns.push_back(*column);
        time_fields_.push_back(i);
    }
    if (!date_field_)
        raise_head("no column of dates is found (\"date\")", "لا يوجد عمود للتاريخ");
    if (table_.columns.empty())
        raise_head("no column of times is found (\"Fajr\", \"Sunrise\", \"Dhuhr\" ...)",
                   "لا يوجد عمود للمواقيت (الفجر، الشروق، الظهر ...)");
}

void ForeignReader::read_dates() {
    std::vector<FieldDate> dates;
    for (const CsvRow& row : csv_.rows)
        dates.push_back(date_of(row.fields[*date_field_], row.line, table_.path));
    const bool day_first = day_comes_first(dates, table_.path);
    std::map<double, int> lines;
    for (const FieldDate& date : dates) {
        const double jd = jd_of(date, day_first, table_.path);
        const auto [earlier, is_new] = lines.emplace(jd, date.line);
        if (!is_new)
            raise_bad_line(table_.path, date.line,
                           "its date stands in line " + std::to_string(earlier->second) + " too",
                           "تاريخه موجود أيضا في السطر " + std::to_string(earlier->second));
        table_.rows.push_back({jd, {}});
    }
}

std::optional<int> ForeignReader::clock_in(const CsvRow& row, std::size_t field) {
    const std::string text = plain(row.fields[field]);
    if (is_no_time(trimmed(text)))
        return std::nullopt;
    const std::optional<FieldClock> clock = clock_of(trimmed(text));
    if (!clock)
        raise_unread(table_.path, row.line, row.fields[field], {"a time", "الوقت"});
    half_told_ = half_told_ || clock->half_told;
    least_ = std::min(least_, clock->seconds);
    greatest_ = std::max(greatest_, clock->seconds);
    return clock->seconds;
}

void ForeignReader::read_clocks() {
    constexpr int hour = 3600;
    least_ = static_cast<int>(seconds_per_day);
    for (std::size_t i = 0; i < csv_.rows.size(); ++i)
        for (const std::size_t field : time_fields_)
            table_.rows[i].seconds.push_back(clock_in(csv_.rows[i], field));
    table_.twelve_hours = !half_told_ && least_ >= hour && greatest_ < 13 * hour;
}

ForeignTable ForeignReader::read() {
    find_columns();
    read_dates();
    read_clocks();
    return std::move(table_);
}

} // namespace

ForeignTable foreign_table_of_text(std::string_view text, const std::string& path) {
    CsvTable csv = read_csv_table(text, path);
    std::erase_if(csv.rows, is_blank); // as spreadsheets leave them at the end
    return ForeignReader(csv, path).read();
}

} // namespace halvane
