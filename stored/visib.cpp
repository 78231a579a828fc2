// SPDX-License-Identifier: MIT
#include "stored/visib.h"

#include "stored/storedfile.h"
#include "stored/supposed.h"

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

template <>
Supposed<CrescentSettings>::Supposed(const CrescentSettings& record) {
    file.suppose(record);
}

template <>
Supposed<CrescentSettings>::~Supposed() {
    file.stop_supposing();
}

} // namespace halvane
