// SPDX-License-Identifier: MIT
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tools/makeseries/seriesfiles.h"

namespace {

using halvane::BadTable;

constexpr std::pair<const char*, int> sun_groups[] = {
    {"L0", 559}, {"L1", 341}, {"L2", 142}, {"L3", 22}, {"L4", 11}, {"L5", 5},
    {"B0", 184}, {"B1", 99},  {"B2", 49},  {"B3", 11}, {"B4", 5},  {"R0", 526},
    {"R1", 292}, {"R2", 139}, {"R3", 27},  {"R4", 10}, {"R5", 3}};
constexpr int elp_blocks[] = {218, 244, 154, 25, 188, 64, 64, 12, 154, 114, 68, 19};

std::string padded(int number, int width) {
    std::string text = std::to_string(number);
    return std::string(static_cast<std::size_t>(width) - text.size(), '0') + text;
}

/// Tables of the published shape whose numbers tell their place; each test bends one of them.
class MakeSeries : public testing::Test {
protected:
    void SetUp() override {
        folder_ = std::filesystem::path(testing::TempDir()) /
                  testing::UnitTest::GetInstance()->current_test_info()->name();
        std::filesystem::create_directories(folder_);
        write("vsop87d-earth.csv", vsop_table());
        write("elp2000-85.csv", elp_table());
        write("meeus-nutation.csv",
              "D,M,Mprime,F,Omega,psi0,psi1,eps0,eps1\n" + rows(63, "0,1,-2,3,4,-5,0.6,7,-0.8"));
        write("meeus-moon-lr.csv", "D,M,Mprime,F,lon,dist\n" + rows(60, "0,0,1,0,6288774,-20905355"));
        write("meeus-moon-b.csv", "D,M,Mprime,F,lat\n" + rows(60, "0,0,0,1,5128122"));
    }

    void TearDown() override { std::filesystem::remove_all(folder_); }

    void write(const std::string& name, const std::string& text) const {
        std::ofstream(folder_ / name, std::ios::binary) << text;
    }

    void replace(const std::string& name, const std::string& found, const std::string& replacement) const {
        std::ostringstream content;
        content << std::ifstream(folder_ / name, std::ios::binary).rdbuf();
        std::string text = content.str();
        const std::size_t place = text.find(found);
        ASSERT_NE(place, std::string::npos);
        write(name, text.replace(place, found.size(), replacement));
    }

    std::string refusal() const {
        try {
            halvane::read_published_series(folder_);
        } catch (const BadTable& failure) {
            return failure.what();
        }
        return "";
    }

    halvane::PublishedSeries series() const { return halvane::read_published_series(folder_); }

    static std::string rows(int count, const std::string& row) {
        std::string text;
        for (int i = 0; i < count; ++i) {
            text += row + "\n";
        }
        return text;
    }

    static std::string vsop_table() {
        std::string text = "group,rank,A,B,C\n";
        for (const auto& [group, count] : sun_groups) {
            for (int rank = 1; rank <= count; ++rank) {
                text += std::string(group) + "," + std::to_string(rank) + ",0.0000" + padded(1000 - rank, 7) +
                        ",0." + padded(rank, 11) + ",6.50000000000\n";
            }
        }
        return text;
    }

    static std::string elp_table() {
        std::string text = "block,n,A,a0,a1,a2,a3,a4\n";
        int block = 0;
        for (const int count : elp_blocks) {
            ++block;
            const bool main_problem = block % 4 == 1;
            for (int n = 1; n <= count; ++n) {
                text += std::to_string(block) + "," + std::to_string(n) + ",-0.50,1.0,2.0," +
                        (main_problem ? "3.00,4.000,-5.0" : ",,") + "\n";
            }
        }
        return text;
    }

    static std::vector<std::string> lines(const std::string& file) {
        std::vector<std::string> result;
        std::size_t start = 0;
        for (std::size_t end = file.find("\r\n"); end != std::string::npos; end = file.find("\r\n", start)) {
            result.push_back(file.substr(start, end - start));
            start = end + 2;
        }
        EXPECT_EQ(start, file.size());
        return result;
    }

