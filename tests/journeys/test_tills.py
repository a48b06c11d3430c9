"""Several tills on one host data server."""

import os

from harness import tills

PAYMENTS = int(os.environ.get("TOLLVANE_PAYMENTS", "200"))
CHARGES = int(os.environ.get("TOLLVANE_CHARGES", "40"))


def test_four_tills_at_once_post_and_charge_every_payment_exactly_once(pictures):
    with tills.Tills(pictures / "prefix") as shop:
        seconds = shop.post(PAYMENTS)
        assert not shop.problems(PAYMENTS)
        assert not shop.sell(CHARGES)[1]
    print(f"{PAYMENTS} payments in {seconds:.1f} s")
