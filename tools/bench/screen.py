"""A display seen from outside: which windows stand on it, whether they are painted, keys for them."""

import time

import Xlib.display
from Xlib import X, XK, error
from Xlib.ext import xtest
from Xlib.protocol import event

# What is smaller than this is no window of a program, but a tool tip or a helper.
SMALLEST = (120, 60)
ROWS = 12
COLOURS = 0xFFFFFF
LETTER = "m"
POLL = 0.001


class Screen:
    """One connection to a display."""

    def __init__(self, number):
        self._display = Xlib.display.Display(number)
        self._display.set_error_handler(lambda *unused: None)
        self._root = self._display.screen().root
        self._list = self._display.intern_atom("_NET_CLIENT_LIST")

    def windows(self):
        """The programs' windows that are large enough to be looked at, oldest first."""
        answer = self._root.get_full_property(self._list, X.AnyPropertyType)
        ids = list(answer.value) if answer else []
        return [window for window in map(self._window, ids) if self._is_large(window)]

    def painted(self, window):
        """Whether the inside of a window is more than one colour."""
        colours = set()
        try:
            size = window.get_geometry()
            for row in range(ROWS):
                height = (2 * row + 1) * size.height // (2 * ROWS)
                colours |= set(pixels(window, 0, height, size.width, 1))
                if len(colours) > 1:
                    return True
        except error.XError:
            pass  # not shown yet, or gone again
        return False

    def picture(self, window, box=None):
        """The rows of colours of a window or of a box (left, top, width, height) of it."""
        left, top, width, height = box or self._whole(window)
        try:
            flat = pixels(window, left, top, width, height)
        except error.XError:
            return []
        return [flat[row * width:(row + 1) * width] for row in range(height)]

    def middle(self, window):
        """The middle of a window, in pixels of the display."""
        size = window.get_geometry()
        corner = window.translate_coords(self._root, 0, 0)
        return size.width // 2 - corner.x, size.height // 2 - corner.y

    def press(self, name, *held):
        """Presses a key by its name ("Return", "m"), with other keys held; the moment before."""
        begun = time.monotonic()
        codes = [self._display.keysym_to_keycode(XK.string_to_keysym(key))
                 for key in (*held, name)]
        for code in codes:
            xtest.fake_input(self._display, X.KeyPress, code)
        for code in reversed(codes):
            xtest.fake_input(self._display, X.KeyRelease, code)
        self._display.sync()
        return begun

    def click(self, left, top):
        """Clicks at a point of the display."""
        xtest.fake_input(self._display, X.MotionNotify, x=left, y=top)
        for kind in (X.ButtonPress, X.ButtonRelease):
            xtest.fake_input(self._display, kind, 1)
        self._display.sync()

    def has_keyboard(self, window):
        """Whether keys go to that window."""
        focus = self._display.get_input_focus().focus
        return getattr(focus, "id", focus) == window.id

    def close(self, window):
        """Asks a window to close, as the cross in its frame does."""
        protocols = self._display.intern_atom("WM_PROTOCOLS")
        wish = self._display.intern_atom("WM_DELETE_WINDOW")
        window.send_event(event.ClientMessage(window=window, client_type=protocols,
                                              data=(32, [wish, X.CurrentTime, 0, 0, 0])))
        self._display.sync()

    def title(self, window):
        """The title of a window; empty when it is gone."""
        try:
            name = window.get_full_text_property(self._display.intern_atom("_NET_WM_NAME"))
            return name or window.get_wm_name() or ""
        except error.XError:
            return ""

    def _window(self, number):
        return self._display.create_resource_object("window", number)

    def _is_large(self, window):
        try:
            size = window.get_geometry()
        except error.XError:
            return False
        return size.width >= SMALLEST[0] and size.height >= SMALLEST[1]

    @staticmethod
    def _whole(window):
        size = window.get_geometry()
        return 0, 0, size.width, size.height


def pixels(window, left, top, width, height):
    """The colours of a box of a window, row by row."""
    image = window.get_image(left, top, width, height, X.ZPixmap, 0xFFFFFFFF)
    return [colour & COLOURS for colour in memoryview(image.data).cast("I")]


def until(what, question, patience=30.0):
    """The first true answer, and the moment at which it was there."""
    end = time.monotonic() + patience
    while True:
        answer = question()
        now = time.monotonic()
        if answer:
            return answer, now
        if now > end:
            raise RuntimeError(f"waited {patience:g} s for {what}")
        time.sleep(POLL)
