// SPDX-License-Identifier: MIT
#include "finemap/mapframe.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace halvane {

std::optional<TwinWords> refused_window(const MapWindow& window, double step) {
    const auto within = [](double value, double least, double greatest) {
        return value >= least && value <= greatest;
    };
    if (!within(window.south, most_southern, most_northern) ||
        !within(window.north, most_southern, most_northern))
        return TwinWords{"The latitudes of a map are from -85 to 85.", "عروض الخريطة من -85 إلى 85."};
    if (window.east < window.west)
        return TwinWords{
            "The eastern side of a map is not below its western one: beyond the date line it is above 180.",
            "طول الجانب الشرقي للخريطة لا يقل عن الغربي: و هو بعد خط التاريخ فوق 180."};
    if (!within(window.west, -180, 179.999) || !within(window.east - window.west, 0, 360))
        return TwinWords{"The western side of a map is from -180 to below 180, and it is at most 360 wide.",
                         "طول الجانب الغربي للخريطة من -180 إلى ما دون 180، و عرضها 360 على الأكثر."};
    if (!(window.east - window.west >= step) || !(window.north - window.south >= step))
        return TwinWords{"A map is at least one step wide and high, its north above its south.",
                         "لا تقل الخريطة عن خطوة واحدة عرضا و ارتفاعا، و شمالها فوق جنوبها."};
    return std::nullopt;
}

double shape_of(const MapWindow& window) {
    constexpr double least_cosine = 0.2;
    const double middle = (window.north + window.south) / 2 * std::numbers::pi / 180;
    const double cosine = std::max(std::cos(middle), least_cosine);
    return (window.north - window.south) / ((window.east - window.west) * cosine);
}

MapFrame fitted_frame(const MapWindow& window, const MapFrame& room) {
    const double shape = shape_of(window);
    MapFrame frame{window, room.left, room.top, room.width, room.height};
    if (room.width * shape > room.height)
        frame.width = room.height / shape;
    else
        frame.height = room.width * shape;
    frame.left += (room.width - frame.width) / 2;
    frame.top += (room.height - frame.height) / 2;
    return frame;
}

double longitude_in(const MapWindow& window, double longitude) {
    constexpr double circle = 360;
    return longitude + circle * std::ceil((window.west - longitude) / circle);
}

bool holds(const MapWindow& window, const MapPosition& place) {
    return place.longitude >= window.west && place.longitude <= window.east &&
           place.latitude >= window.south && place.latitude <= window.north;
}

} // namespace halvane
