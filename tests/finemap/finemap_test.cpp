// SPDX-License-Identifier: MIT
#include "finemap/finemap.h"

#include "base/failure.h"
#include "calendar/civildate.h"
#include "finemap/maplines.h"
#include "tests/crescent/crescentfixture.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace halvane {
namespace {

constexpr double ramadan_1447 = 2461089.5; // 2026 February 18
constexpr double shawwal_1446 = 2460763.5; // 2025 March 29

struct TriedMap {
    const char* key;
    double day;
    CrescentKind kind = CrescentKind::new_crescent;
};

FineMapSettings settings_of(const TriedMap& tried, double step) {
    FineMapSettings settings;
    settings.kind = tried.kind;
    settings.day = tried.day;
    settings.conjunction = geocentric_conjunction(named_ephemeris(), tried.day);
    settings.criterion = catalogued_criterion(tried.key);
    settings.step = step;
    return settings;
}

FineMap map_of(const FineMapSettings& settings) {
    NoProgress progress;
    return make_fine_map(loaded_theory(), settings, progress).value();
}

double area_of(const MapRing& ring) {
    double twice = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const MapPosition& next = ring[(i + 1) % ring.size()];
        twice += ring[i].longitude * next.latitude - next.longitude * ring[i].latitude;
    }
    return twice / 2;
}

double area_of(const FineMap& map) {
    double area = 0;
    for (const MapZone& zone : map.zones)
        for (const ZonePolygon& polygon : zone.polygons) {
            area += area_of(polygon.outer);
            for (const MapRing& hole : polygon.holes)
                area += area_of(hole);
        }
    return area;
}

class MapTruth : public CrescentTest, public ::testing::WithParamInterface<TriedMap> {};

TEST_P(MapTruth, ThePlacesAreThoseOfTheEphemeris) {
    const FineMapSettings settings = settings_of(GetParam(), 2);
    const FineMap map = map_of(settings);
    const MapPart& part = map.parts.front();
    int different = 0;
    for (std::size_t row = 0; row < part.rows; ++row)
        for (std::size_t column = 0; column < part.columns; ++column) {
            const MapPosition place{part.longitude(column), part.latitude(row)};
            if (answer_at(named_ephemeris(), settings, place).map_class != part.at(column, row).map_class) {
                ++different;
                ADD_FAILURE() << place.longitude << ' ' << place.latitude;
            }
        }
    EXPECT_EQ(different, 0);
    EXPECT_EQ(part.columns * part.rows, 181U * 86U);
}

/// Whether a place is on what may be a border of its zone: within what 0.01 degree of longitude changes, or,
/// where a border runs along a parallel, 0.0002 degree of latitude.
class ZoneEdge {
public:
    ZoneEdge(const FineMapSettings& settings, std::size_t band) : settings_(settings), band_(band) {}

    bool has(const MapPosition& place) const {
        constexpr double east = 0.01;
        constexpr double north = 0.0002;
        const auto here = margins(place);
        const auto eastward = margins({place.longitude + east, place.latitude});
        const auto northward = margins({place.longitude, place.latitude + north});
        for (std::size_t i = 0; i < here.size(); ++i)
            if (here[i] && eastward[i] && northward[i] &&
                (std::fabs(*here[i]) <= std::fabs(*eastward[i] - *here[i]) ||
                 std::fabs(*here[i]) <= std::fabs(*northward[i] - *here[i])))
                return true;
        return is_at_end_of_answers(place);
    }

private:
    /// Whether there are places with an answer and without one around.
    bool is_at_end_of_answers(const MapPosition& place) const {
        constexpr double around = 0.01;
        int answered = 0;
        int places = 0;
        for (const double north : {-around, 0.0, around})
            for (const double east : {-around, 0.0, around}) {
                const MapPosition near{place.longitude + east, place.latitude + north};
                answered += answer_at(named_ephemeris(), settings_, near).value ? 1 : 0;
                ++places;
            }
        return answered > 0 && answered < places;
    }

