// SPDX-License-Identifier: MIT
#include "platform/printdialog.h"

namespace halvane {

bool print_dialog_needs_printer() {
    return false;
}

} // namespace halvane
