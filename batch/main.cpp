// SPDX-License-Identifier: MIT
#include "batch/batchprogram.h"
#include "batch/paperprogram.h"
#include "system/commandline.h"

int main(int argc, char** argv) {
    halvane::CommandLine line(argc, argv);
    return halvane::run_batch(line.count(), line.words(),
                              {[&line] { halvane::become_paper_program(line.words()); }});
}
