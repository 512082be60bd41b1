#!/usr/bin/env python3
"""A plain second implementation of the session model, to check the real one against.

It speaks the conformance driver's protocol: one JSON request per line on
standard input, one JSON answer per line on standard output. Everything here is
written for being read, not for speed: every rule is a few lines that can be
worked out by hand. It shares no code with the core module.

Inside, a decoded value is made of plain Python values: a record is a dict whose
keys stand in the order in which they are written, an absent optional member is
a missing key, a 64-bit integer is an int, a 64-bit float is a float, a date is
a float of seconds since 2001-01-01 00:00:00 UTC, a UUID is its upper-case text.
One writer can therefore write them all.

It answers the operations of the session model only; for any other operation
the answer is an error.
"""

import datetime
import decimal
import math
import os
import sys
import tempfile
import zoneinfo


class Malformed(Exception):
    """A request that the protocol does not allow; its text goes into the answer."""


class DecodeFailure(Exception):
    """A JSON text, or a part of one, that is not a value of the wanted type."""


# ---------------------------------------------------------------------------
# Reading JSON text
#
# The parser is our own because we need what a convenient one hides: the digits
# of a number as they were written, and every key of an object, repeated or not.


class Number:
    """A JSON number, kept as written until the wanted type is known."""

    def __init__(self, text):
        self.text = text


class Object:
    """A JSON object as the list of its (key, value) pairs in the text's order."""

    def __init__(self, pairs):
        self.pairs = pairs

    def values(self, key):
        """All values that stand under `key`."""
        return [value for name, value in self.pairs if name == key]


ESCAPES = {'"': '"', "\\": "\\", "/": "/", "b": "\b", "f": "\f", "n": "\n", "r": "\r", "t": "\t"}
DIGITS = "0123456789"
HEX_DIGITS = "0123456789abcdefABCDEF"


class Parser:
    """A strict recursive-descent reader of one JSON text."""

    def __init__(self, text):
        self.text = text
        self.at = 0

    def peek(self):
        """The next character, or an empty string at the end."""
        return self.text[self.at : self.at + 1]

    def take(self, expected):
        """Step over `expected`, which has to come next."""
        if not self.text.startswith(expected, self.at):
            raise DecodeFailure("expected %r at character %d" % (expected, self.at))
        self.at += len(expected)

    def skip_space(self):
        while self.peek() and self.peek() in " \t\n\r":
            self.at += 1

    def document(self):
        """The one value of the text; nothing but white space may surround it."""
        value = self.value()
        if self.at != len(self.text):
            raise DecodeFailure("text after the value at character %d" % self.at)
        return value

    def value(self):
        self.skip_space()
        first = self.peek()
        if first == "{":
            result = self.object()
        elif first == "[":
            result = self.array()
        elif first == '"':
            result = self.string()
        elif first == "t":
            self.take("true")
            result = True
        elif first == "f":
            self.take("false")
            result = False
        elif first == "n":
            self.take("null")
            result = None
        else:
            result = self.number()
        self.skip_space()
        return result

    def object(self):
        self.take("{")
        pairs = []
        self.skip_space()
        if self.peek() != "}":
            pairs.append(self.member())
            while self.peek() == ",":
                self.take(",")
                pairs.append(self.member())
        self.take("}")
        return Object(pairs)

    def member(self):
        self.skip_space()
        key = self.string()
        self.skip_space()
        self.take(":")
        return key, self.value()

    def array(self):
        self.take("[")
        items = []
        self.skip_space()
        if self.peek() != "]":
            items.append(self.value())
            while self.peek() == ",":
                self.take(",")
                items.append(self.value())
        self.take("]")
        return items

    def string(self):
        self.take('"')
        characters = []
        while self.peek() != '"':
            character = self.peek()
            if character == "" or character < " ":
                raise DecodeFailure("unended string at character %d" % self.at)
            self.at += 1
            characters.append(self.escape() if character == "\\" else character)
        self.take('"')
        result = "".join(characters)
        if any(is_surrogate(character) for character in result):
            raise DecodeFailure("lone surrogate")
        return result

    def escape(self):
        """What stands after a backslash; two escaped surrogates make one character."""
        kind = self.peek()
        self.at += 1
        if kind in ESCAPES:
            return ESCAPES[kind]
        if kind != "u":
            raise DecodeFailure("unknown escape at character %d" % self.at)
        unit = self.hex_unit()
        if 0xD800 <= unit <= 0xDBFF and self.text.startswith("\\u", self.at):
            before = self.at
            self.take("\\u")
            low = self.hex_unit()
            if 0xDC00 <= low <= 0xDFFF:
                return chr(0x10000 + (unit - 0xD800) * 0x400 + (low - 0xDC00))
            self.at = before
        return chr(unit)

    def hex_unit(self):
        digits = self.text[self.at : self.at + 4]
        if len(digits) != 4 or any(digit not in HEX_DIGITS for digit in digits):
            raise DecodeFailure("four hexadecimal digits expected at character %d" % self.at)
        self.at += 4
        return int(digits, 16)

    def number(self):
        start = self.at
        if self.peek() == "-":
            self.take("-")
        if self.peek() == "0":
            self.take("0")
        else:
            self.digits()
        if self.peek() == ".":
            self.take(".")
            self.digits()
        if self.peek() in ("e", "E"):
            self.at += 1
            if self.peek() in ("+", "-"):
                self.at += 1
            self.digits()
        return Number(self.text[start : self.at])

    def digits(self):
        """One digit or more."""
        start = self.at
        while self.peek() and self.peek() in DIGITS:
            self.at += 1
        if self.at == start:
            raise DecodeFailure("digit expected at character %d" % start)


