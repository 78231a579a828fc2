// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/pageframe.h"
#include "watch/watchsheet.h"

#include <QPainter>
#include <vector>

namespace halvane {

/// The table of a watch's rows, painted row by row so that it can go on on another page. Its columns begin at
/// the reading side; its figures end below one another.
class WatchTable {
public:
    /// In     left, right  where it lies                                                       [page units]
    WatchTable(const WatchSheet& sheet, Language language, double left, double right);

    double head_height() const;
    void paint_head(QPainter& painter, double top) const;
    void paint_row(QPainter& painter, double top, double height, std::size_t number) const;

private:
    struct Column {
        double left = 0; ///< [page units]
        double width = 0;
        double cell = 0; ///< width of its widest cell
        bool figures = true;
    };

    double wanted_width(std::size_t number, double points) const;
    std::string heading_of(std::size_t number) const;
    std::string cell_of(std::size_t row, std::size_t column) const;
    void share_width(double left, double right);
    void paint_groups(QPainter& painter, double top) const;
    void paint_cell(QPainter& painter, const Column& column, const std::string& words, double baseline,
                    bool bold) const;

    const WatchSheet& sheet_;
    Language language_;
    double left_;
    double right_;
    double points_ = 0;
    std::vector<Column> columns_;
};

} // namespace halvane
