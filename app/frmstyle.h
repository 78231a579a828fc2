#pragma once

#include <QColor>
#include <QIcon>

class QLayout;
class QWidget;

namespace halvane {

/// The unit of space of every panel: half the line height of `widget`'s font [device independent pixels].
int space_unit(const QWidget& widget);

/// Margins of two units and gaps of one for the form's layout and those within it.
void set_spacing(QWidget& form);

/// The font of `control` at `factor` times the base size, with figures of equal width.
void scale_font(QWidget& control, double factor);

/// The one accent: the next prayer, the chosen option, the progress bar. Dark green on light, light on dark.
QColor accent_colour(const QWidget& widget);

/// The project's icon `name` in the palette's text colour; an empty icon where the file is missing.
QIcon panel_icon(const QWidget& widget, const QString& name);

/// Marks an entry box, list or button so that it is wide enough for `longest`.
void fit_width(QWidget& control, const QString& longest);

} // namespace halvane
