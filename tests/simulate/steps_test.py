#!/usr/bin/env python3
"""Each step of a scenario and each key of its first line, by what it brings about.

Usage: steps_test.py VELMORIN_SIMULATE
"""

import json
import unittest

import simulation
from simulation import ALLOWED, APPLICATIONS, EDITOR, GAME, PROFILE, START, advance, after, named, names, play, state

CHAT = {"pid": 12, "bundleID": "org.example.chat", "name": "Chat"}
CHROME = {"pid": 20, "bundleID": "com.google.Chrome", "name": "Chrome"}
RESEARCH = {"name": "Research", "allowedApps": [*ALLOWED, {"bundleID": "com.google.Chrome", "name": "Chrome"}],
            "allowedDomains": ["example.org"]}
BROWSING = {"language": "en", "front": 20, "applications": [EDITOR, CHROME]}
PAIRED = [{"do": "pair"}, {"do": "phone", "status": {"type": "hello"}}]


def hidden(shown, pid):
    return next(application["hidden"] for application in shown["applications"] if application["pid"] == pid)


def log(events):
    return [event["text"] for event in named(events, "log")]


class SetupTest(unittest.TestCase):
    def test_every_key_may_be_missing(self):
        self.assertEqual(names(play(setup={})), ["remove", "watchdog"])

    def test_now_is_in_seconds_since_2001(self):
        self.assertEqual(state(START)["session"]["startedAt"], 800000000)
        self.assertEqual(state(START, setup={"now": 5.5, "timeZone": "Europe/Berlin"})["session"]["startedAt"], 5.5)

    def test_language_and_settings_hold_for_the_program(self):
        push = [START, advance(3), {"do": "launch", "app": {"pid": 12}}]
        for setup, word in [({"language": "en"}, "This app"), ({"settings": {"language": "de"}}, "Diese App"),
                            ({"settings": {"language": "de"}, "language": "en"}, "This app")]:
            self.assertEqual(named(play(*push, setup=setup), "overlay")[0]["target"], word)
        settings = {"useFocusShortcuts": True, "focusOnShortcut": "Quiet"}
        self.assertEqual(named(play(START, setup={"settings": settings}), "shortcut")[0]["name"], "Quiet")

    def test_settings_and_language_go_over_those_of_a_file(self):
        stored = json.dumps({"useFocusShortcuts": True, "focusOnShortcut": "Stored", "language": "de"})
        for setup, shortcut in [({}, "Stored"), ({"language": "en"}, "Stored"),
                                ({"settings": {"focusOnShortcut": "Given"}}, "Given")]:
            events = play(START, setup={"files": {"settings.json": stored}, **setup})
            self.assertEqual([event["name"] for event in named(events, "shortcut")], [shortcut])

    def test_files_are_there_before_the_program_and_are_no_events(self):
        thought = {"id": "6D1C170C-F5C1-483C-8607-63B281385E96", "text": "old", "createdAt": 5, "done": False}
        files = {"thoughts.json": json.dumps([thought]), "history.json": "damaged"}
        events = play({"do": "show"}, setup={"files": files})
        self.assertEqual(names(events), ["remove", "watchdog", "state"])
        self.assertEqual(events[-1]["thoughts"], [thought])
        self.assertEqual(events[-1]["history"], [])

    def test_applications_are_as_they_are_described(self):
        described = [{"pid": 5, "bundleID": None, "name": None, "policy": 1, "hidden": True, "quits": "never"},
                     {"pid": 9, "bundleID": "org.example.a", "name": "A", "policy": 0, "hidden": False,
                      "quits": "politely"}]
        self.assertEqual(state(setup={"applications": described})["applications"], described)
        bare = state(setup={"applications": [{"bundleID": "org.example.a"}, {}]})["applications"]
        self.assertEqual(bare[0], {"pid": 1, "bundleID": "org.example.a", "name": None, "policy": 0, "hidden": False,
                                   "quits": "politely"})
        self.assertEqual(bare[1]["pid"], 2)

    def test_self_is_the_programs_own_identifier(self):
        app = {"pid": 12, "bundleID": "org.example.self", "name": "Self"}
        started = [START, advance(3), {"do": "launch", "app": app}]
        self.assertEqual(named(play(*started), "terminate")[0]["pid"], 12)
        self.assertEqual(named(play(*started, setup={"self": "org.example.self"}), "terminate"), [])

    def test_a_program_without_an_identifier_sees_no_second_instance(self):
        again = {"do": "relaunch"}
        self.assertEqual(names(play(again))[2:], ["terminateApplication"])
        self.assertEqual(names(play(again, setup={"self": None}))[2:], ["remove", "watchdog"])

    def test_what_is_installed_can_be_opened(self):
        setup = {"installed": ["org.example.editor"], "applications": [GAME], "front": 11}
        events = play(START, advance(1), {"do": "show"}, setup=setup)
        # Once for the game that is pushed away, once for the session that begins; it starts a single time.
        self.assertEqual(named(events, "open"), [{"t": 0, "event": "open", "bundleID": "org.example.editor"}] * 2)
        self.assertEqual(len(events[-1]["applications"]), 2)
        self.assertEqual(events[-1]["applications"][-1]["bundleID"], "org.example.editor")
        self.assertEqual(named(play(START, setup={"applications": [GAME], "front": 11}), "open"), [])

    def test_only_block_turns_the_lock_around(self):
        setup = {**APPLICATIONS, "onlyBlock": ["org.example.editor"]}
        self.assertEqual([event["pid"] for event in named(play(START, setup=setup), "hide")], [10])

    def test_the_exits_wait_can_be_replaced(self):
        events = play(START, {"do": "beginEmergencyExit"}, setup={"exitWaitOverride": 0})
        self.assertEqual(named(events, "overlay")[-1]["waitUntil"], 800000000)

    def test_unattended_the_program_answers_itself_and_ends(self):
        setup = {**APPLICATIONS, "autoReturnFromWarnings": True}
        short = {**PROFILE, "pomodoro": {"workMinutes": 1, "totalCycles": 1, "cyclesBeforeLongBreak": 2}}
        events = play({**START, "profile": short}, advance(5), {"do": "activate", "pid": 11}, advance(60), setup=setup)
        self.assertEqual([(event["t"], event["state"]) for event in named(events, "overlay")],
                         [(5, "warning"), (10.5, "none"), (60, "finished")])
        self.assertEqual(events[-1], {"t": 62, "event": "terminateApplication"})

    def test_watchdog_arguments_follow_the_programs_own(self):
        events = play(START, {"do": "crash"}, {"do": "relaunch"}, setup={"watchdogArguments": ["-a", "b c"]})
        arguments = [event["arguments"] for event in named(events, "watchdog") if event["action"] == "install"]
        self.assertEqual(arguments, [["--watchdog", "-a", "b c"]] * 2)

    def test_the_first_launch_is_the_users_the_watchdogs_or_none(self):
        self.assertEqual(names(play(setup={"launch": "user"})), ["remove", "watchdog"])
        self.assertEqual(names(play(setup={"launch": "watchdog"})), ["remove", "watchdog", "terminateApplication"])
        self.assertEqual(play(setup={"launch": "none"}), [])
        world = [{"do": "disk", "full": True}, {"do": "relay", "up": False},
                 {"do": "browser", "kind": "chrome", "answers": "denied"}]
        self.assertEqual(play(*world, setup={"launch": "none"}), [])
        self.assertEqual(names(play({"do": "crash"}, *world))[-3:], ["ignored"] * 3)
        self.assertEqual(names(play({"do": "addThought", "text": "x"}, {"do": "relaunch"}, setup={"launch": "none"})),
                         ["ignored", "remove", "watchdog"])


