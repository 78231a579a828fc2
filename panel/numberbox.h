// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"

class QLineEdit;

namespace halvane {

/// Makes an entry box a number box: when it loses the focus, and at Enter, its text changes to the digits
/// that are stored; a text that is no number is marked by a sign, a tool tip and its spoken description.
void keep_number(QLineEdit& box);

/// Whether keep_number has been called for `box`.
bool keeps_number(const QLineEdit& box);

/// What a person calls the box: its spoken name, or its label's text.
QString name_of(QLineEdit& box);

/// Settles every number box of `form`, as the loss of the focus does: to be called where a change of a box's
/// text would undo what a button does.
void settle_numbers(QWidget& form);

/// To be called before the numbers of a panel are stored or used. Settles every number box that takes input;
/// where one holds no number the user is asked whether the value that is taken instead is meant. Yes shows
/// that value in the box; No sets the focus to the box.
/// Returns whether to go on.
bool numbers_are_meant(QWidget& form, Language language);

} // namespace halvane
