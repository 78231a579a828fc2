// SPDX-License-Identifier: MIT
#include "timetable/profilekeys.h"

#include "timetable/pagekeys.h"

#include "base/numberformat.h"
#include "timetable/clockunits.h"
#include "timetable/inifile.h"
#include "timetable/inivalues.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <span>

namespace halvane {
namespace {

/// Minutes of the day of "5:30" or "05:30".
std::optional<int> clock_of(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || colon == 0 || colon > 2 || text.size() != colon + 3)
        return std::nullopt;
    int hours = 0;
    int minutes = 0;
    const char* const middle = text.data() + colon;
    const char* const last = text.data() + text.size();
    if (std::from_chars(text.data(), middle, hours).ptr != middle ||
        std::from_chars(middle + 1, last, minutes).ptr != last || hours < 0 || hours >= hours_per_day ||
        minutes < 0 || minutes >= minutes_of_hour)
        return std::nullopt;
    return hours * minutes_of_hour + minutes;
}

std::string clock_text(int minutes) {
    const int hours = minutes / minutes_of_hour;
    const int rest = minutes % minutes_of_hour;
    return format_number(hours, "00") + ":" + format_number(rest, "00");
}

std::vector<std::string_view> words_of(std::string_view text, std::string_view separators) {
    std::vector<std::string_view> words;
    while (true) {
        text.remove_prefix(std::min(text.find_first_not_of(separators), text.size()));
        if (text.empty())
            return words;
        const std::size_t size = std::min(text.find_first_of(separators), text.size());
        words.push_back(text.substr(0, size));
        text.remove_prefix(size);
    }
}

/// A key of the file. `take` answers what was wanted when the value is none.
struct ProfileKey {
    const char* section;
    const char* key;
    std::string (*take)(Profile& profile, std::string_view value);
    std::string (*text)(const Profile& profile);
};

/// A number for which 0 means that it does not count.
std::string take_number_or_0(double& target, std::string_view value, double least, double greatest) {
    if (number_of_text(value) == 0.0) {
        target = 0;
        return {};
    }
    const std::string wanted = take_number(target, value, least, greatest);
    return wanted.empty() ? wanted : "0, " + wanted;
}

constexpr std::array<Word<bool>, 2> shadow_words{{{"standard", false}, {"hanafi", true}}};
constexpr std::array<Word<bool>, 2> height_words{{{"ignored", false}, {"counts", true}}};
constexpr std::array<Word<bool>, 2> night_words{{{"shuroq", false}, {"fajer", true}}};
constexpr std::array<Word<bool>, 2> yes_words{{{"no", false}, {"yes", true}}};
constexpr std::array<Word<HighLatitudeRule>, 7> rule_words{{{"none", HighLatitudeRule::none},
                                                            {"middle", HighLatitudeRule::middle},
                                                            {"seventh", HighLatitudeRule::seventh},
                                                            {"angle", HighLatitudeRule::angle},
                                                            {"latitude", HighLatitudeRule::nearest_latitude},
                                                            {"share", HighLatitudeRule::share},
                                                            {"year", HighLatitudeRule::year}}};
constexpr std::array<Word<RuleUse>, 3> use_words{
    {{"missing", RuleUse::missing}, {"beyond", RuleUse::beyond}, {"always", RuleUse::always}}};
constexpr std::array<Word<Rounding>, 3> rounding_words{
    {{"nearest", Rounding::nearest}, {"up", Rounding::up}, {"down", Rounding::down}}};
constexpr std::array<Word<PrayerNames>, 2> names_words{
    {{"halvane", PrayerNames::halvane}, {"common", PrayerNames::common}}};

template <DayTime time>
std::string take_added(Profile& profile, std::string_view value) {
    return take_number(profile.added[time], value, -most_added_minutes, most_added_minutes);
}
template <DayTime time>
std::string added_text(const Profile& profile) {
    return plain_number(profile.added[time]);
}
template <DayTime time>
std::string take_rounding(Profile& profile, std::string_view value) {
    return take_word(profile.rounding[time], value, rounding_words);
}
template <DayTime time>
std::string rounding_text(const Profile& profile) {
    return word_of(profile.rounding[time], rounding_words);
}
template <DayTime time>
std::string take_iqamah(Profile& profile, std::string_view value) {
    const std::optional<Iqamah> iqamah = iqamah_of(value);
    if (!iqamah)
        return "none, 05:30, +20, +20 up";
    profile.iqamah[time] = *iqamah;
    return {};
}
template <DayTime time>
std::string iqamah_text(const Profile& profile) {
    return text_of(profile.iqamah[time]);
}

template <DayTime time>
constexpr ProfileKey added_key(const char* key) {
    return {"added", key, take_added<time>, added_text<time>};
}
template <DayTime time>
constexpr ProfileKey rounding_key(const char* key) {
    return {"rounding", key, take_rounding<time>, rounding_text<time>};
}
template <DayTime time>
constexpr ProfileKey iqamah_key(const char* key) {
    return {"iqamah", key, take_iqamah<time>, iqamah_text<time>};
}

/// A key whose value is one of some words.
template <const auto& words, auto member>
constexpr ProfileKey word_key(const char* section, const char* key) {
    return {section, key,
            [](Profile& profile, std::string_view value) { return take_word(member(profile), value, words); },
            [](const Profile& profile) { return word_of(member(profile), words); }};
}

// Which member a key stands for.
constexpr auto the_hanafi = [](auto& profile) -> auto& {
    return profile.hanafi;
};
constexpr auto the_height_counts = [](auto& profile) -> auto& {
    return profile.height_counts;
};
constexpr auto the_high_latitude = [](auto& profile) -> auto& {
    return profile.high_latitude;
};
constexpr auto the_rule_use = [](auto& profile) -> auto& {
    return profile.rule_use;
};
constexpr auto the_night_until_fajer = [](auto& profile) -> auto& {
    return profile.night_until_fajer;
};
constexpr auto the_seconds = [](auto& profile) -> auto& {
    return profile.seconds;
};
constexpr auto the_clock = [](auto& profile) -> auto& {
    return profile.page.clock;
};
constexpr auto the_names = [](auto& profile) -> auto& {
    return profile.page.names;
};
constexpr auto the_digits = [](auto& profile) -> auto& {
    return profile.page.digits;
};
constexpr auto the_language = [](auto& profile) -> auto& {
    return profile.page.language;
};
constexpr auto the_paper = [](auto& profile) -> auto& {
    return profile.page.paper;
};

constexpr ProfileKey keys[] = {
    {"rules", "authority",
     [](Profile& profile, std::string_view value) -> std::string {
         if (value != "none" && find_authority(value) == nullptr)
             return "none, mwl, umm-al-qura, ...";
         profile.authority = value == "none" ? "" : value;
         return {};
     },
     [](const Profile& profile) { return profile.authority.empty() ? "none" : profile.authority; }},
    {"rules", "fajer_angle",
     [](Profile& profile, std::string_view value) {
         return take_number(profile.fajer_angle, value, least_angle, greatest_angle);
     },
     [](const Profile& profile) { return plain_number(profile.fajer_angle); }},
    {"rules", "isha_angle",
     [](Profile& profile, std::string_view value) {
         return take_number(profile.isha_angle, value, least_angle, greatest_angle);
     },
     [](const Profile& profile) { return plain_number(profile.isha_angle); }},
    {"rules", "isha_minutes",
     [](Profile& profile, std::string_view value) {
         return take_number(profile.isha_minutes, value, 0, most_isha_minutes);
     },
     [](const Profile& profile) { return plain_number(profile.isha_minutes); }},
    {"rules", "isha_minutes_ramadan",
     [](Profile& profile, std::string_view value) {
         return take_number(profile.isha_minutes_ramadan, value, 0, most_isha_minutes);
     },
     [](const Profile& profile) { return plain_number(profile.isha_minutes_ramadan); }},
    {"rules", "maghreb_angle",
     [](Profile& profile, std::string_view value) {
         return take_number_or_0(profile.maghreb_angle, value, least_angle, greatest_angle);
     },
     [](const Profile& profile) { return plain_number(profile.maghreb_angle); }},
    word_key<shadow_words, the_hanafi>("rules", "aser"),
    word_key<height_words, the_height_counts>("rules", "height"),
    word_key<rule_words, the_high_latitude>("rules", "high_latitude"),
    word_key<use_words, the_rule_use>("rules", "high_latitude_use"),
    {"rules", "reference_latitude",
     [](Profile& profile, std::string_view value) {
         return take_number_or_0(profile.reference_latitude, value, 1, greatest_reference);
     },
     [](const Profile& profile) { return plain_number(profile.reference_latitude); }},
    word_key<night_words, the_night_until_fajer>("rules", "night_until"),
    {"rules", "imsak_minutes",
     [](Profile& profile, std::string_view value) {
         return take_number(profile.imsak_minutes, value, 0, most_imsak_minutes);
     },
     [](const Profile& profile) { return plain_number(profile.imsak_minutes); }},
    word_key<yes_words, the_seconds>("rules", "seconds"),
    added_key<DayTime::fajer>("fajer"),
    added_key<DayTime::shuroq>("shuroq"),
    added_key<DayTime::dhohur>("dhohur"),
    added_key<DayTime::aser>("aser"),
    added_key<DayTime::maghreb>("maghreb"),
    added_key<DayTime::isha>("isha"),
    rounding_key<DayTime::fajer>("fajer"),
    rounding_key<DayTime::shuroq>("shuroq"),
    rounding_key<DayTime::dhohur>("dhohur"),
    rounding_key<DayTime::aser>("aser"),
    rounding_key<DayTime::maghreb>("maghreb"),
    rounding_key<DayTime::isha>("isha"),
    iqamah_key<DayTime::fajer>("fajer"),
    iqamah_key<DayTime::dhohur>("dhohur"),
    iqamah_key<DayTime::aser>("aser"),
    iqamah_key<DayTime::maghreb>("maghreb"),
    iqamah_key<DayTime::isha>("isha"),
    {"iqamah", "jumuah",
     [](Profile& profile, std::string_view value) -> std::string {
         const auto jumuah = jumuah_of(value == "none" ? "" : value);
         if (!jumuah)
             return "none, 12:30 13:15";
         profile.jumuah = *jumuah;
         return {};
     },
     [](const Profile& profile) { return profile.jumuah.empty() ? "none" : jumuah_text(profile.jumuah); }},
    word_key<clock_words, the_clock>("page", "clock"),
    word_key<names_words, the_names>("page", "names"),
    word_key<digits_words, the_digits>("page", "digits"),
    word_key<language_words, the_language>("page", "language"),
    word_key<paper_words, the_paper>("page", "paper"),
    {"page", "alarm_minutes",
     [](Profile& profile, std::string_view value) -> std::string {
         profile.page.alarm_minutes.reset();
         if (value == "none")
             return {};
         double minutes = 0;
         const std::string wanted = take_number(minutes, value, 0, most_alarm_minutes);
         if (!wanted.empty())
             return "none, " + wanted;
         profile.page.alarm_minutes = static_cast<int>(minutes);
         return {};
     },
     [](const Profile& profile) {
         return profile.page.alarm_minutes ? std::to_string(*profile.page.alarm_minutes) : "none";
     }},
}; // namespace halvane

const ProfileKey* find_key(std::string_view section, std::string_view key) {
    for (const ProfileKey& known : keys)
        if (section == known.section && key == known.key)
            return &known;
    return nullptr;
}

/// The columns stand one a line, numbered: a list of all would be too long for a line.
TwinWords take_column(Profile& profile, std::string_view key, std::string_view value) {
    const std::optional<TimetableColumn> column = find_column(value);
    if (!column)
        return wanted_words(key, "date, fajer, ...", value);
    if (profile.page.shows(*column))
        return {std::string(value) + " stands twice", std::string(value) + " مكرر"};
    profile.page.columns.push_back(*column);
    return {};
}

} // namespace

