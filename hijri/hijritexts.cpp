// SPDX-License-Identifier: MIT
#include "hijri/hijritexts.h"

#include "hijri/monthsheet.h"
#include "hijri/unusualsettings.h"
#include "timetable/calendartext.h"

#include <algorithm>
#include <utility>

namespace halvane {

TwinWords month_words(HijriMonthNumber month) {
    const auto in = [month](Language language) {
        return hijri_month_name(month.month(), language) + " " + std::to_string(month.year());
    };
    return {in(Language::english), in(Language::arabic)};
}

std::string rule_key(const HijriSettings& settings) {
    std::string key = settings.rule->key;
    if (asks_criterion(*settings.rule))
        (key += '-') += settings.criterion->key;
    key += unusual_key(settings);
    if (asks_place(*settings.rule, settings.before))
        key += '-' + calendar_place(settings.place.latitude, settings.place.longitude);
    return key;
}

std::string settings_key(const HijriSettings& settings) {
    return (settings.announced.empty() ? "" : "announced-") + rule_key(settings);
}

std::vector<std::string> distinct_keys(const std::vector<RuleMonths>& rules) {
    std::vector<std::string> keys;
    for (const RuleMonths& rule : rules) {
        std::string own = settings_key(rule.settings);
        if (std::find(keys.begin(), keys.end(), own) != keys.end())
            own += '-' + std::to_string(keys.size() + 1);
        keys.push_back(std::move(own));
    }
    return keys;
}

std::vector<std::string> event_keys(const std::vector<RuleMonths>& rules) {
    std::vector<std::string> keys;
    for (const RuleMonths& rule : rules) {
        const std::string own = rule_key(rule.settings);
        const bool is_reckoned_too = std::any_of(rules.begin(), rules.end(), [&own](const RuleMonths& other) {
            return other.settings.announced.empty() && rule_key(other.settings) == own;
        });
        keys.push_back(is_reckoned_too ? settings_key(rule.settings) : own);
    }
    return keys;
}

std::string source_of(const HijriSettings& settings) {
    return asks_criterion(*settings.rule) ? settings.criterion->source : settings.rule->source;
}

std::vector<AskedThing> asked_things(const HijriRule& rule) {
    std::vector<AskedThing> things;
    if (asks_place(rule))
        things.push_back({"place", {"place", "المكان"}});
    if (asks_criterion(rule))
        things.push_back({"criterion", {"criterion", "المعيار"}});
    if (asks_region(rule))
        things.push_back({"region", {"region", "المنطقة"}});
    if (!asks_place(rule) && asks_place(rule, SeenBefore::fajer))
        things.push_back({"place_before_fajer", {"place (before Fajer)", "المكان (قبل الفجر)"}});
    return things;
}

std::string notes_text(const HijriMonth& month, Language language) {
    std::string text;
    for (const TwinWords& note : notes_of(month))
        (text += text.empty() ? "" : "; ") += note.in(language);
    return text;
}

std::vector<std::string> note_keys(const HijriMonth& month) {
    constexpr std::pair<MonthNote, const char*> keys[] = {
        {MonthNote::announced, "announced"},       {MonthNote::made_to_fit, "made_to_fit"},
        {MonthNote::completed, "completed"},       {MonthNote::undecided, "undecided"},
        {MonthNote::seen_on_28th, "seen_on_28th"}, {MonthNote::rule_doubtful, "rule_doubtful"}};
    std::vector<std::string> found;
    if (month.may_differ())
        found.emplace_back("may_differ");
    for (const auto& [note, key] : keys)
        if (month.has(note))
            found.emplace_back(key);
    return found;
}

TwinWords phase_words(Phase phase) {
    TwinWords words(words_of(moon_of(phase)));
    char& initial = words.english.front();
    if (initial >= 'a' && initial <= 'z')
        initial = static_cast<char>(initial - 'a' + 'A');
    return words;
}

std::string signed_days(int days) {
    return (days > 0 ? "+" : "") + std::to_string(days);
}

} // namespace halvane
