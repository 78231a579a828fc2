// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktopplatform.h"

namespace halvane {

/// Linux with X11 or Wayland: programs start with the session by
/// entries of the XDG autostart folder, a running program is known by its executable's name.
class LinuxPlatform : public DesktopPlatform {
public:
    using DesktopPlatform::DesktopPlatform;

    void create_shortcut(const Shortcut& shortcut) override;
    void delete_shortcut(const std::string& folder, const std::string& name) override;
    bool is_running(const std::string& window_title, const std::string& executable) override;
    void start_minimised(const std::string& path, const std::string& working_folder) override;
};

} // namespace halvane
