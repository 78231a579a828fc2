// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/timetablesheet.h"

#include <QPixmap>
#include <QWidget>
#include <vector>

namespace halvane {

/// Shows one of the pages of a timetable as it is printed, as wide as it is itself, at its top.
class PageView : public QWidget {
    Q_OBJECT
public:
    explicit PageView(QWidget* parent = nullptr);

    /// Takes other pages and shows the first.
    void show_pages(std::vector<TimetableSheet> sheets, const PageSettings& page);
    /// In     number  of the page, from 0; beyond the last it is the last
    void show_page(int number);

    int pages() const { return static_cast<int>(sheets_.size()); }
    int page() const { return number_; }
    /// The pages, for a printer.
    const std::vector<TimetableSheet>& sheets() const { return sheets_; }

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSize picture_size() const; ///< [pixels of the screen]
    QPixmap painted() const;

    std::vector<TimetableSheet> sheets_;
    PageSettings page_;
    int number_ = 0;
    QPixmap picture_; ///< of the page at the size and scale at which it was painted last; null: to be painted
};

} // namespace halvane