class TimeTest(unittest.TestCase):
    def test_advance_fires_every_timer_on_its_way(self):
        events = play(START, advance(2.5), options=["--ticks"])
        self.assertEqual([event["t"] for event in named(events, "tick")], [0, 1, 2])

    def test_in_a_sleep_no_timer_fires_until_it_wakes(self):
        events = play(START, advance(0.5), {"do": "sleep", "seconds": 100}, advance(2), options=["--ticks"])
        self.assertEqual([event["t"] for event in named(events, "tick")], [0, 100.5, 101.5, 102.5])

    def test_a_plan_goes_on_through_a_sleep(self):
        shown = state(START, {"do": "sleep", "seconds": 1600})
        self.assertEqual(shown["status"]["kind"], "shortBreak")

    def test_set_clock_moves_the_wall_clock_only(self):
        shown = state(START, {"do": "setClock", "by": 600}, advance(1))
        self.assertEqual((shown["t"], shown["status"]["remainingInSegment"]), (1, 899))
        shown = state(START, {"do": "setClock", "by": -600}, advance(1))
        self.assertEqual((shown["t"], shown["status"]["remainingInSegment"]), (1, 1500))


class ApplicationsTest(unittest.TestCase):
    def test_launch_starts_an_application_behind_or_in_front(self):
        events = play(START, advance(3), {"do": "launch", "app": CHAT})
        self.assertEqual(log(events)[-2:], ["blocked launch org.example.chat", "attempt 1 target=Chat pause=5"])
        # In front it is activated, too, and asked a second time.
        self.assertEqual(len(named(events, "terminate")), 1)
        events = play(START, advance(3), {"do": "launch", "app": CHAT, "front": True})
        self.assertEqual(len(named(events, "terminate")), 2)

    def test_an_application_without_an_identifier_gets_an_unused_one(self):
        self.assertEqual([app["pid"] for app in state({"do": "launch", "app": {}})["applications"]], [10, 11, 12])

    def test_activate_brings_to_the_front_and_shows(self):
        shown = state({"do": "activate", "pid": 11}, {"do": "activate", "pid": 10}, START, {"do": "activate", "pid": 99})
        self.assertTrue(hidden(shown, 11))
        events = play(START, advance(3), {"do": "activate", "pid": 11}, {"do": "show"})
        self.assertEqual(names(after(events, 3)), ["hide", "log", "save", "overlay", "sound", "log", "state"])

    def test_unhide_shows_behind_the_front(self):
        events = play(START, {"do": "unhide", "pid": 11}, {"do": "show"}, advance(1))
        self.assertFalse(hidden(named(events, "state")[0], 11))
        self.assertEqual(after(events, 1), [{"event": "hide", "pid": 11},
                                            {"event": "log", "text": "hid org.example.game"}])

    def test_quit_ends_even_what_never_quits(self):
        stubborn = {**CHAT, "quits": "never"}
        events = play(START, advance(3), {"do": "launch", "app": stubborn}, advance(7), {"do": "show"},
                      {"do": "quit", "pid": 12}, {"do": "show"})
        self.assertEqual(len(named(events, "terminate")), 6)
        before, behind = [[app["pid"] for app in shown["applications"]] for shown in named(events, "state")]
        self.assertEqual((before, behind), ([10, 11, 12], [10, 11]))

    def test_front_can_be_taken_from_everybody(self):
        # With nobody in front nothing is enforced, however long the game has been shown.
        nobody = [START, advance(3), {"do": "front", "pid": None}, {"do": "unhide", "pid": 11}, advance(5)]
        self.assertEqual(after(play(*nobody), 3), [])
        events = play(*nobody, {"do": "front", "pid": 11})
        self.assertEqual(after(events, 3)[0], {"event": "hide", "pid": 11})

    def test_the_programs_own_process_can_be_activated_but_is_not_listed(self):
        own = {"do": "activate", "pid": 2000000000}
        events = play(START, advance(3), own, advance(3), {"do": "show"})
        self.assertEqual(names(after(events, 3)), ["state"])
        self.assertEqual([app["pid"] for app in events[-1]["applications"]], [10, 11])