def is_surrogate(character):
    return 0xD800 <= ord(character) <= 0xDFFF


def parse(text):
    """The parsed JSON value of a text."""
    return Parser(text).document()


# ---------------------------------------------------------------------------
# Writing JSON text

SHORT_ESCAPES = {
    '"': '\\"',
    "\\": "\\\\",
    "/": "\\/",
    "\b": "\\b",
    "\f": "\\f",
    "\n": "\\n",
    "\r": "\\r",
    "\t": "\\t",
}


def write(value):
    """The compact text of a value, as the store writes it."""
    if value is None:
        return "null"
    if isinstance(value, bool):
        return "true" if value else "false"
    if isinstance(value, int):
        return str(value)
    if isinstance(value, float):
        return write_double(value)
    if isinstance(value, str):
        return write_string(value)
    if isinstance(value, list):
        return "[" + ",".join(write(item) for item in value) + "]"
    members = [write_string(key) + ":" + write(member) for key, member in value.items()]
    return "{" + ",".join(members) + "}"


def write_double(value):
    """Whole numbers as plain digits, all others as the shortest text that reads back."""
    if value == 0:
        return "-0" if math.copysign(1.0, value) < 0 else "0"
    if value == math.floor(value):
        return str(int(value))
    return repr(value)


def write_string(text):
    return '"' + "".join(write_character(character) for character in text) + '"'


def write_character(character):
    if character in SHORT_ESCAPES:
        return SHORT_ESCAPES[character]
    if character < " ":
        return "\\u%04x" % ord(character)
    return character


# ---------------------------------------------------------------------------
# From parsed JSON to values
#
# A reader is a function from a parsed JSON value to a value of its type; it
# raises DecodeFailure where there is none.


def read_string(json):
    if not isinstance(json, str):
        raise DecodeFailure("string expected")
    return json


def read_boolean(json):
    if not isinstance(json, bool):
        raise DecodeFailure("boolean expected")
    return json


def read_double(json):
    if not isinstance(json, Number):
        raise DecodeFailure("number expected")
    value = float(json.text)
    if math.isinf(value):
        raise DecodeFailure("number too large")
    return value


