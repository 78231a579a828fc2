// SPDX-License-Identifier: MIT
#pragma once

class QComboBox;
class QLabel;
class QScrollArea;
class QString;
class QVariant;

namespace halvane {

/// A list that can be typed in: what is typed is looked for anywhere in the entries.
void filter_while_typing(QComboBox& list);

/// Entries of any length neither widen the panel nor are cut in the open list.
void limit_width(QComboBox& list);

/// Chooses the entry of a list by its data; the first where none has them.
void choose_data(QComboBox& list, const QVariant& data);

void make_bold(QLabel& label);

/// Shows a label's words, or hides a label without any.
void show_words(QLabel& label, const QString& words);

/// Makes a scroll area as wide as the choices in it, which scroll up and down only. The wheel scrolls it over
/// a list too, unless the list has the focus.
/// In     lines  of text that it shows at least
void shape_choices(QScrollArea& area, int lines);

/// Scrolls a control of the area into sight whenever it gets the focus, a list whole.
void keep_focus_in_sight(QScrollArea& area);

} // namespace halvane
