// SPDX-License-Identifier: MIT
#include "telescope/crescentpicture.h"

#include "base/failure.h"

#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>

namespace halvane {
namespace {

TEST(CrescentPicture, ADirectionOf354Point9ShowsThePictureFor350) {
    EXPECT_EQ(crescent_picture(354.9, false, false), "350.gif");
}

TEST(CrescentPicture, ADirectionOf355ShowsThePictureFor00) {
    EXPECT_EQ(crescent_picture(355, false, false), "00.gif");
    EXPECT_EQ(crescent_picture(359.999, false, false), "00.gif");
}

TEST(CrescentPicture, TheZenithHasTwoDigits) {
    EXPECT_EQ(crescent_picture(0, false, false), "00.gif");
    EXPECT_EQ(crescent_picture(4.999, false, false), "00.gif");
}

TEST(CrescentPicture, AHalfwayDirectionBelongsToTheNextPicture) {
    EXPECT_EQ(crescent_picture(5, false, false), "10.gif");
    EXPECT_EQ(crescent_picture(14.999, false, false), "10.gif");
    EXPECT_EQ(crescent_picture(15, false, false), "20.gif");
    EXPECT_EQ(crescent_picture(345, false, false), "350.gif");
}

TEST(CrescentPicture, EveryDirectionIsWithinFiveDegreesOfItsPicture) {
    for (int tenths = 0; tenths < 3600; ++tenths) {
        const double z = tenths / 10.0;
        const double shown = std::stod(crescent_picture(z, false, false));
        EXPECT_LE(std::fabs(std::remainder(z - shown, 360)), 5) << z;
    }
}

TEST(CrescentPicture, TheFlipsAreMarkedHorizontalFirst) {
    EXPECT_EQ(crescent_picture(190, true, false), "190h.gif");
    EXPECT_EQ(crescent_picture(190, false, true), "190v.gif");
    EXPECT_EQ(crescent_picture(190, true, true), "190hv.gif");
    EXPECT_EQ(crescent_picture(0, true, true), "00hv.gif");
}

TEST(CrescentPicture, EveryPictureIsDelivered) {
    for (int direction = 0; direction < 360; direction += 10)
        for (const bool horizontal : {false, true})
            for (const bool vertical : {false, true}) {
                const std::string name = crescent_picture(direction, horizontal, vertical);
                EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(HALVANE_DATA) / "images" / name))
                    << name;
            }
}

TEST(CrescentPicture, ADirectionThatIsNotFiniteIsARunTimeFailure) {
    EXPECT_THROW(crescent_picture(std::nan(""), false, false), RunTimeFailure);
}

} // namespace
} // namespace halvane
