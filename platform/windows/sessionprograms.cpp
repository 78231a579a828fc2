// SPDX-License-Identifier: MIT
#include "platform/desktopplatform.h"

#include "platform/windows/shortcutfile.h"
#include "system/path.h"
#include "system/windows/handle.h"
#include "system/windows/quotedword.h"
#include "system/windows/widepath.h"

#include <filesystem>
#include <system_error>

namespace halvane {

void DesktopPlatform::create_shortcut(const Shortcut& shortcut) {
    write_shortcut(startup_folder(), link_fields(shortcut));
}

void DesktopPlatform::delete_shortcut(const std::string& /*folder*/, const std::string& name) {
    Shortcut shortcut;
    shortcut.name = name;
    std::filesystem::remove(path_of(joined_path(startup_folder(), link_fields(shortcut).file_name)));
}

bool DesktopPlatform::is_running(const std::string& window_title, const std::string& /*executable*/) {
    return ::FindWindowW(nullptr, wide(window_title).c_str()) != nullptr;
}

void DesktopPlatform::start_minimised(const std::string& path, const std::string& working_folder) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = SW_SHOWMINIMIZED;
    PROCESS_INFORMATION begun{};
    std::wstring line = quoted_word(wide(path));
    if (::CreateProcessW(wide(path).c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                         wide(working_folder).c_str(), &start, &begun) == 0)
        throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), path);
    const Handle thread(begun.hThread);
    const Handle process(begun.hProcess);
}

} // namespace halvane
