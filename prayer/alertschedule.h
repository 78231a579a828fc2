// SPDX-License-Identifier: MIT
#pragma once

#include "base/failure.h"
#include "base/machinetime.h"
#include "prayer/prayermoments.h"
#include "stored/alert.h"
#include "stored/loc.h"
#include "stored/pref.h"

#include <map>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

namespace halvane {

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
    ShownClock clock;           ///< the prayer's, on the location's clock
    std::optional<Prayer> next; ///< the prayer after it
    ShownClock next_clock;      ///< its clock; 0 h without one
};

/// The prayer that comes next and its clock.
struct ComingPrayer {
    Prayer prayer = Prayer::fajer;
    ShownClock clock;
};

/// Decides what is due, by the machine's instant and the stored settings: the zone that the machine's clock
/// shows, and its changes to summer time and back, move nothing. Each prayer of a civil date is announced
/// once, whatever the clock does: set back, it does not repeat; ahead, or after a sleep, what came due less
/// than an hour ago is made up for and what is older is passed over. A clock set back by more than half a day
/// is a corrected date: what lies after it is due again.
class AlertSchedule {
public:
    /// In     theory  with `term.vsk` and `mterm.vsk`
    explicit AlertSchedule(TheoryPointer theory) : theory_(std::move(theory)) {}

    /// What has come due since the last call; nothing at the first one but what is due at this second.
    /// In     now  Universal Time
    /// Reads `alert.vsk`, `pref.vsk`, `loc.vsk` every ten seconds of the clock and `date.vsk` when the times
    /// are computed anew, which a new date or changed settings ask for. While the files cannot be read, what
    /// was read last stays in force (see trouble). Error  raises RunTimeFailure for a damaged file before all
    /// have been read soundly once.
    std::vector<Alert> due(const MachineTime& now);

    /// The next prayer, today's or tomorrow's; nothing when neither day has one. Reads as `due` does.
    std::optional<ComingPrayer> coming(const MachineTime& now);

    /// Why the files could not be read at the last look; nothing when they could.
    const std::optional<FailureParts>& trouble() const { return trouble_; }

    /// What is in force; blank before the first call of `due`.
    Preferences preferences() const { return preferences_.value_or(Preferences{}); }
    const Location& location() const { return location_; }

private:
    using Key = std::tuple<double, Alert::Kind, Prayer>; ///< day, what, of which prayer

    void refresh(const MachineTime& now);
    void take_settings(const MachineTime& now);
    void forget(double present);
    bool announce(const PrayerMoment& moment, Alert::Kind kind, double seconds);

    TheoryPointer theory_;
    std::optional<double> last_;  ///< time of the last call of `due` [s since the platform's day 0]
    double since_ = 0;            ///< what is due now lies after it [s]
    double present_ = 0;          ///< [s]
    std::optional<double> slice_; ///< the ten seconds in which the files were read
    double today_ = 0;            ///< day count, at the location, that the moments were computed for
    std::optional<Preferences> preferences_;
    Location location_;
    AlertSettings settings_;
    std::optional<FailureParts> trouble_;
    std::vector<PrayerMoment> moments_; ///< of yesterday, today and tomorrow, by time
    std::map<Key, double> announced_;   ///< with the time at which each was due [s]
};

} // namespace halvane
