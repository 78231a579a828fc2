// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "panel/kepttext.h"
#include "panel/reporthead.h"
#include "panel/textsearch.h"
#include "stored/textfile.h"
#include "tests/panel/panelharness.h"

#include <fstream>
#include <sys/stat.h>

namespace halvane {
namespace {

class KeptTextTest : public PanelTest {
protected:
    std::shared_ptr<const KeptText> kept(const std::string& content) {
        std::ofstream(path("text.out"), std::ios::binary) << content;
        return KeptText::of_file(path("text.out"));
    }
    /// So many numbered lines, longer than what is held in memory.
    static std::string many_lines(int lines) {
        std::string content;
        for (int line = 0; line < lines; ++line)
            content += "line " + std::to_string(line) + " " + std::string(90, 'x') + "\r\n";
        return content;
    }
    static constexpr int many = 100000; // lines, 10 MB
};

TEST_F(KeptTextTest, CountsLinesAndCharacters) {
    const auto text = kept("one\r\nعمان\r\n\r\nlast");
    EXPECT_EQ(text->lines(), 4);
    EXPECT_EQ(text->longest_line(), 4);
    EXPECT_EQ(text->line(0), QStringLiteral("one"));
    EXPECT_EQ(text->line(1), QStringLiteral("عمان"));
    EXPECT_EQ(text->line(2), QString());
    EXPECT_EQ(text->line(3), QStringLiteral("last"));
    EXPECT_EQ(text->line(4), QString());
    EXPECT_EQ(text->end(), (TextPlace{3, 4}));
}

TEST_F(KeptTextTest, TheLineBehindTheLastLineEndIsEmpty) {
    const auto text = kept("one\n");
    EXPECT_EQ(text->lines(), 2);
    EXPECT_EQ(text->line(1), QString());
    EXPECT_EQ(kept("")->lines(), 1);
}

TEST_F(KeptTextTest, ABlockThatEndsWithALineIsFollowedByTheNext) {
    for (const int lines : {63, 64, 65, 128}) {
        std::string content;
        for (int line = 0; line < lines; ++line)
            content += std::to_string(line) + "\n";
        const auto text = kept(content);
        EXPECT_EQ(text->lines(), lines + 1);
        for (int line = 0; line < lines; ++line)
            EXPECT_EQ(text->line(line), QString::number(line));
        EXPECT_EQ(text->line(lines), QString());
    }
}

TEST_F(KeptTextTest, AByteOrderMarkIsNoCharacter) {
    const auto text = kept("\xEF\xBB\xBFone\r\n");
    EXPECT_EQ(text->line(0), QStringLiteral("one"));
    EXPECT_EQ(text->between({}, {0, 1}), QStringLiteral("o"));
}

TEST_F(KeptTextTest, OtherBytesAreWindows1256WhereverTheyStand) {
    const auto text = kept("one\r\n" + std::string(70000, 'a') + "\r\n\xD3\xE1\xC7\xE3\r\n");
    EXPECT_EQ(text->line(text->lines() - 2), QStringLiteral("سلام"));
    EXPECT_EQ(text->between({text->lines() - 2, 1}, {text->lines() - 2, 3}), QStringLiteral("لا"));
}

TEST_F(KeptTextTest, CharactersThatMeetTheEndOfAPortionStayWhole) {
    for (int shift = 0; shift < 4; ++shift) {
        std::string content(static_cast<std::size_t>(shift), 'a');
        for (int line = 0; line < 3000; ++line)
            content += "€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€𝄞\n"; // three bytes each, and four
        const auto text = kept(content);
        for (int line = 1; line < 3000; ++line)
            ASSERT_TRUE(text->line(line).startsWith(QStringLiteral("€€"))) << line;
    }
}

TEST_F(KeptTextTest, ALineWithoutEndGoesOnInTheNext) {
    const auto text = kept(std::string(50000, 'a'));
    EXPECT_EQ(text->lines(), 4);
    EXPECT_EQ(text->between({}, text->end()), QString(50000, u'a')) << "without line ends of its own";
}

TEST_F(KeptTextTest, BetweenCrossesLinesAndBlocks) {
    std::string content;
    for (int line = 0; line < 200; ++line)
        content += "row " + std::to_string(line) + " عمان\r\n";
    const auto text = kept(content);
    EXPECT_EQ(text->between({62, 4}, {65, 6}), QStringLiteral("62 عمان\nrow 63 عمان\nrow 64 عمان\nrow 65"));
    EXPECT_EQ(text->between({0, 6}, {0, 8}), QStringLiteral("عم"));
}

TEST_F(KeptTextTest, StaysWhateverTakesTheFilesNameOrPlace) {
    for (const int lines : {3, many}) {
        const std::string written = many_lines(lines);
        const auto text = kept(written);
        const QString last = text->line(lines - 1);
        EXPECT_TRUE(last.startsWith(QStringLiteral("line ") + QString::number(lines - 1)));
        std::ofstream(path("text.out"), std::ios::binary) << "changed in place";
        EXPECT_EQ(text->line(lines - 2).left(5), QStringLiteral("line "));
        save_text_file(path("text.out"), "another file");
        text->save(path("copy.out"));
        EXPECT_EQ(content("copy.out"), written);
        EXPECT_FALSE(text->lost());
    }
}

TEST_F(KeptTextTest, ANamedPipeIsRefusedAtOnce) {
    ASSERT_EQ(::mkfifo(path("pipe.out").c_str(), 0600), 0);
    const auto found_at = [](const std::string& name) {
        try {
            KeptText::of_file(name);
        } catch (const RunTimeFailure& failure) {
            return failure.parts().found.english;
        }
        return std::string();
    };
    EXPECT_EQ(found_at(path("pipe.out")), "a named pipe");
    EXPECT_EQ(found_at(path("")), "a folder");
    EXPECT_EQ(found_at("/dev/null"), "a device");
}

TEST_F(KeptTextTest, ASearchCrossesBlocksAndComesAround) {
    const auto text = kept(many_lines(1000));
    const auto search = [&text](const QString& words, TextPlace from, TextSearch::Direction direction) {
        TextSearch looking(text, words, from, direction);
        while (!looking.is_over())
            looking.step();
        return looking.found();
    };
    constexpr auto forward = TextSearch::Direction::forward;
    constexpr auto backward = TextSearch::Direction::backward;
    EXPECT_EQ(search(QStringLiteral("LINE 700 "), {}, forward), (TextPlace{700, 0}));
    EXPECT_EQ(search(QStringLiteral("line 700 "), {701, 0}, forward), (TextPlace{700, 0}));
    EXPECT_EQ(search(QStringLiteral("line 700 "), {700, 1}, forward), (TextPlace{700, 0}))
        << "ahead of the start, in its own line";
    EXPECT_EQ(search(QStringLiteral("700 "), {700, 5}, backward), (TextPlace{700, 5}));
    EXPECT_EQ(search(QStringLiteral("line 3 "), {700, 0}, backward), (TextPlace{3, 0}));
    EXPECT_EQ(search(QStringLiteral("line 800 "), {700, 0}, backward), (TextPlace{800, 0}));
    EXPECT_EQ(search(QStringLiteral("nowhere"), {700, 0}, forward), std::nullopt);
    EXPECT_EQ(search(QStringLiteral("nowhere"), {700, 0}, backward), std::nullopt);
}

struct HeadRow {
    const char* report;
    const char* english;
    const char* arabic;
    int titles;
};

class ReportHeadTest : public ::testing::TestWithParam<HeadRow> {};

TEST_P(ReportHeadTest, TellsReportPlaceAndPeriod) {
    const auto text = KeptText::of_file(std::string(HALVANE_GOLDEN_FOLDER "/") + GetParam().report);
    const ReportHead head = report_head(*text);
    const auto plain = [](QString title) { return title.remove(QChar(0x2068)).remove(QChar(0x2069)); };
    EXPECT_EQ(plain(title_of(head, Language::english)), QString::fromUtf8(GetParam().english));
    EXPECT_EQ(plain(title_of(head, Language::arabic)), QString::fromUtf8(GetParam().arabic));
    EXPECT_EQ(head.titles, GetParam().titles);
    if (head.titles > 0) {
        EXPECT_TRUE(text->line(head.first_title - 2).startsWith(QStringLiteral("=====")));
        EXPECT_TRUE(text->line(head.first_title + head.titles - 1).isEmpty());
    }
}

INSTANTIATE_TEST_SUITE_P(
    Every, ReportHeadTest,
    ::testing::Values(
        HeadRow{"prayer/lat62-bright-seconds/results.out",
                "Prayer Times - Torshavn - 28/07/2026 – 27/08/2026",
                "مواقيت الصلاة - Torshavn - 28/07/2026 – 27/08/2026", 3},
        HeadRow{"moon/delivered-year/mresults.out", "Moon Times - Amman - 01/01/2026 – 31/12/2026",
                "مواقيت القمر - Amman - 01/01/2026 – 31/12/2026", 2},
        HeadRow{"qibla/shadow-buenos-aires-minutes/results.out",
                "Qiblah Times - Buenos Aires, Centro - 08/02/2024 – 04/03/2024",
                "أوقات القبلة - Buenos Aires, Centro - 08/02/2024 – 04/03/2024", 3},
        HeadRow{"phases/topocentric-ut1-sydney-summer-wraps-2024/results.out",
                "Topocentric Moon Phases - Sydney - 2024", "أطوار القمر السطحية - Sydney - 2024", 2},
        HeadRow{"crescent/new-note-both/visib.out", "Crescent Visibility - Mecca - 19/05/2023",
                "رؤية الهلال - Mecca - 19/05/2023", 0},
        HeadRow{"crescent/short-polar-night/visib.out", "Crescent Visibility", "رؤية الهلال", 0},
        HeadRow{"tables/sun-topocentric-ut1-one-row/ephemeris.out", "Sun Ephemeris - London - 20/06/2024",
                "زيج الشمس - London - 20/06/2024", 2}));

TEST(ReportHead, AnotherTextHasNone) {
    const ReportHead head = report_head(*KeptText::of_words(QStringLiteral("one\n- Prayer times for: x\n")));
    EXPECT_EQ(head.kind, nullptr);
    EXPECT_EQ(title_of(head, Language::english), QString());
}

} // namespace
} // namespace halvane
