// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Whether the number that the system gave (errno) tells that the user's share of a disk is used up.
bool is_quota_error(int error);

} // namespace halvane
