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

RunTimeFailure broken_map_picture(const std::string& path) {
    const std::string width = std::to_string(map_width);
    const std::string height = std::to_string(map_height);
    return damaged_file(path,
                        {"a GIF picture of " + width + " by " + height + " pixels",
                         "صورة GIF من " + width + " في " + height + " نقطة"},
                        {"a picture that is cut, of another form or of another size",
                         "صورة ناقصة أو من نوع آخر أو من حجم آخر"});
}

} // namespace halvane
