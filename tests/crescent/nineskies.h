// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/modjul.h"
#include "crescent/crescentevening.h"
#include "routines/namedengine.h"

#include <array>
#include <ostream>

namespace halvane {

struct CivilDay {
    int year, month, day;
};

struct ClockTime {
    int hours, minutes, seconds;
};

inline double julian_day(const CivilDay& date) {
    double jd = 0;
    modjul(date.year, date.month, date.day, 0, jd);
    return jd;
}

inline double julian_day(const CivilDay& date, const ClockTime& clock) {
    return julian_day(date) + (clock.hours + (clock.minutes + clock.seconds / 60.0) / 60) / 24;
}

/// Quantities of one instant, airless; DAZ is the Sun's azimuth less the Moon's.
struct KnownQuantities {
    double elongation_geocentric, arcv_geocentric, daz, altitude_geocentric; ///< [deg]
    double elongation_topocentric, arcv_topocentric, altitude_topocentric;   ///< [deg]
    double width_topocentric;                                                ///< [arcmin]
};

/// An evening or a morning computed with the Swiss Ephemeris (Delta T 68.9 to 69.1 s), at sea level: the
/// Sun's centre at -50', the Moon's upper limb at -34'. Clocks are UT.
struct KnownSky {
    const char* name;
    CrescentKind kind;
    double longitude, latitude; ///< [deg]
    CivilDay date;              ///< local
    CivilDay conjunction_date;
    ClockTime conjunction_clock;
    bool clocks_are_next_day; ///< in UT
    ClockTime sun_clock, moon_clock, best_clock;
    double lag;                                 ///< [min]
    double age_at_sun_event, age_at_moon_event; ///< negative before the conjunction               [h]
    KnownQuantities at_sun_event, at_best_time;
    double parallax;     ///< at best time                                                         [arcmin]
    double semidiameter; ///< topocentric, at the Sun's event                                      [arcmin]
    double lower_limb;   ///< apparent, at the Sun's event                                         [deg]
    double q;            ///< Yallop's, as published
    char q_class;

