#include "app/stored/tele.h"

#include "app/stored/storedfile.h"

namespace halvane {
namespace {

TelescopeSettings parse(RecordReader& reader) {
    TelescopeSettings record;
    record.year = reader.number();
    record.month = reader.number();
    record.day = reader.number();
    record.hour = reader.number();
    record.minute = reader.number();
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
    writer.number(record.year)
        .number(record.month)
        .number(record.day)
        .number(record.hour)
        .number(record.minute)
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