    std::vector<std::optional<double>> margins(const MapPosition& place) const {
        const PlaceAnswer answer = answer_at(named_ephemeris(), settings_, place);
        std::vector<std::optional<double>> margins(4);
        if (!answer.evening)
            return margins;
        const auto bands = settings_.criterion->bands();
        margins[0] = answer.evening->lag();
        margins[1] = answer.evening->age(answer.evening->sun_event);
        if (answer.value && band_ > 0)
            margins[2] = *answer.value - bands[band_].border;
        if (answer.value && band_ + 1 < bands.size())
            margins[3] = *answer.value - bands[band_ + 1].border;
        return margins;
    }

    const FineMapSettings& settings_;
    std::size_t band_;
};

bool is_on_frame(const MapPosition& place) {
    return std::fabs(place.longitude) >= 180 || std::fabs(place.latitude) >= 85;
}

TEST_P(MapTruth, TheCurvesAreWhereTheMeasureHasItsBorders) {
    constexpr int points = 2000;
    constexpr unsigned seed = 20260218;
    const FineMapSettings settings = settings_of(GetParam(), 1);
    const FineMap map = map_of(settings);
    std::vector<std::pair<std::size_t, const MapRing*>> rings;
    for (const MapZone& zone : map.zones)
        if (const auto band = band_of(zone.map_class))
            for (const ZonePolygon& polygon : zone.polygons) {
                rings.emplace_back(*band, &polygon.outer);
                for (const MapRing& hole : polygon.holes)
                    rings.emplace_back(*band, &hole);
            }
    ASSERT_FALSE(rings.empty());
    std::vector<double> lengths;
    for (const auto& [band, ring] : rings)
        lengths.push_back(static_cast<double>(ring->size()));
    std::mt19937 random(seed);
    std::discrete_distribution<std::size_t> any_ring(lengths.begin(), lengths.end());
    std::uniform_real_distribution<double> share(0, 1);
    int tried = 0;
    while (tried < points) {
        const auto& [band, ring] = rings[any_ring(random)];
        const auto i = static_cast<std::size_t>(share(random) * static_cast<double>(ring->size()));
        const MapPosition& a = (*ring)[i];
        const MapPosition& b = (*ring)[(i + 1) % ring->size()];
        if (is_on_frame(a) && is_on_frame(b))
            continue;
        ++tried;
        const double along = share(random);
        const MapPosition place{a.longitude + along * (b.longitude - a.longitude),
                                a.latitude + along * (b.latitude - a.latitude)};
        EXPECT_TRUE(ZoneEdge(settings, band).has(place))
            << place.longitude << ' ' << place.latitude << " band " << band;
    }
}

TEST_P(MapTruth, TheZonesCoverTheWindowOnce) {
    const FineMap map = map_of(settings_of(GetParam(), 1));
    EXPECT_NEAR(area_of(map), 360 * 170, 1e-6);
    for (const MapZone& zone : map.zones)
        for (const ZonePolygon& polygon : zone.polygons) {
            EXPECT_GT(area_of(polygon.outer), 0);
            for (const MapRing& hole : polygon.holes)
                EXPECT_LT(area_of(hole), 0);
        }
}

INSTANTIATE_TEST_SUITE_P(
    OfTheWorld, MapTruth,
    ::testing::Values(TriedMap{"vesk", ramadan_1447}, TriedMap{"yallop-1997", shawwal_1446},
                      TriedMap{"saao-2001", ramadan_1447}, TriedMap{"danjon", ramadan_1447},
                      TriedMap{"babylon", shawwal_1446 + 1}, TriedMap{"mabims-2021", shawwal_1446 + 1},
                      TriedMap{"yallop", ramadan_1447 - 2, CrescentKind::old_crescent}),
    [](const auto& tried) {
        std::string name = tried.param.key;
        std::replace(name.begin(), name.end(), '-', '_');
        return name;
    });

class FineMapTest : public CrescentTest {};

