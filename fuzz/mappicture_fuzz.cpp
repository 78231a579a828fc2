// SPDX-License-Identifier: MIT
#include "batch/mappicture.h"
#include "fuzz/readinput.h"
#include "stored/programfolder.h"

/// Whatever stands in the map's picture: a map is saved over it, or the failure names the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    halvane::fuzz::read_input("map.gif", data, size, [] {
        halvane::MapRun run;
        run.day = 2461000.5;
        halvane::save_map_picture(run, {}, halvane::program_path("saved.gif"));
    });
    return 0;
}
