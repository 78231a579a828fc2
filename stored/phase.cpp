// SPDX-License-Identifier: MIT
#include "stored/phase.h"

#include "stored/storedfile.h"

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

} // namespace halvane
