// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/pdfpages.h"

#include <QPixmap>
#include <QWidget>

namespace halvane {

/// Shows one of some pages as it is printed, as wide as it is itself, at its top.
class PaperView : public QWidget {
    Q_OBJECT
public:
    explicit PaperView(QWidget* parent = nullptr);

    /// Takes other pages and shows the first.
    void show_pages(PaintedPages pages);
    /// In     number  of the page, from 0; beyond the last it is the last
    void show_page(int number);

    int pages() const { return pages_.count; }
    int page() const { return number_; }

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSize picture_size() const; ///< [pixels of the screen]
    QPixmap painted() const;

    PaintedPages pages_;
    int number_ = 0;
    QPixmap picture_; ///< of the page at the size and scale at which it was painted last; null: to be painted
};

/// Makes a window so large that the page in its scroll area is seen whole, as far as the screen has room.
void show_whole_page(QWidget& window, const QWidget& area, const PaperView& view);

} // namespace halvane
