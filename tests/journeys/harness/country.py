"""Where a user of Windows lives: language, code page and manner of writing, as the system has them.

The system takes them from the locale of the environment; which of those a machine has does not
matter, they are made here."""

import fcntl
import subprocess

from .prefix import TOP

LOCALES = TOP / "build" / "locales"


def live_in(prefix, locale):
    """Whoever uses the prefix from now on lives in the country of "ja_JP" or the like."""
    name = f"{locale}.UTF-8"
    LOCALES.mkdir(parents=True, exist_ok=True)
    with open(LOCALES / "lock", "w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        if not (LOCALES / name).exists():
            subprocess.run(["localedef", "-i", locale, "-f", "UTF-8", str(LOCALES / name)],
                           check=True, capture_output=True)
    prefix.extra.update(LC_ALL=name, LOCPATH=str(LOCALES))
