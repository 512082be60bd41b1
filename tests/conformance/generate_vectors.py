#!/usr/bin/env python3
"""Writes the vectors: requests to the conformance driver with the answers they must get.

    generate_vectors.py [DIRECTORY]

Each file of the directory (`vectors` next to this program) holds one JSON
object per line: `name`, `request`, `answer`. The answers come from
`reference.py`. Where a case stands for a rule, the answer was also worked out
by hand and stands in the case as `expect`; the program stops if the two differ.
The random cases have fixed seeds: a second run writes the same files, given the
same time zone data.

In `decode` cases keep away from fractions below 1e-4 or above 1e15: whether
those are written with an exponent is not fixed.
"""

import datetime
import json
import os
import random
import sys
import zoneinfo

import reference

HERE = os.path.dirname(os.path.abspath(__file__))

NOTHING_EXPECTED = object()


class Vectors:
    """The cases of one file."""

    def __init__(self, file_name):
        self.file_name = file_name
        self.lines = []

    def case(self, name, op, expect=NOTHING_EXPECTED, **arguments):
        """Add one case; returns the value it must have."""
        request = dict(op=op, **arguments)
        text = reference.write(reference.answer(json.dumps(request).encode("utf-8")))
        answer = json.loads(text)
        if "value" not in answer:
            sys.exit("%s: %s: %s" % (self.file_name, name, answer))
        if expect is not NOTHING_EXPECTED and answer["value"] != expect:
            sys.exit("%s: %s: %s instead of %s" % (self.file_name, name, answer, expect))
        vector = {"name": name, "request": request, "answer": answer}
        self.lines.append(json.dumps(vector, ensure_ascii=False, separators=(",", ":")))
        return answer["value"]

    def decode(self, name, type_name, text, expect=NOTHING_EXPECTED):
        return self.case(name, "decode", expect, type=type_name, text=text)

    def write(self, directory):
        with open(os.path.join(directory, self.file_name), "w", encoding="utf-8", newline="\n") as file:
            for line in self.lines:
                file.write(line + "\n")


class Draws:
    """Seeded draws, all made from random(): only its sequence is promised to stay."""

    def __init__(self, seed):
        self.source = random.Random(seed)

    def below(self, bound):
        """A whole number from 0 up to, not including, `bound`."""
        return int(self.source.random() * bound)

    def between(self, low, high):
        """A whole number, both ends included."""
        return low + self.below(high - low + 1)

    def one(self, choices):
        return choices[self.below(len(choices))]

    def chance(self, probability):
        return self.source.random() < probability

    def fraction(self):
        return self.source.random()

    def shuffled(self, items):
        items = list(items)
        for index in range(len(items) - 1, 0, -1):
            other = self.below(index + 1)
            items[index], items[other] = items[other], items[index]
        return items

    def uuid(self):
        return "-".join("".join(self.one("0123456789ABCDEF") for _ in range(n)) for n in (8, 4, 4, 4, 12))

    def seconds(self, low, high):
        """A date or length: whole, or with a fraction of one of several finenesses."""
        value = low + self.fraction() * (high - low)
        digits = self.one([None, 0, 0, 1, 3, 6])
        return value if digits is None else tidy(round(value, digits))


def tidy(number):
    """A float without a fraction as an int, for shorter vectors."""
    return int(number) if number == int(number) else number


# ---------------------------------------------------------------------------
# Building requests

# 2026-03-01 00:00:00 UTC, a Sunday, in seconds since 2001.
START = 794016000
MINUTE = 60

LETTERS = {"W": "work", "S": "shortBreak", "L": "longBreak", "B": "lockedBreak"}


def plan(text):
    """Segments from a text such as "W25 S5": letters of the kinds, lengths in minutes."""
    return [
        {"kind": LETTERS[part[0]], "duration": tidy(float(part[1:]) * MINUTE)} for part in text.split()
    ]


DEFAULT_POMODORO_PLAN = plan("W25 S5 W25 S5 W25 S5 W25 L15")
DEFAULT_DEEP_PLAN = plan("W60 B5 W60 B5 W50")


def pomodoro(work=25, short=5, long=15, every=4, total=4):
    return {
        "workMinutes": work,
        "shortBreakMinutes": short,
        "longBreakMinutes": long,
        "cyclesBeforeLongBreak": every,
        "totalCycles": total,
    }


def deep(total=180, every=60, pause=5):
    return {"totalMinutes": total, "breakEveryMinutes": every, "breakMinutes": pause}


def profile(**changes):
    result = {
        "id": "6F1C1E0B-52D3-4E5A-9B0C-8A4F7E2D1C3B",
        "name": "Writing",
        "allowedApps": [{"bundleID": "a.editor", "name": "Editor"}],
        "allowedDomains": ["example.org"],
        "mode": "pomodoro",
        "pomodoro": pomodoro(),
        "deep": deep(),
    }
    result.update(changes)
    return result


def session(**changes):
    result = {
        "id": "0D9E3C52-7B1A-4F60-8E2D-3C5B7A9F1E04",
        "profileName": "Writing",
        "mode": "pomodoro",
        "intent": "chapter 2",
        "startedAt": START,
        "segments": DEFAULT_POMODORO_PLAN,
        "allowedBundleIDs": ["a.editor"],
        "allowedDomains": ["example.org"],
        "attempts": 3,
        "returns": 2,
        "hiddenBundleIDs": ["a.chat"],
    }
    result.update(changes)
    return result


def deep_session(**changes):
    return session(**dict({"mode": "deep", "segments": DEFAULT_DEEP_PLAN}, **changes))


def record(name, started_at, focused, number=0, **changes):
    """A record of a deep session; `number` tells records apart."""
    result = {
        "id": "00000000-0000-4000-8000-%012d" % number,
        "profileName": name,
        "mode": "deep",
        "intent": "",
        "startedAt": started_at,
        "endedAt": tidy(started_at + 3600),
        "focusedSeconds": focused,
        "attempts": 0,
        "returns": 0,
        "outcome": "completed",
    }
    result.update(changes)
    return result


def records(*rows):
    """Records from (name, startedAt, focusedSeconds) rows."""
    return [record(*row, number=number) for number, row in enumerate(rows, 1)]


def without(value, key):
    return {name: member for name, member in value.items() if name != key}


def text_of(value):
    """A value as JSON text with blanks, unlike what the store writes."""
    return json.dumps(value, ensure_ascii=False)


def moment(zone, *fields, fold=0):
    """The date of a local time, in seconds since 2001."""
    local = datetime.datetime(*fields, tzinfo=zoneinfo.ZoneInfo(zone), fold=fold)
    return int(local.timestamp()) - reference.EPOCH_2001


# ---------------------------------------------------------------------------
# Plans and positions

WHOLE_64_BIT = 2 ** 63


def schedule_plans(vectors):
    def pomodoro_case(name, config, expect):
        vectors.case(name, "Schedule.pomodoro", plan(expect), config=config)

    def deep_case(name, config, expect):
        vectors.case(name, "Schedule.deep", plan(expect), config=config)

    pomodoro_case("default pomodoro plan", pomodoro(), "W25 S5 W25 S5 W25 S5 W25 L15")
    pomodoro_case(
        "pomodoro with all fields 0: one work and one long break of a minute",
        pomodoro(0, 0, 0, 0, 0),
        "W1 L1",
    )
    pomodoro_case(
        "pomodoro with all fields negative is like all fields 0",
        pomodoro(-1, -5, -9, -4, -WHOLE_64_BIT),
        "W1 L1",
    )
    pomodoro_case("3 cycles, long break every 4: ends on work", pomodoro(total=3), "W25 S5 W25 S5 W25")
    pomodoro_case(
        "5 cycles, long break every 2", pomodoro(every=2, total=5), "W25 S5 W25 L15 W25 S5 W25 L15 W25"
    )
    pomodoro_case(
        "4 cycles, long break every 2: ends in a long break",
        pomodoro(every=2),
        "W25 S5 W25 L15 W25 S5 W25 L15",
    )
    pomodoro_case(
        "long break every 1: no short breaks", pomodoro(every=1, total=3), "W25 L15 W25 L15 W25 L15"
    )
    pomodoro_case("long break every 0 is like every 1", pomodoro(every=0, total=2), "W25 L15 W25 L15")
    pomodoro_case("one cycle ends on work", pomodoro(total=1), "W25")
    pomodoro_case("total 0 is one cycle", pomodoro(total=0), "W25")
    pomodoro_case(
        "long break after more cycles than any number",
        pomodoro(every=WHOLE_64_BIT - 1, total=2),
        "W25 S5 W25",
    )
    pomodoro_case("each of the three lengths is raised on its own", pomodoro(0, 7, 0, 2, 2), "W1 S7 W1 L1")
    vectors.case(
        "minutes become seconds as floats and do not overflow",
        "Schedule.pomodoro",
        [{"kind": "work", "duration": WHOLE_64_BIT * 60}],
        config=pomodoro(work=WHOLE_64_BIT - 1, total=1),
    )
    vectors.case(
        "whole numbers written with a fraction or an exponent are integers",
        "Schedule.pomodoro",
        plan("W25 S5 W25"),
        config=pomodoro(25.0, 5.0, 15.0, 4e0, 2.0),
    )

    deep_case("default deep plan", deep(), "W60 B5 W60 B5 W50")
    deep_case("deep with break length 0: one block", deep(pause=0), "W180")
    deep_case("deep with negative break length: one block", deep(pause=-5), "W180")
    deep_case("deep with break every 0: one block", deep(every=0), "W180")
    deep_case("deep with negative break interval: one block", deep(every=-60), "W180")
    deep_case("deep with total 0: 60 seconds", deep(total=0), "W1")
    deep_case("deep with negative total: 60 seconds", deep(total=-WHOLE_64_BIT), "W1")
    deep_case("deep with all fields 0: 60 seconds", deep(0, 0, 0), "W1")
    deep_case("deep with total equal to the break interval: no break", deep(total=60), "W60")
    deep_case("deep with total below the break interval: no break", deep(total=45), "W45")
    deep_case("deep 120 every 60 break 5: the last block is shorter", deep(total=120), "W60 B5 W55")
    deep_case("deep 65: what is left equals the break and is merged", deep(total=65), "W65")
    deep_case("deep 64: what is left is shorter than the break and is merged", deep(total=64), "W64")
    deep_case("deep 66: what is left is longer than the break", deep(total=66), "W60 B5 W1")
    deep_case("deep 125: the second block ends the plan exactly", deep(total=125), "W60 B5 W60")
    deep_case(
        "deep 130: the merge makes the last block longer than the interval", deep(total=130), "W60 B5 W65"
    )
    deep_case("deep with breaks longer than work", deep(30, 1, 9), "W1 B9 W1 B9 W10")
    deep_case("deep of one-minute blocks and breaks", deep(5, 1, 1), "W1 B1 W1 B1 W1")
    deep_case("deep of one-minute blocks and breaks, even total", deep(6, 1, 1), "W1 B1 W1 B1 W2")
    vectors.case(
        "total duration of a deep plan is its total",
        "Schedule.totalDuration",
        10800,
        segments=DEFAULT_DEEP_PLAN,
    )
    vectors.case(
        "total duration of the default pomodoro plan",
        "Schedule.totalDuration",
        7800,
        segments=DEFAULT_POMODORO_PLAN,
    )
    vectors.case("total duration of an empty list is 0", "Schedule.totalDuration", 0, segments=[])
    vectors.case(
        "total duration adds in list order",
        "Schedule.totalDuration",
        0.1 + 0.2 + 0.3,
        segments=[{"kind": "work", "duration": length} for length in (0.1, 0.2, 0.3)],
    )


