// SPDX-License-Identifier: MIT
#include "crescent/crescentrun.h"

namespace halvane {

CrescentRun read_crescent_run(const CrescentSettings& settings) {
    CrescentRun run;
    run.settings = settings;
    run.location = read_loc();
    run.preferences = read_pref();
    return run;
}

} // namespace halvane
