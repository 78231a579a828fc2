// SPDX-License-Identifier: MIT
#pragma once

#include "base/failure.h"
#include "crescent/maptexts.h"

#include <functional>
#include <string>
#include <vector>

namespace halvane {

/// Radius of the circle that stands for a point [pixels of the map].
inline constexpr int map_point_radius = 2;

/// Where things stand on the picture that a map is saved as: the map over a band with the information lines
/// and the legend [pixels].
struct MapSheet {
    static constexpr int margin = 12;
    static constexpr int line_height = 20;
    static constexpr int lines = 7;
    static constexpr int swatch = 11; ///< side of a colour of the legend
    static constexpr int width = map_width;
    static constexpr int height = map_height + lines * line_height + 2 * margin;
    static constexpr int legend_left = width / 2;
    static constexpr int line_top(int line) { return map_height + margin + line * line_height; }
    static constexpr int swatch_top(int line) { return line_top(line) + 4; }
    static constexpr int mark_left = legend_left + swatch + margin / 2; ///< of a line's mark
    static constexpr int words_left = mark_left + margin + margin / 2;  ///< of a line's words
    static constexpr ClassColour ink{34, 40, 49};                       ///< of words and marks
    static constexpr ClassColour paper{255, 255, 255};                  ///< under them
};

/// Height of the figures that mark the classes on the map                            [pixels of the map]
inline constexpr int map_mark_height = 14;

/// The colours of the map itself in the area that drawings cover, the most frequent first: what class
/// not_possible looks like. First comes the sea, then the land.
/// In     colour_at  the picture's colour at a pixel
std::vector<ClassColour> bare_map_colours(const std::function<ClassColour(int x, int y)>& colour_at);

/// The world's picture: `map.gif` of the program folder, or of the executable's when that one has none.
std::string map_picture_path();

/// The bytes of that file, once they are seen to be a GIF picture from its head to its end.
/// Error  raises RunTimeFailure naming the file when it cannot be read, is no GIF picture or is cut.
std::string whole_map_picture();

/// The failure of a map picture that is cut, of another form or of another size.
RunTimeFailure broken_map_picture(const std::string& path);

} // namespace halvane