    std::filesystem::path folder_;
};

TEST_F(MakeSeries, FullSunSeriesKeepsOrderAndDigits) {
    const auto file = lines(halvane::termfull_file(series().vsop87d));
    ASSERT_EQ(file.size(), 2425U);
    EXPECT_EQ(file[0], "0.00000000999,0.00000000001,6.50000000000");
    EXPECT_EQ(file[559], "0.00000000999,0.00000000001,6.50000000000");
    EXPECT_EQ(file[2424], "0.00000000997,0.00000000003,6.50000000000");
}

TEST_F(MakeSeries, ShortSunSeriesTakesTheLargestTermsInDescendingOrder) {
    replace("vsop87d-earth.csv", "L0,3,0.00000000997,", "L0,3,-0.00000005000,");
    replace("vsop87d-earth.csv", "L0,200,0.00000000800,", "L0,200,0.00000005000,");
    const auto file = lines(halvane::term_file(series().vsop87d));
    ASSERT_EQ(file.size(), 248U);
    EXPECT_EQ(file[0], "1,-5,0.00000000003,6.50000000000");
    EXPECT_EQ(file[1], "2,5,0.00000000200,6.50000000000");
    EXPECT_EQ(file[2], "3,1,0.00000000001,6.50000000000");
    EXPECT_EQ(file[78], "79,10,0.00000000001,6.50000000000");
    EXPECT_EQ(file[144], "145,999,0.00000000001,6.50000000000");
    EXPECT_EQ(file[247], "248,996,0.00000000004,6.50000000000");
}

TEST_F(MakeSeries, AmplitudesAreRoundedHalfUp) {
    replace("vsop87d-earth.csv", "L0,1,0.00000000999,", "L0,1,0.00000009500,");
    replace("vsop87d-earth.csv", "L0,2,0.00000000998,", "L0,2,0.00000008499,");
    replace("vsop87d-earth.csv", "L0,3,0.00000000997,", "L0,3,-0.00000007500,");
    replace("vsop87d-earth.csv", "L0,4,0.00000000996,", "L0,4,-0.00000006501,");
    const auto file = lines(halvane::term_file(series().vsop87d));
    EXPECT_EQ(file[0], "1,10,0.00000000001,6.50000000000");
    EXPECT_EQ(file[1], "2,8,0.00000000002,6.50000000000");
    EXPECT_EQ(file[2], "3,-7,0.00000000003,6.50000000000");
    EXPECT_EQ(file[3], "4,-7,0.00000000004,6.50000000000");
}

TEST_F(MakeSeries, MoonAndNutationRowsHaveTenFields) {
    const auto tables = series();
    const auto file = lines(halvane::mterm_file(tables.nutation, tables.moon_lr, tables.moon_b));
    ASSERT_EQ(file.size(), 183U);
    EXPECT_EQ(file[0], "1,0,1,-2,3,4,-5,0.6,7,-0.8");
    EXPECT_EQ(file[63], "64,0,0,1,0,6288774,-20905355,0,0,0");
    EXPECT_EQ(file[182], "183,0,0,0,1,5128122,0,0,0,0");
}

TEST_F(MakeSeries, LunarTheoryCountsWithinTheBlocks) {
    const auto file = lines(halvane::elp_file(series().elp2000_85));
    ASSERT_EQ(file.size(), 1324U);
    EXPECT_EQ(file[217], "218,-0.50,1.0,2.0,3.00,4.000,-5.0");
    EXPECT_EQ(file[218], "1,-0.50,1.0,2.0");
    EXPECT_EQ(file[1323], "19,-0.50,1.0,2.0");
}

TEST_F(MakeSeries, NamesAMissingTable) {
    std::filesystem::remove(folder_ / "meeus-moon-b.csv");
    EXPECT_EQ(refusal(), (folder_ / "meeus-moon-b.csv").string() + ": cannot be opened");
}

TEST_F(MakeSeries, NamesTheLineOfABadNumber) {
    replace("meeus-moon-lr.csv", "0,0,1,0,6288774,-20905355\n", "0,0,1,0,6288774,1e5\n");
    EXPECT_NE(refusal().find("line 2: field 6: expected a number, found \"1e5\""), std::string::npos);
}

TEST_F(MakeSeries, RefusesAnotherHead) {
    replace("elp2000-85.csv", "block,n,A", "n,block,A");
    EXPECT_NE(refusal().find("line 1: expected the head \"block,n,A,a0,a1,a2,a3,a4\""), std::string::npos);
}

TEST_F(MakeSeries, RefusesAMissingField) {
    replace("meeus-moon-b.csv", "0,0,0,1,5128122\n", "0,0,1,5128122\n");
    EXPECT_NE(refusal().find("line 2: expected 5 fields, found 4"), std::string::npos);
}

TEST_F(MakeSeries, RefusesAMissingRow) {
    replace("meeus-nutation.csv", "0,1,-2,3,4,-5,0.6,7,-0.8\n", "");
    EXPECT_NE(refusal().find("expected 63 rows, found 62"), std::string::npos);
}

TEST_F(MakeSeries, RefusesAMissingTermOfAGroup) {
    replace("vsop87d-earth.csv", "L1,7,0.00000000993,0.00000000007,6.50000000000\n", "");
    EXPECT_NE(refusal().find("line 567: expected row 7 of group L1, found row 8 of group L1"),
              std::string::npos);
}

TEST_F(MakeSeries, RefusesRowsAfterTheLastGroup) {
    replace(
        "vsop87d-earth.csv", "R5,3,0.00000000997,0.00000000003,6.50000000000\n",
        "R5,3,0.00000000997,0.00000000003,6.50000000000\nR5,4,0.00000000996,0.00000000004,6.50000000000\n");
    EXPECT_NE(refusal().find("expected 2425 rows, found 2426"), std::string::npos);
}

TEST_F(MakeSeries, RefusesASecondaryRowWithMainFields) {
    replace("elp2000-85.csv", "2,1,-0.50,1.0,2.0,,,\n", "2,1,-0.50,1.0,2.0,3.0,,\n");
    EXPECT_NE(refusal().find("line 220: field 6: expected nothing, found \"3.0\""), std::string::npos);
}

TEST_F(MakeSeries, RefusesAnAmplitudeOfOtherDigits) {
    replace("vsop87d-earth.csv", "L0,1,0.00000000999,", "L0,1,0.000000009,");
    EXPECT_THROW(halvane::term_file(series().vsop87d), BadTable);
}

} // namespace