class BrowserTest(unittest.TestCase):
    start = {**START, "profile": RESEARCH}

    def browse(self, *steps, answers, after_seconds=None, **more):
        step = {"do": "browser", "kind": "chrome", "answers": answers, **more}
        if after_seconds is not None:
            step["after"] = after_seconds
        return play(step, self.start, *steps, setup=BROWSING)

    def test_tabs_are_judged_after_their_time_and_blanked(self):
        tabs = {"tabs": [["12", "https://news.example.com/"], ["13", "https://example.org/"]]}
        events = self.browse(advance(8), answers=tabs, after_seconds=0.5)
        self.assertEqual([(event["t"], event["what"]) for event in named(events, "script")],
                         [(1, "listTabs"), (1.5, "blankTab"), (3, "listTabs"), (5, "listTabs"), (7, "listTabs")])
        self.assertEqual(log(events)[-1], "blocked site in Chrome: news.example.com")

    def test_a_stubborn_tab_is_found_again(self):
        tabs = {"tabs": [["12", "https://news.example.com/"]]}
        for answers, more in [(tabs, {"stubborn": True}), ({**tabs, "stubborn": True}, {})]:
            events = self.browse(advance(4), answers=answers, **more)
            blanked = [event["t"] for event in named(events, "script") if event["what"] == "blankTab"]
            self.assertEqual(blanked, [1.1, 3.1])

    def test_denied_locks_the_browser(self):
        events = self.browse(advance(5), answers="denied", after_seconds=0.5)
        self.assertIn("automation denied for Chrome", log(events))
        self.assertEqual(named(events, "hide")[-1], {"t": 1.5, "event": "hide", "pid": 20})

    def test_no_answer_is_asked_again_with_the_same_patience(self):
        events = self.browse(advance(5), answers="noAnswer")
        self.assertEqual([(event["t"], event["timeout"]) for event in named(events, "script")],
                         [(1, 90), (3, 90), (5, 90)])

    def test_a_script_ends_at_its_limit(self):
        # It was sent at 1 and is given up at 91, just before the tick of that moment, which asks again.
        events = self.browse(advance(100), answers={"tabs": []}, after_seconds=1000)
        self.assertEqual([event["t"] for event in named(events, "script")], [1, 91])


