#include "app/application.h"

#include "app/language.h"
#include "app/messages.h"
#include "app/stored/failure.h"
#include "app/stored/unfinishedfile.h"
#include "app/version.h"

#include <QIcon>
#include <cstdio>
#include <cstdlib>
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

} // namespace

Application::Application(int& count, char** words) : QApplication(count, words) {
    setApplicationVersion(QString::fromLatin1(version));
    setDesktopFileName(QStringLiteral("halvane"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/halvane.svg")));
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& failure) {
        if (std::exchange(failing_, true))
            return false;
        end_with_failure(failure);
    }
}

bool has_display() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

void end_with_failure(const std::exception& failure) {
    std::fprintf(stderr, "halvane: %s\n", failure.what());
    tell_failure(failure, language_of_failure());
    remove_unfinished_files();
    std::_Exit(EXIT_FAILURE);
}

} // namespace halvane
