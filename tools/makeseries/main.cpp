// SPDX-License-Identifier: MIT
// makeseries TABLES_FOLDER OUTPUT_FOLDER: writes the four series files of the program folder from the
// published tables. Nothing is written unless every table is whole.

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "tools/makeseries/seriesfiles.h"

namespace {

void write_file(const std::filesystem::path& path, const std::string& content) {
    std::filesystem::path unfinished = path;
    unfinished += ".new";
    std::ofstream output(unfinished, std::ios::binary);
    output << content;
    output.close();
    if (!output) {
        throw std::runtime_error(unfinished.string() + ": cannot be written");
    }
    std::filesystem::rename(unfinished, path);
}

void make_series(const std::filesystem::path& tables, const std::filesystem::path& output) {
    const halvane::PublishedSeries series = halvane::read_published_series(tables);
    const std::vector<std::pair<std::string, std::string>> files{
        {"termfull.vsk", halvane::termfull_file(series.vsop87d)},
        {"term.vsk", halvane::term_file(series.vsop87d)},
        {"mterm.vsk", halvane::mterm_file(series.nutation, series.moon_lr, series.moon_b)},
        {"elp.vsk", halvane::elp_file(series.elp2000_85)},
    };
    for (const auto& [name, content] : files) {
        write_file(output / name, content);
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: makeseries TABLES_FOLDER OUTPUT_FOLDER\n";
        return 1;
    }
    try {
        make_series(argv[1], argv[2]);
    } catch (const std::exception& failure) {
        std::cerr << "makeseries: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}