TEST_F(FineMapTest, AWindowOverTheDateLineHasTwoParts) {
    FineMapSettings settings = settings_of({"vesk", ramadan_1447}, 0.5);
    settings.window = {170.2, -20, 200, 10.1};
    const FineMap map = map_of(settings);
    ASSERT_EQ(map.parts.size(), 2U);
    EXPECT_EQ(map.parts[0].west, 170);
    EXPECT_EQ(map.parts[0].longitude(map.parts[0].columns - 1), 180);
    EXPECT_EQ(map.parts[1].west, 180);
    EXPECT_EQ(map.parts[1].longitude(map.parts[1].columns - 1), 200);
    EXPECT_EQ(map.parts[0].latitude(map.parts[0].rows - 1), 10.5);
    EXPECT_NEAR(area_of(map), 30 * 30.5, 1e-9);
    // The same date's evening comes a day later on the eastern side.
    const double hours = map.parts[1].at(0, 5).age - map.parts[0].at(map.parts[0].columns - 1, 5).age;
    EXPECT_NEAR(hours, 24, 0.1);
}

TEST_F(FineMapTest, AZoneHasHolesWhereAnotherLiesInIt) {
    // An evening on which the crescent just begins to be seen: the zone lies in the Pacific alone.
    FineMapSettings settings = settings_of({"vesk", ramadan_1447 - 1}, 1);
    settings.window = {-180, -60, -120, 60};
    const FineMap map = map_of(settings);
    EXPECT_NEAR(area_of(map), 60 * 120, 1e-9);
}

TEST_F(FineMapTest, IsNotMadeForACriterionOfOnePlace) {
    const FineMapSettings settings = settings_of({"umm-al-qura", ramadan_1447}, 1);
    EXPECT_EQ(refused_map(settings)->english,
              "Umm al-Qura judges by one place alone, so there is no map of it.");
    NoProgress progress;
    EXPECT_THROW(make_fine_map(loaded_theory(), settings, progress), RunTimeFailure);
}

TEST_F(FineMapTest, IsNotMadeOfAMorningThatTheCriterionDoesNotJudge) {
    EXPECT_TRUE(refused_map(settings_of({"mabims-2021", ramadan_1447, CrescentKind::old_crescent}, 1)));
    EXPECT_FALSE(refused_map(settings_of({"yallop", ramadan_1447, CrescentKind::old_crescent}, 1)));
}

/// Cancels when it is asked for the `count`th time.
class Cancelling final : public Progress {
public:
    explicit Cancelling(int count) : left_(count) {}
    void percent(double value) override {
        EXPECT_GE(value, last_);
        EXPECT_LE(value, 100);
        last_ = value;
    }
    bool yield() override { return --left_ > 0; }

private:
    int left_;
    double last_ = 0;
};

TEST_F(FineMapTest, GivesNothingAfterACancel) {
    for (const int count : {1, 2, 4}) {
        Cancelling progress(count);
        EXPECT_FALSE(make_fine_map(loaded_theory(), settings_of({"vesk", ramadan_1447}, 0.25), progress));
    }
}

TEST_F(FineMapTest, LinesStandAtTheirLevels) {
    const FineMapSettings settings = settings_of({"vesk", ramadan_1447}, 1);
    const FineMap map = map_of(settings);
    const std::vector<MapLine> lines = map_lines(map, MapQuantity::age, 2);
    ASSERT_FALSE(lines.empty());
    int tried = 0;
    for (const MapLine& line : lines)
        for (std::size_t i = 0; i < line.points.size(); i += 40) {
            const PlaceAnswer answer = answer_at(named_ephemeris(), settings, line.points[i]);
            if (!answer.evening || std::fabs(line.points[i].latitude) > 60)
                continue;
            EXPECT_NEAR(answer.evening->age(answer.evening->sun_event), line.level, 0.01);
            ++tried;
        }
    EXPECT_GT(tried, 30);
    for (const MapQuantity quantity : {MapQuantity::lag, MapQuantity::altitude, MapQuantity::elongation})
        EXPECT_FALSE(map_lines(map, quantity, 2).empty());
}

} // namespace
} // namespace halvane
