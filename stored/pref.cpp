#include "stored/pref.h"

#include "stored/storedfile.h"
#include "stored/supposed.h"

namespace halvane {
namespace {

void fill(RecordReader& reader, Preferences& record) {
    constexpr double largest_calendar_number = 9999;
    record.fajer_angle = reader.number();
    record.isha_angle = reader.number();
    record.summer_from_month = reader.number_within(largest_calendar_number);
    record.summer_from_day = reader.number_within(largest_calendar_number);
    record.summer_to_month = reader.number_within(largest_calendar_number);
    record.summer_to_day = reader.number_within(largest_calendar_number);
    record.subtract_fajer = reader.number();
    record.add_dhohur = reader.number();
    record.add_maghreb = reader.number();
    record.summer_time = reader.text();
    record.elevation_fajer = reader.text();
    record.asr_rule = reader.text();
    record.clock_precision = reader.text();
    record.english = reader.boolean();
    record.elevation_setting = reader.text();
    record.authority = reader.text();
    record.add_asr = reader.number();
    record.high_latitude = reader.number();
}

Preferences parse(RecordReader& reader) {
    Preferences record;
    fill(reader, record);
    return record;
}

Preferences blank() {
    Preferences record;
    record.fajer_angle = record.isha_angle = 0;
    record.summer_from_month = record.summer_from_day = 0;
    record.summer_to_month = record.summer_to_day = 0;
    for (std::string* text : {&record.summer_time, &record.elevation_fajer, &record.asr_rule,
                              &record.clock_precision, &record.elevation_setting, &record.authority})
        text->clear();
    record.english = false;
    return record;
}

std::string format(const Preferences& record) {
    RecordWriter writer;
    writer.number(record.fajer_angle)
        .number(record.isha_angle)
        .number(record.summer_from_month)
        .number(record.summer_from_day)
        .number(record.summer_to_month)
        .number(record.summer_to_day)
        .number(record.subtract_fajer)
        .number(record.add_dhohur)
        .number(record.add_maghreb)
        .text(record.summer_time)
        .text(record.elevation_fajer)
        .text(record.asr_rule)
        .text(record.clock_precision)
        .boolean(record.english)
        .text(record.elevation_setting)
        .text(record.authority)
        .number(record.add_asr)
        .number(record.high_latitude);
    return writer.line();
}

constexpr const char* file_name = "pref.vsk";

StoredFile<Preferences> file(file_name, parse, format);

} // namespace

int precision_of(const Preferences& preferences) {
    if (preferences.clock_precision == "0")
        return 0;
    return preferences.clock_precision == "1" ? 1 : 2;
}

bool has_summer_time(const Preferences& preferences) {
    return preferences.summer_time == "1";
}

const Preferences& read_pref() {
    return file.read();
}

Preferences readable_pref() {
    return read_while_sound(file_name, blank(), fill);
}

void write_pref(const Preferences& preferences) {
    file.write(preferences);
}

SupposedPreferences::SupposedPreferences(const Preferences& preferences) {
    file.suppose(preferences);
}

SupposedPreferences::~SupposedPreferences() {
    file.stop_supposing();
}

Preferences as_stored(const Preferences& preferences) {
    return file.reread(preferences);
}

} // namespace halvane
