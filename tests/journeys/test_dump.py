"""A crash with a card on the form: nobody is called who could keep the program's memory."""

from harness import memory, processes
from harness.cards import CARD

DEBUGGER = r"HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug"
CALLED = "debugger-was-called.txt"


def test_a_crash_keeps_no_picture_of_the_memory(till, open_counter, prefix):
    call = rf"cmd.exe /c echo %ld %ld>C:\{CALLED}"
    for name, value in (("Auto", "1"), ("Debugger", call)):
        prefix.run("reg", "add", DEBUGGER, "/v", name, "/t", "REG_SZ", "/d", value, "/f")
    open_counter.fill_charge("42.50")
    program = processes.process_of(prefix, "Tollvane.exe")
    assert memory.copies(program, [CARD.number]), "the card is in the memory"
    till.crash()
    prefix.stop()
    # What is left in files is searched for the card when the journey ends.
    assert not list(prefix.folder.glob(f"drive_c/{CALLED}"))
