"""The program at a counter: starting it, typing into it, reading what it shows."""

import pathlib

from . import cards, processes
from .probe import Probe
from .waiting import until

FORM_TITLE = "Credit Card Charge/Credit"
TEST_MODE = "   ** TEST MODE **"


class Till:
    """One installed program, played by keyboard and mouse; every state can be kept as a picture."""

    def __init__(self, prefix, display, pictures):
        self.prefix = prefix
        self.display = display
        self._pictures = pathlib.Path(pictures)
        self._count = 0
        self._probe = Probe(prefix)
        # Every title and every message that stood on the display.
        self._shown = set()
        # The first question also makes sure that the desktop stands before a program wants it.
        self._probe.windows()

    def start(self, *arguments):
        """Starts the program."""
        return self.prefix.start("Tollvane.exe", *arguments)

    def close(self):
        """Ends the probe and everything else in the prefix; fails when a title or a message showed
        more of a card than its last digits."""
        self._probe.close()
        self.prefix.stop()
        told = [shown for shown in self._shown if cards.SHOWN.finds(shown.encode("utf-8"))]
        assert not told, f"shown on the display: {told}"

    def look_away(self, *names):
        """From now on shows no more of the texts of these controls than how long they are; to
        answer whoever reads a text, the program must copy it."""
        self._probe.look_away(names)

    @staticmethod
    def wait(what, question, otherwise=None):
        """Waits until the question is answered with yes."""
        return until(what, question, otherwise=otherwise)

    # Eyes

    def windows(self):
        """The windows that show, topmost first."""
        return [w for w in self._all_windows() if w["class"] not in ("tooltips_class32",)]

    def tool_tip(self):
        """The tool tip that shows now; None when there is none."""
        return next((w.text for w in self._all_windows() if w["class"] == "tooltips_class32"),
                    None)

    def _all_windows(self):
        windows = self._probe.windows()
        self._shown.update(w.text for w in windows)
        return windows

    def titles(self):
        """Their titles."""
        return [w.text for w in self.windows()]

    def seen(self):
        """What stands there, for whoever waits in vain: without a window, what the processes do."""
        return self.titles() or processes.described(self.prefix)

    def window(self, title, patience=30):
        """Waits for the window of that title and for the keyboard to be there."""
        def there():
            return next((w for w in self.windows()
                         if w.text == title and w.foreground and self.display.types_into(w.xid)),
                        None)
        return until(f"the window {title!r}", there, patience, otherwise=self.seen)

    def form(self, test_mode=None):
        """Waits for the transaction form to be in front; `test_mode` also awaits its caption."""
        def there():
            for window in self.windows():
                if (window.text.startswith(FORM_TITLE) and window.foreground and window.enabled
                        and self.display.types_into(window.xid)):
                    shows = window.text == FORM_TITLE + TEST_MODE
                    return window if test_mode in (None, shows) else None
            return None
        return until("the transaction form", there, otherwise=self.seen)

    def has_window(self, title):
        """True when a window of that title shows now."""
        return title in self.titles()

    def control(self, name, window=None):
        """One control of the window in front (or of another), as it stands now."""
        window = window or self.front()
        control = window.control(name)
        assert control, f"{window.text!r} has no {name}"
        return control

    def text(self, name):
        """The text of one control of the transaction form."""
        return self.control(name, self.form()).text

    def front(self):
        """The window that has the keyboard."""
        return until("a window in front",
                     lambda: next((w for w in self.windows() if w.foreground), None),
                     otherwise=self.seen)

    def focused(self):
        """The name of the control that has the caret."""
        return self.front().focused() or None

    def option(self):
        """The caption of the transaction type that is selected."""
        form = self.form()
        types = (form.control(f"optTransType({index})") for index in range(3))
        return next(option.caption for option in types if option.checked)

    def picture(self, name):
        """Keeps the whole display as a PNG."""
        self._count += 1
        path = self._pictures / f"{self._count:02}-{name}.png"
        # Off the controls, so that no tool tip or hot state gets into the picture.
        self.display.run("xdotool", "mousemove", "2", "2")
        return self.display.picture_at_rest(path)

    def counts(self):
        """How many handles, GDI objects and windows the program holds."""
        return self._probe.counts(self.form()["pid"])

    def handles(self, program):
        """How many kernel handles the process of a program holds."""
        return self._probe.handles(program)

    def crash(self):
        """Ends the program by an access violation."""
        self._probe.crash(self.form()["pid"])
        self.wait("the end of the program", lambda: not self.windows(), otherwise=self.seen)

    # Hands

    def click(self, name, window=None):
        """Clicks into the middle of a control."""
        self.display.click(*self.control(name, window).centre)

    def click_into(self, name, window=None):
        """Clicks into a box and waits for its caret: keys that come before it, while the window is
        still busy, are dropped."""
        window = window or self.front()
        self.click(name, window)
        until(f"the caret in {name}", lambda: self.control(name, window).focused,
              otherwise=self.focused)

    def enter(self, name, text, window=None):
        """Clicks into a box and types over what it holds; the text may be shown formatted later."""
        window = window or self.front()
        self.click_into(name, window)
        if self.control(name, window).text:
            self.display.press("Home", "shift+End", "Delete")
        if text.isascii():
            if text:
                self.display.type(text)
        else:
            # These do not queue behind the keys before them.
            until(f"an empty {name}", lambda: not self.control(name, window).text)
            self._probe.type(text)

    def choose(self, name, text, window=None):
        """Opens a list and walks down to the entry that ends in that text."""
        window = window or self.front()
        self.click(name, window)
        until(f"the open list of {name}", lambda: self.control(name, window)["dropped"],
              otherwise=self.focused)
        # The list may still be busy with the click when the first key comes.
        until(f"the top of {name}",
              lambda: self.display.press("Home") or self.control(name, window)["selected"] == 0,
              interval=0.1)
        for place in range(self.control(name, window)["count"]):
            until(f"entry {place} of {name}",
                  lambda at=place: self.control(name, window)["selected"] == at,
                  otherwise=lambda: self.control(name, window)["selected"])
            if self.control(name, window).text.endswith(text):
                break
            self.display.press("Down")
        self.display.press("Return")
        until(f"{text!r} in {name}", lambda: self.control(name, window).text.endswith(text),
              otherwise=lambda: self.control(name, window).text)

    def push(self, name, window=None):
        """Pushes a button by its access key, or by mouse when it has none."""
        button = self.control(name, window)
        mark = button.text.replace("&&", "").find("&")
        if mark >= 0:
            self.display.press("alt+" + button.text.replace("&&", "")[mark + 1].lower())
        else:
            self.display.click(*button.centre)

    def answer(self, title, button=None, picture=None):
        """Waits for a message box, answers it and returns its text."""
        box = self.window(title)
        text = box.message()
        self._shown.add(text)
        if picture:
            self.picture(picture)
        self.push(button or box.buttons()[0], box)
        until(f"the box {title!r} to close",
              lambda: all(w.hwnd != box.hwnd for w in self.windows()))
        return text

    def open_by_menu(self, title, *keys):
        """Opens a dialog through the Program menu, by the access keys on the way."""
        self.form()
        self.display.press("alt+p")
        self.await_menu()
        self.display.press(*keys)
        return self.window(title)

    def await_menu(self):
        """Waits for an open menu."""
        until("an open menu",
              lambda: any(w["class"] == "#32768" for w in self.windows()), otherwise=self.seen)
