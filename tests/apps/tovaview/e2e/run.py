#!/usr/bin/env python3
"""Plays a user of tovaview on a virtual screen: zooms, pans, drags, undoes, exports, quits.

Usage: run.py PROGRAM. Pictures are compared with each other, never with stored ones.
"""
import os
import shutil
import subprocess
import sys
import tempfile

from screen import Picture, Screen, Timeout, wait_for

SKIPPED = 77
RED, GREEN = (255, 0, 0), (0, 255, 0)
# Two blocks of 2 by 1 inch and a connector; all lengths in inches, y growing upwards.
DIAGRAM = """graph 1 7 5
node red 2 4 2 1 "" filled box black #ff0000
node green 5 1 2 1 "" filled box black #00ff00
edge red green 4 2 3.5 2 2.5 3 1 4 1 solid black
stop
"""
PAGE_MARGIN = 8  # points
PIXELS_A_POINT = 2  # of an exported picture


class User:
    def __init__(self, screen, program, diagram):
        self.screen = screen
        # It fails in the end when anything is left that the library counts.
        self.process = screen.start(program, diagram, "--counters")
        self.window = screen.window(os.path.basename(diagram))
        left, top, width, height = screen.place(self.window)
        # Inside of menus, status bar and scroll bars.
        self.view = (left + 8, top + 50, left + width - 24, top + height - 60)
        self.now = None

    def see(self):
        return self.screen.shot().cropped(*self.view)

    def settled(self, what, is_right=lambda picture: True, seconds=60):
        """The view once it shows what is expected and moves no more."""
        def still():
            before = self.now
            self.now = self.see()
            return before is not None and before == self.now and is_right(before)
        self.now = None
        wait_for(what, still, seconds)
        return self.now

    def do(self, *commands):
        self.screen.do(*commands)

    def point_at(self, picture, colour):
        left, top, right, bottom = picture.box_of(colour)
        return self.view[0] + (left + right) // 2, self.view[1] + (top + bottom) // 2

    def drag(self, button, start, steps, pause):
        """By steps from a point; stands still before the release, unless there is no pause."""
        commands = ["mousemove", *start, "mousedown", button]
        for dx, dy in steps:
            commands += ["sleep", 0.02, "mousemove_relative", "--", dx, dy]
        self.do(*commands, "sleep", pause, "mouseup", button)


def width_of(box):
    return box[2] - box[0]


def moved(box, dx, dy):
    return (box[0] + dx, box[1] + dy, box[2] + dx, box[3] + dy)


def zoom_by_wheel(user):
    before = user.settled("first picture", lambda picture: picture.box_of(RED))
    x, y = user.point_at(before, RED)
    user.do("mousemove", x, y, "click", 4)
    wider = lambda picture: (box := picture.box_of(RED)) and width_of(box) > width_of(
        before.box_of(RED))
    after = user.settled("zoomed in", wider)
    assert after != before
    in_view = after.box_of(RED)
    assert in_view[0] < x - user.view[0] < in_view[2], "zoomed about another point"
    user.do("click", 5)
    user.settled("zoomed out again", lambda picture: not wider(picture))


def pan(user):
    before = user.settled("before the pan")
    x, y = user.point_at(before, RED)
    user.do("mousemove", x, y, "keydown", "space")
    user.drag(1, (x, y), [(20, 10)] * 4, 0.4)
    user.do("keyup", "space")
    after = user.settled("panned", lambda picture: picture != before)
    assert before.overlap_equals(after, 80, 40), "a pan shows something else in the overlap"


def glide(user):
    """A machine under load may see the moves of a fling all at once, which is none then."""
    for attempt in range(3):
        before = user.settled("before the glide").box_of(RED)
        user.drag(2, user.point_at(user.now, RED), [(4, 2)] * 8, 0)
        try:
            user.settled("glided on beyond the drag",
                         lambda picture: picture.box_of(RED)[0] - before[0] > 32 + 3, 4)
            return
        except Timeout:
            if attempt == 2:
                raise


def drag_and_undo(user):
    x, y = user.point_at(user.settled("before the drag"), RED)
    user.do("mousemove", x, y, "click", 1)
    selected = user.settled("selected")
    user.drag(1, (x, y), [(10, 5)] * 6, 0.1)
    box = moved(selected.box_of(RED), 60, 30)
    near = lambda picture: (now := picture.box_of(RED)) and all(
        abs(a - b) <= 2 for a, b in zip(now, box))
    after = user.settled("block dragged", near)
    assert after.box_of(GREEN) == selected.box_of(GREEN), "another block moved along"
    user.do("key", "ctrl+z")
    user.settled("move undone", lambda picture: picture == selected)
    user.do("key", "ctrl+shift+z")
    user.settled("move done again", lambda picture: picture == after)


def export(user, target):
    user.do("key", "ctrl+e")
    user.screen.window("Export")
    user.do("key", "ctrl+a", "type", "--delay", 5, target)
    user.do("key", "Return")
    wait_for("exported file", lambda: os.path.exists(target))
    ppm = subprocess.run(["convert", target, "-depth", "8", "ppm:-"], check=True,
                         stdout=subprocess.PIPE).stdout
    picture = Picture.of_ppm(ppm)
    wait_for("end of the dialog", lambda: not user.screen.has_window("Export"))
    assert (picture.width, picture.height) == tuple(
        PIXELS_A_POINT * (inches * 72 + 2 * PAGE_MARGIN) for inches in (7, 5))
    red, green = picture.box_of(RED), picture.box_of(GREEN)
    block = 2 * 72 * PIXELS_A_POINT
    assert abs(width_of(red) - block) <= 4 and abs(width_of(green) - block) <= 4
    shown = user.settled("after the export")
    scale = width_of(red) / width_of(shown.box_of(RED))
    across = [picture.box_of(GREEN)[i] - red[i] for i in (0, 1)]
    on_screen = [shown.box_of(GREEN)[i] - shown.box_of(RED)[i] for i in (0, 1)]
    assert all(abs(a - scale * b) <= 6 for a, b in zip(across, on_screen)), \
        "the picture has the blocks elsewhere"


def quit_program(user, folder):
    user.do("key", "ctrl+q")
    wait_for("end of the program", lambda: user.process.poll() is not None)
    assert user.process.returncode == 0, f"ended with {user.process.returncode}"
    with open(os.path.join(folder, "config", "tovaview", "tovaview.conf")) as settings:
        text = settings.read()
    assert "blocks.plain" in text and "geometry" in text, "nothing remembered"


def play(program, folder):
    diagram = os.path.join(folder, "blocks.plain")
    with open(diagram, "w") as file:
        file.write(DIAGRAM)
    screen = Screen(folder)
    try:
        user = User(screen, program, diagram)
        zoom_by_wheel(user)
        pan(user)
        glide(user)
        drag_and_undo(user)
        export(user, os.path.join(folder, "picture.png"))
        quit_program(user, folder)
    except AssertionError:
        kept = os.path.join(tempfile.gettempdir(), "tovaview_e2e.png")
        screen.run("import", "-silent", "-window", "root", kept)
        print(f"the screen at that moment: {kept}", file=sys.stderr)
        raise
    finally:
        screen.close()


def main():
    if not shutil.which("Xvfb"):
        print("SKIP: there is no Xvfb (package xvfb)")
        return SKIPPED
    with tempfile.TemporaryDirectory(prefix="tovaview-e2e-") as folder:
        play(os.path.abspath(sys.argv[1]), folder)
    return 0


if __name__ == "__main__":
    sys.exit(main())
