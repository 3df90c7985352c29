"""What the program's own help lists."""

import os
import re
import subprocess

PROGRAM = os.environ["MRSET_PROGRAM"]
ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))


def help_of(*subcommand):
    return subprocess.run([PROGRAM, *subcommand, "--help"], check=True, capture_output=True, text=True,
                          encoding="utf-8").stdout


def section(text, title):
    """The lines of a section of a help, without the line of its title."""
    found = re.search(rf"^{title}:\n((?:  .*\n)+)", text, re.MULTILINE)
    return found.group(1).splitlines() if found else []


def first_words(lines):
    """Of lines that begin an entry: those that go on with the one before stand farther to the right."""
    return [line.split()[0] for line in lines if line.startswith("  ") and line[2] != " "]


def subcommands():
    return first_words(section(help_of(), "Subcommands"))


def options(*subcommand):
    """The names of the options of a subcommand, or of the program itself: -h, --help, ..."""
    entries = first_words(section(help_of(*subcommand), "Options"))
    return {name for entry in entries for name in entry.split(",")}


def choices(subcommand, option):
    """The values of an option that takes one of a few: those that the program names when it gets another."""
    result = subprocess.run([PROGRAM, subcommand, "a", option, "?"], capture_output=True, text=True, check=False)
    return set(re.match(rf"mrset: {option}: \? is not one of (.*)\.\n", result.stderr).group(1).split(", "))
