// SPDX-License-Identifier: MIT
// Months of rules against those that were published and announced.

#include "calendar/civildate.h"
#include "hijri/decision.h"
#include "hijri/seenanywhere.h"
#include "tests/hijri/monthsofrule.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <utility>

namespace halvane {
namespace {

/// First days by month of what was published.
using PublishedStarts = std::map<HijriMonthNumber, double>;

/// The published table of Umm al-Qura: each year's first day, and 9 or 0 for a month of 29 or 30 days.
/// Source the table of the npm package @umalqura/core 0.0.7 (MIT), which is that of the .NET libraries.
PublishedStarts umm_al_qura() {
    PublishedStarts starts;
    const CsvTable table = read_csv_table(text_beside("/hijri/umm-al-qura.csv"), "umm-al-qura.csv");
    for (const CsvRow& row : table.rows) {
        double day = day_number_of(row.fields[1]);
        for (int month = 1; month <= 12; ++month) {
            starts[HijriMonthNumber::of(std::stoi(row.fields[0]), month)] = day;
            day += row.fields[2][static_cast<std::size_t>(month) - 1] == '0' ? 30 : 29;
        }
    }
    return starts;
}

struct Agreement {
    int compared = 0, equal = 0, off_by_one = 0, ties = 0;
    int other_than_ties = 0; ///< neither equal nor told to be a tie
};

Agreement agreement_of(const std::vector<HijriMonth>& months, const PublishedStarts& published) {
    Agreement agreement;
    for (const HijriMonth& month : months) {
        const auto found = published.find(month.number);
        if (found == published.end())
            continue;
        const double off = std::fabs(month.first_day - found->second);
        ++agreement.compared;
        agreement.equal += off == 0 ? 1 : 0;
        agreement.off_by_one += off == 1 ? 1 : 0;
        agreement.ties += month.may_differ() ? 1 : 0;
        agreement.other_than_ties += off != 0 && !month.may_differ() ? 1 : 0;
    }
    return agreement;
}

std::string row_of(const std::string& rule, const std::string& years, const Agreement& agreement) {
    return "| " + rule + " | " + years + " | " + std::to_string(agreement.compared) + " | " +
           std::to_string(agreement.equal) + " | " + std::to_string(agreement.off_by_one) + " | " +
           std::to_string(agreement.ties) + " |\n";
}

/// Whether a page of the docs holds a text, line by line.
void expect_told(const std::string& page, const std::string& text) {
    EXPECT_NE(text_beside("/../docs/" + page).find(text), std::string::npos) << "docs/" << page << " wants:\n"
                                                                             << text;
}

class PublishedMonths : public MonthsOfRule {};

TEST_F(PublishedMonths, OfUmmAlQuraAreEqualButForTies) {
    const PublishedStarts published = umm_al_qura();
    const HijriSettings settings = settings_of("umm-al-qura");
    const auto of_years = [&](int first, int last) {
        return agreement_of(months_of(settings, first, last), published);
    };
    const Agreement now = of_years(1423, 1500);
    EXPECT_EQ(now.compared, 936);
    EXPECT_EQ(now.other_than_ties, 0);
    EXPECT_EQ(now.compared, now.equal + now.off_by_one);
    std::string rows = row_of("`umm-al-qura`", "1423 to 1500", now);
    for (const auto& [first, last] : {std::pair{1420, 1422}, {1393, 1419}, {1318, 1392}}) {
        const Agreement earlier = of_years(first, last);
        EXPECT_EQ(earlier.equal, earlier.compared) << first;
        rows += row_of("`umm-al-qura`", std::to_string(first) + " to " + std::to_string(last), earlier);
    }
    for (const HijriRule& rule : hijri_rules())
        if (rule.kind == HijriRuleKind::tabular)
            rows += row_of("`" + std::string(rule.key) + "`", "1318 to 1500",
                           agreement_of(months_of(settings_of(rule.key), 1318, 1500), published));
    expect_told("accuracy.md", rows);
}

/// Ties of the published years, as they are told.
TEST_F(PublishedMonths, OfUmmAlQuraThatDifferHangOnSeconds) {
    const PublishedStarts published = umm_al_qura();
    std::string told;
    for (const HijriMonth& month : months_of(settings_of("umm-al-qura"), 1423, 1500))
        if (month.may_differ())
            told += "| " + hijri_month_name(month.number.month(), Language::english) + " " +
                    std::to_string(month.number.year()) + " | " + iso_date(month.first_day) + " | " +
                    iso_date(published.at(month.number)) + " | " +
                    (month.margin->of == MonthMargin::Of::lag ? "lag " : "age ") + margin_text(month) +
                    " |\n";
    expect_told("accuracy.md", told);
}

/// Announced first days of five countries.
std::map<std::string, PublishedStarts> announced() {
    std::map<std::string, PublishedStarts> starts;
    const CsvTable table = read_csv_table(text_beside("/hijri/announced-starts.csv"), "announced-starts.csv");
    for (const CsvRow& row : table.rows)
        starts[row.fields[2]][HijriMonthNumber::of(std::stoi(row.fields[0]), std::stoi(row.fields[1]))] =
            day_number_of(row.fields[3]);
    return starts;
}

/// "03-20" of a day in a table whose rows tell the year.
std::string month_and_day(double day) {
    return iso_date(day).substr(5);
}

TEST_F(PublishedMonths, OfRamadanAndShawwalStandBesideTheAnnouncedOnes) {
    const std::pair<const char*, HijriSettings> rules[] = {
        {"Saudi Arabia", settings_of("umm-al-qura")},
        {"Turkey", settings_of("turkey")},
        {"Malaysia", settings_of("mabims", kuala_lumpur())},
        {"Morocco", settings_of("seen-at", rabat(), "saao-2001")},
        {"Jordan", settings_of("seen-at", amman(), "saao-2001")}};
    const std::map<std::string, PublishedStarts> countries = announced();
    std::vector<HijriCalendar> calendars;
    for (const auto& [country, settings] : rules)
        calendars.push_back(calendar_of(months_of(settings, 1440, 1447)));
    std::string rows;
    for (int year = 1440; year <= 1447; ++year)
        for (const int month : {9, 10}) {
            const auto number = HijriMonthNumber::of(year, month);
            rows += "| " + hijri_month_name(month, Language::english) + " " + std::to_string(year) + " | " +
                    iso_date(*calendars.front().first_day_of(number)).substr(0, 4);
            for (std::size_t i = 0; i < calendars.size(); ++i) {
                const double by_rule = *calendars[i].first_day_of(number);
                const PublishedStarts& starts = countries.at(rules[i].first);
                const auto found = starts.find(number);
                rows += " | " + month_and_day(by_rule) + " | ";
                if (found == starts.end())
                    rows += "-";
                else
                    rows += found->second == by_rule ? "=" : "**" + month_and_day(found->second) + "**";
            }
            rows += " |\n";
        }
    expect_told("hijri.md", rows);
}

/// The best of all places at whole degrees.
double best_of_whole_degrees(const SkyPolynomials& sky, double day, double conjunction,
                             const SeenSearch& search) {
    double best = -1e9;
    for (double latitude = search.region.south; latitude <= search.region.north; ++latitude)
        for (double longitude = search.region.west; longitude < search.region.east; ++longitude) {
            const Observer observer = observer_at(longitude, latitude, 0);
            const auto evening =
                crescent_evening(sky, observer, CrescentKind::new_crescent, day, conjunction, nullptr);
            if (!evening || (search.before && evening->sun_event >= *search.before))
                continue;
            const auto margin = seeing_margin(*evening, *search.criterion, search.limits, search.seen_class);
            if (margin)
                best = std::max(best, margin->value / margin->uncertainty);
        }
    return best;
}

TEST_F(PublishedMonths, TheBestPlaceIsThatOfWholeDegrees) {
    constexpr double tenth_of_uncertainty = 0.1;
    Ephemeris ephemeris(loaded_theory());
    for (const char* key : {"yallop-1997", "turkey-1978", "saao-2001", "babylon"})
        for (const bool before_midnight : {false, true})
            for (const int month : {1, 4, 7, 10}) {
                const auto number = HijriMonthNumber::of(1446, month);
                const double conjunction = geocentric_conjunction(ephemeris, first_day_of({}, number) - 2);
                const double day = start_of_date(conjunction) + (before_midnight ? 1 : 0);
                const SkyPolynomials sky = sky_around_date(ephemeris, day);
                const CataloguedCriterion& criterion = *catalogued_criterion(key);
                SeenSearch search{&criterion, criterion.by_eye, {}, {-180, -60, 180, 60}, {}, nullptr};
                if (before_midnight)
                    search.before = day + 1;
                const auto found = best_margin(sky, day, conjunction, search);
                ASSERT_TRUE(found) << key << month;
                const double whole = best_of_whole_degrees(sky, day, conjunction, search);
                EXPECT_GE(found->value / found->uncertainty, whole - tenth_of_uncertainty)
                    << key << " " << month;
            }
}

/// Parts of any sides, down to a point.
TEST_F(PublishedMonths, TheBestPlaceIsThatOfEveryPart) {
    constexpr double tenth_of_uncertainty = 0.1;
    Ephemeris ephemeris(loaded_theory());
    const double conjunction =
        geocentric_conjunction(ephemeris, first_day_of({}, HijriMonthNumber::of(1447, 1)) - 2);
    const CataloguedCriterion& criterion = *catalogued_criterion("yallop-1997");
    for (const double evenings : {0.0, 1.0}) {
        const double day = start_of_date(conjunction) + evenings;
        const SkyPolynomials sky = sky_around_date(ephemeris, day);
        for (const MapWindow& region :
             {MapWindow{4.4, 0, 16.4, 30}, MapWindow{5.4, 10, 17.4, 11}, MapWindow{-95, 0, -84, 11},
              MapWindow{-95, 0, -83, 12}, MapWindow{-88, 0, -84, 11}, MapWindow{20, 20, 20.5, 20.5},
              MapWindow{4.1, -31.3, 64.1, 17.9}, MapWindow{-100, -60, -63.4, 58.5}})
            for (const bool before_midnight : {false, true}) {
                SeenSearch search{&criterion, criterion.by_eye, {}, region, {}, nullptr};
                if (before_midnight)
                    search.before = day + 1;
                const auto found = best_margin(sky, day, conjunction, search);
                const double whole = best_of_whole_degrees(sky, day, conjunction, search);
                const double worth = found ? found->value / found->uncertainty : -1e9;
                EXPECT_GE(worth, whole - tenth_of_uncertainty)
                    << region.west << " " << region.south << " " << before_midnight;
            }
    }
}

} // namespace
} // namespace halvane
