// SPDX-License-Identifier: MIT
#include "hijri/keptrule.h"

#include "base/numberformat.h"
#include "calendar/modjul.h"
#include "finemap/mapframe.h"
#include "finemap/worldoutline.h"
#include "hijri/hijrimonths.h"
#include "hijri/mainland.h"
#include "hijri/seenbefore.h"
#include "stored/programfolder.h"
#include "stored/textfile.h"
#include "system/path.h"
#include "timetable/inifile.h"
#include "timetable/inivalues.h"
#include "timetable/placewords.h"
#include "timetable/skydays.h"
#include "timetable/timetableplaces.h"

#include <array>
#include <cmath>
#include <filesystem>
#include <span>
#include <system_error>
#include <utility>
#include <vector>

namespace halvane {
namespace {

constexpr const char* file_name = "hijri-rule.ini";
constexpr const char* none = "none";
constexpr double greatest_limit = 1000; // far beyond any use
constexpr double eastern_most = 540;    // of a window that goes once around from the date line       [deg]

/// A key of the file. `take` answers what was wanted when the value is none.
struct ChoiceKey {
    const char* section;
    const char* key;
    std::string (*take)(HijriChoice& choice, std::string_view value);
    std::string (*text)(const HijriChoice& choice);
};

template <class Item>
std::string keys_of(std::span<const Item> items) {
    std::string keys;
    for (const Item& item : items)
        (keys += keys.empty() ? "" : ", ") += item.key;
    return keys;
}

std::string take_rule(HijriChoice& choice, std::string_view value) {
    if (hijri_rule(value) == nullptr)
        return keys_of(hijri_rules());
    choice.rule = value;
    return {};
}

std::string take_criterion(HijriChoice& choice, std::string_view value) {
    if (catalogued_criterion(value) == nullptr)
        return keys_of(catalogued_criteria());
    choice.criterion = value;
    return {};
}

std::string take_class(HijriChoice& choice, std::string_view value) {
    if (value == "usual") {
        choice.seen_class.reset();
        return {};
    }
    double number = 0;
    const std::string wanted = take_number(number, value, 1, CataloguedCriterion::most_classes - 1);
    if (!wanted.empty() || std::floor(number) != number)
        return "usual, 1 ... " + std::to_string(CataloguedCriterion::most_classes - 1);
    choice.seen_class = static_cast<std::size_t>(number);
    return {};
}

template <std::optional<double> UserLimits::*limit>
constexpr ChoiceKey limit_key(const char* key) {
    return {"crescent", key,
            [](HijriChoice& choice, std::string_view value) -> std::string {
                std::optional<double>& target = choice.limits.user.*limit;
                target.reset();
                if (value == none)
                    return {};
                double number = 0;
                const std::string wanted = take_number(number, value, -greatest_limit, greatest_limit);
                if (!wanted.empty())
                    return "none, " + wanted;
                target = number;
                return {};
            },
            [](const HijriChoice& choice) {
                const std::optional<double>& value = choice.limits.user.*limit;
                return value ? plain_number(*value) : std::string(none);
            }};
}

template <double MapWindow::*side>
constexpr ChoiceKey side_key(const char* key) {
    return {"region", key,
            [](HijriChoice& choice, std::string_view value) {
                return take_number(choice.region.*side, value, -antimeridian, eastern_most);
            },
            [](const HijriChoice& choice) { return plain_number(choice.region.*side); }};
}

constexpr char escape = '\\';

/// A name whose semicolons begin no comment.
std::string with_escapes(std::string_view name) {
    std::string text;
    for (const char letter : name) {
        if (letter == ';' || letter == escape)
            text += escape;
        text += letter;
    }
    return text;
}

std::string without_escapes(std::string_view text) {
    std::string name;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == escape && i + 1 < text.size())
            ++i;
        name += text[i];
    }
    return name;
}

