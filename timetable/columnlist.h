// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"
#include "timetable/profile.h"

#include <vector>

class QListWidget;

namespace halvane {

/// Shows every column in a list of boxes to check: the chosen ones first, in their order.
void show_columns(QListWidget& list, const std::vector<TimetableColumn>& chosen, PrayerNames names,
                  Language language);

/// The checked columns in the order of the list.
std::vector<TimetableColumn> checked_columns(const QListWidget& list);

/// Gives the entries the other names and leaves their order.
void rename_columns(QListWidget& list, PrayerNames names, Language language);

/// Moves the current entry.
/// In     by  -1 up, 1 down; nothing happens at the ends
void move_current_column(QListWidget& list, int by);

} // namespace halvane
