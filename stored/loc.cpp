#include "stored/loc.h"

#include "stored/storedfile.h"
#include "stored/supposed.h"

namespace halvane {
namespace {

// Far beyond any place and any clock; what follows such a number would lose its minutes, or itself.
constexpr double largest_angle_part = 1e6;
constexpr double largest_zone = 1e6;

void fill(RecordReader& reader, Location& record) {
    record.name = reader.text();
    record.longitude_degrees = reader.number_within(largest_angle_part);
    record.longitude_minutes = reader.number_within(largest_angle_part);
    record.longitude_seconds = reader.number_within(largest_angle_part);
    record.latitude_degrees = reader.number_within(largest_angle_part);
    record.latitude_minutes = reader.number_within(largest_angle_part);
    record.latitude_seconds = reader.number_within(largest_angle_part);
    record.elevation = reader.number();
    record.zone = reader.number_within(largest_zone);
    record.east = reader.boolean();
    record.north = reader.boolean();
    record.west = reader.boolean();
    record.south = reader.boolean();
    record.city_offset = reader.number();
    record.pressure = reader.number();
    record.temperature = reader.number();
}

Location parse(RecordReader& reader) {
    Location record;
    fill(reader, record);
    return record;
}

Location blank() {
    Location record;
    record.pressure = record.temperature = 0;
    return record;
}

std::string format(const Location& record) {
    RecordWriter writer;
    writer.text(record.name)
        .number_within(record.longitude_degrees, largest_angle_part)
        .number_within(record.longitude_minutes, largest_angle_part)
        .number_within(record.longitude_seconds, largest_angle_part)
        .number_within(record.latitude_degrees, largest_angle_part)
        .number_within(record.latitude_minutes, largest_angle_part)
        .number_within(record.latitude_seconds, largest_angle_part)
        .number(record.elevation)
        .number_within(record.zone, largest_zone)
        .boolean(record.east)
        .boolean(record.north)
        .boolean(record.west)
        .boolean(record.south)
        .number(record.city_offset)
        .number(record.pressure)
        .number(record.temperature);
    return writer.line();
}

constexpr const char* file_name = "loc.vsk";

StoredFile<Location> file(file_name, parse, format);

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
    return read_while_sound(file_name, blank(), fill);
}

void write_loc(const Location& location) {
    file.write(location);
}

SupposedLocation::SupposedLocation(const Location& location) {
    file.suppose(location);
}

SupposedLocation::~SupposedLocation() {
    file.stop_supposing();
}

Location as_stored(const Location& location) {
    return file.reread(location);
}

unsigned loc_version() {
    return file.version();
}

} // namespace halvane
