#pragma once

#include "app/stored/alert.h"
#include "calendar/machineclock.h"
#include "prayer/prayerday.h"

#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace halvane {

/// The five prayers; Shuroq is none.
enum class Prayer { fajer, dhohur, aser, maghreb, isha };

/// What is to be heard.
enum class Athan { none, mecca, jerusalem };

/// Something that is due.
struct Alert {
    enum class Kind {
        beep,  ///< the set minutes before a prayer
        window ///< a prayer's time: a window, with the Athan or without a sound
    };
    Kind kind = Kind::window;
    Prayer prayer = Prayer::fajer;
    Athan athan = Athan::none;
    std::string time;           ///< the prayer's clock text
    std::optional<Prayer> next; ///< the prayer after it
    std::string next_time;      ///< its clock text; empty without one
};

/// The prayer that comes next and its clock text.
struct ComingPrayer {
    Prayer prayer = Prayer::fajer;
    std::string time;
};

/// Decides what is due, by the machine's clock and the stored settings as they stand at each call. Each
/// prayer of a civil date is announced once, whatever the clock does: set back, it does not repeat; ahead, or
/// after a sleep, what came due less than an hour ago is made up for and what is older is passed over.
class AlertSchedule {
public:
    /// What has come due since the last call; nothing at the first one but what is due at this second.
    /// Reads `alert.vsk`, `pref.vsk`, `loc.vsk`, `date.vsk`; needs `term.vsk` and `mterm.vsk` loaded.
    /// Error  raises RunTimeFailure for a damaged file.
    std::vector<Alert> due(const MachineTime& now);

    /// The next prayer, today's or tomorrow's; nothing when neither day has one.
    static std::optional<ComingPrayer> coming(const MachineTime& now);

private:
    /// Seconds of the local clock since the platform's day 0.
    std::optional<double> last_;
    using Key = std::tuple<double, Alert::Kind, Prayer>; ///< day, what, of which prayer
    std::set<Key> announced_;
};

} // namespace halvane
