// SPDX-License-Identifier: MIT
#include "crescent/mapsheet.h"

#include "stored/programfolder.h"
#include "stored/textfile.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <string_view>
#include <system_error>
#include <utility>

namespace halvane {
namespace {

/// Walks through the blocks of a GIF picture up to its trailer.
class GifWalk {
public:
    explicit GifWalk(std::string_view bytes) : bytes_(bytes) {}

    bool reaches_the_end() {
        constexpr std::size_t size_and_background = 7;
        if (!bytes_.starts_with("GIF87a") && !bytes_.starts_with("GIF89a"))
            return false;
        skip(6);
        skip_colours(at(4), size_and_background);
        while (!over_) {
            const unsigned kind = next();
            if (kind == trailer)
                return !over_;
            if (kind == extension)
                skip(1);
            else if (kind == image)
                skip_image_head();
            else
                return false;
            skip_blocks();
        }
        return false;
    }

private:
    static constexpr unsigned trailer = 0x3B;
    static constexpr unsigned extension = 0x21;
    static constexpr unsigned image = 0x2C;

    unsigned at(std::size_t ahead) {
        if (ahead < bytes_.size())
            return static_cast<unsigned char>(bytes_[ahead]);
        over_ = true;
        return 0;
    }
    void skip(std::size_t count) {
        over_ = over_ || count > bytes_.size();
        bytes_.remove_prefix(std::min(count, bytes_.size()));
    }
    unsigned next() {
        const unsigned value = at(0);
        skip(1);
        return value;
    }
    /// A head of `size` bytes and the table of colours that its flags tell of.
    void skip_colours(unsigned flags, std::size_t size) {
        skip(size + ((flags & 0x80U) != 0 ? std::size_t{3} << ((flags & 7U) + 1) : 0));
    }
    void skip_image_head() {
        constexpr std::size_t place_and_size = 9;
        skip_colours(at(8), place_and_size);
        skip(1); // size of the codes
    }
    void skip_blocks() {
        for (unsigned size = next(); size != 0 && !over_; size = next())
            skip(size);
    }

    std::string_view bytes_;
    bool over_ = false;
};

} // namespace

std::vector<ClassColour> bare_map_colours(const std::function<ClassColour(int x, int y)>& colour_at) {
    const auto byte = [](int value) { return static_cast<unsigned char>(value & 0xFF); };
    const auto row_of = [](int latitude) { return static_cast<int>(map_pixel(0, latitude).y); };
    std::map<int, int> counts;
    for (int y = row_of(MapGrid::north); y < row_of(MapGrid::south); ++y)
        for (int x = 0; x < map_width; ++x) {
            const ClassColour colour = colour_at(x, y);
            --counts[colour.red << 16 | colour.green << 8 | colour.blue];
        }
    std::vector<std::pair<int, int>> order;
    order.reserve(counts.size());
    for (const auto& [colour, count] : counts)
        order.emplace_back(count, colour);
    std::sort(order.begin(), order.end());
    std::vector<ClassColour> colours;
    colours.reserve(order.size());
    for (const auto& [count, colour] : order)
        colours.push_back({byte(colour >> 16), byte(colour >> 8), byte(colour)});
    return colours;
}

std::string map_picture_path() {
    return delivered_path("map.gif");
}

std::string whole_map_picture() {
    const std::string path = map_picture_path();
    std::string bytes = read_file(path);
    if (!GifWalk(bytes).reaches_the_end())
        throw broken_map_picture(path);
    return bytes;
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
