// SPDX-License-Identifier: MIT
#include "stored/coor.h"

#include "stored/storedfile.h"
#include "stored/supposed.h"

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

template <>
Supposed<EphemerisSettings>::Supposed(const EphemerisSettings& record) {
    file.suppose(record);
}

template <>
Supposed<EphemerisSettings>::~Supposed() {
    file.stop_supposing();
}

} // namespace halvane
