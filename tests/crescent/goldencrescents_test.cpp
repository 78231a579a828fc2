// SPDX-License-Identifier: MIT
#include "crescent/crescentreport.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "tests/crescent/crescentfixture.h"

#include <gtest/gtest.h>

namespace halvane {
namespace {

class CrescentGolden : public ::testing::TestWithParam<std::string> {};

TEST_P(CrescentGolden, ReportIsTheSameByteForByte) {
    expect_golden_report("crescent/" + GetParam(), "visib.out", [] {
        load_series();
        const CrescentRecords run = read_crescent_records(read_visib());
        DayEvents events;
        NoProgress progress;
        write_report(*crescent_run(loaded_theory(), run, find_conjunction(named_ephemeris(), run), events),
                     progress);
    });
}

INSTANTIATE_TEST_SUITE_P(Settings, CrescentGolden, ::testing::ValuesIn(golden_names("crescent")),
                         golden_test_name);

} // namespace
} // namespace halvane
