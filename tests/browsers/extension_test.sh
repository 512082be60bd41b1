#!/bin/sh
# Runs the tests of the extension's logic with the interpreter that is given, if there is one.
if [ ! -x "$1" ]; then
    echo "skipped: there is no node to run scripts with"
    exit 77
fi
exec "$1" --test "$(dirname "$0")/extension_test.mjs"
