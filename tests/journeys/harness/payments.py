"""The payment records of the shop, read by another program than the one that wrote them."""

import pathlib

SCRIPT = pathlib.Path(__file__).with_name("read_payments.vbs")


def read(prefix):
    """Every payment record as the host data server tells it, oldest first."""
    name = "Z:" + str(SCRIPT).replace("/", "\\")
    blocks = prefix.run("cscript.exe", "//nologo", name).strip().split("\n\n")
    records = [dict(line.split("=", 1) for line in block.splitlines()) for block in blocks]
    count = int(records.pop()["records"])
    assert count == len(records), f"{count} records announced, {len(records)} read"
    return records
