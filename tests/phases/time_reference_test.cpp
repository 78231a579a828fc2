// SPDX-License-Identifier: MIT
#include "calendar/moddeltat.h"
#include "routines/tdtinput.h"

#include <gtest/gtest.h>
#include <optional>

namespace halvane {
namespace {

TEST(TimeReference, ASpanHoldsUntilItsEnd) {
    {
        const TdtSpan run(1);
        EXPECT_EQ(tdtinput, 1);
    }
    EXPECT_EQ(tdtinput, 0);
}

TEST(TimeReference, ANestedRunGivesTheOuterOnesValueBack) {
    const TdtSpan outer(0);
    {
        const TdtSpan nested(1);
        EXPECT_EQ(tdtinput, 1);
    }
    EXPECT_EQ(tdtinput, 0);
}

TEST(TimeReference, AnOpenPanelHoldsDynamicalTimeAroundARun) {
    const TdtHold panel;
    EXPECT_EQ(tdtinput, 1);
    {
        const TdtSpan run(0);
        EXPECT_EQ(tdtinput, 0);
    }
    EXPECT_EQ(tdtinput, 1);
}

TEST(TimeReference, APanelOpenedInMidRunDoesNotReachIt) {
    std::optional<TdtHold> panel;
    {
        const TdtSpan run(0);
        panel.emplace();
        EXPECT_EQ(tdtinput, 0);
        {
            const TdtSpan nested(1);
            EXPECT_EQ(tdtinput, 1);
        }
        EXPECT_EQ(tdtinput, 0);
    }
    EXPECT_EQ(tdtinput, 1);
    panel.reset();
    EXPECT_EQ(tdtinput, 0);
}

TEST(TimeReference, APanelClosedInMidRunLeavesNothingBehind) {
    std::optional<TdtHold> panel(std::in_place);
    {
        const TdtSpan run(0);
        panel.reset();
        EXPECT_EQ(tdtinput, 0);
    }
    EXPECT_EQ(tdtinput, 0);
}

TEST(TimeReference, TheLastOfTwoPanelsGivesUniversalTimeBack) {
    std::optional<TdtHold> first(std::in_place);
    std::optional<TdtHold> second(std::in_place);
    first.reset();
    EXPECT_EQ(tdtinput, 1);
    second.reset();
    EXPECT_EQ(tdtinput, 0);
}

} // namespace
} // namespace halvane
