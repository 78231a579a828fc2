#pragma once

namespace halvane {

/// `tele.vsk`: the choices of the telescope panel, in the order of the file.
struct TelescopeSettings {
    double year = 2026;      ///< local date
    double month = 1;        ///< local date
    double day = 1;          ///< local date
    double hour = 0;         ///< local clock [h]
    double minute = 0;       ///< local clock [min]
    bool airless = true;     ///< no refraction
    bool refracted = false;  ///< with refraction
    bool of_date = true;     ///< coordinates of date
    bool j2000 = false;      ///< coordinates of J2000
    int flip_vertical = 0;   ///< 1: vertical flip
    int flip_horizontal = 0; ///< 1: horizontal flip

    bool operator==(const TelescopeSettings&) const = default;
};

/// The stored choices. Reads `tele.vsk`. The reference holds until the next read or write.
/// Error  raises RunTimeFailure for a missing or damaged file.
const TelescopeSettings& read_tele();

/// Rewrites `tele.vsk` whole.
void write_tele(const TelescopeSettings& settings);

} // namespace halvane
