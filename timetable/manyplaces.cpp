// SPDX-License-Identifier: MIT
#include "timetable/manyplaces.h"

#include "base/sharedwork.h"

#include <atomic>
#include <memory>
#include <optional>

namespace halvane {
namespace {

/// Tells the threads of a work that it is given up, in the middle of a piece too.
class SharedProgress final : public Progress {
public:
    explicit SharedProgress(Progress& told) : told_(told) {}
    void percent(double value) override { told_.percent(value); }
    bool yield() override {
        if (!told_.yield())
            given_up_ = true;
        return !given_up_;
    }
    const std::atomic<bool>& given_up() const { return given_up_; }

private:
    Progress& told_;
    std::atomic<bool> given_up_{false};
};

/// The progress of a piece: it only learns that the work is given up.
class PieceProgress final : public Progress {
public:
    explicit PieceProgress(const std::atomic<bool>& given_up) : given_up_(given_up) {}
    void percent(double /*value*/) override {}
    bool yield() override { return !given_up_; }

private:
    const std::atomic<bool>& given_up_;
};

} // namespace

SeriesUse series_use(std::size_t places) {
    constexpr std::size_t few_places = 4;
    return places > few_places ? SeriesUse::interpolated_year : SeriesUse::each_instant;
}

bool make_timetables(const TheoryPointer& theory, const std::vector<TimetableSettings>& settings,
                     const std::function<void(std::size_t, const Timetable&)>& take, Progress& progress) {
    SharedProgress shared(progress);
    std::atomic<std::size_t> made{0};
    const auto begin = [&]() -> DoPiece {
        const auto ephemeris = std::make_shared<Ephemeris>(theory, series_use(settings.size()));
        return [&, ephemeris](std::size_t number) {
            PieceProgress piece(shared.given_up());
            const std::optional<Timetable> timetable = make_timetable(*ephemeris, settings[number], piece);
            if (!timetable)
                return;
            take(number, *timetable);
            ++made;
        };
    };
    share_work(settings.size(), begin, shared);
    return made == settings.size();
}

} // namespace halvane
