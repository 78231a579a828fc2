// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace halvane {

/// Lets the panels follow the desktop's choice of light or dark colours. Called before Qt's application is
/// made.
void follow_desktop_colours();

/// The style under Halvane's own, by its key; empty for the desktop's.
QString desktop_style();

/// Gives what the desktop colours by itself the colours of the panels, where it does not fit them. Called
/// again after each change of the palette.
void fit_desktop_colours();

} // namespace halvane
