// SPDX-License-Identifier: MIT
#pragma once

#include "watch/crescentwatch.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace halvane {

/// A watch as a person chooses it.
struct WatchChoice {
    CrescentKind kind = CrescentKind::new_crescent;
    DateNumbers date;
    std::optional<std::string> place; ///< name in the list; without it the stored location
};

/// What of a choice is wrong.
enum class WatchPart { date, place };

/// The settings of a choice, or what is wrong with it.
struct WatchAnswer {
    std::optional<WatchSettings> settings;
    WatchPart wrong = WatchPart::date;
    TwinWords words; ///< of what is wrong, in whole sentences
};

/// Reads `loc.vsk`, `pref.vsk`, `zones.csv`, and `loc.txt` for a place of the list.
/// Error  raises RunTimeFailure for a missing or damaged file.
WatchAnswer settings_of(const WatchChoice& choice);

/// The date so many days later; one that is none counts from its month's nearest day.
DateNumbers date_after(const DateNumbers& date, int days);

/// The formats of a watch.
enum class WatchFormat { pdf, png, csv };

/// "pdf", "png", "csv": the name on the command line and the ending of its files.
const char* name_of(WatchFormat format);

std::span<const WatchFormat> watch_formats();

/// The format of a file by its ending; nothing for another one.
std::optional<WatchFormat> watch_format_of(std::string_view file_name);

/// "watch-Amman-2026-02-18.pdf", a usual name of a file
std::string watch_file_name(const WatchSettings& settings, WatchFormat format);

} // namespace halvane
