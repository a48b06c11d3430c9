"""The shop's own name and address, as its receipts show them."""

COMPANY = {"Name": "Harbor Chairs", "Street": "1 Pier Street", "City": "Springfield",
           "State": "IL", "Zip": "62701", "Phone": "(217) 555-0100"}
KEY = r"HKEY_LOCAL_MACHINE\Software\Norrow Programs\Tollvane\Company Information"


def store(prefix, company):
    """Stores the texts in the settings; the program reads them whenever it needs them."""
    script = prefix.folder / "company.reg"
    values = "".join(f'"{name}"="{text}"\r\n' for name, text in company.items())
    script.write_text(f"Windows Registry Editor Version 5.00\r\n\r\n[{KEY}]\r\n{values}",
                      encoding="ascii", newline="")
    prefix.run("regedit", "/S", f"Z:{script}".replace("/", "\\"))


def rows(company):
    """What a receipt says of the company, line by line."""
    lines = [company["Name"], company["Street"]]
    if company.get("Additional Address"):
        lines.append(company["Additional Address"])
    return lines + [f'{company["City"]}, {company["State"]} {company["Zip"]}', company["Phone"]]
