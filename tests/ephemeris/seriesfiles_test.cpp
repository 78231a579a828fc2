// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "ephemeris/series.h"
#include "routines/seriesloader.h"
#include "tests/support/programfolder.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace halvane {
namespace {

using Rows = std::vector<std::vector<std::string>>;

Rows rows_of(const std::string& text) {
    Rows rows;
    std::vector<std::string> row(1);
    for (const char c : text)
        if (c == ',') {
            row.emplace_back();
        } else if (c == '\n') {
            rows.push_back(row);
            row.assign(1, "");
        } else if (c != '\r') {
            row.back() += c;
        }
    return rows;
}

/// A decimal text in units of its `decimals`th place, modulo 2^64.
std::uint64_t in_units(std::string_view text, int decimals) {
    std::uint64_t value = 0;
    bool after_point = false;
    const bool negative = text.starts_with('-');
    for (const char c : text.substr(negative ? 1 : 0)) {
        if (c == '.') {
            after_point = true;
            continue;
        }
        value = value * 10 + static_cast<std::uint64_t>(c - '0');
        decimals -= after_point ? 1 : 0;
    }
    for (; decimals > 0; --decimals)
        value *= 10;
    return negative ? 0 - value : value;
}

/// A column's sum, and its sum weighted by the row, modulo 2^64: a flipped sign or digit and an exchanged row
/// change one of the two.
struct ColumnSums {
    std::uint64_t sum, weighted;
    bool operator==(const ColumnSums&) const = default;
};

ColumnSums sums_of(const Rows& rows, std::size_t column, int decimals) {
    ColumnSums sums{0, 0};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::uint64_t value = in_units(rows[i][column], decimals);
        sums.sum += value;
        sums.weighted += (i + 1) * value;
    }
    return sums;
}

void expect_ordinals(const Rows& rows) {
    for (std::size_t i = 0; i < rows.size(); ++i)
        EXPECT_EQ(rows[i][0], std::to_string(i + 1));
}

// The sums were taken apart from the published tables: VSOP87D (Bretagnon and Francou 1988),
// tables 22.A, 47.A and 47.B of Meeus (1998), ELP 2000-85 (Chapront-Touze and Chapront 1991).

TEST(DeliveredSeries, AreKnownByTheirChecksum) {
    const TemporaryProgramFolder folder;
    load_series();
    EXPECT_TRUE(series_notes(Language::english).empty());
    const std::vector<std::pair<const char*, void (*)()>> files{{"term.vsk", load_term},
                                                                {"termfull.vsk", load_termfull},
                                                                {"mterm.vsk", load_mterm},
                                                                {"elp.vsk", load_elp}};
    for (const auto& [name, load] : files) {
        std::string text = folder.read(name);
        const std::size_t digit = text.find_last_of("12345678");
        ++text[digit];
        folder.write(name, text);
        load();
        const std::string path = (folder / name).string();
        EXPECT_EQ(series_notes(Language::english),
                  std::vector<std::string>{"the series file " + path + " is not the delivered one"});
        EXPECT_NE(series_notes(Language::arabic).at(0).find(path), std::string::npos);
        folder.write(name, bytes_of(delivered(name)));
        load();
        EXPECT_TRUE(series_notes(Language::english).empty()) << name;
    }
}

TEST(DeliveredSeries, ACutOneIsAFailureThatNamesItAndIsNoted) {
    const TemporaryProgramFolder folder;
    const std::string text = folder.read("term.vsk");
    folder.write("term.vsk", text.substr(0, text.size() / 2));
    try {
        load_term();
        ADD_FAILURE() << "a cut series was taken";
    } catch (const RunTimeFailure& failure) {
        EXPECT_NE(std::string(failure.what()).find((folder / "term.vsk").string()), std::string::npos);
    }
    EXPECT_EQ(series_notes(Language::english).size(), 1U);
    folder.write("term.vsk", text);
    load_term();
    EXPECT_TRUE(series_notes(Language::english).empty());
}

TEST(DeliveredSeries, HoldsTheCompleteSunAsPublished) {
    const Rows rows = rows_of(bytes_of(delivered("termfull.vsk")));
    ASSERT_EQ(rows.size(), 2425U);
    EXPECT_EQ(sums_of(rows, 0, 11), (ColumnSums{628612816648863U, 352011823892212810U}));
    EXPECT_EQ(sums_of(rows, 1, 11), (ColumnSums{761930075121140U, 930089945701147260U}));
    EXPECT_EQ(sums_of(rows, 2, 11), (ColumnSums{4712087070076990315U, 5022092317207844163U}));
}

