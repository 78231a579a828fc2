// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "crescent/criteriacatalogue.h"
#include "finemap/finemap.h"
#include "hijri/announcedstart.h"
#include "hijri/tabularcycle.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// What decides when a month begins.
enum class HijriRuleKind {
    tabular,                 ///< a cycle of 30 years
    umm_al_qura,             ///< the rules of the Umm al-Qura calendar, each for its years
    seen_at_place,           ///< the crescent, at one place
    mabims,                  ///< altitude and elongation, at one place
    seen_anywhere,           ///< the crescent, anywhere in a part of the world
    turkey_1978,             ///< altitude and elongation, anywhere
    istanbul_2016,           ///< the same before midnight in Universal Time, with its exception
    istanbul_2016_geocentric ///< with the altitude from the Earth's centre
};

/// A rule of months.
struct HijriRule {
    const char* key; ///< its name for the batch program and in files
    TwinText name;
    HijriRuleKind kind;
    TwinText told;      ///< the rule in a sentence or two, and who uses it since when
    const char* source; ///< books, papers, bodies
    TabularCycle cycle = {};
};

/// Every rule, in the order of the lists; the first is that of the main panel.
std::span<const HijriRule> hijri_rules();
/// The rule of a key; nullptr for any other text.
const HijriRule* hijri_rule(std::string_view key);

/// Whether months of a rule depend on a place, a criterion, a part of the world.
bool asks_place(const HijriRule& rule);
bool asks_criterion(const HijriRule& rule);
bool asks_region(const HijriRule& rule);

/// Whether crescents of the mainland of the Americas count longer than others.
bool has_exception_of_the_americas(const HijriRule& rule);

/// Until when a crescent that is seen anywhere counts.
enum class SeenBefore {
    any_time,
    midnight, ///< 24 h Universal Time of the evening's date
    fajer,    ///< Fajer of the next day at the place: its night is not over (Sun 18 deg below)
};

/// "any time", "before midnight UT", "before Fajer at the place"
TwinText words_of(SeenBefore before);

/// Whether they depend on a place, that whose Fajer ends a night too.
bool asks_place(const HijriRule& rule, SeenBefore before);

/// A place whose sky decides.
struct HijriPlace {
    std::string name;
    double longitude = 0;   ///< east positive                                                     [deg]
    double latitude = 0;    ///< north positive                                                    [deg]
    double height = 0;      ///< above sea level                                                   [m]
    double hours_ahead = 0; ///< of its clock from Universal Time, by which its dates are counted  [h]
};

/// By how many days the dates of a place's clock are ahead of those of the mean time of its longitude: 0 but
/// beyond the date line.
double days_ahead(const HijriPlace& place);

/// Where crescents are looked for that count anywhere, unless a part is chosen.
inline constexpr MapWindow inhabited_world{-180, -60, 180, 60};

/// A rule with what it asks for.
struct HijriSettings {
    const HijriRule* rule = nullptr;
    HijriPlace place;
    const CataloguedCriterion* criterion = nullptr;
    std::size_t seen_class = 1; ///< the lowest class that counts as seen; usually the criterion's `by_eye`
    CriteriaSettings limits;
    MapWindow region = inhabited_world; ///< within which a crescent counts
    SeenBefore before = SeenBefore::any_time;
    /// Mainland of the Americas (mainland.h) for the exception of Istanbul 2016; empty: without it.
    MapRing americas;
    /// In the order of their months; as announced_of_text (announcedlist.h) checks them.
    std::vector<AnnouncedStart> announced;
};

/// The keys of the criteria that have limits of the user's.
inline constexpr std::string_view danjon_criterion = "danjon";
inline constexpr std::string_view users_criterion = "user";

/// "Seen at Amman by Yallop", "Umm al-Qura", with what is not the usual behind it (unusualsettings.h), and
/// with "announced, else ..." before it where months are announced.
TwinWords name_of(const HijriSettings& settings);

} // namespace halvane
