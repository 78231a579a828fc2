// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstdint>
#include <gtest/gtest.h>
#include <halvane/crescent.h>
#include <halvane/engine.h>
#include <halvane/halvane.h>
#include <halvane/hijri.h>
#include <halvane/prayer.h>
#include <halvane/qiblah.h>
#include <halvane/sky.h>
#include <memory>
#include <random>
#include <string>

/// One engine of each interface, of the delivered series.
inline const halvane::Engine& cpp_engine() {
    static const halvane::Engine engine(HALVANE_DATA);
    return engine;
}

struct CloseEngine {
    void operator()(halvane_engine* engine) const { halvane_engine_close(engine); }
};
struct FreeClock {
    void operator()(halvane_clock* clock) const { halvane_clock_free(clock); }
};
struct FreeMap {
    void operator()(halvane_map* map) const { halvane_map_free(map); }
};
using OwnEngine = std::unique_ptr<halvane_engine, CloseEngine>;
using OwnClock = std::unique_ptr<halvane_clock, FreeClock>;
using OwnMap = std::unique_ptr<halvane_map, FreeMap>;

inline const halvane_engine* c_engine() {
    static const OwnEngine engine = [] {
        halvane_engine* opened = nullptr;
        EXPECT_EQ(halvane_engine_open_folder(HALVANE_DATA, &opened), HALVANE_OK) << halvane_last_error();
        return OwnEngine(opened);
    }();
    return engine.get();
}

inline OwnClock fixed_clock(double hours) {
    halvane_clock* clock = nullptr;
    EXPECT_EQ(halvane_clock_fixed(hours, &clock), HALVANE_OK) << halvane_last_error();
    return OwnClock(clock);
}

inline OwnClock clock_of_zone(const char* zone) {
    halvane_clock* clock = nullptr;
    EXPECT_EQ(halvane_clock_of_zone(zone, &clock), HALVANE_OK) << halvane_last_error();
    return OwnClock(clock);
}

/// A record that tells its size.
template <class Record>
Record sized() {
    Record record{};
    record.size = sizeof record;
    return record;
}
