// SPDX-License-Identifier: MIT
// Places, days and settings of the command line: what they make of a report, and that they change no file.

#include "tests/batch/batchprocess.h"
#include "tests/golden/goldenreport.h"

#include <cmath>
#include <map>
#include <nlohmann/json.hpp>
#include <numbers>

namespace halvane {
namespace {

class RecordOptionsTest : public BatchTest {
protected:
    std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            found[entry.path().filename().string()] = bytes_of(entry.path());
        return found;
    }
    void empty_folder() const {
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            std::filesystem::remove_all(entry.path());
    }
    /// Standard output of a run that succeeds without words.
    std::string told(const std::vector<std::string>& arguments) const {
        const Outcome outcome = run_in_folder(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        EXPECT_EQ(outcome.errors, "");
        return outcome.output;
    }
    void expect_mistake(const std::vector<std::string>& arguments, const std::string& words) const {
        const Outcome outcome = run_in_folder(arguments);
        EXPECT_EQ(outcome.status, 2) << outcome.output;
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(outcome.errors, "halvane-report: " + words + "\n");
    }
};

// London as in the delivered list. Its summer time of 2026: from the last Sunday of March, the 29th, to the
// one of October, the 25th, whose noon has the winter's clock (Directive 2000/84/EC, The Summer Time Order
// 2002).
constexpr const char* london = "\"London\",0,7,33,51,30,31,25,0,#FALSE#,#TRUE#,#TRUE#,#FALSE#,0,1010,10\r\n";
constexpr const char* preferences_of_london =
    "18,18,3,29,10,24,0,0,0,\"1\",\"0\",\"1\",\"1\",#TRUE#,\"0\",\"1\",0,0\r\n";
constexpr const char* march = "#FALSE#,2026,3,1,2026,3,31,2026,3,1,2026,3,31,2026,3,1,#TRUE#,#FALSE#\r\n";

TEST_F(RecordOptionsTest, APlaceAndDaysMakeTheReportOfStoredOnes) {
    const auto before = files();
    std::map<std::string, std::string> by_options;
    for (const char* task : {"prayer", "moon", "qibla-sun"})
        by_options[task] = told({task, "--place", "London", "--month", "2026-03", "--output", "-"});
    EXPECT_EQ(files(), before);
    folder.write("loc.vsk", london);
    folder.write("pref.vsk", preferences_of_london);
    folder.write("date.vsk", march);
    for (const auto& [task, report] : by_options)
        EXPECT_TRUE(same_bytes(report, told({task, "--output", "-"}))) << task;
    expect_mistake({"prayer", "--from", "2026-03-02", "--to", "2026-03-01"},
                   "--to: the last day comes before the first.");
    EXPECT_TRUE(same_bytes(by_options["prayer"], told({"prayer", "--place", "London", "--from", "2026-03-01",
                                                       "--to", "2026-03-31", "--output", "-"})));
}

TEST_F(RecordOptionsTest, TheDayOfACrescentIsThatOfItsSettings) {
    const auto told_of = [this](const std::string& year, const std::string& month, const std::string& day) {
        return told({"crescent", "--output", "-", "--set", "visib.year=" + year, "--set",
                     "visib.month=" + month, "--set", "visib.day=" + day});
    };
    // A day earlier belongs to another conjunction.
    EXPECT_FALSE(same_bytes(told_of("2000", "7", "9"), told_of("2000", "7", "10")));
    EXPECT_TRUE(
        same_bytes(told({"crescent", "--output", "-", "--date", "2000-07-10"}), told_of("2000", "7", "10")));
    // The middle of an even number of days is the earlier one of two.
    EXPECT_FALSE(same_bytes(told_of("2055", "2", "5"), told_of("2055", "2", "14")));
    EXPECT_TRUE(
        same_bytes(told({"crescent", "--output", "-", "--month", "2055-02"}), told_of("2055", "2", "14")));
}

TEST_F(RecordOptionsTest, NumbersMakeAPlace) {
    folder.write("loc.vsk", "\"\",39.8256,0,0,21.4267,0,0,333,3,#TRUE#,#TRUE#,#FALSE#,#FALSE#,0,1010,10\r\n");
    const std::string stored = told({"today", "--now", "2026-02-18T12:00"});
    folder.erase("loc.vsk");
    EXPECT_EQ(told({"today", "--latitude", "21.4267", "--longitude", "39.8256", "--height", "333", "--zone",
                    "3", "--date", "2026-02-18"}),
              stored);
    EXPECT_EQ(told({"today", "--latitude", "21.4267", "--longitude", "39.8256", "--height", "333",
                    "--zone-name", "Asia/Riyadh", "--date", "2026-02-18"}),
              stored);
}

TEST_F(RecordOptionsTest, ASettingIsThatOfTheFile) {
    const auto before = files();
    const std::string by_option =
        told({"prayer", "--set", "pref.fajer-angle=19.5", "--set", "isha-angle=17.5", "--set", "asr-rule=0",
              "--from", "2026-02-18", "--output", "-"});
    EXPECT_EQ(files(), before);
    folder.write("pref.vsk", "19.5,17.5,4,1,10,1,0,0,0,\"0\",\"0\",\"0\",\"1\",#TRUE#,\"0\",\"1\",0,0\r\n");
    folder.write("date.vsk", "#TRUE#,2026,2,18,2026,2,18,2026,2,18,2026,2,18,2026,2,18,#FALSE#,#FALSE#\r\n");
    EXPECT_TRUE(same_bytes(by_option, told({"prayer", "--output", "-"})));
}

TEST_F(RecordOptionsTest, MistypedSettingsAreTold) {
    const auto before = files();
    expect_mistake({"today", "--set", "fajr=19"},
                   "--set: this task reads no setting \"fajr\"; the nearest is \"pref.fajer-angle\".");
    expect_mistake(
        {"today", "--set", "pref.isha-angel=17"},
        "--set: this task reads no setting \"pref.isha-angel\"; the nearest is \"pref.isha-angle\".");
    expect_mistake({"today", "--set", "fajer-angle"}, "--set: wanted FIELD=VALUE, found \"fajer-angle\".");
    expect_mistake({"today", "--set", "fajer-angle=nan"},
                   "--set fajer-angle: wanted a number, found \"nan\".");
    expect_mistake({"today", "--set", "asr-rule=7"}, "--set asr-rule: wanted 0 or 1, found \"7\".");
    expect_mistake({"today", "--set", "english=yes"}, "--set english: wanted true or false, found \"yes\".");
    expect_mistake({"ephemeris", "--set", "unit=4"},
                   "--set unit: wanted a whole number from 0 to 3, found \"4\".");
    expect_mistake({"prayer", "--set", "start-year=1e9"},
                   "--set start-year: wanted a number from -999999 to 999999, found \"1e9\".");
    EXPECT_EQ(files(), before);
}

TEST_F(RecordOptionsTest, MistypedOptionsAreNamedWithTheNearest) {
    const std::pair<std::vector<std::string>, const char*> lines[] = {
        {{"prayer", "--moth", "2026-02"},
         "there is no option \"--moth\" of prayer; the nearest is \"--month\""},
        {{"watch", "--dat=2026-02-18"}, "there is no option \"--dat\" of watch; the nearest is \"--date\""},
        {{"next", "--jason"}, "there is no option \"--jason\" of next; the nearest is \"--json\""},
        {{"--flder", "x", "today"}, "there is no option \"--flder\" of today; the nearest is \"--folder\""}};
    for (const auto& [words, told] : lines) {
        const Outcome outcome = run_in_folder(words);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_TRUE(outcome.errors.starts_with(std::string("halvane-report: ") + told)) << outcome.errors;
    }
}

TEST_F(RecordOptionsTest, NeedNoStoredFiles) {
    empty_folder();
    for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
             {"prayer", "--output", "-"},
             {"moon", "--place", "Cairo", "--month", "2026-02", "--output", "-"},
             {"phases", "--year", "2026", "--output", "-"},
             {"crescent", "--date", "2026-02-18", "--short"},
             {"ephemeris", "--from", "2026-02-18", "--output", "-"},
             {"telescope", "--date", "2026-02-18", "--set", "hour=10"},
             {"qibla-shadow", "--place", "Makkah", "--from", "2026-02-18", "--output", "-"},
             {"timetable", "--place", "Cairo", "--month", "2026-02", "--output", "-"},
             {"hijri", "--place", "Cairo"},
             {"today"},
             {"next"},
             {"day"},
             {"sun"}})
        EXPECT_NE(told(words), "") << words.front();
    EXPECT_TRUE(files().empty());
}

