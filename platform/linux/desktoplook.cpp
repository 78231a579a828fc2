// SPDX-License-Identifier: MIT
#include "platform/desktoplook.h"

namespace halvane {

void follow_desktop_colours() {} // they do by themselves

QString desktop_style() {
    return {};
}

void fit_desktop_colours() {}

} // namespace halvane
