// SPDX-License-Identifier: MIT
#include "tools/measureaccuracy/measurement.h"
#include "tools/measuring/swissephemeris.h"

#include <exception>
#include <iostream>

/// Prints the measured accuracy of the engine as a table in Markdown; with any argument also where the
/// largest error of each row stands. Exit status 1 when a bound is not kept or nothing could be measured.
int main(int argc, char** /*argv*/) {
    try {
        if (const std::string why = halvane::swiss::unavailable(); !why.empty()) {
            std::cerr << why << "\n";
            return 1;
        }
        const std::vector<halvane::Measurement> measurements = halvane::measure_all();
        std::cout << halvane::markdown_table(measurements);
        bool kept = true;
        for (const halvane::Measurement& m : measurements) {
            kept = kept && m.is_kept();
            if (argc > 1 || !m.is_kept())
                std::cerr << m.routine << ", " << m.quantity << ": largest at " << m.worst << "\n";
        }
        return kept ? 0 : 1;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << "\n";
        return 1;
    }
}
