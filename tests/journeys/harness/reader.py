"""A card reader on the keyboard's wire: bursts of real key events at a pace that no process per
burst could keep."""

import ctypes

KEYSYMS = {"\r": 0xFF0D, "\t": 0xFF09}
SHIFT = 0xFFE1
ALT = 0xFFE9
NOW = 0


class Reader:
    """Keys and clicks through the display's own test extension; use it in a `with` block."""

    def __init__(self, display):
        """`display` is the one of the journey."""
        self._x11 = ctypes.CDLL("libX11.so.6")
        self._test = ctypes.CDLL("libXtst.so.6")
        self._x11.XOpenDisplay.restype = ctypes.c_void_p
        self._connection = self._open(display.number)
        self._shift = self._code(SHIFT)
        self._keys = {}

    def __enter__(self):
        return self

    def __exit__(self, *unused):
        self._x11.XCloseDisplay(self._connection)

    def click(self, place):
        """Clicks at a point of the display, in pixels."""
        left, top = place
        self._test.XTestFakeMotionEvent(self._connection, -1, left, top, ctypes.c_ulong(NOW))
        for down in (True, False):
            self._test.XTestFakeButtonEvent(self._connection, 1, down, ctypes.c_ulong(NOW))
        self._x11.XFlush(self._connection)

    def press_with_alt(self, character):
        """Presses the key of a character with Alt held."""
        alt, (code, _) = self._code(ALT), self._key(character)
        self._press(alt, True)
        self._press(code, True)
        self._press(code, False)
        self._press(alt, False)
        self._x11.XSync(self._connection, False)

    def send(self, text, pace=0):
        """Types a text; every character comes `pace` milliseconds after the one before. Enter is
        "\\r", Tab is "\\t". Returns as soon as the display has taken the last key."""
        for character in text:
            code, shifted = self._key(character)
            wait = pace
            if shifted:
                self._press(self._shift, True, wait)
                wait = NOW
            self._press(code, True, wait)
            self._press(code, False)
            if shifted:
                self._press(self._shift, False)
        self._x11.XSync(self._connection, False)

    def _open(self, number):
        connection = self._x11.XOpenDisplay(number.encode("ascii"))
        if not connection:
            raise RuntimeError(f"the display {number} cannot be opened")
        return ctypes.c_void_p(connection)

    def _press(self, code, down, wait=NOW):
        """One key goes down or up, `wait` milliseconds after what was sent before."""
        self._test.XTestFakeKeyEvent(self._connection, code, down, ctypes.c_ulong(wait))

    def _key(self, character):
        """The key that has a character, and whether Shift is held with it."""
        if character not in self._keys:
            sym = KEYSYMS.get(character, ord(character))
            code = self._code(sym)
            plain = self._x11.XkbKeycodeToKeysym(self._connection, code, 0, 0)
            self._keys[character] = (code, plain != sym)
        return self._keys[character]

    def _code(self, sym):
        code = self._x11.XKeysymToKeycode(self._connection, ctypes.c_ulong(sym))
        if not code:
            raise RuntimeError(f"no key of this display has {sym:#x}")
        return code
