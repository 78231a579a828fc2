// SPDX-License-Identifier: MIT
#include "finemap/mapstyle.h"

#include "crescent/criteria.h"

#include <array>
#include <cstddef>

namespace halvane {
namespace {

constexpr std::size_t most_bands = CataloguedCriterion::most_classes;

/// From the lowest class to the highest.
constexpr std::array<MapStyle, most_bands> band_styles{{
    {{0x9E, 0x8F, 0xBE}, MapMark::dash, "dash"},
    {{0x52, 0x0C, 0x74}, MapMark::dot, "dot"},
    {{0x1C, 0x79, 0xE4}, MapMark::ring, "ring"},
    {{0xFE, 0x97, 0x17}, MapMark::triangle, "triangle"},
    {{0xEE, 0xEE, 0x00}, MapMark::square, "square"},
    {{0x09, 0x78, 0x09}, MapMark::star, "star"},
}};

/// Which of them a criterion with so many classes takes.
constexpr std::array<std::array<std::size_t, most_bands>, most_bands> chosen_styles{{
    {5},
    {0, 5},
    {0, 2, 5},
    {0, 2, 4, 5},
    {0, 2, 3, 4, 5},
    {0, 1, 2, 3, 4, 5},
}};

constexpr MapClass classes_without_answer[] = {MapClass::conjunction_to_come, MapClass::moon_goes_first,
                                               MapClass::no_answer, MapClass::no_event};

constexpr int unknown_number = static_cast<int>(VisibilityClass::unknown);
constexpr int impossible_number = static_cast<int>(VisibilityClass::impossible);
constexpr int lowest_number = static_cast<int>(VisibilityClass::not_possible);

int number_of_band(const CataloguedCriterion& criterion, std::size_t band) {
    const std::optional<Criterion> of_small_map = criterion_of(criterion.key);
    if (!of_small_map || band == 0)
        return lowest_number + static_cast<int>(band);
    return static_cast<int>(row_of(*of_small_map).lines()[band - 1].visibility);
}

} // namespace

MapStyle style_of(const CataloguedCriterion& criterion, MapClass map_class) {
    if (const std::optional<std::size_t> band = band_of(map_class))
        return band_styles.at(chosen_styles.at(criterion.bands().size() - 1).at(*band));
    switch (map_class) {
    case MapClass::conjunction_to_come:
        return {{0x85, 0x60, 0x53}, MapMark::cross, "cross"};
    case MapClass::moon_goes_first:
        return {{0xDC, 0xA4, 0x91}, MapMark::arrow, "arrow"};
    case MapClass::no_answer:
        return {{0xF7, 0xFF, 0xFF}, MapMark::question, "question"};
    default:
        return {{0x26, 0x25, 0x26}, MapMark::bars, "bars"};
    }
}

std::vector<MapClass> legend_classes(const CataloguedCriterion& criterion) {
    std::vector<MapClass> classes;
    for (std::size_t band = criterion.bands().size(); band > 0; --band)
        classes.push_back(map_class_of(band - 1));
    classes.insert(classes.end(), std::begin(classes_without_answer), std::end(classes_without_answer));
    return classes;
}

TwinText words_of(const CataloguedCriterion& criterion, MapClass map_class, CrescentKind kind) {
    const bool is_new = kind == CrescentKind::new_crescent;
    if (const std::optional<std::size_t> band = band_of(map_class))
        return criterion.bands()[*band].text;
    switch (map_class) {
    case MapClass::conjunction_to_come:
        return is_new ? TwinText{"Conjunction after sunset", "الاقتران بعد غروب الشمس"}
                      : TwinText{"Conjunction before sunrise", "الاقتران قبل شروق الشمس"};
    case MapClass::moon_goes_first:
        return is_new ? TwinText{"The Moon sets before the Sun", "يغرب القمر قبل الشمس"}
                      : TwinText{"The Moon rises after the Sun", "يشرق القمر بعد الشمس"};
    case MapClass::no_answer:
        return {"Beyond what the criterion covers", "خارج مدى المعيار"};
    default:
        return is_new ? TwinText{"The Sun or the Moon does not set", "لا تغرب الشمس أو لا يغرب القمر"}
                      : TwinText{"The Sun or the Moon does not rise", "لا تشرق الشمس أو لا يشرق القمر"};
    }
}

std::string key_of(MapClass map_class) {
    if (const std::optional<std::size_t> band = band_of(map_class))
        return "band_" + std::to_string(*band);
    switch (map_class) {
    case MapClass::conjunction_to_come:
        return "conjunction_to_come";
    case MapClass::moon_goes_first:
        return "moon_goes_first";
    case MapClass::no_answer:
        return "no_answer";
    default:
        return "no_event";
    }
}

int number_of(const CataloguedCriterion& criterion, MapClass map_class) {
    if (const std::optional<std::size_t> band = band_of(map_class))
        return number_of_band(criterion, *band);
    const bool is_impossible =
        map_class == MapClass::conjunction_to_come || map_class == MapClass::moon_goes_first;
    return is_impossible ? impossible_number : unknown_number;
}

NamedBorder named_border(MapClass one, MapClass other) {
    const auto is_of = [one, other](MapClass map_class) { return one == map_class || other == map_class; };
    if (is_of(MapClass::no_event))
        return NamedBorder::none;
    if (is_of(MapClass::conjunction_to_come))
        return NamedBorder::conjunction_at_sun;
    return is_of(MapClass::moon_goes_first) ? NamedBorder::moon_with_sun : NamedBorder::none;
}

TwinText words_of(NamedBorder border, CrescentKind kind) {
    const bool is_new = kind == CrescentKind::new_crescent;
    switch (border) {
    case NamedBorder::moon_with_sun:
        return is_new ? TwinText{"The Moon sets with the Sun", "يغرب القمر مع الشمس"}
                      : TwinText{"The Moon rises with the Sun", "يشرق القمر مع الشمس"};
    case NamedBorder::conjunction_at_sun:
        return is_new ? TwinText{"Conjunction at sunset", "الاقتران عند غروب الشمس"}
                      : TwinText{"Conjunction at sunrise", "الاقتران عند شروق الشمس"};
    case NamedBorder::none:
        break;
    }
    return {"", ""};
}

TwinText words_of(MapQuantity quantity) {
    switch (quantity) {
    case MapQuantity::lag:
        return {"Lag", "المكث"};
    case MapQuantity::age:
        return {"Age", "العمر"};
    case MapQuantity::altitude:
        return {"Altitude of the Moon", "ارتفاع القمر"};
    case MapQuantity::elongation:
        break;
    }
    return {"Elongation", "الاستطالة"};
}

TwinText unit_of(MapQuantity quantity) {
    switch (quantity) {
    case MapQuantity::lag:
        return {"min", "د"};
    case MapQuantity::age:
        return {"h", "س"};
    default:
        return {"°", "°"};
    }
}

const char* key_of(MapQuantity quantity) {
    switch (quantity) {
    case MapQuantity::lag:
        return "lag";
    case MapQuantity::age:
        return "age";
    case MapQuantity::altitude:
        return "altitude";
    case MapQuantity::elongation:
        break;
    }
    return "elongation";
}

} // namespace halvane