TEST_F(RecordOptionsTest, AClockThatTheRecordsCannotKeepIsRefused) {
    const Outcome years = run_in_folder(
        {"prayer", "--place", "London", "--from", "2026-03-01", "--to", "2027-04-30", "--output", "-"});
    EXPECT_EQ(years.status, 2);
    EXPECT_TRUE(holds(years.errors, "ask for one year, or give --zone")) << years.errors;
    // Half an hour of summer time.
    const Outcome half =
        run_in_folder({"prayer", "--latitude", "-31.55", "--longitude", "159.08", "--zone-name",
                       "Australia/Lord_Howe", "--year", "2026", "--output", "-"});
    EXPECT_EQ(half.status, 2);
    EXPECT_TRUE(holds(half.errors, "Australia/Lord_Howe")) << half.errors;
    // A single day has one clock: 10:30 ahead of Universal Time in its winter, 11 in its summer.
    const auto dhohur = [this](const char* date) {
        return told({"today", "--latitude", "-31.55", "--longitude", "159.08", "--zone-name",
                     "Australia/Lord_Howe", "--date", date});
    };
    EXPECT_TRUE(holds(dhohur("2026-06-15"), "Dhohur 11:5")) << dhohur("2026-06-15");
    EXPECT_TRUE(holds(dhohur("2026-01-01"), "Dhohur 12:2")) << dhohur("2026-01-01");
}

