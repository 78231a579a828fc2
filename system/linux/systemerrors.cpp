// SPDX-License-Identifier: MIT
#include "system/systemerrors.h"

#include <cerrno>

namespace halvane {

bool is_quota_error(int error) {
    return error == EDQUOT;
}

} // namespace halvane
