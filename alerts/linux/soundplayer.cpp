// SPDX-License-Identifier: MIT
#include "alerts/linux/soundplayer.h"

#include <QApplication>
#include <QAudioDevice>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

namespace halvane {

SoundPlayer::SoundPlayer() = default;
SoundPlayer::~SoundPlayer() = default;

bool SoundPlayer::has_device() {
    return !QMediaDevices::defaultAudioOutput().isNull();
}

void SoundPlayer::play(Athan athan) {
    play_file(athan_file(athan));
}

void SoundPlayer::beep() {
    play_file(beep_file);
}

void SoundPlayer::stop() {
    sound_.reset();
}

void SoundPlayer::play_file(const std::string& name) {
    const std::optional<std::string> path = sound_path(name);
    if (!path) {
        QApplication::beep();
        return;
    }
    sound_ = std::make_unique<QSoundEffect>();
    QSoundEffect* sound = sound_.get();
    // The player must not go while it reports.
    connect(
        sound, &QSoundEffect::statusChanged, this,
        [this, sound, name] {
            if (sound != sound_.get() || sound->status() != QSoundEffect::Error)
                return;
            if (const std::optional<std::string> other = sound_in_place_of(name))
                play_file(*other);
            else
                QApplication::beep();
        },
        Qt::QueuedConnection);
    connect(
        sound, &QSoundEffect::playingChanged, this,
        [this, sound] {
            if (sound == sound_.get() && !sound->isPlaying() && sound->status() == QSoundEffect::Ready)
                stop();
        },
        Qt::QueuedConnection);
    sound->setSource(QUrl::fromLocalFile(QString::fromStdString(*path)));
    sound->play();
}

std::unique_ptr<AlertSounds> make_alert_sounds() {
    return std::make_unique<SoundPlayer>();
}

} // namespace halvane
