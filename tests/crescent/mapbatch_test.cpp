// SPDX-License-Identifier: MIT
#include "crescent/mapmarks.h"
#include "crescent/mapsheet.h"
#include "routines/seriesloader.h"
#include "tests/crescent/crescentfixture.h"
#include "tests/support/childprocess.h"

#include <array>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <gif_lib.h>
#include <gtest/gtest.h>
#include <iomanip>
#include <set>
#include <sstream>

namespace halvane {
namespace {

/// halvane-report in a folder of its own.
class MapBatch : public CrescentTest {
protected:
    MapBatch() { write_visib(crescent_near(29, 3, 2025)); }

    /// Exit status; what it prints goes to the files `out` and `err` of the folder.
    /// In     arguments  separated by blanks; one that holds blanks stands in quotes
    int run(const std::string& arguments) const {
        std::vector<std::string> words{"--folder", folder.path().string()};
        std::istringstream stream(arguments);
        for (std::string word; stream >> std::quoted(word, '\'', '\0');)
            words.push_back(word);
        ChildProcess process(HALVANE_REPORT, words, folder / "out", folder / "err");
        return process.wait();
    }
    std::vector<std::string> lines(const std::string& name) const {
        std::vector<std::string> found;
        std::istringstream stream(folder.read(name));
        for (std::string line; std::getline(stream, line);)
            found.push_back(line);
        return found;
    }
};

class Points : public MapReceiver {
public:
    void point(const MapPoint& point) override { points.push_back(point); }
    bool go_on() override { return true; }
    std::vector<MapPoint> points;
};

TEST_F(MapBatch, TableHoldsHeadLinesAndEveryPointInDrawingOrder) {
    const std::string path = (folder / "map.csv").string();
    ASSERT_EQ(run("map --criterion yallop --day 2 --csv '" + path + "'"), 0) << folder.read("err");
    const std::vector<std::string> table = lines("map.csv");
    const std::vector<std::string> head{
        "# New Crescent Visibility", "# Yallop Criterion",      "# Shawwal 1446", "# Monday",
        "# 31 March 2025",           "longitude,latitude,class"};
    ASSERT_GT(table.size(), head.size());
    EXPECT_EQ(std::vector<std::string>(table.begin(), table.begin() + 6), head);

    Points drawn;
    draw_visibility_map(loaded_theory(),
                        map_near(29, 3, 2025, CrescentKind::new_crescent, 2, Criterion::yallop), drawn);
    ASSERT_EQ(table.size() - head.size(), drawn.points.size());
    for (std::size_t i = 0; i < drawn.points.size(); ++i) {
        const MapPoint& point = drawn.points[i];
        ASSERT_EQ(table[i + head.size()], std::to_string(point.longitude) + "," +
                                              std::to_string(point.latitude) + "," +
                                              std::to_string(static_cast<int>(point.visibility)));
    }
    EXPECT_EQ(folder.read("out"), path + "\n");
}

TEST_F(MapBatch, EveryCriterionOfTheTableIsOfferedAndDrawn) {
    ASSERT_EQ(run("map --help"), 0);
    const std::string help = folder.read("out");
    for (const CriterionRow& criterion : criteria()) {
        EXPECT_NE(help.find(criterion.key), std::string::npos) << criterion.key;
        const std::string words = std::string("map --criterion ") + criterion.key;
        ASSERT_EQ(run(words + " --csv '" + (folder / "map.csv").string() + "'"), 0) << folder.read("err");
        EXPECT_EQ(lines("map.csv")[1],
                  std::string("# ") + criterion.name.in(Language::english) + " Criterion");
    }
}

TEST_F(MapBatch, PictureDecodesAndShowsItsPoints) {
    const std::string path = (folder / "map picture.gif").string();
    ASSERT_EQ(run("map --criterion vesk --output '" + path + "'"), 0) << folder.read("err");
    int error = 0;
    GifFileType* gif = DGifOpenFileName(path.c_str(), &error);
    ASSERT_NE(gif, nullptr);
    ASSERT_EQ(DGifSlurp(gif), GIF_OK);
    EXPECT_EQ(gif->SWidth, map_width);
    EXPECT_GT(gif->SHeight, map_height);
    const auto colour_at = [gif](const MapPixel& at) {
        const int x = static_cast<int>(std::lround(at.x)) + 2; // on the circle
        const int y = static_cast<int>(std::lround(at.y));
        const GifByteType index = gif->SavedImages[0].RasterBits[y * gif->SWidth + x];
        const GifColorType colour = gif->SColorMap->Colors[index];
        return std::array<int, 3>{colour.Red, colour.Green, colour.Blue};
    };
    // The evening of 29 March 2025: red in the far east, where the conjunction is still to come.
    EXPECT_EQ(colour_at(map_pixel(170, 0)), (std::array<int, 3>{238, 0, 0}));
    DGifCloseFile(gif, &error);
}

TEST_F(MapBatch, PictureMarksEveryClassOnTheMapAndInTheLegend) {
    const MapRun run = map_near(29, 3, 2025, CrescentKind::new_crescent, 1, Criterion::yallop);
    Points drawn;
    draw_visibility_map(loaded_theory(), run, drawn);
    MapClasses classes;
    for (const MapPoint& point : drawn.points)
        classes.add(point);
    const std::string path = (folder / "marks.gif").string();
    ASSERT_EQ(this->run("map --criterion yallop --day 1 --output '" + path + "'"), 0) << folder.read("err");
    int error = 0;
    GifFileType* gif = DGifOpenFileName(path.c_str(), &error);
    ASSERT_NE(gif, nullptr);
    ASSERT_EQ(DGifSlurp(gif), GIF_OK);
    /// Pixels of a colour within a rectangle.
    const auto count = [gif](int left, int top, int width, int height, const std::array<int, 3>& wanted) {
        int found = 0;
        for (int y = top; y < top + height; ++y)
            for (int x = left; x < left + width; ++x) {
                const GifByteType index = gif->SavedImages[0].RasterBits[y * gif->SWidth + x];
                const GifColorType colour = gif->SColorMap->Colors[index];
                found += std::array<int, 3>{colour.Red, colour.Green, colour.Blue} == wanted ? 1 : 0;
            }
        return found;
    };
    const std::array<int, 3> ink{34, 40, 49};
    const std::array<int, 3> paper{255, 255, 255};
    std::set<VisibilityClass> marked;
    for (const MapMark& mark : map_marks(classes)) {
        const int left = static_cast<int>(std::lround(mark.centre.x)) - 8;
        const int top = static_cast<int>(std::lround(mark.centre.y)) - 9;
        EXPECT_GT(count(left, top, 17, 19, ink), 10) << class_mark(mark.visibility);
        EXPECT_GT(count(left, top, 17, 19, paper), 30) << class_mark(mark.visibility);
        marked.insert(mark.visibility);
    }
    EXPECT_EQ(marked.size(), 6U);
    for (int line = 0; line < 7; ++line)
        EXPECT_GT(count(MapSheet::mark_left, MapSheet::line_top(line),
                        MapSheet::words_left - MapSheet::mark_left, MapSheet::line_height, ink),
                  0)
            << line;
    DGifCloseFile(gif, &error);
}

TEST_F(MapBatch, WithoutAFileThePictureIsNamedAfterTheHijriMonth) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    EXPECT_EQ(run("map"), 0);
    std::filesystem::current_path(before);
    EXPECT_TRUE(folder.has("Shawwal 1446.gif"));
}

TEST_F(MapBatch, KindComesFromTheStoredChoices) {
    write_visib(crescent_near(29, 3, 2025, false));
    ASSERT_EQ(run("map --day 1 --csv '" + (folder / "map.csv").string() + "'"), 0);
    EXPECT_EQ(lines("map.csv")[0], "# Old Crescent Visibility");
    EXPECT_EQ(lines("map.csv")[4], "# 28 March 2025");
}

TEST_F(MapBatch, BadOptionsAreRefusedAsUsage) {
    for (const char* arguments : {"map --criterion danjon", "map --day 3", "map --day -1", "map --day one",
                                  "map --colour", "map --csv"}) {
        EXPECT_EQ(run(arguments), 2) << arguments;
        EXPECT_FALSE(folder.read("err").empty()) << arguments;
    }
}

TEST_F(MapBatch, UnwritableOutputFailsAndSaysWhy) {
    for (const char* option : {"--csv", "--output"}) {
        EXPECT_EQ(run(std::string("map ") + option + " '/no such folder/map'"), 1) << option;
        EXPECT_NE(folder.read("err").find("/no such folder/map"), std::string::npos) << option;
    }
}

TEST_F(MapBatch, AFailedPictureGivesTheReason) {
    EXPECT_EQ(run("map --output '/no such folder/may.gif'"), 1);
    EXPECT_NE(folder.read("err").find(std::strerror(ENOENT)), std::string::npos) << folder.read("err");
    std::filesystem::create_directory(folder / "folder.gif");
    EXPECT_EQ(run("map --output '" + (folder / "folder.gif").string() + "'"), 1);
    EXPECT_NE(folder.read("err").find(std::strerror(EISDIR)), std::string::npos) << folder.read("err");
}

TEST_F(MapBatch, FilesOfTheProgramAreNotReplaced) {
    const std::string place = folder.read("loc.vsk");
    for (const char* name : {"map.gif", "images/../qmap.gif", "images/20.gif"}) {
        EXPECT_EQ(run("map --output '" + (folder / name).string() + "'"), 1) << name;
        EXPECT_NE(folder.read("err").find("a file of the program"), std::string::npos) << name;
    }
    EXPECT_FALSE(folder.has("map.gif"));
    EXPECT_EQ(folder.read("loc.vsk"), place);
}

TEST_F(MapBatch, FilesOfTheProgramAreNotReplacedInOtherLetters) {
    folder.write("hijri-rule.ini", "[rule]\nrule = tabular\n");
    folder.write("profile-mine.ini", "[rules]\n");
    const std::pair<const char*, const char*> names[] = {{"PREF.VSK", "pref.vsk"},
                                                         {"Loc.TXT", "loc.txt"},
                                                         {"Hijri-Rule.INI", "hijri-rule.ini"},
                                                         {"PROFILE-mine.ini", "profile-mine.ini"}};
    for (const auto& [capitals, name] : names) {
        const std::string before = folder.read(name);
        if (!folder.has(capitals)) // the file system tells the two apart
            folder.write(capitals, before);
        EXPECT_EQ(run(std::string("map --csv '") + (folder / capitals).string() + "'"), 1) << capitals;
        EXPECT_NE(folder.read("err").find("a file of the program"), std::string::npos) << capitals;
        EXPECT_EQ(folder.read(name), before);
        EXPECT_EQ(folder.read(capitals), before);
    }
    EXPECT_EQ(run("map --output '" + (folder / "MAP.gif").string() + "'"), 1);
    EXPECT_NE(folder.read("err").find("a file of the program"), std::string::npos);
}

TEST_F(MapBatch, AnEarlierPictureIsReplacedWhateverItsRights) {
    const std::string path = (folder / "mine.gif").string();
    ASSERT_EQ(run("map --output '" + path + "'"), 0) << folder.read("err");
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    EXPECT_EQ(run("map --day 1 --output '" + path + "'"), 0) << folder.read("err");
}

TEST_F(MapBatch, YearsBeyondTheTheoriesEndInATableOrAClearFailure) {
    for (const char* year : {"-4000", "0", "year", "9999", "999999999"}) {
        CrescentSettings settings = crescent_near(29, 3, 2025);
        settings.year = year;
        write_visib(settings);
        const int status = run("map --csv '" + (folder / "map.csv").string() + "'");
        if (status == 0) {
            EXPECT_EQ(folder.read("map.csv").find("nan"), std::string::npos) << year;
        } else {
            EXPECT_EQ(status, 1) << year;
            EXPECT_FALSE(folder.read("err").empty()) << year;
        }
    }
}

} // namespace
} // namespace halvane