def read_integer(json):
    """A whole number of the signed 64-bit range, in whatever way it is written."""
    if not isinstance(json, Number):
        raise DecodeFailure("number expected")
    mantissa = json.text.lower().split("e")[0]
    if all(character in "-0." for character in mantissa):
        return 0
    try:
        value = decimal.Decimal(json.text)
    except decimal.InvalidOperation:
        raise DecodeFailure("number out of range")
    # `adjusted` is the power of ten of the first digit: outside this range the
    # number is below one or has too many digits, and int() need not be asked.
    if not 0 <= value.adjusted() <= 18:
        raise DecodeFailure("not a whole number of 64 bits")
    whole = int(value)
    if whole != value or not -(2 ** 63) <= whole < 2 ** 63:
        raise DecodeFailure("not a whole number of 64 bits")
    return whole


read_date = read_double


def read_uuid(json):
    text = read_string(json)
    groups = text.split("-")
    if [len(group) for group in groups] != [8, 4, 4, 4, 12]:
        raise DecodeFailure("not a UUID")
    if any(character not in HEX_DIGITS for group in groups for character in group):
        raise DecodeFailure("not a UUID")
    return text.upper()


def one_of(*raw_values):
    """A reader of an enumeration with these raw values."""

    def read(json):
        text = read_string(json)
        if text not in raw_values:
            raise DecodeFailure("unknown value " + text)
        return text

    return read


def list_of(read_item):
    """A reader of a list."""

    def read(json):
        if not isinstance(json, list):
            raise DecodeFailure("list expected")
        return [read_item(item) for item in json]

    return read


REQUIRED = True
OPTIONAL = False


def known_member(json, key):
    """The value under a key the type knows; None where there is none or a null."""
    values = json.values(key)
    if len(values) > 1:
        raise DecodeFailure("key occurs twice: " + key)
    return values[0] if values else None


def record_of(*members):
    """A reader of an object with these (key, reader, required) members, in order."""

    def read(json):
        if not isinstance(json, Object):
            raise DecodeFailure("object expected")
        result = {}
        for key, read_member, required in members:
            member = known_member(json, key)
            if member is not None:
                result[key] = read_member(member)
            elif required:
                raise DecodeFailure("missing: " + key)
        return result

    return read


read_segment_kind = one_of("work", "shortBreak", "longBreak", "lockedBreak")
read_mode = one_of("pomodoro", "deep")
read_outcome = one_of("completed", "aborted")
read_period = one_of("today", "week", "month", "all")

read_segment = record_of(
    ("kind", read_segment_kind, REQUIRED),
    ("duration", read_double, REQUIRED),
)
read_segments = list_of(read_segment)

read_pomodoro_config = record_of(
    ("workMinutes", read_integer, REQUIRED),
    ("shortBreakMinutes", read_integer, REQUIRED),
    ("longBreakMinutes", read_integer, REQUIRED),
    ("cyclesBeforeLongBreak", read_integer, REQUIRED),
    ("totalCycles", read_integer, REQUIRED),
)

read_deep_config = record_of(
    ("totalMinutes", read_integer, REQUIRED),
    ("breakEveryMinutes", read_integer, REQUIRED),
    ("breakMinutes", read_integer, REQUIRED),
)

read_allowed_app = record_of(
    ("bundleID", read_string, REQUIRED),
    ("name", read_string, REQUIRED),
)

read_profile = record_of(
    ("id", read_uuid, REQUIRED),
    ("name", read_string, REQUIRED),
    ("allowedApps", list_of(read_allowed_app), REQUIRED),
    ("allowedDomains", list_of(read_string), REQUIRED),
    ("mode", read_mode, REQUIRED),
    ("pomodoro", read_pomodoro_config, REQUIRED),
    ("deep", read_deep_config, REQUIRED),
)

read_session = record_of(
    ("id", read_uuid, REQUIRED),
    ("profileName", read_string, REQUIRED),
    ("mode", read_mode, REQUIRED),
    ("intent", read_string, REQUIRED),
    ("startedAt", read_date, REQUIRED),
    ("segments", read_segments, REQUIRED),
    ("allowedBundleIDs", list_of(read_string), REQUIRED),
    ("allowedDomains", list_of(read_string), REQUIRED),
    ("attempts", read_integer, REQUIRED),
    ("returns", read_integer, REQUIRED),
    ("hiddenBundleIDs", list_of(read_string), REQUIRED),
)

