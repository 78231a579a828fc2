// SPDX-License-Identifier: MIT
#include "stored/date.h"

#include "stored/storedfile.h"
#include "stored/supposed.h"

namespace halvane {
namespace {

StoredFile file("date.vsk", date_fields);

} // namespace

const CalculationDate& read_date() {
    return file.read();
}

void write_date(const CalculationDate& date) {
    file.write(date);
}

CalculationDate as_stored(const CalculationDate& date) {
    return file.reread(date);
}

template <>
Supposed<CalculationDate>::Supposed(const CalculationDate& record) {
    file.suppose(record);
}

template <>
Supposed<CalculationDate>::~Supposed() {
    file.stop_supposing();
}

} // namespace halvane
