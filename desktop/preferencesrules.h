// SPDX-License-Identifier: MIT
#pragma once

#include "stored/pref.h"

#include <span>
#include <string>
#include <string_view>

namespace halvane {

/// An authority that sets the depression of the Sun at Fajer and Isha.
struct TwilightAuthority {
    const char* code;  ///< as the record holds it
    const char* entry; ///< as the list shows it, in both languages
    double fajer;      ///< [deg]; not used by "Custom"
    double isha;       ///< [deg]; not used by "Custom"
    bool custom;       ///< the user's own angles
};

/// The authorities in the order of the list.
std::span<const TwilightAuthority> twilight_authorities();

/// The two angle boxes of the preferences panel.
struct AngleBoxes {
    std::string fajer = "18";
    std::string isha = "18";
    bool enabled = false;

    bool operator==(const AngleBoxes&) const = default;
};

/// What stands on the preferences panel; entry boxes and lists by their texts. A text of a list that is not
/// among its entries leaves the list as designed.
struct PreferencesPanel {
    std::string authority = "Standard";
    AngleBoxes angles;
    bool high_latitude = false;
    bool summer_time = false;
    std::string from_month = "4";
    std::string from_day = "1";
    std::string to_month = "10";
    std::string to_day = "1";
    std::string subtract_fajer = "0";
    std::string add_dhohur = "0";
    std::string add_asr = "0";
    std::string add_maghreb = "0";
    bool elevation_fajer = false;
    bool elevation_setting = false;
    bool standard_asr = true;
    bool minutes = true;
    Language language = Language::english;

    bool operator==(const PreferencesPanel&) const = default;
};

enum class RefusedAngle { none, fajer, isha };

/// The rules of the preferences panel. Holds the record as last read or last tried, so that the user's own
/// angles survive a visit to another authority.
class PreferencesRules {
public:
    explicit PreferencesRules(const Preferences& stored);

    /// What the panel shows when it opens.
    PreferencesPanel opened() const;

    /// The angle boxes once `entry` of the list of authorities is chosen; boxes of no known entry stay as
    /// they are in `now`.
    AngleBoxes chosen(std::string_view entry, const AngleBoxes& now) const;

    /// The panel with the default values; the two switches for high latitudes and elevation stay as they are,
    /// and the language is the one in force.
    PreferencesPanel defaults(const PreferencesPanel& now) const;

    /// Takes the panel into the record. The angles are kept even when one is refused for being negative; the
    /// other fields are then as they were.
    RefusedAngle take(const PreferencesPanel& panel);

    /// The record to be stored.
    const Preferences& record() const { return record_; }

    /// The language in force since the panel opened.
    Language language() const { return language_; }

private:
    Preferences record_;
    Language language_;
};

} // namespace halvane
