// SPDX-License-Identifier: MIT
#pragma once

#include "base/language.h"

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPointF>
#include <QTextLayout>
#include <memory>
#include <string>

namespace halvane {

/// Units of a page for a millimetre: its lengths are whole numbers where Qt wants such.
inline constexpr double page_units = 100;

/// How a text of a page is written.
struct PageFont {
    double points = 10; ///< height of the em                                                     [pt]
    bool bold = false;
    QColor colour;
};

/// Whether the system has a font with a letter of the language, for want of which a page would be without
/// words.
bool has_font(Language language);

/// The em of a font                                                                        [page units]
double em_of(const PageFont& font);

/// Where the anchor of a line lies in it.
enum class LineAnchor { left, centre, right };

/// A text as it stands on a page: shaped, and broken into lines where a width is given.
/// Widths and heights are in page units, and grow with the font in proportion.
class PageText {
public:
    /// In     language  gives the direction: of Arabic from the right, whatever the letters are
    ///        width     of the lines, which break between words; 0 for one line of any width
    PageText(const std::string& text, const PageFont& font, Language language, double width = 0);

    double width() const; ///< of the widest line
    double height() const { return leading_ * lines(); }
    int lines() const { return layout_->lineCount(); }

    /// Draws the lines, each with its anchor below that of the line before.
    /// In     baseline  of the first line, at the anchor
    void draw(QPainter& painter, const QPointF& baseline, LineAnchor anchor) const;

private:
    std::unique_ptr<QTextLayout> layout_; // cannot be copied
    QColor colour_;
    double leading_;
};

/// The greatest font of at most `font`, and of at least `least` points, that a text fills no more than
/// `width` with.
PageFont fitting(const std::string& text, PageFont font, Language language, double width, double least);

} // namespace halvane
