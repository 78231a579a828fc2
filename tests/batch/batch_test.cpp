// SPDX-License-Identifier: MIT
#include "system/usersfolder.h"
#include "tests/batch/batchprocess.h"
#include "tests/golden/goldenreport.h"

#include <nlohmann/json.hpp>

namespace halvane {
namespace {

TEST_F(BatchTest, WritesAReportAndNamesIt) {
    for (const auto& [task, name] : {std::pair{std::string("prayer"), std::string("results.out")},
                                     {std::string("moon"), std::string("mresults.out")}}) {
        const Outcome outcome = run_in_folder({"--now", "2026-02-18T12:00", task});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.output, (folder / name).string() + "\n");
        EXPECT_EQ(outcome.errors, "") << "no bar where there is no terminal";
        EXPECT_TRUE(holds(folder.read(name), "from:  18/02/2026 CE   To:  18/02/2026 CE"));
    }
}

TEST_F(BatchTest, WritesTheSameReportAsTheRoutine) {
    const std::filesystem::path golden = golden_folder("prayer/high-latitude-60-leap");
    for (const char* name : {"pref.vsk", "loc.vsk", "date.vsk"})
        folder.write(name, bytes_of(golden / name));
    EXPECT_EQ(run_in_folder({"prayer"}).status, 0);
    EXPECT_TRUE(same_bytes(folder.read("results.out"), bytes_of(golden / "results.out")));
}

TEST_F(BatchTest, PrintsTodaysSixTimes) {
    const Outcome outcome = run_in_folder({"today", "--now", "2026-02-18T12:00"});
    EXPECT_EQ(outcome.status, 0);
    // The row of the same day in the checked report of the delivered location.
    EXPECT_EQ(outcome.output,
              "Fajer 05:54\nShuroq 07:16\nDhohur 12:50\nAser 16:00\nMaghreb 18:25\nIsha 19:47\n");
    EXPECT_TRUE(holds(bytes_of(golden_folder("prayer/delivered-year") / "results.out"),
                      "18/02/2026     05:54     07:16     12:50     16:00     18:25     19:47"));
    EXPECT_FALSE(folder.has("results.out"));
}

TEST_F(BatchTest, ListsTheCriteria) {
    const Outcome text = run_in_folder({"criteria"});
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(text.errors, "");
    EXPECT_TRUE(holds(text.output, "yallop-1997: Yallop as published"));
    const Outcome made = run_in_folder({"criteria", "--format", "json"});
    EXPECT_EQ(made.status, 0);
    const nlohmann::json list = nlohmann::json::parse(made.output);
    EXPECT_EQ(list["task"], "criteria");
    // Yallop, NAO Technical Note 69: class A above 0.216, class F has no border below.
    int of_yallop = 0;
    for (const auto& row : list["rows"])
        if (row["criterion"] == "yallop-1997") {
            ++of_yallop;
            EXPECT_EQ(row["class"] == 0, row["border"].is_null());
            EXPECT_EQ(row["class"] == 5, row["border"] == 0.216);
        }
    EXPECT_EQ(of_yallop, 6);
    const Outcome wrong = run_in_folder({"criteria", "--format", "xml"});
    EXPECT_EQ(wrong.status, 2);
}

TEST_F(BatchTest, TakesTheSeriesOfItsOwnFolderForAFolderOfSettings) {
    for (const char* name : series_files)
        folder.erase(name);
    EXPECT_EQ(run_in_folder({"today"}).status, 0);
}

TEST_F(BatchTest, TellsHelpAndVersion) {
    const Outcome help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* word : {"prayer", "moon", "today", "--folder", "--now", "--version"})
        EXPECT_TRUE(holds(help.output, word)) << word;
    EXPECT_EQ(help.errors, "");
    const Outcome version = run({"--version"});
    EXPECT_EQ(version.status, 0);
    // The folder is told where a user cannot know it from where the program stands.
    ASSERT_TRUE(version.output.starts_with("halvane-report 5.3.9")) << version.output;
    const std::string rest = version.output.substr(version.output.find('\n') + 1);
    EXPECT_EQ(rest.starts_with("Folder of the settings and reports: "), users_folder().has_value());
    EXPECT_EQ(rest.empty(), !users_folder().has_value());
}

