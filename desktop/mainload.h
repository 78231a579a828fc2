// SPDX-License-Identifier: MIT
#pragma once

#include "base/language.h"
#include "base/machinetime.h"
#include "hijri/keptrule.h"
#include "prayer/prayermoments.h"
#include "prayer/prayertexts.h"

#include <optional>
#include <string>
#include <vector>

namespace halvane {

/// What the load step writes into the main panel.
class MainPanelFace {
public:
    virtual ~MainPanelFace() = default;
    virtual void show_language(Language language) = 0;
    virtual void show_today(const PrayerTexts& times) = 0;
    virtual void show_location(const std::string& name) = 0;
    virtual void show_date(const std::string& line) = 0;
    virtual void show_clock() = 0;
};

/// What the main panel keeps from its load.
struct MainPanelState {
    Language language = Language::english;
    double todayjd = 0;      ///< Julian day at 0 h of the machine's date
    MachineTime loaded_at{}; ///< the machine's date and clock at the load
    Preferences preferences; ///< as loaded
    Location location;       ///< as loaded
    /// Of today and the days about it, by time. The location's date may be another than the machine's.
    std::vector<PrayerMoment> moments;
};

/// The load step of the main panel in its order: `termfull.vsk`, `loc.vsk`, `term.vsk`, `mterm.vsk`,
/// `pref.vsk`, the language, today's six times, the date line, the clock line, `elp.vsk`.
/// Error  raises RunTimeFailure; in Arabic every failure after `pref.vsk` is passed over, and the next part
/// of
///        the step follows.
void load_main_panel(MainPanelFace& face, MainPanelState& state);

/// "Machine's Date: Friday, 21 June 2024 ( 14 Thul Hejjah 1445 )", or the same in Arabic.
/// In     todayjd  Julian day at 0 h of the machine's date
std::string date_line(const MachineTime& today, double todayjd, Language language);

/// What the date line's tool tip tells of its day: "10 Ramadan 1447 by Umm al-Qura", or the same in Arabic.
/// Nothing where no rule is kept, or the kept one has no answer. Raises nothing of a missing or damaged file.
std::optional<std::string> hijri_tip(KeptReckoning& kept, const MainPanelState& state);

/// "Friday, 21 June 2024", or the same in Arabic.
std::string day_text(const MachineTime& date, Language language);

/// Which clock the times and the remaining time follow, when the machine's differs from it by a minute or
/// more; nothing when they agree.
/// In     local, universal  the machine's clock and instant
///        short_time        a clock time in the system's format
std::optional<std::string> place_clock_line(const MainPanelState& state, const MachineTime& local,
                                            const MachineTime& universal,
                                            std::string (*short_time)(const MachineTime&));

/// The date of the six times when it is not today's, by the machine's date or by the location's; nothing when
/// it is.
std::optional<std::string> other_day_line(const MainPanelState& state, const MachineTime& local,
                                          const MachineTime& universal);

/// "Machine's Time: 15:07", or the same in Arabic.
std::string clock_line(const std::string& short_time, Language language);

} // namespace halvane
