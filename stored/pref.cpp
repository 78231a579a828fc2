// SPDX-License-Identifier: MIT
#include "stored/pref.h"

#include "stored/storedfile.h"
#include "stored/supposed.h"

namespace halvane {
namespace {

StoredFile file("pref.vsk", pref_fields);

} // namespace

int precision_of(const Preferences& preferences) {
    if (preferences.clock_precision == "0")
        return 0;
    return preferences.clock_precision == "1" ? 1 : 2;
}

bool has_summer_time(const Preferences& preferences) {
    return preferences.summer_time == "1";
}

const Preferences& read_pref() {
    return file.read();
}

Preferences readable_pref() {
    return file.readable(pref_fields.blank());
}

void write_pref(const Preferences& preferences) {
    file.write(preferences);
}

Preferences as_stored(const Preferences& preferences) {
    return file.reread(preferences);
}

template <>
Supposed<Preferences>::Supposed(const Preferences& record) {
    file.suppose(record);
}

template <>
Supposed<Preferences>::~Supposed() {
    file.stop_supposing();
}

} // namespace halvane
