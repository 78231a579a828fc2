// SPDX-License-Identifier: MIT
#include "tools/measureaccuracy/measurement.h"

#include "ephemeris/series.h"
#include "routines/seriesloader.h"
#include "tests/support/programfolder.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace halvane {
namespace {

/// Three significant digits.
std::string figure(double value) {
    std::array<char, 64> digits{};
    const int decimals = value >= 10 ? 1 : value >= 1 || value == 0 ? 2 : value >= 0.1 ? 3 : 4;
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, decimals)
            .ptr;
    return {digits.data(), end};
}

} // namespace

Errors::Errors(const std::string& routine, const std::string& quantity, const std::string& unit,
               double bound) {
    measurement_.routine = routine;
    measurement_.quantity = quantity;
    measurement_.unit = unit;
    measurement_.bound = bound;
}

void Errors::add(double error, const std::string& where) {
    const double size = std::isfinite(error) ? std::fabs(error) : std::numeric_limits<double>::infinity();
    ++measurement_.count;
    squares_ += size * size;
    if (size > measurement_.maximum) {
        measurement_.maximum = size;
        measurement_.worst = where;
    }
}

void Errors::add_one_sided(const std::string& where) {
    ++measurement_.one_sided;
    measurement_.worst = where;
}

Measurement Errors::result() const {
    Measurement measurement = measurement_;
    if (measurement.count > 0)
        measurement.rms = std::sqrt(squares_ / static_cast<double>(measurement.count));
    return measurement;
}

double angle_error(double found, double wanted) {
    return std::remainder(found - wanted, 360);
}

std::vector<Measurement> measure_all() {
    const TemporaryProgramFolder folder;
    load_series();
    std::vector<Measurement> all = measure_places();
    for (Measurement& measurement : measure_events())
        all.push_back(std::move(measurement));
    return all;
}

std::string markdown_table(const std::vector<Measurement>& measurements) {
    std::string table = "| Routine | Quantity | Count | RMS | Largest | Bound | Unit |\n"
                        "|---|---|---:|---:|---:|---:|---|\n";
    for (const Measurement& m : measurements) {
        table += "| `" + m.routine + "` | " + m.quantity + " | " + std::to_string(m.count) + " | " +
                 figure(m.rms) + " | " + figure(m.maximum) + " | " + figure(m.bound) + " | " + m.unit;
        if (m.one_sided > 0)
            table += ", " + std::to_string(m.one_sided) + " found by one side only";
        table += " |\n";
    }
    return table;
}

} // namespace halvane
