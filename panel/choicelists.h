// SPDX-License-Identifier: MIT
#pragma once

class QComboBox;
class QLabel;
class QString;

namespace halvane {

/// A list that can be typed in: what is typed is looked for anywhere in the entries.
void filter_while_typing(QComboBox& list);

/// Entries of any length neither widen the panel nor are cut in the open list.
void limit_width(QComboBox& list);

void make_bold(QLabel& label);

/// Shows a label's words, or hides a label without any.
void show_words(QLabel& label, const QString& words);

} // namespace halvane
