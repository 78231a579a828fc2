#include "stored/tele.h"

#include "stored/date.h"
#include "stored/storedfile.h"

namespace halvane {
namespace {

TelescopeSettings parse(RecordReader& reader) {
    TelescopeSettings record;
    record.year = reader.number_within(largest_stored_year);
    record.month = reader.number_within(largest_stored_day);
    record.day = reader.number_within(largest_stored_day);
    record.hour = reader.number_within(largest_stored_day);
    record.minute = reader.number_within(largest_stored_day);
    record.airless = reader.boolean();
    record.refracted = reader.boolean();
    record.of_date = reader.boolean();
    record.j2000 = reader.boolean();
    record.flip_vertical = reader.integer();
    record.flip_horizontal = reader.integer();
    return record;
}

std::string format(const TelescopeSettings& record) {
    RecordWriter writer;
    writer.number_within(record.year, largest_stored_year)
        .number_within(record.month, largest_stored_day)
        .number_within(record.day, largest_stored_day)
        .number_within(record.hour, largest_stored_day)
        .number_within(record.minute, largest_stored_day)
        .boolean(record.airless)
        .boolean(record.refracted)
        .boolean(record.of_date)
        .boolean(record.j2000)
        .number(record.flip_vertical)
        .number(record.flip_horizontal);
    return writer.line();
}

StoredFile<TelescopeSettings> file("tele.vsk", parse, format);

} // namespace

const TelescopeSettings& read_tele() {
    return file.read();
}

void write_tele(const TelescopeSettings& settings) {
    file.write(settings);
}

} // namespace halvane
