// SPDX-License-Identifier: MIT
#include "batch/hijritask.h"

#include "batch/hijrioptions.h"
#include "batch/runoutput.h"
#include "batch/usagemistake.h"
#include "calendar/civildate.h"
#include "hijri/monthsrules.h"
#include "report/valuetext.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/outputfile.h"
#include "stored/programfolder.h"
#include "system/unfinishedfile.h"
#include "timetable/span.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <iostream>
#include <memory>
#include <string_view>
#include <utility>

namespace halvane {
namespace {

constexpr int months_of_year = 12;

int cancelled() {
    std::cerr << "Cancelled: no file has been written.\n";
    return status_failure;
}

/// "1447-09-01"; nothing for any other form.
std::optional<HijriDate> hijri_of_text(std::string_view text) {
    int parts[3] = {};
    const char* place = text.data();
    const char* const end = text.data() + text.size();
    for (int& part : parts) {
        if (&part != parts && (place == end || *place++ != '-'))
            return std::nullopt;
        const auto [behind, error] = std::from_chars(place, end, part);
        if (error != std::errc() || part < 0)
            return std::nullopt;
        place = behind;
    }
    if (place != end)
        return std::nullopt;
    return HijriDate{static_cast<double>(parts[0]), static_cast<double>(parts[1]),
                     static_cast<double>(parts[2])};
}

class HijriWork {
public:
    HijriWork(const HijriOptions& options, const PageMaker& pages)
        : options_(options), pages_(pages), format_(format_of(options)), language_(language_of(options)) {}

    int run(Progress& progress) const {
        if (options_.list_rules)
            return print(format_ == HijriFormat::json ? rule_json(language_) : rule_table(language_));
        if (options_.is_conversion())
            return options_.convert ? convert_civil(*options_.convert)
                                    : convert_hijri(*options_.convert_hijri);
        const YearsOfRun years = years_of(options_);
        const std::vector<HijriSettings> rules =
            rules_of(options_, civil_year_of(static_cast<double>(years.first)));
        if (format_ == HijriFormat::pdf)
            pages_.begin();
        load_series();
        if (options_.month || format_ == HijriFormat::pdf)
            return write_months(rules.front(), years, progress);
        return write_years(rules, years, progress);
    }

private:
    /// To standard output where no file is named.
    int print(const std::string& text) const {
        return save(options_.output.empty() ? std::string(standard_output) : options_.output, text);
    }

    int save(const std::string& path, const std::string& bytes) const {
        require_no_program_file(path);
        save_result(path, bytes);
        if (!is_standard_output(path))
            std::cout << path << "\n";
        return status_done;
    }

    /// Tables are read, other files are kept in the program folder, unless a file is named.
    int save_named(const std::string& name, const std::string& bytes) const {
        if (format_ == HijriFormat::text)
            return print(bytes);
        return save(options_.output.empty() ? program_path(name + "." + ending_of(format_)) : options_.output,
                    bytes);
    }

    int write_years(const std::vector<HijriSettings>& rules, const YearsOfRun& years,
                    Progress& progress) const {
        const std::optional<HijriYears> made =
            hijri_years(loaded_theory(), rules, years.first, years.last, progress);
        if (!made)
            return cancelled();
        return save_named(file_name_of(*made), text_of_years(*made, format_, language_, utc_second_now()));
    }

    int write_months(const HijriSettings& rule, const YearsOfRun& years, Progress& progress) const {
        const int first = options_.month.value_or(1);
        const int last = options_.month.value_or(months_of_year);
        const std::optional<std::vector<MonthSheet>> sheets =
            month_sheets(loaded_theory(), rule, HijriMonthNumber::of(years.first, first),
                         HijriMonthNumber::of(years.last, last), clock_place(options_), progress);
        if (!sheets)
            return cancelled();
        const MonthSheet& sheet = sheets->front();
        const std::string name = options_.month
                                     ? file_name_of(sheet)
                                     : file_name_of(HijriYears{years.first, years.last, {{rule, {}}}});
        return save_named(name, format_ == HijriFormat::pdf
                                    ? pages_.hijri_pdf(*sheets, page_of(options_))
                                    : text_of_month(sheet, format_, language_, utc_second_now()));
    }

    // --- Dates ---

    int convert_civil(const std::string& text) const {
        const SpanAnswer answer = dates_span(text, text);
        if (answer.refused)
            throw UsageMistake("--convert: " + answer.refused->english);
        const DateNumbers date = civil_date(answer.span.first);
        const HijriSettings rule = rules_of(options_, date.year).front();
        load_series();
        return tell("--convert: ", day_of_civil(loaded_theory(), rule, date), rule);
    }

    int convert_hijri(const std::string& text) const {
        const std::optional<HijriDate> date = hijri_of_text(text);
        if (!date)
            throw UsageMistake("--convert-hijri: wanted YYYY-MM-DD, found \"" + text + "\"");
        const HijriSettings rule = rules_of(options_, civil_year_of(date->year)).front();
        load_series();
        return tell("--convert-hijri: ", day_of_hijri(loaded_theory(), rule, *date), rule);
    }

    int tell(const char* option, const HijriDayAnswer& answer, const HijriSettings& rule) const {
        if (!answer.day)
            throw UsageMistake(option + answer.refused.english);
        return print(format_ == HijriFormat::json ? json_of(*answer.day, rule, language_)
                                                  : line_of(*answer.day, rule, language_));
    }

    const HijriOptions& options_;
    const PageMaker& pages_;
    HijriFormat format_;
    Language language_;
};

/// Whether nothing is wanted but the date of today.
bool is_of_today(const HijriOptions& options) {
    return !options.year && !options.from_year && !options.is_conversion() && !options.list_rules;
}

int run_hijri(HijriOptions options, const PageMaker& pages, Progress& progress) {
    try {
        if (options.place.is_given())
            take_delivered_files();
        if (is_of_today(options) && options.month)
            throw UsageMistake("--month belongs to --year");
        RecordOptions today = options.records;
        if (is_of_today(options)) {
            today.place = options.place;
            today.takes_place = true;
            today.days = DayUse::today;
        }
        const Supposition supposed = suppose(today);
        if (is_of_today(options))
            options.convert = iso_date(supposed.date);
        return HijriWork(options, pages).run(progress);
    } catch (const UsageMistake& mistake) {
        return tell_mistake(mistake);
    }
}

} // namespace

Task hijri_task(const PageMaker& pages) {
    const auto options = std::make_shared<HijriOptions>();
    return {"hijri", "Months of the Hijri calendar by any rule, with what is doubtful of them",
            [options](CLI::App& command) { add_hijri_options(command, *options); },
            [options, pages](Progress& progress) { return run_hijri(*options, pages, progress); }};
}

} // namespace halvane
