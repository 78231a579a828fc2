// SPDX-License-Identifier: MIT
#pragma once

#include "stored/date.h"
#include "stored/fields.h"

namespace halvane {

/// `tele.vsk`: the choices of the telescope panel, in the order of the file.
struct TelescopeSettings {
    double year = 2026;
    double month = 1;
    double day = 1;
    double hour = 0;
    double minute = 0;
    bool airless = true;
    bool refracted = false;
    bool of_date = true;
    bool j2000 = false;
    int flip_vertical = 0;
    int flip_horizontal = 0;

    bool operator==(const TelescopeSettings&) const = default;
};

/// What they are, in the order of the file.
inline constexpr FieldList tele_fields{
    Field(&TelescopeSettings::year, stored_year, "year", "local date: year"),
    Field(&TelescopeSettings::month, stored_day, "month", "local date: month"),
    Field(&TelescopeSettings::day, stored_day, "day", "local date: day"),
    Field(&TelescopeSettings::hour, stored_day, "hour", "local clock [h]"),
    Field(&TelescopeSettings::minute, stored_day, "minute", "local clock [min]"),
    Field(&TelescopeSettings::airless, kind::Boolean{}, "airless", "no refraction"),
    Field(&TelescopeSettings::refracted, kind::Boolean{}, "refracted", "with refraction"),
    Field(&TelescopeSettings::of_date, kind::Boolean{}, "of-date", "coordinates of date"),
    Field(&TelescopeSettings::j2000, kind::Boolean{}, "j2000", "coordinates of J2000"),
    Field(&TelescopeSettings::flip_vertical, kind::WholeNumber{0, 1}, "flip-vertical", "1: vertical flip"),
    Field(&TelescopeSettings::flip_horizontal, kind::WholeNumber{0, 1}, "flip-horizontal",
          "1: horizontal flip"),
};

/// The stored choices. Reads `tele.vsk`. The reference holds until the next read or write.
/// Error  raises RunTimeFailure for a missing or damaged file.
const TelescopeSettings& read_tele();

/// Rewrites `tele.vsk` whole.
void write_tele(const TelescopeSettings& settings);

} // namespace halvane
