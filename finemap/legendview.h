// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/finemappainter.h"

#include <QWidget>
#include <memory>

namespace halvane {

/// The legend of a map, painted as on its sheets, in the window's colours.
class LegendView : public QWidget {
    Q_OBJECT
public:
    explicit LegendView(QWidget* parent = nullptr);

    /// Explains a map with its look.
    void show_legend(std::shared_ptr<const FineMap> map, const MapLook& look);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double unit() const;

    WorldOutline no_world_;
    std::shared_ptr<const FineMap> map_;
    std::unique_ptr<FineMapPainter> painter_;
};

} // namespace halvane
