#!/usr/bin/env python3
"""Drags blocks between the two canvases of the example, on a virtual screen.

Usage: run.py PROGRAM
"""
import os
import shutil
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../tovaview/e2e"))
from screen import Screen, wait_for

SKIPPED = 77
BLOCK = (227, 240, 252)
PALETTE = 165  # pixels from the left of the window
TARGET = (400, 150)


class Window:
    def __init__(self, screen, program):
        self.screen = screen
        self.process = screen.start(program)
        self.place = screen.place(screen.window("Drag and drop"))
        self.first = wait_for("the palette", lambda: self.see(0, PALETTE).box_of(BLOCK))

    def see(self, left, right):
        x, y, _, height = self.place
        return self.screen.shot().cropped(x + left, y, x + right, y + height)

    def diagram(self):
        return self.see(PALETTE, self.place[2])

    def drag_first(self):
        """To the target, with the button still down."""
        x, y = self.place[:2]
        start = (self.first[0] + 20, self.first[1] + 5)
        self.screen.do("mousemove", x + start[0], y + start[1], "mousedown", 1)
        for i in range(1, 11):
            self.screen.do("mousemove", *(o + a + (b - a) * i // 10
                                          for o, a, b in zip((x, y), start, TARGET)))
            time.sleep(0.02)


def play(window):
    screen = window.screen
    empty = window.diagram()
    window.drag_first()
    wait_for("the outline and the preview", lambda: window.diagram() != empty)
    screen.do("key", "Escape", "mouseup", 1)
    wait_for("nothing left of an abandoned drag", lambda: window.diagram() == empty)
    window.drag_first()
    screen.do("mouseup", 1)
    box = wait_for("the block", lambda: window.diagram().box_of(BLOCK))
    middle = (PALETTE + (box[0] + box[2]) / 2, (box[1] + box[3]) / 2)
    assert all(abs(a - b) <= 12 for a, b in zip(middle, TARGET)), middle
    screen.do("mousemove", window.place[0] + 300, window.place[1] + 30)
    assert window.process.poll() is None


def main():
    if not shutil.which("Xvfb"):
        print("SKIP: there is no Xvfb (package xvfb)")
        return SKIPPED
    with tempfile.TemporaryDirectory(prefix="dragdrop-e2e-") as folder:
        screen = Screen(folder)
        try:
            play(Window(screen, os.path.abspath(sys.argv[1])))
        finally:
            screen.close()
    return 0


if __name__ == "__main__":
    sys.exit(main())