def position(index, kind, in_segment, in_total, finished, locked):
    return {
        "segmentIndex": index,
        "kind": kind,
        "remainingInSegment": in_segment,
        "remainingTotal": in_total,
        "isFinished": finished,
        "isLocked": locked,
    }


def schedule_positions(vectors):
    def status_case(name, segments, elapsed, *expect):
        vectors.case(
            name,
            "Schedule.status",
            position(*expect),
            segments=segments,
            startedAt=START,
            now=START + elapsed,
        )

    pomodoros, deeps = DEFAULT_POMODORO_PLAN, DEFAULT_DEEP_PLAN
    status_case("status at the start", pomodoros, 0, 0, "work", 1500, 7800, False, True)
    status_case(
        "status one instant before a segment's end is in that segment",
        pomodoros,
        1499.5,
        0,
        "work",
        0.5,
        6300.5,
        False,
        True,
    )
    status_case(
        "status within 0.01 of a segment's end has no tolerance",
        pomodoros,
        1500 - 2 ** -8,
        0,
        "work",
        2 ** -8,
        6300 + 2 ** -8,
        False,
        True,
    )
    status_case(
        "status at a segment's end is in the next, with its full length",
        pomodoros,
        1500,
        1,
        "shortBreak",
        300,
        6300,
        False,
        False,
    )
    status_case(
        "status in the trailing long break is not locked",
        pomodoros,
        7000,
        7,
        "longBreak",
        800,
        800,
        False,
        False,
    )
    status_case(
        "status at the plan's end is finished, at the last index",
        pomodoros,
        7800,
        7,
        "longBreak",
        0,
        0,
        True,
        False,
    )
    status_case("status long after the plan's end", pomodoros, 1000000, 7, "longBreak", 0, 0, True, False)
    status_case(
        "status before the start is at the start", pomodoros, -100, 0, "work", 1500, 7800, False, True
    )
    status_case("a locked break is locked", deeps, 3600, 1, "lockedBreak", 300, 7200, False, True)
    status_case(
        "a finished plan is not locked, though it ends on work", deeps, 10800, 4, "work", 0, 0, True, False
    )
    status_case("status of an empty list: index 0, work, finished", [], 5, 0, "work", 0, 0, True, False)
    status_case("status of an empty list before the start", [], -5, 0, "work", 0, 0, True, False)
    empty_between = plan("W1 S0 W1")
    status_case("a segment of no length is passed over", empty_between, 60, 2, "work", 60, 60, False, True)
    status_case(
        "a plan of no length is finished at once", plan("W0 B0"), 0, 1, "lockedBreak", 0, 0, True, False
    )

    def finished_case(name, segments, elapsed, expect):
        vectors.case(
            name,
            "Schedule.finishedWork",
            plan(expect),
            segments=segments,
            startedAt=START,
            now=START + elapsed,
        )

    finished_case(
        "finished work 0.005 s before a block's end includes the block", pomodoros, 1500 - 0.005, "W25"
    )
    finished_case("finished work 0.02 s before a block's end does not", pomodoros, 1500 - 0.02, "")
    finished_case("finished work at a block's end", pomodoros, 1500, "W25")
    finished_case("finished work in the middle of a block leaves it out", pomodoros, 2500, "W25")
    finished_case("finished work after a plan is all its work", pomodoros, 9000, "W25 W25 W25 W25")
    finished_case("finished work of a deep plan has no locked breaks", deeps, 9000, "W60 W60")
    finished_case("finished work before the start is empty", pomodoros, -1, "")
    finished_case("finished work of an empty list is empty", [], 1000, "")
    finished_case("a first block of no length is finished before the start", plan("W0 S5 W5"), -1, "W0")

    def focused_case(name, segments, elapsed, expect):
        vectors.case(
            name, "Schedule.focusedSeconds", expect, segments=segments, startedAt=START, now=START + elapsed
        )

    focused_case("focused seconds at the start", deeps, 0, 0)
    focused_case("focused seconds in a block count its elapsed part", deeps, 100.5, 100.5)
    focused_case("focused seconds at the beginning of a locked break", deeps, 3600, 3600)
    focused_case("focused seconds in a locked break stay constant", deeps, 3750.25, 3600)
    focused_case("focused seconds at the end of a locked break", deeps, 3900, 3600)
    focused_case("focused seconds in the second block", deeps, 4200, 3900)
    focused_case("focused seconds of a block that finished work leaves out", pomodoros, 2500, 2200)
    focused_case("focused seconds beyond the plan add nothing", deeps, 99999, 10200)
    focused_case("focused seconds before the start", deeps, -50, 0)
    focused_case("focused seconds of an empty list", [], 1000, 0)


def random_segments(draws, most=7):
    """Any list of segments: also of no length, and now and then one below it."""
    segments = []
    for _ in range(draws.below(most + 1)):
        duration = draws.one(
            [
                draws.between(1, 90) * MINUTE,
                draws.between(1, 90) * MINUTE,
                draws.seconds(0.001, 600),
                0,
                1 - draws.between(1, 200) / 8,
            ]
        )
        segments.append({"kind": draws.one(list(LETTERS.values())), "duration": tidy(duration)})
    return segments


def random_elapsed(draws, segments):
    """A time in, near or around a plan, with a liking for the borders of segments."""
    total = sum(part["duration"] for part in segments)
    if segments and draws.chance(0.5):
        border = sum(part["duration"] for part in segments[: draws.between(1, len(segments))])
        return border + draws.one([0, 0, 0.005, -0.005, -0.02, 1, -1, 2 ** -20])
    return draws.seconds(-100, abs(total) * 1.2 + 10)


def random_start(draws):
    return draws.seconds(0, 800000000)


def schedule_random(vectors):
    draws = Draws(11)
    for number in range(20):
        config = pomodoro(
            *[draws.between(-1, 60) for _ in range(3)], draws.between(-1, 7), draws.between(-1, 9)
        )
        vectors.case("random pomodoro plan %d" % number, "Schedule.pomodoro", config=config)
    for number in range(25):
        config = deep(draws.between(-1, 300), draws.between(-1, 90), draws.between(-1, 30))
        vectors.case("random deep plan %d" % number, "Schedule.deep", config=config)
    for number in range(54):
        segments = random_segments(draws)
        started_at = random_start(draws)
        now = tidy(started_at + random_elapsed(draws, segments))
        op = ("status", "finishedWork", "focusedSeconds")[number % 3]
        vectors.case(
            "random %s %d" % (op, number), "Schedule." + op, segments=segments, startedAt=started_at, now=now
        )


def schedule_vectors():
    vectors = Vectors("schedule.jsonl")
    schedule_plans(vectors)
    schedule_positions(vectors)
    schedule_random(vectors)
    return vectors


# ---------------------------------------------------------------------------
# Profiles


def profile_vectors():
    vectors = Vectors("profile.jsonl")
    vectors.case(
        "segments of a pomodoro profile", "Profile.segments", DEFAULT_POMODORO_PLAN, profile=profile()
    )
    vectors.case(
        "segments of a deep profile", "Profile.segments", DEFAULT_DEEP_PLAN, profile=profile(mode="deep")
    )
    vectors.case(
        "a stored 0 is raised when the plan is built",
        "Profile.segments",
        plan("W1 L1"),
        profile=profile(pomodoro=pomodoro(0, 0, 0, 0, 0)),
    )

    def default_case(title, expect, **changes):
        vectors.case(title, "Profile.hasDefaultTimings", expect, profile=profile(**changes))

    default_case("a new profile has the default timings", True)
    default_case(
        "names and lists do not count as timings",
        True,
        name="x",
        mode="deep",
        allowedApps=[],
        allowedDomains=[],
    )
    default_case("a changed deep config in deep mode", False, mode="deep", deep=deep(total=90))
    default_case("the timing of the mode not in use counts: deep", False, deep=deep(pause=6))
    default_case(
        "the timing of the mode not in use counts: pomodoro", False, mode="deep", pomodoro=pomodoro(total=5)
    )
    for key in pomodoro():
        default_case("one other value is enough: " + key, False, pomodoro=dict(pomodoro(), **{key: 99}))
    for key in deep():
        default_case("one other value is enough: " + key, False, deep=dict(deep(), **{key: 99}))

    changed = profile(mode="deep", pomodoro=pomodoro(1, 2, 3, 4, 5), deep=deep(7, 8, 9))
    reset = vectors.case(
        "resetting the timings touches nothing else",
        "Profile.resetTimings",
        profile(mode="deep"),
        profile=changed,
    )
    vectors.case(
        "after resetting, the timings are the defaults", "Profile.hasDefaultTimings", True, profile=reset
    )
    vectors.case(
        "resetting what is at its defaults changes nothing",
        "Profile.resetTimings",
        profile(),
        profile=profile(),
    )
    vectors.case(
        "the id is given back in upper case",
        "Profile.resetTimings",
        profile(),
        profile=profile(id=profile()["id"].lower()),
    )
    profile_random(vectors)
    return vectors


def random_profile(draws):
    apps = [{"bundleID": random_text(draws), "name": random_text(draws)} for _ in range(draws.below(3))]
    return {
        "id": draws.uuid(),
        "name": random_text(draws),
        "allowedApps": apps,
        "allowedDomains": [random_text(draws) for _ in range(draws.below(3))],
        "mode": draws.one(["pomodoro", "deep"]),
        "pomodoro": pomodoro(
            *[draws.one([usual, draws.between(-2, 99)]) for usual in (25, 5, 15)],
            draws.between(0, 5),
            draws.between(0, 6),
        )
        if draws.chance(0.7)
        else pomodoro(),
        "deep": deep(
            draws.between(0, 200), draws.between(0, 99), draws.between(0, 20)
        ) if draws.chance(0.7) else deep(),
    }


