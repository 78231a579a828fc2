// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

namespace halvane {

/// A button of the main panel: icon and caption stand at its leading edge, so that a column of buttons reads
/// as a list.
class DeskButton : public QPushButton {
    Q_OBJECT
public:
    using QPushButton::QPushButton;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace halvane