read_record = record_of(
    ("id", read_uuid, REQUIRED),
    ("profileName", read_string, REQUIRED),
    ("mode", read_mode, REQUIRED),
    ("intent", read_string, REQUIRED),
    ("startedAt", read_date, REQUIRED),
    ("endedAt", read_date, REQUIRED),
    ("focusedSeconds", read_double, REQUIRED),
    ("completedRounds", read_integer, OPTIONAL),
    ("attempts", read_integer, REQUIRED),
    ("returns", read_integer, REQUIRED),
    ("outcome", read_outcome, REQUIRED),
    ("exitReason", read_string, OPTIONAL),
)

read_thought = record_of(
    ("id", read_uuid, REQUIRED),
    ("text", read_string, REQUIRED),
    ("createdAt", read_date, REQUIRED),
    ("done", read_boolean, REQUIRED),
    ("updatedAt", read_date, OPTIONAL),
)


def tolerantly(read, default):
    """A reader that answers with a default where `read` finds no value."""

    def read_or_default(json):
        try:
            return read(json)
        except DecodeFailure:
            return default

    return read_or_default


# Language and theme swallow what they do not know, so that a file from a build
# with other languages or themes loses only that one setting. All other members
# have defaults for a missing value but not for a wrong one.
SETTINGS_MEMBERS = (
    ("useFocusShortcuts", read_boolean, False),
    ("focusOnShortcut", read_string, "Velmorin On"),
    ("focusOffShortcut", read_string, "Velmorin Off"),
    ("showFloatingTimer", read_boolean, True),
    ("showQuoteBackdrop", read_boolean, True),
    ("language", tolerantly(one_of("fa", "en", "de"), "fa"), "fa"),
    ("colorTheme", tolerantly(one_of("dusk", "dawn", "aurora"), "dusk"), "dusk"),
    ("lockPhoneToo", read_boolean, False),
)


def read_settings(json):
    if not isinstance(json, Object):
        raise DecodeFailure("object expected")
    result = {}
    for key, read_member, default in SETTINGS_MEMBERS:
        member = known_member(json, key)
        result[key] = default if member is None else read_member(member)
    return result


STORED_TYPES = {
    "Segment": read_segment,
    "PomodoroConfig": read_pomodoro_config,
    "DeepConfig": read_deep_config,
    "AllowedApp": read_allowed_app,
    "Profile": read_profile,
    "[Profile]": list_of(read_profile),
    "ActiveSession": read_session,
    "SessionRecord": read_record,
    "[SessionRecord]": list_of(read_record),
    "Thought": read_thought,
    "[Thought]": list_of(read_thought),
    "AppSettings": read_settings,
}


def decode(read, text):
    """The value of a file's text, or None where the text does not decode."""
    try:
        return read(parse(text))
    except (DecodeFailure, RecursionError):
        return None


# ---------------------------------------------------------------------------
# The plan of a session and the position in it

# A guard against plans nobody could sit through; no real setting comes near.
MOST_SEGMENTS = 100000


def segment(kind, duration):
    return {"kind": kind, "duration": duration}


def seconds_of(minutes):
    return float(minutes) * 60.0


def pomodoro_plan(config):
    work = max(config["workMinutes"], 1)
    short = max(config["shortBreakMinutes"], 1)
    long = max(config["longBreakMinutes"], 1)
    every = max(config["cyclesBeforeLongBreak"], 1)
    total = max(config["totalCycles"], 1)
    plan = []
    for cycle in range(1, total + 1):
        # A cycle that would not fit whole is left out.
        if len(plan) + 2 > MOST_SEGMENTS:
            break
        plan.append(segment("work", seconds_of(work)))
        if cycle % every == 0:
            plan.append(segment("longBreak", seconds_of(long)))
        elif cycle < total:
            plan.append(segment("shortBreak", seconds_of(short)))
    return plan


