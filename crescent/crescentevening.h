// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/taggedtime.h"
#include "crescent/quantities.h"
#include "crescent/skyplaces.h"
#include "stored/visib.h"

#include <functional>
#include <optional>

namespace halvane {

/// Sun and Moon at one instant, from the Earth's centre and from the observer's place; airless.
struct CrescentSky {
    double universal = 0;           ///< Julian day, UT1                                        [d]
    CrescentQuantities geocentric;  ///< directions from the Earth's centre, against the observer's horizon
    CrescentQuantities topocentric; ///< directions from the observer's place
    double parallax = 0;            ///< of the Moon, horizontal                                [deg]
};

/// What the criteria of crescent visibility judge: the evening of a new crescent or the morning of an old
/// one, at one place.
struct CrescentEvening {
    CrescentKind kind = CrescentKind::new_crescent;
    double day = 0;         ///< 0 h of the civil date, without a zone                          [d]
    double conjunction = 0; ///< geocentric, in longitude; Julian day, UT1                      [d]
    double sun_event = 0;   ///< sunset or sunrise; Julian day, UT1                             [d]
    double moon_event = 0;  ///< moonset or moonrise; Julian day, UT1                           [d]
    CrescentSky at_sun_event;
    CrescentSky at_best_time;

    /// From the Sun's setting to the Moon's, or from the Moon's rising to the Sun's             [min]
    double lag() const;
    /// From the conjunction to a Julian day in UT1, or from that to it in a morning             [h]
    double age(double universal) const;
};

/// The geocentric conjunction in longitude nearest to a Julian day, both UT1                      [d]
double geocentric_conjunction(Ephemeris& ephemeris, double universal);

/// A rise or a set, or why there is none.
struct CrescentEvent {
    std::optional<double> universal; ///< Julian day, UT1                                         [d]
    NoEvent missing = NoEvent::none; ///< without one: the body stays up, or down, or neither
};

/// The Sun's event as crescent_evening takes it.
/// In     day  0 h of the civil date, without a zone                                             [d]
CrescentEvent sun_event_on(Ephemeris& ephemeris, const Observer& observer, CrescentKind kind, double day);

/// The Sun's event on a civil date of a place's clock.
struct EventOfDate {
    CrescentEvent sun;   ///< without one and without a reason where the events fall on the dates around it
    double mean_day = 0; ///< the date by the mean time of the longitude, as crescent_evening takes it: the
                         ///< date itself, the one after or the one before; 0 h of it           [d]
};

/// In     date         0 h of the civil date on the clock                                        [d]
///        hours_ahead  of the clock, of Universal Time, at a Julian day in UT1                   [h]
EventOfDate sun_event_of_date(Ephemeris& ephemeris, const Observer& observer, CrescentKind kind, double date,
                              const std::function<double(double)>& hours_ahead);

/// The Moon's event as crescent_evening takes it. In     sun_event  Julian day, UT1               [d]
CrescentEvent moon_event_near(Ephemeris& ephemeris, const Observer& observer, CrescentKind kind,
                              double sun_event);

/// The evening or the morning of a civil date, which begins and ends with the mean time of the place's
/// longitude: the Sun's event nearest to its noon, and the Moon's nearest to the Sun's, within half a day
/// each. The horizon is that of the sea in standard air: the upper limbs stand there, as they are seen from
/// the place. Where the lag is not positive, the later of the two events stands for Best Time. Nothing when
/// the Sun or the Moon has no event.
/// In     day          0 h of the civil date, without a zone                                     [d]
///        conjunction  geocentric; Julian day, UT1                                               [d]
/// Accuracy  events 1 s, the places those of the series (docs/accuracy.md).
std::optional<CrescentEvening> crescent_evening(Ephemeris& ephemeris, const Observer& observer,
                                                CrescentKind kind, double day, double conjunction);

/// The sky that crescent_evening asks for anywhere on Earth.
/// In     day  0 h of the civil date, without a zone                                             [d]
SkyPolynomials sky_around_date(Ephemeris& ephemeris, double day);

/// About when the events of an evening are, from which a search starts sooner.
struct EventGuess {
    double sun_event;  ///< Julian day, UT1                                                       [d]
    double moon_event; ///< Julian day, UT1                                                       [d]
};

/// The guess for a place from the evening of another one nearby on the same date.
/// In     east  how far the place is east of the other                                           [deg]
EventGuess guess_from(const CrescentEvening& evening, double east);

/// The evening or the morning of a date whose sky is at hand: for thousands of places. Any number of threads
/// may ask at once.
/// In     sky    as sky_around_date gives it for `day`
///        guess  may be null; it changes the result by no more than 1 ms
std::optional<CrescentEvening> crescent_evening(const SkyPolynomials& sky, const Observer& observer,
                                                CrescentKind kind, double day, double conjunction,
                                                const EventGuess* guess);

/// By how much the Sun and the Moon pass the horizon of their events, both ways, in the half days around
/// them; negative where one of them stays above or below it and has none. It goes through 0 smoothly from
/// place to place                                                                                [deg]
double event_margin(const SkyPolynomials& sky, const Observer& observer, CrescentKind kind, double day);

/// The sky of an instant.
CrescentSky crescent_sky(Ephemeris& ephemeris, const Observer& observer, double universal);

} // namespace halvane