def profile_random(vectors):
    draws = Draws(12)
    for number in range(50):
        op = ("segments", "hasDefaultTimings", "resetTimings", "segments")[number % 4]
        vectors.case("random %s %d" % (op, number), "Profile." + op, profile=random_profile(draws))


# ---------------------------------------------------------------------------
# The running session


def session_vectors():
    vectors = Vectors("session.jsonl")

    def done_case(name, expect, elapsed, **changes):
        vectors.case(
            name, "ActiveSession.isAllWorkDone", expect, session=session(**changes), at=START + elapsed
        )

    done_case("work not done in the last block before a long break", False, 6899.5)
    done_case("work done from the moment the trailing long break begins", True, 6900)
    done_case("work done in the trailing long break", True, 7500)
    done_case("work done after the end", True, 9000)
    done_case("work not done in a short break that has work after it", False, 1600)
    done_case("work not done before the start", False, -10)
    ends_on_work = plan("W25 S5 W25")
    done_case("plan ending on work: not done in its last block", False, 3299, segments=ends_on_work)
    done_case("plan ending on work: done when it has finished", True, 3300, segments=ends_on_work)
    done_case(
        "work not done in a locked break with work after it",
        False,
        3700,
        mode="deep",
        segments=DEFAULT_DEEP_PLAN,
    )
    done_case("work done at once where the plan has none", True, 0, segments=plan("S5 L15"))
    done_case("work done in an empty plan", True, 0, segments=[])

    def fraction_case(name, expect, elapsed, **changes):
        vectors.case(
            name, "ActiveSession.remainingFraction", expect, session=session(**changes), at=START + elapsed
        )

    fraction_case("remaining fraction at the start is 1", 1, 0)
    fraction_case("remaining fraction half way", 0.5, 3900)
    fraction_case("remaining fraction before the start stays 1", 1, -3600)
    fraction_case("remaining fraction at the planned end is 0", 0, 7800)
    fraction_case("remaining fraction after the planned end is 0", 0, 8000)
    fraction_case("remaining fraction of an empty plan is 0", 0, 0, segments=[])
    fraction_case("remaining fraction of a plan of no length is 0", 0, -5, segments=plan("W0 S0"))

    vectors.case("planned end", "ActiveSession.plannedEnd", START + 7800, session=session())
    vectors.case(
        "planned end of an empty plan is the start",
        "ActiveSession.plannedEnd",
        START,
        session=session(segments=[]),
    )
    vectors.case("exit wait of a pomodoro session", "ActiveSession.exitWaitSeconds", 60, session=session())
    vectors.case("exit wait of a deep session", "ActiveSession.exitWaitSeconds", 180, session=deep_session())
    vectors.case(
        "exit wait whatever the plan's length",
        "ActiveSession.exitWaitSeconds",
        180,
        session=deep_session(segments=[]),
    )
    vectors.case(
        "status of a session is that of its plan",
        "ActiveSession.status",
        position(1, "lockedBreak", 200, 7100, False, True),
        session=deep_session(),
        at=START + 3700,
    )
    session_random(vectors)
    return vectors


def random_session(draws, segments):
    return session(
        id=draws.uuid(),
        profileName=random_text(draws),
        mode=draws.one(["pomodoro", "deep"]),
        intent=random_text(draws),
        startedAt=random_start(draws),
        segments=segments,
        allowedBundleIDs=[],
        allowedDomains=[],
        attempts=draws.below(20),
        returns=draws.below(20),
        hiddenBundleIDs=[],
    )


def random_plan(draws):
    """A plan as a profile builds it, or any list."""
    if draws.chance(0.4):
        return random_segments(draws, 5)
    if draws.chance(0.5):
        config = pomodoro(
            draws.between(1, 50),
            draws.between(1, 10),
            draws.between(1, 30),
            draws.between(1, 3),
            draws.between(1, 2),
        )
        segments = reference.pomodoro_plan(config)
    else:
        segments = reference.deep_plan(
            deep(draws.between(1, 200), draws.between(20, 90), draws.between(1, 15))
        )
    return [dict(part, duration=tidy(part["duration"])) for part in segments]


def session_random(vectors):
    draws = Draws(13)
    ops = (
        "status",
        "isAllWorkDone",
        "remainingFraction",
        "isAllWorkDone",
        "remainingFraction",
        "plannedEnd",
        "exitWaitSeconds",
    )
    for number in range(70):
        op = ops[number % len(ops)]
        segments = random_plan(draws)
        value = random_session(draws, segments)
        arguments = {"session": value}
        if op not in ("plannedEnd", "exitWaitSeconds"):
            arguments["at"] = tidy(value["startedAt"] + random_elapsed(draws, segments))
        vectors.case("random %s %d" % (op, number), "ActiveSession." + op, **arguments)


# ---------------------------------------------------------------------------
# Records


def record_vectors():
    vectors = Vectors("record.jsonl")

    def record_case(name, value, elapsed, outcome, rounds, focused, **reason):
        """The credited rounds and seconds of an ended session; no rounds is None."""
        expect = {
            "id": value["id"],
            "profileName": "Writing",
            "mode": value["mode"],
            "intent": "chapter 2",
            "startedAt": START,
            "endedAt": START + elapsed,
            "focusedSeconds": focused,
            "attempts": 3,
            "returns": 2,
            "outcome": outcome,
        }
        if rounds is not None:
            expect["completedRounds"] = rounds
        if reason.get("exitReason") is not None:
            expect["exitReason"] = reason["exitReason"]
        vectors.case(
            name,
            "SessionRecord.init",
            expect,
            session=value,
            endedAt=START + elapsed,
            outcome=outcome,
            **reason,
        )

    pomodoros, deeps = session(), deep_session()
    record_case(
        "aborted at 60 minutes, where the third block begins",
        pomodoros,
        60 * MINUTE,
        "aborted",
        2,
        3000,
        exitReason="tired",
    )
    record_case(
        "aborted at 61 minutes, in the third block",
        pomodoros,
        61 * MINUTE,
        "aborted",
        2,
        3000,
        exitReason="tired",
    )
    record_case("aborted at 59 minutes, in the second break", pomodoros, 59 * MINUTE, "aborted", 2, 3000)
    record_case(
        "aborted 0.005 s before the first block's end: one round", pomodoros, 1499.995, "aborted", 1, 1500
    )
    record_case(
        "aborted 0.1 s before the first block's end: 0 rounds, present", pomodoros, 1499.9, "aborted", 0, 0
    )
    record_case("aborted before the start", pomodoros, -60, "aborted", 0, 0)
    record_case(
        "completed at 115 minutes, in the trailing long break", pomodoros, 115 * MINUTE, "completed", 4, 6000
    )
    record_case("completed at once counts all blocks", pomodoros, 0, "completed", 4, 6000)
    record_case("completed after the end", pomodoros, 200 * MINUTE, "completed", 4, 6000)
    record_case(
        "deep aborted after 70 minutes: the break does not count",
        deeps,
        70 * MINUTE,
        "aborted",
        None,
        3900,
        exitReason="call",
    )
    record_case("deep completed at its end", deeps, 180 * MINUTE, "completed", None, 10200)
    record_case("deep completed early: only the clock decides", deeps, 10 * MINUTE, "completed", None, 600)
    record_case("deep credited with a fraction of a second", deeps, 10.25, "aborted", None, 10.25)
    record_case("deep ended before its start", deeps, -5, "aborted", None, 0)
    record_case("an empty reason is a reason", pomodoros, 0, "aborted", 0, 0, exitReason="")
    record_case("a null reason is no reason", pomodoros, 0, "aborted", 0, 0, exitReason=None)
    record_case(
        "a reason stays with a completed session",
        deeps,
        60,
        "completed",
        None,
        60,
        exitReason="done / fertig",
    )
    record_case("an empty pomodoro plan: 0 rounds", session(segments=[]), 100, "completed", 0, 0)
    record_case("an empty pomodoro plan, aborted: 0 rounds", session(segments=[]), 100, "aborted", 0, 0)
    record_case("an empty deep plan: no rounds", deep_session(segments=[]), 100, "completed", None, 0)
    record_case(
        "the mode decides, not the kinds of the plan",
        session(segments=DEFAULT_DEEP_PLAN),
        130 * MINUTE,
        "aborted",
        2,
        7200,
    )
    record_random(vectors)
    return vectors


def record_random(vectors):
    draws = Draws(14)
    for number in range(50):
        segments = random_plan(draws)
        value = random_session(draws, segments)
        arguments = {
            "session": value,
            "endedAt": tidy(value["startedAt"] + random_elapsed(draws, segments)),
            "outcome": draws.one(["completed", "aborted", "aborted"]),
        }
        if draws.chance(0.4):
            arguments["exitReason"] = random_text(draws)
        vectors.case("random record %d" % number, "SessionRecord.init", **arguments)


# ---------------------------------------------------------------------------
# Stored forms


def store_text(value):
    return reference.write(value)


