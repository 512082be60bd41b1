#!/usr/bin/env python3
"""Each event: exactly its keys, in their order, and what stands in them.

Usage: events_test.py VELMORIN_SIMULATE
"""

import json
import unittest

import simulation
from simulation import APPLICATIONS, EDITOR, GAME, PROFILE, SHOW, START, advance, play, run, text_of

CHROME = {"pid": 20, "bundleID": "com.google.Chrome", "name": "Chrome"}
ANSWERS = {"tabs": [["12", "https://news.example.com/"]]}
PAIR = [{"do": "pair"}, {"do": "phone", "status": {"type": "hello"}}]

# The keys of each event behind "t" and "event". Those of `overlay` hang on its state.
KEYS = {
    "log": ["text"],
    "sessionChange": [],
    "tick": [],
    "sessionBegan": [],
    "sessionEnded": [],
    "hide": ["pid"],
    "unhide": ["pid"],
    "terminate": ["pid"],
    "activate": ["pid"],
    "open": ["bundleID"],
    "sound": ["name", "volume"],
    "script": ["kind", "timeout", "what"],
    "shortcut": ["name"],
    "watchdog": ["action", "arguments"],
    "save": ["file", "text"],
    "saveFailed": ["file"],
    "remove": ["file"],
    "post": ["topic", "message"],
    "listen": ["topic"],
    "terminateApplication": [],
    "ignored": ["do"],
    "state": ["session", "status", "overlay", "attempts", "returns", "hiddenBundleIDs", "deniedBrowsers",
              "suppressAttemptsUntil", "history", "thoughts", "pairingState", "lockState", "applications"],
}
OVERLAYS = {
    "warning": ["target", "attempt", "startedAt", "pauseEndsAt"],
    "emergencyExit": ["waitUntil"],
    "finished": ["record"],
    "none": [],
    "lockedBreak": [],
    "backToWork": [],
}


def everything():
    """The events of scenarios in which each of them happens."""
    setup = {"language": "en", "settings": {"useFocusShortcuts": True, "lockPhoneToo": True}, "front": 11,
             "applications": [GAME, CHROME], "installed": ["org.example.editor"]}
    profile = {**PROFILE, "allowedApps": [*PROFILE["allowedApps"], {"bundleID": CHROME["bundleID"], "name": "Chrome"}],
               "pomodoro": {"workMinutes": 2, "totalCycles": 2}}
    deep = {**PROFILE, "mode": "deep", "deep": {"totalMinutes": 5, "breakEveryMinutes": 2, "breakMinutes": 1}}
    confirm = {"do": "confirmEmergencyExit", "reason": "The fire alarm has gone off"}
    first = play(
        *PAIR, {"do": "browser", "kind": "chrome", "answers": ANSWERS}, {**START, "profile": profile}, advance(5),
        {"do": "launch", "app": {"pid": 30, "name": "Chat"}, "front": True}, advance(5), {"do": "returnToWork"},
        {"do": "beginEmergencyExit"}, {"do": "cancelEmergencyExit"}, advance(1000), SHOW,
        {"do": "disk", "full": True}, {"do": "addThought", "text": "lost"}, {"do": "askToQuit"},
        {"do": "dismiss"}, setup=setup, options=["--ticks"])
    second = play({**START, "profile": deep}, advance(130), {"do": "beginEmergencyExit"}, advance(200), confirm,
                  {"do": "dismiss"}, {**START, "profile": profile}, advance(3), SHOW)
    third = play({**START, "profile": {"allowedApps": PROFILE["allowedApps"]}},
                 setup={"applications": [GAME], "front": 11, "installed": [EDITOR["bundleID"]]})
    return [*first, *second, *third]


class EventsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.events = everything()

    def of(self, name):
        return [event for event in self.events if event["event"] == name]

    def test_every_event_happens_and_has_exactly_its_keys_in_their_order(self):
        seen = set()
        for event in self.events:
            name, keys = event["event"], list(event)
            seen.add(name)
            if name == "overlay":
                expected = ["state", *OVERLAYS[event["state"]]]
            elif name == "script" and event["what"] == "blankTab":
                expected = [*KEYS[name], "windowID"]
            elif name == "log" and "lost" in event:
                expected = [*KEYS[name], "lost"]
            else:
                expected = KEYS[name]
            self.assertEqual(keys, ["t", "event", *expected], event)
        self.assertEqual(seen, {*KEYS, "overlay"})

    def test_every_overlay_shows(self):
        self.assertEqual({event["state"] for event in self.of("overlay")}, set(OVERLAYS))

    def test_time_never_goes_back(self):
        done = run(text_of({"setup": APPLICATIONS}, START, advance(5), {"do": "setClock", "by": -3600}, advance(2000)))
        times = [json.loads(line)["t"] for line in done.stdout.splitlines()]
        self.assertEqual(times, sorted(times))

    def test_each_line_is_one_compact_object(self):
        done = run(text_of({"setup": APPLICATIONS}, START, advance(5), SHOW))
        for line in done.stdout.splitlines():
            again = json.dumps(json.loads(line), separators=(",", ":"), ensure_ascii=False)
            self.assertEqual(line, again)

    def test_a_warning_tells_its_whole_payload(self):
        warning = next(event for event in self.of("overlay") if event["state"] == "warning")
        self.assertEqual(warning, {"t": 5, "event": "overlay", "state": "warning", "target": "Chat", "attempt": 1,
                                   "startedAt": 800000005, "pauseEndsAt": 800000010})

    def test_a_finished_overlay_carries_its_record(self):
        finished = next(event for event in self.of("overlay") if event["state"] == "finished")
        history = next(json.loads(event["text"]) for event in self.of("save") if event["file"] == "history.json")
        self.assertEqual(finished["record"], history[0])

    def test_a_save_tells_what_the_file_holds_and_a_failed_one_does_not(self):
        for event in self.of("save"):
            self.assertIsInstance(json.loads(event["text"]), (dict, list))
        self.assertEqual([event["file"] for event in self.of("saveFailed")], ["thoughts.json"])
        self.assertEqual([event for event in self.of("log") if event.get("lost")][0]["text"], "thought parked")

    def test_scripts_tell_the_browser_the_limit_and_the_window(self):
        listing, blanking = self.of("script")[:2]
        self.assertEqual(listing, {"t": 1, "event": "script", "kind": "chrome", "timeout": 90, "what": "listTabs"})
        self.assertEqual(blanking, {"t": 1.1, "event": "script", "kind": "chrome", "timeout": 5, "what": "blankTab",
                                    "windowID": "12"})

    def test_the_watchdog_tells_all_arguments_or_none(self):
        self.assertEqual({(event["action"], tuple(event["arguments"])) for event in self.of("watchdog")},
                         {("install", ("--watchdog",)), ("remove", ())})

    def test_a_post_tells_what_was_sealed_and_never_the_key(self):
        types = [event["message"]["type"] for event in self.of("post")]
        self.assertEqual(types, ["start", "end", "thought"])
        start = self.of("post")[0]["message"]
        self.assertEqual(sorted(start), ["id", "segments", "seq", "startedAt", "type", "v"])
        self.assertNotEqual(self.of("post")[0]["topic"], self.of("listen")[0]["topic"])

    def test_the_state_of_a_session_is_told_whole(self):
        shown = self.of("state")[-1]
        self.assertEqual(shown["status"], {"segmentIndex": 0, "kind": "work", "remainingInSegment": 117,
                                           "remainingTotal": 537, "isFinished": False, "isLocked": True})
        self.assertEqual(shown["overlay"], {"state": "none"})
        self.assertEqual(shown["session"]["hiddenBundleIDs"], shown["hiddenBundleIDs"])
        self.assertEqual((shown["attempts"], shown["returns"], shown["deniedBrowsers"]), (0, 0, []))
        self.assertEqual((shown["pairingState"], shown["lockState"]), ("notPaired", "idle"))

    def test_callbacks_come_in_their_order(self):
        callbacks = ["sessionBegan", "sessionEnded", "sessionChange", "overlay", "tick"]
        events = play({**START, "profile": {"pomodoro": {"workMinutes": 1, "totalCycles": 1,
                                                         "cyclesBeforeLongBreak": 9}}}, advance(60),
                      options=["--ticks"])
        told = [event["event"] for event in events if event["event"] in callbacks and event["t"] in (0, 60)]
        self.assertEqual(told, ["sessionChange", "tick", "sessionBegan",
                                "sessionEnded", "overlay", "sessionChange", "tick"])


if __name__ == "__main__":
    simulation.main()
