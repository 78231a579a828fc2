// SPDX-License-Identifier: MIT
#include "stored/tele.h"

#include "stored/storedfile.h"
#include "stored/supposed.h"

namespace halvane {
namespace {

StoredFile file("tele.vsk", tele_fields);

} // namespace

const TelescopeSettings& read_tele() {
    return file.read();
}

void write_tele(const TelescopeSettings& settings) {
    file.write(settings);
}

template <>
Supposed<TelescopeSettings>::Supposed(const TelescopeSettings& record) {
    file.suppose(record);
}

template <>
Supposed<TelescopeSettings>::~Supposed() {
    file.stop_supposing();
}

} // namespace halvane
