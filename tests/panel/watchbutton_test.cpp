// SPDX-License-Identifier: MIT
#include "crescent/frmcresv.h"
#include "desktop/panels.h"
#include "routines/seriesloader.h"
#include "stored/visib.h"
#include "tests/panel/panelchecks.h"
#include "watch/frmwatch.h"

#include <QPointer>
#include <algorithm>
#include <memory>
#include <string>

namespace halvane {
namespace {

class WatchButtonTest : public PanelTest {
protected:
    WatchButtonTest() {
        load_series();
        write_visib(march_2025());
        const auto all = panels();
        const auto found = std::find_if(
            all.begin(), all.end(), [](const Panel& panel) { return panel.form == std::string("frmcresv"); });
        crescent.reset(found->make(nullptr));
        crescent->show();
    }

    /// Choices for the day after the conjunction of 29 March 2025 (Astronomical Almanac).
    static CrescentSettings march_2025() {
        CrescentSettings settings;
        settings.day = "29";
        settings.month = "3";
        settings.year = "2025";
        return settings;
    }

    std::unique_ptr<QDialog> crescent;
};

TEST_F(WatchButtonTest, OpensTheSheetOfTodayBeforeADayIsFound) {
    click(*crescent, "cmdwatch");
    auto* const sheet = qobject_cast<frmwatch*>(open_window("frmwatch"));
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(chosen(*sheet, "cboday"), QStringLiteral("21"));
    EXPECT_EQ(chosen(*sheet, "cbomonth"), QStringLiteral("June"));
    EXPECT_EQ(text(*sheet, "txtyear"), QStringLiteral("2024"));
}

TEST_F(WatchButtonTest, OpensTheSheetOfTheChosenDayAndUsesItAgain) {
    click(*crescent, "cmdprev");
    click(*crescent, "cmdwatch");
    auto* const sheet = qobject_cast<frmwatch*>(open_window("frmwatch"));
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(chosen(*sheet, "cboday"), QStringLiteral("30"));
    EXPECT_TRUE(checked(*sheet, "optnew"));
    click(*crescent, "optold");
    click(*crescent, "cmdprev");
    click(*crescent, "cmdwatch");
    EXPECT_EQ(open_window("frmwatch"), sheet);
    EXPECT_EQ(chosen(*sheet, "cboday"), QStringLiteral("28"));
    EXPECT_TRUE(checked(*sheet, "optold"));
}

TEST_F(WatchButtonTest, ClosesTheSheetWithItsPanel) {
    click(*crescent, "cmdwatch");
    const QPointer<QWidget> sheet(open_window("frmwatch"));
    ASSERT_NE(sheet, nullptr);
    click(*crescent, "cmdclose");
    EXPECT_EQ(open_window("frmwatch"), nullptr);
}

} // namespace
} // namespace halvane
