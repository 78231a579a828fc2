// SPDX-License-Identifier: MIT
#include "platform/desktoplook.h"

#include <QtGlobal>

namespace halvane {

void follow_desktop_colours() {
    constexpr const char* chosen = "QT_QPA_PLATFORM";
    // Without being told Qt 6.4 darkens the frames of windows alone.
    if (!qEnvironmentVariableIsSet(chosen))
        qputenv(chosen, "windows:darkmode=2");
}

/// The style of Windows' own controls has no dark colours.
QString desktop_style() {
    return QStringLiteral("fusion");
}

} // namespace halvane
