#include "app/platform/linuxplatform.h"

#include "app/stored/programfolder.h"
#include "app/viewer.h"

#include <QLocale>
#include <QTime>
#include <QWidget>

namespace halvane {

void LinuxPlatform::show_text_file(const std::string& name) {
    auto* viewer = new Viewer(QString::fromStdString(program_path(name)));
    viewer->setAttribute(Qt::WA_DeleteOnClose);
    viewer->showMaximized();
}

std::string LinuxPlatform::short_time(int hour, int minute, int second) {
    const QLocale locale = QLocale::system();
    const QTime time(hour, minute, second);
    // The format of the C locale shows seconds, which no user of a short format expects.
    const QString text = locale.language() == QLocale::C ? time.toString(QStringLiteral("HH:mm"))
                                                         : locale.toString(time, QLocale::ShortFormat);
    return text.toStdString();
}

void LinuxPlatform::keep_on_top(void* panel, bool on_top) {
    auto* widget = static_cast<QWidget*>(panel);
    // A change of the flag hides the window; showing it again activates it.
    if (widget->windowFlags().testFlag(Qt::WindowStaysOnTopHint) != on_top) {
        const bool shown = widget->isVisible();
        widget->setWindowFlag(Qt::WindowStaysOnTopHint, on_top);
        widget->setVisible(shown);
    }
    if (on_top && widget->isVisible())
        widget->raise();
}

} // namespace halvane
