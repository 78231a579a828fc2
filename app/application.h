#pragma once

#include <QApplication>
#include <exception>

namespace halvane {

/// A program with panels. A failure of an event handler is told in one box, and the process ends with status
/// 1 at once, so that no run under way writes any more.
class Application : public QApplication {
public:
    Application(int& count, char** words);
    bool notify(QObject* receiver, QEvent* event) override;

private:
    bool failing_ = false;
};

/// Whether there is a display to show panels on.
bool has_display();

/// Tells a failure in one box, in the stored language where it can be read, and ends with status 1.
[[noreturn]] void end_with_failure(const std::exception& failure);

} // namespace halvane
