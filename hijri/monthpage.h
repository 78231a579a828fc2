// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/profile.h"

namespace halvane {

/// What the page of a month looks like.
struct MonthPage {
    PageLanguage language = PageLanguage::english;
    PaperSize paper = PaperSize::a4;
    PageDigits digits = PageDigits::western; ///< of the days and of Arabic texts
};

} // namespace halvane
