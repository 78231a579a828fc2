// SPDX-License-Identifier: MIT
#include "platform/linux/desktopentry.h"

#include <filesystem>

namespace halvane {
namespace {

/// A value of the kind "string".
std::string escaped(const std::string& text) {
    std::string value;
    for (const char c : text)
        value += c == '\\' ? std::string("\\\\") : c == '\n' ? std::string("\\n") : std::string(1, c);
    return value;
}

/// One word of a command line, before it is escaped as a string.
std::string quoted(const std::string& word) {
    std::string value = "\"";
    for (const char c : word) {
        if (c == '"' || c == '`' || c == '$' || c == '\\')
            value += '\\';
        value += c;
        if (c == '%')
            value += '%';
    }
    return value + '"';
}

} // namespace

std::string desktop_entry(const Shortcut& shortcut, const std::string& needed) {
    const std::filesystem::path folder = std::filesystem::path(shortcut.target).parent_path();
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Version=1.0\n"
           "Name=Halvane Alerts\n"
           "Name[ar]=منبه الصلاة\n"
           "Exec=" +
           escaped(quoted(shortcut.target)) + "\nTryExec=" + escaped(needed) +
           "\nPath=" + escaped(shortcut.working_folder) +
           "\nIcon=" + escaped((folder / "halvane.svg").string()) +
           "\nTerminal=false\n"
           "X-GNOME-Autostart-enabled=true\n";
}

} // namespace halvane