TEST(DeliveredSeries, HoldsTheLargestTermsOfTheSun) {
    const Rows rows = rows_of(bytes_of(delivered("term.vsk")));
    ASSERT_EQ(rows.size(), 248U);
    expect_ordinals(rows);
    EXPECT_EQ(sums_of(rows, 1, 0), (ColumnSums{6283604597702U, 496400424799543U}));
    EXPECT_EQ(sums_of(rows, 2, 11), (ColumnSums{72939216300195U, 9305240391905784U}));
    EXPECT_EQ(sums_of(rows, 3, 11), (ColumnSums{302338239845670732U, 4821740232816148891U}));
}

TEST(DeliveredSeries, HoldsTheTablesOfNutationAndMoonAsPublished) {
    const Rows rows = rows_of(bytes_of(delivered("mterm.vsk")));
    ASSERT_EQ(rows.size(), 183U);
    expect_ordinals(rows);
    const ColumnSums expected[]{{179U, 24041U},
                                {13U, 1064U},
                                {23U, 1084U},
                                {54U, 384U},
                                {14323818U, 1284723351U},
                                {18446744073681109558U, 18446744071888376334U},
                                {18446744073709549829U, 18446744073709549694U},
                                {98301U, 106993U},
                                {53U, 6U}};
    const int decimals[]{0, 0, 0, 0, 0, 0, 1, 0, 1};
    for (std::size_t column = 0; column < 9; ++column)
        EXPECT_EQ(sums_of(rows, column + 1, decimals[column]), expected[column]) << "column " << column + 2;
}

TEST(DeliveredSeries, HoldsTheLunarTablesAsPublished) {
    const Rows rows = rows_of(bytes_of(delivered("elp.vsk")));
    ASSERT_EQ(rows.size(), 1324U);
    Rows main;
    Rows secondary;
    std::size_t next = 0;
    for (const auto& coordinate : elp_blocks)
        for (std::size_t block = 0; block < coordinate.size(); ++block) {
            const Rows part(rows.begin() + static_cast<std::ptrdiff_t>(next),
                            rows.begin() + static_cast<std::ptrdiff_t>(next + coordinate[block]));
            next += coordinate[block];
            expect_ordinals(part);
            Rows& kind = block == 0 ? main : secondary;
            for (const auto& row : part) {
                ASSERT_EQ(row.size(), block == 0 ? 7U : 4U);
                kind.push_back(row);
            }
        }
    const ColumnSums expected_main[]{{18446741249394056242U, 18445592904854345817U},
                                     {10225801543180U, 2892891600574260U},
                                     {44480446291585110U, 12064332500645074170U},
                                     {18446744073409690736U, 18446743982758108296U},
                                     {2639800U, 18446744073347891536U},
                                     {18446744073708113866U, 118706610U}};
    const int decimals_main[]{8, 8, 8, 4, 4, 4};
    for (std::size_t column = 0; column < 6; ++column)
        EXPECT_EQ(sums_of(main, column + 1, decimals_main[column]), expected_main[column]) << column;
    EXPECT_EQ(sums_of(secondary, 1, 8), (ColumnSums{4474446000U, 2333130700000U}));
    EXPECT_EQ(sums_of(secondary, 2, 8), (ColumnSums{14233490830000U, 5430810101230000U}));
    EXPECT_EQ(sums_of(secondary, 3, 8), (ColumnSums{15245182383530000U, 7281454070963470000U}));
}

struct SeriesFile {
    const char* name;
    void (*load)();
    std::size_t rows;
};

