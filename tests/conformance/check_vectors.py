#!/usr/bin/env python3
"""Runs the vectors against a conformance driver.

    check_vectors.py DRIVER [VECTORS_DIR]

The driver is started once and asked one request after the other; each answer
has to come before the next request is sent. Every difference is printed with
the name of its vector; the last line counts, and the exit status is 1 if
anything failed or if there was nothing to check.

A few requests that the protocol does not allow are built in here: they must
each give an error and leave the driver answering.
"""

import glob
import json
import math
import os
import queue
import subprocess
import sys
import threading

HERE = os.path.dirname(os.path.abspath(__file__))

# How long one answer may take before the driver counts as stuck.
PATIENCE_SECONDS = 60

# Lines that must be answered with an error.
BAD_LINES = (
    ("an empty line", b""),
    ("a line of blanks", b"   "),
    ("no JSON", b"hello"),
    ("a list", b"[1,2]"),
    ("a number", b"5"),
    ("a null", b"null"),
    ("a string", b'"Schedule.deep"'),
    ("an object cut short", b'{"op":"Schedule.totalDuration","segments":['),
    ("text after the object", b'{"op":"Schedule.totalDuration","segments":[]} x'),
    ("invalid UTF-8", b'{"op":"decode","type":"AppSettings","text":"\xff{}"}'),
    ("no op", b"{}"),
    ("op is no string", b'{"op":7}'),
    ("an unknown op", b'{"op":"Schedule.nonsense","config":{}}'),
    ("an op in other letters", b'{"op":"schedule.totalduration","segments":[]}'),
    ("a missing argument", b'{"op":"Schedule.deep"}'),
    ("a null argument", b'{"op":"Schedule.deep","config":null}'),
    ("an argument of the wrong type", b'{"op":"Schedule.deep","config":[180,60,5]}'),
    ("a config without a key", b'{"op":"Schedule.deep","config":{"totalMinutes":1,"breakMinutes":1}}'),
    (
        "a minute with a fraction",
        b'{"op":"Schedule.deep","config":{"totalMinutes":1.5,"breakEveryMinutes":1,"breakMinutes":1}}',
    ),
    ("a date as text", b'{"op":"Schedule.status","segments":[],"startedAt":"0","now":0}'),
    ("a date as a boolean", b'{"op":"Schedule.status","segments":[],"startedAt":0,"now":true}'),
    ("a missing date", b'{"op":"Schedule.status","segments":[],"startedAt":0}'),
    ("an unknown kind", b'{"op":"Schedule.totalDuration","segments":[{"kind":"nap","duration":1}]}'),
    ("segments that are no list", b'{"op":"Schedule.totalDuration","segments":{}}'),
    ("an incomplete profile", b'{"op":"Profile.segments","profile":{"name":"x"}}'),
    ("an incomplete session", b'{"op":"ActiveSession.plannedEnd","session":{}}'),
    ("an unknown type", b'{"op":"decode","type":"Nonsense","text":"{}"}'),
    ("a type that is no string", b'{"op":"decode","type":1,"text":"{}"}'),
    ("a text that is no string", b'{"op":"decode","type":"AppSettings","text":{}}'),
    (
        "an unknown period",
        b'{"op":"StatsSummary.init","records":[],"period":"year","now":0,"timeZone":"UTC"}',
    ),
    (
        "an unknown time zone",
        b'{"op":"StatsSummary.init","records":[],"period":"week","now":0,"timeZone":"Mars/Base"}',
    ),
    ("an incomplete record", b'{"op":"ProjectSlots.init","records":[{}]}'),
    ("steps that are no list", b'{"op":"JSONStore.script","steps":"read"}'),
    ("an unknown step", b'{"op":"JSONStore.script","steps":[["rename","a","b"]]}'),
    ("a step without its arguments", b'{"op":"JSONStore.script","steps":[["load"]]}'),
)

# What is asked after each bad line, to see that the driver goes on.
PROBE = b'{"op":"Schedule.totalDuration","segments":[{"kind":"work","duration":60.5}]}'
PROBE_ANSWER = b'{"value":60.5}'


class BadAnswer(Exception):
    """An answer line that is no answer at all."""


class Stopped(Exception):
    """The driver ended or fell silent."""


class Driver:
    """The program under test, asked line by line."""

    def __init__(self, program):
        self.process = subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.lines = queue.Queue()
        # Reading in a thread of its own is what lets us give up on a silent driver.
        threading.Thread(target=self.collect, daemon=True).start()

    def collect(self):
        for line in self.process.stdout:
            self.lines.put(line)
        self.lines.put(None)

    def next_line(self):
        try:
            return self.lines.get(timeout=PATIENCE_SECONDS)
        except queue.Empty:
            raise Stopped("no answer within %d seconds" % PATIENCE_SECONDS)

    def ask(self, line):
        """The answer line to one request line, both without their line end."""
        try:
            self.process.stdin.write(line + b"\n")
            self.process.stdin.flush()
        except OSError:
            raise Stopped("the driver has ended")
        answer = self.next_line()
        if answer is None:
            raise Stopped("the driver has ended")
        if not answer.endswith(b"\n"):
            raise Stopped("the driver ended within an answer")
        return answer[:-1]

    def finish(self):
        """Close the input; a text telling what is wrong with the end, or None."""
        self.process.stdin.close()
        if self.next_line() is not None:
            return "more answers than requests"
        status = self.process.wait(PATIENCE_SECONDS)
        return None if status == 0 else "exit status %d" % status

    def kill(self):
        """End the driver, if it still runs."""
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()


# ---------------------------------------------------------------------------
# Comparing


