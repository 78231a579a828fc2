#include "stored/coor.h"

#include "stored/date.h"
#include "stored/storedfile.h"

namespace halvane {
namespace {

EphemerisSettings parse(RecordReader& reader) {
    EphemerisSettings record;
    record.object = reader.integer();
    record.local_ut1 = reader.boolean();
    record.geocentric = reader.boolean();
    record.start_year = reader.number_within(largest_stored_year);
    record.start_month = reader.number_within(largest_stored_day);
    record.start_day = reader.number_within(largest_stored_day);
    record.start_hour = reader.number_within(largest_stored_day);
    record.start_minute = reader.number_within(largest_stored_day);
    record.start_second = reader.number_within(largest_stored_day);
    record.end_year = reader.number_within(largest_stored_year);
    record.end_month = reader.number_within(largest_stored_day);
    record.end_day = reader.number_within(largest_stored_day);
    record.end_hour = reader.number_within(largest_stored_day);
    record.end_minute = reader.number_within(largest_stored_day);
    record.end_second = reader.number_within(largest_stored_day);
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
        .number_within(record.start_year, largest_stored_year)
        .number_within(record.start_month, largest_stored_day)
        .number_within(record.start_day, largest_stored_day)
        .number_within(record.start_hour, largest_stored_day)
        .number_within(record.start_minute, largest_stored_day)
        .number_within(record.start_second, largest_stored_day)
        .number_within(record.end_year, largest_stored_year)
        .number_within(record.end_month, largest_stored_day)
        .number_within(record.end_day, largest_stored_day)
        .number_within(record.end_hour, largest_stored_day)
        .number_within(record.end_minute, largest_stored_day)
        .number_within(record.end_second, largest_stored_day)
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
