// SPDX-License-Identifier: MIT
#include "batch/finemaptask.h"

#include "base/numberformat.h"
#include "batch/choices.h"
#include "batch/recordoptions.h"
#include "batch/runoutput.h"
#include "batch/usagemistake.h"
#include "calendar/civildate.h"
#include "calendar/moddateconv.h"
#include "crescent/conjunction.h"
#include "crescent/crescentrules.h"
#include "crescent/maptexts.h"
#include "crescent/visibilitymap.h"
#include "events/phase.h"
#include "finemap/finemaprules.h"
#include "finemap/mapstyle.h"
#include "report/valuetext.h"
#include "routines/seriesloader.h"
#include "stored/outputfile.h"
#include "system/path.h"
#include "system/unfinishedfile.h"
#include "timetable/span.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <filesystem>
#include <iostream>
#include <memory>
#include <utility>

namespace halvane {
namespace {

constexpr int evenings = 3; ///< of one conjunction

/// The user has stopped a run.
class Cancelled : public std::exception {};

/// A conjunction with the civil dates that its crescent is looked for on.
struct CrescentDates {
    double conjunction = 0;   ///< Julian day, UT1                                                [d]
    std::vector<double> days; ///< 0 h of each                                                   [d]
};

double day_of_text(const std::string& text) {
    const SpanAnswer answer = dates_span(text, text);
    if (answer.refused)
        throw UsageMistake("--date: " + answer.refused->english);
    return answer.span.first;
}

/// The conjunction nearest to a date.
CrescentDates dates_near(Ephemeris& ephemeris, const std::string& text) {
    constexpr double noon = 0.5;
    constexpr double farthest = 3;
    const double day = day_of_text(text);
    const double conjunction = geocentric_conjunction(ephemeris, day + noon);
    const double away = day - start_of_date(conjunction);
    if (std::fabs(away) > farthest)
        throw UsageMistake("--date: the nearest conjunction is on " +
                           iso_date(civil_date(start_of_date(conjunction))) + ", " +
                           plain_number(std::fabs(away)) + " days from " + text +
                           "; a crescent is looked for within 3 days of it");
    return {conjunction, {day}};
}

/// The conjunction of the stored choices.
CrescentDates dates_of_choices(Ephemeris& ephemeris, const CrescentRecords& crescent, CrescentKind kind,
                               const std::string& day) {
    const MapConjunction conjunction =
        map_conjunction(ephemeris, find_conjunction(ephemeris, crescent).dynamical);
    CrescentDates dates{conjunction.universal, {}};
    for (int choice = 0; choice < evenings; ++choice)
        if (day == "all" || day == std::to_string(choice))
            dates.days.push_back(map_day(conjunction, kind, choice));
    return dates;
}

/// The conjunctions of a civil year.
std::vector<CrescentDates> dates_of_year(Ephemeris& ephemeris, const DaySpan& year, CrescentKind kind) {
    std::vector<CrescentDates> dates;
    for (double conjunction = geocentric_conjunction(ephemeris, year.first);
         start_of_date(conjunction) <= year.last;
         conjunction = geocentric_conjunction(ephemeris, conjunction + synodic_month))
        if (start_of_date(conjunction) >= year.first)
            dates.push_back({conjunction, days_of_crescent(conjunction, kind)});
    return dates;
}

/// The conjunctions that the months of a Hijri year begin with, or end with for old crescents.
std::vector<CrescentDates> dates_of_hijri_year(Ephemeris& ephemeris, double year, CrescentKind kind) {
    constexpr int months = 12;
    const int later = kind == CrescentKind::new_crescent ? 0 : 1;
    std::vector<CrescentDates> dates;
    for (int month = 1; month <= months; ++month) {
        const double next = month + later;
        const double first_day =
            next > months ? day_number_of_hijri(year + 1, 1, 1) : day_number_of_hijri(year, next, 1);
        const double conjunction = geocentric_conjunction(ephemeris, first_day - 1);
        dates.push_back({conjunction, days_of_crescent(conjunction, kind)});
    }
    return dates;
}

/// Makes the maps of a run as they are asked for, and tells how far it has come.
class MapMaker {
public:
    MapMaker(const FineMapSettings& settings, std::vector<CrescentDates> dates, Progress& progress)
        : settings_(settings), dates_(std::move(dates)), progress_(progress),
          crescent_(read_crescent_records(read_visib())) {
        for (const CrescentDates& each : dates_)
            maps_ += static_cast<double>(each.days.size());
    }

