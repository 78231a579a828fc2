// SPDX-License-Identifier: MIT
#pragma once

#include "stored/outputfile.h"

#include <optional>
#include <string>

namespace halvane {

/// A text that grows and goes to a file piece by piece, or stays in memory.
class TextResult {
public:
    /// A text that stays in memory.
    TextResult() = default;
    /// A text for `path`: a result that takes its place on commit, as OutputFile tells. Until then, and when
    /// it is given up, an earlier file of that name stands untouched. Error  raises RunTimeFailure when the
    /// folder cannot be written; so do the others.
    explicit TextResult(std::string path);
    TextResult(const TextResult&) = delete;
    TextResult& operator=(const TextResult&) = delete;

    /// What has not been passed on yet: writers add to it.
    std::string& text() { return text_; }
    const std::string& text() const { return text_; }
    /// Passes the text on to the file once there is much of it; to be called where a line ends.
    void end_line();
    /// Puts the text in its place.
    void commit();

private:
    void pass_on();

    std::optional<OutputFile> file_;
    std::string text_;
};

} // namespace halvane
