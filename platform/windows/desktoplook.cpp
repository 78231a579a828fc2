// SPDX-License-Identifier: MIT
#include "platform/desktoplook.h"

#include <QGuiApplication>
#include <QPalette>
#include <QToolTip>

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

// Qt gives the tool tips of dark panels the blue of an accent.
void fit_desktop_colours() {
    const QPalette panels = QGuiApplication::palette();
    if (panels.color(QPalette::Window).lightness() > panels.color(QPalette::WindowText).lightness())
        return;
    QPalette tips = QToolTip::palette();
    tips.setColor(QPalette::ToolTipBase, panels.color(QPalette::Button));
    tips.setColor(QPalette::ToolTipText, panels.color(QPalette::ButtonText));
    QToolTip::setPalette(tips);
}

} // namespace halvane
