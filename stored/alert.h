#pragma once

namespace halvane {

/// `alert.vsk`: what the alert program is to do at prayer times, in the order of the file.
struct AlertSettings {
    int beep = 0;              ///< 1: a beep before the prayer time
    double lead = 10;          ///< so long before the prayer time [min]
    int window_and_athan = 0;  ///< 1: a pop-up window and the Athan at the prayer time
    int window_only = 0;       ///< 1: only the pop-up window
    bool dhohur_mecca = true;  ///< true: Mecca Athan, false: Jerusalem Athan
    bool asr_mecca = true;     ///< the same
    bool maghreb_mecca = true; ///< the same
    bool isha_mecca = true;    ///< the same

    bool operator==(const AlertSettings&) const = default;
};

/// The stored choices. Reads `alert.vsk`. The reference holds until the next read or write.
/// Error  raises RunTimeFailure for a missing or damaged file.
const AlertSettings& read_alert();

/// Rewrites `alert.vsk` whole.
void write_alert(const AlertSettings& settings);

} // namespace halvane
