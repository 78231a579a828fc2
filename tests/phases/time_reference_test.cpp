#include "calendar/moddeltat.h"

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

TEST(TimeReference, ANestedSpanGivesTheOuterValueBack) {
    const TdtSpan panel(1);
    {
        const TdtSpan run(0);
        EXPECT_EQ(tdtinput, 0);
    }
    EXPECT_EQ(tdtinput, 1);
}

TEST(TimeReference, APanelClosedDuringARunLeavesNothingBehind) {
    std::optional<TdtSpan> panel(1);
    std::optional<TdtSpan> run(0);
    panel.reset();
    EXPECT_EQ(tdtinput, 0);
    run.reset();
    EXPECT_EQ(tdtinput, 0);
}

TEST(TimeReference, AnEndedMiddleSpanLeavesThoseAroundIt) {
    std::optional<TdtSpan> first(1);
    std::optional<TdtSpan> middle(0);
    std::optional<TdtSpan> last(1);
    middle.reset();
    EXPECT_EQ(tdtinput, 1);
    last.reset();
    EXPECT_EQ(tdtinput, 1);
    first.reset();
    EXPECT_EQ(tdtinput, 0);
}

TEST(TimeReference, SpansEndedFromTheFirstOnKeepTheLatestValue) {
    std::optional<TdtSpan> first(1);
    std::optional<TdtSpan> middle(0);
    std::optional<TdtSpan> last(1);
    first.reset();
    EXPECT_EQ(tdtinput, 1);
    middle.reset();
    EXPECT_EQ(tdtinput, 1);
    last.reset();
    EXPECT_EQ(tdtinput, 0);
}

} // namespace
} // namespace halvane
