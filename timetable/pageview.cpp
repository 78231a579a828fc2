// SPDX-License-Identifier: MIT
#include "timetable/pageview.h"

#include "timetable/timetablepdf.h"

#include <utility>

namespace halvane {

void PageView::show_sheets(std::vector<TimetableSheet> sheets, const PageSettings& page) {
    sheets_ = std::move(sheets);
    page_ = page;
    show_pages(painted_pages(sheets_, page_));
}

} // namespace halvane
