// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/finemap.h"
#include "finemap/maplines.h"
#include "finemap/sheettexts.h"
#include "finemap/worldoutline.h"
#include "timetable/profile.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// What the user chooses of a map's look.
struct MapLook {
    Language language = Language::english;
    std::vector<MapQuantity> lines;  ///< of equal value
    std::vector<MarkedPlace> places; ///< with their names
};

/// The maps of one conjunction by one criterion, one at least.
struct MapPage {
    std::vector<FineMap> maps;
    std::optional<SheetClock> clock; ///< on which the conjunction is told besides Universal Time
};

/// The files that maps are written to.
enum class MapFormat { png, svg, pdf, geojson, csv };
inline constexpr MapFormat map_formats[] = {MapFormat::png, MapFormat::svg, MapFormat::pdf,
                                            MapFormat::geojson, MapFormat::csv};
const char* name_of(MapFormat format);
/// Whether a painter makes the file.
constexpr bool is_drawn(MapFormat format) {
    return format == MapFormat::png || format == MapFormat::svg || format == MapFormat::pdf;
}

/// Widths of a picture                                                                         [pixels]
inline constexpr int least_map_width = 64;
inline constexpr int most_map_width = 30000;

/// What a file of maps is made of; a PDF file alone has more than one page.
struct MapDocument {
    int pages = 1;
    std::function<MapPage(int number)> page; ///< from 1 on; asked for each once, in order
    std::string title;
    MapLook look;
    PaperSize paper = PaperSize::a4; ///< of PDF files
    int width = 1600;                ///< of pictures                                         [pixels]
};

/// Takes the bytes of a file one after the other.
using TakeBytes = std::function<void(std::string_view bytes)>;

/// The zones as GeoJSON (RFC 7946): a feature for each zone of each map.
std::string geojson_of(std::span<const FineMap> maps, Language language);

/// The places of the grid as "longitude,latitude,class,value", a row each; behind the date for several maps.
std::string csv_of(std::span<const FineMap> maps);

} // namespace halvane