TEST_F(BatchTest, WrongUsageHasAStatusOfItsOwn) {
    const std::string somewhere = folder.path().string();
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{},
          {"nothing"},
          {"prayer", "--wrong"},
          {"--folder", "/no/such/folder", "prayer"},
          {"--folder", somewhere, "--now", "yesterday", "today"},
          {"--folder", somewhere, "--now", "2026-13-01T00:00", "today"},
          {"--folder", somewhere, "--now", "2026-01-01T24:00", "today"},
          {"--folder", somewhere, "--now", "2026-01-01", "today"},
          {"--folder", somewhere, "--now", "2026-01-01T12:00x", "today"}}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2) << outcome.errors;
        EXPECT_EQ(outcome.output, "");
        EXPECT_NE(outcome.errors, "");
    }
}

TEST_F(BatchTest, NamesDamagedAndMissingFiles) {
    folder.write("pref.vsk", "18,junk\r\n");
    expect_failure(run_in_folder({"prayer"}),
                   "pref.vsk, record 1, field 2: wanted a number, found \"junk\".");
    folder.erase("pref.vsk");
    for (const char* task : {"prayer", "moon", "today"})
        expect_failure(run_in_folder({task}), "Cannot open " + (folder / "pref.vsk").string());
    folder.write("pref.vsk", bytes_of(delivered("pref.vsk")));
    folder.write("term.vsk", "1,2\r\n");
    const Outcome damaged = run_in_folder({"prayer"});
    EXPECT_EQ(damaged.status, 1);
    EXPECT_TRUE(holds(damaged.errors, "term.vsk, record 1, field 3")) << damaged.errors;
    EXPECT_TRUE(holds(damaged.errors, note_of("term.vsk"))) << damaged.errors;
    EXPECT_FALSE(folder.has("results.out"));
}

TEST_F(BatchTest, NamesASettingWithoutAFiniteResult) {
    folder.write("loc.vsk", "\"Cold\",36,0,0,31,0,0,0,2,#TRUE#,#TRUE#,#FALSE#,#FALSE#,0,1010,-273\r\n");
    for (const char* task : {"prayer", "moon", "today"})
        expect_failure(
            run_in_folder({"--now", "2026-02-18T12:00", task}),
            "The calculation of a rise or set altitude on 18/02/2026 for Cold has no finite value");
    EXPECT_FALSE(folder.has("results.out"));
    EXPECT_FALSE(folder.has("mresults.out"));
}

