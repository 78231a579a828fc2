// SPDX-License-Identifier: MIT
#include "panel/currentplatform.h"
#include "tests/panel/panelharness.h"

#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <QWindow>

namespace halvane {
namespace {

class TopMostTest : public PanelTest {
protected:
    void SetUp() override {
        map_.show();
        own_platform().keep_on_top(&map_, true);
    }
    void TearDown() override { own_platform().keep_on_top(&map_, false); }
    static bool is_on_top(const QWidget& window) {
        return window.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
    }
    QDialog map_;
};

TEST_F(TopMostTest, ABoxAndAReportThatOpenLaterStandAsHighAsTheMap) {
    EXPECT_TRUE(is_on_top(map_));
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Halvane"), QStringLiteral("failed"));
    box.show();
    EXPECT_TRUE(is_on_top(box));
    put("results.out", "a report\r\n");
    own_platform().show_text_file("results.out");
    ASSERT_NE(open_window("viewer"), nullptr);
    EXPECT_TRUE(is_on_top(*open_window("viewer")));
}

TEST_F(TopMostTest, WithTheMapGoneTheyAreWindowsAmongTheOthers) {
    QWidget report;
    report.show();
    EXPECT_TRUE(is_on_top(report));
    map_.close();
    QCoreApplication::processEvents();
    EXPECT_FALSE(is_on_top(report));
    QWidget later;
    later.show();
    EXPECT_FALSE(is_on_top(later));
}

TEST_F(TopMostTest, WhatWasOpenBeforeStaysBelow) {
    own_platform().keep_on_top(&map_, false);
    QWidget report;
    report.show();
    own_platform().keep_on_top(&map_, true);
    EXPECT_FALSE(is_on_top(report));
    EXPECT_TRUE(is_on_top(map_));
    EXPECT_TRUE(map_.isVisible());
}

TEST_F(TopMostTest, TwoMapsKeepTheReportUntilBothAreGone) {
    auto second = std::make_unique<QDialog>();
    second->show();
    own_platform().keep_on_top(second.get(), true);
    QWidget report;
    report.show();
    map_.close();
    QCoreApplication::processEvents();
    EXPECT_TRUE(is_on_top(report));
    second.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(is_on_top(report));
}

} // namespace
} // namespace halvane
