#!/usr/bin/python3
"""How long it takes until a program is seen.

   first_sight.py TITLE X Y SECONDS COMMAND [ARGUMENT...]

Starts the command and prints "WINDOW PICTURE", the milliseconds until a window with that text in its
title is on the screen, and until the point X,Y is no longer black ("-" where X is "-", or when it did not
come within SECONDS). Does not wait for the command's end.
"""
import subprocess
import sys
import time

from Xlib import X, display
from Xlib.error import XError

DARK = 40  # of 255: the black of a picture is not always 0


class Watch:
    def __init__(self, title, point):
        self.display = display.Display()
        self.root = self.display.screen().root
        self.clients = self.display.intern_atom("_NET_CLIENT_LIST")
        self.name = self.display.intern_atom("_NET_WM_NAME")
        self.title = title
        self.point = point

    def window_is_there(self):
        listed = self.root.get_full_property(self.clients, X.AnyPropertyType)
        for client in listed.value if listed else []:
            try:
                window = self.display.create_resource_object("window", client)
                name = window.get_full_property(self.name, X.AnyPropertyType)
                text = name.value.decode("utf-8", "replace") if name else ""
                if self.title in text and window.get_attributes().map_state == X.IsViewable:
                    return True
            except XError:  # it has just gone
                continue
        return False

    def picture_is_there(self):
        pixel = self.root.get_image(*self.point, 1, 1, X.ZPixmap, 0xFFFFFFFF).data
        return max(pixel[:3]) >= DARK


def main():
    if len(sys.argv) < 6:
        sys.exit(__doc__)
    title, x, y, seconds = sys.argv[1], sys.argv[2], sys.argv[3], float(sys.argv[4])
    watch = Watch(title, None if x == "-" else (int(x), int(y)))
    window = picture = None
    begin = time.monotonic()
    subprocess.Popen(sys.argv[5:], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                     stderr=subprocess.DEVNULL, start_new_session=True)
    while time.monotonic() - begin < seconds:
        if window is None and watch.window_is_there():
            window = time.monotonic() - begin
        if watch.point and picture is None and watch.picture_is_there():
            picture = time.monotonic() - begin
        if window is not None and (picture is not None or not watch.point):
            break
        time.sleep(0.001)
    print(*["-" if when is None else "%.0f" % (when * 1000) for when in (window, picture)])


main()
