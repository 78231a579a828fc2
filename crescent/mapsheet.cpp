#include "crescent/mapsheet.h"

#include "app/stored/programfolder.h"

#include <filesystem>
#include <system_error>

namespace halvane {

std::string map_picture_path() {
    std::error_code ignored;
    std::string own = program_path("map.gif");
    if (std::filesystem::exists(own, ignored))
        return own;
    return (std::filesystem::path(executable_folder()) / "map.gif").string();
}

} // namespace halvane
