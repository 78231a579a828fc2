// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "calendar/moddeltat.h"
#include "prayer/moonrun.h"
#include "prayer/prayerrun.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "routines/tdtinput.h"
#include "tests/golden/goldenreport.h"
#include "tests/golden/recordingprogress.h"
#include "tests/prayer/days.h"
#include "tests/support/places.h"

#include <gtest/gtest.h>

namespace halvane {
namespace {

using PrayerReport = DayTest;

bool has_line(const TemporaryProgramFolder& folder, const char* report, const std::string& line) {
    for (const std::string& found : lines_of(folder.read(report)))
        if (found == line)
            return true;
    return false;
}

TEST_F(PrayerReport, FollowsTheSystemsDateButNamesTheStoredKind) {
    write_loc(place_at(36, 32, 2));
    CalculationDate date;
    date.system_date = true;
    date.period = false;
    date.start = {2000, 1, 1};
    date.end = {2000, 1, 9};
    RecordingProgress progress;
    set_machine_time({2026, 2, 18, 9, 30, 0});
    for (const bool one_day : {false, true}) {
        date.one_day = one_day;
        write_date(date);
        write_report(*prayer_run(loaded_theory(), machine_time()), progress);
        write_report(*moon_run(loaded_theory(), machine_time()), progress);
        EXPECT_TRUE(has_line(folder, "results.out",
                             one_day ? "- Prayer times for:  18/02/2026 CE"
                                     : "- Prayer times from:  18/02/2026 CE   To:  18/02/2026 CE"));
        EXPECT_TRUE(has_line(folder, "mresults.out",
                             one_day ? "- Moon Times for:  18/02/2026 CE"
                                     : "- Moon Times from:  18/02/2026 CE   To:  18/02/2026 CE"));
        EXPECT_EQ(folder.read("results.out").find("/2000"), std::string::npos);
    }
    use_machine_clock();
}

TEST_F(PrayerReport, CountsDaysOnTheNumbersAsTheyAreStored) {
    write_loc(place_at(36, 32, 2));
    set_period({2026, 2, 31}, {2026, 3, 4});
    RecordingProgress progress;
    write_report(*prayer_run(loaded_theory(), machine_time()), progress);
    const std::string report = folder.read("results.out");
    EXPECT_NE(report.find("- Prayer times from:  31/02/2026 CE   To:  04/03/2026 CE\r\n"), std::string::npos);
    EXPECT_NE(report.find("\r\n03/03/2026 "), std::string::npos);
    EXPECT_EQ(report.find("\r\n02/03/2026 "), std::string::npos);
}

TEST_F(PrayerReport, OfAPeriodThatEndsBeforeItStartsHasNoRows) {
    set_period({2026, 3, 4}, {2026, 3, 1});
    RecordingProgress progress;
    EXPECT_EQ(write_report(*prayer_run(loaded_theory(), machine_time()), progress), RunOutcome::done);
    const auto lines = lines_of(folder.read("results.out"));
    EXPECT_EQ(lines.size(), 20U + 15U);
    EXPECT_TRUE(progress.percents.empty());
}

TEST_F(PrayerReport, KeepsTheEarlierReportWhenARunFails) {
    set_period({2026, 3, 1}, {2026, 3, 2});
    for (const char* name : {"results.out", "mresults.out"})
        folder.write(name, "earlier");
    Location impossible = place_at(36, 32, 2);
    impossible.temperature = -273;
    write_loc(impossible);
    RecordingProgress progress;
    EXPECT_THROW(write_report(*prayer_run(loaded_theory(), machine_time()), progress), RunTimeFailure);
    EXPECT_THROW(write_report(*moon_run(loaded_theory(), machine_time()), progress), RunTimeFailure);
    for (const char* name : {"results.out", "mresults.out"})
        EXPECT_EQ(folder.read(name), "earlier");
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        files += entry.path().filename().string().find(".out") != std::string::npos ? 1 : 0;
    EXPECT_EQ(files, 2U) << "nothing is left beside the reports";
}

TEST_F(PrayerReport, PrintsDegreesBetweenMinusOneAndZeroWithoutSign) {
    Location greenwich_west = place_at(0, 0, 0);
    greenwich_west.east = greenwich_west.north = false;
    greenwich_west.longitude_minutes = 7;
    greenwich_west.latitude_minutes = 30;
    greenwich_west.latitude_seconds = 5.25;
    write_loc(greenwich_west);
    set_period({2026, 3, 1}, {2026, 3, 1});
    RecordingProgress progress;
    write_report(*prayer_run(loaded_theory(), machine_time()), progress);
    EXPECT_TRUE(
        has_line(folder, "results.out", "- Here, Long: 00:07:00.0, Lat: 00:30:05.2, Ele:0.0, Zone:0.00"));
}

TEST_F(PrayerReport, PrintsMarginsAsNumberItems) {
    Preferences preferences;
    preferences.subtract_fajer = -2;
    preferences.add_dhohur = 0.5;
    preferences.add_asr = 12;
    preferences.add_maghreb = 1.1;
    write_pref(preferences);
    set_period({2026, 3, 1}, {2026, 3, 1});
    RecordingProgress progress;
    write_report(*prayer_run(loaded_theory(), machine_time()), progress);
    EXPECT_TRUE(
        has_line(folder, "results.out",
                 "- Subtract Fajer:-2 Min, Add Dhohur: 0.5 Min, Add Asr: 12 Min, Add Maghreb: 1.1 Min"));
}

TEST_F(PrayerReport, StatesTheTimeReferenceItRunsWith) {
    write_loc(place_at(36, 32, 2));
    set_period({2026, 3, 1}, {2026, 3, 2});
    RecordingProgress progress;
    write_report(*prayer_run(loaded_theory(), machine_time()), progress);
    write_report(*moon_run(loaded_theory(), machine_time()), progress);
    const std::string prayer = folder.read("results.out");
    const std::string moon = folder.read("mresults.out");
    const TdtSpan left_open(1);
    write_report(*prayer_run(loaded_theory(), machine_time()), progress);
    write_report(*moon_run(loaded_theory(), machine_time()), progress);
    EXPECT_EQ(folder.read("results.out"), prayer);
    EXPECT_EQ(folder.read("mresults.out"), moon);
}

TEST_F(PrayerReport, APlaceStoredInTheMiddleOfARunIsThatOfTheNextOne) {
    const Location first = place_at(36, 32, 2, "First");
    const Location second = place_at(-70, -33, -4, "Second");
    set_period({1990, 1, 1}, {2039, 12, 31});
    const auto reports = [this](RecordingProgress& progress) {
        write_report(*prayer_run(loaded_theory(), machine_time()), progress);
        return folder.read("results.out");
    };
    RecordingProgress silent;
    write_loc(first);
    const std::string of_first = reports(silent);
    write_loc(second);
    const std::string of_second = reports(silent);
    ASSERT_NE(of_first, of_second);

    write_loc(first);
    RecordingProgress saving;
    saving.at_yield = [&second](int yield) {
        if (yield == 100)
            write_loc(second);
    };
    EXPECT_TRUE(reports(saving) == of_first) << "a row of another place";
    EXPECT_TRUE(reports(silent) == of_second);
    EXPECT_GE(saving.yields, 18262); // rows
}

TEST_F(PrayerReport, IsRefusedWithTheWordsOfItsMessage) {
    EXPECT_STREQ(high_latitude_message.title.english, "High-Latitude Error!");
    EXPECT_STREQ(high_latitude_message.text.english,
                 "The Alternative Method Does Not Work Above Latitude 65. Please Disable The High-Latitude "
                 "Alternative Method Calculations From The Preferences Menu!");
    EXPECT_STREQ(high_latitude_message.title.arabic, "خطأ");
    EXPECT_STREQ(
        high_latitude_message.text.arabic,
        "طريقة حساب المواقيت البديلة لا تصلح بعد خط عرض 65، يرجى عدم تفعيل خيار حساب المواقيت البديلة "
        "لمناطق خطوط العرض العليا من قائمة الخيارات");
}

} // namespace
} // namespace halvane