class SessionTest(unittest.TestCase):
    def test_start_trims_the_intent_and_fills_up_the_profile(self):
        session = state({"do": "start", "profile": {"mode": "deep"}, "intent": " write\n"})["session"]
        self.assertEqual((session["intent"], session["mode"], session["profileName"]), ("write", "deep", ""))
        self.assertEqual(sum(segment["duration"] for segment in session["segments"]), 10800)
        self.assertEqual(state({"do": "start", "profile": {}})["session"]["intent"], "")

    def test_return_to_work_and_dismiss_take_the_overlay_down(self):
        push = [START, advance(3), {"do": "activate", "pid": 11}]
        shown = state(*push, {"do": "returnToWork"})
        self.assertEqual((shown["overlay"], shown["returns"]), ({"state": "none"}, 1))
        shown = state(*push, {"do": "dismiss"})
        self.assertEqual((shown["overlay"], shown["returns"]), ({"state": "none"}, 0))

    def test_the_exit_is_opened_cancelled_and_confirmed(self):
        begin, cancel = {"do": "beginEmergencyExit"}, {"do": "cancelEmergencyExit"}
        confirm = {"do": "confirmEmergencyExit", "reason": "The fire alarm has gone off"}
        self.assertEqual(state(START, begin)["overlay"], {"state": "emergencyExit", "waitUntil": 800000060})
        self.assertEqual(state(START, begin, cancel)["overlay"], {"state": "none"})
        self.assertEqual(state(START, begin, confirm)["history"], [])
        self.assertEqual(state(START, begin, advance(60), confirm)["history"][0]["exitReason"],
                         "The fire alarm has gone off")

    def test_thoughts_are_added_and_replaced(self):
        added = state({"do": "addThought", "text": " first "}, {"do": "addThought", "text": "second"})["thoughts"]
        self.assertEqual([thought["text"] for thought in added], ["second", "first"])
        done = [{**added[1], "done": True}]
        replaced = state({"do": "addThought", "text": "x"}, advance(5), {"do": "setThoughts", "thoughts": done})
        self.assertEqual(replaced["thoughts"], [{**done[0], "updatedAt": 800000005}])

    def test_settings_change_only_what_is_named(self):
        events = play({"do": "settings", "set": {"focusOnShortcut": "Quiet"}},
                      {"do": "settings", "set": {"useFocusShortcuts": True}}, START)
        self.assertEqual(named(events, "shortcut")[0]["name"], "Quiet")
        self.assertEqual([event["file"] for event in named(events, "save")][:2], ["settings.json"] * 2)

    def test_a_history_is_cleared_and_restored(self):
        ended = [{**START, "profile": {"pomodoro": {"workMinutes": 1, "totalCycles": 1}}}, advance(3000)]
        self.assertEqual(len(state(*ended)["history"]), 1)
        self.assertEqual(state(*ended, {"do": "clearHistory"})["history"], [])
        self.assertEqual(len(state(*ended, {"do": "clearHistory"}, {"do": "restoreHistory"})["history"]), 1)


