// SPDX-License-Identifier: MIT
#include "system/systemerrors.h"

namespace halvane {

bool is_quota_error(int /*error*/) {
    return false; // the system's own is told as a full disk
}

} // namespace halvane
