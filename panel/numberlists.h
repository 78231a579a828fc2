// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class QComboBox;
class QLineEdit;

namespace halvane {

/// Fills a list with the numbers 1 to `last` and makes it wide enough for them.
void fill_with_numbers(QComboBox& list, int last);

/// Fill a list with the days of a civil month, the months of a year, the hours of a day, the minutes of an
/// hour or the seconds of a minute.
void fill_with_days(QComboBox& list);
void fill_with_months(QComboBox& list);
void fill_with_hours(QComboBox& list);
void fill_with_minutes(QComboBox& list);

/// Chooses the entry of exactly that text; a list without it stays as it is.
void choose_entry(QComboBox& list, const std::string& text);

/// Chooses the entry of exactly that text. A stored text that is none of the list's own becomes an entry, so
/// that it is kept.
void show_entry(QComboBox& list, const std::string& text);

/// The chosen entry, as UTF-8.
std::string text_of(const QComboBox& list);

/// The content of an entry box, as UTF-8; of a number box in the digits that are stored.
std::string text_of(const QLineEdit& box);

/// The number at the start of a list's or a box's text; 0 for anything else.
double number_in(const QComboBox& list);
double number_in(const QLineEdit& box);

/// Makes a number box of `box` and gives it the width of `longest`. In Arabic too its text reads from left to
/// right, so that a minus sign stays before its number.
void shape_number_box(QLineEdit& box, const char* longest);

/// Sets the focus to a box and selects its whole text.
void ask_again(QLineEdit& box);

} // namespace halvane
