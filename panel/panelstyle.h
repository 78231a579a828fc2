// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QIcon>

class QWidget;

namespace halvane {

/// The unit of space of every panel: half the line height of `widget`'s font [device independent pixels].
int space_unit(const QWidget& widget);

/// Margins of two units for the form's layout, of one for its frames', and gaps of one unit everywhere. Other
/// windows and the insides of scroll areas and lists stay as they are.
void set_spacing(QWidget& form);

/// The family of the window's font for `control`, at `factor` times its size.
void scale_font(QWidget& control, double factor);

/// The one accent: the next prayer, the chosen option, the progress bar. Dark green on light, light on dark.
QColor accent_colour(const QWidget& widget);

/// The project's icon `name`, drawn in the text colour of the palette that is in force when it is painted; an
/// empty icon where there is none of that name.
QIcon panel_icon(const QString& name);

/// Gives the whole program its look: the accent for selections, bars and marks, and access keys that are
/// underlined without breaking the joined letters of Arabic. Called once, before the first panel.
void use_halvane_look();

/// The palette's text colour, softened; still 4.5 to 1 against the window.
QColor muted_colour(const QWidget& widget);

/// Marks an entry box, list or button so that it is wide enough for `longest`.
void fit_width(QWidget& control, const QString& longest);

} // namespace halvane
