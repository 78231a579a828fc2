// SPDX-License-Identifier: MIT
#include "batch/mappicture.h"
#include "batch/mapprogram.h"

namespace halvane {

void take_map_pictures(PageMaker& pages, char** /*words*/) {
    pages.begin_map = [] {};
    pages.save_map = save_map_picture;
}

} // namespace halvane
