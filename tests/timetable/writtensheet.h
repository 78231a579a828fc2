// SPDX-License-Identifier: MIT
// A sheet that is written by hand, for tests of pages.
#pragma once

#include "timetable/timetablesheet.h"

#include <string>
#include <vector>

namespace halvane {

struct SheetSize {
    std::vector<TimetableColumn> columns = usual_columns();
    bool long_texts = false;
};

/// January 2026 with made-up clocks: Fridays, a Hijri month that begins on the 20th, marks on the 5th.
TimetableSheet written_sheet(const SheetSize& size = {});

/// The columns of a full page.
inline std::vector<TimetableColumn> many_columns() {
    using enum TimetableColumn;
    return {date,   weekday,       hijri,         imsak,       fajer,   fajer_iqamah, shuroq,
            dhohur, dhohur_iqamah, aser_standard, aser_hanafi, maghreb, isha,         isha_iqamah};
}

/// A page's settings.
inline PageSettings page_in(PageLanguage language, PaperSize paper = PaperSize::a4) {
    PageSettings page;
    page.language = language;
    page.paper = paper;
    return page;
}

} // namespace halvane
