// SPDX-License-Identifier: MIT
#pragma once

#include "base/language.h"
#include "stored/pref.h"
#include "timetable/authorities.h"
#include "timetable/daytimes.h"
#include "timetable/timetablecolumns.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace halvane {

/// What gives a Fajer or an Isha where the Sun's depression gives none.
enum class HighLatitudeRule {
    none,
    middle,           ///< the middle of the night
    seventh,          ///< the last and the first seventh of the night
    angle,            ///< the part of the night that the angle is of 60 degrees
    nearest_latitude, ///< the clock of a lower latitude
    share,            ///< the share of the night at a lower latitude
    year              ///< the alternative method of the prayer report, smoothed over the year
};

/// When a high-latitude rule speaks.
enum class RuleUse {
    missing, ///< when the angle gives no time
    beyond,  ///< also when it gives a Fajer before, or an Isha after, the rule's
    always
};

/// When a prayer is begun together.
struct Iqamah {
    enum class Kind { none, fixed, after };
    Kind kind = Kind::none;
    int minutes = 0;         ///< of the day (fixed), or after the prayer's time      [min]
    bool up_to_five = false; ///< the clock is brought up to full five minutes

    bool operator==(const Iqamah&) const = default;
};

enum class ClockFace { hours_24, hours_12 };
enum class PrayerNames { halvane, common }; ///< Fajer, Shuroq ... or Fajr, Sunrise ...
enum class PageDigits { western, arabic };  ///< 0 1 2 or the Arabic-Indic ones
enum class PageLanguage { english, arabic, both };
enum class PaperSize { a4, letter };

/// What a page shows and how.
struct PageSettings {
    std::vector<TimetableColumn> columns = usual_columns();
    ClockFace clock = ClockFace::hours_24;
    PrayerNames names = PrayerNames::halvane;
    PageDigits digits = PageDigits::western;
    PageLanguage language = PageLanguage::english;
    PaperSize paper = PaperSize::a4;
    std::optional<int> alarm_minutes; ///< of calendar events, before the prayer; none without   [min]

    bool shows(TimetableColumn column) const;
    bool operator==(const PageSettings&) const = default;
};

/// The rules of a timetable.
struct Profile {
    std::string name; ///< empty for the stored preferences and for an authority's own rules
    /// The rules are those of the preferences, and its times those of the prayer report.
    std::optional<Preferences> preferences;
    std::string authority; ///< key of the authority that the rules began from; empty for none

    double fajer_angle = 18;         ///< depression of the Sun                                   [deg]
    double isha_angle = 17;          ///< the same; without meaning where `isha_minutes` is given  [deg]
    double isha_minutes = 0;         ///< after Maghreb; 0: by the angle                           [min]
    double isha_minutes_ramadan = 0; ///< in Ramadan; 0: as on other days                          [min]
    double maghreb_angle = 0;        ///< depression of the Sun; 0: sunset                         [deg]
    bool hanafi = false;             ///< the Hanafi shadow at Aser
    bool height_counts = false;      ///< the height lowers the horizon
    OfSix<double> added{};           ///< minutes added to each, before it is rounded              [min]
    OfSix<Rounding> rounding{};
    HighLatitudeRule high_latitude = HighLatitudeRule::none;
    RuleUse rule_use = RuleUse::missing;
    double reference_latitude = 0;  ///< of the two latitude rules, unsigned; 0: each rule's own   [deg]
    bool night_until_fajer = false; ///< its middle and last third are of sunset to Fajer, not to sunrise
    double imsak_minutes = 10;      ///< before Fajer                                             [min]
    bool seconds = false;           ///< clocks are to the second

    OfSix<Iqamah> iqamah{};  ///< that of Shuroq has no meaning
    std::vector<int> jumuah; ///< up to three, in rising order                                    [min]
    PageSettings page;

    bool operator==(const Profile&) const = default;
};

/// The stored preferences as a profile.
Profile neutral_profile(const Preferences& preferences);

/// The rules of an authority; the page is the usual one.
Profile authority_profile(const Authority& authority);

/// Takes the rules of an authority into a profile and leaves the rest.
void take_authority(Profile& profile, const Authority& authority);

/// The latitude that a latitude rule borrows from, unsigned                                          [deg]
double reference_latitude_of(const Profile& profile);

// Limits of the numbers of a profile, both ends inside.
inline constexpr double least_angle = 1;          ///< [deg]
inline constexpr double greatest_angle = 30;      ///< two of the angle rule's parts fill the night [deg]
inline constexpr double most_added_minutes = 120; ///< either way [min]
inline constexpr double most_isha_minutes = 360;  ///< [min]
inline constexpr double most_imsak_minutes = 120; ///< [min]
inline constexpr double greatest_reference = 65;  ///< [deg]
inline constexpr int most_iqamah_minutes = 240;   ///< after the prayer [min]
inline constexpr int most_alarm_minutes = 240;    ///< before the prayer [min]
inline constexpr std::size_t most_jumuah = 3;

} // namespace halvane
