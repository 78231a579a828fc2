// SPDX-License-Identifier: MIT
#include "finemap/finesheet.h"

#include "finemap/maplegend.h"
#include "timetable/pageframe.h"

#include <QLineF>
#include <algorithm>
#include <cstddef>
#include <string>

namespace halvane {
namespace {

constexpr double millimetre = page_units;
constexpr double margin = 8 * millimetre;
constexpr double sheet_foot = 5 * millimetre;
constexpr double below_head = 2 * millimetre;
constexpr double between_maps = 5 * millimetre;
constexpr double degrees_left = 9 * millimetre;  ///< room of the latitudes
constexpr double degrees_below = 4 * millimetre; ///< of the longitudes
constexpr double caption_height = 5.5 * millimetre;
constexpr double above_legend = 2.5 * millimetre;
constexpr double most_map_height = 300 * millimetre; ///< of a sheet that is as high as it likes

PageFont small_font() {
    return page_font(8, false, PageColours::quiet);
}

} // namespace

/// Where things stand on a sheet.
struct FineSheet::Layout {
    std::vector<MapFrame> frames;
    std::vector<double> caption_tops; ///< empty for one map
    QPointF legend;                   ///< upper left corner
    double legend_width = 0;
    double bottom = 0; ///< of all but the foot
};

FineSheet::FineSheet(const std::vector<const FineMap*>& maps, const WorldOutline& world, const MapLook& look,
                     const std::optional<SheetClock>& clock)
    : texts_(sheet_texts(maps.front()->settings, clock, look.language)) {
    for (const FineMap* const map : maps)
        maps_.push_back(std::make_unique<FineMapPainter>(*map, world, look));
}

/// In one column the legend follows the map; in two it takes the place of a fourth map, or follows too.
FineSheet::Layout FineSheet::layout_of(const QSizeF& size) const {
    Layout layout;
    const double left = margin;
    const double right = size.width() - margin;
    const double top = write_head(nullptr, left, right) + below_head;
    const std::size_t columns = maps_.size() == 1 ? 1 : 2;
    const std::size_t rows = (maps_.size() + columns - 1) / columns;
    const bool has_free_cell = maps_.size() % columns != 0;
    const double cell_width =
        (right - left - static_cast<double>(columns - 1) * between_maps) / static_cast<double>(columns);
    layout.legend_width = has_free_cell ? cell_width : right - left;
    const MapLegend legend(*maps_.front(), layout.legend_width);
    const double beside_map = degrees_below + (columns > 1 ? caption_height : 0);
    const double legend_below = has_free_cell ? 0 : above_legend + legend.height();
    const double room = size.height() - margin - sheet_foot - top - legend_below;
    const double map_height = std::max(millimetre, room / static_cast<double>(rows) - beside_map -
                                                       (rows > 1 ? between_maps / 2 : 0));
    const MapWindow& window = settings().window;
    const double wanted = std::min(map_height, shape_of(window) * (cell_width - degrees_left));
    const double row_height = beside_map + wanted + (rows > 1 ? between_maps / 2 : 0);
    const auto left_of_column = [&](std::size_t column) {
        const std::size_t shown = language() == Language::arabic ? columns - 1 - column : column;
        return left + static_cast<double>(shown) * (cell_width + between_maps);
    };
    for (std::size_t i = 0; i < maps_.size(); ++i) {
        const double cell_left = left_of_column(i % columns);
        const double cell_top = top + static_cast<double>(i / columns) * row_height;
        const double map_top = cell_top + (columns > 1 ? caption_height : 0);
        layout.frames.push_back(fitted_frame(
            window, {window, cell_left + degrees_left, map_top, cell_width - degrees_left, wanted}));
        if (columns > 1)
            layout.caption_tops.push_back(cell_top);
    }
    const double maps_bottom = top + static_cast<double>(rows) * row_height;
    layout.legend = has_free_cell ? QPointF(left_of_column(columns - 1) + degrees_left,
                                            maps_bottom - row_height + caption_height)
                                  : QPointF(left, maps_bottom + above_legend);
    layout.legend_width -= has_free_cell ? degrees_left : 0;
    layout.bottom =
        std::max(maps_bottom, layout.legend.y() + MapLegend(*maps_.front(), layout.legend_width).height());
    return layout;
}

QSizeF FineSheet::natural_size() const {
    const double most = most_map_height * static_cast<double>(maps_.size());
    return {natural_width, layout_of({natural_width, most}).bottom + sheet_foot + margin};
}

void FineSheet::paint(QPainter& painter, const QSizeF& size, const QRectF& visible,
                      const PageNumber& page) const {
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.fillRect(visible & QRectF(QPointF(0, 0), size), Qt::white);
    const Layout layout = layout_of(size);
    write_head(&painter, margin, size.width() - margin);
    for (std::size_t i = 0; i < maps_.size(); ++i) {
        const FineMapPainter& map = *maps_[i];
        const MapFrame& frame = layout.frames[i];
        if (!layout.caption_tops.empty())
            SideWriter(&painter, {language(), frame.left, frame.right()})
                .write(evening_text(map.map().settings, language()), page_font(9.5, true),
                       layout.caption_tops[i]);
        map.paint(painter, frame, visible);
        map.paint_degrees(painter, frame);
    }
    MapLegend(*maps_.front(), layout.legend_width).paint(painter, layout.legend);
    write_foot(painter, size, page);
    painter.restore();
}

/// Gives where the head ends.
double FineSheet::write_head(QPainter* painter, double left, double right) const {
    const SideWriter writer(painter, {language(), left, right});
    const bool is_single = maps_.size() == 1;
    const std::string date = evening_text(settings(), language());
    const std::string comma = language() == Language::english ? ", " : "، ";
    double top = writer.write_pair(texts_.title + comma + texts_.month, is_single ? date : texts_.criterion,
                                   page_font(15, true, PageColours::green), page_font(11, true), margin);
    const PageFont small = small_font();
    const std::string source = is_single ? texts_.criterion + ": " + texts_.source : texts_.source;
    top = writer.write_pair(texts_.conjunction, texts_.step, small, small, top);
    return writer.write(source, small, top);
}

void FineSheet::write_foot(QPainter& painter, const QSizeF& size, const PageNumber& page) const {
    const double left = margin;
    const double right = size.width() - margin;
    const double top = size.height() - margin - sheet_foot + 1.2 * millimetre;
    painter.setPen(QPen(PageColours::hairline, 0.2 * millimetre));
    painter.drawLine(QLineF(left, top, right, top));
    const PageFont font = page_font(7, false, PageColours::quiet);
    const std::string number =
        page.pages > 1 ? std::to_string(page.number) + " / " + std::to_string(page.pages) : std::string();
    SideWriter(&painter, {language(), left, right}).write_pair(texts_.credits, number, font, font, top);
}

} // namespace halvane
