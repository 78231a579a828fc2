// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/pageframe.h"
#include "timetable/pagetext.h"
#include "timetable/timetablesheet.h"

#include <QPainter>
#include <QRectF>
#include <vector>

namespace halvane {

/// The table of a page: its columns share the width, its rows the height.
class PageTable {
public:
    /// In     width  of the table                                                            [page units]
    PageTable(const TimetableSheet& sheet, PageLanguage language, double width);

    /// How high it is at least, with rows of `row_height`                                     [page units]
    double least_height(double row_height) const;

    /// Paints it at the top of `room`, and gives where it ends                                [page units]
    double paint(QPainter& painter, const QRectF& room) const;

private:
    /// A column; its widths by a font of one point are in page units.
    struct Column {
        double block = 0;   ///< of its widest cell, by a font of one point
        double mark = 0;    ///< of the mark behind a time, by the same; 0 where none stands
        double heading = 0; ///< of its heading's longest word, by the same
        double numbers = 0; ///< of the longest number that a cell begins with, by the same
        bool words = false; ///< its cells begin below one another; figures end so
        double left = 0;    ///< from the table's left side                                   [page units]
        double width = 0;   ///< [page units]
    };

    bool both() const { return language_ == PageLanguage::both; }
    bool mirrored() const { return language_ == PageLanguage::arabic; }
    /// That of the page, or the first of both.
    Language first_language() const;

    void measure();
    /// What a cell says in the page's only language, or alike in both.
    const std::string& said_once(const TwinWords& words) const;
    double cell_width(const TwinWords& words, bool bold) const;
    /// How far a cell's text is moved so that the numbers at its start end below one another.
    static double indent(const Column& column, const TwinWords& words, bool bold);
    double heading_width(const TwinWords& heading) const;
    double natural_width(const Column& column, double points) const;
    double points_of_width() const;
    void share_width();

    std::vector<PageText> heading_lines(std::size_t number) const;
    double heading_height() const;
    void paint_headings(QPainter& painter, const QRectF& room) const;
    void paint_row(QPainter& painter, const QRectF& row, const SheetRow& content) const;
    void paint_cell(QPainter& painter, const QRectF& place, std::size_t number, const SheetRow& row) const;
    // Each paints a cell's text in the middle of its row and gives where a mark behind it begins.
    double paint_text(QPainter& painter, const QRectF& block, const PageFont& font, const TwinWords& words,
                      bool begin_alike) const;
    double paint_side_by_side(QPainter& painter, const QRectF& block, const PageFont& font,
                              const TwinWords& words) const;
    double paint_stacked(QPainter& painter, const QRectF& block, PageFont font, const TwinWords& words) const;
    void paint_mark(QPainter& painter, PageFont font, const QPointF& place) const;

    const TimetableSheet& sheet_;
    PageLanguage language_;
    double width_;
    std::vector<Column> columns_;
    bool stacked_ = false; ///< the languages of a cell stand below one another
    double points_ = 0;    ///< of the cells, as far as the width goes
};

} // namespace halvane
