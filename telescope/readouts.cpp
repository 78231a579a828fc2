// SPDX-License-Identifier: MIT
#include "telescope/readouts.h"

#include "calendar/moddegree.h"

namespace halvane {

const TwinMessage moon_below_horizon{{"Moon is Invisible", "القمر غير موجود"},
                                     {"Moon is Below Horizon", "القمر تحت الأفق"}};

namespace {

struct Labels {
    const char *right_ascension, *declination, *altitude, *azimuth;
};

} // namespace

std::array<ReadOut, 12> telescope_readouts(const TelescopePointing& pointing) {
    constexpr std::array<Labels, 3> labels{{{"lblsunrav", "lblsundecv", "lblsunaltv", "lblsunazmv"},
                                            {"lblmoonrav", "lblmoondecv", "lblmoonaltv", "lblmoonazmv"},
                                            {"lblcrsrav", "lblcrsdecv", "lblcrsaltv", "lblcrsazmv"}}};
    const std::array<const SkyPlace*, 3> places{&pointing.sun, &pointing.moon, &pointing.crescent};
    std::array<ReadOut, 12> readouts;
    for (std::size_t i = 0; i < places.size(); ++i) {
        readouts[4 * i] = {labels[i].right_ascension,
                           moddegree3(to_the_second, 'h', places[i]->right_ascension / 15)};
        readouts[4 * i + 1] = {labels[i].declination, moddegree(to_the_second, 'd', places[i]->declination)};
        readouts[4 * i + 2] = {labels[i].altitude, moddegree(to_the_second, 'd', places[i]->altitude)};
        readouts[4 * i + 3] = {labels[i].azimuth, moddegree3(to_the_second, 'd', places[i]->azimuth)};
    }
    return readouts;
}

} // namespace halvane
