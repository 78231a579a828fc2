// SPDX-License-Identifier: MIT
#include "tests/support/testheaders.h"
