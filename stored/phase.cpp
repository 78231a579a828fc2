// SPDX-License-Identifier: MIT
#include "stored/phase.h"

#include "stored/storedfile.h"
#include "stored/supposed.h"

namespace halvane {
namespace {

StoredFile file("phase.vsk", phase_fields);

} // namespace

const PhaseSettings& read_phase() {
    return file.read();
}

void write_phase(const PhaseSettings& settings) {
    file.write(settings);
}

template <>
Supposed<PhaseSettings>::Supposed(const PhaseSettings& record) {
    file.suppose(record);
}

template <>
Supposed<PhaseSettings>::~Supposed() {
    file.stop_supposing();
}

} // namespace halvane
