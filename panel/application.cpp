// SPDX-License-Identifier: MIT
#include "panel/application.h"

#include "base/failure.h"
#include "base/version.h"
#include "panel/formlanguage.h"
#include "panel/messages.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "platform/deliveredfonts.h"
#include "system/unfinishedfile.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <utility>

namespace halvane {

namespace {

std::unique_ptr<char[]>& reserve() {
    static std::unique_ptr<char[]> memory;
    return memory;
}

/// The language to tell a failure in; the failure may be that of the file that knows it.
Language language_of_failure() {
    try {
        return stored_language();
    } catch (...) {
        return Language::english;
    }
}

} // namespace

MemoryReserve::MemoryReserve() {
    constexpr std::size_t enough_for_a_box = std::size_t{4} << 20; // bytes
    reserve() = std::make_unique<char[]>(enough_for_a_box);
}

void MemoryReserve::give_back() {
    reserve().reset();
}

Application::Application(int& count, char** words) : QApplication(count, words) {
    setApplicationVersion(QString::fromLatin1(version));
    setDesktopFileName(QStringLiteral("halvane"));
    setWindowIcon(panel_icon(QStringLiteral("halvane")));
    use_delivered_fonts();
    silence_late_clicks();
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        // The program ends with the box of the first failure; until then nothing new is begun.
        if (std::exchange(failing_, true))
            return false;
        end_with_present_failure();
    }
}

void end_with_failure(const std::exception& failure) {
    MemoryReserve::give_back();
    try {
        std::fprintf(stderr, "halvane: %s\n", words_of(parts_of(failure), Language::english).c_str());
        tell_failure(failure, language_of_failure());
    } catch (...) {
        std::fputs("halvane: the failure cannot be shown\n", stderr);
    }
    remove_unfinished_files();
    std::_Exit(EXIT_FAILURE);
}

void end_with_present_failure() {
    try {
        throw;
    } catch (const std::exception& failure) {
        end_with_failure(failure);
    } catch (...) {
        end_with_failure(std::runtime_error("an exception without words"));
    }
}

} // namespace halvane