def deep_plan(config):
    left = seconds_of(max(config["totalMinutes"], 1))
    every = seconds_of(config["breakEveryMinutes"])
    pause = seconds_of(config["breakMinutes"])
    if not every > 0 or not pause > 0:
        return [segment("work", left)]
    plan = []
    while True:
        block = min(left, every)
        plan.append(segment("work", block))
        left -= block
        # Where a break and more work would not fit any more, the rest joins this block.
        if not pause < left or len(plan) + 2 > MOST_SEGMENTS:
            break
        plan.append(segment("lockedBreak", pause))
        left -= pause
    # What is left is no longer than a break and is worked through without one.
    if left > 0:
        plan[-1]["duration"] += left
    return plan


def total_duration(segments):
    total = 0.0
    for part in segments:
        total += part["duration"]
    return total


def elapsed_seconds(started_at, now):
    """Seconds since the start; a clock set back never yields a time before it."""
    elapsed = now - started_at
    return elapsed if elapsed > 0 else 0.0


def status(segments, started_at, now):
    total = total_duration(segments)
    elapsed = elapsed_seconds(started_at, now)
    end = 0.0
    for index, part in enumerate(segments):
        end += part["duration"]
        if elapsed < end:
            return {
                "segmentIndex": index,
                "kind": part["kind"],
                "remainingInSegment": end - elapsed,
                "remainingTotal": total - elapsed,
                "isFinished": False,
                "isLocked": part["kind"] in ("work", "lockedBreak"),
            }
    return {
        "segmentIndex": len(segments) - 1 if segments else 0,
        "kind": segments[-1]["kind"] if segments else "work",
        "remainingInSegment": 0.0,
        "remainingTotal": 0.0,
        "isFinished": True,
        "isLocked": False,
    }


def finished_work(segments, started_at, now):
    elapsed = elapsed_seconds(started_at, now)
    finished = []
    end = 0.0
    for part in segments:
        end += part["duration"]
        if not end - 0.01 <= elapsed:
            break
        if part["kind"] == "work":
            finished.append(segment("work", part["duration"]))
    return finished


def focused_seconds(segments, started_at, now):
    elapsed = elapsed_seconds(started_at, now)
    offset = 0.0
    focused = 0.0
    for part in segments:
        if not offset < elapsed:
            break
        if part["kind"] == "work":
            focused += min(elapsed - offset, part["duration"])
        offset += part["duration"]
    return focused


# ---------------------------------------------------------------------------
# Profiles, the running session, the record that is left of it

DEFAULT_POMODORO = {
    "workMinutes": 25,
    "shortBreakMinutes": 5,
    "longBreakMinutes": 15,
    "cyclesBeforeLongBreak": 4,
    "totalCycles": 4,
}
DEFAULT_DEEP = {"totalMinutes": 180, "breakEveryMinutes": 60, "breakMinutes": 5}

EXIT_WAIT_SECONDS = {"pomodoro": 60.0, "deep": 180.0}


def profile_segments(profile):
    if profile["mode"] == "deep":
        return deep_plan(profile["deep"])
    return pomodoro_plan(profile["pomodoro"])


def has_default_timings(profile):
    return profile["pomodoro"] == DEFAULT_POMODORO and profile["deep"] == DEFAULT_DEEP


def with_default_timings(profile):
    result = dict(profile)
    result["pomodoro"] = dict(DEFAULT_POMODORO)
    result["deep"] = dict(DEFAULT_DEEP)
    return result


def session_status(session, at):
    return status(session["segments"], session["startedAt"], at)


def planned_end(session):
    return session["startedAt"] + total_duration(session["segments"])


def is_all_work_done(session, at):
    position = session_status(session, at)
    if position["isFinished"]:
        return True
    ahead = session["segments"][position["segmentIndex"] :]
    return all(part["kind"] != "work" for part in ahead)


def remaining_fraction(session, at):
    total = total_duration(session["segments"])
    if not total > 0:
        return 0.0
    fraction = session_status(session, at)["remainingTotal"] / total
    if fraction < 0:
        return 0.0
    if fraction >= 1:
        return 1.0
    return fraction


