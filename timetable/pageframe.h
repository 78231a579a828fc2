// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "timetable/pagetext.h"
#include "timetable/profile.h"

#include <QColor>
#include <QPainter>
#include <QSizeF>
#include <functional>
#include <string>
#include <vector>

namespace halvane {

// What every printed page has, in page units: the paper, its margins, a head, its rule and a foot.

/// The colours of a page.
struct PageColours {
    static constexpr QColor green{0x1B, 0x7F, 0x5C};
    static constexpr QColor ink{0x1C, 0x27, 0x23};
    static constexpr QColor quiet{0x51, 0x60, 0x5A};
    static constexpr QColor hairline{0xD3, 0xDD, 0xD8};
    static constexpr QColor friday{0xE3, 0xF1, 0xEA};
};

/// Where the first line's baseline lies below the top of a text                                  [em]
inline constexpr double baseline_below_top = 1.03;

inline constexpr double page_margin = 15 * page_units;
inline constexpr double foot_height = 6 * page_units;
inline constexpr double between_columns = 6 * page_units; ///< of two texts side by side

/// A sheet of paper, upright                                                                       [mm]
QSizeF paper_size(PaperSize paper);

PageFont page_font(double points, bool bold, const QColor& colour = PageColours::ink);

/// A column of the page for one language: the whole width, or a part of it.
struct PageSide {
    Language language;
    double left;
    double right;

    double width() const { return right - left; }
    LineAnchor anchor() const { return language == Language::english ? LineAnchor::left : LineAnchor::right; }
    double start() const { return language == Language::english ? left : right; }
    double end() const { return language == Language::english ? right : left; }
};

/// The whole width for one language, or a half for each of both.
std::vector<PageSide> sides_of(PageLanguage language, double left, double right);

/// Writes texts of one language below one another.
class SideWriter {
public:
    /// In     painter  without one texts are measured only
    SideWriter(QPainter* painter, const PageSide& side) : painter_(painter), side_(side) {}

    /// Writes a text below `top`, and gives where it ends.
    double write(const std::string& words, const PageFont& font, double top) const;

    /// Writes two texts on one line, from its start and up to its end, or below one another where they are
    /// long.
    double write_pair(const std::string& first, const std::string& second, const PageFont& first_font,
                      const PageFont& second_font, double top) const;

private:
    void draw(const PageText& text, const PageFont& font, double top, double anchor_at,
              LineAnchor anchor) const;

    QPainter* painter_;
    PageSide side_;
};

/// Paints the rule below a head, with a star in its middle, and gives where it ends.
double paint_star_rule(QPainter& painter, double left, double right, double top);

/// The size, of 8 points down to 4, at which notes fill no more than `room`.
/// In     height_of  how high they are at so many points
double notes_points(double room, const std::function<double(double points)>& height_of);

/// Paints the rule above a foot, and gives where the foot's words begin.
/// In     bottom  of the page within its margins
double paint_foot_rule(QPainter& painter, double left, double right, double bottom);

/// Paints the foot with its rule: the program's name, and the words of the page in each language.
/// In     sides   of the page
///        bottom  of the page within its margins
void paint_foot(QPainter& painter, const std::vector<PageSide>& sides, double bottom, const TwinWords& words);

inline constexpr const char* program_name = "Halvane";

} // namespace halvane
