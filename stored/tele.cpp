// SPDX-License-Identifier: MIT
#include "stored/tele.h"

#include "stored/storedfile.h"

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

} // namespace halvane
