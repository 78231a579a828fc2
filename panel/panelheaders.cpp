// SPDX-License-Identifier: MIT
#include "panel/panelheaders.h"
