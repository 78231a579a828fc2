#include "app/stored/loc.h"

#include "app/stored/storedfile.h"

namespace halvane {
namespace {

// Far beyond any place and any clock; what follows such a number would lose its minutes, or itself.
constexpr double largest_angle_part = 1e6;
constexpr double largest_zone = 1e6;

Location parse(RecordReader& reader) {
    Location record;
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
    return record;
}

std::string format(const Location& record) {
    RecordWriter writer;
    writer.text(record.name)
        .number(record.longitude_degrees)
        .number(record.longitude_minutes)
        .number(record.longitude_seconds)
        .number(record.latitude_degrees)
        .number(record.latitude_minutes)
        .number(record.latitude_seconds)
        .number(record.elevation)
        .number(record.zone)
        .boolean(record.east)
        .boolean(record.north)
        .boolean(record.west)
        .boolean(record.south)
        .number(record.city_offset)
        .number(record.pressure)
        .number(record.temperature);
    return writer.line();
}

StoredFile<Location> file("loc.vsk", parse, format);

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

void write_loc(const Location& location) {
    file.write(location);
}

unsigned loc_version() {
    return file.version();
}

} // namespace halvane
