// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace halvane {

/// Lines whose fields stand below one another.
class AlignedLines {
public:
    void add(std::vector<std::string> fields);
    std::string text() const;

private:
    std::vector<std::vector<std::string>> rows_;
};

} // namespace halvane
