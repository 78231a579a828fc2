// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/paperview.h"
#include "timetable/timetablesheet.h"

#include <vector>

namespace halvane {

/// Shows one of the pages of a timetable.
class PageView : public PaperView {
    Q_OBJECT
public:
    using PaperView::PaperView;

    /// Takes other pages and shows the first.
    void show_sheets(std::vector<TimetableSheet> sheets, const PageSettings& page);

    const std::vector<TimetableSheet>& sheets() const { return sheets_; }

private:
    std::vector<TimetableSheet> sheets_;
    PageSettings page_;
};

} // namespace halvane
