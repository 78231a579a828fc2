// SPDX-License-Identifier: MIT
// Writes a header with the size and the CRC-32 of the files given: sumseries HEADER FILE...

#include "routines/crc32.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

namespace {

std::string bytes_of(const char* path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::cerr << "sumseries: cannot read " << path << "\n";
        std::exit(EXIT_FAILURE);
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

int main(int count, char** words) {
    if (count < 3) {
        std::cerr << "sumseries HEADER FILE...\n";
        return EXIT_FAILURE;
    }
    std::ofstream header(words[1]);
    header << "#pragma once\n\n#include <cstddef>\n#include <cstdint>\n\nnamespace halvane {\n\n"
              "/// The series files as they are delivered.\n"
              "struct DeliveredSeries {\n    const char* name;\n    std::size_t size;\n"
              "    std::uint32_t crc32;\n};\n\n"
              "inline constexpr DeliveredSeries delivered_series[] = {\n";
    for (int i = 2; i < count; ++i) {
        const std::string bytes = bytes_of(words[i]);
        header << "    {\"" << std::filesystem::path(words[i]).filename().string() << "\", " << bytes.size()
               << ", " << halvane::crc32_of(bytes) << "U},\n";
    }
    header << "};\n\n} // namespace halvane\n";
    header.close();
    return header ? EXIT_SUCCESS : EXIT_FAILURE;
}