def make_record(session, ended_at, outcome, exit_reason):
    segments = session["segments"]
    started_at = session["startedAt"]
    if session["mode"] == "deep":
        rounds = None
        focused = focused_seconds(segments, started_at, ended_at)
    else:
        if outcome == "completed":
            credited = [part for part in segments if part["kind"] == "work"]
        else:
            credited = finished_work(segments, started_at, ended_at)
        rounds = len(credited)
        focused = total_duration(credited)
    record = {
        "id": session["id"],
        "profileName": session["profileName"],
        "mode": session["mode"],
        "intent": session["intent"],
        "startedAt": started_at,
        "endedAt": ended_at,
        "focusedSeconds": focused,
        "completedRounds": rounds,
        "attempts": session["attempts"],
        "returns": session["returns"],
        "outcome": outcome,
        "exitReason": exit_reason,
    }
    return {key: member for key, member in record.items() if member is not None}


# ---------------------------------------------------------------------------
# The calendar
#
# Days are cut by the local date of an instant. A day begins at the first
# instant that has its date: where the clocks jump over midnight that is a later
# time of day, where midnight comes twice it is the first of the two.

# 2001-01-01 00:00:00 UTC in seconds since 1970.
EPOCH_2001 = 978307200
EPOCH_1970 = datetime.datetime(1970, 1, 1, tzinfo=datetime.timezone.utc)
DAY = 86400


def local_time(unix, zone):
    """The local date and time of a whole number of seconds since 1970."""
    return (EPOCH_1970 + datetime.timedelta(seconds=unix)).astimezone(zone)


def offset_seconds(unix, zone):
    return int(local_time(unix, zone).utcoffset().total_seconds())


def local_date(moment, zone):
    """The calendar day of a date in a zone."""
    return local_time(math.floor(moment) + EPOCH_2001, zone).date()


def transitions(first, last, zone, step=900):
    """The instants between two seconds since 1970 at which the zone's offset changes."""
    found = []
    for low in range(first, last, step):
        high = low + step
        if offset_seconds(low, zone) == offset_seconds(high, zone):
            continue
        before = offset_seconds(low, zone)
        while high - low > 1:
            middle = (low + high) // 2
            if offset_seconds(middle, zone) == before:
                low = middle
            else:
                high = middle
        found.append(high)
    return found


def first_instant(day, zone):
    """The first second since 1970 with this local date; None for a day the zone skips.

    A day can only begin at a local midnight or at a change of the offset, so it
    is enough to look at those near the day, in order of time.
    """
    midnight = (day - EPOCH_1970.date()).days * DAY
    first, last = midnight - 2 * DAY, midnight + 2 * DAY
    changes = transitions(first, last, zone)
    offsets = {offset_seconds(unix, zone) for unix in [first, last] + changes}
    candidates = changes + [midnight - offset for offset in offsets]
    for unix in sorted(candidates):
        if local_time(unix, zone).date() == day:
            return unix
    return None


DAY_STARTS = {}


def start_of_day(day, zone):
    """The start of a day as a date, or None. Kept, as the search above is slow."""
    key = (zone.key, day)
    if key not in DAY_STARTS:
        unix = first_instant(day, zone)
        DAY_STARTS[key] = None if unix is None else float(unix - EPOCH_2001)
    return DAY_STARTS[key]


# ---------------------------------------------------------------------------
# Statistics

MOST_SLOTS = 5
OTHER_NAME = "بقیه"


def project_slots(records):
    """The names of the projects that have a place of their own, earliest used first."""
    names = []
    for record in sorted(records, key=lambda record: record["startedAt"]):
        if record["profileName"] not in names:
            names.append(record["profileName"])
    return names[:MOST_SLOTS]


def slot_name(record, names):
    return record["profileName"] if record["profileName"] in names else OTHER_NAME


def records_of_period(records, period, now, zone):
    if period == "all":
        return list(records)
    today = local_date(now, zone)
    days_back = {"today": 0, "week": 6, "month": 29}[period]
    cut = start_of_day(today - datetime.timedelta(days=days_back), zone)
    if cut is None:
        cut = start_of_day(today, zone)
    return [record for record in records if record["startedAt"] >= cut]