    double conjunction() const { return julian_day(conjunction_date, conjunction_clock); }
    double sun_event() const { return at(sun_clock); }
    double moon_event() const { return at(moon_clock); }
    double best_time() const { return at(best_clock); }
    double at(const ClockTime& clock) const {
        return julian_day(date, clock) + (clocks_are_next_day ? 1 : 0);
    }
};

/// For the test framework.
inline void PrintTo(const KnownSky& known, std::ostream* stream) {
    *stream << known.name;
}

inline constexpr std::array<KnownSky, 9> nine_skies{{
    {.name = "Makkah2026Feb18",
     .kind = CrescentKind::new_crescent,
     .longitude = 39.8262,
     .latitude = 21.4225,
     .date = {2026, 2, 18},
     .conjunction_date = {2026, 2, 17},
     .conjunction_clock = {12, 1, 9},
     .clocks_are_next_day = false,
     .sun_clock = {15, 19, 56},
     .moon_clock = {16, 18, 55},
     .best_clock = {15, 46, 8},
     .lag = 59.0,
     .age_at_sun_event = 27.31,
     .age_at_moon_event = 28.30,
     .at_sun_event = {14.01, 14.01, -0.20, 13.18, 13.07, 13.07, 12.24, 0.411},
     .at_best_time = {14.23, 14.23, -0.50, 7.41, 13.28, 13.27, 6.45, 0.423},
     .parallax = 57.66,
     .semidiameter = 15.77,
     .lower_limb = 12.05,
     .q = 0.529,
     .q_class = 'A'},
    {.name = "Hilo",
     .kind = CrescentKind::new_crescent,
     .longitude = -155.08,
     .latitude = 19.72,
     .date = {2025, 3, 29},
     .conjunction_date = {2025, 3, 29},
     .conjunction_clock = {10, 57, 50},
     .clocks_are_next_day = true,
     .sun_clock = {4, 33, 51},
     .moon_clock = {5, 15, 14},
     .best_clock = {4, 52, 15},
     .lag = 41.4,
     .age_at_sun_event = 17.60,
     .age_at_moon_event = 18.29,
     .at_sun_event = {10.56, 10.23, -2.67, 9.39, 9.59, 9.22, 8.38, 0.235},
     .at_best_time = {10.75, 10.43, -2.60, 5.29, 9.76, 9.41, 4.27, 0.243},
     .parallax = 61.23,
     .semidiameter = 16.73,
     .lower_limb = 8.21,
     .q = 0.038,
     .q_class = 'B'},
    {.name = "Jakarta",
     .kind = CrescentKind::new_crescent,
     .longitude = 106.80,
     .latitude = -6.20,
     .date = {2026, 2, 18},
     .conjunction_date = {2026, 2, 17},
     .conjunction_clock = {12, 1, 9},
     .clocks_are_next_day = false,
     .sun_clock = {11, 15, 10},
     .moon_clock = {11, 54, 46},
     .best_clock = {11, 32, 46},
     .lag = 39.6,
     .age_at_sun_event = 23.23,
     .age_at_moon_event = 23.89,
     .at_sun_event = {11.89, 10.46, -5.68, 9.63, 11.07, 9.51, 8.68, 0.294},
     .at_best_time = {12.04, 10.52, -5.88, 5.41, 11.22, 9.56, 4.45, 0.302},
     .parallax = 57.57,
     .semidiameter = 15.73,
     .lower_limb = 8.52,
     .q = 0.078,
     .q_class = 'B'},
    {.name = "CapeTown2026",
     .kind = CrescentKind::new_crescent,
     .longitude = 18.42,
     .latitude = -33.92,
     .date = {2026, 2, 18},
     .conjunction_date = {2026, 2, 17},
     .conjunction_clock = {12, 1, 9},
     .clocks_are_next_day = false,
     .sun_clock = {17, 35, 36},
     .moon_clock = {18, 10, 33},
     .best_clock = {17, 51, 8},
     .lag = 35.0,
     .age_at_sun_event = 29.57,
     .age_at_moon_event = 30.16,
     .at_sun_event = {15.18, 8.06, -12.90, 7.23, 14.70, 7.11, 6.27, 0.519},
     .at_best_time = {15.32, 8.01, -13.07, 4.07, 14.84, 7.05, 3.11, 0.528},
     .parallax = 57.71,
     .semidiameter = 15.75,
     .lower_limb = 6.15,
     .q = -0.050,
     .q_class = 'C'},
    {.name = "Makkah2026Feb17",
     .kind = CrescentKind::new_crescent,
     .longitude = 39.8262,
     .latitude = 21.4225,
     .date = {2026, 2, 17},
     .conjunction_date = {2026, 2, 17},
     .conjunction_clock = {12, 1, 9},
     .clocks_are_next_day = false,
     .sun_clock = {15, 19, 26},
     .moon_clock = {15, 22, 39},
     .best_clock = {15, 20, 52},
     .lag = 3.2,
     .age_at_sun_event = 3.30,
     .age_at_moon_event = 3.36,
     .at_sun_event = {1.84, 1.66, 0.80, 0.83, 1.07, 0.71, -0.12, 0.003},
     .at_best_time = {1.85, 1.67, 0.80, 0.52, 1.08, 0.72, -0.44, 0.003},
     .parallax = 57.11,
     .semidiameter = 15.56,
     .lower_limb = 0.16,
     .q = -1.011,
     .q_class = 'F'},
    {.name = "Sabang",
     .kind = CrescentKind::new_crescent,
     .longitude = 95.32,
     .latitude = 5.89,
     .date = {2024, 4, 9},
     .conjunction_date = {2024, 4, 8},
     .conjunction_clock = {18, 20, 52},
     .clocks_are_next_day = false,
     .sun_clock = {11, 46, 48},
     .moon_clock = {12, 22, 32},
     .best_clock = {12, 2, 41},
     .lag = 35.7,
     .age_at_sun_event = 17.43,
     .age_at_moon_event = 18.03,
     .at_sun_event = {10.22, 9.35, -4.13, 8.52, 9.31, 8.35, 7.52, 0.219},
     .at_best_time = {10.37, 9.54, -4.06, 4.80, 9.45, 8.54, 3.80, 0.226},
     .parallax = 60.63,
     .semidiameter = 16.56,
     .lower_limb = 7.36,
     .q = -0.064,
     .q_class = 'C'},
    {.name = "CapeTown2024",
     .kind = CrescentKind::new_crescent,
     .longitude = 18.42,
     .latitude = -33.92,
     .date = {2024, 3, 10},
     .conjunction_date = {2024, 3, 10},
     .conjunction_clock = {9, 0, 26},
     .clocks_are_next_day = false,
     .sun_clock = {17, 10, 25},
     .moon_clock = {17, 25, 56},
     .best_clock = {17, 17, 19},
     .lag = 15.5,
     .age_at_sun_event = 8.17,
     .age_at_moon_event = 8.42,
     .at_sun_event = {5.18, 4.15, -3.09, 3.32, 4.40, 3.13, 2.30, 0.050},
     .at_best_time = {5.24, 4.18, -3.16, 1.92, 4.47, 3.16, 0.90, 0.051},
     .parallax = 61.41,
     .semidiameter = 16.75,
     .lower_limb = 2.30,
     .q = -0.722,
     .q_class = 'F'},
    {.name = "Auckland",
     .kind = CrescentKind::new_crescent,
     .longitude = 174.76,
     .latitude = -36.85,
     .date = {2026, 2, 18},
     .conjunction_date = {2026, 2, 17},
     .conjunction_clock = {12, 1, 9},
     .clocks_are_next_day = false,
     .sun_clock = {7, 14, 32},
     .moon_clock = {7, 35, 45},
     .best_clock = {7, 23, 58},
     .lag = 21.2,
     .age_at_sun_event = 19.22,
     .age_at_moon_event = 19.58,
     .at_sun_event = {9.82, 5.08, -8.41, 4.25, 9.36, 4.13, 3.30, 0.210},
     .at_best_time = {9.90, 5.06, -8.51, 2.42, 9.45, 4.11, 1.46, 0.214},
     .parallax = 57.48,
     .semidiameter = 15.68,
     .lower_limb = 3.26,
     .q = -0.534,
     .q_class = 'F'},
    {.name = "Cairo",
     .kind = CrescentKind::old_crescent,
     .longitude = 31.25,
     .latitude = 30.05,
     .date = {2025, 9, 20},
     .conjunction_date = {2025, 9, 21},
     .conjunction_clock = {19, 54, 8},
     .clocks_are_next_day = false,
     .sun_clock = {3, 42, 17},
     .moon_clock = {2, 13, 31},
     .best_clock = {3, 2, 50},
     .lag = 88.8,
     .age_at_sun_event = -40.20,
     .age_at_moon_event = -41.68,
     .at_sun_event = {19.33, 19.29, -1.33, 18.46, 18.45, 18.40, 17.57, 0.792},
     .at_best_time = {19.66, 19.60, -1.50, 10.26, 18.74, 18.68, 9.34, 0.815},
     .parallax = 56.00,
     .semidiameter = 15.33,
     .lower_limb = 17.37,
     .q = 1.289,
     .q_class = 'A'},
}};

/// The same sky by the engine.
inline CrescentEvening evening_of(const KnownSky& known) {
    Ephemeris& ephemeris = named_ephemeris();
    const double day = julian_day(known.date);
    return crescent_evening(ephemeris, observer_at(known.longitude, known.latitude, 0), known.kind, day,
                            geocentric_conjunction(ephemeris, day))
        .value();
}

} // namespace halvane
