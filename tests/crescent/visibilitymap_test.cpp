// SPDX-License-Identifier: MIT
#include "crescent/visibilitymap.h"

#include "calendar/moddeltat.h"
#include "calendar/modjul.h"
#include "crescent/circumstances.h"
#include "crescent/maptexts.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"
#include "events/lowriseset.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "routines/tdtinput.h"
#include "tests/crescent/crescentfixture.h"
#include "tests/support/places.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace halvane {
namespace {

using enum VisibilityClass;

constexpr int blocks_of_a_map = 36 * 13;

/// Keeps the points of each block; stops after a block.
class Blocks : public MapReceiver {
public:
    explicit Blocks(int stop_after = blocks_of_a_map + 1) : stop_after_(stop_after) {}
    void point(const MapPoint& point) override { current_.push_back(point); }
    bool go_on() override {
        blocks.push_back(std::move(current_));
        current_.clear();
        return static_cast<int>(blocks.size()) < stop_after_;
    }
    std::vector<MapPoint> points() const {
        std::vector<MapPoint> all;
        for (const auto& block : blocks)
            all.insert(all.end(), block.begin(), block.end());
        return all;
    }

    std::vector<std::vector<MapPoint>> blocks;

private:
    int stop_after_;
    std::vector<MapPoint> current_;
};

Blocks drawn(const MapRun& run) {
    Blocks blocks;
    EXPECT_TRUE(draw_visibility_map(loaded_theory(), run, blocks));
    return blocks;
}

bool same(const MapPoint& a, const MapPoint& b) {
    return a.longitude == b.longitude && a.latitude == b.latitude && a.visibility == b.visibility &&
           a.evaluated == b.evaluated;
}

struct Position {
    int longitude, latitude;
    bool operator==(const Position&) const = default;
};

/// The five points of a block, in order.
std::vector<Position> five_points(CrescentKind kind, int longitude, int latitude) {
    const int fifth = kind == CrescentKind::new_crescent ? longitude : longitude + 8;
    return {{longitude, latitude},
            {longitude + 8, latitude},
            {longitude, latitude - 8},
            {longitude + 8, latitude - 8},
            {fifth, latitude - 4}};
}

/// Every second degree of a block, from the south-west corner, northward first.
std::vector<Position> all_points(int longitude, int latitude) {
    std::vector<Position> points;
    for (int x = longitude; x <= longitude + 8; x += 2)
        for (int y = latitude - 8; y <= latitude; y += 2)
            points.push_back({x, y});
    return points;
}

/// Checks a block against its rules; tells whether it was filled or left bare.
void expect_block(const MapRun& run, const std::vector<MapPoint>& block, int longitude, int latitude) {
    const auto five = five_points(run.kind, longitude, latitude);
    ASSERT_GE(block.size(), 5U);
    for (std::size_t i = 0; i < 5; ++i) {
        ASSERT_EQ((Position{block[i].longitude, block[i].latitude}), five[i]);
        ASSERT_TRUE(block[i].evaluated);
    }
    const bool uniform = std::all_of(block.begin(), block.begin() + 5, [&block](const MapPoint& point) {
        return point.visibility == block[0].visibility;
    });
    std::vector<Position> rest;
    for (const Position& position : all_points(longitude, latitude))
        if (uniform || std::find(five.begin(), five.end(), position) == five.end())
            rest.push_back(position);
    if (uniform && block[0].visibility == not_possible)
        rest.clear();
    ASSERT_EQ(block.size() - 5, rest.size());
    for (std::size_t i = 0; i < rest.size(); ++i) {
        const MapPoint& point = block[i + 5];
        ASSERT_EQ((Position{point.longitude, point.latitude}), rest[i]);
        ASSERT_EQ(point.evaluated, !uniform);
        if (uniform) {
            ASSERT_EQ(point.visibility, block[0].visibility);
        }
        const int number = static_cast<int>(point.visibility);
        ASSERT_TRUE(number >= 1 && number <= 7);
        ASSERT_TRUE(point.visibility != third_band || run.criterion == Criterion::yallop);
        ASSERT_TRUE(point.visibility != second_band || run.criterion != Criterion::saao);
    }
}

class VisibilityMap : public CrescentTest {};

/// Two years of lunations, chosen so that maps of all seasons and far years are among them.
constexpr int lunations = 24;
constexpr int lunations_apart = 91;

MapRun lunation(int number, CrescentKind kind, int choice, Criterion criterion) {
    double year = 0;
    double month = 0;
    double day = 0;
    modjuc(2415021 + 29.530588853 * lunations_apart * number, year, month, day);
    return map_near(static_cast<int>(day), static_cast<int>(month), static_cast<int>(year), kind, choice,
                    criterion);
}

TEST_F(VisibilityMap, BlocksFollowTheirRulesFor432Maps) {
    for (int number = 0; number < lunations; ++number)
        for (const CrescentKind kind : {CrescentKind::new_crescent, CrescentKind::old_crescent})
            for (int choice = 0; choice < 3; ++choice)
                for (const Criterion criterion : {Criterion::vesk, Criterion::yallop, Criterion::saao}) {
                    SCOPED_TRACE("lunation " + std::to_string(number));
                    const MapRun run = lunation(number, kind, choice, criterion);
                    ASSERT_TRUE(std::isfinite(run.day) && std::isfinite(run.conjunction.universal));
                    const Blocks map = drawn(run);
                    ASSERT_EQ(map.blocks.size(), static_cast<std::size_t>(blocks_of_a_map));
                    std::size_t block = 0;
                    for (int longitude = -180; longitude <= 170; longitude += 10)
                        for (int latitude = 60; latitude >= -60; latitude -= 10) {
                            expect_block(run, map.blocks[block++], longitude, latitude);
                            ASSERT_FALSE(HasFatalFailure());
                        }
                }
}

TEST_F(VisibilityMap, ConjunctionOfEveryPointIsFoundWithinTenRounds) {
    int most = 0;
    double worst = 0;
    for (int number = 0; number < lunations; ++number) {
        const MapRun run = lunation(number, CrescentKind::new_crescent, 1, Criterion::yallop);
        double start = run.conjunction.universal;
        std::size_t counted = 0;
        for (const MapPoint& point : drawn(run).points()) {
            if (!point.evaluated)
                continue;
            const Observer observer = observer_at(point.longitude, point.latitude, 0);
            const PointConjunction found =
                point_conjunction(named_ephemeris(), observer, start, run.conjunction.delta_t);
            most = std::max(most, found.rounds);
            start = found.universal;
            if (++counted % 50 != 0)
                continue;
            const TdtSpan dynamical_time(1);
            const double t = found.universal + run.conjunction.delta_t;
            const auto elongation = [&observer](double jd) {
                const double d =
                    moon_fast(named_ephemeris(), named_instant(jd), observer).topocentric_longitude -
                    sun_fast(named_ephemeris(), named_instant(jd), observer).topocentric_longitude;
                return d > 180 ? d - 360 : d < -180 ? d + 360 : d;
            };
            constexpr double minute = 1.0 / 1440;
            const double speed = (elongation(t + minute) - elongation(t - minute)) / (2 * minute);
            worst = std::max(worst, std::fabs(elongation(t) / speed) * 86400);
        }
    }
    EXPECT_LE(most, 10);
    // A step of a quarter of a second ends the search; what remains is no more than the step.
    EXPECT_LT(worst, 0.3);
}

TEST_F(VisibilityMap, EveryPointIsItsSingleEvaluationWithTheConjunctionCarriedAlong) {
    int compared = 0;
    for (const Criterion criterion : {Criterion::vesk, Criterion::yallop, Criterion::saao})
        for (const CrescentKind kind : {CrescentKind::new_crescent, CrescentKind::old_crescent}) {
            const MapRun run = map_near(29, 3, 2025, kind, 1, criterion);
            double conjunction = run.conjunction.universal;
            for (const MapPoint& point : drawn(run).points()) {
                if (!point.evaluated)
                    continue;
                ASSERT_EQ(
                    evaluate_point(named_ephemeris(), run, point.longitude, point.latitude, conjunction),
                    point.visibility)
                    << point.longitude << ", " << point.latitude;
                ++compared;
            }
        }
    EXPECT_GT(compared, 10000);
}

TEST_F(VisibilityMap, UniformBlockOfNothingPossibleStaysBare) {
    const MapRun run = map_near(29, 3, 2025, CrescentKind::new_crescent, 0, Criterion::yallop);
    int bare = 0;
    for (const auto& block : drawn(run).blocks)
        if (block.size() == 5 && block[0].visibility == not_possible)
            ++bare;
    EXPECT_GT(bare, 10);
}

TEST_F(VisibilityMap, NothingIsEvaluatedAbove60NorthOrBelow68South) {
    const MapRun run = map_near(17, 2, 2026, CrescentKind::new_crescent, 1, Criterion::vesk);
    for (const MapPoint& point : drawn(run).points()) {
        ASSERT_LE(point.latitude, 60);
        ASSERT_GE(point.latitude, -68);
        ASSERT_GE(point.longitude, -180);
        ASSERT_LE(point.longitude, 178);
    }
}

TEST_F(VisibilityMap, BorderBetweenTheFivePointsIsLost) {
    // Somewhere in a year of maps a filled block holds a point of another class.
    int lost = 0;
    for (int month = 1; month <= 12 && lost == 0; ++month) {
        const MapRun run = map_near(15, month, 2025, CrescentKind::new_crescent, 1, Criterion::yallop);
        double conjunction = run.conjunction.universal;
        for (const MapPoint& point : drawn(run).points()) {
            const VisibilityClass own =
                evaluate_point(named_ephemeris(), run, point.longitude, point.latitude, conjunction);
            if (!point.evaluated && own != point.visibility)
                ++lost;
        }
    }
    EXPECT_GT(lost, 0);
}

TEST_F(VisibilityMap, SecondDrawIsTheSame) {
    const MapRun run = map_near(29, 3, 2025, CrescentKind::new_crescent, 1, Criterion::saao);
    const std::vector<MapPoint> first = drawn(run).points();
    const std::vector<MapPoint> second = drawn(run).points();
    EXPECT_TRUE(std::equal(first.begin(), first.end(), second.begin(), second.end(), same));
}

TEST_F(VisibilityMap, StopActsAfterTheBlockAndKeepsWhatIsPainted) {
    const MapRun run = map_near(29, 3, 2025, CrescentKind::new_crescent, 1, Criterion::saao);
    const std::vector<MapPoint> whole = drawn(run).points();
    for (const int stop : {1, 2, 100, blocks_of_a_map}) {
        Blocks blocks(stop);
        EXPECT_FALSE(draw_visibility_map(loaded_theory(), run, blocks));
        EXPECT_EQ(blocks.blocks.size(), static_cast<std::size_t>(stop));
        const std::vector<MapPoint> part = blocks.points();
        EXPECT_TRUE(std::equal(part.begin(), part.end(), whole.begin(), same));
    }
}

TEST_F(VisibilityMap, PolarPointWithoutMoonsetIsUnknownAndNotImpossible) {
    // Midsummer beyond the circle: the Sun does not set. Midwinter: it does not rise.
    MapRun run = map_near(25, 6, 2025, CrescentKind::new_crescent, 1, Criterion::vesk);
    double conjunction = run.conjunction.universal;
    EXPECT_EQ(evaluate_point(named_ephemeris(), run, 20, 80, conjunction), unknown);
    run = map_near(20, 12, 2025, CrescentKind::new_crescent, 1, Criterion::vesk);
    conjunction = run.conjunction.universal;
    EXPECT_EQ(evaluate_point(named_ephemeris(), run, 20, 80, conjunction), unknown);
    // Off Antarctica the Sun still sets that day, while the Moon, three degrees further south, does not.
    const Observer observer = observer_at(20, -65, 0);
    EXPECT_NE(
        hours_of(low_event(named_ephemeris(), Body::sun, named_instant(run.day), observer, LowEvent::set)),
        nullptr);
    EXPECT_EQ(
        hours_of(low_event(named_ephemeris(), Body::moon, named_instant(run.day), observer, LowEvent::set)),
        nullptr);
    EXPECT_EQ(evaluate_point(named_ephemeris(), run, 20, -65, conjunction), unknown);
}

TEST_F(VisibilityMap, PointWithALagOfZeroIsRed) {
    // On the evening of 29 March 2025 the lag changes its sign on the way south, after the conjunction.
    const MapRun run = map_near(29, 3, 2025, CrescentKind::new_crescent, 0, Criterion::yallop);
    constexpr double longitude = -60;
    const auto lag = [&run](double latitude) {
        const Observer observer = observer_at(longitude, latitude, 0);
        return *hours_of(low_event(named_ephemeris(), Body::moon, named_instant(run.day), observer,
                                   LowEvent::set)) -
               *hours_of(
                   low_event(named_ephemeris(), Body::sun, named_instant(run.day), observer, LowEvent::set));
    };
    double positive = 40;
    double negative = -60;
    ASSERT_GT(lag(positive), 0);
    ASSERT_LT(lag(negative), 0);
    while (positive - negative > 1e-12) {
        const double middle = (positive + negative) / 2;
        (lag(middle) > 0 ? positive : negative) = middle;
    }
    double conjunction = run.conjunction.universal;
    EXPECT_LE(lag(negative), 0);
    EXPECT_GT(lag(negative), -1e-6);
    EXPECT_EQ(evaluate_point(named_ephemeris(), run, longitude, negative, conjunction), impossible);
    EXPECT_EQ(evaluate_point(named_ephemeris(), run, longitude, positive, conjunction), not_possible);
}

TEST_F(VisibilityMap, PointBeforeItsConjunctionIsRed) {
    // Far east the Sun sets before the conjunction of 29 March 2025, 10:58 UT1, and the Moon after the Sun.
    const MapRun run = map_near(29, 3, 2025, CrescentKind::new_crescent, 0, Criterion::vesk);
    double conjunction = run.conjunction.universal;
    EXPECT_EQ(evaluate_point(named_ephemeris(), run, 170, 50, conjunction), impossible);
    EXPECT_GT(conjunction, run.day + (18.0 - 11) / 24);
}

TEST_F(VisibilityMap, MoonThatSetsPastMidnightIsUnknownAndNotImpossible) {
    // In spring two days after the conjunction, at 60 north: the set is folded to the start of the day, so
    // that the lag is negative though the Moon stands high at sunset.
    int high = 0;
    for (int month = 3; month <= 6; ++month) {
        const MapRun run = map_near(15, month, 2025, CrescentKind::new_crescent, 2, Criterion::vesk);
        for (int longitude = -180; longitude < 180; longitude += 2) {
            const Observer observer = observer_at(longitude, 60, 0);
            const TaggedTime sun =
                low_event(named_ephemeris(), Body::sun, named_instant(run.day), observer, LowEvent::set);
            const TaggedTime moon =
                low_event(named_ephemeris(), Body::moon, named_instant(run.day), observer, LowEvent::set);
            if (hours_of(sun) == nullptr || hours_of(moon) == nullptr || *hours_of(moon) > 6)
                continue;
            ASSERT_GT(*hours_of(sun), 12);
            double conjunction = run.conjunction.universal;
            EXPECT_EQ(evaluate_point(named_ephemeris(), run, longitude, 60, conjunction), unknown);
            ++high;
        }
    }
    EXPECT_GT(high, 0);
}

TEST_F(VisibilityMap, ClassesAgreeWithTheCrescentReportAwayFromTheBands) {
    // The report's full theories and the map's fast ones: values differ by hundredths of a degree.
    const MapRun run = map_near(29, 3, 2025, CrescentKind::new_crescent, 1, Criterion::vesk);
    int compared = 0;
    for (int longitude = -165; longitude <= 165; longitude += 30)
        for (int latitude = -45; latitude <= 45; latitude += 15) {
            write_loc(place_at(longitude, latitude, zone_of_longitude(longitude)));
            const CrescentRecords crescent = read_crescent_records(crescent_near(29, 3, 2025));
            Conjunction conjunction = find_conjunction(named_ephemeris(), crescent);
            // The report's day counts from the local date of the conjunction, the map's from that of UT1.
            conjunction.local = run.conjunction.days[0] + 0.5;
            DayEvents events;
            const auto circumstances =
                crescent_circumstances(named_ephemeris(), crescent, conjunction, events);
            ASSERT_TRUE(circumstances);
            const double value = circumstances->criterion.value;
            const bool near_an_edge =
                std::fabs(value - 5.65) < 0.1 || std::fabs(value - 2) < 0.1 || std::fabs(value + 0.97) < 0.1;
            if (near_an_edge || circumstances->lag < 0.1)
                continue;
            double start = run.conjunction.universal;
            EXPECT_EQ(evaluate_point(named_ephemeris(), run, longitude, latitude, start), vesk_class(value))
                << longitude << ", " << latitude;
            ++compared;
        }
    EXPECT_GT(compared, 40);
}

TEST_F(VisibilityMap, DaysAreCountedAwayFromTheConjunction) {
    const MapConjunction conjunction =
        map_conjunction(named_ephemeris(), stored_conjunction(crescent_near(29, 3, 2025)).dynamical);
    double day = 0;
    modjul(2025, 3, 29, 0, day);
    for (int choice = 0; choice < 3; ++choice) {
        EXPECT_EQ(map_day(conjunction, CrescentKind::new_crescent, choice), day + choice);
        EXPECT_EQ(map_day(conjunction, CrescentKind::old_crescent, choice), day - choice);
    }
}

TEST_F(VisibilityMap, StartsFromTheGeocentricConjunctionWhateverWasSearched) {
    const auto conjunction_of = [](bool geocentric) {
        CrescentSettings settings = crescent_near(29, 3, 2025);
        settings.geocentric = geocentric;
        return map_conjunction(named_ephemeris(), stored_conjunction(settings).dynamical).universal;
    };
    EXPECT_NEAR(conjunction_of(false), conjunction_of(true), 0.5 / 86400);
}

TEST(MapProjection, PutsTheGridOnThePicture) {
    EXPECT_NEAR(map_pixel(0, 0).x, 374, 1e-12);
    EXPECT_NEAR(map_pixel(0, 0).y, 206, 1e-12);
    EXPECT_NEAR(map_pixel(-180, 60).x, 0.8, 1e-4);
    EXPECT_NEAR(map_pixel(-180, 60).y, 82, 1e-4);
    EXPECT_NEAR(map_pixel(178, -68).x, 743.053, 1e-3);
    EXPECT_NEAR(map_pixel(178, -68).y, 346.533, 1e-3);
}

TEST(MapProjection, ReadOutHasItsOwnFactors) {
    EXPECT_NEAR(map_place(374 + 100, 206).longitude, 48.387097, 1e-9);
    EXPECT_NEAR(map_place(374, 206 - 100).latitude, 48.231511, 1e-9);
}

TEST_F(VisibilityMap, InformationNamesTheMapInBothLanguages) {
    const MapRun run = map_near(29, 3, 2025, CrescentKind::new_crescent, 1, Criterion::saao);
    EXPECT_EQ(map_information(run, Language::english),
              (std::vector<std::string>{"New Crescent Visibility", "SAAO Criterion", "Shawwal 1446", "Sunday",
                                        "30 March 2025"}));
    EXPECT_EQ(map_information(run, Language::arabic),
              (std::vector<std::string>{"رؤية هلال أول الشهر", " معيار جنوب أفريقيا", "شوال 1446", "الأحد",
                                        "30 آذار 2025"}));
    const MapRun old = map_near(29, 3, 2025, CrescentKind::old_crescent, 1, Criterion::vesk);
    EXPECT_EQ(map_information(old, Language::english),
              (std::vector<std::string>{"Old Crescent Visibility", "Vesk Criterion", "Ramadan 1446", "Friday",
                                        "28 March 2025"}));
}

TEST(MapLegend, HasALineForEveryClassOfItsCriterion) {
    const auto words = [](Criterion criterion) {
        std::vector<std::string> lines;
        for (const LegendLine& line : map_legend(criterion))
            lines.emplace_back(line.text.english);
        return lines;
    };
    EXPECT_EQ(words(Criterion::vesk),
              (std::vector<std::string>{"Red: Impossible", "No Color: Not Possible", "Blue: Need Optical Aid",
                                        "Magenta: Could be Seen by Naked Eye",
                                        "Green: Easily Visible by Naked Eye", "Cyan: Unknown"}));
    EXPECT_EQ(
        words(Criterion::yallop),
        (std::vector<std::string>{"Red: Impossible", "No Color: Not Possible", "Blue: Need Optical Aid",
                                  "Magenta: May Need Optical Aid", "Yellow: Naked Eye at Perfect Conditions",
                                  "Green: Easily Visible by Naked Eye", "Cyan: Unknown"}));
    EXPECT_EQ(words(Criterion::saao),
              (std::vector<std::string>{"Red: Impossible", "No Color: Not Possible",
                                        "Blue: Crescent Visibility is Improbable",
                                        "Green: Crescent Visibility is Possible", "Cyan: Unknown"}));
}

} // namespace
} // namespace halvane