class ProcessTest(unittest.TestCase):
    def test_a_crash_saves_nothing_and_a_relaunch_takes_the_session_up(self):
        events = play(START, advance(10), {"do": "crash"}, advance(10), {"do": "relaunch", "watchdog": True})
        self.assertEqual(names(after(events, 10)), ["watchdog", "sessionChange", "log", "log", "sessionBegan"])
        self.assertEqual(log(events)[-1], "session resumed")

    def test_the_watchdogs_process_ends_where_nothing_is_left_to_guard(self):
        relaunch = {"do": "relaunch", "watchdog": True}
        self.assertEqual(names(play({"do": "crash"}, relaunch))[2:], ["remove", "watchdog", "terminateApplication"])
        self.assertEqual(names(play({"do": "crash"}, {"do": "relaunch"}))[2:], ["remove", "watchdog"])

    def test_a_second_instance_ends_and_the_first_goes_on(self):
        events = play(START, {"do": "relaunch"}, advance(3), {"do": "activate", "pid": 11})
        self.assertEqual(len(named(events, "terminateApplication")), 1)
        self.assertEqual(named(events, "overlay")[-1]["state"], "warning")

    def test_only_the_end_of_the_system_ends_a_session(self):
        ask = {"do": "askToQuit"}
        self.assertEqual(names(play(ask))[-1], "terminateApplication")
        self.assertNotIn("terminateApplication", names(play(START, ask)))
        self.assertEqual(names(play(START, {"do": "powerOff"}))[-1], "sessionBegan")
        self.assertEqual(names(play(START, {"do": "powerOff"}, ask))[-1], "terminateApplication")

    def test_without_a_program_its_steps_are_ignored_and_the_others_are_not(self):
        ignored = [START, {"do": "browser", "kind": "chrome", "answers": "denied"}, {"do": "returnToWork"},
                   {"do": "beginEmergencyExit"}, {"do": "cancelEmergencyExit"},
                   {"do": "confirmEmergencyExit", "reason": "x"}, {"do": "dismiss"}, {"do": "addThought", "text": "x"},
                   {"do": "setThoughts", "thoughts": []}, {"do": "settings", "set": {}}, {"do": "clearHistory"},
                   {"do": "restoreHistory"}, {"do": "crash"}, {"do": "powerOff"}, {"do": "askToQuit"},
                   {"do": "disk", "full": True}, {"do": "pair"}, {"do": "unpair"}, {"do": "relay", "up": False},
                   {"do": "phone", "status": {}}]
        others = [advance(1), {"do": "sleep", "seconds": 1}, {"do": "setClock", "by": 1}, {"do": "launch", "app": CHAT},
                  {"do": "activate", "pid": 11}, {"do": "unhide", "pid": 11}, {"do": "quit", "pid": 11},
                  {"do": "front", "pid": None}]
        events = play({"do": "crash"}, *ignored, *others, {"do": "show"}, {"do": "relaunch"})
        self.assertEqual(events[2:-3], [{"t": 0, "event": "ignored", "do": step["do"]} for step in ignored])
        shown = events[-3]
        self.assertEqual((shown["t"], shown["session"], shown["history"], shown["overlay"]), (2, None, None, None))
        self.assertEqual([app["pid"] for app in shown["applications"]], [10, 12])

    def test_a_full_disk_fails_saves_until_there_is_room(self):
        full, empty = {"do": "disk", "full": True}, {"do": "disk", "full": False}
        events = play(full, START, empty, {"do": "addThought", "text": "x"})
        self.assertEqual([event["file"] for event in named(events, "saveFailed")], ["active-session.json"] * 2)
        self.assertTrue(named(events, "log")[0]["lost"])
        self.assertEqual(names(events)[-2:], ["save", "log"])
        self.assertEqual(events[-1], {"t": 0, "event": "log", "text": "thought parked"})


class PhoneTest(unittest.TestCase):
    def test_a_pairing_waits_for_the_phone_and_is_forgotten(self):
        self.assertEqual(state({"do": "pair"})["pairingState"], "waitingForPhone")
        self.assertEqual(state(*PAIRED)["pairingState"], "paired")
        self.assertEqual(state(*PAIRED, {"do": "unpair"})["pairingState"], "notPaired")

    def test_a_status_is_sealed_as_the_phone_would(self):
        lock = {**APPLICATIONS, "settings": {"lockPhoneToo": True}}
        session = state(*PAIRED, START, setup=lock)["session"]["id"]
        status = {"do": "phone", "status": {"type": "locked", "id": session}}
        self.assertEqual(state(*PAIRED, START, status, setup=lock)["lockState"], "locked")
        self.assertEqual(log(play(*PAIRED, {"do": "phone", "status": 5}))[-1], "ignored a phone message")

    def test_without_a_pairing_the_phone_has_nothing_to_say(self):
        self.assertEqual(play({"do": "phone", "status": {"type": "hello"}})[-1],
                         {"t": 0, "event": "ignored", "do": "phone"})

    def test_a_relay_that_is_down_is_tried_again(self):
        lock = {**APPLICATIONS, "settings": {"lockPhoneToo": True}}
        events = play(*PAIRED, {"do": "relay", "up": False}, START, advance(6), {"do": "relay", "up": True}, advance(5),
                      setup=lock)
        self.assertEqual([event["t"] for event in named(events, "post")], [0, 5, 10])
        self.assertEqual([event["t"] for event in named(events, "listen")], [0, 5, 10])
        self.assertEqual(log(events)[-1], "phone command sent")


if __name__ == "__main__":
    simulation.main()
