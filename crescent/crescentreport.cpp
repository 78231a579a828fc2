// SPDX-License-Identifier: MIT
#include "crescent/crescentreport.h"

#include "base/numberformat.h"
#include "base/record.h"
#include "calendar/civildate.h"
#include "calendar/modctim.h"
#include "calendar/modday.h"
#include "calendar/moddegree.h"
#include "crescent/crescentcolumns.h"
#include "crescent/criteria.h"
#include "crescent/notes.h"
#include "crescent/shortanswer.h"
#include "report/head.h"
#include "report/reportrun.h"
#include "settings/enginesettings.h"

#include <initializer_list>
#include <memory>
#include <utility>

namespace halvane {
namespace {

constexpr int rule_width = 78;
constexpr int second_column = 43;

std::string angle(double degrees) {
    return moddegree(to_the_second, 'd', degrees);
}

std::string right_ascension(double degrees) {
    return moddegree(to_the_second, 'h', degrees / 15);
}

/// Two labels with their values, side by side.
struct Line {
    std::string first_label, first_value;
    int first_column;
    std::string second_label, second_value;
    int second_value_column;
};

void write_line(Report& report, const Line& line) {
    report.text("-").spc(1).text(line.first_label).tab(line.first_column).text(line.first_value);
    report.tab(second_column).text(line.second_label).tab(line.second_value_column).line(line.second_value);
}

void write_group(Report& report, std::initializer_list<Line> lines) {
    for (const Line& line : lines)
        write_line(report, line);
    report.end_line();
}

class CrescentReport {
public:
    CrescentReport(Report& report, const CrescentRecords& run, const Circumstances& c)
        : report_(report), run_(run), c_(c), precision_(precision_of(run.preferences)),
          prefix_(c.choice.geocentric ? "G. " : "T. ") {}

    void write() {
        write_settings();
        write_times();
        write_places();
        write_quantities();
        write_verdict();
        write_notes();
        write_remarks();
    }

private:
    std::string clock(double hours) const { return modctim(precision_, hours); }
    /// The clock of a Julian day on the local clock.
    std::string clock_of(double jd) const { return clock(hours_of_day(jd)); }
    std::string span(double hours) const { return moddegree(precision_, 'h', hours); }

    const char* time_words() const {
        const bool is_new = c_.choice.new_crescent;
        switch (c_.choice.time) {
        case ObservationTime::user:
            return "Calculations are Done at User Time at:  ";
        case ObservationTime::best:
            return "Calculations are Done at Best Time at:  ";
        case ObservationTime::sun:
            return is_new ? "Calculations are Done at Sunset Time at:  "
                          : "Calculations are Done at Sunrise Time at:  ";
        case ObservationTime::moon:
            break;
        }
        return is_new ? "Calculations are Done at Moonset Time at:  "
                      : "Calculations are Done at Moonrise Time at:  ";
    }

    void write_settings() {
        write_title(report_, 26);
        report_.text("-").spc(1).text("Calculations for ").text(hijri_caption(c_.hijri));
        report_.line(c_.choice.new_crescent ? " Waxing Crescent (New, Evening)."
                                            : " Waning Crescent (Old, Morning).");
        const std::string weekday = weekday_name(c_.day + 0.5, Language::english);
        report_.text("-").spc(1).text("Crescent Visibility on: ").text(weekday).spc(2);
        report_.text(date_text(civil_date(c_.day))).line(" CE");
        report_.text("-").spc(1).text(time_words()).text(clock_of(c_.calculation)).line(" LT");
        report_.text("-").spc(1).line(c_.choice.geocentric ? "Calculations are Geocentric."
                                                           : "Calculations are Topocentric.");
        write_location(report_, run_.location);
        report_.text("-").spc(1).text("Summer time is: ").line(c_.summer_hours == 1 ? "On" : "Off");
        report_.text("-").spc(1).line(
            run_.preferences.elevation_setting == "1"
                ? "Height above mean sea-level affects rise and set events."
                : "Height above mean sea-level does NOT affect rise and set events");
        write_refraction(report_, run_.location);
        write_delta_t(report_, format_number(c_.delta_t, "########00.00"));
        report_.rule(rule_width).end_line();
    }

