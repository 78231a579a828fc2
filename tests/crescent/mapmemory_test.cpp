// SPDX-License-Identifier: MIT
#include "crescent/visibilitymap.h"
#include "routines/seriesloader.h"
#include "tests/crescent/crescentfixture.h"

#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>
#include <vector>

namespace halvane {
namespace {

class Points : public MapReceiver {
public:
    void point(const MapPoint& point) override { points_.push_back(point); }
    bool go_on() override { return true; }

private:
    std::vector<MapPoint> points_;
};

class MapMemory : public CrescentTest {
protected:
    static void draw(const MapRun& run) {
        Points points;
        EXPECT_TRUE(draw_visibility_map(loaded_theory(), run, points));
    }
};

/// Resident memory of this process                                                             [MB]
double resident_megabytes() {
    std::ifstream file("/proc/self/statm");
    double total = 0;
    double resident = 0;
    file >> total >> resident;
    return resident * static_cast<double>(::sysconf(_SC_PAGESIZE)) / 1e6;
}

TEST_F(MapMemory, HundredMapsNeedNoMoreMemoryThanOne) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the address sanitizer keeps freed memory";
#endif
    const MapRun run = map_near(29, 3, 2025, CrescentKind::new_crescent, 1, Criterion::yallop);
    draw(run);
    const double first = resident_megabytes();
    ASSERT_GT(first, 0);
    for (int i = 0; i < 100; ++i)
        draw(run);
    EXPECT_LT(resident_megabytes() - first, 5);
}

} // namespace
} // namespace halvane
