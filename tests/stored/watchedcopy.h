// SPDX-License-Identifier: MIT
#pragma once

#include "tests/stored/storedrecords.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>

namespace halvane {

/// Lets the last change of a file fall behind the tick of the file system's clock.
inline void settle() {
    std::this_thread::sleep_for(std::chrono::milliseconds(45));
}

inline Location named(const char* name) {
    Location location;
    location.name = name;
    return location;
}

/// A copy that has been looked at several times within a tick of the clock, so that the next look takes the
/// open file.
class WatchedCopy : public testing::Test {
protected:
    void SetUp() override {
        folder_.write("other", named_bytes("Other"));
        write_loc(named("Own"));
        settle();
        look();
    }
    static void look() {
        for (int i = 0; i < 3; ++i)
            ASSERT_EQ(read_loc().name, "Own");
    }
    static std::string named_bytes(const char* name) {
        write_loc(named(name));
        return bytes_of(program_path("loc.vsk"));
    }
    std::filesystem::path own() const { return folder_ / "loc.vsk"; }
    std::filesystem::path other() const { return folder_ / "other"; }
    const TemporaryProgramFolder folder_;
};

} // namespace halvane
