// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The library in C: the functions and values of the C++ headers, bit for bit the same numbers.
///
/// **Statuses.** A function that can fail returns a ::halvane_status: ::HALVANE_OK or what kind of thing
/// failed. halvane_last_error() has the words. No exception leaves the library. A null pointer is
/// ::HALVANE_BAD_ARGUMENT unless its parameter says what it means. After a failure nothing has been written,
/// but for handles, which are null, and the elements before the one that failed in halvane_suns() and its
/// like.
///
/// **Values** never grow and have no size: dates, instants, observers and whatever is a member of something
/// else. They are passed by value, or by pointer where they may be left out.
///
/// **Records** are passed by pointer and may grow. Their first member `size` is set by the caller to `sizeof`
/// of the record. The library writes what that holds. Of a larger record than it knows it leaves the rest as
/// it is; in one that it reads the rest must be zero. A record that is smaller than in the first version is
/// ::HALVANE_BAD_ARGUMENT. A null pointer in the place of rules, choices or limits means those of the
/// `halvane_default_` function.
///
/// **Arrays** are the caller's: a pointer to the first element, how many fit (`capacity`), `sizeof` of one
/// (`element_size`), and where the number of elements is told (`count`). Where they do not fit the status is
/// ::HALVANE_TOO_SMALL, `count` tells how many are wanted, and no element is written. With a capacity of 0
/// the pointer may be null, to ask for the number. The library sets the member `size` of each element.
///
/// **Enumerations** are passed as `int`; a number that is none of them is ::HALVANE_BAD_ARGUMENT. Truths are
/// `int`: 0 no, else yes.
///
/// **Texts** are UTF-8, end with a zero byte, and are read before the function returns. The library's own
/// last as long as the library, unless it says otherwise.
///
/// **Threads.** Every function may be called by any number of threads at once, with the same handles;
/// a handle is freed once, when no call uses it any more.

#include "halvane/export.h"

#include <stddef.h> // NOLINT(modernize-deprecated-headers): C reads it too
#include <stdint.h> // NOLINT(modernize-deprecated-headers)

