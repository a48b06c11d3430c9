"""Looks for card data in everything that a journey left behind."""

import re


def finds(files, secret):
    """The files that hold the secret, in 8-bit, 16-bit or the registry files' own notation."""
    patterns = [compiled(secret, width) for width in (1, 2)]
    patterns += [hexadecimal(secret, width) for width in (1, 2)]
    found = []
    for path in files:
        # The registry files break long values over lines.
        content = re.sub(rb"\\\r?\n\s*", b"", path.read_bytes())
        if any(pattern.search(content) for pattern in patterns):
            found.append(str(path))
    return found


def finds_word(files, secret):
    """The files in which the secret stands by itself: no letter or digit next to it."""
    narrow = re.compile(rb"(?<![0-9A-Za-z])" + secret.encode("ascii") + rb"(?![0-9A-Za-z])")
    wide = re.compile(rb"(?<![0-9A-Za-z]\0)" + secret.encode("utf-16-le")
                      + rb"(?![0-9A-Za-z]\0)")
    return [str(path) for path in files
            if narrow.search(path.read_bytes()) or wide.search(path.read_bytes())]


def compiled(secret, width):
    """A pattern of the secret's characters, also in groups parted by a blank or a hyphen."""
    rest = rb"\0" * (width - 1)
    letters = [re.escape(letter.encode("ascii")) + rest for letter in secret]
    return re.compile((rb"(?:[ -]" + rest + rb")?").join(letters))


def hexadecimal(secret, width):
    """A pattern of the secret as the registry files write binary values."""
    encoded = secret.encode("ascii" if width == 1 else "utf-16-le")
    return re.compile(b",".join(f"{byte:02x}".encode() for byte in encoded))


def left_behind(prefix, template):
    """The files of a prefix that are not the system's own, which are links into the template."""
    known = {(entry.stat().st_dev, entry.stat().st_ino)
             for entry in (template / "drive_c" / "windows").rglob("*") if entry.is_file()}
    return [path for path in prefix.rglob("*")
            if path.is_file() and not path.is_symlink() and "dosdevices" not in path.parts
            and (path.stat().st_dev, path.stat().st_ino) not in known]
