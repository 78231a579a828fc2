// SPDX-License-Identifier: MIT
#pragma once

#include "batch/pagemaker.h"

namespace halvane {

/// Puts begin_map and save_map into `pages`: `mapinside.cpp` for a program that draws by itself,
/// `mapbeside.cpp` for one that becomes halvane-map. CMake chooses.
/// In     words  of the command line, as `main` gets them
void take_map_pictures(PageMaker& pages, char** words);

} // namespace halvane
