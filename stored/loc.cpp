// SPDX-License-Identifier: MIT
#include "stored/loc.h"

#include "stored/storedfile.h"
#include "stored/supposed.h"

namespace halvane {
namespace {

StoredFile file("loc.vsk", loc_fields);

double signed_angle(double degrees, double minutes, double seconds, bool positive) {
    const double angle = degrees + minutes / 60 + seconds / 3600;
    return positive ? angle : -angle;
}

} // namespace

double longitude_of(const Location& location) {
    return signed_angle(location.longitude_degrees, location.longitude_minutes, location.longitude_seconds,
                        location.east);
}

double latitude_of(const Location& location) {
    return signed_angle(location.latitude_degrees, location.latitude_minutes, location.latitude_seconds,
                        location.north);
}

double signed_longitude_degrees(const Location& location) {
    return location.east ? location.longitude_degrees : -location.longitude_degrees;
}

double signed_latitude_degrees(const Location& location) {
    return location.north ? location.latitude_degrees : -location.latitude_degrees;
}

const Location& read_loc() {
    return file.read();
}

Location readable_loc() {
    Location blank = loc_fields.blank();
    blank.east = blank.north = true;
    return file.readable(blank);
}

void write_loc(const Location& location) {
    file.write(location);
}

Location as_stored(const Location& location) {
    return file.reread(location);
}

unsigned loc_version() {
    return file.version();
}

template <>
Supposed<Location>::Supposed(const Location& record) {
    file.suppose(record);
}

template <>
Supposed<Location>::~Supposed() {
    file.stop_supposing();
}

} // namespace halvane