def unique_members(pairs):
    """An object of the answer; a key that occurs twice is an error of the driver's."""
    result = dict(pairs)
    if len(result) != len(pairs):
        raise BadAnswer("a key occurs twice")
    return result


def integer(text):
    """A number without fraction and exponent; only a float has a negative zero."""
    return -0.0 if text == "-0" else int(text)


def no_constant(text):
    raise BadAnswer(text + " is no JSON")


def parse(text):
    return json.loads(
        text,
        object_pairs_hook=unique_members,
        parse_int=integer,
        parse_constant=no_constant,
    )


def is_number(value):
    return isinstance(value, (int, float)) and not isinstance(value, bool)


def same_number(left, right):
    """Equal as whole numbers where both are 64-bit ones, otherwise as floats."""
    if isinstance(left, int) and isinstance(right, int) and max(abs(left), abs(right)) <= 2 ** 63:
        return left == right
    try:
        left, right = float(left), float(right)
    except OverflowError:
        return False
    return left == right and math.copysign(1, left) == math.copysign(1, right)


def same(left, right):
    """Whether two parsed JSON values are equal; the order of keys is of no account."""
    if is_number(left) and is_number(right):
        return same_number(left, right)
    if type(left) is not type(right):
        return False
    if isinstance(left, dict):
        return left.keys() == right.keys() and all(same(left[key], right[key]) for key in left)
    if isinstance(left, list):
        return len(left) == len(right) and all(map(same, left, right))
    return left == right


def read_answer(line):
    try:
        return parse(line.decode("utf-8"))
    except (ValueError, RecursionError) as error:
        raise BadAnswer("the answer is no JSON: %s" % error)


def is_error(answer):
    """Whether an answer has the one form in which errors are told."""
    if not isinstance(answer, dict) or list(answer) != ["error"]:
        return False
    return isinstance(answer["error"], str) and answer["error"] != ""


# ---------------------------------------------------------------------------
# The checks


class Report:
    """Counts and prints."""

    def __init__(self):
        self.passed = 0
        self.failed = 0

    def add(self, name, complaint):
        """One result: a complaint, or None for a pass."""
        if complaint is None:
            self.passed += 1
            return
        self.failed += 1
        print("FAILED %s: %s" % (name, complaint))

    def close(self):
        """The last line and the exit status."""
        if self.passed + self.failed == 0:
            print("nothing to check")
        print("%d passed, %d failed" % (self.passed, self.failed))
        return 0 if self.passed > 0 and self.failed == 0 else 1


def load_vectors(directory):
    """All vectors of a directory as (name, request line, answer), in a fixed order."""
    vectors = []
    for path in sorted(glob.glob(os.path.join(glob.escape(directory), "*.jsonl"))):
        with open(path, encoding="utf-8", newline="\n") as file:
            for line in file:
                vector = parse(line)
                name = "%s: %s" % (os.path.basename(path), vector["name"])
                # Numbers go out as they stand in the file, so "25.0" stays what it is.
                request = json.dumps(vector["request"], ensure_ascii=False, separators=(",", ":"))
                vectors.append((name, request.encode("utf-8"), vector["answer"]))
    return vectors


def shown(value):
    text = value if isinstance(value, str) else json.dumps(value, ensure_ascii=False)
    return text if len(text) <= 2000 else text[:2000] + " ..."


def difference(line, expected):
    """What is wrong with an answer line, or None."""
    try:
        answer = read_answer(line)
    except BadAnswer as error:
        return "%s\n  answer   %s" % (error, shown(line.decode("utf-8", "replace")))
    if same(answer, expected):
        return None
    return "\n  answer   %s\n  expected %s" % (shown(answer), shown(expected))


def no_error(line):
    """What is wrong with an answer that has to be an error, or None."""
    try:
        answer = read_answer(line)
    except BadAnswer as error:
        return str(error)
    return None if is_error(answer) else "an error was due, not " + shown(answer)


def check_all(driver, vectors, report):
    for name, request, expected in vectors:
        report.add(name, difference(driver.ask(request), expected))
    for name, line in BAD_LINES:
        report.add("protocol: " + name, no_error(driver.ask(line)))
        report.add(
            "protocol: goes on after " + name, difference(driver.ask(PROBE), read_answer(PROBE_ANSWER))
        )
    report.add("protocol: the end of the input", driver.finish())


def check(program, directory):
    """Run everything; the exit status."""
    report = Report()
    vectors = load_vectors(directory)
    if not vectors:
        print("no vectors in " + directory)
        report.add("vectors", "there are none")
        return report.close()
    driver = Driver(program)
    try:
        check_all(driver, vectors, report)
    except Stopped as error:
        # Nothing that was not asked has passed.
        due = len(vectors) + 2 * len(BAD_LINES) + 1
        print("FAILED the run stopped: %s" % error)
        report.failed = due - report.passed
    finally:
        driver.kill()
    if report.failed:
        print("If the behaviour was changed on purpose: change tests/conformance/reference.py alike, then run "
              "tests/conformance/generate_vectors.py.")
    return report.close()


def main():
    if len(sys.argv) not in (2, 3):
        print("usage: check_vectors.py DRIVER [VECTORS_DIR]", file=sys.stderr)
        return 2
    # The answers may hold any character, whatever the terminal can show.
    sys.stdout.reconfigure(encoding="utf-8", errors="backslashreplace")
    directory = sys.argv[2] if len(sys.argv) == 3 else os.path.join(HERE, "vectors")
    return check(sys.argv[1], directory)


if __name__ == "__main__":
    sys.exit(main())