    int pages() const { return static_cast<int>(dates_.size()); }

    MapPage page(int number) {
        const CrescentDates& dates = dates_[static_cast<std::size_t>(number - 1)];
        MapPage page;
        for (const double day : dates.days)
            page.maps.push_back(map_of(day, dates.conjunction));
        page.clock = clock_of(crescent_.preferences, crescent_.location, dates.conjunction);
        return page;
    }

    SheetTexts first_texts(Language language) const {
        FineMapSettings settings = settings_;
        settings.conjunction = dates_.front().conjunction;
        return sheet_texts(settings, std::nullopt, language);
    }

private:
    FineMap map_of(double day, double conjunction) {
        settings_.day = day;
        settings_.conjunction = conjunction;
        StageProgress of_map(progress_, 100 * made_ / maps_, 100 * (made_ + 1) / maps_);
        std::optional<FineMap> map = make_fine_map(loaded_theory(), settings_, of_map);
        if (!map)
            throw Cancelled();
        ++made_;
        return *std::move(map);
    }

    FineMapSettings settings_;
    std::vector<CrescentDates> dates_;
    Progress& progress_;
    CrescentRecords crescent_;
    double maps_ = 0;
    double made_ = 0;
};

void write_document(const MapDocument& document, MapFormat format, const PageMaker& painter,
                    const std::string& path) {
    OutputFile file(path, FileRights::of_umask);
    const TakeBytes take = [&file](std::string_view bytes) { file.write(bytes); };
    if (is_drawn(format)) {
        painter.draw_maps(document, read_world_outline(), format, take);
    } else {
        const MapPage page = document.page(1);
        take(format == MapFormat::csv ? csv_of(page.maps) : geojson_of(page.maps, document.look.language));
    }
    file.commit();
}

/// What the command line asks for, before anything is calculated.
class FineMapWork {
public:
    FineMapWork(const FineMapOptions& options, const PageMaker& painter)
        : options_(options), painter_(painter), format_(format_of(options)), settings_(map_settings(options)),
          document_(empty_document(options, format_)) {}

    const FineMapSettings& settings() const { return settings_; }

    /// Goes on as a program with a painter where one is wanted.
    void begin() const {
        if (is_drawn(format_))
            painter_.begin();
    }