class SeriesFileTest : public testing::TestWithParam<SeriesFile> {
protected:
    const SeriesFile& file() const { return GetParam(); }
    std::string text() const { return bytes_of(delivered(file().name)); }
    std::optional<std::string> words_for(const std::string& bytes) const {
        folder.write(file().name, bytes);
        try {
            file().load();
        } catch (const RunTimeFailure& failure) {
            return failure.what();
        }
        return std::nullopt;
    }
    /// Everything that the files give, as numbers.
    static std::vector<double> loaded() {
        std::vector<double> all;
        const auto add = [&all](const SeriesColumn& column) {
            all.insert(all.end(), column.begin(), column.end());
        };
        for (const SunSeries* s : {&loaded_theory()->termfull(), &loaded_theory()->term()})
            for (const SeriesColumn* column : {&s->amplitude, &s->phase, &s->frequency})
                add(*column);
        for (const PeriodicTerms* t : {&loaded_theory()->mterm().nutation, &loaded_theory()->mterm().moon})
            for (const SeriesColumn* column : {&t->d, &t->m, &t->m_prime, &t->f, &t->omega, &t->sine,
                                               &t->sine_rate, &t->cosine, &t->cosine_rate})
                add(*column);
        const MoonMainTerms& main = loaded_theory()->elp().main;
        const MoonSecondaryTerms& secondary = loaded_theory()->elp().secondary;
        for (const SeriesColumn* column : {&main.amplitude, &main.a0, &main.a1, &main.a2, &main.a3, &main.a4,
                                           &secondary.amplitude, &secondary.a0, &secondary.a1})
            add(*column);
        return all;
    }
    void SetUp() override { load_series(); }
    void TearDown() override {
        folder.write(file().name, text());
        load_series();
    }
    TemporaryProgramFolder folder;
};

TEST_P(SeriesFileTest, ReadsTheSameWithOtherLineEndsAndRowsAfterItsCount) {
    const auto expected = loaded();
    std::string unix_lines = text();
    std::erase(unix_lines, '\r');
    const std::string without_end = text().substr(0, text().size() - 2);
    for (const std::string& bytes : {unix_lines, "\xEF\xBB\xBF" + text(), without_end,
                                     text() + "1,2,junk\r\n", text() + std::string(100000, 'x')}) {
        EXPECT_EQ(words_for(bytes), std::nullopt);
        EXPECT_EQ(loaded(), expected);
    }
}

TEST_P(SeriesFileTest, NamesTheRowAndFieldOfJunk) {
    const auto expected = loaded();
    Rows rows = rows_of(text());
    for (const std::size_t row : {std::size_t{0}, file().rows / 2, file().rows - 1})
        for (std::size_t field = 0; field < rows[row].size(); ++field)
            for (const std::string& junk :
                 {std::string("junk"), std::string(), std::string("nan"), std::string("1e999"),
                  std::string(100000, '9'), std::string("\"1\"")}) {
                Rows damaged = rows;
                damaged[row][field] = junk;
                std::string bytes;
                for (const auto& fields : damaged) {
                    for (std::size_t i = 0; i < fields.size(); ++i)
                        bytes += (i > 0 ? "," : "") + fields[i];
                    bytes += "\r\n";
                }
                const auto words = words_for(bytes);
                ASSERT_TRUE(words.has_value()) << junk;
                EXPECT_NE(words->find(std::string(file().name) + ", record " + std::to_string(row + 1) +
                                      ", field " + std::to_string(field + 1)),
                          std::string::npos)
                    << *words;
            }
    EXPECT_EQ(loaded(), expected) << "a failed load leaves the arrays as they were";
}

TEST_P(SeriesFileTest, CutShortIsAFailureThatNamesIt) {
    const std::string whole = text();
    for (const std::size_t length : {std::size_t{0}, std::size_t{1}, whole.size() / 3, whole.size() / 2,
                                     whole.size() - 20, whole.rfind(',') + 1}) {
        const auto words = words_for(whole.substr(0, length));
        ASSERT_TRUE(words.has_value()) << length;
        EXPECT_NE(words->find(file().name), std::string::npos) << *words;
    }
    folder.erase(file().name);
    EXPECT_THROW(file().load(), RunTimeFailure);
}

std::string file_name(const testing::TestParamInfo<SeriesFile>& info) {
    const std::string name = info.param.name;
    return name.substr(0, name.find('.'));
}

INSTANTIATE_TEST_SUITE_P(Each, SeriesFileTest,
                         testing::Values(SeriesFile{"termfull.vsk", load_termfull, 2425},
                                         SeriesFile{"term.vsk", load_term, 248},
                                         SeriesFile{"mterm.vsk", load_mterm, 183},
                                         SeriesFile{"elp.vsk", load_elp, 1324}),
                         file_name);

} // namespace
} // namespace halvane
