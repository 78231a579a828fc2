#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the two sounds of the alert program: makechime.py FOLDER writes chime.wav and beep.wav there.

Mono, 16 bit, 22050 samples a second. The chime is three soft strokes of a bell, G4 C5 E5, each the sum of
decaying partials of a small bell (Fletcher and Rossing, The Physics of Musical Instruments, chapter 21: hum, prime,
tierce, quint, nominal); the beep is two short tones with rounded ends.
"""

import math
import struct
import sys
import wave

RATE = 22050
# Ratio to the prime, loudness, time in which the partial fades to 1/e [s].
PARTIALS = ((0.5, 0.35, 1.6), (1.0, 1.0, 1.2), (1.2, 0.25, 0.8), (1.5, 0.2, 0.6), (2.0, 0.45, 0.5), (3.0, 0.08, 0.25))


def add_stroke(samples, start, frequency, loudness):
    attack = 0.012
    for i in range(int(start * RATE), len(samples)):
        t = i / RATE - start
        rise = min(1.0, t / attack)
        samples[i] += loudness * rise * sum(
            a * math.exp(-t / fade) * math.sin(2 * math.pi * frequency * ratio * t) for ratio, a, fade in PARTIALS)


def add_tone(samples, start, length, frequency):
    for i in range(int(start * RATE), int((start + length) * RATE)):
        t = i / RATE - start
        samples[i] += math.sin(math.pi * t / length) ** 2 * math.sin(2 * math.pi * frequency * t)


def save(path, samples, peak):
    """Writes the samples with the largest at `peak` of the full range and a faded end."""
    fade = int(0.05 * RATE)
    for i in range(fade):
        samples[-1 - i] *= i / fade
    scale = peak * 32767 / max(abs(s) for s in samples)
    with wave.open(path, "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(b"".join(struct.pack("<h", round(s * scale)) for s in samples))


def main():
    folder = sys.argv[1]
    chime = [0.0] * int(5.5 * RATE)
    for start, frequency, loudness in ((0.0, 392.0, 0.8), (0.7, 523.25, 0.9), (1.4, 659.26, 1.0)):
        add_stroke(chime, start, frequency, loudness)
    save(folder + "/chime.wav", chime, 0.6)
    beep = [0.0] * int(0.5 * RATE)
    for start in (0.0, 0.22):
        add_tone(beep, start, 0.16, 880.0)
    save(folder + "/beep.wav", beep, 0.5)


main()
