// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

#include <string>

namespace halvane {

/// The text of a desktop entry file that starts the shortcut's target with the session (freedesktop.org,
/// Desktop Entry 1.5, Desktop Application Autostart 0.5).
/// In     needed  a program without which the entry is passed over in silence, whole path
std::string desktop_entry(const Shortcut& shortcut, const std::string& needed);

} // namespace halvane