def decode_numbers(vectors):
    """How numbers are taken and written, shown on the smallest types."""

    def integer_case(name, written, expect):
        text = '{"totalMinutes":%s,"breakEveryMinutes":60,"breakMinutes":5}' % written
        wanted = None
        if expect is not None:
            wanted = '{"totalMinutes":%s,"breakEveryMinutes":60,"breakMinutes":5}' % expect
        vectors.decode("integer %s: %s" % (written, name), "DeepConfig", text, wanted)

    integer_case("as it is", "180", "180")
    integer_case("not raised on reading", "0", "0")
    integer_case("not raised on reading", "-7", "-7")
    integer_case("there is no negative zero", "-0", "0")
    integer_case("whole with a fraction of zero", "25.0", "25")
    integer_case("whole with an exponent", "2.5e1", "25")
    integer_case("whole with an exponent", "25E+0", "25")
    integer_case("whole with a negative exponent", "2500e-2", "25")
    integer_case("a zero in any form", "0.000e5", "0")
    integer_case("a fraction", "25.5", None)
    integer_case("a fraction", "0.5", None)
    integer_case("a fraction", "255e-1", None)
    integer_case("largest", "9223372036854775807", "9223372036854775807")
    integer_case("smallest", "-9223372036854775808", "-9223372036854775808")
    integer_case("no rounding beyond 53 bits", "9007199254740993", "9007199254740993")
    integer_case("too large", "9223372036854775808", None)
    integer_case("too small", "-9223372036854775809", None)
    integer_case("large with an exponent", "1e18", "1000000000000000000")
    integer_case("too large with an exponent", "1e19", None)
    integer_case("far too large", "1e999", None)
    integer_case("a boolean is not a number", "true", None)
    integer_case("a string is not a number", '"25"', None)
    integer_case("null is not a number", "null", None)

    def double_case(name, written, expect):
        wanted = None if expect is None else '{"kind":"work","duration":%s}' % expect
        vectors.decode(
            "double %s: %s" % (written, name), "Segment", '{"kind":"work","duration":%s}' % written, wanted
        )

    double_case("whole, written as an integer", "1500", "1500")
    double_case("whole, written as an integer", "1500.0", "1500")
    double_case("whole, written as an integer", "1.5e3", "1500")
    double_case("whole, however large", "1e18", "1000000000000000000")
    double_case("whole, however large", "1e20", "100000000000000000000")
    double_case("negative", "-12.25", "-12.25")
    double_case("zero", "0.0", "0")
    double_case("negative zero", "-0.0", "-0")
    double_case("negative zero", "-0", "-0")
    double_case("too small for a float is zero", "1e-400", "0")
    double_case("shortest form", "0.1", "0.1")
    double_case("shortest form", "0.10000000000000000555", "0.1")
    double_case("shortest form", "0.30000000000000004", "0.30000000000000004")
    double_case("shortest form", "794016000.43821910", "794016000.4382191")
    double_case("shortest form", "123456789012345.67", "123456789012345.67")
    double_case("shortest form", "1.0000000000000002", "1.0000000000000002")
    double_case("nearest float", "1.00000000000000011102230246251565404", "1")
    double_case("nearest float", "1.00000000000000011102230246251565405", "1.0000000000000002")
    double_case("exponent", "5E-1", "0.5")
    double_case("too large for a float", "1e400", None)
    double_case("too large for a float", "-1e309", None)
    double_case("a boolean is not a number", "false", None)
    double_case("a string is not a number", '"1.5"', None)
    for written in (
        "+1", "01", "1.", ".5", "-", "1e", "1e+", "0x10", "NaN", "Infinity", "-Infinity", "1_000", "--1", "٣"
    ):
        double_case("no JSON number", written, None)


def decode_strings(vectors):
    """How strings are taken and written."""

    def string_case(name, written, expect):
        wanted = None if expect is None else '{"bundleID":"b","name":"%s"}' % expect
        vectors.decode("string: " + name, "AllowedApp", '{"bundleID":"b","name":"%s"}' % written, wanted)

    string_case("empty", "", "")
    string_case("a slash is written escaped", "a/b", "a\\/b")
    string_case("an escaped slash stays escaped", "a\\/b", "a\\/b")
    string_case("quote and backslash", '\\"\\\\', '\\"\\\\')
    string_case("the short escapes", "\\b\\f\\n\\r\\t", "\\b\\f\\n\\r\\t")
    string_case(
        "the short escapes, given as numbers", "\\u0008\\u000C\\u000a\\u000D\\u0009", "\\b\\f\\n\\r\\t"
    )
    string_case(
        "other control characters in lower-case digits",
        "\\u0000\\u0001\\u000B\\u001F",
        "\\u0000\\u0001\\u000b\\u001f",
    )
    string_case("delete is no control character here", "\\u007f", "\x7f")
    string_case("letters given as numbers", "\\u0041\\u00e9\\u06a9\\u2028", "Aé\u06a9\u2028")
    string_case("raw letters", "کار – Übung 漢字", "کار – Übung 漢字")
    string_case("raw line separators", "a\u2028b\u2029c\u0085d", "a\u2028b\u2029c\u0085d")
    string_case("no normalisation", "e\u0301 é \ufb01", "e\u0301 é \ufb01")
    string_case("a pair of surrogates", "\\ud83D\\uDE00", "😀")
    string_case("a raw character beyond 16 bits", "😀", "😀")
    string_case("the last character", "\\uDBFF\\uDFFF", "\U0010ffff")
    string_case("noncharacters are characters", "\\ufffe\\uffff", "\ufffe\uffff")
    string_case("quotes that are not ASCII", "„so“ ’", "„so“ ’")
    string_case("ampersand and angle brackets stay", "<a&b>'", "<a&b>'")
    string_case("a lone high surrogate", "\\ud83d", None)
    string_case("a lone high surrogate before a letter", "\\ud83dx", None)
    string_case("a lone low surrogate", "\\ude00", None)
    string_case("surrogates in the wrong order", "\\ude00\\ud83d", None)
    string_case("a high surrogate before another escape", "\\ud83d\\n", None)
    string_case("two high surrogates", "\\ud83d\\ud83d", None)
    string_case("a raw line feed", "a\nb", None)
    string_case("a raw tab", "a\tb", None)
    string_case("a raw null", "a\0b", None)
    string_case("an unknown escape", "\\x41", None)
    string_case("an apostrophe is not escaped", "\\'", None)
    string_case("too few digits", "\\u12", None)
    string_case("no hexadecimal digits", "\\u12g4", None)
    string_case("sign among the digits", "\\u+123", None)


def decode_syntax(vectors):
    """What is JSON text at all, and what happens to keys."""
    good = '{"bundleID":"b","name":"n"}'

    def text_case(name, text, expect):
        vectors.decode("text: " + name, "AllowedApp", text, expect)

    text_case("as the store writes it", good, good)
    text_case("white space anywhere", ' \t\r\n{ "bundleID"\n:\t"b" ,\r"name" : "n" } \n', good)
    text_case("keys in another order", '{"name":"n","bundleID":"b"}', good)
    text_case("unknown keys are ignored", '{"x":[{"y":null}],"bundleID":"b","z":{},"name":"n","":true}', good)
    text_case(
        "a key in other letters is unknown", '{"bundleid":"x","bundleID":"b","name":"n","Name":"y"}', good
    )
    text_case("a key written with escapes is the same key", '{"bundle\\u0049D":"b","\\u006eame":"n"}', good)
    text_case("an unknown key may occur twice", '{"x":1,"bundleID":"b","x":2,"name":"n"}', good)
    text_case(
        "keys may occur twice inside an unknown key",
        '{"x":{"name":1,"name":2},"bundleID":"b","name":"n"}',
        good,
    )
    text_case("a number too large inside an unknown key", '{"x":1e999,"bundleID":"b","name":"n"}', good)
    text_case(
        "nested lists inside an unknown key",
        '{"x":' + "[" * 40 + "]" * 40 + ',"bundleID":"b","name":"n"}',
        good,
    )
    text_case("a known key twice", '{"bundleID":"b","name":"n","name":"n"}', None)
    text_case("a known key twice, once with escapes", '{"bundleID":"b","name":"n","\\u006eame":"m"}', None)
    text_case("a known key twice, once null", '{"bundleID":"b","name":null,"name":"n"}', None)
    text_case("a lone surrogate inside an unknown key", '{"x":"\\ud800","bundleID":"b","name":"n"}', None)
    text_case("a missing key", '{"bundleID":"b"}', None)
    text_case("another missing key", '{"name":"n"}', None)
    text_case("a null for a required key", '{"bundleID":"b","name":null}', None)
    text_case("a key of the wrong type", '{"bundleID":"b","name":7}', None)
    for wrong in ("", "  ", "null", "true", "7", '"b"', "[]", "[" + good + "]", "{}"):
        text_case("no object of the type: " + repr(wrong), wrong, None)
    for wrong in (
        good + good,
        good + ",",
        good + "x",
        good + "\0",
        good + " //",
        good[:-1],
        good[:-3],
        good[1:],
        '{"bundleID":"b","name":"n",}',
        '{,"bundleID":"b","name":"n"}',
        '{"bundleID":"b" "name":"n"}',
        '{"bundleID":"b",,"name":"n"}',
        '{"bundleID","b","name":"n"}',
        "{'bundleID':'b','name':'n'}",
        '{bundleID:"b","name":"n"}',
        '{"bundleID":"b","name":"n","x":}',
        '{"bundleID":"b","name":"n","x":[1,]}',
        '{"bundleID":"b","name":"n","x":[1 2]}',
        '{"bundleID":"b","name":"n","x":tru}',
        '{"bundleID":"b","name":"n","x":True}',
        '{"bundleID":"b","name":"n","x":nul}',
        '{"bundleID":"b","name":"n","x":01}',
        '{"bundleID":"b","name":"n","x":[1}',
        '{"bundleID":"b","name":"n","x":"\\q"}',
        '{"bundleID":"b","name":"n"/**/}',
        '{"bundleID":"b",\u00a0"name":"n"}',
        '{"bundleID":"b",\f"name":"n"}',
    ):
        text_case("broken: " + repr(wrong), wrong, None)


EXAMPLES = {
    "Segment": {"kind": "lockedBreak", "duration": 300.5},
    "PomodoroConfig": pomodoro(50, 10, 30, 2, 6),
    "DeepConfig": deep(90, 45, 10),
    "AllowedApp": {"bundleID": "a.editor", "name": "Editor"},
    "Profile": profile(name="کار / work"),
    "ActiveSession": session(startedAt=START + 0.125, segments=plan("W25 L15")),
    "SessionRecord": record("Writing", START, 1500.25, completedRounds=1, exitReason="phone"),
    "Thought": {
        "id": "7A3D0C9E-1B2F-4C5D-8E6F-90A1B2C3D4E5",
        "text": "call back",
        "createdAt": START,
        "done": False,
        "updatedAt": START + 0.5,
    },
    "AppSettings": {
        "useFocusShortcuts": True,
        "focusOnShortcut": "On/1",
        "focusOffShortcut": "",
        "showFloatingTimer": False,
        "showQuoteBackdrop": False,
        "language": "de",
        "colorTheme": "aurora",
        "lockPhoneToo": True,
    },
}
OPTIONAL_KEYS = {"SessionRecord": ("completedRounds", "exitReason"), "Thought": ("updatedAt",)}
LIST_TYPES = ("Profile", "SessionRecord", "Thought")

# The types of which every key is tried twice; of the larger ones, two keys do.
OFTEN_DOUBLED = ("Segment", "PomodoroConfig", "DeepConfig", "AllowedApp", "Thought")

# A value of no use for any key: every member is something other than this.
WRONG = {"wrong": 1}


def example_text(type_name, value):
    """The store form of a changed example, with its keys in the type's order."""
    written = {key: value[key] for key in reorder(type_name, value)}
    return store_text(written)


def reorder(type_name, value):
    """The keys of a value in the order in which the type is written."""
    if type_name != "SessionRecord":
        return list(value)
    order = (
        "id profileName mode intent startedAt endedAt focusedSeconds completedRounds "
        "attempts returns outcome exitReason"
    ).split()
    return [key for key in order if key in value]


