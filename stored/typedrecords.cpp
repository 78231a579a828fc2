// SPDX-License-Identifier: MIT
#include "stored/typedrecords.h"

#include "base/record.h"

#include <optional>

namespace halvane {
namespace {

/// Does `work` with the list of the fields of a file.
template <class Work>
auto with_fields(RecordFile file, const Work& work) {
    switch (file) {
    case RecordFile::location:
        return work(loc_fields);
    case RecordFile::date:
        return work(date_fields);
    case RecordFile::phase:
        return work(phase_fields);
    case RecordFile::crescent:
        return work(visib_fields);
    case RecordFile::ephemeris:
        return work(coor_fields);
    case RecordFile::telescope:
        return work(tele_fields);
    case RecordFile::preferences:
        break;
    }
    return work(pref_fields);
}

/// A record that is asked for at most.
template <class Record>
struct Part {
    std::optional<Record> record;
    std::optional<Supposed<Record>> supposed;

    Record& from(const Record& (*read)()) {
        if (!record)
            record = read();
        return *record;
    }
    void suppose() {
        if (record)
            supposed.emplace(*record);
    }
};

std::string begin_of(RecordFile file) {
    return name_of(file) + std::string(".");
}

} // namespace

struct TypedRecords::Parts {
    Part<Preferences> preferences;
    Part<Location> location;
    Part<CalculationDate> date;
    Part<PhaseSettings> phase;
    Part<CrescentSettings> crescent;
    Part<EphemerisSettings> ephemeris;
    Part<TelescopeSettings> telescope;
};

const char* name_of(RecordFile file) {
    switch (file) {
    case RecordFile::location:
        return "loc";
    case RecordFile::date:
        return "date";
    case RecordFile::phase:
        return "phase";
    case RecordFile::crescent:
        return "visib";
    case RecordFile::ephemeris:
        return "coor";
    case RecordFile::telescope:
        return "tele";
    case RecordFile::preferences:
        break;
    }
    return "pref";
}

std::vector<StoredSetting> settings_of(RecordFile file, std::string_view text, const std::string& path) {
    return with_fields(file, [&](const auto& fields) {
        auto record = fields.blank();
        RecordReader reader(text, path);
        fields.read(reader, record);
        std::vector<StoredSetting> settings;
        for (const FieldNote& note : fields.notes(record))
            settings.push_back({begin_of(file) + note.name, note});
        return settings;
    });
}

TypedRecords::TypedRecords(std::vector<RecordFile> files)
    : parts_(std::make_unique<Parts>()), files_(std::move(files)) {}

TypedRecords::~TypedRecords() = default;

std::vector<std::string> TypedRecords::names() const {
    std::vector<std::string> names;
    for (const RecordFile file : files_)
        with_fields(file, [&](const auto& fields) {
            for (const FieldNote& note : fields.notes())
                names.push_back(begin_of(file) + note.name);
        });
    return names;
}

TypedAnswer TypedRecords::take(std::string_view name, std::string_view text) {
    for (const RecordFile file : files_) {
        const std::string begin = begin_of(file);
        const std::string_view field = name.starts_with(begin) ? name.substr(begin.size()) : name;
        const auto take = [&](const auto& fields, auto& (TypedRecords::*record)()) {
            for (const FieldNote& note : fields.notes())
                if (note.name == field)
                    return TypedAnswer{fields.take(field, text, (this->*record)()), note.range};
            return TypedAnswer{};
        };
        TypedAnswer answer = [&] {
            switch (file) {
            case RecordFile::location:
                return take(loc_fields, &TypedRecords::location);
            case RecordFile::date:
                return take(date_fields, &TypedRecords::date);
            case RecordFile::phase:
                return take(phase_fields, &TypedRecords::phase);
            case RecordFile::crescent:
                return take(visib_fields, &TypedRecords::crescent);
            case RecordFile::ephemeris:
                return take(coor_fields, &TypedRecords::ephemeris);
            case RecordFile::telescope:
                return take(tele_fields, &TypedRecords::telescope);
            case RecordFile::preferences:
                break;
            }
            return take(pref_fields, &TypedRecords::preferences);
        }();
        if (answer.answer != FieldAnswer::no_field)
            return answer;
    }
    return {};
}

Preferences& TypedRecords::preferences() {
    return parts_->preferences.from(read_pref);
}

Location& TypedRecords::location() {
    return parts_->location.from(read_loc);
}

CalculationDate& TypedRecords::date() {
    return parts_->date.from(read_date);
}

PhaseSettings& TypedRecords::phase() {
    return parts_->phase.from(read_phase);
}

CrescentSettings& TypedRecords::crescent() {
    return parts_->crescent.from(read_visib);
}

EphemerisSettings& TypedRecords::ephemeris() {
    return parts_->ephemeris.from(read_coor);
}

TelescopeSettings& TypedRecords::telescope() {
    return parts_->telescope.from(read_tele);
}

void TypedRecords::suppose() {
    parts_->preferences.suppose();
    parts_->location.suppose();
    parts_->date.suppose();
    parts_->phase.suppose();
    parts_->crescent.suppose();
    parts_->ephemeris.suppose();
    parts_->telescope.suppose();
}

} // namespace halvane
