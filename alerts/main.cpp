// SPDX-License-Identifier: MIT
#include "alerts/alertprogram.h"
#include "alerts/onlycopy.h"
#include "panel/application.h"
#include "panel/commandline.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "platform/desktoplook.h"
#include "routines/seriesloader.h"
#include "stored/programfolder.h"
#include "system/display.h"
#include "system/path.h"
#include "system/programstart.h"
#include "system/unfinishedfile.h"

#include <QDir>
#include <QStandardPaths>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>

namespace halvane {
namespace {

/// Where the system has no folder for what lasts as long as a session it names the user's home, which is kept
/// clean.
QString session_folder() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder == QDir::homePath())
        folder = QDir::tempPath();
    return folder.isEmpty() ? QString::fromStdString(program_folder()) : folder;
}

/// A user's folder keeps its copy of the program when the package goes, and links that lead nowhere.
bool package_is_gone() {
    std::error_code ignored;
    const std::filesystem::path series = path_of(series_path("term.vsk"));
    return std::filesystem::is_symlink(series, ignored) && !std::filesystem::exists(series, ignored);
}

constexpr const char* help =
    "The prayer alerts of Halvane: runs beside the session and alerts at prayer times, as the panel\n"
    "\"Alerts\" of Halvane sets it. A second start shows the window of the one that runs.\n";

int run(int count, char** words) {
    if (const std::optional<int> status = answer_on_terminal(count, words, "alert63.exe", help))
        return *status;
    if (package_is_gone()) {
        std::fputs("halvane: the package that this program belongs to is no longer there\n", stderr);
        return EXIT_SUCCESS;
    }
    if (!has_display()) {
        std::fputs("halvane: there is no display to show alerts on\n", stderr);
        return EXIT_FAILURE;
    }
    follow_desktop_colours();
    Application application(count, words);
    QApplication::setApplicationName(QStringLiteral("Halvane Alerts"));
    QApplication::setQuitOnLastWindowClosed(false);
    OnlyCopy copy(session_folder());
    if (!copy.is_first()) {
        if (!copy.ask_first_to_show())
            std::fputs("halvane: the alerts run already\n", stderr);
        return EXIT_SUCCESS;
    }
    use_halvane_look();
    use_halvane_keys();
    remove_old_leftovers(program_folder());
    try {
        load_term();
        load_mterm();
        const std::unique_ptr<AlertSounds> sounds = make_alert_sounds();
        AlertProgram program(*sounds);
        QObject::connect(&copy, &OnlyCopy::asked_to_show, &program, &AlertProgram::show_main_window);
        program.start();
        return QApplication::exec();
    } catch (...) {
        end_with_present_failure();
    }
}

} // namespace
} // namespace halvane

int main(int count, char** words) {
    halvane::begin_program();
    return halvane::run(count, words);
}