// --- next, day, sun ---

/// Hours and minutes of a row of the checked report of the delivered location, in its order.
std::vector<std::string> checked_times(const std::string& date) {
    std::vector<std::string> times;
    for (const std::string& line : lines_of(bytes_of(golden_folder("prayer/delivered-year") / "results.out")))
        if (line.starts_with(date))
            for (std::size_t at = 15; at + 5 <= line.size(); at += 10)
                times.push_back(line.substr(at, 5));
    return times;
}

TEST_F(RecordOptionsTest, NextIsTheFirstTimeAhead) {
    const std::vector<std::string> today = checked_times("18/02/2026");
    const std::vector<std::string> tomorrow = checked_times("19/02/2026");
    ASSERT_EQ(today.size(), 6U);
    ASSERT_EQ(tomorrow.size(), 6U);
    EXPECT_EQ(told({"next", "--now", "2026-02-18T12:00"}), "Dhohur " + today[2] + " 50 min\n");
    EXPECT_EQ(told({"next", "--now", "2026-02-18T12:49"}), "Dhohur " + today[2] + " 1 min\n");
    EXPECT_TRUE(told({"next", "--now", "2026-02-18T12:50"}).starts_with("Aser " + today[3] + " "));
    EXPECT_TRUE(told({"next", "--now", "2026-02-18T00:00"}).starts_with("Fajer " + today[0] + " "));
    EXPECT_TRUE(told({"next", "--now", "2026-02-18T23:59"}).starts_with("Fajer " + tomorrow[0] + " "));
    const nlohmann::json made = nlohmann::json::parse(told({"next", "--now", "2026-02-18T18:00", "--json"}));
    EXPECT_EQ(made["prayer"], "maghreb");
    EXPECT_EQ(made["name"], "Maghreb");
    EXPECT_EQ(made["clock"], today[4]);
    EXPECT_EQ(made["minutes_left"], 25);
    EXPECT_EQ(made["date"], "2026-02-18");
    EXPECT_EQ(made["instant"], "2026-02-18T" + today[4] + ":00+03:00");
    EXPECT_EQ(made["place"], "Amman");
}

