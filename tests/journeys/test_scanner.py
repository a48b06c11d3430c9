"""The search for card data finds what it must: a test of the judge, with planted numbers."""

import pytest

from harness import secrets

CARD = "4012888888881881"


@pytest.mark.parametrize("planted", [
    b"log line " + CARD.encode() + b" ok",
    b"4012 8888 8888 1881",
    b"4012-8888-8888-1881",
    CARD.encode("utf-16-le"),
    b"\x01" + " ".join(CARD).encode("utf-16-le"),
    b'"Value"=hex:' + ",".join(f"{ord(c):02x}" for c in CARD).encode(),
    b'"Value"=hex(1):34,00,30,00,31,00,32,00,38,00,38,00,38,00,38,00,38,00,\\\n'
    b"  38,00,38,00,38,00,31,00,38,00,38,00,31,00",
])
def test_a_planted_number_is_found(tmp_path, planted):
    file = tmp_path / "left.bin"
    file.write_bytes(b"before\n" + planted + b"\nafter")
    assert secrets.finds([file], CARD) == [str(file)]


@pytest.mark.parametrize("harmless", [b"************1881", b"4012888888881882", b"1881"])
def test_a_masked_number_is_not_found(tmp_path, harmless):
    file = tmp_path / "left.bin"
    file.write_bytes(harmless)
    assert secrets.finds([file], CARD) == []
