// SPDX-License-Identifier: MIT
#include "stored/visib.h"

#include "stored/storedfile.h"

namespace halvane {
namespace {

StoredFile file("visib.vsk", visib_fields);

} // namespace

const CrescentSettings& read_visib() {
    return file.read();
}

void write_visib(const CrescentSettings& settings) {
    file.write(settings);
}

} // namespace halvane
