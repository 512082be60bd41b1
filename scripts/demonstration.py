#!/usr/bin/env python3
"""A short session among real windows on a desktop of its own, which nobody sees but in the pictures it takes.

Usage: demonstration.py PROGRAMS PICTURES

PROGRAMS is the folder of the built programs; the pictures go to the folder PICTURES.
"""

import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "desktop"))
from desktop import Desktop, wait_until  # noqa: E402
from session import Lock, Windows  # noqa: E402

SECONDS = 32  # of the session


class Demonstration:
    def __init__(self, desktop, programs, pictures):
        self.desktop, self.pictures = desktop, pictures
        self.windows = Windows(desktop)
        self.lock = Lock(desktop, programs)
        self.began = time.monotonic()

    def say(self, text):
        print(f"{time.monotonic() - self.began:5.1f} s  {text}", flush=True)

    def picture(self, name):
        time.sleep(0.3)  # programs draw in their own time
        self.desktop.run("scrot", "--overwrite", self.pictures / f"{name}.png")

    def open(self, title, *command):
        process = self.desktop.start(*command)
        self.windows.appear(title)
        return process

    def is_hidden(self, title):
        return self.windows.are_iconic(self.windows.named(title))

    def play(self):
        self.open("Work", "xterm", "-T", "Work", "-geometry", "90x30+60+60", "-e", "sleep", "600")
        self.open("Game", "xmessage", "-center", "-title", "Game", "\n    A game that runs already    \n")
        self.say("A terminal to work in and a game are open.")
        self.picture("1-before")

        self.lock.leave_session(SECONDS, ["debian-xterm"])
        self.lock.start()
        wait_until(lambda: self.is_hidden("Game"))
        self.say(f"A session of {SECONDS} s begins that allows the terminal only: the game is hidden.")
        self.picture("2-locked")

        time.sleep(3.5)  # the first seconds count no attempt
        self.windows.activate(self.windows.named("Game")[0])
        warning = self.lock.await_event("overlay", state="warning")
        wait_until(lambda: self.is_hidden("Game"))
        pause = warning["pauseEndsAt"] - warning["startedAt"]
        self.say(f"The game is brought to the front, and hidden again. Attempt {warning['attempt']}: {pause:.0f} s of rest.")

        late = self.desktop.start("xmessage", "A second game")
        wait_until(lambda: late.poll() is not None)
        self.say("A second game is started, asked to quit, and gone.")

        self.lock.kill()
        self.say("The program is killed (kill -9).")
        wait_until(self.lock.pids)
        wait_until(lambda: "session resumed" in self.lock.log())
        self.say("The watchdog has started it again, and the session goes on.")
        self.picture("3-after-a-kill")

        wait_until(self.lock.history, SECONDS + 10)
        wait_until(lambda: not self.is_hidden("Game"))
        record = self.lock.history()[0]
        self.say(f"The session is over ({record['outcome']}, {record['attempts']} attempts): all is shown again.")
        self.picture("4-afterwards")


def main(programs, pictures):
    pictures = Path(pictures).resolve()
    pictures.mkdir(parents=True, exist_ok=True)
    with Desktop("openbox", "1024x640") as desktop:
        desktop.run("xsetroot", "-solid", "#3a4a58")
        Demonstration(desktop, programs, pictures).play()
    print(f"The pictures of it are in {pictures}/.")


if __name__ == "__main__":
    main(*sys.argv[1:])