TEST_F(RecordOptionsTest, NextCountsAnHourLessInTheNightOfTheChange) {
    // Egypt's clock goes from 0 to 1 h on the last Friday of April, 24 April 2026 (law 24 of 2023).
    const nlohmann::json made =
        nlohmann::json::parse(told({"next", "--place", "Cairo", "--now", "2026-04-23T23:50", "--json"}));
    EXPECT_EQ(made["date"], "2026-04-24");
    const std::string clock = made["clock"];
    EXPECT_TRUE(told({"today", "--place", "Cairo", "--date", "2026-04-24"}).starts_with("Fajer " + clock));
    const int minutes = std::stoi(clock.substr(0, 2)) * 60 + std::stoi(clock.substr(3));
    EXPECT_EQ(made["minutes_left"], 10 + minutes - 60);
    EXPECT_EQ(made["instant"], "2026-04-24T" + clock + ":00+03:00");
}

TEST_F(RecordOptionsTest, NextCountsAnHourLessBeforeTheChangeOfTheSameDay) {
    // The clocks of the United Kingdom go from 1 to 2 h on the last Sunday of March (Summer Time Act 1972, as
    // amended).
    const auto left_at = [this](const char* now) {
        return nlohmann::json::parse(told({"next", "--place", "London", "--now", now, "--json"}));
    };
    const nlohmann::json before = left_at("2026-03-29T00:30");
    const nlohmann::json after = left_at("2026-03-29T02:30");
    EXPECT_EQ(before["clock"], after["clock"]);
    const int left_before = before["minutes_left"];
    const int left_after = after["minutes_left"];
    EXPECT_EQ(left_before - left_after, 60);
    const std::string clock = after["clock"];
    EXPECT_EQ(left_after, std::stoi(clock.substr(0, 2)) * 60 + std::stoi(clock.substr(3)) - 150);
}

TEST_F(RecordOptionsTest, NextTellsOfANightWithoutPrayers) {
    const Outcome outcome = run_in_folder({"next", "--latitude", "-89", "--longitude", "0", "--zone", "0",
                                           "--set", "add-dhohur=0", "--now", "2026-06-21T12:00"});
    // The Sun is far below the horizon all day and night.
    EXPECT_EQ(outcome.status, 1) << outcome.output;
    EXPECT_TRUE(holds(outcome.errors, "no prayer has a time today or tomorrow")) << outcome.errors;
}

TEST_F(RecordOptionsTest, ADayHasThePrayersTheHijriDateAndTheMoon) {
    const std::vector<std::string> times = checked_times("18/02/2026");
    const std::string text = told({"day", "--date", "2026-02-18"});
    EXPECT_TRUE(text.starts_with("Amman, Wednesday 18 February 2026\n1 Ramadan 1447 (tabular)\nFajer " +
                                 times[0] + "\nShuroq " + times[1] + "\nDhohur " + times[2] + "\nAser " +
                                 times[3] + "\nMaghreb " + times[4] + "\nIsha " + times[5] + "\nMoonrise "))
        << text;
    // The Moon's row of the checked kind of report.
    const std::string moon = told({"moon", "--from", "2026-02-18", "--output", "-"});
    for (const char* name : {"Moonrise ", "Moon transit ", "Moonset "}) {
        const std::size_t at = text.find(name) + std::string(name).size();
        EXPECT_TRUE(holds(moon, text.substr(at, 5))) << name << text;
    }
    EXPECT_TRUE(told({"day", "--date", "0600-01-01"}).starts_with("Amman, Friday 1 January 600\nFajer "));
    // Meeus, Astronomical Algorithms, example 48.a: 1992 April 12, 0 h TD: k = 0.6786.
    const nlohmann::json made =
        nlohmann::json::parse(told({"day", "--latitude", "0", "--longitude", "180", "--zone", "12", "--date",
                                    "1992-04-12", "--format", "json"}));
    EXPECT_NEAR(made["rows"][0]["illumination"].get<double>(), 67.86, 0.02);
}

