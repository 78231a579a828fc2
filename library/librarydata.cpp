// SPDX-License-Identifier: MIT
#include "library/librarydata.h"

#include <dlfcn.h>

namespace halvane::v1 {

std::vector<std::filesystem::path> data_folders() {
    std::vector<std::filesystem::path> folders;
    Dl_info own{};
    // A function of the library itself: the file that holds it.
    if (::dladdr(reinterpret_cast<const void*>(&data_folders), &own) != 0 && own.dli_fname != nullptr) {
        std::error_code ignored;
        const std::filesystem::path folder = std::filesystem::canonical(own.dli_fname, ignored).parent_path();
        if (!folder.empty()) {
            folders.push_back(folder);
            folders.push_back(folder.parent_path() / "share/halvane");
            folders.push_back(folder.parent_path().parent_path() / "share/halvane");
        }
    }
    folders.emplace_back(HALVANE_DATA_FOLDER);
    return folders;
}

} // namespace halvane::v1
