// SPDX-License-Identifier: MIT
#include "telescope/readouts.h"

#include "base/failure.h"

#include <gtest/gtest.h>
#include <limits>

namespace halvane {
namespace {

TelescopePointing sample() {
    TelescopePointing pointing;
    pointing.sun = {352.275, -3.5, -11.25, 272.5};
    pointing.moon = {8.7125, 3.0, 6.25, 0.0};
    pointing.crescent = {0.0, -0.001, -0.5, 359.99999};
    return pointing;
}

TEST(TelescopeReadOuts, StandInTheOrderSunMoonCrescent) {
    const auto readouts = telescope_readouts(sample());
    std::string order;
    for (const ReadOut& readout : readouts)
        order += std::string(readout.label) + " ";
    EXPECT_EQ(order,
              "lblsunrav lblsundecv lblsunaltv lblsunazmv lblmoonrav lblmoondecv lblmoonaltv lblmoonazmv "
              "lblcrsrav lblcrsdecv lblcrsaltv lblcrsazmv ");
}

TEST(TelescopeReadOuts, RightAscensionIsInHoursWithoutASign) {
    EXPECT_EQ(telescope_readouts(sample())[0].text, "23H 29M 06S ");
    EXPECT_EQ(telescope_readouts(sample())[4].text, "00H 34M 51S ");
}

TEST(TelescopeReadOuts, DeclinationAndAltitudeAreSignedAngles) {
    EXPECT_EQ(telescope_readouts(sample())[1].text, "-03°:30':00\"");
    EXPECT_EQ(telescope_readouts(sample())[2].text, "-11°:15':00\"");
    EXPECT_EQ(telescope_readouts(sample())[5].text, "+03°:00':00\"");
    EXPECT_EQ(telescope_readouts(sample())[9].text, "-00°:00':04\"");
}

TEST(TelescopeReadOuts, AzimuthIsAnUnsignedPlainAngle) {
    EXPECT_EQ(telescope_readouts(sample())[3].text, "272:30:00");
    EXPECT_EQ(telescope_readouts(sample())[7].text, "00:00:00");
    EXPECT_EQ(telescope_readouts(sample())[11].text, "360:00:00");
}

TEST(TelescopeReadOuts, AValueThatIsNotFiniteIsARunTimeFailure) {
    TelescopePointing pointing = sample();
    pointing.crescent.altitude = std::numeric_limits<double>::infinity();
    EXPECT_THROW(telescope_readouts(pointing), RunTimeFailure);
}

TEST(TelescopeReadOuts, TheMessageIsOfAMoonBelowTheHorizon) {
    EXPECT_STREQ(moon_below_horizon.title.english, "Moon is Invisible");
    EXPECT_STREQ(moon_below_horizon.text.english, "Moon is Below Horizon");
}

} // namespace
} // namespace halvane
