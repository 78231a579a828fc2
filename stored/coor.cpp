// SPDX-License-Identifier: MIT
#include "stored/coor.h"

#include "stored/storedfile.h"

namespace halvane {
namespace {

StoredFile file("coor.vsk", coor_fields);

} // namespace

const EphemerisSettings& read_coor() {
    return file.read();
}

void write_coor(const EphemerisSettings& settings) {
    file.write(settings);
}

} // namespace halvane