TwinWords take_profile_value(Profile& profile, std::string_view section, std::string_view key,
                             std::string_view value) {
    if (section == "columns")
        return take_column(profile, key, value);
    if (find_key(section, key) != nullptr) {
        const std::string wanted = take_key(profile, section, key, value);
        return wanted.empty() ? TwinWords() : wanted_words(key, wanted, value);
    }
    return unknown_key_words(section, key);
}

std::string take_key(Profile& profile, std::string_view section, std::string_view key,
                     std::string_view value) {
    const ProfileKey* const known = find_key(section, key);
    return known == nullptr ? "another key" : known->take(profile, value);
}

std::string value_of_key(const Profile& profile, std::string_view section, std::string_view key) {
    const ProfileKey* const known = find_key(section, key);
    return known == nullptr ? std::string() : known->text(profile);
}

std::string text_of(const Profile& profile) {
    std::string text = "; Rules and page of a timetable\n";
    std::string_view section;
    for (const ProfileKey& key : keys) {
        if (section != key.section) {
            section = key.section;
            ((text += "\n[") += section) += "]\n";
        }
        (((text += key.key) += " = ") += key.text(profile)) += '\n';
    }
    text += "\n[columns]\n";
    for (std::size_t i = 0; i < profile.page.columns.size(); ++i)
        text += std::to_string(i + 1) + " = " + names_of(profile.page.columns[i]).key + "\n";
    return text;
}

