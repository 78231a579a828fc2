// SPDX-License-Identifier: MIT
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"

#include <QApplication>
#include <QLocale>
#include <gtest/gtest.h>

int main(int count, char** words) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_STYLE_OVERRIDE", "Fusion");
    QApplication application(count, words);
    halvane::use_halvane_look();
    halvane::use_halvane_keys();
    halvane::handle_events_while_waiting();
    halvane::silence_late_clicks();
    QLocale::setDefault(QLocale::c());
    ::testing::InitGoogleTest(&count, words);
    return RUN_ALL_TESTS();
}
