// SPDX-License-Identifier: MIT
#include "hijri/unusualsettings.h"

#include "base/numberformat.h"
#include "crescent/measurewords.h"
#include "hijri/seenbefore.h"

#include <array>
#include <cmath>
#include <optional>
#include <string_view>
#include <vector>

namespace halvane {
namespace {

/// One thing that is not the usual.
struct Unusual {
    std::string key;
    TwinWords words;
};

struct NamedLimit {
    const char* key;
    TwinText name;
    const char* unit; ///< as in CataloguedCriterion
    std::optional<double> UserLimits::*limit;
};
constexpr std::array<NamedLimit, 4> named_limits{
    {{"lag", {"lag", "المكث"}, "min", &UserLimits::lag},
     {"altitude", {"altitude", "الارتفاع"}, "deg", &UserLimits::altitude},
     {"elongation", {"elongation", "الاستطالة"}, "deg", &UserLimits::elongation},
     {"age", {"age", "العمر"}, "h", &UserLimits::age}}};

TwinWords limit_words(const TwinText& name, std::optional<double> value, std::string_view unit) {
    if (!value)
        return TwinWords(name) + TwinText{": none", ": بلا حد"};
    const TwinText unit_words = unit == "min" ? TwinText{" min", " دقيقة"}
                                : unit == "h" ? TwinText{" h", " ساعة"}
                                              : TwinText{"°", "°"};
    return TwinWords(name) + plain_words(" " + plain_number(*value)) + unit_words;
}

void add_class(std::vector<Unusual>& found, const HijriSettings& settings) {
    if (settings.seen_class == settings.criterion->by_eye)
        return;
    found.push_back(
        {"-class-" + std::to_string(settings.seen_class),
         TwinWords(TwinText{"class: ", "الفئة: "}) + settings.criterion->bands()[settings.seen_class].text});
}

void add_limits(std::vector<Unusual>& found, const HijriSettings& settings) {
    const std::string_view criterion = settings.criterion->key;
    constexpr CriteriaSettings usual;
    if (const double limit = settings.limits.danjon_limit;
        criterion == danjon_criterion && limit != usual.danjon_limit)
        found.push_back(
            {"-limit-" + plain_number(limit), limit_words({"elongation", "الاستطالة"}, limit, "deg")});
    if (criterion != users_criterion)
        return;
    for (const NamedLimit& named : named_limits) {
        const std::optional<double>& limit = settings.limits.user.*named.limit;
        if (limit != usual.user.*named.limit)
            found.push_back({std::string("-") + named.key + "-" + (limit ? plain_number(*limit) : "none"),
                             limit_words(named.name, limit, named.unit)});
    }
}

/// "-30.25w": a side of a part of the world. In     ends  the letters of positive and of negative ones
std::string side_key(double side, const char* ends) {
    return "-" + plain_number(std::fabs(side)) + ends[side < 0 ? 1 : 0];
}

TwinWords longitude_words(double longitude) {
    const double of_observer = observer_longitude(longitude);
    return plain_words(plain_number(std::fabs(of_observer)) + "°") +
           (of_observer < 0 ? TwinText{" W", " غربا"} : TwinText{" E", " شرقا"});
}

TwinWords latitude_words(double latitude) {
    return plain_words(plain_number(std::fabs(latitude)) + "°") +
           (latitude < 0 ? TwinText{" S", " جنوبا"} : TwinText{" N", " شمالا"});
}

void add_region(std::vector<Unusual>& found, const MapWindow& region) {
    if (region == HijriSettings{}.region)
        return;
    constexpr TwinText to{" to ", " إلى "};
    found.push_back({side_key(region.west, "ew") + side_key(region.south, "ns") +
                         side_key(region.east, "ew") + side_key(region.north, "ns"),
                     longitude_words(region.west) + to + longitude_words(region.east) + TwinText{", ", "، "} +
                         latitude_words(region.south) + to + latitude_words(region.north)});
}

void add_before(std::vector<Unusual>& found, const HijriSettings& settings) {
    if (settings.before == SeenBefore::any_time)
        return;
    TwinWords words = words_of(settings.before);
    if (asks_place(*settings.rule, settings.before) && !settings.place.name.empty())
        words = words + TwinText{": ", ": "} + plain_words(settings.place.name);
    found.push_back({std::string("-before-") + key_of(settings.before), words});
}

std::vector<Unusual> unusual_of(const HijriSettings& settings) {
    std::vector<Unusual> found;
    if (asks_criterion(*settings.rule)) {
        add_class(found, settings);
        add_limits(found, settings);
    }
    if (asks_region(*settings.rule)) {
        add_region(found, settings.region);
        add_before(found, settings);
    }
    return found;
}

} // namespace

std::string unusual_key(const HijriSettings& settings) {
    std::string key;
    for (const Unusual& unusual : unusual_of(settings))
        key += unusual.key;
    return key;
}

TwinWords unusual_words(const HijriSettings& settings) {
    TwinWords words;
    for (const Unusual& unusual : unusual_of(settings))
        words = words + (words.english.empty() ? TwinText{" (", " ("} : TwinText{"; ", "؛ "}) + unusual.words;
    return words.english.empty() ? words : words + plain_words(")");
}

} // namespace halvane
