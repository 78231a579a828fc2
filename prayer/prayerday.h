// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/modsummer.h"
#include "calendar/taggedtime.h"
#include "events/riseset.h"
#include "stored/loc.h"
#include "stored/pref.h"

#include <array>

namespace halvane {

/// What the calculation of a day is for.
enum class DayMode {
    report, ///< rows of the prayer report; the high-latitude method is possible
    today,  ///< the main panel: no high-latitude method
};

/// The settings of a run.
struct PrayerSettings {
    Preferences preferences;
    Location location;
    Observer observer;
    Horizon horizon;            ///< with the twilight angles in force
    double longitude = 0;       ///< east positive                                              [deg]
    double latitude = 0;        ///< north positive                                             [deg]
    double city = 0;            ///< how much earlier Fajer and Shuroq come for the city        [h]
    double zone_offset = 0;     ///< zone's meridian minus the observer's                       [min]
    float add_maghreb = 0;      ///<                                                            [min]
    int precision = 1;          ///< of the clock texts, as modctim takes it
    bool high_latitude = false; ///< the alternative method is switched on
};

/// The settings of a run for a place.
/// Error  raises RunTimeFailure for added minutes that are not finite.
PrayerSettings prayer_settings(const Preferences& preferences, const Location& location, DayMode mode);

/// Whether the alternative method makes the times: it works on whole calendar years then.
bool forces_year(const PrayerSettings& settings);
/// What such a run takes in the place of its own angles and precision.
void force_year(PrayerSettings& settings);

/// The settings by `pref.vsk` and `loc.vsk`.
PrayerSettings read_prayer_settings(DayMode mode);

/// The six times of a day on its own clock [h], or why there are none. Dhohur and Isha may lie outside 0 to
/// 24: they are then another date's, and their clocks wrap.
struct PrayerTimes {
    TaggedTime fajer = NoEvent::none;
    TaggedTime shuroq = NoEvent::none;
    TaggedTime dhohur = NoEvent::none;
    TaggedTime aser = NoEvent::none;
    TaggedTime maghreb = NoEvent::none;
    TaggedTime isha = NoEvent::none;
};

/// The six in the order of the day.
inline constexpr std::array<TaggedTime PrayerTimes::*, 6> six_times{
    &PrayerTimes::fajer, &PrayerTimes::shuroq,  &PrayerTimes::dhohur,
    &PrayerTimes::aser,  &PrayerTimes::maghreb, &PrayerTimes::isha};

struct PrayerDay {
    int summer_hours = 0;
    PrayerTimes times;
    bool by_night_fraction = false; ///< Fajer and Isha are a fraction of the night
    bool refused = false;           ///< the alternative method was needed beyond its latitudes
};

/// The prayer times of one civil day.
/// In     settings  of the run
///        jd        0 h of the civil date                                                      [d]
///        summer_hours  0 or 1 (summer_hours_of)
/// Error  raises RunTimeFailure when the alternative method meets a day without Shuroq or Maghreb.
PrayerDay prayer_day(Ephemeris& ephemeris, const PrayerSettings& settings, double jd, int summer_hours);

/// The six times of a date as the main panel and the alerts take them: no alternative method.
/// In     theory  with `term.vsk` and `mterm.vsk`
///        jd      0 h of the civil date                                                         [d]
PrayerTimes prayer_times(const TheoryPointer& theory, const Preferences& preferences,
                         const Location& location, double jd);

} // namespace halvane
