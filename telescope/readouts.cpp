// SPDX-License-Identifier: MIT
#include "telescope/readouts.h"

#include "calendar/moddegree.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace halvane {

const TwinMessage moon_below_horizon{{"Moon is Invisible", "القمر غير موجود"},
                                     {"Moon is Below Horizon", "القمر تحت الأفق"}};

namespace {

struct Labels {
    const char *right_ascension, *declination, *altitude, *azimuth;
};

} // namespace

std::array<ReadOut, 4> readouts_of(PointedBody body, const SkyPlace& place) {
    constexpr std::array<Labels, 3> of_bodies{{{"lblsunrav", "lblsundecv", "lblsunaltv", "lblsunazmv"},
                                               {"lblmoonrav", "lblmoondecv", "lblmoonaltv", "lblmoonazmv"},
                                               {"lblcrsrav", "lblcrsdecv", "lblcrsaltv", "lblcrsazmv"}}};
    const Labels& labels = of_bodies.at(static_cast<std::size_t>(body));
    return {{{labels.right_ascension, moddegree3(to_the_second, 'h', place.right_ascension / 15)},
             {labels.declination, moddegree(to_the_second, 'd', place.declination)},
             {labels.altitude, moddegree(to_the_second, 'd', place.altitude)},
             {labels.azimuth, moddegree3(to_the_second, 'd', place.azimuth)}}};
}

std::array<ReadOut, 12> telescope_readouts(const TelescopePointing& pointing) {
    std::array<ReadOut, 12> readouts;
    auto* next = readouts.begin();
    for (const auto& [body, place] :
         {std::pair{PointedBody::sun, pointing.sun}, std::pair{PointedBody::moon, pointing.moon},
          std::pair{PointedBody::crescent, pointing.crescent}}) {
        std::array<ReadOut, 4> four = readouts_of(body, place);
        next = std::move(four.begin(), four.end(), next);
    }
    return readouts;
}

} // namespace halvane
