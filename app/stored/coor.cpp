#include "app/stored/coor.h"

#include "app/stored/storedfile.h"

namespace halvane {
namespace {

EphemerisSettings parse(RecordReader& reader) {
    EphemerisSettings record;
    record.object = reader.integer();
    record.local_ut1 = reader.boolean();
    record.geocentric = reader.boolean();
    record.start_year = reader.number();
    record.start_month = reader.number();
    record.start_day = reader.number();
    record.start_hour = reader.number();
    record.start_minute = reader.number();
    record.start_second = reader.number();
    record.end_year = reader.number();
    record.end_month = reader.number();
    record.end_day = reader.number();
    record.end_hour = reader.number();
    record.end_minute = reader.number();
    record.end_second = reader.number();
    record.interval = reader.number();
    record.unit = reader.integer();
    record.summer_time = reader.integer();
    return record;
}

std::string format(const EphemerisSettings& record) {
    RecordWriter writer;
    writer.number(record.object)
        .boolean(record.local_ut1)
        .boolean(record.geocentric)
        .number(record.start_year)
        .number(record.start_month)
        .number(record.start_day)
        .number(record.start_hour)
        .number(record.start_minute)
        .number(record.start_second)
        .number(record.end_year)
        .number(record.end_month)
        .number(record.end_day)
        .number(record.end_hour)
        .number(record.end_minute)
        .number(record.end_second)
        .number(record.interval)
        .number(record.unit)
        .number(record.summer_time);
    return writer.line();
}

StoredFile<EphemerisSettings> file("coor.vsk", parse, format);

} // namespace

const EphemerisSettings& read_coor() {
    return file.read();
}

void write_coor(const EphemerisSettings& settings) {
    file.write(settings);
}

} // namespace halvane
