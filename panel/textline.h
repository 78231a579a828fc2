// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>
#include <QTextLayout>
#include <functional>

class QPaintDevice;

namespace halvane {

/// The direction of a line of a text in both languages: right to left when it has an Arabic letter, that of
/// the line before when it has no letter at all.
Qt::LayoutDirection direction_of(const QString& line, Qt::LayoutDirection before);

/// How the lines of a text are set, on the screen and on paper alike.
struct LineStyle {
    QFont font;
    /// Letters of different widths: blanks that stand for a column move to that column.
    bool proportional = false;
    /// Of one column [of the device's pixels]; the font's figure's.
    double column = 0;
    double height = 0; ///< from one line to the next
    double ascent = 0; ///< of the line's letters over their foot

    LineStyle() = default;
    /// In     device  where the lines are drawn; none for the screen
    LineStyle(const QFont& font, bool proportional, QPaintDevice* device = nullptr);
};

/// A line's letters stand on one foot with those of the other lines when it is drawn so far below its top.
double drop(const QTextLayout& layout, const LineStyle& style);

/// Lays one line out within `width` pixels: from the left, or from the right when it runs so. Its characters
/// keep their places in `text`.
void lay_out(QTextLayout& layout, const QString& text, const LineStyle& style, Qt::LayoutDirection direction,
             double width);

} // namespace halvane
