// SPDX-License-Identifier: MIT
#pragma once

#include "alerts/alertsounds.h"

#include <QObject>
#include <memory>

class QSoundEffect;

namespace halvane {

/// The sounds of alerts by Qt's multimedia.
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

} // namespace halvane
