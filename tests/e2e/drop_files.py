#!/usr/bin/python3
"""drop_files.py X Y [FILE…]: drops files on the window there, as a file manager does (XDND).

X and Y are positions on the X server's screen; more files, one a line, come from the standard input
unless it is a terminal or /dev/null. Ends with 0 when the window took the drop, with 1 when it
refused it or did not answer within ten seconds.
"""
import os
import sys
import time
import urllib.parse

from Xlib import X, Xatom, display
from Xlib.protocol import event

SECONDS_TO_ANSWER = 10
XDND_VERSION = 5


class Source:
    """The side of the protocol from which the files come."""

    def __init__(self, files):
        self.display = display.Display()
        self.screen = self.display.screen()
        self.window = self.screen.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        uris = ["file://" + urllib.parse.quote(os.path.abspath(file)) for file in files]
        self.data = "".join(uri + "\r\n" for uri in uris).encode()

    def atom(self, name):
        return self.display.intern_atom(name)

    def target_at(self, x, y):
        """The client's window that takes part in the protocol, looked for from outside in."""
        window = self.screen.root
        while window:
            if window.get_full_property(self.atom("XdndAware"), X.AnyPropertyType):
                return window
            child = window.translate_coords(self.screen.root, x, y).child
            if not child:
                return None
            window = child
        return None

    def send(self, target, kind, *data):
        message = event.ClientMessage(
            window=target, client_type=self.atom(kind),
            data=(32, [self.window.id, *data] + [0] * (4 - len(data))))
        target.send_event(message)
        self.display.flush()

    def answer_request(self, request):
        """Hands the list of files, or what it can be had as, to the window that asks for it."""
        taken = request.property or request.target
        if request.target == self.atom("text/uri-list"):
            request.requestor.change_property(taken, request.target, 8, self.data)
        elif request.target == self.atom("TARGETS"):
            request.requestor.change_property(taken, Xatom.ATOM, 32, [self.atom("text/uri-list")])
        else:
            taken = X.NONE
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection,
            target=request.target, property=taken))
        self.display.flush()

    def wait_for(self, kind):
        """The data of the target's next message of that kind; requests are answered meanwhile."""
        deadline = time.monotonic() + SECONDS_TO_ANSWER
        while time.monotonic() < deadline:
            if not self.display.pending_events():
                time.sleep(0.01)
                continue
            happened = self.display.next_event()
            if happened.type == X.SelectionRequest:
                self.answer_request(happened)
            elif happened.type == X.ClientMessage and happened.client_type == self.atom(kind):
                return happened.data[1]
        return None

    def drop(self, x, y):
        target = self.target_at(x, y)
        if not target:
            return "no window there takes drops"
        self.window.set_selection_owner(self.atom("XdndSelection"), X.CurrentTime)
        self.send(target, "XdndEnter", XDND_VERSION << 24, self.atom("text/uri-list"))
        self.send(target, "XdndPosition", 0, x << 16 | y, X.CurrentTime,
                  self.atom("XdndActionCopy"))
        status = self.wait_for("XdndStatus")
        if status is None or not status[1] & 1:
            return "the window does not want the files"
        self.send(target, "XdndDrop", 0, X.CurrentTime)
        if self.wait_for("XdndFinished") is None:
            return "the window did not finish the drop"
        return None


def main():
    files = sys.argv[3:]
    if not sys.stdin.isatty():
        files += [line for line in sys.stdin.read().splitlines() if line]
    problem = Source(files).drop(int(sys.argv[1]), int(sys.argv[2]))
    if problem:
        sys.exit(f"drop_files: {problem}")


main()
