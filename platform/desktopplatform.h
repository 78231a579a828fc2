// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

namespace halvane {

/// The platform of the system that Halvane is built for. By Qt on every system: the texts in the program's
/// viewer, the user's regional settings, panels above the others. The programs of the session are each
/// system's own: with X11 or Wayland they start by entries of the XDG autostart folder, and a running one is
/// known by its executable's name; on Windows they start by shortcuts of the user's start-up folder, and a
/// running one is known by its window's title.
class DesktopPlatform : public Platform {
public:
    explicit DesktopPlatform(ShowText show_text) : show_text_(show_text) {}

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
