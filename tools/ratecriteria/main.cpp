// SPDX-License-Identifier: MIT
#include "routines/seriesloader.h"
#include "stored/programfolder.h"
#include "tools/ratecriteria/criteriarates.h"

#include <exception>
#include <iostream>

/// Prints, as a table in Markdown, how many of the crescents of a table of sightings were seen in each class
/// of each criterion. In     table of sightings, folder of the series files
int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: ratecriteria SIGHTINGS.csv DATA_FOLDER\n";
        return 2;
    }
    try {
        halvane::set_program_folder(argv[2]);
        halvane::load_series();
        halvane::Ephemeris ephemeris(halvane::loaded_theory());
        std::cout << halvane::markdown_table(
            halvane::rate_criteria(ephemeris, halvane::read_sightings(argv[1])));
        return std::cout.flush() ? 0 : 1;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << "\n";
        return 1;
    }
}
