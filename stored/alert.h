// SPDX-License-Identifier: MIT
#pragma once

#include "stored/fields.h"

namespace halvane {

/// `alert.vsk`: what the alert program is to do at prayer times, in the order of the file.
struct AlertSettings {
    int beep = 0;
    double lead = 10;
    int window_and_athan = 0;
    int window_only = 0;
    bool dhohur_mecca = true;
    bool asr_mecca = true;
    bool maghreb_mecca = true;
    bool isha_mecca = true;

    bool operator==(const AlertSettings&) const = default;
};

/// What they are, in the order of the file.
inline constexpr FieldList alert_fields{
    Field(&AlertSettings::beep, kind::WholeNumber{0, 1}, "beep", "1: a beep before the prayer time"),
    Field(&AlertSettings::lead, kind::Number{}, "lead", "so long before the prayer time [min]"),
    Field(&AlertSettings::window_and_athan, kind::WholeNumber{0, 1}, "window-and-athan",
          "1: a pop-up window and the Athan at the prayer time"),
    Field(&AlertSettings::window_only, kind::WholeNumber{0, 1}, "window-only", "1: only the pop-up window"),
    Field(&AlertSettings::dhohur_mecca, kind::Boolean{}, "dhohur-mecca",
          "Dhohur: true Mecca Athan, false Jerusalem Athan"),
    Field(&AlertSettings::asr_mecca, kind::Boolean{}, "asr-mecca",
          "Asr: true Mecca Athan, false Jerusalem Athan"),
    Field(&AlertSettings::maghreb_mecca, kind::Boolean{}, "maghreb-mecca",
          "Maghreb: true Mecca Athan, false Jerusalem Athan"),
    Field(&AlertSettings::isha_mecca, kind::Boolean{}, "isha-mecca",
          "Isha: true Mecca Athan, false Jerusalem Athan"),
};

/// The stored choices. Reads `alert.vsk`. The reference holds until the next read or write.
/// Error  raises RunTimeFailure for a missing or damaged file.
const AlertSettings& read_alert();

/// Rewrites `alert.vsk` whole.
void write_alert(const AlertSettings& settings);

} // namespace halvane
