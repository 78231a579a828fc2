// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace halvane {

/// The words of the command line in UTF-8, whatever the system gives `main`.
class CommandLine {
public:
    CommandLine(int count, char** words);
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    int count() const { return static_cast<int>(words_.size()) - 1; }
    /// As `main` gets them: the program's name first, null behind the last.
    char** words() { return words_.data(); }

private:
    std::vector<std::string> texts_; ///< where the system's own words are not in UTF-8
    std::vector<char*> words_;
};

} // namespace halvane
