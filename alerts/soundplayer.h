// SPDX-License-Identifier: MIT
#pragma once

#include "prayer/alertschedule.h"

#include <QObject>
#include <memory>

class QSoundEffect;

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

/// Plays WAV files (PCM) of the program folder: `mecca.wav` and `jerusalem.wav` where the user has put
/// recordings of that name, else, and for a file that cannot be played, `chime.wav`; `beep.wav` for the beep.
class SoundPlayer : public QObject, public AlertSounds {
    Q_OBJECT
public:
    SoundPlayer();
    ~SoundPlayer() override;

    bool has_device() override;
    void play(Athan athan) override;
    void beep() override;
    void stop() override;

private:
    void play_file(const std::string& name);

    std::unique_ptr<QSoundEffect> sound_;
};

/// The file of the program folder to play for an Athan.
std::string athan_file(Athan athan);

} // namespace halvane