std::optional<TwinWords> refused_profile(const Profile& profile) {
    if (profile.maghreb_angle > 0 && profile.isha_minutes == 0 && profile.maghreb_angle >= profile.isha_angle)
        return TwinWords{"the angle of Maghreb is not below that of Isha",
                         "زاوية المغرب ليست أصغر من زاوية العشاء"};
    if (profile.isha_minutes == 0 && profile.isha_minutes_ramadan > 0)
        return TwinWords{"minutes of Isha in Ramadan need minutes of Isha on the other days",
                         "دقائق العشاء في رمضان تحتاج إلى دقائق العشاء في الأيام الأخرى"};
    return std::nullopt;
}

std::string text_of(const Iqamah& iqamah) {
    switch (iqamah.kind) {
    case Iqamah::Kind::fixed:
        return clock_text(iqamah.minutes);
    case Iqamah::Kind::after:
        return "+" + std::to_string(iqamah.minutes) + (iqamah.up_to_five ? " up" : "");
    case Iqamah::Kind::none:
        break;
    }
    return "none";
}

std::optional<Iqamah> iqamah_of(std::string_view text) {
    const std::vector<std::string_view> words = words_of(text, " ");
    if (words.empty() || (words.size() == 1 && words.front() == "none"))
        return Iqamah{};
    if (words.front().starts_with('+')) {
        const std::optional<double> minutes = number_of_text(words.front().substr(1));
        const bool up = words.size() == 2 && words.back() == "up";
        if (!minutes || *minutes < 0 || *minutes > most_iqamah_minutes || std::floor(*minutes) != *minutes ||
            (words.size() > 1 && !up))
            return std::nullopt;
        return Iqamah{Iqamah::Kind::after, static_cast<int>(*minutes), up};
    }
    const std::optional<int> clock = clock_of(words.front());
    if (!clock || words.size() > 1)
        return std::nullopt;
    return Iqamah{Iqamah::Kind::fixed, *clock, false};
}

std::string jumuah_text(const std::vector<int>& jumuah) {
    std::string text;
    for (const int minutes : jumuah)
        text += (text.empty() ? "" : " ") + clock_text(minutes);
    return text;
}

std::optional<std::vector<int>> jumuah_of(std::string_view text) {
    std::vector<int> jumuah;
    for (const std::string_view word : words_of(text, " ,")) {
        const std::optional<int> clock = clock_of(word);
        if (!clock || jumuah.size() == most_jumuah || (!jumuah.empty() && *clock <= jumuah.back()))
            return std::nullopt;
        jumuah.push_back(*clock);
    }
    return jumuah;
}

std::vector<TimetableColumn> columns_of(std::string_view keys_text, std::string& unknown) {
    std::vector<TimetableColumn> columns;
    for (const std::string_view word : words_of(keys_text, " ,")) {
        const std::optional<TimetableColumn> column = find_column(word);
        if (!column) {
            unknown = word;
            return {};
        }
        columns.push_back(*column);
    }
    return columns;
}

} // namespace halvane
