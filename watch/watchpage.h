// SPDX-License-Identifier: MIT
#pragma once

#include "base/language.h"
#include "timetable/profile.h"

namespace halvane {

/// What the pages of a watch look like.
struct WatchPage {
    Language language = Language::english;
    PaperSize paper = PaperSize::a4;
};

// The width of a page as a picture                                                        [pixels]
inline constexpr int usual_picture_width = 1240; ///< 150 dots an inch on A4
inline constexpr int least_picture_width = 200;
inline constexpr int greatest_picture_width = 10000;

} // namespace halvane
