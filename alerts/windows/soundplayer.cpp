// SPDX-License-Identifier: MIT
#include "alerts/alertsounds.h"
#include "system/windows/widepath.h"

#include <QApplication>
#include <windows.h>

#include <mmsystem.h>

namespace halvane {

namespace {

/// A file of chunks, closed with its owner.
/// Source  Microsoft, "Multimedia file I/O services" (RIFF).
class ChunkFile {
public:
    explicit ChunkFile(std::wstring path)
        : file_(::mmioOpenW(path.data(), nullptr, MMIO_READ | MMIO_DENYNONE)) {}
    ChunkFile(const ChunkFile&) = delete;
    ChunkFile& operator=(const ChunkFile&) = delete;
    ~ChunkFile() {
        if (file_ != nullptr)
            ::mmioClose(file_, 0);
    }

    /// The form of a sound's samples; nothing when the file is none.
    std::optional<WAVEFORMATEX> format() {
        MMCKINFO wave{};
        wave.fccType = mmioFOURCC('W', 'A', 'V', 'E');
        MMCKINFO told{};
        told.ckid = mmioFOURCC('f', 'm', 't', ' ');
        PCMWAVEFORMAT read{};
        const LONG size = sizeof read;
        if (file_ == nullptr || ::mmioDescend(file_, &wave, nullptr, MMIO_FINDRIFF) != MMSYSERR_NOERROR ||
            ::mmioDescend(file_, &told, &wave, MMIO_FINDCHUNK) != MMSYSERR_NOERROR ||
            ::mmioRead(file_, reinterpret_cast<char*>(&read), size) != size)
            return std::nullopt;
        return WAVEFORMATEX{read.wf.wFormatTag,
                            read.wf.nChannels,
                            read.wf.nSamplesPerSec,
                            read.wf.nAvgBytesPerSec,
                            read.wf.nBlockAlign,
                            read.wBitsPerSample,
                            0};
    }

private:
    HMMIO file_;
};

/// Whether a device takes the file: PlaySound itself tells nothing of what it does beside the program.
bool can_be_played(const std::wstring& path) {
    const std::optional<WAVEFORMATEX> format = ChunkFile(path).format();
    return format && format->wFormatTag == WAVE_FORMAT_PCM &&
           ::waveOutOpen(nullptr, WAVE_MAPPER, &*format, 0, 0, WAVE_FORMAT_QUERY) == MMSYSERR_NOERROR;
}

bool play_beside(const std::wstring& path) {
    return can_be_played(path) &&
           ::PlaySoundW(path.c_str(), nullptr, SND_FILENAME | SND_ASYNC | SND_NODEFAULT) != 0;
}

/// The sounds of alerts by PlaySound, one at a time.
class SoundPlayer : public AlertSounds {
public:
    SoundPlayer() = default;
    SoundPlayer(const SoundPlayer&) = delete;
    SoundPlayer& operator=(const SoundPlayer&) = delete;
    ~SoundPlayer() override { SoundPlayer::stop(); }

    bool has_device() override { return ::waveOutGetNumDevs() > 0; }
    void play(Athan athan) override { play_file(athan_file(athan)); }
    void beep() override { play_file(beep_file); }
    void stop() override { ::PlaySoundW(nullptr, nullptr, 0); }

private:
    static void play_file(const std::string& name) {
        const std::optional<std::string> path = sound_path(name);
        if (path && play_beside(wide(*path)))
            return;
        if (const std::optional<std::string> other = path ? sound_in_place_of(name) : std::nullopt)
            play_file(*other);
        else
            QApplication::beep();
    }
};

} // namespace

std::unique_ptr<AlertSounds> make_alert_sounds() {
    return std::make_unique<SoundPlayer>();
}

} // namespace halvane
