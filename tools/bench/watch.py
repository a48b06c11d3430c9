"""Notes when the files of a folder change and when they are written to their end."""

import ctypes
import os
import struct
import threading
import time

CHANGED, WRITTEN = 0x2, 0x8
HEADER = struct.Struct("iIII")


class FolderWatch:
    """Events from now on; use it in a `with` block."""

    def __init__(self, *folders):
        system = ctypes.CDLL(None, use_errno=True)
        self._file = system.inotify_init1(0)
        for folder in folders:
            if system.inotify_add_watch(self._file, os.fsencode(folder), CHANGED | WRITTEN) < 0:
                raise OSError(ctypes.get_errno(), f"{folder} cannot be watched")
        self._events = []
        threading.Thread(target=self._note, daemon=True).start()

    def __enter__(self):
        return self

    def __exit__(self, *unused):
        self._file = None

    def moments(self, name, kind, since):
        """When that happened to a file, or to any, after a moment."""
        return [when for when, what, whom in list(self._events)
                if name in (whom, None) and what & kind and when >= since]

    def _note(self):
        number = self._file
        while self._file is not None:
            content, now = os.read(number, 4096), time.monotonic()
            while content:
                _, kind, _, length = HEADER.unpack_from(content)
                name = content[HEADER.size:HEADER.size + length].rstrip(b"\0").decode()
                self._events.append((now, kind, name))
                content = content[HEADER.size + length:]