def decode_members(vectors):
    """Each key of each type: missing, null, of the wrong type, twice."""
    for type_name, example in EXAMPLES.items():
        vectors.decode(type_name + " as it is", type_name, text_of(example), example_text(type_name, example))
        upside_down = dict(reversed(list(example.items())))
        vectors.decode(
            type_name + " with its keys upside down",
            type_name,
            text_of(upside_down),
            example_text(type_name, example),
        )
        if type_name == "AppSettings":
            continue
        for key in example:
            optional = key in OPTIONAL_KEYS.get(type_name, ())
            rest = without(example, key)
            expect = example_text(type_name, rest) if optional else None
            vectors.decode("%s without %s" % (type_name, key), type_name, text_of(rest), expect)
            vectors.decode(
                "%s with null for %s" % (type_name, key),
                type_name,
                text_of(dict(example, **{key: None})),
                expect,
            )
            vectors.decode(
                "%s with a wrong type for %s" % (type_name, key),
                type_name,
                text_of(dict(example, **{key: WRONG})),
                None,
            )
            if type_name not in OFTEN_DOUBLED and key not in (list(example)[0], list(example)[-1]):
                continue
            # The text's own end is closed again by that of the second object.
            twice = text_of(example)[:-1] + ", " + text_of({key: example[key]})[1:]
            vectors.decode("%s with %s twice" % (type_name, key), type_name, twice, None)
    for type_name in LIST_TYPES:
        list_name = "[%s]" % type_name
        item = text_of(EXAMPLES[type_name])
        written = example_text(type_name, EXAMPLES[type_name])
        vectors.decode(list_name + " empty", list_name, " [ ] ", "[]")
        vectors.decode(
            list_name + " of two", list_name, "[%s , %s]" % (item, item), "[%s,%s]" % (written, written)
        )
        vectors.decode(list_name + " is not one value", list_name, item, None)
        vectors.decode(type_name + " is not a list", type_name, "[%s]" % item, None)
        vectors.decode(list_name + " with a null", list_name, "[%s,null]" % item, None)
        vectors.decode(list_name + " with one damaged item fails whole", list_name, "[%s,{}]" % item, None)
        vectors.decode(list_name + " with a comma too many", list_name, "[%s,]" % item, None)


def decode_values(vectors):
    """What single members take."""

    def member_case(name, type_name, key, value, fits):
        changed = dict(EXAMPLES[type_name], **{key: value})
        vectors.decode(
            "%s: %s" % (type_name, name),
            type_name,
            text_of(changed),
            example_text(type_name, changed) if fits else None,
        )

    for kind in LETTERS.values():
        member_case("kind " + kind, "Segment", "kind", kind, True)
    for kind in ("Work", "pause", ""):
        member_case("unknown kind " + repr(kind), "Segment", "kind", kind, False)
    for mode, fits in (("deep", True), ("pomodoro", True), ("Deep", False), ("", False), (1, False)):
        member_case("mode " + repr(mode), "Profile", "mode", mode, fits)
        member_case("mode " + repr(mode), "ActiveSession", "mode", mode, fits)
        member_case("mode " + repr(mode), "SessionRecord", "mode", mode, fits)
    for outcome, fits in (("completed", True), ("aborted", True), ("given up", False)):
        member_case("outcome " + outcome, "SessionRecord", "outcome", outcome, fits)

    text = EXAMPLES["Thought"]["id"]
    mixed = text[:18].lower() + text[18:]
    for given in (text.lower(), mixed):
        changed = dict(EXAMPLES["Thought"], id=given)
        vectors.decode(
            "UUID %s is written in upper case" % given,
            "Thought",
            text_of(changed),
            store_text(EXAMPLES["Thought"]),
        )
    member_case("UUID of no version", "Thought", "id", "00000000-0000-0000-0000-000000000000", True)
    member_case("UUID of all bits", "Thought", "id", "FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF", True)
    for wrong in (
        "",
        text[:-1],
        text + "0",
        text.replace("-", ""),
        "{" + text + "}",
        " " + text,
        text + "\n",
        text.replace("A", "G"),
        text[:8] + text[9:14] + "-" + text[14:],
        text.replace("-", "_"),
        text[:-1] + "é",
        "urn:uuid:" + text,
    ):
        member_case("no UUID: " + repr(wrong), "Thought", "id", wrong, False)
    member_case("a date before 2001", "Thought", "createdAt", -86400.5, True)
    member_case("a date of zero", "Thought", "createdAt", 0, True)
    member_case("a date as text", "Thought", "createdAt", "2026-03-01T00:00:00Z", False)
    member_case("a date as a boolean", "Thought", "updatedAt", True, False)
    member_case("done as a number", "Thought", "done", 1, False)
    member_case("done as text", "Thought", "done", "false", False)
    member_case("0 rounds are written", "SessionRecord", "completedRounds", 0, True)
    member_case("rounds with a fraction", "SessionRecord", "completedRounds", 1.5, False)
    member_case("an empty reason is written", "SessionRecord", "exitReason", "", True)
    member_case("negative credit", "SessionRecord", "focusedSeconds", -1.5, True)
    member_case("a number too large as a date", "SessionRecord", "endedAt", 10 ** 400, False)
    member_case("a null in a list of strings", "ActiveSession", "allowedDomains", ["a", None], False)
    member_case("a number in a list of strings", "ActiveSession", "hiddenBundleIDs", ["a", 1], False)
    member_case("a string instead of a list", "ActiveSession", "allowedBundleIDs", "a", False)
    member_case("empty lists", "ActiveSession", "segments", [], True)
    member_case("a damaged segment", "ActiveSession", "segments", [{"kind": "work"}], False)
    member_case("a damaged app", "Profile", "allowedApps", [{"bundleID": "x"}], False)
    member_case(
        "a config with a missing key", "Profile", "pomodoro", without(pomodoro(), "totalCycles"), False
    )
    member_case("stored zeros stay zeros", "Profile", "deep", deep(0, 0, 0), True)
    extra = dict(EXAMPLES["Profile"], deep=dict(deep(), note="x"), colour="red")
    vectors.decode(
        "Profile: unknown keys at every depth",
        "Profile",
        text_of(extra),
        store_text(dict(EXAMPLES["Profile"], deep=deep())),
    )
    record_without = without(without(EXAMPLES["SessionRecord"], "completedRounds"), "exitReason")
    written = example_text("SessionRecord", record_without)
    vectors.decode(
        "record without rounds and reason loads",
        "[SessionRecord]",
        "[%s]" % text_of(record_without),
        "[%s]" % written,
    )
    vectors.decode(
        "what was written is read back and written alike",
        "[SessionRecord]",
        "[%s]" % written,
        "[%s]" % written,
    )
    damaged = text_of(without(record_without, "returns"))
    vectors.decode(
        "one record without returns fails the history",
        "[SessionRecord]",
        "[%s,%s]" % (written, damaged),
        None,
    )
    unnoted = without(EXAMPLES["Thought"], "updatedAt")
    vectors.decode(
        "thought without updatedAt is written without it",
        "[Thought]",
        "[%s]" % text_of(unnoted),
        "[%s]" % store_text(unnoted),
    )
    vectors.decode(
        "one thought without done fails the list",
        "[Thought]",
        "[%s]" % text_of(without(unnoted, "done")),
        None,
    )


DEFAULT_SETTINGS = {
    "useFocusShortcuts": False,
    "focusOnShortcut": "Velmorin On",
    "focusOffShortcut": "Velmorin Off",
    "showFloatingTimer": True,
    "showQuoteBackdrop": True,
    "language": "fa",
    "colorTheme": "dusk",
    "lockPhoneToo": False,
}


def decode_settings(vectors):
    def settings_case(name, text, expect):
        """`expect` holds what differs from the defaults, or is None."""
        wanted = None if expect is None else store_text(dict(DEFAULT_SETTINGS, **expect))
        vectors.decode("settings: " + name, "AppSettings", text, wanted)

    settings_case("an empty object gives the defaults", "{}", {})
    settings_case("only a language", '{"language":"de"}', {"language": "de"})
    settings_case(
        "an unknown language loses nothing else",
        '{"language":"fr","lockPhoneToo":true}',
        {"lockPhoneToo": True},
    )
    settings_case(
        "a theme of the wrong type loses nothing else", '{"colorTheme":7,"language":"en"}', {"language": "en"}
    )
    settings_case(
        "a boolean of the wrong type fails the object", '{"showFloatingTimer":"yes","language":"de"}', None
    )
    for key in ("useFocusShortcuts", "showFloatingTimer", "showQuoteBackdrop", "lockPhoneToo"):
        changed = not DEFAULT_SETTINGS[key]
        settings_case(key + " alone", text_of({key: changed}), {key: changed})
        settings_case(key + " null", text_of({key: None}), {})
        for wrong in (1, "true", []):
            settings_case("%s as %r" % (key, wrong), text_of({key: wrong}), None)
    for key in ("focusOnShortcut", "focusOffShortcut"):
        settings_case(key + " alone", text_of({key: "a/b"}), {key: "a/b"})
        settings_case(key + " empty is kept", text_of({key: ""}), {key: ""})
        settings_case(key + " null", text_of({key: None}), {})
        for wrong in (0, True, {}):
            settings_case("%s as %r" % (key, wrong), text_of({key: wrong}), None)
    for key, values in (("language", ("fa", "en", "de")), ("colorTheme", ("dusk", "dawn", "aurora"))):
        for value in values:
            settings_case("%s %s" % (key, value), text_of({key: value}), {key: value})
        for wrong in (None, "", "EN", "Dawn", "persian", 7, 0.5, True, ["en"], {"a": 1}):
            settings_case("%s as %r gives the default" % (key, wrong), text_of({key: wrong}), {})
    settings_case("a known key twice", '{"lockPhoneToo":true,"lockPhoneToo":true}', None)
    settings_case("the language twice", '{"language":"en","language":"de"}', None)
    settings_case("an unknown key twice", '{"x":1,"x":2,"language":"en"}', {"language": "en"})
    settings_case("keys twice inside a language that is none", '{"language":{"a":1,"a":2}}', {})
    settings_case("language too large a number", '{"language":1e999}', {})
    for wrong in ("null", "[]", "[{}]", '""', "true", "0", "", "{"):
        settings_case("no object: " + repr(wrong), wrong, None)


TEXT_PIECES = [
    "",
    "a",
    "Work",
    " ",
    "/",
    '"',
    "\\",
    "\n",
    "\t",
    "\x01",
    "é",
    "کار",
    "😀",
    "\u200c",
    "x y",
    "0",
    "漢",
    "\x7f",
]


