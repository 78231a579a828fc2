// SPDX-License-Identifier: MIT
#include "batch/mapprogram.h"
#include "batch/otherprogram.h"

namespace halvane {

void take_map_pictures(PageMaker& pages, char** words) {
    pages.begin_map = [words] { become_program("halvane-map", words); };
}

} // namespace halvane
