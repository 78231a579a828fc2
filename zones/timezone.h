// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace halvane {

/// The clock of an IANA time zone, as the system's zone files tell it: their changes one by one, and after
/// the last one the rule of the file's last line. Before the first change stands the local mean time. A copy
/// costs nothing, and any number of threads may ask at once. Source  RFC 9636, The Time Zone Information
/// Format.
class TimeZone {
public:
    /// The zone of that IANA name ("Asia/Riyadh").
    /// Error  raises RunTimeFailure naming it: no such zone, a damaged zone file, or no zone files on this
    /// system.
    explicit TimeZone(const std::string& name);

    const std::string& name() const;

    /// Offset from Universal Time in force at an instant [s, east positive].
    /// In     jd_ut  Julian day of Universal Time, to the millisecond [d]
    /// Error  raises RunTimeFailure for a Julian day that is not finite.
    int offset_at(double jd_ut) const;

    /// The same at so many seconds after 1970 January 1, 0 h UT.
    int offset_at_second(std::int64_t utc_second) const;

    /// The same when the zone's clock shows so many seconds after its own 1970 January 1, 0 h. A clock that a
    /// change leaves out takes the offset before the change, one that is shown twice the first of the two.
    int offset_of_local(std::int64_t local_second) const;

    /// Offset in force at the noon that the zone's clock shows on a civil date [s, east positive]. A noon
    /// that a change leaves out takes the offset before the change, one that is shown twice the first of the
    /// two. In     jd  0 h of the civil date, without any zone [d] Error  raises RunTimeFailure for a Julian
    /// day that is not finite.
    int offset_on(double jd) const;

    bool operator==(const TimeZone& other) const { return name() == other.name(); }

private:
    struct Rules;
    static std::shared_ptr<const Rules> read(const std::string& name);

    std::shared_ptr<const Rules> rules_;
};

/// Whether the system has a zone of that name; upper and lower case differ. Raises nothing.
bool is_zone_name(const std::string& name);

/// The names of all zones of the system, sorted, older names among them; none without zone files.
std::vector<std::string> zone_names();

} // namespace halvane
