"""The help fits a screen, and the manual page agrees with it. MRSET_PROGRAM names the program, MANDOC mandoc."""

import os
import re
import subprocess
import unittest

import manual_page
from help_text import PROGRAM, help_of, options, section, subcommands

COLUMNS, LINES = 80, 24


class Help(unittest.TestCase):
    def test_every_subcommand_is_found(self):
        self.assertGreaterEqual(len(subcommands()), 11)
        for subcommand in subcommands():
            self.assertIn("--help", options(subcommand), subcommand)
            self.assertIn("--lock-timeout", options(subcommand), subcommand)

    def test_it_fits_a_screen(self):
        for subcommand in [[], *([name] for name in subcommands())]:
            lines = help_of(*subcommand).splitlines()
            self.assertLessEqual(len(lines), LINES, subcommand)
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
        self.sections = manual_page.sections()

    def test_it_has_the_sections_that_a_reader_expects(self):
        wanted = ["NAME", "SYNOPSIS", "DESCRIPTION", "SUBCOMMANDS", "OPTIONS", "EXIT STATUS", "ENVIRONMENT", "FILES",
                  "EXAMPLES", "SEE ALSO"]
        self.assertEqual([name for name in self.sections if name in wanted], wanted)

    def test_it_describes_every_subcommand_and_no_other(self):
        described = [name.split()[1] for name in self.sections if name.startswith("mrset ")]
        self.assertEqual(described, subcommands())
        synopsis = manual_page.words(self.sections["SYNOPSIS"]).replace("mrset sets | variables", "mrset sets mrset variables")
        self.assertEqual(re.findall(r"mrset ([a-z]+)", synopsis), subcommands())

    def test_it_describes_every_option_and_no_other(self):
        common = manual_page.tags(self.sections["Every subcommand"])
        for subcommand in subcommands():
            described = manual_page.tags(self.sections[f"mrset {subcommand}"])
            self.assertEqual(described | common, options(subcommand), subcommand)
            self.assertFalse(described & common, subcommand)
        self.assertEqual(manual_page.tags(self.sections["OPTIONS"]), options())

    def test_it_mentions_no_option_that_is_not_there(self):
        known = options().union(*map(options, subcommands()))
        for name, lines in self.sections.items():
            mentioned = set(manual_page.OPTION.findall(manual_page.words(lines)))
            self.assertLessEqual({option for option in mentioned if option.startswith("--")}, known, name)

    def test_its_title_names_the_program_and_no_version(self):
        with open(manual_page.PATH, encoding="utf-8") as page:
            self.assertRegex(page.readline(), r"^\.TH MRSET 1 \d{4}-\d\d-\d\d mrset$")

    def test_it_is_well_formed(self):
        result = subprocess.run([os.environ["MANDOC"], "-T", "lint", "-W", "warning", manual_page.PATH], check=False,
                                capture_output=True, text=True)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))


if __name__ == "__main__":
    unittest.main()
