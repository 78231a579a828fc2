// SPDX-License-Identifier: MIT
#include "routines/tdtinput.h"

#include <utility>

namespace halvane {

int tdtinput = 0;

namespace {

int runs = 0;
int holds = 0;

void leave_to_panels() {
    if (runs == 0)
        tdtinput = holds > 0 ? 1 : 0;
}

} // namespace

TdtSpan::TdtSpan(int value) : outer_(std::exchange(tdtinput, value)) {
    ++runs;
}

TdtSpan::~TdtSpan() {
    tdtinput = outer_;
    --runs;
    leave_to_panels();
}

TdtHold::TdtHold() {
    ++holds;
    leave_to_panels();
}

TdtHold::~TdtHold() {
    --holds;
    leave_to_panels();
}

} // namespace halvane
