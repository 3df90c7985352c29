"""What the manual page names."""

import os
import re

from help_text import ROOT

PATH = os.path.join(ROOT, "docs", "mrset.1")
OPTION = re.compile(r"(?<![\w-])--?[a-z][a-z-]*")


def plain(line):
    """A line without macros, fonts and escapes, as its words are read."""
    line = re.sub(r"^\.[A-Z]+ ", "", line)
    return re.sub(r"\\f.", "", line).replace(r"\-", "-").replace('"', "").replace(" , ", ", ")


def sections():
    """The lines under each heading, of either kind."""
    found = {}
    lines = None
    with open(PATH, encoding="utf-8") as page:
        for line in page.read().splitlines():
            heading = re.match(r"\.S[HS] (.*)", line)
            if heading:
                lines = found.setdefault(heading.group(1).strip('"'), [])
            elif lines is not None:
                lines.append(line)
    return found


def tags(lines):
    """What the entries of a list are about: the options in the lines behind .TP."""
    return {name for before, line in zip(lines, lines[1:]) if before == ".TP" for name in OPTION.findall(plain(line))}


def words(lines):
    return " ".join(plain(line) for line in lines)
