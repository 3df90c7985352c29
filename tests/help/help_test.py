"""The help fits a screen, and the manual page has what a reader expects.

MRSET_PROGRAM names the program, MANDOC mandoc.
"""

import os
import re
import subprocess
import unittest

from help_text import PROGRAM, ROOT, help_of, options, section, subcommands

COLUMNS, LINES = 80, 24
PAGE = os.path.join(ROOT, "docs", "mrset.1")


class Help(unittest.TestCase):
    def test_every_subcommand_is_found(self):
        self.assertGreaterEqual(len(subcommands()), 12)
        for subcommand in subcommands():
            self.assertIn("--help", options(subcommand), subcommand)
            self.assertIn("--lock-timeout", options(subcommand), subcommand)

    def test_it_fits_a_screen(self):
        """Where there are more options than lines, each has one line, and the rest takes no more than elsewhere."""
        for subcommand in [[], *([name] for name in subcommands())]:
            lines = help_of(*subcommand).splitlines()
            self.assertLessEqual(len(lines), max(LINES, len(options(*subcommand)) + 13), subcommand)
            for line in lines:
                self.assertLessEqual(len(line), COLUMNS, f"{subcommand}: {line}")

    def test_it_ends_with_an_example(self):
        for subcommand in [[], *([name] for name in subcommands())]:
            text = help_of(*subcommand)
            example = section(text, "Examples?")
            self.assertTrue(example, subcommand)
            self.assertEqual(text.splitlines()[-len(example):], example, subcommand)
            self.assertTrue(all(line.startswith("  mrset ") for line in example), subcommand)
            if subcommand:
                self.assertTrue(any(line.startswith(f"  mrset {subcommand[0]} ") for line in example), subcommand)

    def test_short_and_long_are_the_same(self):
        for subcommand in [[], *([name] for name in subcommands())]:
            short = subprocess.run([PROGRAM, *subcommand, "-h"], check=True, capture_output=True, text=True).stdout
            self.assertEqual(short, help_of(*subcommand))


class ManualPage(unittest.TestCase):
    def setUp(self):
        with open(PAGE, encoding="utf-8") as file:
            self.page = file.read()

    def test_it_has_the_sections_that_a_reader_expects(self):
        wanted = ["NAME", "SYNOPSIS", "DESCRIPTION", "SUBCOMMANDS", "OPTIONS", "EXIT STATUS", "ENVIRONMENT", "FILES",
                  "EXAMPLES", "SEE ALSO"]
        self.assertEqual(re.findall(r"(?m)^\.SH (.*)", self.page), wanted)

    def test_it_mentions_no_option_that_is_not_there(self):
        known = options().union(*map(options, subcommands()))
        mentioned = re.findall(r"(?<![\w-])--[a-z][a-z-]*", self.page.replace(r"\-", "-"))
        self.assertLessEqual(set(mentioned), known)

    def test_its_title_names_the_program_and_no_version(self):
        self.assertRegex(self.page.splitlines()[0], r"^\.TH MRSET 1 \d{4}-\d\d-\d\d mrset$")

    def test_it_is_well_formed(self):
        result = subprocess.run([os.environ["MANDOC"], "-T", "lint", "-W", "warning", PAGE], check=False,
                                capture_output=True, text=True)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))


if __name__ == "__main__":
    unittest.main()
