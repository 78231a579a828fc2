// SPDX-License-Identifier: MIT
#include "stored/textfile.h"
#include "tests/stored/storedrecords.h"

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <string>
#include <thread>

namespace halvane {
namespace {

TEST(Saving, LeavesNothingBesideTheFile) {
    const TemporaryProgramFolder folder;
    const auto before = folder.files();
    for (const StoredRecord& file : stored_records())
        file.write_back();
    EXPECT_EQ(folder.files(), before);
}

TEST(Saving, ShowsAReaderTheOldOrTheNewContentAndNothingElse) {
    const TemporaryProgramFolder folder;
    const std::string path = (folder / "shared.txt").string();
    const std::string one(20000, '1');
    const std::string two(30000, '2');
    save_text_file(path, one);
    std::atomic<bool> done = false;
    int torn = 0;
    std::atomic<int> reads = 0;
    // Not every file system moves a file over one that is being read: there a save needs a reader that rests.
    constexpr int reads_before_rest = 30;
    std::thread reader([&] {
        while (!done) {
            const std::string bytes = read_text_file(path);
            torn += bytes != one && bytes != two ? 1 : 0;
            if (++reads % reads_before_rest == 0)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    });
    while (reads == 0)
        std::this_thread::yield();
    for (int i = 0; i < 60; ++i)
        save_text_file(path, i % 2 == 0 ? two : one);
    done = true;
    reader.join();
    EXPECT_EQ(torn, 0);
}

TEST(Saving, NamesAFileThatCannotBeReplaced) {
    const TemporaryProgramFolder folder;
    folder.erase("pref.vsk");
    std::filesystem::create_directories(folder / "pref.vsk/occupied");
    const auto names = folder.files();
    const auto words = failure_words([] { write_pref({}); });
    ASSERT_TRUE(words.has_value());
    EXPECT_NE(words->find("Cannot write " + (folder / "pref.vsk").string()), std::string::npos) << *words;
    EXPECT_EQ(folder.files(), names);
}

TEST(Saving, NamesAFolderThatIsNotThere) {
    const auto words = failure_words([] { save_text_file("/no/such/folder/file.vsk", "x"); });
    ASSERT_TRUE(words.has_value());
    EXPECT_NE(words->find("/no/such/folder/file.vsk"), std::string::npos) << *words;
}

TEST(Reading, TakesFilesOfAtMost16MB) {
    const TemporaryProgramFolder folder;
    constexpr std::size_t largest = std::size_t{16} * 1024 * 1024;
    const std::filesystem::path path = folder / "long.txt";
    put_bytes(path, "x");
    std::filesystem::resize_file(path, largest);
    EXPECT_EQ(read_text_file(path.string()).size(), largest);
    std::filesystem::resize_file(path, largest + 1);
    expect_failure_that_tells([&] { read_text_file(path.string()); }, {path.string(), "16 MB"});
}

TEST(Saving, EveryRecordComesBackAsItWasSaved) {
    const TemporaryProgramFolder folder;
    Location location{
        "Vaduz, \"old\"", 9, 31, 16.5, 47, 8, 28.25, 455, 1.5, false, false, true, true, 7, 950, -3};
    write_loc(location);
    location.name = "Vaduz, 'old'";
    EXPECT_EQ(read_loc(), location);
    const CrescentSettings crescent{"29", "2",   "2028", false, true, true,  false, true, true,
                                    true, false, true,   "5",   "45", false, true,  11,   "1449"};
    write_visib(crescent);
    EXPECT_EQ(read_visib(), crescent);
    const EphemerisSettings ephemeris{0,    false, true, 1999, 12, 31, 23,  59, 58.5,
                                      2001, 2,     3,    4,    5,  6,  0.1, 1,  1};
    write_coor(ephemeris);
    EXPECT_EQ(read_coor(), ephemeris);
    const TelescopeSettings telescope{2027, 8, 2, 10, 7, false, true, false, true, 1, 1};
    write_tele(telescope);
    EXPECT_EQ(read_tele(), telescope);
    const AlertSettings alert{1, 12.5, 1, 0, false, true, false, true};
    write_alert(alert);
    EXPECT_EQ(read_alert(), alert);
    const PhaseSettings phase{"-4000", false, false};
    write_phase(phase);
    EXPECT_EQ(read_phase(), phase);
}

} // namespace
} // namespace halvane
