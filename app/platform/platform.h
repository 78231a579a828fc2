#pragma once

#include <string>

namespace halvane {

/// What differs from one operating system to another. Panels and files are told in plain types, so that every
/// system's file is built and tested by itself.
class Platform {
public:
    virtual ~Platform() = default;

    /// Shows a text file of the program folder by its bare name, maximised. A file that is not there is told
    /// by whoever shows it; nothing is raised.
    virtual void show_text_file(const std::string& name) = 0;

    /// A clock time in the system's short time format.
    virtual std::string short_time(int hour, int minute, int second) = 0;

    /// Keeps a panel above the other windows, or puts it back among them.
    /// In     panel  the panel's widget, known to the system's file only
    virtual void keep_on_top(void* panel, bool on_top) = 0;
};

/// The platform in use.
Platform& platform();

/// Puts another platform in place (tests); a null pointer gives the system's own back.
void set_platform(Platform* other);

} // namespace halvane
