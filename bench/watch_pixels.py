#!/usr/bin/python3
"""Watches one spot of the desktop and prints when its colour changes.

   watch_pixels.py [--items LENGTH] X Y SECONDS

A line "SECONDS RRGGBB" for each change, with the time since the start. With --items the last line sums
up how items of that length in seconds, each of another colour, followed each other there.
"""
import statistics
import sys
import time

from Xlib import X, display

DARK = 40  # of 255: the black of a picture is not always 0


def coarse(colour):
    """One letter for black, else which of the three colours are there: films blur them a little."""
    parts = [int(colour[i:i + 2], 16) for i in (0, 2, 4)]
    if max(parts) < DARK:
        return "black"
    return "".join("1" if part > 110 else "0" for part in parts)


def watch(x, y, seconds):
    """The changes as pairs of time and colour, and how often it looked."""
    root = display.Display().screen().root
    begin = time.monotonic()
    changes = []
    looks = 0
    while True:
        pixel = root.get_image(x, y, 1, 1, X.ZPixmap, 0xFFFFFFFF).data
        now = time.monotonic() - begin
        looks += 1
        colour = "%02x%02x%02x" % (pixel[2], pixel[1], pixel[0])
        if not changes or colour != changes[-1][1]:
            print("%.4f %s" % (now, colour), flush=True)
            changes.append((now, colour))
        if now > seconds:
            return changes, looks
        time.sleep(0.001)


def summary(changes, length, step):
    phases = []
    for when, colour in changes:
        if not phases or phases[-1][1] != coarse(colour):
            phases.append((when, coarse(colour)))
    starts = [when for when, what in phases if what != "black"]
    late = sorted((b - a - length) * 1000 for a, b in zip(starts, starts[1:]))
    black = [(after[0] - phase[0]) * 1000 for phase, after in zip(phases, phases[1:])
             if phase[1] == "black"][1:]  # the first is before the first item
    if len(late) < 2:
        return "%d items only" % len(starts)
    within = sum(1 for ms in late if abs(ms) <= 40)
    return ("%d changes: %d within 40 ms; late by %.0f ms (least), %.0f (median), %.0f (95 %%), %.0f (worst); "
            "black %d times, %.0f ms at most; looked every %.1f ms" % (
                len(late), within, late[0], statistics.median(late), late[int(len(late) * 0.95)], late[-1],
                len(black), max(black, default=0), step))


def main():
    arguments = sys.argv[1:]
    length = None
    if arguments and arguments[0] == "--items":
        length = float(arguments[1])
        arguments = arguments[2:]
    if len(arguments) != 3:
        sys.exit(__doc__)
    x, y, seconds = int(arguments[0]), int(arguments[1]), float(arguments[2])
    changes, looks = watch(x, y, seconds)
    if length is not None:
        print(summary(changes, length, seconds * 1000 / looks))


main()
