"""Eyes: what windows and controls stand on the Windows desktop, by asking the probe program."""

import json
import select
import subprocess

from .prefix import TOP
from .waiting import PATIENCE, NotReached

PROBE = TOP / "build" / "x64" / "tests" / "journeys" / "probe" / "probe.exe"


class Control(dict):
    """What the probe tells of one control; members read like attributes."""

    def __getattr__(self, name):
        return self[name]

    @property
    def kind(self):
        """The class of the window."""
        return self["class"]

    @property
    def caption(self):
        """The text without the mark of the access key."""
        return self["text"].replace("&&", "\0").replace("&", "").replace("\0", "&")

    @property
    def centre(self):
        """The middle, in pixels of the display."""
        left, top, right, bottom = self["rect"]
        return (left + right) // 2, (top + bottom) // 2


class Window(Control):
    """A top-level window and, when asked, its controls."""

    def __init__(self, facts, probe):
        super().__init__(facts)
        self._probe = probe

    def controls(self):
        """All descendants, in the order of their creation."""
        return [Control(facts) for facts in self._probe.ask(f"controls {self['hwnd']}")]

    def control(self, name):
        """The control of that name, or else of that caption or whole text; None when absent."""
        named = self._probe.ask(f"control {self['hwnd']} {name}")
        if named:
            return Control(named[0])
        for control in self.controls():
            if name in (control.caption, control["text"]):
                return control
        return None

    def focused(self):
        """The name of the control that has the caret; empty when it is none with a name."""
        return self._probe.ask(f"focused {self['hwnd']}")

    def watch(self, names):
        """A quick look at some of the controls, again and again: a function that tells what they
        show now, by name, and which of them has the caret."""
        there = {c["name"]: c["hwnd"] for c in self.controls() if c["name"] in names}
        question = " ".join(["texts", *map(str, there.values())])

        def look():
            answers = self._probe.ask(question)
            focused = [name for name, facts in zip(there, answers) if facts["focused"]]
            return {name: facts["text"] for name, facts in zip(there, answers)}, (*focused, None)[0]
        return look

    @property
    def is_message_box(self):
        """Message boxes and other dialogs share the system's dialog class."""
        return self["class"] == "#32770"

    def message(self):
        """The texts of a message box, longest first in the way; one text in practice."""
        texts = [c["text"] for c in self.controls() if c.kind == "Static" and c["text"]]
        return "\n".join(texts).replace("\r\n", "\n")

    def buttons(self):
        """The captions of the buttons that show."""
        return [c.caption for c in self.controls() if c.kind == "Button" and c["visible"]]

    def default_button(self):
        """The caption of the button that Enter presses."""
        for control in self.controls():
            if control.kind == "Button" and control["default"]:
                return control.caption
        return None


class Probe:
    """One probe program, kept running for quick answers."""

    def __init__(self, prefix):
        self._prefix = prefix
        self._process = None

    def ask(self, question):
        """The probe's answer to one question."""
        if self._process is None:
            self._process = self._prefix.start(PROBE, stdin=subprocess.PIPE,
                                               stdout=subprocess.PIPE, text=True,
                                               encoding="utf-8")
        self._process.stdin.write(question + "\n")
        self._process.stdin.flush()
        if not select.select([self._process.stdout], [], [], PATIENCE)[0]:
            self._process.kill()
            raise NotReached(f"waited {PATIENCE:g} s for the probe's answer to {question!r}")
        answer = self._process.stdout.readline()
        if not answer:
            raise RuntimeError(f"the probe ended on the question {question!r}")
        return json.loads(answer)

    def windows(self):
        """The visible top-level windows, topmost first."""
        return [Window(facts, self) for facts in self.ask("windows")]

    def look_away(self, names):
        """Tells stars in the place of the texts of these controls from now on."""
        self.ask(" ".join(["unread", *names]))

    def type(self, text):
        """Types letters that are on no key into the window in front."""
        units = text.encode("utf-16-le")
        codes = [units[at] | units[at + 1] << 8 for at in range(0, len(units), 2)]
        if self.ask(" ".join(["type", *map(str, codes)])) != len(codes):
            raise RuntimeError(f"the system does not take {text!r}")

    def counts(self, process):
        """How many handles, GDI objects and windows a process of the desktop holds."""
        return self.ask(f"counts {process}")

    def handles(self, program):
        """How many kernel handles the first process of a program holds."""
        return self.ask(f"handles {program}")

    def lock(self, key):
        """Takes everybody's right to write a key below HKEY_LOCAL_MACHINE and what is below it."""
        answer = self.ask(f"lock {key}")
        if answer["error"]:
            raise RuntimeError(f"{key} cannot be locked: error {answer['error']}")

    def crash(self, process):
        """Makes a process of the desktop run where no code is."""
        answer = self.ask(f"crash {process}")
        if answer["error"]:
            raise RuntimeError(f"{process} cannot be made to crash: error {answer['error']}")

    def close(self):
        """Ends the probe."""
        if self._process is not None:
            self._process.stdin.close()
            self._process.wait(10)
            self._process = None
