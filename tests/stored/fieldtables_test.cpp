// SPDX-License-Identifier: MIT
#include "stored/alert.h"
#include "stored/coor.h"
#include "stored/date.h"
#include "stored/loc.h"
#include "stored/loclist.h"
#include "stored/phase.h"
#include "stored/pref.h"
#include "stored/tele.h"
#include "stored/visib.h"
#include "tests/support/bytes.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace halvane {
namespace {

struct DocumentedFile {
    std::string name;
    std::vector<FieldNote> notes;
};

class FieldTable : public testing::TestWithParam<DocumentedFile> {};

std::string table_of(const DocumentedFile& file) {
    std::string table = "\n### `" + file.name + "`\n\n| Field | Kind | What |\n|---|---|---|\n";
    int number = 0;
    for (const FieldNote& note : file.notes)
        table += "| " + std::to_string(++number) + " | " + note.kind + " | " + note.meaning + " |\n";
    return table + "\n";
}

TEST_P(FieldTable, StandsInTheDocument) {
    const std::string document = bytes_of(HALVANE_TESTS "/../docs/data.md");
    const std::string table = table_of(GetParam());
    EXPECT_NE(document.find(table), std::string::npos) << "docs/data.md must hold\n" << table;
}

std::string test_name(const testing::TestParamInfo<DocumentedFile>& info) {
    std::string name = info.param.name;
    name[name.find('.')] = '_';
    return name;
}

INSTANTIATE_TEST_SUITE_P(EveryFile, FieldTable,
                         testing::Values(DocumentedFile{"pref.vsk", pref_fields.notes()},
                                         DocumentedFile{"loc.vsk", loc_fields.notes()},
                                         DocumentedFile{"loc.txt", listed_fields.notes()},
                                         DocumentedFile{"date.vsk", date_fields.notes()},
                                         DocumentedFile{"phase.vsk", phase_fields.notes()},
                                         DocumentedFile{"visib.vsk", visib_fields.notes()},
                                         DocumentedFile{"coor.vsk", coor_fields.notes()},
                                         DocumentedFile{"tele.vsk", tele_fields.notes()},
                                         DocumentedFile{"alert.vsk", alert_fields.notes()}),
                         test_name);

} // namespace
} // namespace halvane
