// SPDX-License-Identifier: MIT
#include "alerts/soundplayer.h"

#include "stored/programfolder.h"
#include "system/path.h"

#include <QApplication>
#include <QAudioDevice>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>
#include <filesystem>

namespace halvane {

namespace {

constexpr const char* chime_file = "chime.wav";
constexpr const char* beep_file = "beep.wav";

bool is_there(const std::string& name) {
    std::error_code error;
    return std::filesystem::is_regular_file(path_of(program_path(name)), error);
}

} // namespace

std::string athan_file(Athan athan) {
    const std::string recording = athan == Athan::mecca ? "mecca.wav" : "jerusalem.wav";
    return is_there(recording) ? recording : chime_file;
}

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
    if (!is_there(name)) {
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
            if (name == chime_file || name == beep_file)
                QApplication::beep();
            else
                play_file(chime_file);
        },
        Qt::QueuedConnection);
    connect(
        sound, &QSoundEffect::playingChanged, this,
        [this, sound] {
            if (sound == sound_.get() && !sound->isPlaying() && sound->status() == QSoundEffect::Ready)
                stop();
        },
        Qt::QueuedConnection);
    sound->setSource(QUrl::fromLocalFile(QString::fromStdString(program_path(name))));
    sound->play();
}

} // namespace halvane
