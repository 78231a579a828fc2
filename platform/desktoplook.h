// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace halvane {

/// Lets the panels follow the desktop's choice of light or dark colours. Called before Qt's application is
/// made.
void follow_desktop_colours();

/// The style under Halvane's own, by its key; empty for the desktop's.
QString desktop_style();

} // namespace halvane