TEST_F(BatchTest, TellsOfASeriesFileThatIsNotTheDeliveredOne) {
    std::string series = bytes_of(delivered("term.vsk"));
    series[series.find_last_of("12345678")] += 1;
    folder.write("term.vsk", series);
    const Outcome outcome = run_in_folder({"today"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, note_of("term.vsk"));
}

TEST_F(BatchTest, ACutMapPictureIsAFailureThatNamesIt) {
    const std::string map = bytes_of(delivered("map.gif"));
    for (const std::size_t length : {map.size() / 2, map.size() - 1, std::size_t{0}}) {
        folder.write("map.gif", map.substr(0, length));
        expect_failure(run_in_folder({"map", "--output", (folder / "new.gif").string()}),
                       (folder / "map.gif").string());
        EXPECT_FALSE(folder.has("new.gif"));
    }
}

TEST_F(BatchTest, AYearBeyondTheTheoriesIsToldBeforeTheRun) {
    folder.write("date.vsk", "#TRUE#,200000,1,1,200000,1,1,2026,1,1,2026,1,1,200000,1,1,#FALSE#,#FALSE#\r\n");
    folder.write("phase.vsk", "\"99999\",#TRUE#,#TRUE#\r\n");
    folder.write("tele.vsk", "200000,3,11,18,30,#TRUE#,#FALSE#,#TRUE#,#FALSE#,0,0\r\n");
    folder.write("coor.vsk", "1,#TRUE#,#TRUE#,2026,1,1,0,0,0,200000,1,1,0,0,0,1,3,0\r\n");
    folder.write("visib.vsk", "\"1\",\"1\",\"300000\",#TRUE#,#TRUE#,#TRUE#,#FALSE#,#FALSE#,#FALSE#,#FALSE#,"
                              "#TRUE#,#FALSE#,\"0\",\"0\",#TRUE#,#FALSE#,0,\"1447\"\r\n");
    for (const char* task : {"prayer", "moon", "qibla-sun", "qibla-shadow", "phases", "telescope",
                             "ephemeris", "crescent", "map"}) {
        const Outcome outcome = run_in_folder({task});
        EXPECT_EQ(outcome.status, 1) << task;
        EXPECT_EQ(outcome.output, "") << task;
        EXPECT_TRUE(outcome.errors.starts_with("There is no answer for the year ")) << task << outcome.errors;
    }
    for (const char* report : {"results.out", "mresults.out", "ephemeris.out", "visib.out"})
        EXPECT_FALSE(folder.has(report)) << report;
}

TEST_F(BatchTest, AnEndlessEphemerisIsRefusedBeforeItStarts) {
    folder.write("coor.vsk", "1,#TRUE#,#TRUE#,2026,1,1,0,0,0,2026,1,2,0,0,1e308,1,0,0\r\n");
    expect_failure(run_in_folder({"ephemeris"}), "coor.vsk, record 1, field 15: wanted a number within 9999");
    folder.write("coor.vsk", "1,#TRUE#,#TRUE#,2026,1,1,0,0,0,1e18,1,2,0,0,0,1,0,0\r\n");
    expect_failure(run_in_folder({"ephemeris"}), "coor.vsk, record 1, field 10");
    folder.write("coor.vsk", "1,#TRUE#,#TRUE#,1000,1,1,0,0,0,9000,1,2,0,0,0,1,0,0\r\n");
    const Outcome outcome = run_in_folder({"ephemeris"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.errors, "at most 10000000 are written")) << outcome.errors;
    EXPECT_FALSE(folder.has("ephemeris.out"));
}

TEST_F(BatchTest, ADeltaTBeyondItsLimitIsRefused) {
    for (const char* delta_t : {"1e308", "-1e7", "nan", "inf"}) {
        const Outcome outcome = run_in_folder({"phases", std::string("--delta-t=") + delta_t});
        EXPECT_EQ(outcome.status, 2) << delta_t;
        EXPECT_NE(outcome.errors, "") << delta_t;
    }
    EXPECT_FALSE(folder.has("results.out"));
}

TEST_F(BatchTest, AMistypedTaskIsNamedWithTheNearestOne) {
    const std::pair<const char*, const char*> words[] = {
        {"prayr", "prayer"}, {"qibla", "qibla-sun"}, {"ephemris", "ephemeris"}, {"Maps", "map"}};
    for (const auto& [typed, nearest] : words) {
        const Outcome outcome = run_in_folder({typed});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(outcome.errors, std::string("halvane-report: there is no task \"") + typed +
                                      "\"; the nearest is \"" + nearest + "\". See halvane-report --help.\n");
    }
}

TEST_F(BatchTest, NamesAReportThatCannotBeReplaced) {
    std::filesystem::create_directories(folder / "results.out/occupied");
    expect_failure(run_in_folder({"prayer"}), "Cannot write " + (folder / "results.out").string());
}

TEST_F(BatchTest, TellsWhatARefusedReportIsAbout) {
    const std::filesystem::path golden = golden_folder("prayer/high-latitude-refused");
    for (const char* name : {"pref.vsk", "loc.vsk", "date.vsk"})
        folder.write(name, bytes_of(golden / name));
    const Outcome outcome = run_in_folder({"prayer"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors,
              "The Alternative Method Does Not Work Above Latitude 65. Please Disable The High-Latitude "
              "Alternative Method Calculations From The Preferences Menu!\n");
    EXPECT_TRUE(same_bytes(folder.read("results.out"), bytes_of(golden / "results.out")));
}

} // namespace
} // namespace halvane