    std::string conjunction_text() const {
        const DateNumbers date = civil_date(c_.conjunction);
        return format_number(date.day, "##00") + "/" + format_number(date.month, "##00") + "/" +
               format_number(date.year, "##0000") + " CE, " + clock_of(c_.conjunction);
    }

    void write_times() {
        report_.text("-")
            .spc(1)
            .text(prefix_)
            .text("Conjunction Time:")
            .tab(24)
            .text(conjunction_text())
            .line(" LT");
        report_.text("-").spc(1).text("Julian Date at Time of Calculations:").tab(40);
        report_.line(format_number(c_.universal, "###############0.00000")).end_line();
        const bool is_new = c_.choice.new_crescent;
        const std::string sun = clock(c_.sun_event) + " LT";
        const std::string moon = clock(c_.moon_event) + " LT";
        write_group(report_, {{is_new ? "Sunset:" : "Moorise:", is_new ? sun : moon, 12,
                               prefix_ + "Moon Age:", span(c_.moon_age * 24), 58},
                              {is_new ? "Moonset:" : "Sunrise:", is_new ? moon : sun, 12,
                               "Moon Lag Time:", span(c_.lag), 58}});
    }

    Line pair(const char* first_label, const std::string& first, int first_column, const char* second_label,
              const std::string& second, int second_value_column) const {
        return {prefix_ + first_label,  first,  first_column,
                prefix_ + second_label, second, second_value_column};
    }

    void write_places() {
        const ChosenPlaces p = chosen_places(c_);
        write_group(report_, {pair("Moon Right Ascension:", right_ascension(p.moon_right_ascension), 28,
                                   "Moon Declination:", angle(p.moon_declination), 64),
                              pair("Sun Right Ascension:", right_ascension(p.sun_right_ascension), 28,
                                   "Sun Declination:", angle(p.sun_declination), 64)});
        write_group(report_, {pair("Moon Longitude:", angle(p.moon_longitude), 22,
                                   "Moon Latitude:", angle(p.moon_latitude), 61),
                              pair("Sun Longitude:", angle(p.sun_longitude), 22,
                                   "Sun Latitude:", angle(p.sun_latitude), 61)});
    }

    void write_quantities() {
        const CrescentQuantities& q = c_.quantities;
        write_group(
            report_,
            {pair("Moon Altitude:", angle(q.moon_altitude), 21, "Moon Azimuth:", angle(q.moon_azimuth), 60),
             pair("Sun Altitude:", angle(q.sun_altitude), 21, "Sun Azimuth:", angle(q.sun_azimuth), 60)});
        write_group(report_, {pair("Relative Altitude:", angle(q.relative_altitude()), 25,
                                   "Elongation:", angle(q.elongation), 59),
                              pair("Relative Azimuth:", angle(q.relative_azimuth()), 25,
                                   "Phase Angle:", angle(q.phase_angle), 59)});
        write_group(
            report_,
            {pair("Crescent Width:", angle(q.width), 22, "Moon Semi-Diameter:", angle(q.semidiameter), 67),
             {prefix_ + "Illumination:", format_number(q.illuminated_fraction * 100, "###00.00") + " %", 22,
              "G. Horizontal Parallax:", angle(c_.moon.parallax), 67}});
        write_line(report_,
                   {prefix_ + "Magnitude:", format_number(q.magnitude(), "###00.00"), 17,
                    "G. Distance:", format_number(c_.moon.distance, "#############00.00") + " Km", 56});
    }

    void write_verdict() {
        const CriterionValues& values = c_.criterion;
        const CriterionRow& criterion = row_of(report_criterion);
        report_.text("-").spc(1).text("According to ").text(criterion.name.in(Language::english));
        report_.line(" Criteria, using the following values at Best Time:");
        report_.text("  * Moon-Sun Topocentric Relative Altitude =").tab(45).text(angle(values.arcv));
        report_.text(" (").text(format_number(values.arcv, "00.0")).line("°)");
        report_.text("  * Topocentric Crescent width =").tab(34).text(angle(values.width / 60));
        report_.text(" (").text(format_number(values.width, "##0.00")).line("')");
        report_.text("  * q =").tab(9).line(format_number(values.value, "#0.00")).end_line();
        report_.text("  * The Crescent Visibility is:").tab(33);
        report_.line(criterion.report.sentence(values.value)).end_line();
    }

