#!/usr/bin/env python3
"""The sounds that are kept are those that their script renders, and they are short and soft.

Usage: rendering_test.py SOUNDS
"""

import struct
import subprocess
import sys
import tempfile
import unittest
import wave
from pathlib import Path

SOUNDS = Path(sys.argv.pop(1))
NAMES = ["Glass", "Purr"]


class Rendering(unittest.TestCase):
    def test_the_script_renders_the_very_same_files(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([sys.executable, SOUNDS / "render.py", folder], check=True)
            self.assertEqual(sorted(file.name for file in Path(folder).iterdir()), [name + ".wav" for name in NAMES])
            for name in NAMES:
                rendered = (Path(folder) / f"{name}.wav").read_bytes()
                self.assertEqual(rendered, (SOUNDS / f"{name}.wav").read_bytes(), name)

    def test_they_are_short_and_soft(self):
        for name in NAMES:
            with self.subTest(name), wave.open(str(SOUNDS / f"{name}.wav")) as file:
                count, rate = file.getnframes(), file.getframerate()
                self.assertEqual((file.getnchannels(), file.getsampwidth(), rate), (1, 2, 48_000))
                samples = struct.unpack(f"<{count}h", file.readframes(count))
                self.assertTrue(0.5 <= count / rate <= 1.2, count / rate)
                loudest = max(map(abs, samples))
                self.assertTrue(0.5 * 32767 < loudest < 0.9 * 32767, loudest)
                # Neither begins nor ends with a click, and takes a while to become loud.
                self.assertTrue(abs(samples[0]) < 4 and abs(samples[-1]) < 4)
                self.assertLess(max(map(abs, samples[: rate // 1000])), 0.1 * loudest)


if __name__ == "__main__":
    unittest.main()
