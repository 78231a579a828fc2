// SPDX-License-Identifier: MIT
#include "batch/batchprogram.h"
#include "batch/paperprogram.h"

int main(int argc, char** argv) {
    return halvane::run_batch(argc, argv, {[argv] { halvane::become_paper_program(argv); }});
}
