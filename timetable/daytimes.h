// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>

namespace halvane {

/// The six times of a day in its order.
enum class DayTime { fajer, shuroq, dhohur, aser, maghreb, isha };

/// Something for each of the six.
template <class Value>
struct OfSix {
    std::array<Value, 6> values{};

    Value& operator[](DayTime time) { return values[static_cast<std::size_t>(time)]; }
    const Value& operator[](DayTime time) const { return values[static_cast<std::size_t>(time)]; }
    bool operator==(const OfSix&) const = default;
};

inline constexpr DayTime day_times[] = {DayTime::fajer, DayTime::shuroq,  DayTime::dhohur,
                                        DayTime::aser,  DayTime::maghreb, DayTime::isha};

/// The five that are prayed: all but Shuroq.
inline constexpr DayTime prayed_times[] = {DayTime::fajer, DayTime::dhohur, DayTime::aser, DayTime::maghreb,
                                           DayTime::isha};

} // namespace halvane
