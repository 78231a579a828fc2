// SPDX-License-Identifier: MIT
#include "platform/desktopplatform.h"

#include "platform/topmost.h"

#include <QLocale>
#include <QTime>
#include <QWidget>

namespace halvane {

void DesktopPlatform::show_text_file(const std::string& name) {
    show_text_(name, nullptr);
}

void DesktopPlatform::show_report(const std::string& name, const std::shared_ptr<const Run>& run) {
    show_text_(name, run);
}

std::string DesktopPlatform::short_time(int hour, int minute, int second) {
    const QLocale locale = QLocale::system();
    const QTime time(hour, minute, second);
    // The format of the C locale shows seconds, which no user of a short format expects.
    const QString text = locale.language() == QLocale::C ? time.toString(QStringLiteral("HH:mm"))
                                                         : locale.toString(time, QLocale::ShortFormat);
    return text.toStdString();
}

void DesktopPlatform::keep_on_top(void* panel, bool on_top) {
    static TopMost kept;
    kept.keep(*static_cast<QWidget*>(panel), on_top);
}

std::unique_ptr<Platform> make_platform(ShowText show_text) {
    return std::make_unique<DesktopPlatform>(show_text);
}

} // namespace halvane