def random_text(draws):
    return "".join(draws.one(TEXT_PIECES) for _ in range(draws.below(4)))


def random_value(draws, type_name):
    """A value of a stored type."""
    if type_name.startswith("["):
        return [random_value(draws, type_name[1:-1]) for _ in range(draws.below(3))]
    makers = {
        "Segment": lambda: {
            "kind": draws.one(list(LETTERS.values())), "duration": draws.seconds(0.001, 5000)
        },
        "PomodoroConfig": lambda: pomodoro(*[draws.between(-5, 100) for _ in range(5)]),
        "DeepConfig": lambda: deep(*[draws.between(-5, 300) for _ in range(3)]),
        "AllowedApp": lambda: {"bundleID": random_text(draws), "name": random_text(draws)},
        "Profile": lambda: random_profile(draws),
        "ActiveSession": lambda: random_session(draws, random_plan(draws)[:4]),
        "SessionRecord": lambda: random_record(draws),
        "Thought": lambda: random_thought(draws),
        "AppSettings": lambda: random_settings(draws),
    }
    return makers[type_name]()


def random_record(draws):
    value = record(
        random_text(draws),
        random_start(draws),
        draws.seconds(0, 9000),
        draws.below(1000),
        intent=random_text(draws),
    )
    if draws.chance(0.5):
        value.update(mode="pomodoro", completedRounds=draws.below(9))
    if draws.chance(0.5):
        value.update(outcome="aborted", exitReason=random_text(draws))
    return value


def random_thought(draws):
    value = {
        "id": draws.uuid(),
        "text": random_text(draws),
        "createdAt": random_start(draws),
        "done": draws.chance(0.5),
    }
    if draws.chance(0.5):
        value["updatedAt"] = random_start(draws)
    return value


def random_settings(draws):
    value = {
        "useFocusShortcuts": draws.chance(0.5),
        "focusOnShortcut": random_text(draws),
        "focusOffShortcut": random_text(draws),
        "showFloatingTimer": draws.chance(0.5),
        "showQuoteBackdrop": draws.chance(0.5),
        "language": draws.one(["fa", "en", "de", "fr"]),
        "colorTheme": draws.one(["dusk", "dawn", "aurora", "noon"]),
        "lockPhoneToo": draws.chance(0.5),
    }
    return {key: member for key, member in value.items() if draws.chance(0.7)}


def random_json_text(draws, value):
    """A value as JSON text, in one of the many ways in which it can be written."""
    space = draws.one(["", "", " ", "\n ", "\t"])
    if isinstance(value, dict):
        members = [(key, random_json_text(draws, member)) for key, member in draws.shuffled(value.items())]
        if draws.chance(0.2):
            members.insert(0, ("extra", draws.one(["null", "[1,{}]", '"x"', "-1.5e3"])))
        inner = ("," + space).join(
            random_string_text(draws, key) + space + ":" + text for key, text in members
        )
        return "{" + space + inner + space + "}"
    if isinstance(value, list):
        return "[" + space + ("," + space).join(random_json_text(draws, item) for item in value) + "]" + space
    if isinstance(value, str):
        return random_string_text(draws, value) + space
    if isinstance(value, int) and not isinstance(value, bool) and draws.chance(0.1):
        return draws.one(["%d.0", "%de0", "%d0E-1", "%d.00e+0"]) % value
    return json.dumps(value)


def random_string_text(draws, text):
    if draws.chance(0.2):
        return json.dumps(text)
    if draws.chance(0.1):
        return '"' + "".join("\\u%04x" % unit for unit in utf16(text)) + '"'
    return json.dumps(text, ensure_ascii=False)


def utf16(text):
    data = text.encode("utf-16-be")
    return [data[index] * 256 + data[index + 1] for index in range(0, len(data), 2)]


def damaged(draws, text):
    """A text with one character taken out, put in or cut off."""
    at = draws.below(len(text))
    return draws.one(
        [text[:at] + text[at + 1 :], text[:at] + draws.one('{}[]",:0-. x\n') + text[at:], text[:at]]
    )


def decode_random(vectors):
    draws = Draws(15)
    names = list(EXAMPLES) + ["[%s]" % name for name in LIST_TYPES]
    for number in range(72):
        type_name = names[number % len(names)]
        text = random_json_text(draws, random_value(draws, type_name))
        if number % 5 == 4:
            text = damaged(draws, text)
        vectors.decode("random %s %d" % (type_name, number), type_name, text)


def decode_vectors():
    vectors = Vectors("decode.jsonl")
    decode_numbers(vectors)
    decode_strings(vectors)
    decode_syntax(vectors)
    decode_members(vectors)
    decode_values(vectors)
    decode_settings(vectors)
    decode_random(vectors)
    return vectors


# ---------------------------------------------------------------------------
# Statistics

REST = reference.OTHER_NAME
DAY = 86400


def day_piece(day, project, start, end):
    return {
        "id": "%d.0-%s" % (day + reference.EPOCH_2001, project),
        "day": day,
        "project": project,
        "startMinutes": start,
        "endMinutes": end,
    }


def total(name, seconds, sessions):
    return {"name": name, "seconds": seconds, "sessions": sessions}


class StatsCases:
    """Statistics cases; each hand-made answer tells only what the case is about."""

    def __init__(self, vectors):
        self.vectors = vectors

    def case(self, name, history, period, now, zone="UTC", numbers=None, **expect):
        """`numbers` are the numbers of the records that belong to the period."""
        value = self.vectors.case(
            name, "StatsSummary.init", records=history, period=period, now=now, timeZone=zone
        )
        if numbers is not None:
            expect["records"] = [item for item in history if int(item["id"][-12:]) in numbers]
        for key, wanted in expect.items():
            if value[key] != wanted:
                sys.exit("stats: %s: %s is %s instead of %s" % (name, key, value[key], wanted))


def stats_rules(cases):
    noon = START + 12 * 3600
    last = lambda count: [START + offset * DAY for offset in range(1 - count, 1)]
    empty = dict(focusedSeconds=0, sessions=0, rounds=0, returns=0, byProject=[], segments=[])
    cases.case("no records today", [], "today", noon, numbers=[], days=[], **empty)
    cases.case("no records this week", [], "week", noon, numbers=[], days=last(7), **empty)
    cases.case("no records this month", [], "month", noon, numbers=[], days=last(30), **empty)
    cases.case("no records at all", [], "all", noon, numbers=[], days=last(30), **empty)

    spanning = records(("A", START - 600, 3000))
    cases.case(
        "a session over midnight counts wholly for its first day",
        spanning,
        "week",
        noon,
        numbers=[1],
        byProject=[total("A", 3000, 1)],
        segments=[day_piece(START - DAY, "A", 0, 50)],
    )
    cases.case("a session over midnight is not of the next day", spanning, "today", noon, numbers=[])

    # 2026-03-04 is a Wednesday; the week's first day is Thursday, 2026-02-26.
    wednesday, thursday = START + 3 * DAY, START - 3 * DAY
    borders = records(("A", thursday, 60), ("A", thursday - 0.5, 60), ("A", thursday - 1, 60))
    cases.case(
        "a week on a Wednesday begins on Thursday at 00:00:00",
        borders,
        "week",
        wednesday + 3600,
        numbers=[1],
        days=[thursday + offset * DAY for offset in range(7)],
        segments=[day_piece(thursday, "A", 0, 1)],
    )
    first = START - 29 * DAY
    borders = records(("A", first, 60), ("A", first - 0.25, 60), ("A", START, 60), ("A", START - 1, 60))
    cases.case("a month begins 29 days before today", borders, "month", noon, numbers=[1, 3, 4])
    cases.case("today begins at 00:00:00", borders, "today", noon, numbers=[3])
    cases.case("today at its first instant", borders, "today", START, numbers=[3])
    cases.case("today at its last instant", borders, "today", START + DAY - 0.5, numbers=[3])
    future = records(("A", START + 40 * DAY, 60), ("B", START + DAY, 120))
    for period in ("today", "week", "month", "all"):
        cases.case(
            "records in the future belong to " + period, future, period, noon, numbers=[1, 2], segments=[]
        )

    six = records(
        *[(name, START + 60 * index, 600) for index, name in enumerate("ABCDE")], ("F", START + 400, 90000)
    )
    cases.case(
        "the sixth project falls into the rest, whatever its time",
        six,
        "week",
        noon,
        byProject=[total(REST, 90000, 1)] + [total(name, 600, 1) for name in "ABCDE"],
        segments=[day_piece(START, name, 10 * index, 10 * index + 10) for index, name in enumerate("ABCDE")]
        + [day_piece(START, REST, 50, 1550)],
    )
    seventh = six + [record("G", START + 500, 600, 7), record("F", START + 600, 600, 8)]
    cases.case(
        "all projects without a slot share one row",
        seventh,
        "today",
        noon,
        byProject=[total(REST, 91200, 3)] + [total(name, 600, 1) for name in "ABCDE"],
    )
    old = records(
        *[(name, START - 90 * DAY + index, 60) for index, name in enumerate("ABCDE")], ("F", START, 60)
    )
    cases.case(
        "slots go by all records, not by those of the period",
        old,
        "today",
        noon,
        numbers=[6],
        byProject=[total(REST, 60, 1)],
    )
    named_rest = records(
        ("A", START, 60),
        (REST, START + 1, 120),
        ("C", START + 2, 60),
        ("D", START + 3, 60),
        ("E", START + 4, 60),
    )
    sharing = records(
        *[(name, START + index, 60) for index, name in enumerate("ABCDE")],
        (REST, START + 9, 60),
        ("F", START + 10, 60),
    )
    cases.case(
        "a project with the rest's name and no slot shares the group",
        sharing,
        "week",
        noon,
        byProject=[total(REST, 120, 2)] + [total(name, 60, 1) for name in "ABCDE"],
    )
    cases.case(
        "a project with the rest's name and a slot stands in the ranking once",
        named_rest,
        "today",
        noon,
        byProject=[total(REST, 120, 1)] + [total(name, 60, 1) for name in "ACDE"],
    )
    cases.case(
        "a project with the rest's name and a slot is met twice in the stack",
        records(("A", START, 60), (REST, START + 1, 120)),
        "week",
        noon,
        segments=[day_piece(START, "A", 0, 1), day_piece(START, REST, 1, 3), day_piece(START, REST, 3, 5)],
    )

    for history in (
        records(("B", START, 60), ("A", START + 1, 60)), records(("A", START, 60), ("B", START + 1, 60))
    ):
        cases.case(
            "equal seconds are ranked by name, whichever came first",
            history,
            "today",
            noon,
            byProject=[total("A", 60, 1), total("B", 60, 1)],
        )
    for ordered in (["", "Z", "a", "ab", "b"], ["a", "é", "کار", "\uffee", "😀"]):
        cases.case(
            "names are ranked by code points: " + " ".join(map(repr, ordered)),
            records(*[(name, START, 60) for name in reversed(ordered)]),
            "today",
            noon,
            byProject=[total(name, 60, 1) for name in ordered],
        )
    cases.case(
        "the stack goes by slots, not by size",
        records(("A", START, 60), ("B", START + 1, 600), ("A", START + 2, 30)),
        "week",
        noon,
        byProject=[total("B", 600, 1), total("A", 90, 2)],
        segments=[day_piece(START, "A", 0, 1.5), day_piece(START, "B", 1.5, 11.5)],
    )
    cases.case(
        "deep records have no rounds",
        records(("A", START, 60), ("B", START, 60)),
        "all",
        noon,
        rounds=0,
        sessions=2,
    )
    counted = [
        record("A", START, 1500, 1, mode="pomodoro", completedRounds=1, returns=2),
        record(
            "A", START, 3000, 2, mode="pomodoro", completedRounds=2, returns=0, attempts=9, exitReason="x"
        ),
        record("A", START, 100, 3, returns=5),
        record("A", START - 2 * DAY, 6000, 4, mode="pomodoro", completedRounds=4, returns=7),
    ]
    cases.case(
        "rounds and returns are summed",
        counted,
        "today",
        noon,
        rounds=3,
        returns=7,
        focusedSeconds=4600,
        sessions=3,
    )
    cases.case(
        "today has no days and no pieces",
        counted,
        "today",
        noon,
        days=[],
        segments=[],
        byProject=[total("A", 4600, 3)],
    )
    ancient = records(("A", START - 30 * DAY, 600), ("B", START, 60), ("C", -500000000.5, 6))
    cases.case(
        "all counts old sessions, but not in the chart",
        ancient,
        "all",
        noon,
        numbers=[1, 2, 3],
        focusedSeconds=666,
        byProject=[total("A", 600, 1), total("B", 60, 1), total("C", 6, 1)],
        days=last(30),
        segments=[day_piece(START, "B", 0, 1)],
    )
    cases.case(
        "a session without focus is a session without a piece",
        records(("A", START, 0), ("B", START, 60)),
        "week",
        noon,
        sessions=2,
        byProject=[total("B", 60, 1), total("A", 0, 1)],
        segments=[day_piece(START, "B", 0, 1)],
    )
    cases.case(
        "a new name is a second project",
        records(("old", START, 60), ("new", START + 1, 60)),
        "today",
        noon,
        byProject=[total("new", 60, 1), total("old", 60, 1)],
    )
    cases.case(
        "names are told apart exactly",
        records(
            ("e\u0301", START, 60), ("é", START, 60), ("E", START, 60), ("e", START, 60), ("e ", START, 60)
        ),
        "today",
        noon,
        byProject=[total(name, 60, 1) for name in ("E", "e", "e ", "e\u0301", "é")],
    )
    shuffled = records(("A", START + 5, 0.1), ("A", START + 3, 0.2), ("A", START + 9, 0.3))
    cases.case(
        "records keep the input's order and sums follow it",
        shuffled,
        "today",
        noon,
        numbers=[1, 2, 3],
        focusedSeconds=0.1 + 0.2 + 0.3,
    )


