// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/shownmap.h"

#include <QWidget>
#include <memory>

namespace halvane {

/// The legend of a map, painted as on its sheets, in the window's colours.
class LegendView : public QWidget {
    Q_OBJECT
public:
    explicit LegendView(QWidget* parent = nullptr);

    /// Explains a map, or none.
    void show_legend(ShownMapPointer map);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double unit() const;

    ShownMapPointer shown_;
};

} // namespace halvane
