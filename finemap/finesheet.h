// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/finemappainter.h"
#include "timetable/pagetext.h"

#include <QPainter>
#include <QRectF>
#include <QSizeF>
#include <memory>
#include <optional>
#include <vector>

namespace halvane {

/// A page's place among others; a sheet that stands alone bears no number.
struct PageNumber {
    int number = 1;
    int pages = 1;
};

/// A sheet of maps of one conjunction by one criterion: their head, one map or several beside each other, the
/// legend, the credits. Lengths are page units (timetable/pagetext.h).
class FineSheet {
public:
    /// In     maps   one at least; they and `world` must outlive the sheet
    ///        clock  on which the conjunction is told besides Universal Time
    FineSheet(const std::vector<const FineMap*>& maps, const WorldOutline& world, const MapLook& look,
              const std::optional<SheetClock>& clock);

    /// The sheet of this width on which the maps have all the width that they can take, and nothing is left
    /// empty.
    static constexpr double natural_width = 297 * page_units;
    QSizeF natural_size() const;

    /// Paints the sheet; its maps take the room that the rest leaves.
    /// In     size     of the sheet
    ///        visible  the part of it that is wanted
    void paint(QPainter& painter, const QSizeF& size, const QRectF& visible,
               const PageNumber& page = {}) const;

private:
    struct Layout;
    Layout layout_of(const QSizeF& size) const;
    double write_head(QPainter* painter, double left, double right) const;
    void write_foot(QPainter& painter, const QSizeF& size, const PageNumber& page) const;

    Language language() const { return maps_.front()->look().language; }
    const FineMapSettings& settings() const { return maps_.front()->map().settings; }

    std::vector<std::unique_ptr<FineMapPainter>> maps_;
    SheetTexts texts_;
};

} // namespace halvane