constexpr ChoiceKey keys[] = {
    {"rule", "rule", take_rule,
     [](const HijriChoice& choice) {
         return choice.rule.empty() ? std::string(hijri_rules().front().key) : choice.rule;
     }},
    {"rule", "announced",
     [](HijriChoice& choice, std::string_view value) -> std::string {
         if (const std::optional<AnnouncedUse> use = announced_use_of(value)) {
             choice.announced = *use;
             return {};
         }
         return "none, whole, sound";
     },
     [](const HijriChoice& choice) { return std::string(key_of(choice.announced)); }},
    {"place", "name",
     [](HijriChoice& choice, std::string_view value) -> std::string {
         choice.place.reset();
         if (!value.empty())
             choice.place = without_escapes(value);
         return {};
     },
     [](const HijriChoice& choice) { return with_escapes(choice.place.value_or("")); }},
    {"crescent", "criterion", take_criterion, [](const HijriChoice& choice) { return choice.criterion; }},
    {"crescent", "class", take_class,
     [](const HijriChoice& choice) {
         return choice.seen_class ? std::to_string(*choice.seen_class) : std::string("usual");
     }},
    {"crescent", "before",
     [](HijriChoice& choice, std::string_view value) {
         return take_word(choice.before, value, seen_before_words);
     },
     [](const HijriChoice& choice) { return word_of(choice.before, seen_before_words); }},
    {"crescent", "danjon_limit",
     [](HijriChoice& choice, std::string_view value) {
         return take_number(choice.limits.danjon_limit, value, 0, greatest_limit);
     },
     [](const HijriChoice& choice) { return plain_number(choice.limits.danjon_limit); }},
    limit_key<&UserLimits::lag>("lag"),
    limit_key<&UserLimits::altitude>("altitude"),
    limit_key<&UserLimits::elongation>("elongation"),
    limit_key<&UserLimits::age>("age"),
    side_key<&MapWindow::west>("west"),
    side_key<&MapWindow::south>("south"),
    side_key<&MapWindow::east>("east"),
    side_key<&MapWindow::north>("north"),
};

TwinWords take_value(HijriChoice& choice, std::string_view section, std::string_view key,
                     std::string_view value) {
    for (const ChoiceKey& known : keys)
        if (section == known.section && key == known.key) {
            const std::string wanted = known.take(choice, value);
            return wanted.empty() ? TwinWords() : wanted_words(key, wanted, value);
        }
    return unknown_key_words(section, key);
}

HijriAnswer refused(HijriPart part, TwinWords words) {
    return {std::nullopt, part, std::move(words)};
}

TwinWords unknown_words(const TwinText& what, const std::string& key, const std::string& known) {
    return {std::string("There is no ") + what.english + " \"" + key + "\". There are: " + known + ".",
            std::string("لا يوجد ") + what.arabic + " باسم \"" + key + "\". الموجود: " + known + "."};
}

HijriPlace place_of(const TimetablePlace& place, double year) {
    double jd = 0;
    modjul(year, 1, 1, 0, jd);
    const Location& location = place.location;
    return {location.name, longitude_of(location), latitude_of(location), location.elevation,
            clock_on(place, jd).ahead()};
}

/// What is wrong with the limits of a criterion; nothing where nothing is.
std::optional<TwinWords> refused_limits(const CriteriaSettings& limits, bool are_users) {
    const UserLimits& user = limits.user;
    const std::array<std::optional<double>, 5> values{limits.danjon_limit, user.lag, user.altitude,
                                                      user.elongation, user.age};
    for (const std::optional<double>& value : values)
        if (value && !(std::fabs(*value) <= greatest_limit))
            return TwinText{"A limit is a number, or nothing.", "الحد رقم، أو لا شيء."};
    if (are_users && !user.lag && !user.altitude && !user.elongation && !user.age)
        return TwinText{"One limit at least is needed.", "يلزم حد واحد على الأقل."};
    return std::nullopt;
}