def project_totals(records, names):
    totals = {}
    for record in records:
        name = slot_name(record, names)
        total = totals.setdefault(name, {"name": name, "seconds": 0.0, "sessions": 0})
        total["seconds"] += record["focusedSeconds"]
        total["sessions"] += 1
    # Comparing Python strings compares their code points.
    return sorted(totals.values(), key=lambda total: (-total["seconds"], total["name"]))


def days_of_period(period, now, zone):
    """The calendar days of the chart, oldest first, without those the zone skips."""
    if period == "today":
        return []
    count = 7 if period == "week" else 30
    today = local_date(now, zone)
    days = [today + datetime.timedelta(days=offset) for offset in range(1 - count, 1)]
    return [day for day in days if start_of_day(day, zone) is not None]


def day_segments(day, records, names, zone):
    """The pieces of one day's bar, from the bottom up.

    The walk goes over the names and then over the group of the rest, also where
    one of the projects bears the group's own name: it is then walked twice.
    """
    start = start_of_day(day, zone)
    of_day = [record for record in records if local_date(record["startedAt"], zone) == day]
    pieces = []
    bottom = 0.0
    for name in names + [OTHER_NAME]:
        seconds = 0.0
        for record in of_day:
            if slot_name(record, names) == name:
                seconds += record["focusedSeconds"]
        if not seconds > 0:
            continue
        end = bottom + seconds / 60.0
        pieces.append(
            {
                "id": repr(start + EPOCH_2001) + "-" + name,
                "day": start,
                "project": name,
                "startMinutes": bottom,
                "endMinutes": end,
            }
        )
        bottom = end
    return pieces


def stats_summary(records, period, now, zone):
    names = project_slots(records)
    chosen = records_of_period(records, period, now, zone)
    days = days_of_period(period, now, zone)
    focused = 0.0
    for record in chosen:
        focused += record["focusedSeconds"]
    return {
        "records": chosen,
        "focusedSeconds": focused,
        "sessions": len(chosen),
        "rounds": sum(record.get("completedRounds", 0) for record in chosen),
        "returns": sum(record["returns"] for record in chosen),
        "byProject": project_totals(chosen, names),
        "days": [start_of_day(day, zone) for day in days],
        "segments": [piece for day in days for piece in day_segments(day, chosen, names, zone)],
    }


# ---------------------------------------------------------------------------
# The store


class Store:
    """The files of one directory; nothing here ever raises for a file's sake."""

    def __init__(self, directory):
        self.directory = directory

    def path(self, name):
        return os.path.join(self.directory, name)

    def write_atomically(self, name, data):
        """Put a whole file in place; false where that fails."""
        temporary = self.path(name) + ".new"
        try:
            with open(temporary, "wb") as file:
                file.write(data)
            os.replace(temporary, self.path(name))
        except OSError:
            return False
        return True

    def save(self, name, value):
        return self.write_atomically(name, write(value).encode("utf-8"))

    def read(self, name):
        """The file's text, or None."""
        try:
            with open(self.path(name), "rb") as file:
                return file.read().decode("utf-8")
        except (OSError, UnicodeDecodeError):
            return None

    def load(self, name, read_value):
        text = self.read(name)
        return None if text is None else decode(read_value, text)

    def append_line(self, name, line):
        data = (line + "\n").encode("utf-8")
        try:
            with open(self.path(name), "r+b") as file:
                file.seek(0, os.SEEK_END)
                file.write(data)
        except OSError:
            self.write_atomically(name, data)

    def remove(self, name):
        try:
            os.remove(self.path(name))
        except OSError:
            pass


def run_script(steps):
    """The results of store steps, in a directory that lives only for them."""
    with tempfile.TemporaryDirectory() as directory:
        store = Store(directory)
        return [run_step(store, step) for step in steps]


def run_step(store, step):
    name, arguments = step[0], step[1:]
    if name == "save" and len(arguments) == 3:
        file, type_name, text = arguments
        value = decode(stored_type(type_name), text)
        if value is None:
            raise Malformed("nothing to save: the text is no " + type_name)
        return store.save(file, value)
    if name == "load" and len(arguments) == 2:
        file, type_name = arguments
        return encoded(store.load(file, stored_type(type_name)))
    if name == "append" and len(arguments) == 2:
        store.append_line(*arguments)
        return None
    if name == "remove" and len(arguments) == 1:
        store.remove(*arguments)
        return None
    if name == "read" and len(arguments) == 1:
        return store.read(*arguments)
    raise Malformed("unknown step")