    int write(std::vector<CrescentDates> dates, const std::string& usual_name, Progress& progress) {
        MapMaker maker(settings_, std::move(dates), progress);
        document_.pages = maker.pages();
        document_.page = [&maker](int number) { return maker.page(number); };
        document_.title = document_title(maker.first_texts(document_.look.language));
        const std::string path =
            options_.output.empty() ? usual_name + "." + name_of(format_) : options_.output;
        require_no_program_file(path);
        remove_old_leftovers(folder_of(path));
        try {
            write_document(document_, format_, painter_, path);
        } catch (const Cancelled&) {
            std::cerr << "Cancelled: no file has been written.\n";
            return status_failure;
        }
        if (!is_standard_output(path))
            std::cout << path << "\n";
        return status_done;
    }

private:
    const FineMapOptions& options_;
    const PageMaker& painter_;
    MapFormat format_;
    FineMapSettings settings_;
    MapDocument document_;
};

std::string name_of_month(const CrescentDates& dates, CrescentKind kind) {
    return hijri_month_of(start_of_date(dates.conjunction), kind, Language::english);
}

int run_one_date(const FineMapOptions& options, const PageMaker& painter, Progress& progress) {
    day_of_text(options.date);
    FineMapWork work(options, painter);
    work.begin();
    load_series();
    Ephemeris ephemeris(loaded_theory());
    const CrescentDates dates = dates_near(ephemeris, options.date);
    return work.write({dates}, name_of_month(dates, work.settings().kind), progress);
}

int run_choices(FineMapOptions options, const PageMaker& painter, Progress& progress) {
    const CrescentSettings choices = read_visib();
    options.old_crescent = options.old_crescent || !choices.new_crescent;
    FineMapWork work(options, painter);
    if (const auto refused = refused_conjunction(choices))
        return report_refused(refused->told);
    work.begin();
    load_series();
    Ephemeris ephemeris(loaded_theory());
    const CrescentKind kind = work.settings().kind;
    const CrescentDates dates =
        dates_of_choices(ephemeris, read_crescent_records(choices), kind, options.day);
    return work.write({dates}, name_of_month(dates, kind), progress);
}

/// The civil year of an atlas, or the one that a Hijri year begins in; nothing for what is no year.
std::optional<double> first_year_of(const FineMapOptions& options) {
    const SpanAnswer year = options.hijri ? hijri_year_span(options.year) : year_span(options.year);
    return year.refused ? std::nullopt : std::optional(civil_date(year.span.first).year);
}

int run_atlas(const FineMapOptions& options, const PageMaker& painter, Progress& progress) {
    const SpanAnswer year = options.hijri ? hijri_year_span(options.year) : year_span(options.year);
    if (year.refused)
        throw UsageMistake("--year: " + year.refused->english);
    FineMapWork work(options, painter);
    work.begin();
    load_series();
    Ephemeris ephemeris(loaded_theory());
    const CrescentKind kind = work.settings().kind;
    std::vector<CrescentDates> dates = options.hijri
                                           ? dates_of_hijri_year(ephemeris, std::stod(options.year), kind)
                                           : dates_of_year(ephemeris, year.span, kind);
    return work.write(std::move(dates), (options.hijri ? "atlas-hijri-" : "atlas-") + options.year, progress);
}

} // namespace

int run_fine_map(const FineMapOptions& options, const PageMaker& painter, Progress& progress) {
    return options.date.empty() ? run_choices(options, painter, progress)
                                : run_one_date(options, painter, progress);
}

Task atlas_task(const PageMaker& painter) {
    const auto options = std::make_shared<FineMapOptions>();
    const auto records = std::make_shared<RecordOptions>();
    records->files = {RecordFile::preferences, RecordFile::location};
    return {"atlas", "Maps of the crescents of a year, a page for each conjunction",
            [options, records](CLI::App& command) {
                command.add_option("--year", options->year, "A civil year, or a Hijri one with --hijri")
                    ->type_name("YYYY")
                    ->required();
                command.add_flag("--hijri", options->hijri, "The year is a Hijri one");
                const std::vector<std::string> keys = catalogue_keys();
                options->criterion = keys.front();
                command.add_option("--criterion", options->criterion, "Key of a criterion (see criteria)")
                    ->type_name("KEY")
                    ->check(one_of(keys));
                add_look_options(command, *options);
                options->format = name_of(MapFormat::pdf);
                command.add_option("--format", options->format, options->format)
                    ->type_name("FORMAT")
                    ->check(one_of({options->format}));
                command.add_option("--output", options->output, "File to write, - for standard output")
                    ->type_name("FILE");
                add_record_options(command, *records);
            },
            [options, records, painter](Progress& progress) {
                try {
                    records->of_year = first_year_of(*options);
                    const Supposition supposed = suppose(*records);
                    return run_atlas(*options, painter, progress);
                } catch (const UsageMistake& mistake) {
                    return tell_mistake(mistake);
                }
            }};
}

} // namespace halvane
