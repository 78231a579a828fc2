// SPDX-License-Identifier: MIT
#include "platform/desktopplatform.h"

#include "platform/linux/desktopentry.h"
#include "platform/linux/runningprograms.h"
#include "stored/textfile.h"

#include <QProcess>
#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <system_error>
#include <unistd.h>

namespace halvane {

namespace {

std::filesystem::path home_folder() {
    const char* home = std::getenv("HOME");
    if (home != nullptr && std::filesystem::path(home).is_absolute())
        return home;
    const passwd* user = ::getpwuid(::getuid());
    return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "/";
}

/// A path that is not absolute is to be ignored (XDG Base Directory 0.8, freedesktop.org).
std::filesystem::path configuration_folder() {
    const char* config = std::getenv("XDG_CONFIG_HOME");
    if (config != nullptr && std::filesystem::path(config).is_absolute())
        return config;
    return home_folder() / ".config";
}

/// The one folder of shortcuts that this system knows.
std::filesystem::path autostart_entry(const std::string& name) {
    return configuration_folder() / "autostart" / (name + ".desktop");
}

/// The program that goes with the package: where the series beside `target` are links, that beside the files
/// they lead to, since a user's own copy stays when the package is removed; else `target` itself.
std::string delivered_program(const std::string& target) {
    std::error_code error;
    const std::filesystem::path own(target);
    const std::filesystem::path series = std::filesystem::canonical(own.parent_path() / "term.vsk", error);
    const std::filesystem::path delivered = series.parent_path() / own.filename();
    return !error && std::filesystem::is_regular_file(delivered, error) ? delivered.string() : target;
}

} // namespace

void DesktopPlatform::create_shortcut(const Shortcut& shortcut) {
    const std::filesystem::path entry = autostart_entry(shortcut.name);
    std::filesystem::create_directories(entry.parent_path());
    save_text_file(entry.string(), desktop_entry(shortcut, delivered_program(shortcut.target)));
}

void DesktopPlatform::delete_shortcut(const std::string&, const std::string& name) {
    std::filesystem::remove(autostart_entry(name));
}

bool DesktopPlatform::is_running(const std::string&, const std::string& executable) {
    return user_runs(executable);
}

void DesktopPlatform::start_minimised(const std::string& path, const std::string& working_folder) {
    QProcess::startDetached(QString::fromStdString(path), {}, QString::fromStdString(working_folder));
}

} // namespace halvane
