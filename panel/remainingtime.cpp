// SPDX-License-Identifier: MIT
#include "panel/remainingtime.h"

#include <algorithm>
#include <cmath>

namespace halvane {

namespace {

constexpr double least_wait = 3; // [s]
constexpr double least_way = 1;  // per cent
constexpr double step = 0.2;     // between the moments that are kept [s]
constexpr std::size_t most_moments = 512;
constexpr double agreement = 0.25; // of the longer estimate
constexpr double never_mind = 2;   // estimates so close agree [s]

} // namespace

void RemainingTime::tell(double seconds, double percent) {
    if (percent < now_.percent || seconds < now_.seconds)
        moments_.clear();
    now_ = {seconds, percent};
    if (!moments_.empty() && seconds - moments_.back().seconds < step)
        return;
    moments_.push_back(now_);
    if (moments_.size() < most_moments)
        return;
    // Every second one is enough; the first stays.
    for (std::size_t i = 1; 2 * i < moments_.size(); ++i)
        moments_[i] = moments_[2 * i];
    moments_.resize((moments_.size() + 1) / 2);
}

double RemainingTime::left_since(const Moment& earlier) const {
    return (100 - now_.percent) * (now_.seconds - earlier.seconds) / (now_.percent - earlier.percent);
}

std::optional<double> RemainingTime::left() const {
    if (moments_.empty() || now_.percent >= 100)
        return {};
    const Moment& start = moments_.front();
    const double waited = now_.seconds - start.seconds;
    if (waited < least_wait || now_.percent - start.percent < least_way)
        return {};
    const double middle = start.seconds + waited / 2;
    const auto later =
        std::lower_bound(moments_.begin(), moments_.end(), middle,
                         [](const Moment& moment, double time) { return moment.seconds < time; });
    if (later == moments_.end() || later->percent >= now_.percent)
        return {};
    const double of_all = left_since(start);
    const double of_late = left_since(*later);
    if (std::abs(of_all - of_late) > std::max(never_mind, agreement * std::max(of_all, of_late)))
        return {};
    return of_late;
}

} // namespace halvane
