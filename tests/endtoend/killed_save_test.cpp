// SPDX-License-Identifier: MIT
// A process that is killed while it saves leaves every stored file whole: the old record or the new one.

#include "stored/alert.h"
#include "stored/date.h"
#include "stored/loc.h"
#include "stored/loclist.h"
#include "stored/pref.h"
#include "stored/programfolder.h"
#include "stored/textfile.h"
#include "system/executable.h"
#include "tests/support/childprocess.h"
#include "tests/support/programfolder.h"

#include <array>
#include <chrono>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <string>
#include <thread>

namespace halvane {
namespace {

constexpr int kills = 200;
constexpr int longest_life = 12; // [ms]
constexpr std::array<const char*, 5> files{"pref.vsk", "loc.vsk", "date.vsk", "alert.vsk", "loc.txt"};

/// Writes every file with the values of one of two sets; the second is longer, so that a torn file would
/// show.
void save_all(bool second) {
    Preferences preferences;
    preferences.fajer_angle = second ? 19.512345678 : 18;
    write_pref(preferences);
    Location location;
    location.name = second ? std::string(3000, 'n') : "Amman";
    location.elevation = second ? 1234.5 : 1;
    write_loc(location);
    CalculationDate date;
    date.start.year = second ? 123456 : 1;
    write_date(date);
    AlertSettings alert;
    alert.lead = second ? 98765.5 : 1;
    write_alert(alert);
    location.name = "Amman";
    modify_location(location);
}

constexpr const char* save_word = "save-without-end"; // of the command line
constexpr const char* started_file = "started";

/// The process that is killed; a file tells that it has begun.
[[noreturn]] void save_without_end(const char* folder) {
    set_program_folder(folder);
    save_all(true);
    save_text_file(program_path(started_file), "");
    for (bool which = false;; which = !which)
        save_all(which);
}

std::array<std::string, files.size()> contents() {
    std::array<std::string, files.size()> all;
    for (std::size_t file = 0; file < files.size(); ++file)
        all[file] = read_text_file(program_path(files[file]));
    return all;
}

class KilledSave : public ::testing::Test {
protected:
    KilledSave() {
        set_program_folder(folder_.path().string());
        save_text_file(program_path("loc.txt"), "");
    }
    void wait_for_begin() const {
        while (!folder_.has(started_file))
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        folder_.erase(started_file);
    }

    TemporaryFolder folder_;
};

TEST_F(KilledSave, LeavesTheOldRecordOrTheNewOneWhole) {
    save_all(true);
    const auto second = contents();
    save_all(false);
    const auto first = contents();
    std::mt19937 random(20240621);
    std::uniform_int_distribution<int> life(0, longest_life * 1000);
    std::set<std::string> states;
    for (int kill_number = 0; kill_number < kills; ++kill_number) {
        ChildProcess saver(executable_path(), {save_word, folder_.path().string()});
        wait_for_begin();
        std::this_thread::sleep_for(std::chrono::microseconds(life(random)));
        ASSERT_TRUE(saver.kill()) << "the process ended by itself";
        const auto now = contents();
        std::string state;
        for (std::size_t file = 0; file < files.size(); ++file) {
            const bool whole = now[file] == first[file] || now[file] == second[file] ||
                               (files[file] == std::string("loc.txt") && now[file].empty());
            EXPECT_TRUE(whole) << files[file] << " after kill " << kill_number << ": "
                               << now[file].substr(0, 200);
            state += now[file] == second[file] ? '2' : '1';
        }
        states.insert(state);
    }
    EXPECT_GE(states.size(), 3U) << "the kills did not fall into the saves";
    save_all(false);
    EXPECT_EQ(contents(), first) << "a later save works";
}

} // namespace
} // namespace halvane

int main(int argc, char** argv) {
    if (argc == 3 && argv[1] == std::string(halvane::save_word))
        halvane::save_without_end(argv[2]);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
