#pragma once

#include <QColor>
#include <QIcon>

class QWidget;

namespace halvane {

/// The unit of space of every panel: half the line height of `widget`'s font [device independent pixels].
int space_unit(const QWidget& widget);

/// Margins of two units and gaps of one for the form's layout and those within it.
void set_spacing(QWidget& form);

/// The font of `control` at `factor` times the size of its window's font.
void scale_font(QWidget& control, double factor);

/// The one accent: the next prayer, the chosen option, the progress bar. Dark green on light, light on dark.
QColor accent_colour(const QWidget& widget);

/// The project's icon `name`, drawn in the text colour of the palette that is in force when it is painted; an
/// empty icon where there is none of that name.
QIcon panel_icon(const QString& name);

/// Makes the accent the colour of selections, bars and marks in the whole program.
void use_accent();

/// Marks an entry box, list or button so that it is wide enough for `longest`.
void fit_width(QWidget& control, const QString& longest);

} // namespace halvane
