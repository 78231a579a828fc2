// SPDX-License-Identifier: MIT
#include "tests/golden/goldenreport.h"

#include "calendar/modjul.h"
#include "calendar/modsummer.h"
#include "ephemeris/series.h"
#include "qibla/qiblahrun.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/date.h"
#include "stored/loc.h"
#include "stored/pref.h"
#include "tests/golden/recordingprogress.h"
#include "tests/qibla/independentsun.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace halvane {
namespace {

const std::string room = "qibla/";

QiblahMark mark_of(const std::string& name) {
    return name.starts_with("shadow") ? QiblahMark::shadow : QiblahMark::sun;
}

class QiblahGolden : public ::testing::TestWithParam<std::string> {};

TEST_P(QiblahGolden, ReportIsTheSameByteForByte) {
    expect_golden_report(room + GetParam(), "results.out", [] {
        load_term();
        load_mterm();
        RecordingProgress progress;
        EXPECT_EQ(write_report(*qiblah_run(loaded_theory(), machine_time(), stored_qiblah_direction(),
                                           mark_of(GetParam())),
                               progress),
                  RunOutcome::done);
    });
}

/// A printed time and its note.
struct PrintedTime {
    std::string text;
    std::string note;

    bool is_absent() const { return text == "----"; }
    double hours() const {
        const double seconds = text.size() > 5 ? std::stod(text.substr(6)) : 0;
        return std::stod(text.substr(0, 2)) + std::stod(text.substr(3, 2)) / 60 + seconds / 3600;
    }
};

struct PrintedRow {
    std::string line;
    bool summer = false;
    double jd = 0; ///< 0 h of the civil date
    PrintedTime first, second;
};

std::string column(const std::string& line, std::size_t from, std::size_t to) {
    const std::string text = line.substr(from - 1, to - from);
    const std::size_t end = text.find_last_not_of(' ');
    return end == std::string::npos ? "" : text.substr(0, end + 1);
}

std::vector<PrintedRow> rows_of(const std::string& report) {
    const std::vector<std::string> lines = lines_of(report);
    std::vector<PrintedRow> rows;
    for (std::size_t i = 18; i < lines.size() && lines[i].find("====") == std::string::npos; ++i) {
        if (lines[i].empty())
            continue;
        PrintedRow row;
        row.line = lines[i];
        row.summer = lines[i][0] == '*';
        const std::string date = lines[i].substr(row.summer ? 1 : 0);
        modjul(std::stoi(date.substr(6, 4)), std::stoi(date.substr(3, 2)), std::stoi(date.substr(0, 2)), 0,
               row.jd);
        row.first = {column(lines[i], 20, 30), column(lines[i], 30, 55)};
        row.second = {column(lines[i], 55, 70), column(lines[i], 70, 90)};
        rows.push_back(row);
    }
    return rows;
}

/// The Sun over one row of a golden report, by the independent ephemeris.
class RowsSun {
public:
    RowsSun(const PrintedRow& row, double azimuth)
        : location_(read_loc()), base_(row.jd - (location_.zone + (row.summer ? 1 : 0)) / 24),
          azimuth_(azimuth) {}

    Horizontal at(double hours) const {
        return independent_sun(base_ + hours / 24, longitude_of(location_), latitude_of(location_));
    }
    /// How far the Sun is beyond the azimuth                                                    [deg]
    double beyond(double hours) const { return azimuth_difference(at(hours).azimuth, azimuth_); }
    /// How often the Sun passes the azimuth on that day; passing it by less than a tolerance does not count.
    int passages(double tolerance) const {
        constexpr int steps = 24 * 60;
        int count = 0;
        bool is_beyond = beyond(0) > 0;
        for (int step = 1; step <= steps; ++step) {
            const double now = beyond(24.0 * step / steps);
            if (std::fabs(now) <= tolerance || is_beyond == (now > 0))
                continue;
            is_beyond = !is_beyond;
            count += std::fabs(now) < 90; // the opposite azimuth is none
        }
        return count;
    }

private:
    Location location_;
    double base_;
    double azimuth_;
};

constexpr double azimuth_tolerance = 0.05;  // [deg]
constexpr double altitude_tolerance = 0.01; // [deg]

/// The time is printed to a whole unit, and its note is that of the moment Delta T later.
void check_time(const PrintedTime& time, const RowsSun& sun, double limit, double delta_t) {
    if (time.is_absent()) {
        EXPECT_EQ(time.note, "");
        return;
    }
    const double half_unit = time.text.size() == 5 ? 0.5 / 60 : 0.5 / 3600;
    const double early = time.hours() - half_unit;
    const double late = time.hours() + half_unit;
    EXPECT_LT(std::min(sun.beyond(early), sun.beyond(late)), azimuth_tolerance);
    EXPECT_GT(std::max(sun.beyond(early), sun.beyond(late)), -azimuth_tolerance);
    const auto [low, high] = std::minmax(
        {sun.at(early + delta_t * 24).altitude - limit, sun.at(late + delta_t * 24).altitude - limit});
    if (low > altitude_tolerance) {
        EXPECT_EQ(time.note, "");
    } else if (high < -altitude_tolerance) {
        EXPECT_EQ(time.note, "Below Horizon");
    }
}

TEST_P(QiblahGolden, TimesAgreeWithAnIndependentEphemeris) {
    if (!has_independent_sun)
        GTEST_SKIP() << "NOT CHECKED: the Swiss Ephemeris library is not installed";
    const std::filesystem::path source = golden_folder(room + GetParam());
    const TemporaryProgramFolder folder(source);
    const Location& location = read_loc();
    const double azimuth =
        target_azimuth(stored_qiblah_direction(), mark_of(GetParam()) == QiblahMark::shadow);
    const double limit = qiblah_altitude_limit(location.elevation, location.pressure, location.temperature);
    const double delta_t = 74.0 / 86400; // of 2024 and 2025 [d]
    for (const PrintedRow& row : rows_of(bytes_of(source / "results.out"))) {
        SCOPED_TRACE(row.line);
        const RowsSun sun(row, azimuth);
        check_time(row.first, sun, limit, delta_t);
        check_time(row.second, sun, limit, delta_t);
        EXPECT_EQ(!row.first.is_absent() + !row.second.is_absent(), sun.passages(azimuth_tolerance));
    }
}

TEST_P(QiblahGolden, RowsAreTheDaysOfThePeriodWithTheirMarks) {
    const std::filesystem::path source = golden_folder(room + GetParam());
    const TemporaryProgramFolder folder(source);
    const CalculationDate date = read_date();
    const std::vector<PrintedRow> rows = rows_of(bytes_of(source / "results.out"));
    double start = 0;
    double end = 0;
    modjul(date.start.year, date.start.month, date.start.day, 0, start);
    modjul(date.end.year, date.end.month, date.end.day, 0, end);
    ASSERT_EQ(static_cast<double>(rows.size()), end - start + 1);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].jd, start + static_cast<double>(i));
        EXPECT_EQ(rows[i].summer, summer_hours_of(read_pref(), rows[i].jd) == 1) << rows[i].line;
    }
}

INSTANTIATE_TEST_SUITE_P(Reports, QiblahGolden, ::testing::ValuesIn(golden_names(room)), golden_test_name);

TEST(QiblahGoldens, AreAtLeastEight) {
    EXPECT_GE(golden_names(room).size(), 8U);
}

} // namespace
} // namespace halvane
