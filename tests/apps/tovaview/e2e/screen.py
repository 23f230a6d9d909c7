"""A virtual screen with a window manager, and what is seen on it."""
import os
import subprocess
import time


class Timeout(AssertionError):
    pass


def wait_for(what, condition, seconds=60.0):
    """The first true value of the condition; a loaded machine gets its time."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Timeout(f"waited {seconds:g} s in vain: {what}")
        time.sleep(0.03)


class Picture:
    """Rows of three bytes a pixel."""

    def __init__(self, width, height, data):
        self.width, self.height, self.data = width, height, data

    @classmethod
    def of_ppm(cls, ppm):
        kind, size, depth, data = ppm.split(b"\n", 3)
        assert kind == b"P6" and depth == b"255", (kind, depth)
        width, height = map(int, size.split())
        return cls(width, height, data)

    def __eq__(self, other):
        return (self.width, self.height, self.data) == (other.width, other.height, other.data)

    def row(self, y, left, right):
        start = (y * self.width + left) * 3
        return self.data[start:start + (right - left) * 3]

    def cropped(self, left, top, right, bottom):
        rows = b"".join(self.row(y, left, right) for y in range(top, bottom))
        return Picture(right - left, bottom - top, rows)

    def box_of(self, colour):
        """Left, top, right and bottom of all pixels of exactly that colour; None without any."""
        wanted = bytes(colour)
        rows, lefts, rights = [], [], []
        for y in range(self.height):
            row = self.row(y, 0, self.width)
            at = row.find(wanted)
            while at >= 0 and at % 3:
                at = row.find(wanted, at + 1)
            if at < 0:
                continue
            end = row.rfind(wanted)
            while end % 3:
                end = row.rfind(wanted, 0, end + 2)
            rows.append(y)
            lefts.append(at // 3)
            rights.append(end // 3)
        return (min(lefts), rows[0], max(rights) + 1, rows[-1] + 1) if rows else None

    def overlap_equals(self, other, dx, dy):
        """Whether `other` shows what this one does, moved by that many pixels."""
        left, right = max(0, dx), min(self.width, self.width + dx)
        return all(self.row(y - dy, left - dx, right - dx) == other.row(y, left, right)
                   for y in range(max(0, dy), min(self.height, self.height + dy)))


class Screen:
    """Xvfb on a display of its own choice."""

    size = (1200, 800)

    def __init__(self, folder):
        self.processes = []
        reader, writer = os.pipe()
        # By default the server starts anew, and throws out who is just coming, whenever the last
        # client leaves.
        self._start(["Xvfb", "-displayfd", str(writer), "-noreset", "-nolisten", "tcp", "-screen",
                     "0", "%dx%dx24" % self.size], dict(os.environ), (writer,))
        os.close(writer)
        with os.fdopen(reader) as pipe:
            display = pipe.readline().strip()
        assert display, "Xvfb did not start"
        self.environment = dict(os.environ, DISPLAY=":" + display, HOME=folder,
                                XDG_CONFIG_HOME=os.path.join(folder, "config"),
                                XDG_RUNTIME_DIR=folder, QT_QPA_PLATFORM="xcb",
                                QT_AUTO_SCREEN_SCALE_FACTOR="0", LC_ALL="C.UTF-8")
        # The toolkit leaks parts of its display connection; the unit tests look for our leaks.
        self.environment["ASAN_OPTIONS"] = "detect_leaks=0"
        for name in ("QT_SCALE_FACTOR", "QT_STYLE_OVERRIDE", "WAYLAND_DISPLAY"):
            self.environment.pop(name, None)
        self._start(["openbox"], self.environment)
        # A window that is shown before the manager is there may never be told that it is.
        wait_for("window manager", lambda: b"window id" in self.run(
            "xprop", "-root", "_NET_SUPPORTING_WM_CHECK"))

    def _start(self, command, environment, handles=()):
        process = subprocess.Popen(command, env=environment, pass_fds=handles,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.processes.append(process)
        return process

    def start(self, *command):
        process = subprocess.Popen(command, env=self.environment)
        self.processes.append(process)
        return process

    def close(self):
        for process in reversed(self.processes):
            if process.poll() is None:
                process.terminate()
        for process in self.processes:
            process.wait(10)

    def run(self, *command):
        return subprocess.run(command, env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, check=False).stdout

    def do(self, *commands):
        """Input by xdotool, whose words they are."""
        self.run("xdotool", *map(str, commands))

    def window(self, title):
        """The id of the visible window whose title holds that."""
        found = wait_for(f"window {title!r}", lambda: self.run(
            "xdotool", "search", "--onlyvisible", "--name", title).split())
        return found[-1].decode()

    def has_window(self, title):
        return bool(self.run("xdotool", "search", "--onlyvisible", "--name", title).split())

    def place(self, window):
        """Left, top, width and height."""
        lines = self.run("xdotool", "getwindowgeometry", "--shell", window).decode().split()
        values = dict(line.split("=") for line in lines)
        return tuple(int(values[key]) for key in ("X", "Y", "WIDTH", "HEIGHT"))

    def shot(self):
        return Picture.of_ppm(self.run("import", "-silent", "-window", "root", "-depth", "8",
                                       "ppm:-"))
