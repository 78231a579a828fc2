// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace halvane {

/// Takes the lines of an INI text apart, one after the other: sections in brackets, "name = value" or
/// "name : value", a value that goes on in an indented line, comments behind ';' or '#' at the begin of a
/// line and behind " ;" of a value that stands beside its name.
class IniLines {
public:
    enum class Found {
        nothing, ///< of use: an empty line, a comment, a section
        value,
        unreadable
    };

    /// In     line  with or without its end
    Found take(std::string_view line);

    /// What has been found last.
    const std::string& section() const { return section_; }
    const std::string& name() const { return name_; }
    const std::string& value() const { return value_; }

private:
    Found take_section(std::string_view words);
    Found take_value(std::string_view words);

    std::string section_;
    std::string name_; ///< empty before the first one of a section
    std::string value_;
};

} // namespace halvane
