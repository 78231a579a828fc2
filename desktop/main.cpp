// SPDX-License-Identifier: MIT
#include "desktop/frmmain.h"
#include "desktop/panels.h"
#include "panel/application.h"
#include "panel/commandline.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "platform/desktoplook.h"
#include "stored/programfolder.h"
#include "system/display.h"
#include "system/programstart.h"
#include "system/unfinishedfile.h"

#include <cstdio>
#include <cstdlib>

namespace halvane {
namespace {

constexpr const char* help =
    "Halvane, a desktop calculator for Islamic astronomy: opens the main panel with today's prayer times\n"
    "and a button for every tool. halvane-report makes the same reports without a display.\n";

int run(int count, char** words) {
    if (const std::optional<int> status = answer_on_terminal(count, words, "halvane", help))
        return *status;
    if (!has_display()) {
        std::fputs("halvane: there is no display to show the panels on\n", stderr);
        return EXIT_FAILURE;
    }
    follow_desktop_colours();
    Application application(count, words);
    QApplication::setApplicationName(QStringLiteral("Halvane"));
    use_halvane_look();
    use_halvane_keys();
    remove_old_leftovers(program_folder());
    handle_events_while_waiting();
    try {
        frmmain main_panel(panels());
        main_panel.load();
        main_panel.show();
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
