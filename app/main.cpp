#include "app/frmmain.h"
#include "app/frmstyle.h"
#include "app/frmsupport.h"
#include "app/language.h"
#include "app/messages.h"
#include "app/panels.h"
#include "app/stored/failure.h"

#include <QApplication>
#include <QIcon>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <utility>

namespace halvane {
namespace {

/// The language to tell a failure in; the failure may be that of the file that knows it.
Language language_of_failure() {
    try {
        return stored_language();
    } catch (const RunTimeFailure&) {
        return Language::english;
    }
}

/// Tells a failure in one box and ends the process at once, so that no run under way writes any more.
[[noreturn]] void end_with_failure(const std::exception& failure) {
    std::fprintf(stderr, "halvane: %s\n", failure.what());
    tell_failure(failure.what(), language_of_failure());
    std::_Exit(EXIT_FAILURE);
}

/// An event handler's failure must not travel through the event loop.
class Application : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& failure) {
            if (std::exchange(failing_, true))
                return false;
            end_with_failure(failure);
        }
    }

private:
    bool failing_ = false;
};

bool has_display() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

int run(int count, char** words) {
    if (!has_display()) {
        std::fputs("halvane: there is no display to show the panels on\n", stderr);
        return EXIT_FAILURE;
    }
    Application application(count, words);
    QApplication::setApplicationName(QStringLiteral("Halvane"));
    QApplication::setApplicationVersion(QStringLiteral("5.3.9"));
    QApplication::setDesktopFileName(QStringLiteral("halvane"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/halvane.svg")));
    use_halvane_look();
    handle_events_while_waiting();
    try {
        frmmain main_panel(panels());
        main_panel.load();
        main_panel.show();
        return QApplication::exec();
    } catch (const std::exception& failure) {
        end_with_failure(failure);
    }
}

} // namespace
} // namespace halvane

int main(int count, char** words) {
    return halvane::run(count, words);
}
