#include "stored/visib.h"

#include "stored/storedfile.h"

namespace halvane {
namespace {

CrescentSettings parse(RecordReader& reader) {
    CrescentSettings record;
    record.day = reader.text();
    record.month = reader.text();
    record.year = reader.text();
    record.new_crescent = reader.boolean();
    record.geocentric = reader.boolean();
    record.day_of_conjunction = reader.boolean();
    record.one_day = reader.boolean();
    record.two_days = reader.boolean();
    record.at_sun = reader.boolean();
    record.at_moon = reader.boolean();
    record.at_best_time = reader.boolean();
    record.at_user_time = reader.boolean();
    record.user_hour = reader.text();
    record.user_minute = reader.text();
    record.gregorian = reader.boolean();
    record.hijri = reader.boolean();
    record.hijri_month = reader.integer();
    record.hijri_year = reader.text();
    return record;
}

std::string format(const CrescentSettings& record) {
    RecordWriter writer;
    writer.text(record.day)
        .text(record.month)
        .text(record.year)
        .boolean(record.new_crescent)
        .boolean(record.geocentric)
        .boolean(record.day_of_conjunction)
        .boolean(record.one_day)
        .boolean(record.two_days)
        .boolean(record.at_sun)
        .boolean(record.at_moon)
        .boolean(record.at_best_time)
        .boolean(record.at_user_time)
        .text(record.user_hour)
        .text(record.user_minute)
        .boolean(record.gregorian)
        .boolean(record.hijri)
        .number(record.hijri_month)
        .text(record.hijri_year);
    return writer.line();
}

StoredFile<CrescentSettings> file("visib.vsk", parse, format);

} // namespace

const CrescentSettings& read_visib() {
    return file.read();
}

void write_visib(const CrescentSettings& settings) {
    file.write(settings);
}

} // namespace halvane
