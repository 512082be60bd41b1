#!/bin/sh
# Draws the mark in the sizes that desktops ask for: icons/SIZE.png, from ../AppMark.svg.
set -eu
cd "$(dirname "$0")"
for size in 16 22 24 32 48 64 128 256 512; do
    rsvg-convert --width "$size" --height "$size" ../AppMark.svg --output "$size.png"
done
