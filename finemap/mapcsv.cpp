// SPDX-License-Identifier: MIT
#include "calendar/civildate.h"
#include "finemap/mapdocument.h"
#include "finemap/mapstyle.h"
#include "report/valuetext.h"

#include <cmath>

namespace halvane {
namespace {

void add_rows(std::string& text, const FineMap& map, const std::string& head_of_row) {
    for (const MapPart& part : map.parts)
        for (std::size_t row = 0; row < part.rows; ++row)
            for (std::size_t column = 0; column < part.columns; ++column) {
                const MapNode& node = part.at(column, row);
                text += head_of_row;
                text += exact_number(part.longitude(column) + part.shift()) + ",";
                text += exact_number(part.latitude(row)) + ",";
                text += std::to_string(number_of(*map.settings.criterion, node.map_class)) + ",";
                text += (std::isfinite(node.value) ? exact_number(node.value) : std::string()) + "\r\n";
            }
}

} // namespace

const char* name_of(MapFormat format) {
    switch (format) {
    case MapFormat::png:
        return "png";
    case MapFormat::svg:
        return "svg";
    case MapFormat::pdf:
        return "pdf";
    case MapFormat::geojson:
        return "geojson";
    case MapFormat::csv:
        break;
    }
    return "csv";
}

std::string csv_of(std::span<const FineMap> maps) {
    const bool dated = maps.size() > 1;
    std::string text = dated ? "date," : "";
    text += "longitude,latitude,class,value\r\n";
    for (const FineMap& map : maps)
        add_rows(text, map, dated ? iso_date(civil_date(map.settings.day)) + "," : std::string());
    return text;
}

} // namespace halvane
