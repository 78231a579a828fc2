// SPDX-License-Identifier: MIT
#include "tests/panel/panelharness.h"

#include <QProcess>
#include <filesystem>
#include <fstream>

namespace halvane {
namespace {

class ViewerMemory : public PanelTest {
protected:
    /// As long as a table of a hundred years by the hour.
    void write_long_report() const {
        std::ofstream file(path("ephemeris.out"), std::ios::binary);
        std::string row(139, '7');
        for (int number = 0; number < rows; ++number) {
            const std::string figures = std::to_string(number);
            file << row.replace(0, figures.size(), figures) << "\r\n";
        }
        file << "the last line\r\n";
    }
    static constexpr int rows = 920000; // 130 MB
};

TEST_F(ViewerMemory, AReportOfAnySizeIsShownFoundCopiedAndSavedWithinAHundredMegabytes) {
    write_long_report();
    ASSERT_GT(std::filesystem::file_size(path("ephemeris.out")), 123000000U);
    QProcess viewer;
    const auto name = [this](const char* bare) { return QString::fromStdString(path(bare)); };
    viewer.start(QStringLiteral(HALVANE_LONG_VIEWER),
                 {name("."), name("ephemeris.out"), QStringLiteral("the last line"), name("copy.out")});
    ASSERT_TRUE(viewer.waitForFinished(120000));
    const QStringList lines =
        QString::fromUtf8(viewer.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    QStringList steps;
    for (const QString& line : lines) {
        steps << line.section(u' ', 0, 0);
        EXPECT_LT(line.section(u' ', 1).toLong(), 100000) << line.toStdString() << " kB";
        EXPECT_GT(line.section(u' ', 1).toLong(), 1000) << line.toStdString() << " kB";
    }
    EXPECT_EQ(steps.join(u' '), QStringLiteral("shown found sought copied saved"));
    QFile shown(name("ephemeris.out"));
    QFile copy(name("copy.out"));
    ASSERT_TRUE(shown.open(QIODevice::ReadOnly) && copy.open(QIODevice::ReadOnly));
    ASSERT_EQ(copy.size(), shown.size());
    while (!shown.atEnd())
        ASSERT_EQ(copy.read(1000000), shown.read(1000000));
}

} // namespace
} // namespace halvane
