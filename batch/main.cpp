// SPDX-License-Identifier: MIT
#include "batch/batchprogram.h"
#include "batch/mapprogram.h"
#include "batch/otherprogram.h"
#include "system/commandline.h"

int main(int argc, char** argv) {
    halvane::CommandLine line(argc, argv);
    halvane::PageMaker pages;
    pages.begin = [&line] { halvane::become_program("halvane-paper", line.words()); };
    halvane::take_map_pictures(pages, line.words());
    return halvane::run_batch(line.count(), line.words(), pages);
}
