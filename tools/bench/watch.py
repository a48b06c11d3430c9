"""Notes when the files of a folder are written to their end or deleted."""

import ctypes
import os
import struct
import threading
import time

WRITTEN, MADE, DELETED = 0x8, 0x100, 0x200
HEADER = struct.Struct("iIII")


class FolderWatch:
    """Events from now on; use it in a `with` block."""

    def __init__(self, *folders):
        system = ctypes.CDLL(None, use_errno=True)
        self._file = system.inotify_init1(0)
        for folder in folders:
            if system.inotify_add_watch(self._file, os.fsencode(folder), WRITTEN | MADE | DELETED) < 0:
                raise OSError(ctypes.get_errno(), f"{folder} cannot be watched")
        self._events = []
        threading.Thread(target=self._note, daemon=True).start()

    def __enter__(self):
        return self

    def __exit__(self, *unused):
        self._file = None

    def moment(self, name, kind, since):
        """When that last happened to a file, or to any, after a moment; None when it has not."""
        return max((when for when, what, whom in list(self._events)
                    if name in (whom, None) and what & kind and when >= since), default=None)

    def _note(self):
        number = self._file
        while self._file is not None:
            content, now = os.read(number, 4096), time.monotonic()
            while content:
                _, kind, _, length = HEADER.unpack_from(content)
                name = content[HEADER.size:HEADER.size + length].rstrip(b"\0").decode()
                self._events.append((now, kind, name))
                content = content[HEADER.size + length:]