def stats_zones(cases):
    """Days where the clocks change, and days that are short of their midnight."""

    def border_case(name, zone, day, start, period="today", now=None, **expect):
        """One record at the day's first instant and one just before it."""
        history = records(("A", start, 60), ("A", start - 0.5, 60))
        now = moment(zone, *day, 12) if now is None else now
        cases.case(name, history, period, now, zone, numbers=[1], **expect)

    border_case("a day in Berlin begins at its own midnight", "Europe/Berlin", (2026, 3, 1), START - 3600)
    border_case("a day in Tehran begins at its own midnight", "Asia/Tehran", (2026, 3, 1), START - 3.5 * 3600)
    border_case(
        "a day in Kathmandu begins at its own midnight", "Asia/Kathmandu", (2026, 3, 1), START - 5.75 * 3600
    )
    border_case(
        "a day on the Chatham Islands begins at its own midnight",
        "Pacific/Chatham",
        (2026, 3, 1),
        START - 13.75 * 3600,
    )

    # 2025-03-30 has 23 hours in Berlin, 2025-10-26 has 25.
    for day, hours in (((2025, 3, 30), 23), ((2025, 10, 26), 25)):
        start = moment("Europe/Berlin", *day, 0)
        following = start + hours * 3600
        history = records(("A", following - 1, 60), ("B", following, 120), ("C", start, 180))
        cases.case(
            "a day of %d hours in Berlin" % hours,
            history,
            "week",
            following + 3600,
            "Europe/Berlin",
            segments=[
                day_piece(start, "C", 0, 3), day_piece(start, "A", 3, 4), day_piece(following, "B", 0, 2)
            ],
        )

    # (zone, day, its first instant as a local time): midnight is jumped over.
    missing = (
        ("Asia/Beirut", (2024, 3, 31), (1, 0, 0)),
        ("Africa/Cairo", (2010, 4, 30), (1, 0, 0)),
        ("America/Havana", (2007, 3, 11), (1, 0, 0)),
        ("America/Santiago", (2024, 9, 8), (1, 0, 0)),
        ("Asia/Tehran", (2021, 3, 22), (1, 0, 0)),
    )
    for zone, day, first in missing:
        start = moment(zone, *day, *first)
        border_case("%s %d-%d-%d has no midnight" % ((zone,) + day), zone, day, start)
        week_on = start + 6 * DAY
        border_case(
            "a week that begins on a day without midnight: " + zone,
            zone,
            day,
            start,
            "week",
            week_on + 3600 * 9,
        )

    # Midnight comes twice: the day begins at the first of the two.
    for zone, day in (("America/Havana", (2024, 11, 3)), ("America/Havana", (2010, 10, 31))):
        start = moment(zone, *day, 0, 0, 0, fold=0)
        border_case("%s %d-%d-%d has two midnights" % ((zone,) + day), zone, day, start)
        border_case(
            "a week that begins on a day with two midnights: " + zone,
            zone,
            day,
            start,
            "week",
            start + 6 * DAY + 7200 + 3600 * 9,
        )

    # The clock falls back from midnight into the day before, which ends twice.
    for zone, day in (
        ("Africa/Cairo", (2010, 10, 1)), ("Asia/Beirut", (2024, 10, 27)), ("America/Santiago", (2024, 4, 7))
    ):
        start = moment(zone, *day, 0)
        border_case("%s: the hour before %d-%d-%d comes twice" % ((zone,) + day), zone, day, start)

    # In St. John's the clock fell back from 00:01: the new day lasted a minute,
    # the old one came back for 59, then the new day began again.
    zone, day = "America/St_Johns", (2010, 11, 7)
    first = moment(zone, *day, 0, 0, 0, fold=0)
    border_case("St. John's: a day that begins, is left and begins again", zone, day, first)
    old = moment(zone, 2010, 11, 6, 0)
    history = records(
        ("A", first + 30, 60), ("B", first + 60, 120), ("C", first + 3600, 180), ("D", first - 1, 240)
    )
    cases.case(
        "St. John's: pieces go by the local date, cuts by the instant",
        history,
        "week",
        moment(zone, *day, 12),
        zone,
        segments=[
            day_piece(old, "D", 0, 4),
            day_piece(old, "B", 4, 6),
            day_piece(first, "A", 0, 1),
            day_piece(first, "C", 1, 4),
        ],
    )
    cases.case(
        "St. John's: the old day's return belongs to today",
        history,
        "today",
        moment(zone, *day, 12),
        zone,
        numbers=[1, 2, 3],
    )
    cases.case(
        "St. John's: now in the minute before the return",
        history,
        "today",
        first + 30,
        zone,
        numbers=[1, 2, 3],
    )
    cases.case(
        "St. John's: now in the old day's return", history, "today", first + 1800, zone, numbers=[1, 2, 3, 4]
    )
    border_case("St. John's in spring", zone, (2011, 3, 13), moment(zone, 2011, 3, 13, 0))

    lord_howe = "Australia/Lord_Howe"
    for day in ((2024, 4, 7), (2024, 10, 6)):
        border_case(
            "Lord Howe, where the clock moves by half an hour: %d-%d-%d" % day,
            lord_howe,
            day,
            moment(lord_howe, *day, 0),
        )

    # Apia left out 2011-12-30.
    apia = "Pacific/Apia"
    before, after = moment(apia, 2011, 12, 29, 0), moment(apia, 2011, 12, 31, 0)
    history = records(("A", before, 60), ("B", after, 120), ("C", after - 1, 180))
    cases.case(
        "Apia: a day that the zone left out is skipped",
        history,
        "week",
        moment(apia, 2012, 1, 1, 12),
        apia,
        days=[before - 3 * DAY, before - 2 * DAY, before - DAY, before, after, after + DAY],
        segments=[day_piece(before, "A", 0, 1), day_piece(before, "C", 1, 4), day_piece(after, "B", 0, 2)],
    )
    cases.case(
        "Apia: the day after the one left out",
        history,
        "today",
        moment(apia, 2011, 12, 31, 12),
        apia,
        numbers=[2],
    )
    cases.case(
        "Apia: a week whose first day was left out is cut at today",
        history + [record("D", moment(apia, 2012, 1, 5, 0), 60, 4)],
        "week",
        moment(apia, 2012, 1, 5, 12),
        apia,
        numbers=[4],
        days=[after + offset * DAY for offset in range(6)],
    )


ZONES = [
    "UTC",
    "Europe/Berlin",
    "Asia/Tehran",
    "Asia/Kathmandu",
    "America/St_Johns",
    "Australia/Lord_Howe",
    "America/Santiago",
    "Africa/Cairo",
    "Asia/Beirut",
    "America/Havana",
    "Pacific/Chatham",
]


# Egypt brought its summer time back in 2023, and data older than that are in use:
# its times end before, so that the vectors test the rules and not the data.
LAST_YEARS = {"Africa/Cairo": 2022}


def end_of_times(zone_name):
    """The date after which there are no random times in a zone."""
    return moment("UTC", LAST_YEARS.get(zone_name, 2026), 10, 1)


def clock_changes(zone):
    """The zone's changes of the clock from 2001 on, in seconds since 1970."""
    last = end_of_times(zone.key) + reference.EPOCH_2001
    return reference.transitions(reference.EPOCH_2001 + 2 * DAY, last, zone, step=DAY)


