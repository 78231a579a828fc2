#include "stored/phase.h"

#include "stored/storedfile.h"

namespace halvane {
namespace {

PhaseSettings parse(RecordReader& reader) {
    PhaseSettings record;
    record.year = reader.text();
    record.geocentric = reader.boolean();
    record.local_ut1 = reader.boolean();
    return record;
}

std::string format(const PhaseSettings& record) {
    RecordWriter writer;
    writer.text(record.year).boolean(record.geocentric).boolean(record.local_ut1);
    return writer.line();
}

StoredFile<PhaseSettings> file("phase.vsk", parse, format);

} // namespace

const PhaseSettings& read_phase() {
    return file.read();
}

void write_phase(const PhaseSettings& settings) {
    file.write(settings);
}

} // namespace halvane
