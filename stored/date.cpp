#include "stored/date.h"

#include "stored/storedfile.h"
#include "stored/supposed.h"

namespace halvane {
namespace {

DateNumbers parse_date(RecordReader& reader) {
    DateNumbers date;
    date.year = reader.number_within(largest_stored_year);
    date.month = reader.number_within(largest_stored_day);
    date.day = reader.number_within(largest_stored_day);
    return date;
}

CalculationDate parse(RecordReader& reader) {
    CalculationDate record;
    record.one_day = reader.boolean();
    record.start = parse_date(reader);
    record.end = parse_date(reader);
    record.from = parse_date(reader);
    record.to = parse_date(reader);
    record.one = parse_date(reader);
    record.period = reader.boolean();
    record.system_date = reader.boolean();
    return record;
}

void write_date_numbers(RecordWriter& writer, const DateNumbers& date) {
    writer.number_within(date.year, largest_stored_year)
        .number_within(date.month, largest_stored_day)
        .number_within(date.day, largest_stored_day);
}

std::string format(const CalculationDate& record) {
    RecordWriter writer;
    writer.boolean(record.one_day);
    write_date_numbers(writer, record.start);
    write_date_numbers(writer, record.end);
    write_date_numbers(writer, record.from);
    write_date_numbers(writer, record.to);
    write_date_numbers(writer, record.one);
    writer.boolean(record.period).boolean(record.system_date);
    return writer.line();
}

StoredFile<CalculationDate> file("date.vsk", parse, format);

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

} // namespace halvane
