// SPDX-License-Identifier: MIT
#include "stored/alert.h"

#include "stored/storedfile.h"

namespace halvane {
namespace {

StoredFile file("alert.vsk", alert_fields);

} // namespace

const AlertSettings& read_alert() {
    return file.read();
}

void write_alert(const AlertSettings& settings) {
    file.write(settings);
}

} // namespace halvane