/// Takes the criterion with its class and limits. Returns a refusal, or nothing.
std::optional<HijriAnswer> take_criterion(HijriSettings& settings, const HijriChoice& choice) {
    settings.criterion = catalogued_criterion(choice.criterion);
    if (settings.criterion == nullptr)
        return refused(HijriPart::criterion, unknown_words({"criterion", "معيار"}, choice.criterion,
                                                           keys_of(catalogued_criteria())));
    const std::size_t classes = settings.criterion->bands().size();
    settings.seen_class = choice.seen_class.value_or(settings.criterion->by_eye);
    if (settings.seen_class < 1 || settings.seen_class >= classes) {
        const std::string range = "1 ... " + std::to_string(classes - 1);
        return refused(HijriPart::seen_class, {"The class of this criterion is one of " + range + ".",
                                               "الفئة في هذا المعيار من " + range + "."});
    }
    settings.limits = choice.limits;
    if (auto words = refused_limits(choice.limits, choice.criterion == users_criterion))
        return refused(HijriPart::limits, std::move(*words));
    return std::nullopt;
}

std::optional<HijriAnswer> take_region(HijriSettings& settings, const HijriChoice& choice) {
    FineMapSettings map;
    map.criterion = settings.criterion;
    if (map.criterion != nullptr)
        if (auto words = refused_map(map))
            return refused(HijriPart::criterion, std::move(*words));
    if (auto words = refused_window(choice.region, map.step))
        return refused(HijriPart::region, sentence(*words));
    settings.region = choice.region;
    return std::nullopt;
}

/// The place whose sky a rule asks for: "seen here" is of the stored one, "seen at a place" of the list.
std::optional<std::string> place_name(const HijriRule& rule, const HijriChoice& choice) {
    if (rule.key == std::string_view("seen-here"))
        return std::nullopt;
    if (rule.key == std::string_view("seen-at"))
        return choice.place.value_or("");
    return choice.place;
}

bool is_usual(const HijriSettings& settings) {
    return settings.rule == &hijri_rules().front() && settings.announced.empty();
}

HijriSettings sound_settings(const HijriChoice& kept, double year) {
    HijriAnswer answer = settings_of(kept, year);
    if (!answer.settings)
        throw kept_rule_failure(answer);
    return std::move(*answer.settings);
}

/// All that a reckoning is made of, as a text to compare.
std::string all_of(const HijriChoice& choice, const HijriSettings& settings) {
    const HijriPlace& place = settings.place;
    std::string text = text_of(choice) + place.name;
    for (const double number : {place.longitude, place.latitude, place.height, place.hours_ahead})
        text += ' ' + plain_number(number);
    std::vector<AnnouncedRow> rows;
    for (const AnnouncedStart& start : settings.announced)
        rows.push_back(row_of(start));
    return text + text_of(rows);
}

/// The keys of the file that a part of a choice stands in.
const char* keys_of(HijriPart part) {
    switch (part) {
    case HijriPart::place:
        return "name";
    case HijriPart::criterion:
        return "criterion";
    case HijriPart::seen_class:
        return "class";
    case HijriPart::limits:
        return "danjon_limit, lag, altitude, elongation, age";
    case HijriPart::region:
        return "west, south, east, north";
    case HijriPart::announced:
        return "announced";
    case HijriPart::rule:
        break;
    }
    return "rule";
}

std::string path_of_rule() {
    return program_path(file_name);
}

/// In     given  the place, where it is not that of the choice
HijriAnswer settings_at(const HijriChoice& choice, double year, const AnnouncedList& announced,
                        const TimetablePlace* given) {
    HijriSettings settings;
    settings.rule = choice.rule.empty() ? &hijri_rules().front() : hijri_rule(choice.rule);
    if (settings.rule == nullptr)
        return refused(HijriPart::rule,
                       unknown_words({"rule", "قاعدة"}, choice.rule, keys_of(hijri_rules())));
    const bool is_of_place = asks_place(*settings.rule, choice.before);
    if (is_of_place && given != nullptr) {
        settings.place = place_of(*given, year);
    } else if (is_of_place) {
        const std::optional<std::string> name = place_name(*settings.rule, choice);
        const std::optional<TimetablePlace> place = chosen_place(name);
        if (!place)
            return refused(HijriPart::place, unknown_place(*name));
        settings.place = place_of(*place, year);
    }
    if (asks_criterion(*settings.rule))
        if (std::optional<HijriAnswer> answer = take_criterion(settings, choice))
            return *answer;
    if (asks_region(*settings.rule))
        if (std::optional<HijriAnswer> answer = take_region(settings, choice))
            return *answer;
    settings.before = choice.before;
    if (has_exception_of_the_americas(*settings.rule))
        settings.americas = mainland_of_the_americas(read_world_outline());
    if (choice.announced == AnnouncedUse::whole && !announced.problems.empty())
        return refused(HijriPart::announced, words_of(announced.problems));
    if (choice.announced != AnnouncedUse::none)
        settings.announced = announced.starts;
    return {std::move(settings), HijriPart::rule, {}};
}

} // namespace

