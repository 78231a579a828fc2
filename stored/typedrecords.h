// SPDX-License-Identifier: MIT
#pragma once

#include "stored/supposed.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// The stored files whose settings a command line can name; `loc.txt` is a list, and `alert.vsk` no report's.
enum class RecordFile { preferences, location, date, phase, crescent, ephemeris, telescope };

/// Its name without the ending: "pref".
const char* name_of(RecordFile file);

/// A setting of a stored file with its delivered or stored value.
struct StoredSetting {
    std::string name; ///< "pref.fajer-angle"
    FieldNote note;
};

/// The settings of a file by its record `text`, a line of the file.
/// In     path  for failures
/// Error  raises RunTimeFailure for a damaged record.
std::vector<StoredSetting> settings_of(RecordFile file, std::string_view text, const std::string& path);

/// How a setting was taken.
struct TypedAnswer {
    FieldAnswer answer = FieldAnswer::no_field;
    std::string range; ///< of a value that was not taken
};

/// Records as a command line wants them, from the stored ones on. Each is read when something of it is asked.
class TypedRecords {
public:
    /// In     files  that a name without its file is looked for in, in this order
    explicit TypedRecords(std::vector<RecordFile> files);
    ~TypedRecords();
    TypedRecords(const TypedRecords&) = delete;
    TypedRecords& operator=(const TypedRecords&) = delete;

    /// Every name that `take` knows: "pref.fajer-angle".
    std::vector<std::string> names() const;

    /// Takes a typed value.
    /// In     name  "pref.fajer-angle" or "fajer-angle"
    /// Error  raises RunTimeFailure for a missing or damaged file.
    TypedAnswer take(std::string_view name, std::string_view text);

    // The records so far; what is written there is supposed too.
    Preferences& preferences();
    Location& location();
    CalculationDate& date();
    PhaseSettings& phase();
    CrescentSettings& crescent();
    EphemerisSettings& ephemeris();
    TelescopeSettings& telescope();

    /// From now on, while this lives, the readers answer with every record that was asked for here.
    void suppose();

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
    std::vector<RecordFile> files_;
};

} // namespace halvane
