#include "app/platform/linuxplatform.h"

#include "app/platform/desktopentry.h"
#include "app/platform/runningprograms.h"
#include "app/stored/programfolder.h"
#include "app/stored/textfile.h"
#include "app/viewer.h"

#include <QLocale>
#include <QProcess>
#include <QStandardPaths>
#include <QTime>
#include <QWidget>
#include <filesystem>

namespace halvane {

namespace {

/// The one folder of shortcuts that this system knows.
std::filesystem::path autostart_entry(const std::string& name) {
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return std::filesystem::path(config.toStdString()) / "autostart" / (name + ".desktop");
}

} // namespace

void LinuxPlatform::show_text_file(const std::string& name) {
    auto* viewer = new Viewer(QString::fromStdString(program_path(name)));
    viewer->setAttribute(Qt::WA_DeleteOnClose);
    viewer->showMaximized();
    viewer->raise();
    viewer->activateWindow();
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

void LinuxPlatform::create_shortcut(const Shortcut& shortcut) {
    const std::filesystem::path entry = autostart_entry(shortcut.name);
    std::filesystem::create_directories(entry.parent_path());
    save_text_file(entry.string(), desktop_entry(shortcut));
}

void LinuxPlatform::delete_shortcut(const std::string&, const std::string& name) {
    std::filesystem::remove(autostart_entry(name));
}

bool LinuxPlatform::is_running(const std::string&, const std::string& executable) {
    return user_runs(executable);
}

void LinuxPlatform::start_minimised(const std::string& path, const std::string& working_folder) {
    QProcess::startDetached(QString::fromStdString(path), {}, QString::fromStdString(working_folder));
}

} // namespace halvane
