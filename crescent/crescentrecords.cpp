// SPDX-License-Identifier: MIT
#include "crescent/crescentrecords.h"

namespace halvane {

CrescentRecords read_crescent_records(const CrescentSettings& settings) {
    CrescentRecords run;
    run.settings = settings;
    run.location = read_loc();
    run.preferences = read_pref();
    return run;
}

} // namespace halvane