#ifdef __cplusplus
extern "C" {
#endif

/// ::HALVANE_OK or what kind of thing failed, of ::halvane_statuses.
typedef int halvane_status;

/// What a call came to. More may be added.
enum halvane_statuses {
    HALVANE_OK = 0,
    HALVANE_BAD_ARGUMENT = 1, ///< a value outside its range, an unknown key or time zone, a null pointer
    HALVANE_MISSING_FILE = 2, ///< a series file that is not there
    HALVANE_DAMAGED_FILE = 3, ///< a series file that is not of its form
    HALVANE_NO_VALUE = 4,     ///< a calculation without an answer
    HALVANE_NO_MEMORY = 5,    ///< the system gives no more memory
    HALVANE_CANCELLED = 6,    ///< the caller's own progress function said so
    HALVANE_OTHER = 7,
    HALVANE_TOO_SMALL = 100 ///< the caller's array holds fewer elements than there are
};

/// What a status means: a few words in English, "bad argument". "unknown status" for any other number.
HALVANE_EXPORT const char* halvane_status_words(halvane_status status);

/// A whole sentence in English about the last failure of the calling thread; empty before the first one. It
/// stands until the next failure of this thread.
HALVANE_EXPORT const char* halvane_last_error(void);

/// The library's version, "5.3.9".
HALVANE_EXPORT const char* halvane_version(void);

// Values

/// A civil date: of the Julian calendar before 15 October 1582, of the Gregorian one from then on. Years are
/// astronomical (0 is 1 BC), -4000 to 9999.
typedef struct halvane_date {
    int year;
    int month; ///< 1 to 12
    int day;   ///< 1 to 31
} halvane_date;

/// A date of the Hijri calendar.
typedef struct halvane_hijri_date {
    int year;
    int month; ///< 1 Muharram to 12 Thul Hejjah
    int day;   ///< 1 to 30
} halvane_hijri_date;

/// Where an observer stands.
typedef struct halvane_observer {
    double latitude;  ///< north positive, -90 to 90                                            [deg]
    double longitude; ///< east positive, -180 to 180                                           [deg]
    double height;    ///< above sea level                                                      [m]
} halvane_observer;

/// The clock that a Julian day counts on.
enum halvane_time_scale {
    HALVANE_UT1 = 0, ///< of the turning Earth, taken for every civil clock's Universal Time (within 0.9 s)
    HALVANE_DYNAMICAL = 1 ///< of the theories: TDT
};

/// A moment.
typedef struct halvane_instant {
    double jd; ///< Julian day in `scale`                                                       [d]
    int scale; ///< of ::halvane_time_scale
} halvane_instant;

/// Why there is no time: reports print "----", "Up", "Down", "Bright", "Dark".
enum halvane_missing {
    HALVANE_NOT_MISSING = 0, ///< there is one
    HALVANE_NO_EVENT = 1,    ///< the body does not pass its altitude in this direction on this day
    HALVANE_UP = 2,          ///< it stays above all day
    HALVANE_DOWN = 3,        ///< it stays below all day
    HALVANE_BRIGHT = 4,      ///< the Sun does not go so far below the horizon
    HALVANE_DARK = 5         ///< it stays below it all day
};

/// A time of a local day, or why there is none.
typedef struct halvane_clock_time {
    double hours; ///< from 0 h of the date on the place's clock; not a number without one      [h]
    int missing;  ///< of ::halvane_missing
} halvane_clock_time;

/// What a search needs of the horizon and the air above it.
typedef struct halvane_horizon {
    int height_counts;  ///< whether the observer's height lowers it
    double pressure;    ///< 0 to 2000                                                          [mb]
    double temperature; ///< -120 to 100                                                        [deg C]
} halvane_horizon;

/// That of the sea in standard air: the height does not count, 1010 mb, 10 deg C.
HALVANE_EXPORT halvane_horizon halvane_standard_horizon(void);

/// The Julian day of 0 h of a civil date; it ends in .5                                        [d]
/// Error  ::HALVANE_BAD_ARGUMENT for a date that the calendar has not.
HALVANE_EXPORT halvane_status halvane_julian_day(halvane_date date, double* julian_day);

/// The civil date that a Julian day lies in.
/// Error  ::HALVANE_BAD_ARGUMENT outside the years of ::halvane_date.
HALVANE_EXPORT halvane_status halvane_civil_date(double julian_day, halvane_date* date);

/// The moment of a number of seconds since 1970 January 1, 0 h Universal Time; leap seconds are not counted.
/// In ::HALVANE_UT1. It cannot fail; a moment out of range is refused where it is used.
HALVANE_EXPORT halvane_instant halvane_instant_of_unix(double seconds);

/// The seconds of a moment since 1970 January 1, 0 h Universal Time                            [s]
/// Error  ::HALVANE_BAD_ARGUMENT for an instant outside the years of ::halvane_date.
HALVANE_EXPORT halvane_status halvane_unix_seconds(halvane_instant instant, double* seconds);

/// The Julian day of a moment in UT1, by the library's Delta T                                 [d]
/// Error  ::HALVANE_BAD_ARGUMENT for an instant outside the years of ::halvane_date.
HALVANE_EXPORT halvane_status halvane_ut1(halvane_instant instant, double* julian_day);

/// The Julian day of a moment in dynamical time, by the library's Delta T                      [d]
/// Error  ::HALVANE_BAD_ARGUMENT for an instant outside the years of ::halvane_date.
HALVANE_EXPORT halvane_status halvane_dynamical(halvane_instant instant, double* julian_day);

/// TDT less UT1 at a Julian day                                                                [s]
/// Error  ::HALVANE_BAD_ARGUMENT outside the years of ::halvane_date.
HALVANE_EXPORT halvane_status halvane_delta_t(double julian_day, double* seconds);

// Engines, clocks, progress

/// The theories of the Sun, the Moon and the turning Earth, read once and constant. Functions that take one
/// read no file, but for those of the system's time zones (::halvane_clock).
typedef struct halvane_engine halvane_engine;

/// Reads the data files of the first folder that holds them: the library's own, `share/halvane` beside the
/// folder that it lies in (or one above that), and where it was installed.
/// Out    engine  the caller's, to be closed by halvane_engine_close()
/// Error  ::HALVANE_MISSING_FILE naming the last folder, ::HALVANE_DAMAGED_FILE.
HALVANE_EXPORT halvane_status halvane_engine_open(halvane_engine** engine);

/// Reads the data files of a folder.
/// In     folder  path
/// Out    engine  the caller's, to be closed by halvane_engine_close()
/// Error  ::HALVANE_MISSING_FILE, ::HALVANE_DAMAGED_FILE.
HALVANE_EXPORT halvane_status halvane_engine_open_folder(const char* folder, halvane_engine** engine);

/// The texts of the data files, for programs that keep them in memory. They need no zero byte at their ends.
typedef struct halvane_engine_data {
    size_t size;            ///< of this record
    const char* termfull;   ///< `termfull.vsk`: the complete series of the Sun
    size_t termfull_length; ///< [byte]
    const char* term;       ///< `term.vsk`: its largest terms
    size_t term_length;     ///< [byte]
    const char* mterm;      ///< `mterm.vsk`: the nutation and the Moon's periodic terms
    size_t mterm_length;    ///< [byte]
    const char* elp;        ///< `elp.vsk`: the lunar tables
    size_t elp_length;      ///< [byte]
    const char*
        world; ///< `world.txt`: land; wanted by Hijri rules that ask for the Americas alone, else null
    size_t world_length; ///< [byte]
} halvane_engine_data;

/// Reads the data from memory, at once; it may go afterwards.
/// Out    engine  the caller's, to be closed by halvane_engine_close()
/// Error  ::HALVANE_BAD_ARGUMENT for a text that is null, ::HALVANE_DAMAGED_FILE.
HALVANE_EXPORT halvane_status halvane_engine_open_memory(const halvane_engine_data* data,
                                                         halvane_engine** engine);

/// Frees an engine; null is none.
HALVANE_EXPORT void halvane_engine_close(halvane_engine* engine);

/// The clock of a place.
typedef struct halvane_clock halvane_clock;

/// A clock that is the same all the year.
/// In     hours  of the clock from Universal Time, east positive, -24 to 24                    [h]
/// Out    clock  the caller's, to be freed by halvane_clock_free()
/// Error  ::HALVANE_BAD_ARGUMENT.
HALVANE_EXPORT halvane_status halvane_clock_fixed(double hours, halvane_clock** clock);

/// The clock of a time zone, with its summer times, from the system's files.
/// In     name   an IANA time zone, "Africa/Cairo"
/// Out    clock  the caller's, to be freed by halvane_clock_free()
/// Error  ::HALVANE_BAD_ARGUMENT for a zone that the system does not know.
HALVANE_EXPORT halvane_status halvane_clock_of_zone(const char* name, halvane_clock** clock);

/// Hours ahead of Universal Time at noon of a date, which every time of that date is told by [h]
/// Error  ::HALVANE_BAD_ARGUMENT for a date that the calendar has not.
HALVANE_EXPORT halvane_status halvane_clock_hours_ahead(const halvane_clock* clock, halvane_date date,
                                                        double* hours);

/// The zone's name; empty for a fixed clock and for null. It stands as long as the clock.
HALVANE_EXPORT const char* halvane_clock_zone_name(const halvane_clock* clock);

/// Frees a clock; null is none.
HALVANE_EXPORT void halvane_clock_free(halvane_clock* clock);

/// Is told how far a long work has come, and may end it. The work asks from its own threads, one at a time.
/// In     context  the caller's own
///        percent  0 to 100
/// Returns 0 to end the work, which then fails with ::HALVANE_CANCELLED. It must come back.
typedef int (*halvane_progress)(void* context, double percent);

// Sun and Moon

/// How much of the theories is computed. Errors against modern ephemerides from 1900 to 2100 stand in
/// docs/accuracy.md.
enum halvane_accuracy {
    HALVANE_COMPLETE = 0, ///< Sun: the whole VSOP87 series; Moon: the ELP-2000/85 tables
    HALVANE_MEDIUM = 1,   ///< Sun: its 248 largest terms; Moon: as complete
    HALVANE_LOW = 2,      ///< Meeus's low-precision Sun and periodic terms of the Moon
    HALVANE_FAST = 3      ///< the same with four terms of the nutation; from an observer's place alone
};

/// The Sun or the Moon.
enum halvane_body { HALVANE_SUN = 0, HALVANE_MOON = 1 };

/// Apparent geocentric place of the Sun, of the date's equator and ecliptic.
typedef struct halvane_sun_place {
    double right_ascension;  ///< 0 to 360                                                      [deg]
    double declination;      ///<                                                               [deg]
    double longitude;        ///< ecliptic, 0 to 360                                            [deg]
    double latitude;         ///< ecliptic; 0 with ::HALVANE_LOW and ::HALVANE_FAST             [deg]
    double distance;         ///< [AU]
    double equation_of_time; ///< apparent less mean; 0 with ::HALVANE_FAST                     [min]
} halvane_sun_place;

/// Apparent geocentric place of the Moon, of the date's equator and ecliptic.
typedef struct halvane_moon_place {
    double right_ascension; ///< 0 to 360                                                       [deg]
    double declination;     ///<                                                                [deg]
    double longitude;       ///< ecliptic, 0 to 360                                             [deg]
    double latitude;        ///< ecliptic                                                       [deg]
    double distance;        ///< between the centres                                            [km]
} halvane_moon_place;

/// A body as it is seen from the surface of the Earth, airless.
typedef struct halvane_seen_place {
    double right_ascension; ///< topocentric, 0 to 360                                          [deg]
    double declination;     ///< topocentric                                                    [deg]
    double longitude;       ///< topocentric, ecliptic, 0 to 360                                [deg]
    double latitude;        ///< topocentric, ecliptic                                          [deg]
    double altitude;        ///< of the centre, without refraction                              [deg]
    double azimuth;         ///< 0 to 360, 0 north, 90 east                                     [deg]
} halvane_seen_place;

/// The Sun from the Earth's centre.
typedef struct halvane_geocentric_sun {
    size_t size; ///< of this record
    halvane_sun_place geocentric;
} halvane_geocentric_sun;

/// The Moon from the Earth's centre.
typedef struct halvane_geocentric_moon {
    size_t size; ///< of this record
    halvane_moon_place geocentric;
} halvane_geocentric_moon;

/// The Sun from an observer's place.
typedef struct halvane_seen_sun {
    size_t size; ///< of this record
    halvane_sun_place geocentric;
    halvane_seen_place topocentric;
} halvane_seen_sun;

/// The Moon from an observer's place.
typedef struct halvane_seen_moon {
    size_t size; ///< of this record
    halvane_moon_place geocentric;
    halvane_seen_place topocentric;
    double parallax;     ///< horizontal                                                        [deg]
    double semidiameter; ///< topocentric                                                       [deg]
} halvane_seen_moon;

/// The geocentric place of the Sun.
/// In     accuracy  of ::halvane_accuracy, not ::HALVANE_FAST
/// Accuracy  of the complete series 1" (docs/accuracy.md).
/// Source  Bretagnon and Francou, Astronomy and Astrophysics 202, 309 (1988) (VSOP87); Meeus, Astronomical
///         Algorithms, 2nd ed. (1998).
/// Error  ::HALVANE_BAD_ARGUMENT for an instant outside the years of ::halvane_date.
HALVANE_EXPORT halvane_status halvane_sun(const halvane_engine* engine, halvane_instant instant, int accuracy,
                                          halvane_geocentric_sun* sun);

/// The geocentric place of the Moon.
/// In     accuracy  of ::halvane_accuracy, not ::HALVANE_FAST
/// Accuracy  of the complete series 10" (docs/accuracy.md).
/// Source  Chapront-Touze and Chapront, Lunar Tables and Programs from 4000 B.C. to A.D. 8000 (1991); Meeus,
///         Astronomical Algorithms, 2nd ed. (1998).
/// Error  ::HALVANE_BAD_ARGUMENT for an instant outside the years of ::halvane_date.
HALVANE_EXPORT halvane_status halvane_moon(const halvane_engine* engine, halvane_instant instant,
                                           int accuracy, halvane_geocentric_moon* moon);

/// The Sun from the Earth's centre and from an observer's place; sources and accuracy as of halvane_sun().
/// In     accuracy  of ::halvane_accuracy
/// Error  ::HALVANE_BAD_ARGUMENT for an instant or a place out of range.
HALVANE_EXPORT halvane_status halvane_sun_seen(const halvane_engine* engine, halvane_instant instant,
                                               halvane_observer observer, int accuracy,
                                               halvane_seen_sun* sun);

/// The Moon from the Earth's centre and from an observer's place; sources and accuracy as of halvane_moon().
/// In     accuracy  of ::halvane_accuracy
/// Error  ::HALVANE_BAD_ARGUMENT for an instant or a place out of range.
HALVANE_EXPORT halvane_status halvane_moon_seen(const halvane_engine* engine, halvane_instant instant,
                                                halvane_observer observer, int accuracy,
                                                halvane_seen_moon* moon);

/// halvane_sun() of many instants.
/// In     instants       null where there are none
///        instant_count  how many, and how many elements are written
/// Out    suns, count    an array; in the order of the instants
/// Error  as of halvane_sun(); ::HALVANE_TOO_SMALL.
HALVANE_EXPORT halvane_status halvane_suns(const halvane_engine* engine, const halvane_instant* instants,
                                           size_t instant_count, int accuracy, halvane_geocentric_sun* suns,
                                           size_t capacity, size_t element_size, size_t* count);

/// halvane_moon() of many instants.
/// In     instants       null where there are none
///        instant_count  how many, and how many elements are written
/// Out    moons, count   an array; in the order of the instants
/// Error  as of halvane_moon(); ::HALVANE_TOO_SMALL.
HALVANE_EXPORT halvane_status halvane_moons(const halvane_engine* engine, const halvane_instant* instants,
                                            size_t instant_count, int accuracy,
                                            halvane_geocentric_moon* moons, size_t capacity,
                                            size_t element_size, size_t* count);

/// halvane_sun_seen() of many instants.
/// In     instants       null where there are none
///        instant_count  how many, and how many elements are written
/// Out    suns, count    an array; in the order of the instants
/// Error  as of halvane_sun_seen(); ::HALVANE_TOO_SMALL.
HALVANE_EXPORT halvane_status halvane_suns_seen(const halvane_engine* engine, const halvane_instant* instants,
                                                size_t instant_count, halvane_observer observer, int accuracy,
                                                halvane_seen_sun* suns, size_t capacity, size_t element_size,
                                                size_t* count);

/// halvane_moon_seen() of many instants.
/// In     instants       null where there are none
///        instant_count  how many, and how many elements are written
/// Out    moons, count   an array; in the order of the instants
/// Error  as of halvane_moon_seen(); ::HALVANE_TOO_SMALL.
HALVANE_EXPORT halvane_status halvane_moons_seen(const halvane_engine* engine,
                                                 const halvane_instant* instants, size_t instant_count,
                                                 halvane_observer observer, int accuracy,
                                                 halvane_seen_moon* moons, size_t capacity,
                                                 size_t element_size, size_t* count);

/// How the Sun lights the Moon's disc.
typedef struct halvane_light {
    size_t size;        ///< of this record
    double elongation;  ///< of the Moon from the Sun, 0 to 180                                 [deg]
    double phase_angle; ///< 0 full, 180 new                                                    [deg]
    double fraction;    ///< of the disc that is lit, 0 to 1
} halvane_light;

/// How the Sun lights the Moon's disc, seen from the Earth's centre.
/// Error  ::HALVANE_BAD_ARGUMENT for an instant outside the years of ::halvane_date.
HALVANE_EXPORT halvane_status halvane_moon_light(const halvane_engine* engine, halvane_instant instant,
                                                 halvane_light* light);

/// The altitude that a body without air would have, raised by refraction in standard air      [deg]
/// In     altitude  airless, -4 to 90                                                          [deg]
/// Source  Bennett, Journal of Navigation 35, 255 (1982).
/// Error  ::HALVANE_BAD_ARGUMENT out of range.
HALVANE_EXPORT halvane_status halvane_refracted(double altitude, double* seen_altitude);

// Events

/// A day of the Sun or the Moon on a place's clock.
typedef struct halvane_body_day {
    size_t size;                ///< of this record
    halvane_clock_time rise;    ///< of the upper limb
    halvane_clock_time transit; ///< above the horizon
    halvane_clock_time set;     ///< of the upper limb
} halvane_body_day;

/// The Sun's rise, transit and set on a civil date of a clock.
/// In     horizon  null: halvane_standard_horizon()
/// Accuracy  5 s at latitudes up to 60 deg (docs/accuracy.md).
/// Error  ::HALVANE_BAD_ARGUMENT for a date, a place or a horizon out of range.
HALVANE_EXPORT halvane_status halvane_sun_day(const halvane_engine* engine, halvane_date date,
                                              halvane_observer observer, const halvane_clock* clock,
                                              const halvane_horizon* horizon, halvane_body_day* day);

/// The Moon's rise, transit and set on a civil date of a clock.
/// In     horizon  null: halvane_standard_horizon()
/// Accuracy  20 s at latitudes up to 60 deg (docs/accuracy.md).
/// Error  ::HALVANE_BAD_ARGUMENT for a date, a place or a horizon out of range.
HALVANE_EXPORT halvane_status halvane_moon_day(const halvane_engine* engine, halvane_date date,
                                               halvane_observer observer, const halvane_clock* clock,
                                               const halvane_horizon* horizon, halvane_body_day* day);

/// Dawn and dusk.
typedef struct halvane_twilight_times {
    size_t size; ///< of this record
    halvane_clock_time morning;
    halvane_clock_time evening;
} halvane_twilight_times;

/// The moments of a civil date at which the Sun's centre stands at a depression.
/// In     depression  below the horizon, airless, 0 to 90                                      [deg]
///        horizon     null: halvane_standard_horizon()
/// Error  ::HALVANE_BAD_ARGUMENT for a depression, a date, a place or a horizon out of range.
HALVANE_EXPORT halvane_status halvane_twilight(const halvane_engine* engine, halvane_date date,
                                               halvane_observer observer, const halvane_clock* clock,
                                               double depression, const halvane_horizon* horizon,
                                               halvane_twilight_times* times);

/// A moment at which a body's centre passes an altitude.
typedef struct halvane_altitude_passage {
    size_t size;             ///< of this record
    halvane_instant instant; ///< UT1
    int rising;
} halvane_altitude_passage;

/// Every passage between two moments, in their order.
/// In     body      of ::halvane_body
///        altitude  topocentric, airless, -90 to 90                                            [deg]
///        from, to  at most 400 days apart
/// Out    passages, count  an array; a day has 2 at most, but for a grazing one
/// Accuracy  1 s where the body crosses the altitude by more than 1 deg an hour; two passages less than
///           ten minutes apart may be missed.
/// Error  ::HALVANE_BAD_ARGUMENT for what is out of range; ::HALVANE_TOO_SMALL.
HALVANE_EXPORT halvane_status halvane_altitude_passages(const halvane_engine* engine, int body,
                                                        double altitude, halvane_instant from,
                                                        halvane_instant to, halvane_observer observer,
                                                        halvane_altitude_passage* passages, size_t capacity,
                                                        size_t element_size, size_t* count);

/// The four phases of the Moon.
enum halvane_phase {
    HALVANE_NEW_MOON = 0,
    HALVANE_FIRST_QUARTER = 1,
    HALVANE_FULL_MOON = 2,
    HALVANE_LAST_QUARTER = 3
};

/// A phase of the Moon.
typedef struct halvane_phase_moment {
    size_t size;             ///< of this record
    int phase;               ///< of ::halvane_phase
    int lunation;            ///< counted from the New Moon of 2000 January 6
    halvane_instant instant; ///< dynamical time
} halvane_phase_moment;

/// The phases between two moments, in their order; of the years of ::halvane_date, at most 400 years at once.
/// In     observer  of topocentric longitudes; null: geocentric ones
/// Out    moments, count  an array; a year has 49 to 51
/// Accuracy  1 min with all of Delta T's doubt aside; docs/accuracy.md.
/// Error  ::HALVANE_BAD_ARGUMENT for what is out of range; ::HALVANE_TOO_SMALL.
HALVANE_EXPORT halvane_status halvane_moon_phases(const halvane_engine* engine, halvane_instant from,
                                                  halvane_instant to, const halvane_observer* observer,
                                                  halvane_phase_moment* moments, size_t capacity,
                                                  size_t element_size, size_t* count);

/// The conjunction of the Moon with the Sun in longitude nearest to a moment.
/// In     observer  of topocentric longitudes; null: geocentric ones
/// Out    instant   dynamical time
/// Error  ::HALVANE_BAD_ARGUMENT for what is out of range.
HALVANE_EXPORT halvane_status halvane_conjunction(const halvane_engine* engine, halvane_instant near_moment,
                                                  const halvane_observer* observer, halvane_instant* instant);

// Qiblah

/// Direction of the Kaaba: the initial bearing of the great circle, from true north through east, 0 to 360
/// [deg]
/// In     latitude, longitude  north and east positive                                         [deg]
/// Error  ::HALVANE_BAD_ARGUMENT out of range; ::HALVANE_NO_VALUE at the Kaaba itself.
HALVANE_EXPORT halvane_status halvane_qiblah_direction(double latitude, double longitude, double* direction);

/// The moments of a date at which the Sun stands in a direction.
typedef struct halvane_direction_moments {
    size_t size; ///< of this record
    halvane_clock_time first;
    halvane_clock_time second;
    int first_below_horizon; ///< the Sun stands there unseen
    int second_below_horizon;
} halvane_direction_moments;

/// When the Sun, or the shadow that it casts, lies in a direction on a civil date of a clock.
/// In     azimuth  from true north through east, 0 to 360                                      [deg]
///        shadow   whether the shadow and not the Sun is meant
///        horizon  null: halvane_standard_horizon()
/// Accuracy  azimuth of the Sun within 0.05 deg of the target unless it passes close to the zenith.
/// Error  ::HALVANE_BAD_ARGUMENT for what is out of range.
HALVANE_EXPORT halvane_status halvane_sun_in_direction(const halvane_engine* engine, halvane_date date,
                                                       halvane_observer observer, const halvane_clock* clock,
                                                       double azimuth, int shadow,
                                                       const halvane_horizon* horizon,
                                                       halvane_direction_moments* moments);

// Prayer times

/// The six times of a day, in their order.
enum halvane_prayer {
    HALVANE_FAJER = 0,
    HALVANE_SHUROQ = 1,
    HALVANE_DHOHUR = 2,
    HALVANE_ASER = 3,
    HALVANE_MAGHREB = 4,
    HALVANE_ISHA = 5,
    HALVANE_PRAYERS = 6 ///< how many
};

/// What Halvane's prayer report is made by. Minutes may be negative.
typedef struct halvane_report_rules {
    size_t size;          ///< of this record
    double fajer_angle;   ///< depression of the Sun, 0 to 90                                   [deg]
    double isha_angle;    ///< depression of the Sun, 0 to 90                                   [deg]
    int hanafi;           ///< Aser when a shadow has grown by two lengths, not one
    double fajer_earlier; ///< safety margin before Fajer                                       [min]
    double dhohur_later;  ///< safety margin after Dhohur                                       [min]
    double aser_later;    ///< [min]
    double maghreb_later; ///< [min]
    double city;          ///< how far east the observer is taken to stand for Fajer and Shuroq [km]
    halvane_horizon horizon;
    int high_latitude; ///< Fajer and Isha as parts of the night where the twilight does not end, above 48.5
                       ///< to 65 deg north
} halvane_report_rules;

/// Both angles 18 deg, no margins, the standard horizon.
/// Error  ::HALVANE_BAD_ARGUMENT for a size that is too small.
HALVANE_EXPORT halvane_status halvane_default_report_rules(halvane_report_rules* rules);

/// The six times of a civil date, as calculated, before any rounding. Dhohur may lie outside 0 to 24 h: it is
/// another date's then.
typedef struct halvane_prayer_day {
    size_t size;                               ///< of this record
    halvane_clock_time times[HALVANE_PRAYERS]; ///< by ::halvane_prayer
} halvane_prayer_day;

/// The six prayer times of a civil date of a clock.
/// In     rules  null: halvane_default_report_rules()
/// Error  ::HALVANE_BAD_ARGUMENT for what is out of range; ::HALVANE_NO_VALUE where the method of high
///        latitudes does not reach.
HALVANE_EXPORT halvane_status halvane_prayer_times(const halvane_engine* engine, halvane_date date,
                                                   halvane_observer observer, const halvane_clock* clock,
                                                   const halvane_report_rules* rules,
                                                   halvane_prayer_day* day);

/// How a clock is brought to its minute (or second).
enum halvane_rounding { HALVANE_ROUND_NEAREST = 0, HALVANE_ROUND_UP = 1, HALVANE_ROUND_DOWN = 2 };

/// What gives a Fajer or an Isha where the Sun's depression gives none.
enum halvane_high_latitude_rule {
    HALVANE_RULE_NONE = 0,
    HALVANE_RULE_MIDDLE = 1,           ///< the middle of the night
    HALVANE_RULE_SEVENTH = 2,          ///< the last and the first seventh of the night
    HALVANE_RULE_ANGLE = 3,            ///< the part of the night that the angle is of 60 deg
    HALVANE_RULE_NEAREST_LATITUDE = 4, ///< the clock of a lower latitude
    HALVANE_RULE_SHARE = 5,            ///< the share of the night at a lower latitude
    HALVANE_RULE_YEAR = 6 ///< parts of the night, smoothed over the whole year; above 48.5 to 65 deg north
};

/// When a rule of high latitudes speaks.
enum halvane_rule_use {
    HALVANE_USE_MISSING = 0, ///< when the angle gives no time
    HALVANE_USE_BEYOND = 1,  ///< also when it gives a Fajer before, or an Isha after, the rule's
    HALVANE_USE_ALWAYS = 2
};

/// When a prayer is begun together.
enum halvane_iqamah_kind {
    HALVANE_IQAMAH_NONE = 0,
    HALVANE_IQAMAH_FIXED = 1, ///< at a clock
    HALVANE_IQAMAH_AFTER = 2  ///< after the prayer's time
};

/// When a prayer is begun together.
typedef struct halvane_iqamah {
    int kind;       ///< of ::halvane_iqamah_kind
    int minutes;    ///< of the day (fixed, 0 to 1439), or after the prayer's time (0 to 240)   [min]
    int up_to_five; ///< brought up to full five minutes
} halvane_iqamah;

/// How many clocks of Jumuah a day has at most.
enum halvane_jumuah { HALVANE_JUMUAH = 3 };

/// The rules of a timetable.
typedef struct halvane_timetable_rules {
    size_t size;                   ///< of this record
    double fajer_angle;            ///< depression of the Sun, 1 to 30                 [deg]
    double isha_angle;             ///< the same; not looked at where `isha_minutes` is given [deg]
    double isha_minutes;           ///< after Maghreb, 0 to 360; 0: by the angle       [min]
    double isha_minutes_ramadan;   ///< in its place in Ramadan; 0: as on other days   [min]
    double maghreb_angle;          ///< depression of the Sun, 0 to 30; 0: sunset      [deg]
    int hanafi;                    ///< the Hanafi shadow at Aser
    int height_counts;             ///< whether the observer's height lowers the horizon
    double added[HALVANE_PRAYERS]; ///< to each before it is rounded, -120 to 120      [min]
    int rounding[HALVANE_PRAYERS]; ///< of ::halvane_rounding
    int high_latitude;             ///< of ::halvane_high_latitude_rule
    int rule_use;                  ///< of ::halvane_rule_use
    double reference_latitude;     ///< of the two latitude rules, 0 to 65; 0: each rule's own [deg]
    int night_until_fajer;         ///< its middle and last third are of sunset to Fajer, not to sunrise
    double imsak_minutes;          ///< before Fajer, 0 to 120                         [min]
    int seconds;                   ///< clocks are to the second, not to the minute
    halvane_iqamah iqamah[HALVANE_PRAYERS]; ///< that of Shuroq has no meaning
    int jumuah[HALVANE_JUMUAH];             ///< minutes of the day, rising                     [min]
    size_t jumuah_count;                    ///< 0 to ::HALVANE_JUMUAH
} halvane_timetable_rules;

/// Fajer at 18 deg, Isha at 17 deg, to the nearest minute, imsak 10 minutes before Fajer.
/// Error  ::HALVANE_BAD_ARGUMENT for a size that is too small.
HALVANE_EXPORT halvane_status halvane_default_timetable_rules(halvane_timetable_rules* rules);

/// An authority that publishes rules of prayer times.
typedef struct halvane_authority {
    size_t size;     ///< of this record
    const char* key; ///< "umm-al-qura"
    const char* name;
    const char* arabic_name;
    const char* region;
    const char* source; ///< where its rules are told
} halvane_authority;

/// How many authorities there are; 0 where the system gives no memory for them.
HALVANE_EXPORT size_t halvane_authority_count(void);

/// An authority.
/// In     index  from 0 on
/// Out    authority  its texts are the library's
/// Error  ::HALVANE_BAD_ARGUMENT for an index that there is none of.
HALVANE_EXPORT halvane_status halvane_authority_at(size_t index, halvane_authority* authority);

/// The rules of an authority.
/// Error  ::HALVANE_BAD_ARGUMENT for a key that there is none of, naming every known one.
HALVANE_EXPORT halvane_status halvane_rules_of_authority(const char* key, halvane_timetable_rules* rules);

/// What made a time of a timetable.
enum halvane_time_source {
    HALVANE_BY_SKY = 0,      ///< the Sun: its depression, its transit, its rise or set, a shadow
    HALVANE_BY_INTERVAL = 1, ///< minutes after Maghreb
    HALVANE_BY_MIDDLE = 2,   ///< from here on ::halvane_high_latitude_rule
    HALVANE_BY_SEVENTH = 3,
    HALVANE_BY_ANGLE = 4,
    HALVANE_BY_NEAREST_LATITUDE = 5,
    HALVANE_BY_SHARE = 6,
    HALVANE_BY_YEAR = 7
};

/// A clock of a timetable, or why there is none.
typedef struct halvane_timetable_time {
    int missing;          ///< of ::halvane_missing
    int source;           ///< of ::halvane_time_source
    int day;              ///< days after the row's date: mostly 0, 1 past midnight, -1 before it
    int seconds;          ///< of that day, 0 to 86399                                          [s]
    int offset;           ///< of the clock from Universal Time then                            [s]
    int64_t unix_seconds; ///< the same moment, since 1970 January 1, 0 h Universal Time        [s]
} halvane_timetable_time;

/// A day of a timetable.
typedef struct halvane_timetable_day {
    size_t size; ///< of this record
    halvane_date date;
    halvane_hijri_date hijri;                      ///< of the tabular calendar
    int weekday;                                   ///< 0 Sunday to 6 Saturday
    halvane_timetable_time times[HALVANE_PRAYERS]; ///< by ::halvane_prayer
    halvane_timetable_time aser_standard;
    halvane_timetable_time aser_hanafi;
    halvane_timetable_time imsak;
    halvane_timetable_time midnight;
    halvane_timetable_time last_third;
    halvane_timetable_time iqamah[HALVANE_PRAYERS];
    halvane_timetable_time jumuah[HALVANE_JUMUAH]; ///< on Fridays
    size_t jumuah_count;
    int offset;        ///< of the clock from Universal Time at its noon                        [s]
    int clock_changes; ///< within the day
} halvane_timetable_day;

/// The rows from one date to another, both inside, 36600 at most. Each time is found in its own night,
/// whatever the clock does at midnight or on the days of its change.
/// In     rules     null: halvane_default_timetable_rules()
///        progress  null: nobody is asked; with its `context`
/// Out    days, count  an array, a day an element
/// Error  ::HALVANE_BAD_ARGUMENT for rules, a place or dates out of range; ::HALVANE_TOO_SMALL, told before
/// any
///        work; ::HALVANE_NO_VALUE where the year method does not reach; ::HALVANE_CANCELLED.
HALVANE_EXPORT halvane_status halvane_timetable(
    const halvane_engine* engine, halvane_date first, halvane_date last, halvane_observer observer,
    const halvane_clock* clock, const halvane_timetable_rules* rules, halvane_progress progress,
    void* context, halvane_timetable_day* days, size_t capacity, size_t element_size, size_t* count);

/// A place of a list of timetables.
typedef struct halvane_timetable_place {
    halvane_observer observer;
    const halvane_clock* clock; ///< the caller's
} halvane_timetable_place;

/// The timetables of many places, in their order, by one thread: the dates of a year share the Sun.
/// In     places       null where there are none
///        place_count  how many
///        rules        null: halvane_default_timetable_rules()
///        progress     null: nobody is asked; with its `context`
/// Out    days, count  an array: every day of the first place, then every one of the second ...
/// Error  as of halvane_timetable().
HALVANE_EXPORT halvane_status halvane_timetables(const halvane_engine* engine, halvane_date first,
                                                 halvane_date last, const halvane_timetable_place* places,
                                                 size_t place_count, const halvane_timetable_rules* rules,
                                                 halvane_progress progress, void* context,
                                                 halvane_timetable_day* days, size_t capacity,
                                                 size_t element_size, size_t* count);

// Crescents

/// The evening of a new crescent, after the conjunction, or the morning of an old one, before it.
enum halvane_crescent_kind { HALVANE_NEW_CRESCENT = 0, HALVANE_OLD_CRESCENT = 1 };

/// Where Sun and Moon stand and what the Moon shows at one instant; airless.
typedef struct halvane_crescent_quantities {
    double moon_altitude;        ///< [deg]
    double moon_azimuth;         ///< [deg]
    double sun_altitude;         ///< [deg]
    double sun_azimuth;          ///< [deg]
    double elongation;           ///< [deg]
    double phase_angle;          ///< [deg]
    double illuminated_fraction; ///< 0 to 1
    double semidiameter;         ///< of the Moon                                               [deg]
    double width;                ///< of the crescent at its middle                             [deg]
} halvane_crescent_quantities;

/// The sky of one instant.
typedef struct halvane_crescent_sky {
    halvane_instant instant; ///< UT1
    halvane_crescent_quantities
        geocentric; ///< directions from the Earth's centre, against the observer's horizon
    halvane_crescent_quantities topocentric; ///< directions from the observer's place
    double parallax;                         ///< of the Moon, horizontal                       [deg]
} halvane_crescent_sky;

/// What the criteria of crescent visibility judge.
typedef struct halvane_crescent_evening {
    int kind;                    ///< of ::halvane_crescent_kind
    halvane_instant conjunction; ///< geocentric, in longitude; UT1
    halvane_instant sun_event;   ///< sunset or sunrise; UT1
    halvane_instant moon_event;  ///< moonset or moonrise; UT1
    double lag; ///< from the Sun's event to the Moon's, or from the Moon's to the Sun's [min]
    double age; ///< from the conjunction to the Sun's event, or from that to it         [h]
    halvane_crescent_sky at_sun_event;
    halvane_crescent_sky at_best_time; ///< four ninths of the lag from the Sun's event (Yallop 1997)
} halvane_crescent_evening;

/// A class of a criterion: the values of its measure from the border up to the next class.
typedef struct halvane_criterion_class {
    double border; ///< minus infinity of the lowest
    const char* words;
    const char* arabic_words;
} halvane_criterion_class;

/// A criterion of crescent visibility.
typedef struct halvane_criterion {
    size_t size;     ///< of this record
    const char* key; ///< "yallop-1997"
    const char* name;
    const char* arabic_name;
    const char* source;
    const char* measure; ///< what its number is
    const char* unit;    ///< of the number; empty for a mere one
    int of_mornings;
    int has_place;                          ///< it judges by one place alone, whatever the observer's own
    halvane_observer place;                 ///< that one
    const halvane_criterion_class* classes; ///< the lowest first
    size_t class_count;
    size_t by_eye; ///< the lowest class that the eye sees
} halvane_criterion;

/// How many criteria there are; 0 where the system gives no memory for them.
HALVANE_EXPORT size_t halvane_criterion_count(void);

/// A criterion, in the order of Halvane's lists.
/// In     index  from 0 on
/// Out    criterion  its texts and classes are the library's
/// Error  ::HALVANE_BAD_ARGUMENT for an index that there is none of.
HALVANE_EXPORT halvane_status halvane_criterion_at(size_t index, halvane_criterion* criterion);

/// What the user may set of the criteria "danjon" and "user". A limit that is not a number does not count.
typedef struct halvane_criterion_limits {
    size_t size;              ///< of this record
    double danjon_elongation; ///< least topocentric elongation                                 [deg]
    double least_lag;         ///< [min]
    double least_altitude;    ///< topocentric, at the Sun's event                              [deg]
    double least_elongation;  ///< geocentric, at the Sun's event                               [deg]
    double least_age;         ///< at the Sun's event                                           [h]
} halvane_criterion_limits;

/// 7 deg of Danjon; 0 min, 5 deg, 8 deg, 0 h of the user.
/// Error  ::HALVANE_BAD_ARGUMENT for a size that is too small.
HALVANE_EXPORT halvane_status halvane_default_criterion_limits(halvane_criterion_limits* limits);

/// What a criterion says of an evening or a morning.
typedef struct halvane_verdict {
    size_t size;           ///< of this record
    const char* criterion; ///< its key, the library's
    double value;          ///< of its measure; not a number where the criterion has no answer
    int band;              ///< index of its classes; -1 where the criterion has no answer
} halvane_verdict;

/// Whether a crescent can be looked for on a date at a place.
typedef struct halvane_crescent_answer {
    size_t size;                      ///< of this record
    int has_crescent;                 ///< the Moon outlasts the Sun on the right side of the conjunction
    int has_evening;                  ///< the Sun and the Moon have an event
    halvane_crescent_evening evening; ///< zeros without one
} halvane_crescent_answer;

/// The crescent of a civil date of a place's clock, of the conjunction nearest to it, and what each criterion
/// says of it. The horizon is that of the sea in standard air.
/// In     kind    of ::halvane_crescent_kind
///        limits  null: halvane_default_criterion_limits()
/// Out    verdicts, count  an array, halvane_criterion_count() elements at most
/// Error  ::HALVANE_BAD_ARGUMENT for a date, a place or limits out of range; ::HALVANE_TOO_SMALL.
HALVANE_EXPORT halvane_status halvane_crescent(const halvane_engine* engine, int kind, halvane_date date,
                                               halvane_observer observer, const halvane_clock* clock,
                                               const halvane_criterion_limits* limits,
                                               halvane_crescent_answer* answer, halvane_verdict* verdicts,
                                               size_t capacity, size_t element_size, size_t* count);

/// When the crescent report looks.
enum halvane_observation_time {
    HALVANE_AT_SUN_EVENT = 0,
    HALVANE_AT_MOON_EVENT = 1,
    HALVANE_AT_BEST_TIME = 2,
    HALVANE_AT_GIVEN_TIME = 3
};

/// What Halvane's crescent report is made by.
typedef struct halvane_circumstance_choices {
    size_t size;        ///< of this record
    int kind;           ///< of ::halvane_crescent_kind
    int geocentric;     ///< conjunction and quantities
    int days;           ///< after the conjunction's date, or before it for an old crescent: 0, 1, 2
    int time;           ///< of ::halvane_observation_time
    double given_hours; ///< on the clock, with ::HALVANE_AT_GIVEN_TIME, 0 to 24                [h]
    halvane_horizon horizon;
} halvane_circumstance_choices;

/// A new crescent, topocentric, one day after the conjunction's date, at Best Time, the standard horizon.
/// Error  ::HALVANE_BAD_ARGUMENT for a size that is too small.
HALVANE_EXPORT halvane_status halvane_default_circumstance_choices(halvane_circumstance_choices* choices);

/// A crescent as the report tells it.
typedef struct halvane_circumstances {
    size_t size;                 ///< of this record
    halvane_instant conjunction; ///< UT1
    halvane_date date;           ///< on the clock
    halvane_hijri_date hijri;    ///< a day of the month that it begins or ends, tabular
    double sun_event;            ///< [h of the clock]
    double moon_event;           ///< [h of the clock]
    double lag;                  ///< [h]
    halvane_instant observed;    ///< UT1
    double moon_age;             ///< from the conjunction                                      [d]
    halvane_sun_place sun_geocentric;
    halvane_seen_place sun_topocentric;
    halvane_moon_place moon_geocentric;
    halvane_seen_place moon_topocentric;
    double moon_parallax;     ///< horizontal                                                   [deg]
    double moon_semidiameter; ///< topocentric                                                  [deg]
    halvane_crescent_quantities quantities;
    double arcv;  ///< at Best Time: relative altitude                                          [deg]
    double width; ///< at Best Time                                                             [arcmin]
    double q;     ///< at Best Time: the report's criterion
} halvane_circumstances;

/// The crescent around the conjunction nearest to a date.
/// In     clock_hours  of a fixed clock from Universal Time, -24 to 24                         [h]
///        choices      null: halvane_default_circumstance_choices()
/// Error  ::HALVANE_BAD_ARGUMENT for what is out of range; ::HALVANE_NO_VALUE where the Sun or the Moon has
/// no
///        event on the chosen day.
HALVANE_EXPORT halvane_status halvane_crescent_circumstances(const halvane_engine* engine,
                                                             halvane_date near_date,
                                                             halvane_observer observer, double clock_hours,
                                                             const halvane_circumstance_choices* choices,
                                                             halvane_circumstances* circumstances);

/// What a map grid is made of.
typedef struct halvane_map_choices {
    size_t size;                            ///< of this record
    int kind;                               ///< of ::halvane_crescent_kind
    halvane_date date;                      ///< of every place
    const char* criterion;                  ///< key
    const halvane_criterion_limits* limits; ///< null: halvane_default_criterion_limits()
    double west;                            ///< -180 to below 180                              [deg]
    double south;                           ///< -85 to 85                                      [deg]
    double east;  ///< above west, by 360 at most; beyond 180 across the date line [deg]
    double north; ///< above south                                    [deg]
    double step;  ///< 0.05 to 30                                     [deg]
} halvane_map_choices;

/// A new crescent of 1 January 2000, "yallop-1997", the whole Earth from -60 to 60 deg in steps of 1 deg.
/// Error  ::HALVANE_BAD_ARGUMENT for a size that is too small.
HALVANE_EXPORT halvane_status halvane_default_map_choices(halvane_map_choices* choices);

/// What a place of a map is: an index of the criterion's classes, or one of these.
enum halvane_map_class {
    HALVANE_MAP_CONJUNCTION_TO_COME = 6,
    HALVANE_MAP_MOON_GOES_FIRST = 7,
    HALVANE_MAP_NO_ANSWER = 8,
    HALVANE_MAP_NO_EVENT = 9
};

/// The grids of a map: one, or two beside each other at the date line.
typedef struct halvane_map halvane_map;

/// The places of a map on one side of the date line, row by row from the south-west on: `columns` times
/// `rows` numbers in each array, which are the map's. Numbers are not a number where there are none.
typedef struct halvane_map_grid {
    size_t size;  ///< of this record
    double west;  ///< of the first column, in the window's longitudes                          [deg]
    double south; ///< of the first row                                                         [deg]
    double step;  ///< [deg]
    size_t columns;
    size_t rows;
    const double* value;      ///< of the criterion's measure
    const uint8_t* map_class; ///< of ::halvane_map_class, or an index of the criterion's classes
    const float* lag;         ///< [min]
    const float* age;         ///< at the Sun's event                                           [h]
    const float* altitude;    ///< of the Moon at the Sun's event, topocentric, airless         [deg]
    const float* elongation;  ///< at the Sun's event, topocentric                              [deg]
} halvane_map_grid;

/// Judges every place of a map, on one core; call it from several threads for several maps.
/// In     choices   null: halvane_default_map_choices()
///        progress  null: nobody is asked; with its `context`
/// Out    map       the caller's, to be freed by halvane_map_free()
/// Error  ::HALVANE_BAD_ARGUMENT for choices out of range, for a criterion that judges by one place or not of
///        mornings; ::HALVANE_CANCELLED.
HALVANE_EXPORT halvane_status halvane_crescent_map(const halvane_engine* engine,
                                                   const halvane_map_choices* choices,
                                                   halvane_progress progress, void* context,
                                                   halvane_map** map);

/// How many grids a map has; 0 of null.
HALVANE_EXPORT size_t halvane_map_grid_count(const halvane_map* map);

/// A grid of a map.
/// In     index  from 0 on, from west to east
/// Out    grid   its arrays stand as long as the map
/// Error  ::HALVANE_BAD_ARGUMENT for an index that there is none of.
HALVANE_EXPORT halvane_status halvane_map_grid_at(const halvane_map* map, size_t index,
                                                  halvane_map_grid* grid);

/// Frees a map with its arrays; null is none.
HALVANE_EXPORT void halvane_map_free(halvane_map* map);

// Hijri dates

/// The Hijri date of a civil one by the tabular calendar: cycles of 30 years from 16 July 622 (Julian), as
/// Halvane's reports reckon.
/// Error  ::HALVANE_BAD_ARGUMENT for a date before the calendar, or one that the civil one has not.
HALVANE_EXPORT halvane_status halvane_tabular_hijri(halvane_date date, halvane_hijri_date* hijri);

/// The civil date of a Hijri one by the tabular calendar.
/// Error  ::HALVANE_BAD_ARGUMENT for a date that the calendar has not.
HALVANE_EXPORT halvane_status halvane_tabular_civil(halvane_hijri_date hijri, halvane_date* date);

/// What decides when a month begins.
typedef struct halvane_hijri_rule {
    size_t size;     ///< of this record
    const char* key; ///< "umm-al-qura"
    const char* name;
    const char* arabic_name;
    const char* told; ///< the rule in a sentence or two
    const char* source;
    int asks_place;
    int asks_criterion;
    int asks_region;
} halvane_hijri_rule;

/// How many rules there are; 0 where the system gives no memory for them.
HALVANE_EXPORT size_t halvane_hijri_rule_count(void);

/// A rule of Hijri months.
/// In     index  from 0 on
/// Out    rule   its texts are the library's
/// Error  ::HALVANE_BAD_ARGUMENT for an index that there is none of.
HALVANE_EXPORT halvane_status halvane_hijri_rule_at(size_t index, halvane_hijri_rule* rule);

/// Until when a crescent that is seen anywhere counts.
enum halvane_seen_before {
    HALVANE_SEEN_AT_ANY_TIME = 0,
    HALVANE_SEEN_BEFORE_MIDNIGHT = 1, ///< 24 h Universal Time of the evening's date
    HALVANE_SEEN_BEFORE_FAJER = 2     ///< Fajer of the next day at the place
};

/// The first day of a month as somebody announced it.
typedef struct halvane_announced_start {
    int year;
    int month; ///< 1 to 12
    halvane_date first_day;
    const char* announced_by; ///< null for nobody's name
} halvane_announced_start;

/// A rule with what it asks for; what it does not ask for is not looked at.
typedef struct halvane_hijri_choices {
    size_t size;      ///< of this record
    const char* rule; ///< key
    halvane_observer place;
    const halvane_clock* clock; ///< of the place, by which its dates are counted; null: Universal Time
    const char* criterion;      ///< key
    int seen_class;             ///< the lowest class that counts as seen; -1: the criterion's `by_eye`
    const halvane_criterion_limits* limits;   ///< null: halvane_default_criterion_limits()
    double west;                              ///< where a crescent counts                        [deg]
    double south;                             ///< [deg]
    double east;                              ///< [deg]
    double north;                             ///< [deg]
    int before;                               ///< of ::halvane_seen_before
    const halvane_announced_start* announced; ///< in the order of their months; null where there are none
    size_t announced_count;
} halvane_hijri_choices;

/// "umm-al-qura"; with other rules "yallop-1997" between -60 and 60 deg at any time.
/// Error  ::HALVANE_BAD_ARGUMENT for a size that is too small.
HALVANE_EXPORT halvane_status halvane_default_hijri_choices(halvane_hijri_choices* choices);

/// What is told of a month, added up.
enum halvane_hijri_note {
    HALVANE_HIJRI_ANNOUNCED = 1,      ///< its start is an announced one
    HALVANE_HIJRI_MADE_TO_FIT = 2,    ///< its start is not the rule's: months have 29 or 30 days
    HALVANE_HIJRI_COMPLETED = 4,      ///< the month before has 30 days without a crescent after them
    HALVANE_HIJRI_SEEN_ON_28TH = 8,   ///< the month before has 28 days
    HALVANE_HIJRI_RULE_DOUBTFUL = 16, ///< by which rule these years were made is not known
    HALVANE_HIJRI_UNDECIDED = 32      ///< no evening that was asked showed a crescent
};

/// A Hijri month by a rule.
typedef struct halvane_hijri_month {
    size_t size; ///< of this record
    int year;
    int month; ///< 1 to 12
    halvane_date first_day;
    int days;
    unsigned notes; ///< of ::halvane_hijri_note, added up
    int may_differ; ///< the margin is less than the theory's own error
    double margin;  ///< on the evening that decided: positive met; not a number without one [margin_unit]
    char margin_unit[16]; ///< "s", "deg" ...; empty for a mere number
    int announced;        ///< index of the choices' announced start that it begins by; -1 for none
} halvane_hijri_month;

/// The months from one to another by a rule, both inside, without a gap.
/// In     choices                  null: halvane_default_hijri_choices()
///        first_year, last_year    1 to 9600, 2000 years at most at once
///        first_month, last_month  1 to 12
///        progress                 null: nobody is asked; with its `context`
/// Out    months, count            an array, a month an element
/// Accuracy  docs/accuracy.md compares them with published calendars.
/// Error  ::HALVANE_BAD_ARGUMENT; ::HALVANE_TOO_SMALL, told before any work; ::HALVANE_MISSING_FILE for a
/// rule
///        that asks for the Americas of an engine without `world.txt`; ::HALVANE_CANCELLED.
HALVANE_EXPORT halvane_status halvane_hijri_months(const halvane_engine* engine,
                                                   const halvane_hijri_choices* choices, int first_year,
                                                   int first_month, int last_year, int last_month,
                                                   halvane_progress progress, void* context,
                                                   halvane_hijri_month* months, size_t capacity,
                                                   size_t element_size, size_t* count);

/// The Hijri date of a civil date by a rule.
/// In     choices  null: halvane_default_hijri_choices()
/// Error  as of halvane_hijri_months(); ::HALVANE_NO_VALUE for a day that the months of the rule do not hold.
HALVANE_EXPORT halvane_status halvane_hijri_by_rule(const halvane_engine* engine,
                                                    const halvane_hijri_choices* choices, halvane_date date,
                                                    halvane_hijri_date* hijri);

/// The civil date of a Hijri date by a rule.
/// In     choices  null: halvane_default_hijri_choices()
/// Error  as of halvane_hijri_months(); ::HALVANE_BAD_ARGUMENT for a day that the month has not by the rule.
HALVANE_EXPORT halvane_status halvane_civil_by_rule(const halvane_engine* engine,
                                                    const halvane_hijri_choices* choices,
                                                    halvane_hijri_date hijri, halvane_date* date);

#ifdef __cplusplus
}
#endif
