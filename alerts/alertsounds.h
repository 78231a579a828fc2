// SPDX-License-Identifier: MIT
#pragma once

#include "prayer/alertschedule.h"

#include <memory>
#include <optional>
#include <string>

namespace halvane {

/// What can be heard of an alert.
class AlertSounds {
public:
    virtual ~AlertSounds() = default;

    /// Whether there is a device to hear it from now.
    virtual bool has_device() = 0;

    virtual void play(Athan athan) = 0; ///< in place of what may be sounding still
    virtual void beep() = 0;
    virtual void stop() = 0; ///< ends an Athan; a beep ends by itself
};

/// Plays WAV files (PCM) of the program folder by the system's own means: `mecca.wav` and `jerusalem.wav`
/// where the user has put recordings of that name, else, and for a file that cannot be played, `chime.wav`;
/// `beep.wav` for the beep. What cannot be played at all is the system's beep.
std::unique_ptr<AlertSounds> make_alert_sounds();

/// The file to play for an Athan, by its bare name.
std::string athan_file(Athan athan);

inline constexpr const char* beep_file = "beep.wav";

/// What is played in place of a file that cannot be; nothing is left after the delivered ones.
std::optional<std::string> sound_in_place_of(const std::string& name);

/// The whole path of a sound; nothing when there is no such file.
std::optional<std::string> sound_path(const std::string& name);

} // namespace halvane