double hours_of_clock(const nlohmann::json& clock) {
    const std::string text = clock;
    return std::stoi(text.substr(0, 2)) + std::stoi(text.substr(3, 2)) / 60.0 +
           std::stod(text.substr(6)) / 3600;
}

TEST_F(RecordOptionsTest, TheSunIsThatOfTheAlmanac) {
    constexpr double degree = std::numbers::pi / 180;
    // Meeus, Astronomical Algorithms, examples 25.a and 28.b: 1992 October 13, 0 h TD: declination -7.785
    // deg, equation of time 13 min 42.6 s. A quarter of an hour before it the Sun passes the meridian of 180
    // deg.
    const nlohmann::json made =
        nlohmann::json::parse(told({"sun", "--latitude", "0", "--longitude", "180", "--zone", "12", "--date",
                                    "1992-10-13", "--format", "json"}));
    const nlohmann::json row = made["rows"][0];
    EXPECT_NEAR(row["equation_of_time"].get<double>(), 13.71, 0.01);
    EXPECT_NEAR(row["declination"].get<double>(), -7.785, 0.005);
    EXPECT_NEAR(row["altitude"].get<double>(), 90 - 7.785, 0.005);
    EXPECT_TRUE(row["transit"].get<std::string>().starts_with("11:46:1")) << row;
    // A day and a night of the equator: the refraction of 34' and the half disc of 16' lengthen the day.
    EXPECT_NEAR(row["day_length"].get<double>(), 12 + 2 * 50.0 / 60 / 15, 0.02);
    // On the equator an altitude a has the hour angle acos(sin a / cos declination).
    const auto after_transit = [&](const char* name) {
        return hours_of_clock(row[name]) - hours_of_clock(row["transit"]);
    };
    const double declination = row["declination"].get<double>() * degree;
    for (const auto& [twilight, depression] :
         {std::pair{"civil", 6.0}, std::pair{"nautical", 12.0}, std::pair{"astronomical", 18.0}}) {
        const double hours = std::acos(-std::sin(depression * degree) / std::cos(declination)) / degree / 15;
        EXPECT_NEAR(after_transit((twilight + std::string("_dusk")).c_str()), hours, 0.003) << row;
        EXPECT_NEAR(after_transit((twilight + std::string("_dawn")).c_str()), -hours, 0.003) << row;
    }
    const std::string bright = told({"sun", "--place", "London", "--date", "2026-06-21"});
    EXPECT_TRUE(holds(bright, "Astronomical dawn Bright\n")) << bright;
    EXPECT_TRUE(
        holds(told({"sun", "--latitude", "78", "--longitude", "15", "--zone", "1", "--date", "2026-06-21"}),
              "Sunrise Up\n"));
}

TEST_F(RecordOptionsTest, HijriAloneIsToday) {
    EXPECT_EQ(told({"hijri", "--now", "2026-02-18T12:00"}), told({"hijri", "--convert", "2026-02-18"}));
    EXPECT_EQ(run_in_folder({"hijri", "--month", "9"}).status, 2);
}

TEST_F(RecordOptionsTest, TheShortCrescentIsTheAnswerOfEveryCriterion) {
    const std::string text = told({"crescent", "--place", "Makkah", "--date", "2026-02-18", "--short"});
    EXPECT_TRUE(text.starts_with("Evening of Wednesday 18 February 2026, Makkah\n")) << text;
    EXPECT_TRUE(holds(text, "\nYallop as published: "));
    EXPECT_FALSE(folder.has("visib.out"));
}

} // namespace
} // namespace halvane
