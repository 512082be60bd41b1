#!/usr/bin/env python3
"""Reads the watchdog's shell line and property list back with what will read them in earnest: shells and list readers.

Usage: check_watchdog.py DRIVER STRINGS

Every text of STRINGS is quoted and said again by dash and bash, and goes through a property list to plistlib and
xmllint. Ends with a line of what passed and failed; status 1 when anything failed or nothing was tried.
"""

import json
import plistlib
import subprocess
import sys

SHELLS = ["dash", "bash"]


def ask(driver, requests):
    """The answers of the driver, one for each request."""
    lines = "".join(json.dumps(request) + "\n" for request in requests)
    done = subprocess.run([driver], input=lines.encode(), stdout=subprocess.PIPE, check=True)
    return [json.loads(line)["value"] for line in done.stdout.decode().split("\n") if line]


def said_by(shell, word):
    """What a shell makes of a quoted word."""
    done = subprocess.run([shell, "-c", "printf '%s' " + word], stdout=subprocess.PIPE, check=False)
    return done.stdout.decode(errors="replace") if done.returncode == 0 else None


def is_wellformed(text):
    return subprocess.run(["xmllint", "--noout", "--nonet", "-"], input=text.encode(), check=False).returncode == 0


def expected_list(line):
    return {
        "Label": "com.kestrava.velmorin.watchdog",
        "ProgramArguments": ["/bin/sh", "-c", line],
        "RunAtLoad": True,
        "StartInterval": 3,
        "ThrottleInterval": 1,
        "LimitLoadToSessionType": "Aqua",
    }


def problems(row, line, text):
    """What is wrong with the shell line and the property list of one text."""
    words = line.split(" --args '--watchdog' ", 1)[1]
    if not row["has_nul"]:
        for shell in SHELLS:
            if said_by(shell, words) != row["s"]:
                yield "%s says something else" % shell
    if (text is not None) != row["xml10_ok"]:
        yield "a list was %s" % ("refused" if text is None else "made")
    if text is None:
        return
    if not is_wellformed(text):
        yield "xmllint refuses the list"
    read, expected = plistlib.loads(text.encode()), expected_list(line)
    # Python takes true for 1; a list does not.
    types = {key: type(value) for key, value in read.items()}
    if read != expected or types != {key: type(value) for key, value in expected.items()}:
        yield "plistlib reads another list"


def main():
    driver, strings = sys.argv[1:]
    with open(strings, encoding="utf-8") as file:
        rows = [json.loads(line) for line in file]
    arguments = [{"bundlePath": "/opt/Velmorin", "extraArguments": [row["s"]]} for row in rows]
    lines = ask(driver, [{"op": "Watchdog.shellLine", **given} for given in arguments])
    lists = ask(driver, [{"op": "Watchdog.propertyList", **given} for given in arguments])
    passed = failed = 0
    for row, line, text in zip(rows, lines, lists):
        found = list(problems(row, line, text))
        for problem in found:
            print("FAILED %s: %s" % (row["id"], problem))
        passed, failed = passed + (not found), failed + bool(found)
    print("%d passed, %d failed" % (passed, failed))
    return 0 if passed and not failed else 1


if __name__ == "__main__":
    sys.exit(main())
