// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "tests/timetable/timetables.h"
#include "timetable/manyplaces.h"
#include "timetable/timetablefiles.h"

#include <atomic>
#include <mutex>
#include <stdexcept>

namespace halvane {
namespace {

class ManyPlaces : public TimetableTest {
protected:
    /// Places from pole to pole, so that some have rules and some have none of their times.
    static std::vector<TimetableSettings> settings(int count) {
        Profile profile = authority_profile(*find_authority("mwl"));
        profile.high_latitude = HighLatitudeRule::share;
        std::vector<TimetableSettings> all;
        for (int i = 0; i < count; ++i) {
            const double latitude = -80 + 160.0 * i / count;
            const Location location = place_at({10.0 * i - 170}, {latitude}, i % 12);
            all.push_back({i % 2 == 0 ? fixed_place(location) : zoned_place(location, "Europe/London"),
                           profile, month_span(2026, 3).span});
        }
        return all;
    }
};

TEST_F(ManyPlaces, HaveTheRowsThatEachHasAlone) {
    const std::vector<TimetableSettings> all = settings(24);
    std::vector<std::string> texts(all.size());
    NoProgress progress;
    EXPECT_TRUE(make_timetables(
        loaded_theory(), all,
        [&](std::size_t number, const Timetable& timetable) {
            texts[number] = csv_of(timetable, PageSettings());
        },
        progress));
    for (std::size_t i = 0; i < all.size(); ++i)
        EXPECT_EQ(texts[i], csv_of(timetable_of(all[i].place, all[i].profile, all[i].span), PageSettings()))
            << i;
}

TEST_F(ManyPlaces, StopWhenTheyAreCancelled) {
    class CancelledSoon final : public Progress {
    public:
        void percent(double /*value*/) override {}
        bool yield() override { return false; }
    };
    CancelledSoon progress;
    std::atomic<int> taken{0};
    EXPECT_FALSE(make_timetables(
        loaded_theory(), settings(2000), [&](std::size_t, const Timetable&) { ++taken; }, progress));
    EXPECT_LT(taken, 2000);
}

TEST_F(ManyPlaces, RaiseTheFirstFailure) {
    NoProgress progress;
    EXPECT_THROW(make_timetables(
                     loaded_theory(), settings(24),
                     [](std::size_t number, const Timetable&) {
                         if (number == 5)
                             throw std::runtime_error("no room");
                     },
                     progress),
                 std::runtime_error);
    std::vector<TimetableSettings> impossible = settings(6);
    impossible[3].place.location.temperature = -273; // no refraction has a value there
    EXPECT_THROW(make_timetables(
                     loaded_theory(), impossible, [](std::size_t, const Timetable&) {}, progress),
                 RunTimeFailure);
}

} // namespace
} // namespace halvane
