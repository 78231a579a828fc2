#include "app/stored/date.h"

#include "app/stored/storedfile.h"
#include "app/stored/supposed.h"

namespace halvane {
namespace {

// Beyond these the day count would lose its days; a record that holds them is damaged.
constexpr double largest_year = 999999;
constexpr double largest_day = 9999;

DateNumbers parse_date(RecordReader& reader) {
    DateNumbers date;
    date.year = reader.number_within(largest_year);
    date.month = reader.number_within(largest_day);
    date.day = reader.number_within(largest_day);
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
    writer.number_within(date.year, largest_year)
        .number_within(date.month, largest_day)
        .number_within(date.day, largest_day);
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