# ---------------------------------------------------------------------------
# The protocol


def stored_type(name):
    if name not in STORED_TYPES:
        raise Malformed("unknown type: " + name)
    return STORED_TYPES[name]


def encoded(value):
    return None if value is None else write(value)


def read_steps(json):
    steps = list_of(list_of(read_string))(json)
    if any(not step for step in steps):
        raise DecodeFailure("empty step")
    return steps


def read_zone(json):
    name = read_string(json)
    try:
        return zoneinfo.ZoneInfo(name)
    except (ValueError, OSError, zoneinfo.ZoneInfoNotFoundError):
        raise DecodeFailure("unknown time zone: " + name)


def optional(read):
    """A reader of an argument that may be missing or null."""
    return lambda json: None if json is None else read(json)


MOMENT = (("segments", read_segments), ("startedAt", read_date), ("now", read_date))
SESSION = (("session", read_session),)
SESSION_AT = (("session", read_session), ("at", read_date))
PROFILE = (("profile", read_profile),)

# The operations: the function, then the readers of its arguments in order.
OPERATIONS = {
    "Schedule.pomodoro": (pomodoro_plan, (("config", read_pomodoro_config),)),
    "Schedule.deep": (deep_plan, (("config", read_deep_config),)),
    "Schedule.totalDuration": (total_duration, (("segments", read_segments),)),
    "Schedule.status": (status, MOMENT),
    "Schedule.finishedWork": (finished_work, MOMENT),
    "Schedule.focusedSeconds": (focused_seconds, MOMENT),
    "Profile.segments": (profile_segments, PROFILE),
    "Profile.hasDefaultTimings": (has_default_timings, PROFILE),
    "Profile.resetTimings": (with_default_timings, PROFILE),
    "ActiveSession.status": (session_status, SESSION_AT),
    "ActiveSession.isAllWorkDone": (is_all_work_done, SESSION_AT),
    "ActiveSession.remainingFraction": (remaining_fraction, SESSION_AT),
    "ActiveSession.plannedEnd": (planned_end, SESSION),
    "ActiveSession.exitWaitSeconds": (lambda session: EXIT_WAIT_SECONDS[session["mode"]], SESSION),
    "SessionRecord.init": (
        make_record,
        (
            ("session", read_session),
            ("endedAt", read_date),
            ("outcome", read_outcome),
            ("exitReason", optional(read_string)),
        ),
    ),
    "decode": (
        lambda type_name, text: encoded(decode(stored_type(type_name), text)),
        (("type", read_string), ("text", read_string)),
    ),
    "StatsSummary.init": (
        stats_summary,
        (
            ("records", list_of(read_record)),
            ("period", read_period),
            ("now", read_date),
            ("timeZone", read_zone),
        ),
    ),
    "ProjectSlots.init": (project_slots, (("records", list_of(read_record)),)),
    "JSONStore.script": (run_script, (("steps", read_steps),)),
}


def answer(line):
    """The answer to one line of input, as a value to be written."""
    try:
        return {"value": perform(parse(line.decode("utf-8")))}
    except (Malformed, DecodeFailure, UnicodeDecodeError, RecursionError, OverflowError) as error:
        return {"error": str(error) or type(error).__name__}


def perform(request):
    if not isinstance(request, Object):
        raise Malformed("the line is not an object")
    name = read_string(argument(request, "op"))
    if name not in OPERATIONS:
        raise Malformed("unknown op: " + name)
    function, arguments = OPERATIONS[name]
    return function(*[read(argument(request, key)) for key, read in arguments])


def argument(request, key):
    """The value of a request's member; a missing one is like a null."""
    values = request.values(key)
    return values[0] if values else None


def main():
    for line in sys.stdin.buffer:
        sys.stdout.buffer.write(write(answer(line)).encode("utf-8") + b"\n")
        sys.stdout.buffer.flush()


if __name__ == "__main__":
    main()
