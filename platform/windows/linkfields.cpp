// SPDX-License-Identifier: MIT
#include "platform/windows/linkfields.h"

#include <algorithm>

namespace halvane {
namespace {

constexpr int normal = 1;
constexpr int maximised = 3;
constexpr int minimised = 7;

std::string by_backslashes(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

} // namespace

LinkFields link_fields(const Shortcut& shortcut) {
    LinkFields link;
    link.file_name = shortcut.name + ".lnk";
    link.target = by_backslashes(shortcut.target);
    link.working_folder = by_backslashes(shortcut.working_folder);
    link.show_command = shortcut.window_style == maximised || shortcut.window_style == minimised
                            ? shortcut.window_style
                            : normal;
    link.icon_file = link.target;
    link.icon_number = shortcut.icon_number;
    return link;
}

} // namespace halvane