    void write_notes() {
        for (const ImpossibilityNote& note : impossibility_notes(c_.choice.new_crescent, c_.lag, c_.moon_age))
            report_.line(note.first_line).line(note.second_line);
        report_.rule(rule_width).end_line();
    }

    void write_remarks() {
        write_remarks_title(report_);
        report_.end_line();
        for (const char* remark :
             {"- Date format: dd/mm/yyyy.", "- The Prefix 'G.' means Geocentric, and 'T.' means Topocentric.",
              "- For New Crescent: Moon Lag Time = Moonset - Sunset.",
              "- For Old Crescent: Moon Lag Time = Sunrise - Moonrise.",
              "- For New Crescent: Best Time = Sunset + 4/9 (Moon Lag Time).",
              "- For Old Crescent: Best Time = Sunrise - 4/9 (Moon Lag Time)."})
            report_.line(remark);
    }

    Report& report_;
    const CrescentRecords& run_;
    const Circumstances& c_;
    int precision_;
    std::string prefix_;
};

} // namespace

std::string hijri_caption(const HijriDate& date) {
    return hijri_month_name(date.month, Language::english) + " " + plain_number(date.year) + " AH";
}

namespace {

void write_no_crescent(Report& report) {
    write_head_lines(report, 26);
    report.line("Crescent Visibility calculations on this day from this location need careful ");
    report.line("technique, because there is no Sunset/Sunrise and/or Moonset/Moonrise event(s).");
}

/// The whole report is that of its row; without one there is the short report.
class CrescentReportRun final : public RunOf<Circumstances> {
public:
    CrescentReportRun(TheoryPointer theory, CrescentRecords values, const Conjunction& conjunction,
                      const std::optional<Circumstances>& circumstances)
        : theory_(std::move(theory)), values_(std::move(values)), conjunction_(conjunction),
          circumstances_(circumstances) {}

    const char* task() const override { return "crescent"; }
    const char* report_name() const override { return "visib.out"; }

    TwinWords short_answer() const override {
        Ephemeris ephemeris(theory_);
        const double hours_ahead = values_.location.zone + conjunction_.summer_hours;
        const double conjunction = geocentric_conjunction(ephemeris, conjunction_.local - hours_ahead / 24);
        const Observer observer = observer_of(values_.location);
        const CrescentKind kind = kind_of(values_.settings);
        const double date = chosen_day(chosen(values_.settings), conjunction_);
        const EventOfDate sun =
            sun_event_of_date(ephemeris, observer, kind, date, [=](double) { return hours_ahead; });
        return words_of(halvane::short_answer(ephemeris, observer, kind, date, sun, conjunction), hours_ahead,
                        values_.location.name);
    }

    RunOutcome each_row(const TakeRow& take, Progress& /*progress*/) const override {
        if (circumstances_)
            take(*circumstances_);
        return RunOutcome::done;
    }

    std::span<const ColumnOf<Circumstances>> columns() const override { return crescent_columns(); }

    Facts facts() const override {
        Facts facts;
        add_place(facts, values_.location);
        return facts;
    }

private:
    void write_head(Report& /*report*/) const override {}
    void write_row(Report& report, const Circumstances& row, int /*number*/) const override {
        CrescentReport(report, values_, row).write();
    }
    void write_closing(Report& report, RunOutcome /*outcome*/, int rows) const override {
        if (rows == 0)
            write_no_crescent(report);
    }

    TheoryPointer theory_;
    CrescentRecords values_;
    Conjunction conjunction_;
    std::optional<Circumstances> circumstances_;
};

} // namespace

RunPointer crescent_run(const TheoryPointer& theory, const CrescentRecords& values,
                        const Conjunction& conjunction, DayEvents& events) {
    Ephemeris ephemeris(theory);
    return std::make_shared<CrescentReportRun>(
        theory, values, conjunction, crescent_circumstances(ephemeris, values, conjunction, events));
}

} // namespace halvane
