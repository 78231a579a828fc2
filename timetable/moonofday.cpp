// SPDX-License-Identifier: MIT
#include "timetable/moonofday.h"

#include "events/phase.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace halvane {
namespace {

constexpr int quarters = 4;

constexpr std::array<TwinText, 8> moon_names{{{"New Moon", "محاق"},
                                              {"crescent", "هلال"},
                                              {"first quarter", "تربيع أول"},
                                              {"gibbous", "أحدب"},
                                              {"Full Moon", "بدر"},
                                              {"gibbous", "أحدب"},
                                              {"last quarter", "تربيع ثاني"},
                                              {"crescent", "هلال"}}};

} // namespace

const TwinText& words_of(MoonOfDay moon) {
    return moon_names[static_cast<std::size_t>(moon)];
}

MoonPhases::MoonPhases(Ephemeris& ephemeris, double first, double last) {
    // A phase comes within 15 hours of its mean one, so one month more on each side is enough.
    const double first_lunation = std::floor(mean_lunation(first)) - 1;
    const double last_lunation = std::ceil(mean_lunation(last)) + 1;
    for (double k = first_lunation; k <= last_lunation; ++k)
        for (int quarter = 0; quarter < quarters; ++quarter) {
            const auto phase = static_cast<Phase>(quarter);
            const double estimate = phase_estimate(phase, k + quarter / static_cast<double>(quarters));
            const Instant moment = Instant::of_dynamical(refined_phase(ephemeris, phase, estimate));
            moments_.push_back({moment.ut1(), static_cast<MoonOfDay>(2 * quarter)});
        }
}

MoonOfDay MoonPhases::on(double start, double end) const {
    const auto next = std::find_if(moments_.begin(), moments_.end(),
                                   [start](const Moment& moment) { return moment.jd >= start; });
    if (next->jd < end)
        return next->phase;
    return static_cast<MoonOfDay>(static_cast<int>(std::prev(next)->phase) + 1);
}

} // namespace halvane
