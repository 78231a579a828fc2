// SPDX-License-Identifier: MIT
#include "system/usersfolder.h"

#include "system/path.h"
#include "system/windows/widepath.h"

#include <windows.h>

#include <shlobj.h>

namespace halvane {

/// "Halvane" in %LOCALAPPDATA%.
std::optional<std::string> users_folder() {
    std::wstring path(MAX_PATH, L'\0');
    if (FAILED(::SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA | CSIDL_FLAG_CREATE, nullptr,
                                  SHGFP_TYPE_CURRENT, path.data())))
        return std::nullopt;
    path.resize(path.find(L'\0'));
    return joined_path(narrow(path), "Halvane");
}

} // namespace halvane