HijriAnswer settings_of(const HijriChoice& choice, double year, const AnnouncedList& announced) {
    return settings_at(choice, year, announced, nullptr);
}

HijriAnswer settings_of(const HijriChoice& choice, double year, const AnnouncedList& announced,
                        const TimetablePlace& place) {
    return settings_at(choice, year, announced, &place);
}

HijriAnswer settings_of(const HijriChoice& choice, double year) {
    return settings_of(choice, year,
                       choice.announced == AnnouncedUse::none ? AnnouncedList() : read_announced());
}

HijriChoice hijri_choice_of_text(const std::string& text, const std::string& path) {
    HijriChoice choice;
    read_ini_text(text, path, [&](std::string_view section, std::string_view key, std::string_view value) {
        return take_value(choice, section, key, value);
    });
    return choice;
}

std::string text_of(const HijriChoice& choice) {
    std::string text = "; The rule by which Hijri dates are told\n";
    std::string_view section;
    for (const ChoiceKey& key : keys) {
        if (section != key.section) {
            section = key.section;
            ((text += "\n[") += section) += "]\n";
        }
        (((text += key.key) += " = ") += key.text(choice)) += '\n';
    }
    return text;
}

std::optional<HijriChoice> kept_hijri_rule() {
    const std::string path = path_of_rule();
    try {
        return hijri_choice_of_text(read_text_file(path), path);
    } catch (const RunTimeFailure& failure) {
        if (failure.parts().kind != FailureKind::missing_file)
            throw;
        return std::nullopt;
    }
}

RunTimeFailure kept_rule_failure(const HijriAnswer& answer) {
    const std::string where = keys_of(answer.wrong);
    return RunTimeFailure(TwinWords{std::string(file_name) + ", " + where + ": " + answer.words.english,
                                    std::string(file_name) + "، " + where + ": " + answer.words.arabic},
                          FailureKind::damaged_file);
}

void keep_hijri_rule(const HijriChoice& choice) {
    const std::string text = text_of(choice);
    if (hijri_choice_of_text(text, file_name).place != choice.place)
        throw RunTimeFailure(TwinWords{
            "The name \"" + choice.place.value_or("") + "\" cannot be kept with the rule: rename the place.",
            "لا يمكن حفظ الاسم \"" + choice.place.value_or("") + "\" مع القاعدة، غير اسم الموقع."});
    save_text_file(path_of_rule(), text);
}

void forget_hijri_rule() {
    const std::string path = path_of_rule();
    std::error_code error;
    std::filesystem::remove(path_of(path), error);
    if (error)
        throw file_failure(FileAction::write, path, error.value());
}

HijriReckoningPointer reckoning_of(const TheoryPointer& theory, const HijriChoice& kept, double year) {
    const HijriSettings settings = sound_settings(kept, year);
    return is_usual(settings) ? nullptr : reckoning_of(theory, settings);
}

HijriReckoningPointer KeptReckoning::now(const TheoryPointer& theory, double year) {
    const std::optional<HijriChoice> choice = kept_hijri_rule();
    if (!choice)
        return nullptr;
    const HijriSettings settings = sound_settings(*choice, year);
    std::string made_of = all_of(*choice, settings);
    if (theory != theory_ || made_of != made_of_) {
        reckoning_ = is_usual(settings) ? nullptr : reckoning_of(theory, settings);
        theory_ = theory;
        made_of_ = std::move(made_of);
    }
    return reckoning_;
}

} // namespace halvane
