// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Whether the desktop's print dialog does not open where there is no printer; others then offer a file.
bool print_dialog_needs_printer();

} // namespace halvane
