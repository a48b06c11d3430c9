"""A print server of the journey's own, whose queues leave every document as a PDF in a folder."""

import os
import pathlib
import shlex
import shutil
import subprocess
import tempfile

from .waiting import until

DRIVER = pathlib.Path("/usr/share/ppd/cups-pdf/CUPS-PDF_noopt.ppd")
PROGRAMS = pathlib.Path("/usr/lib/cups")

FILES = """ServerRoot {folder}
ServerBin {folder}/bin
RequestRoot {folder}/spool
TempDir {folder}/spool/tmp
CacheDir {folder}/cache
StateDir {folder}/state
AccessLog {folder}/access.log
ErrorLog {folder}/error.log
PageLog {folder}/page.log
Printcap {folder}/printcap
SystemGroup {group}
"""

SERVER = """Listen {socket}
LogLevel info
Browsing Off
DefaultAuthType None
WebInterface No
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
"""

# Called by the server for every document, which comes on the standard input or in file $6.
BACKEND = """#!/bin/sh
[ $# -gt 0 ] || exit 0
[ -z "$6" ] || exec <"$6"
cd {printed} || exit 1
cat >"$1.ps"
gs -q -dNOPAUSE -dBATCH -dSAFER -sDEVICE=pdfwrite -sOutputFile="$1.part" "$1.ps" &&
    mv "$1.part" "$1.pdf"
"""


class PrintServer:
    """Only programs that are given its address find it. Use it in a `with` block."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder).resolve()
        self.printed = self.folder / "printed"
        # The name of a socket must be short.
        self._sockets = tempfile.mkdtemp(prefix="print-")
        self.address = os.path.join(self._sockets, "s")
        self._process = None

    def __enter__(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        for name in ("bin/backend", "spool/tmp", "cache", "state", "printed"):
            (self.folder / name).mkdir(parents=True)
        for programs in PROGRAMS.iterdir():
            if programs.name != "backend":
                (self.folder / "bin" / programs.name).symlink_to(programs)
        backend = self.folder / "bin" / "backend" / "pdf"
        backend.write_text(BACKEND.format(printed=shlex.quote(str(self.printed))),
                           encoding="utf-8")
        backend.chmod(0o700)  # run with the rights of the server itself
        group = subprocess.run(["id", "-gn"], text=True, check=True, capture_output=True).stdout
        (self.folder / "cups-files.conf").write_text(
            FILES.format(folder=self.folder, group=group.strip()), encoding="utf-8")
        (self.folder / "cupsd.conf").write_text(SERVER.format(socket=self.address),
                                                encoding="utf-8")
        with open(self.folder / "output.log", "wb") as output:
            self._process = subprocess.Popen(
                ["/usr/sbin/cupsd", "-f", "-c", str(self.folder / "cupsd.conf"),
                 "-s", str(self.folder / "cups-files.conf")],
                stdin=subprocess.DEVNULL, stdout=output, stderr=output)
        until("the print server", lambda: self._ask("lpstat", "-r", check=False) ==
              "scheduler is running\n", otherwise=self._log)
        return self

    def __exit__(self, *unused):
        self._process.terminate()
        self._process.wait(10)
        shutil.rmtree(self._sockets, ignore_errors=True)

    def _log(self):
        logs = [self.folder / "output.log", self.folder / "error.log"]
        return [log.read_text(errors="replace")[-500:] for log in logs if log.exists()]

    def _ask(self, *command, check=True):
        """What a tool of the print system says."""
        answer = subprocess.run(command, text=True, capture_output=True, check=check, timeout=60,
                                env={**os.environ, "CUPS_SERVER": self.address, "LC_ALL": "C"})
        return answer.stdout

    def add(self, queue, paper):
        """A queue for that paper ("A4", "Letter") that is from now on the default one."""
        driver = self.folder / f"{queue}.driver"
        text = DRIVER.read_text(encoding="utf-8", errors="replace")
        # Straight to the backend: nothing rewrites what the program printed.
        direct = '*cupsFilter: "application/postscript 0 -"\n*LanguageLevel:'
        driver.write_text(text.replace("*LanguageLevel:", direct, 1), encoding="utf-8")
        self._ask("lpadmin", "-p", queue, "-E", "-v", "pdf:/", "-P", str(driver),
                  "-o", f"PageSize={paper}")
        self._ask("lpadmin", "-d", queue)

    def refuse(self, queue):
        """From now on the queue takes no documents."""
        self._ask("cupsreject", queue)

    def accept(self, queue):
        """The opposite."""
        self._ask("cupsaccept", queue)

    def documents(self):
        """The documents that have come out, in their order."""
        return sorted(self.printed.glob("*.pdf"), key=lambda path: int(path.stem))

    def document(self, number):
        """Waits for the document of that number, counted from 1."""
        def there():
            documents = self.documents()
            return documents[number - 1] if len(documents) >= number else None
        return until(f"document {number}", there, otherwise=self._log)

    def is_idle(self):
        """True when nothing waits or is being printed."""
        return self._ask("lpstat", "-o") == ""
