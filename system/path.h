// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace halvane {

/// The path that is written so in UTF-8. The standard's own conversion takes other letters than ASCII by the
/// machine's code page where the system's paths are not in UTF-8.
inline std::filesystem::path path_of(std::string_view utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

/// `name` within `folder`, all in UTF-8.
inline std::string joined_path(std::string_view folder, std::string_view name) {
    return (path_of(folder) / path_of(name)).string();
}

/// In small letters of ASCII, since not every file system tells `PREF.VSK` from `pref.vsk`.
inline std::string small_letters(std::string text) {
    for (char& letter : text)
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
    return text;
}

/// The ending of a file's name with its dot, in small letters; empty when it has none.
inline std::string ending_of(std::string_view path) {
    return small_letters(path_of(path).extension().string());
}

/// The folder of `path`; empty when it names none.
inline std::string folder_of(std::string_view path) {
    return path_of(path).parent_path().string();
}

} // namespace halvane
