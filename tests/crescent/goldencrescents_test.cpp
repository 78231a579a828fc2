#include "crescent/crescentreport.h"
#include "tests/crescent/crescentfixture.h"

#include <gtest/gtest.h>

namespace halvane {
namespace {

class CrescentGolden : public ::testing::TestWithParam<std::string> {};

TEST_P(CrescentGolden, ReportIsTheSameByteForByte) {
    expect_golden_report("crescent/" + GetParam(), "visib.out", [] {
        load_series();
        const CrescentSettings settings = read_visib();
        write_crescent_report(settings, find_conjunction(settings));
    });
}

INSTANTIATE_TEST_SUITE_P(Settings, CrescentGolden, ::testing::ValuesIn(golden_names("crescent")),
                         golden_test_name);

} // namespace
} // namespace halvane
