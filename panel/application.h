// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <exception>

namespace halvane {

/// Memory put aside, so that a failure for want of memory can still be told.
class MemoryReserve {
public:
    MemoryReserve();
    MemoryReserve(const MemoryReserve&) = delete;
    MemoryReserve& operator=(const MemoryReserve&) = delete;
    ~MemoryReserve() { give_back(); }
    /// Gives the memory of every reserve back to the system's allocator.
    static void give_back();
};

/// A program with panels. A failure of an event handler is told in one box, and the process ends with status
/// 1 at once, so that no run under way writes any more.
class Application : public QApplication {
public:
    Application(int& count, char** words);
    bool notify(QObject* receiver, QEvent* event) override;

private:
    bool failing_ = false;
    MemoryReserve reserve_;
};

/// Tells a failure in one box, in the stored language where it can be read, and ends with status 1.
[[noreturn]] void end_with_failure(const std::exception& failure);

/// The same for the exception being handled, of whatever type.
[[noreturn]] void end_with_present_failure();

} // namespace halvane
