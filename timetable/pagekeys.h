// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/inivalues.h"
#include "timetable/profile.h"

#include <array>

namespace halvane {

// The words for what a page looks like, in a profile's file and on the command line.

inline constexpr std::array<Word<ClockFace>, 2> clock_words{
    {{"24", ClockFace::hours_24}, {"12", ClockFace::hours_12}}};
inline constexpr std::array<Word<PageDigits>, 2> digits_words{
    {{"western", PageDigits::western}, {"arabic", PageDigits::arabic}}};
inline constexpr std::array<Word<PageLanguage>, 3> language_words{
    {{"en", PageLanguage::english}, {"ar", PageLanguage::arabic}, {"both", PageLanguage::both}}};
inline constexpr std::array<Word<PaperSize>, 2> paper_words{
    {{"A4", PaperSize::a4}, {"Letter", PaperSize::letter}}};

} // namespace halvane
