#pragma once

#include "app/platform/platform.h"

namespace halvane {

/// Linux with X11 or Wayland: text files open in the program's own viewer.
class LinuxPlatform : public Platform {
public:
    void show_text_file(const std::string& name) override;
    std::string short_time(int hour, int minute, int second) override;
    void keep_on_top(void* panel, bool on_top) override;
};

} // namespace halvane
