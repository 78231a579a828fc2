// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/maptexts.h"
#include "panel/formlanguage.h"

#include <QColor>
#include <QLabel>
#include <optional>
#include <vector>

namespace halvane {

/// The legend of a map: its text is the lines of the legend, and each line is drawn with its colour and its
/// mark beside the words.
class LegendLabel : public QLabel {
    Q_OBJECT
public:
    explicit LegendLabel(QWidget* parent = nullptr);

    /// In     bare  the map's own colour, which class not_possible lets through
    void show_legend(std::vector<LegendLine> legend, const QColor& bare, Language language);
    /// Sets the line of a class in bold, or none.
    void mark(std::optional<VisibilityClass> visibility);
    std::optional<VisibilityClass> marked() const { return marked_; }
    const std::vector<LegendLine>& legend() const { return legend_; }
    /// The place of a line's colour.
    QRect swatch(int line) const;

    /// Room for the longest of all legends, so that the panel keeps its shape.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int line_height() const;
    int swatch_side() const;
    int mark_indent() const { return 2 * swatch_side(); }
    int text_indent() const;

    std::vector<LegendLine> legend_;
    QColor bare_;
    std::optional<VisibilityClass> marked_;
    Language language_ = Language::english;
};

} // namespace halvane
