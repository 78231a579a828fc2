#include "stored/alert.h"

#include "stored/storedfile.h"

namespace halvane {
namespace {

AlertSettings parse(RecordReader& reader) {
    AlertSettings record;
    record.beep = reader.integer();
    record.lead = reader.number();
    record.window_and_athan = reader.integer();
    record.window_only = reader.integer();
    record.dhohur_mecca = reader.boolean();
    record.asr_mecca = reader.boolean();
    record.maghreb_mecca = reader.boolean();
    record.isha_mecca = reader.boolean();
    return record;
}

std::string format(const AlertSettings& record) {
    RecordWriter writer;
    writer.number(record.beep)
        .number(record.lead)
        .number(record.window_and_athan)
        .number(record.window_only)
        .boolean(record.dhohur_mecca)
        .boolean(record.asr_mecca)
        .boolean(record.maghreb_mecca)
        .boolean(record.isha_mecca);
    return writer.line();
}

StoredFile<AlertSettings> file("alert.vsk", parse, format);

} // namespace

const AlertSettings& read_alert() {
    return file.read();
}

void write_alert(const AlertSettings& settings) {
    file.write(settings);
}

} // namespace halvane
