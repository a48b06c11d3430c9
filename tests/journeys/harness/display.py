"""A display to play on: the user's own one, or Xvfb with openbox."""

import os
import pathlib
import subprocess
import tempfile
import time

from .waiting import NotReached, until


class Display:
    """Keys go in, pictures come out. Use it in a `with` block."""

    def __init__(self, size="1280x1024", dpi=96, number=None):
        """`number` names a display that is already there (":0"); else one is started."""
        self._size, self._dpi = size, dpi
        self.number = number
        self._processes = []
        self._screen = None

    def __enter__(self):
        if self.number is None:
            self._start()
        return self

    def __exit__(self, *unused):
        for process in reversed(self._processes):
            self._end(process)
        if self._screen is not None:
            self._screen.cleanup()

    def _start(self):
        read, write = os.pipe()
        self._screen = tempfile.TemporaryDirectory()
        # A server that begins anew when its last client leaves refuses whoever comes meanwhile.
        command = ["Xvfb", "-noreset", "-displayfd", str(write), "-screen", "0",
                   f"{self._size}x24", "-dpi", str(self._dpi), "-nolisten", "tcp",
                   "-fbdir", self._screen.name]
        self._launch(command, pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as answer:
            self.number = ":" + answer.readline().strip()
        settings = tempfile.NamedTemporaryFile("w", suffix=".xml")
        settings.write(OPENBOX)
        settings.flush()
        self._settings = settings
        self._start_window_manager(settings.name)
        self.run("xsetroot", "-solid", "#5b7fa6")

    def _start_window_manager(self, settings):
        self._launch(["openbox", "--sm-disable", "--config-file", settings])
        until("the window manager", self._is_managed)

    def _launch(self, command, **options):
        process = subprocess.Popen(command, env=self.environment(), stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options)
        self._processes.append(process)

    @staticmethod
    def _end(process):
        process.terminate()
        process.wait(10)

    def _is_managed(self):
        answer = subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], text=True,
                                env=self.environment(), capture_output=True, check=False)
        return "window id" in answer.stdout

    def environment(self):
        """The environment of a program that shall show itself here."""
        return {**os.environ, "DISPLAY": self.number or ""}

    def run(self, *command):
        """Runs a tool of the display and returns what it prints."""
        answer = subprocess.run(command, env=self.environment(), text=True, capture_output=True,
                                check=True, timeout=60)
        return answer.stdout

    def picture(self, path, xid="root"):
        """Keeps a PNG of the whole display, or of one window with its frame."""
        os.makedirs(os.path.dirname(path), exist_ok=True)
        self.run("import", "-silent", "-window", str(xid), str(path))
        return path

    def picture_at_rest(self, path, rest=0.2, patience=5):
        """The same when the display has not changed for `rest` seconds: windows take their time to
        paint. What never rests is taken as it is."""
        before, since = None, time.monotonic()

        def rests():
            nonlocal before, since
            now = self._content(path)
            if now != before:
                before, since = now, time.monotonic()
            return time.monotonic() - since >= rest

        try:
            until("a display at rest", rests, patience)
        except NotReached:
            pass
        return self.picture(path)

    def _content(self, path):
        """What differs whenever the display shows something else."""
        if self._screen is None:
            return self.run("identify", "-format", "%#", str(self.picture(path)))
        return hash(pathlib.Path(self._screen.name, "Xvfb_screen0").read_bytes())

    def type(self, text, delay=4):
        """Types a text into whatever has the focus; `delay` in ms between the keys."""
        self.run("xdotool", "type", "--delay", str(delay), "--", text)

    def press(self, *keys):
        """Presses keys one after the other, in xdotool's names ("Tab", "alt+p")."""
        self.run("xdotool", "key", "--delay", "4", *keys)

    def click(self, x, y, button=1, repeat=1):
        """Clicks at a point of the display."""
        self.run("xdotool", "mousemove", str(x), str(y), "click", "--repeat", str(repeat),
                 "--delay", "40", str(button))

    def types_into(self, xid):
        """True when keys reach that window; Windows may think so before the display does."""
        answer = subprocess.run(["xdotool", "getwindowfocus"], env=self.environment(), text=True,
                                capture_output=True, check=False)
        return answer.stdout.strip() == str(xid)


# A plain frame, and a new window always gets the keyboard.
OPENBOX = """<?xml version="1.0"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
  <placement><policy>Smart</policy></placement>
  <theme><name>Clearlooks</name></theme>
  <desktops><number>1</number></desktops>
  <applications><application class="*"><focus>yes</focus></application></applications>
</openbox_config>
"""
