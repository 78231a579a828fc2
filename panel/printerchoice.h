// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"

class QPrinter;
class QWidget;

namespace halvane {

/// Asks the user for a printer, over a panel, which may be closed meanwhile. Where there is none to ask for,
/// a message tells that. Returns false when the user gives up and when the panel is gone: it must not be
/// touched then.
bool choose_printer(QPrinter& printer, QWidget& panel);

inline constexpr TwinText not_printed{"The printer has not taken the pages.", "لم تستلم الطابعة الصفحات."};

} // namespace halvane
