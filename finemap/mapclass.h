// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace halvane {

/// What the map tells of a place: a class of the criterion, or why there is none to tell.
enum class MapClass : std::uint8_t {
    band_0, ///< the criterion's lowest class; the others follow it in their order
    band_1,
    band_2,
    band_3,
    band_4,
    band_5,
    conjunction_to_come, ///< the conjunction is after sunset, or before sunrise
    moon_goes_first,     ///< the Moon sets before the Sun, or rises after it
    no_answer,           ///< beyond what the criterion is published for
    no_event,            ///< the Sun or the Moon does not set, or does not rise
};

inline constexpr std::size_t map_classes = 10;

/// The map class of a class of the criterion. In     band  index of its bands()
constexpr MapClass map_class_of(std::size_t band) {
    return static_cast<MapClass>(band);
}

/// The index of the criterion's class; nothing where it has none to tell.
constexpr std::optional<std::size_t> band_of(MapClass map_class) {
    if (map_class > MapClass::band_5)
        return std::nullopt;
    return static_cast<std::size_t>(map_class);
}

} // namespace halvane
