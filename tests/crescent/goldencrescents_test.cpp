#include "crescent/crescentreport.h"
#include "tests/crescent/crescentfixture.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace halvane {
namespace {

std::vector<std::string> names() {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(golden_folder("crescent")))
        found.push_back(entry.path().filename().string());
    std::sort(found.begin(), found.end());
    return found;
}

std::string test_name(const ::testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

class CrescentGolden : public ::testing::TestWithParam<std::string> {
protected:
    CrescentGolden() {
        set_program_folder(HALVANE_DATA);
        load_series();
    }
};

TEST_P(CrescentGolden, ReportIsTheSameByteForByte) {
    expect_golden_report("crescent/" + GetParam(), "visib.out", [] {
        const CrescentSettings settings = read_visib();
        write_crescent_report(settings, find_conjunction(settings));
    });
}

INSTANTIATE_TEST_SUITE_P(Settings, CrescentGolden, ::testing::ValuesIn(names()), test_name);

} // namespace
} // namespace halvane
