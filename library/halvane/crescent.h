// SPDX-License-Identifier: MIT
#pragma once

#include "halvane/events.h"

#include <array>
#include <optional>

namespace halvane::HALVANE_INLINE v1 {

/// The evening of a new crescent, after the conjunction, or the morning of an old one, before it.
enum class CrescentKind { new_crescent = 0, old_crescent = 1 };

/// Where Sun and Moon stand and what the Moon shows at one instant; airless.
struct CrescentQuantities {
    double moon_altitude = 0;        ///< [deg]
    double moon_azimuth = 0;         ///< [deg]
    double sun_altitude = 0;         ///< [deg]
    double sun_azimuth = 0;          ///< [deg]
    double elongation = 0;           ///< [deg]
    double phase_angle = 0;          ///< [deg]
    double illuminated_fraction = 0; ///< 0 to 1
    double semidiameter = 0;         ///< of the Moon                                           [deg]
    double width = 0;                ///< of the crescent at its middle                         [deg]
};

/// The sky of one instant.
struct CrescentSky {
    Instant instant{};                ///< UT1
    CrescentQuantities geocentric{};  ///< directions from the Earth's centre, against the observer's horizon
    CrescentQuantities topocentric{}; ///< directions from the observer's place
    double parallax = 0;              ///< of the Moon, horizontal                                [deg]
};

/// What the criteria of crescent visibility judge.
struct CrescentEvening {
    CrescentKind kind = CrescentKind::new_crescent;
    Instant conjunction{}; ///< geocentric, in longitude; UT1
    Instant sun_event{};   ///< sunset or sunrise; UT1
    Instant moon_event{};  ///< moonset or moonrise; UT1
    double lag = 0;        ///< from the Sun's event to the Moon's, or from the Moon's to the Sun's [min]
    double age = 0;        ///< from the conjunction to the Sun's event, or from that to it       [h]
    CrescentSky at_sun_event{};
    CrescentSky at_best_time{}; ///< four ninths of the lag from the Sun's event (Yallop 1997)
};

/// A class of a criterion: the values of its measure from the border up to the next class.
struct CriterionClass {
    double border = 0; ///< minus infinity of the lowest
    std::string words;
    std::string arabic_words; ///< UTF-8
};

/// A criterion of crescent visibility.
struct Criterion {
    std::string key; ///< "yallop-1997"
    std::string name;
    std::string arabic_name;
    std::string source;
    std::string measure; ///< what its number is
    std::string unit;    ///< of the number; empty for a mere one
    bool of_mornings = true;
    std::optional<Observer> place;       ///< that alone judges; nothing: the observer's own
    std::vector<CriterionClass> classes; ///< the lowest first
    std::size_t by_eye = 1;              ///< the lowest class that the eye sees
};
/// Every criterion, in the order of Halvane's lists.
HALVANE_EXPORT std::vector<Criterion> criteria();

/// What the user may set of the criteria "danjon" and "user". A limit that is not a number does not count.
struct CriterionLimits {
    double danjon_elongation = 7; ///< least topocentric elongation                           [deg]
    double least_lag = 0;         ///< [min]
    double least_altitude = 5;    ///< topocentric, at the Sun's event                        [deg]
    double least_elongation = 8;  ///< geocentric, at the Sun's event                         [deg]
    double least_age = 0;         ///< at the Sun's event                                     [h]
};

/// What a criterion says of an evening or a morning.
struct CrescentVerdict {
    std::string criterion;           ///< key
    double value = not_a_number;     ///< of its measure; not a number where the criterion has no answer
    std::optional<std::size_t> band; ///< index of its classes
};

/// Whether a crescent can be looked for on a date at a place, and what each criterion says of it.
struct CrescentAnswer {
    bool has_crescent = false; ///< the Moon outlasts the Sun on the right side of the conjunction
    std::optional<CrescentEvening> evening; ///< nothing where the Sun or the Moon has no event
    std::vector<CrescentVerdict> verdicts;
};

/// The crescent of a civil date of a place's clock, of the conjunction nearest to it. The horizon is that of
/// the sea in standard air.
/// Error  raises Error (bad_argument) for a date or a place out of range.
HALVANE_EXPORT CrescentAnswer crescent(const Engine& engine, CrescentKind kind, const Date& date,
                                       const Observer& observer, const Clock& clock,
                                       const CriterionLimits& limits = {});

/// When the crescent report looks.
enum class ObservationTime { sun_event = 0, moon_event = 1, best_time = 2, given = 3 };

/// What Halvane's crescent report is made by.
struct CircumstanceChoices {
    CrescentKind kind = CrescentKind::new_crescent;
    bool geocentric = false; ///< conjunction and quantities
    int days = 1;            ///< after the conjunction's date, or before it for an old crescent: 0, 1, 2
    ObservationTime time = ObservationTime::best_time;
    double given_hours = 18; ///< on the clock, with ObservationTime::given                     [h]
    Horizon horizon{};
};

/// A crescent as the report tells it.
struct Circumstances {
    Instant conjunction{}; ///< UT1
    Date date{};           ///< on the clock
    HijriDate hijri;       ///< a day of the month that it begins or ends, tabular
    double sun_event = 0;  ///< [h of the clock]
    double moon_event = 0; ///< [h of the clock]
    double lag = 0;        ///< [h]
    Instant observed;      ///< UT1
    double moon_age = 0;   ///< from the conjunction                                            [d]
    SeenSun sun;
    SeenMoon moon;
    CrescentQuantities quantities;
    double arcv = 0;  ///< at Best Time: relative altitude                                      [deg]
    double width = 0; ///< at Best Time                                                         [arcmin]
    double q = 0;     ///< at Best Time: the report's criterion
};

/// Around the conjunction nearest to a date; nothing where the Sun or the Moon has no event on the chosen
/// day. The clock is a fixed one.
HALVANE_EXPORT std::optional<Circumstances> crescent_circumstances(const Engine& engine, const Date& near,
                                                                   const Observer& observer,
                                                                   double clock_hours,
                                                                   const CircumstanceChoices& choices = {});

/// What a map grid is made of.
struct MapChoices {
    CrescentKind kind = CrescentKind::new_crescent;
    Date date{};                           ///< of every place
    std::string criterion = "yallop-1997"; ///< key
    CriterionLimits limits{};
    double west = -180; ///< -180 to below 180                                                 [deg]
    double south = -60; ///< -85 to 85                                                         [deg]
    double east = 180;  ///< above west, by 360 at most; beyond 180 across the date line       [deg]
    double north = 60;  ///< above south                                                       [deg]
    double step = 1;    ///< 0.05 to 30                                                        [deg]
};

/// What a place of a map is: an index of the criterion's classes, or one of these.
inline constexpr int map_conjunction_to_come = 6;
inline constexpr int map_moon_goes_first = 7;
inline constexpr int map_no_answer = 8;
inline constexpr int map_no_event = 9;

/// The places of a map on one side of the date line, row by row from the south-west on. Numbers are not a
/// number where there are none.
struct MapGrid {
    double west = 0;  ///< of the first column, in the window's longitudes                      [deg]
    double south = 0; ///< of the first row                                                     [deg]
    double step = 0;  ///< [deg]
    std::size_t columns = 0;
    std::size_t rows = 0;
    std::vector<double> value; ///< of the criterion's measure
    std::vector<std::uint8_t> map_class;
    std::vector<float> lag;        ///< [min]
    std::vector<float> age;        ///< at the Sun's event                                      [h]
    std::vector<float> altitude;   ///< of the Moon at the Sun's event, topocentric, airless    [deg]
    std::vector<float> elongation; ///< at the Sun's event, topocentric                         [deg]
};

/// The grids of a map: one, or two beside each other at the date line. It works on one core; call it from
/// several threads for several maps.
/// Error  raises Error: bad_argument for choices out of range, for a criterion that judges by one place or
/// not
///        of mornings; cancelled.
HALVANE_EXPORT std::vector<MapGrid> crescent_map(const Engine& engine, const MapChoices& choices,
                                                 Progress* progress = nullptr);

} // namespace halvane::HALVANE_INLINEv1
