// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/settingscheck.h"
#include "panel/formlanguage.h"

class QLineEdit;

namespace halvane {

/// Tells that the number of `box` is not stored and why, and sets the focus to the box.
/// In     limit  largest magnitude, for RefusalReason::beyond_limit
void tell_refused(QWidget& form, QLineEdit& box, RefusalReason reason, double limit, Language language);

} // namespace halvane
