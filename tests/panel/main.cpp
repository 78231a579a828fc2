#include <QApplication>
#include <QLocale>
#include <gtest/gtest.h>

int main(int count, char** words) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_STYLE_OVERRIDE", "Fusion");
    QApplication application(count, words);
    QLocale::setDefault(QLocale::c());
    ::testing::InitGoogleTest(&count, words);
    return RUN_ALL_TESTS();
}
