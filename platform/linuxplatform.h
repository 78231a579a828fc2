// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

namespace halvane {

/// Linux with X11 or Wayland: programs start with the session by
/// entries of the XDG autostart folder, a running program is known by its executable's name.
class LinuxPlatform : public Platform {
public:
    /// How the program shows a text file of its folder by its bare name; the run of a report, none of another
    /// text.
    using ShowText = void (*)(const std::string& name, const std::shared_ptr<const Run>& run);
    explicit LinuxPlatform(ShowText show_text) : show_text_(show_text) {}

    void show_text_file(const std::string& name) override;
    void show_report(const std::string& name, const std::shared_ptr<const Run>& run) override;
    std::string short_time(int hour, int minute, int second) override;
    void keep_on_top(void* panel, bool on_top) override;
    void create_shortcut(const Shortcut& shortcut) override;
    void delete_shortcut(const std::string& folder, const std::string& name) override;
    bool is_running(const std::string& window_title, const std::string& executable) override;
    void start_minimised(const std::string& path, const std::string& working_folder) override;

private:
    ShowText show_text_;
};

} // namespace halvane
