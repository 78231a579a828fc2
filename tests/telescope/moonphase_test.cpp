// SPDX-License-Identifier: MIT
#include "telescope/moonphase.h"

#include <gtest/gtest.h>
#include <utility>

namespace halvane {
namespace {

TEST(MoonPhase, WordsTellNameLitPartAndBrightLimb) {
    const TwinWords words = phase_words({0.0318, true, 251.4});
    EXPECT_EQ(words.english, "Waxing crescent, 3.2 % lit, bright limb at 251° from north");
    EXPECT_EQ(words.arabic, "هلال متزايد، المضاء منه 3.2 %، الحافة المضيئة عند 251° من الشمال");
}

TEST(MoonPhase, ALimbJustShortOfNorthIsAtNorth) {
    EXPECT_EQ(phase_words({0.7, false, 359.6}).english,
              "Waning gibbous, 70.0 % lit, bright limb at 0° from north");
}

TEST(MoonPhase, NamesFollowTheFigureThatIsShown) {
    const std::pair<double, const char*> waxing[] = {{0, "New Moon"},
                                                     {0.0004, "New Moon"},
                                                     {0.0006, "Waxing crescent"},
                                                     {0.4994, "Waxing crescent"},
                                                     {0.4996, "First quarter"},
                                                     {0.5004, "First quarter"},
                                                     {0.5006, "Waxing gibbous"},
                                                     {0.9994, "Waxing gibbous"},
                                                     {0.9996, "Full Moon"},
                                                     {1, "Full Moon"}};
    for (const auto& [fraction, name] : waxing)
        EXPECT_STREQ(phase_name({fraction, true, 0}).english, name) << fraction;
    const std::pair<double, const char*> waning[] = {
        {0.0004, "New Moon"}, {0.3, "Waning crescent"}, {0.5, "Last quarter"}, {0.8, "Waning gibbous"}};
    for (const auto& [fraction, name] : waning)
        EXPECT_STREQ(phase_name({fraction, false, 0}).english, name) << fraction;
}

} // namespace
} // namespace halvane
