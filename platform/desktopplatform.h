// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

namespace halvane {

/// What every system's platform has alike, by Qt: the texts in the program's viewer, the user's regional
/// settings, panels above the others.
class DesktopPlatform : public Platform {
public:
    explicit DesktopPlatform(ShowText show_text) : show_text_(show_text) {}

    void show_text_file(const std::string& name) override;
    void show_report(const std::string& name, const std::shared_ptr<const Run>& run) override;
    std::string short_time(int hour, int minute, int second) override;
    void keep_on_top(void* panel, bool on_top) override;

private:
    ShowText show_text_;
};

} // namespace halvane
