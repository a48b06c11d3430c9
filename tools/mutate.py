"""Makes small changes to C++ sources, one at a time, as a tired programmer might."""

import re

OPERATORS = [
    (" < ", (" <= ", " >= ")), (" > ", (" >= ", " <= ")), (" <= ", (" < ", " > ")),
    (" >= ", (" > ", " < ")), (" == ", (" != ",)), (" != ", (" == ",)),
    (" && ", (" || ",)), (" || ", (" && ",)), (" + ", (" - ",)), (" - ", (" + ",)),
    (" * ", (" / ",)), (" / ", (" * ",)), (" % ", (" * ",)), (" & ", (" | ",)), (" | ", (" & ",)),
    (" += ", (" -= ",)), (" -= ", (" += ",)),
]
INTEGER = re.compile(r"(?<![\w.'])(\d[\d']*)(?![\w.'])")
WORD = re.compile(r"\b(true|false)\b")
NOT = re.compile(r"(?<=[(\s])!(?=[\w(])")
CONDITION = re.compile(r"^(\s*(?:\} else )?(?:if|while) \()(.*)(\)(?: \{)?)$")
CALL = re.compile(r"^\s+(?!return\b|throw\b|delete\b|case\b|using\b|else\b)"
                  r"[A-Za-z_][\w:.\->\[\]*()]*\(.*\);$")
# What an empty value is already would give the same program.
EMPTY = r"(?:\{\}|0|false|nullptr|std::nullopt|std::string\(\));"
RETURN = re.compile(rf"^(\s*return )(?!{EMPTY})(.+)(;)$")
# Lines that say nothing a running program could show.
SILENT = re.compile(r"^\s*(#|//|static_assert|using |template|namespace |\[\[)")


def blanked(text):
    """The text with comments and the inside of literals blanked, character for character."""
    def blank(match):
        found = match.group()
        if found.startswith(("//", "/*")):
            return re.sub(r"[^\n]", " ", found)
        return found[0] + "_" * (len(found) - 2) + found[-1]
    literal = r'//[^\n]*|/\*.*?\*/|R"\w*\(.*?\)\w*"|"(?:\\.|[^"\\\n])*"|' + r"'(?:\\.|[^'\\\n])'"
    return re.sub(literal, blank, text, flags=re.DOTALL)


def line_changes(line, code):
    """What one line may become. `code` is the line with its literals blanked."""
    for text, others in OPERATORS:
        at = code.find(text)
        while at >= 0:
            for other in others:
                yield f"{text.strip()} to {other.strip()}", line[:at] + other + line[at + len(text):]
            at = code.find(text, at + 1)
    for found in INTEGER.finditer(code):
        number = int(found.group().replace("'", ""))
        if found.group() == "0" or not found.group().startswith("0"):
            for other in (number + 1, number - 1):
                yield (f"{number} to {other}",
                       line[:found.start()] + str(other) + line[found.end():])
    for found in WORD.finditer(code):
        other = "false" if found.group() == "true" else "true"
        yield f"to {other}", line[:found.start()] + other + line[found.end():]
    for found in NOT.finditer(code):
        yield "without !", line[:found.start()] + line[found.end():]
    if found := CONDITION.match(code):
        start, end = found.span(2)
        if ";" not in found.group(2) and balanced(found.group(2)):
            yield "the condition negated", f"{line[:start]}!({line[start:end]}){line[end:]}"
    if CALL.match(code) and balanced(code):
        yield "the call left out", re.match(r"\s*", line).group() + ";"
    if found := RETURN.match(code):
        yield "an empty value returned", f"{line[:found.start(2)]}{{}}{line[found.end(2):]}"


def balanced(text):
    """True when every bracket of the text is closed in it."""
    depth = 0
    for character in text:
        depth += (character in "([{") - (character in ")]}")
        if depth < 0:
            return False
    return depth == 0


def mutants(text):
    """All changes: (line number, what is changed, the whole changed text)."""
    lines = text.split("\n")
    for number, (line, code) in enumerate(zip(lines, blanked(text).split("\n"))):
        if SILENT.match(code):
            continue
        for what, changed in line_changes(line, code):
            yield number + 1, what, "\n".join([*lines[:number], changed, *lines[number + 1:]])
