// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

namespace halvane {

class Run;

/// A shortcut to a program in one of the user's own folders.
struct Shortcut {
    std::string target;         ///< the program, whole path
    std::string folder;         ///< name of the user's folder; "Startup": its programs start with the session
    std::string name;           ///< of the shortcut, without an ending
    std::string working_folder; ///< whole path
    int window_style = 0;       ///< as the system counts them; 0 leaves it to the program
    int icon_number = 0;        ///< which of the target's icons
};

/// What differs from one operating system to another. Panels and files are told in plain types, so that every
/// system's file is built and tested by itself.
class Platform {
public:
    virtual ~Platform() = default;

    /// Shows a text file of the program folder by its bare name, maximised. A file that is not there is told
    /// by whoever shows it; nothing is raised.
    virtual void show_text_file(const std::string& name) = 0;

    /// The same of a report, with the run that wrote it, which can write it in its other formats.
    virtual void show_report(const std::string& name, const std::shared_ptr<const Run>& run) = 0;

    /// A clock time in the system's short time format.
    virtual std::string short_time(int hour, int minute, int second) = 0;

    /// Keeps a panel above the other windows, or puts it back among them. What the program shows while the
    /// panel is kept stands in front of it.
    /// In     panel  the panel's widget, known to the system's file only
    virtual void keep_on_top(void* panel, bool on_top) = 0;

    /// Makes the shortcut, or makes it anew.
    /// Error  raises RunTimeFailure or a standard exception when it cannot be written.
    virtual void create_shortcut(const Shortcut& shortcut) = 0;

    /// Deletes the shortcut `name` of the user's folder `folder`; one that is not there is passed over.
    virtual void delete_shortcut(const std::string& folder, const std::string& name) = 0;

    /// Whether a program is running in the user's session.
    /// In     window_title  of its main window
    ///        executable    its bare file name
    virtual bool is_running(const std::string& window_title, const std::string& executable) = 0;

    /// Starts a program by its whole path, minimised, and does not wait for it.
    virtual void start_minimised(const std::string& path, const std::string& working_folder) = 0;
};

/// How the program shows a text file of its folder by its bare name; the run of a report, none of another
/// text.
using ShowText = void (*)(const std::string& name, const std::shared_ptr<const Run>& run);

/// The platform of the operating system that Halvane is built for.
std::unique_ptr<Platform> make_platform(ShowText show_text);

} // namespace halvane
