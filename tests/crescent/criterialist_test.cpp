// SPDX-License-Identifier: MIT
#include "crescent/criterialist.h"

#include "tests/support/bytes.h"

#include <gtest/gtest.h>
#include <string>

namespace halvane {
namespace {

std::string document() {
    return bytes_of(HALVANE_TESTS "/../docs/criteria.md");
}

TEST(CriteriaList, CriteriaStandInTheDocument) {
    const std::string text = document();
    for (const CataloguedCriterion& c : catalogued_criteria()) {
        const std::string row = std::string("| `") + c.key + "` | " + c.name.english + " | " +
                                moment_text(c) + " | " + c.frame.english + " | " + c.measure_name.english +
                                (*c.unit == '\0' ? "" : std::string(" [") + c.unit + "]") + " | " + c.source +
                                " |";
        EXPECT_NE(text.find(row), std::string::npos) << row;
    }
}

TEST(CriteriaList, ClassesStandInTheDocument) {
    std::string rows;
    for (const CataloguedCriterion& criterion : catalogued_criteria())
        for (std::size_t i = criterion.bands().size(); i-- > 0;) {
            const CatalogueRow row{&criterion, i};
            rows += "| " + (row.is_highest() ? std::string("`") + criterion.key + "`" : "") + " | " +
                    border_text(row) + " | " + row.band().text.english + " |\n";
        }
    EXPECT_NE(document().find(rows), std::string::npos) << rows;
}

TEST(CriteriaList, ABorderTellsItsSide) {
    const CataloguedCriterion& danjon = *catalogued_criterion("danjon");
    EXPECT_EQ(border_text({&danjon, 1}), "from 0 deg");
    EXPECT_EQ(border_text({&danjon, 0}), "below");
    EXPECT_EQ(border_text({catalogued_criterion("yallop-1997"), 5}), "above 0.216");
    EXPECT_EQ(border_text({catalogued_criterion("babylon"), 1}), "above 48 min");
}

TEST(CriteriaList, TheReportHasABlockForEachCriterion) {
    Report report;
    NoProgress progress;
    EXPECT_EQ(criteria_run()->write(report, progress), RunOutcome::done);
    EXPECT_NE(report.content().find("babylon: Babylonian lag\r\n"
                                    "  Schaefer, Q. J. R. astr. Soc. 37, 759 (1996)\r\n"
                                    "  at sunset or sunrise; the times alone\r\n"
                                    "  lag\r\n"
                                    "    above 48 min     Visible\r\n"
                                    "    below            Not visible\r\n"),
              std::string::npos)
        << report.content();
}

} // namespace
} // namespace halvane