def random_now(draws, changes, end):
    """A date from 2001 to `end`, mostly within a month after a change of the clock."""
    if changes and draws.chance(0.8):
        return tidy(
            draws.one(changes) - reference.EPOCH_2001 + draws.one(
                [0, draws.seconds(-7200, 7200), draws.seconds(0, 31 * DAY)]
            ),
        )
    return draws.seconds(40 * DAY, end)


def random_moment(draws, now, zone):
    """A date near the start of one of the days before `now`, or any time of it."""
    day = reference.local_date(now, zone) + datetime.timedelta(
        days=draws.one([-29, -6, 0, 1, -draws.below(35), -draws.below(8)])
    )
    start = reference.start_of_day(day, zone)
    if draws.chance(0.6):
        return tidy(
            start + draws.one(
                [0, 0, -1, 1, -0.5, 0.25, 59, 60, 61, 1800, 3599, 3600, 5400, -60, -1800, -3600, -5400]
            ),
        )
    return tidy(start + draws.seconds(0, DAY))


def random_history(draws, count, now, zone):
    names = draws.shuffled(["A", "B", "C", "D", "E", "F", "G", "", "کار", REST])[: draws.between(1, 8)]
    if draws.chance(0.7):
        names = [name for name in names if name != REST] or ["A"]
    history = []
    for number in range(1, count + 1):
        value = record(
            draws.one(names),
            random_moment(draws, now, zone),
            draws.one([1500, 3000, 600, 0, draws.seconds(1, 9000)]),
            number,
        )
        if draws.chance(0.4):
            value.update(mode="pomodoro", completedRounds=draws.below(5), returns=draws.below(4))
        history.append(value)
    if draws.chance(0.5):
        history.sort(key=lambda value: -value["startedAt"])
    return history


def stats_random(cases):
    draws = Draws(16)
    changes = {name: clock_changes(zoneinfo.ZoneInfo(name)) for name in ZONES}
    for number in range(99):
        name = ZONES[number % len(ZONES)]
        zone = zoneinfo.ZoneInfo(name)
        now = random_now(draws, changes[name], end_of_times(name))
        # A few long histories, many short ones, to keep the file small.
        count = 40 if number == 50 else draws.one([1, 2, 2, 3])
        history = random_history(draws, count, now, zone)
        period = draws.one(["today", "week", "week", "month", "all"])
        cases.case("random statistics %d, %s in %s" % (number, period, name), history, period, now, name)


def stats_vectors():
    vectors = Vectors("stats.jsonl")
    cases = StatsCases(vectors)
    stats_rules(cases)
    stats_zones(cases)
    stats_random(cases)
    return vectors


def slots_vectors():
    vectors = Vectors("slots.jsonl")

    def slots_case(name, expect, *rows):
        vectors.case("slots: " + name, "ProjectSlots.init", expect, records=records(*rows))

    slots_case("no records", [])
    slots_case("by first use", ["A", "B"], ("A", 1, 5), ("B", 2, 5), ("A", 3, 5))
    slots_case(
        "oldest first, whatever the input's order", ["C", "B", "A"], ("A", 3, 5), ("B", 2, 5), ("C", 1, 5)
    )
    slots_case("not by time", ["A", "B"], ("A", 1, 0), ("B", 2, 90000))
    slots_case("five at most", list("ABCDE"), *[(name, at, 60) for at, name in enumerate("ABCDEFG")])
    slots_case(
        "five at most, the latest left out",
        list("GFEDC"),
        *[(name, -at, 60) for at, name in enumerate("ABCDEFG")],
    )
    slots_case("equal starts keep the input's order", ["B", "A", "C"], ("B", 1, 5), ("A", 1, 5), ("C", 1, 5))
    slots_case(
        "names are told apart exactly",
        ["e", "E", "e ", "é", "e\u0301"],
        ("e", 1, 5),
        ("E", 2, 5),
        ("e ", 3, 5),
        ("é", 4, 5),
        ("e\u0301", 5, 5),
    )
    slots_case("the rest's name can have a slot", [REST, ""], (REST, 1, 5), ("", 2, 5))
    draws = Draws(17)
    for number in range(20):
        names = draws.shuffled("ABCDEFGH")[: draws.between(1, 8)]
        rows = []
        for _ in range(draws.below(10)):
            rows.append((draws.one(names), draws.one([draws.below(5), draws.seconds(-5, 5)]), 60))
        vectors.case("random slots %d" % number, "ProjectSlots.init", records=records(*rows))
    return vectors


# ---------------------------------------------------------------------------
# The store


def store_vectors():
    vectors = Vectors("store.jsonl")

    def script_case(name, *pairs):
        """Steps, each paired with what it must give."""
        vectors.case(
            name, "JSONStore.script", [result for _, result in pairs], steps=[step for step, _ in pairs]
        )

    defaults = store_text(DEFAULT_SETTINGS)
    app = EXAMPLES["AllowedApp"]
    app_text = store_text(app)
    script_case("no steps")
    script_case("a missing file", (["load", "a.json", "AppSettings"], None), (["read", "a.json"], None))
    script_case(
        "what is saved is read and loaded",
        (["save", "settings.json", "AppSettings", "{ }"], True),
        (["read", "settings.json"], defaults),
        (["load", "settings.json", "AppSettings"], defaults),
    )
    script_case(
        "a save replaces the whole file",
        (["append", "app.json", "x" * 200], None),
        (["save", "app.json", "AllowedApp", text_of(app)], True),
        (["read", "app.json"], app_text),
        (["save", "app.json", "[Thought]", "[]"], True),
        (["read", "app.json"], "[]"),
    )
    script_case(
        "slashes, control characters and other scripts in a file",
        (["save", "a.json", "AllowedApp", '{"bundleID":"a/b\\u0001","name":"کار\\n"}'], True),
        (["read", "a.json"], '{"bundleID":"a\\/b\\u0001","name":"کار\\n"}'),
    )
    script_case(
        "an unknown language loads, a profile without deep does not",
        (["append", "settings.json", '{"language":"fr","lockPhoneToo":true}'], None),
        (["load", "settings.json", "AppSettings"], store_text(dict(DEFAULT_SETTINGS, lockPhoneToo=True))),
        (
            [
                "append",
                "profiles.json",
                "[%s,%s]" % (text_of(profile()), text_of(without(profile(), "deep"))),
            ],
            None,
        ),
        (["load", "profiles.json", "[Profile]"], None),
    )
    history = [record("A", START, 60, 1), without(record("B", START, 60, 2), "returns")]
    script_case(
        "one damaged record fails its file and the file is left alone",
        (["append", "history.json", store_text(history)], None),
        (["load", "history.json", "[SessionRecord]"], None),
        (["read", "history.json"], store_text(history) + "\n"),
        (["save", "history.json", "[SessionRecord]", "[]"], True),
        (["load", "history.json", "[SessionRecord]"], "[]"),
    )
    session_text = store_text(session())
    script_case(
        "a session is saved, found again and removed",
        (["save", "active-session.json", "ActiveSession", text_of(session())], True),
        (["load", "active-session.json", "ActiveSession"], session_text),
        (["remove", "active-session.json"], None),
        (["load", "active-session.json", "ActiveSession"], None),
        (["read", "active-session.json"], None),
    )
    script_case(
        "a session without hidden applications does not load",
        (["append", "active-session.json", store_text(without(session(), "hiddenBundleIDs"))], None),
        (["load", "active-session.json", "ActiveSession"], None),
    )
    script_case(
        "removing a missing file is ignored", (["remove", "a.json"], None), (["remove", "a.json"], None)
    )
    script_case(
        "appending to a missing file creates it with just that line",
        (["append", "events.log", "first"], None),
        (["read", "events.log"], "first\n"),
        (["append", "events.log", "zweite – دو"], None),
        (["append", "events.log", ""], None),
        (["read", "events.log"], "first\nzweite – دو\n\n"),
        (["remove", "events.log"], None),
        (["append", "events.log", "again"], None),
        (["read", "events.log"], "again\n"),
    )
    script_case(
        "a line is added at the end of what was saved",
        (["save", "a.json", "AllowedApp", text_of(app)], True),
        (["append", "a.json", " "], None),
        (["load", "a.json", "AllowedApp"], app_text),
        (["append", "a.json", "x"], None),
        (["read", "a.json"], app_text + " \nx\n"),
        (["load", "a.json", "AllowedApp"], None),
    )
    script_case(
        "a file of another type does not load",
        (["save", "a.json", "AllowedApp", text_of(app)], True),
        (["load", "a.json", "Thought"], None),
        (["load", "a.json", "[Thought]"], None),
        (["load", "a.json", "AppSettings"], defaults),
    )
    script_case(
        "a folder that does not exist takes nothing",
        (["save", "none/a.json", "AllowedApp", text_of(app)], False),
        (["append", "none/a.log", "line"], None),
        (["remove", "none/a.log"], None),
        (["read", "none/a.json"], None),
        (["load", "none/a.json", "AllowedApp"], None),
    )
    script_case(
        "files do not disturb each other",
        (["save", "a.json", "AllowedApp", text_of(app)], True),
        (["save", "b.json", "[Thought]", "[]"], True),
        (["remove", "a.json"], None),
        (["read", "b.json"], "[]"),
    )
    script_case(
        "each script has a directory of its own", (["read", "b.json"], None), (["read", "events.log"], None)
    )
    store_random(vectors)
    return vectors


def store_random(vectors):
    draws = Draws(18)
    types = ["AppSettings", "Thought", "[Thought]", "AllowedApp"]
    for number in range(30):
        steps = []
        for _ in range(draws.between(3, 8)):
            file = draws.one(["a.json", "b.json"])
            type_name = draws.one(types)
            steps.append(
                draws.one(
                    [
                        ["save", file, type_name, random_json_text(draws, random_value(draws, type_name))],
                        ["load", file, type_name],
                        ["append", file, random_text(draws)],
                        ["remove", file],
                        ["read", file],
                    ]
                )
            )
        steps += [["read", "a.json"], ["read", "b.json"], ["load", "a.json", draws.one(types)]]
        vectors.case("random script %d" % number, "JSONStore.script", steps=steps)


def main():
    directory = sys.argv[1] if len(sys.argv) > 1 else os.path.join(HERE, "vectors")
    os.makedirs(directory, exist_ok=True)
    groups = (
        schedule_vectors,
        profile_vectors,
        session_vectors,
        record_vectors,
        decode_vectors,
        stats_vectors,
        slots_vectors,
        store_vectors,
    )
    for group in groups:
        vectors = group()
        vectors.write(directory)
        print("%s: %d" % (vectors.file_name, len(vectors.lines)))


if __name__ == "__main__":
    main()
