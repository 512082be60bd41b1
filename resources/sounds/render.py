#!/usr/bin/env python3
"""Renders the program's sounds as WAV files: 48 kHz, one channel, 16 bits.

Usage: render.py DIRECTORY

Glass   a small bell: the end of a segment
Purr    a low, soft double beat: an attempt to leave

Sines and decays are worked out with additions and multiplications alone, so that every machine renders the same bytes.
"""

import struct
import sys
import wave
from functools import reduce
from operator import add
from pathlib import Path

RATE = 48_000
PEAK = 0.7  # of full scale
PI = 3.141592653589793


def series(term, next_term):
    """The sum of a quickly converging series."""
    total, count = term, 0
    while abs(term) > 1e-18:
        count += 1
        term = next_term(term, count)
        total += term
    return total


def exp(x):
    return series(1.0, lambda term, n: term * x / n)


def sine(x):
    return series(x, lambda term, n: -term * x * x / ((2 * n) * (2 * n + 1)))


def cosine(x):
    return series(1.0, lambda term, n: -term * x * x / ((2 * n - 1) * (2 * n)))


def partial(frequency, amplitude, half_life, count):
    """A sine that begins at zero and halves its amplitude every `half_life` seconds."""
    turn = 2 * PI * frequency / RATE
    fading = exp(-0.6931471805599453 / (half_life * RATE))
    across, along = cosine(turn) * fading, sine(turn) * fading
    real, imaginary = amplitude, 0.0
    for _ in range(count):
        yield imaginary
        real, imaginary = real * across - imaginary * along, imaginary * across + real * along


def swell(position, length):
    """From 0 to 1 without a corner, for a position up to `length`."""
    x = min(max(position / length, 0.0), 1.0)
    return x * x * (3 - 2 * x)


def tone(partials, seconds, attack, release):
    count = int(seconds * RATE)
    voices = [partial(*each, count) for each in partials]
    return [
        # Added one by one: how `sum` rounds depends on the release of Python.
        reduce(add, samples) * swell(index, attack * RATE) * swell(count - 1 - index, release * RATE)
        for index, samples in enumerate(zip(*voices))
    ]


def mixed(parts, seconds):
    """Tones that begin at moments of their own."""
    total = [0.0] * int(seconds * RATE)
    for moment, samples in parts:
        for index, sample in enumerate(samples, int(moment * RATE)):
            total[index] += sample
    return total


def glass():
    strike = tone(
        [(1174.0, 1.0, 0.16), (2361.0, 0.32, 0.09), (3520.0, 0.10, 0.06), (5210.0, 0.05, 0.035)],
        seconds=1.1, attack=0.008, release=0.30,
    )
    return mixed([(0.0, strike)], 1.1)


def purr():
    beat = tone([(196.0, 1.0, 0.09), (294.0, 0.35, 0.07), (392.0, 0.18, 0.05)], seconds=0.34, attack=0.045, release=0.15)
    softer = [0.8 * sample for sample in beat]
    return mixed([(0.0, beat), (0.22, softer)], 0.6)


def write(path, samples):
    loudest = max(abs(sample) for sample in samples)
    scale = PEAK * 32767 / loudest
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(struct.pack("<%dh" % len(samples), *(round(sample * scale) for sample in samples)))


def main(arguments):
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    folder = Path(arguments[0])
    folder.mkdir(parents=True, exist_ok=True)
    write(folder / "Glass.wav", glass())
    write(folder / "Purr.wav", purr())
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
