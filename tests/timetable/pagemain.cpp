// SPDX-License-Identifier: MIT
#include <QGuiApplication>
#include <gtest/gtest.h>

int main(int count, char** words) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(count, words);
    ::testing::InitGoogleTest(&count, words);
    return RUN_ALL_TESTS();
}
