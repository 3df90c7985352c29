#!/usr/bin/env python3
"""The manual names every subcommand of the program under a heading of its own, with an example, and every option there
or under a heading that several share; and none that the program lacks."""

import os
import re
import subprocess
import unittest

from blocks import examples_of, lines_of

MANUAL = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..', 'docs', 'manual', 'program.md')
OPTION = re.compile(r'--[a-z][a-z-]*')


def help_on(*subcommand):
    return subprocess.run([os.environ['MRSET_PROGRAM'], *subcommand, '--help'], check=True, stdout=subprocess.PIPE,
                          encoding='utf-8').stdout


def subcommands():
    listed = re.search(r'^Subcommands:\n((?:  .*\n)+)', help_on(), re.MULTILINE).group(1)
    return re.findall(r'^  ([a-z]+) ', listed, re.MULTILINE)


class Subcommands(unittest.TestCase):
    def setUp(self):
        self.lines = lines_of(MANUAL)

    def test_each_has_a_heading_and_none_is_without(self):
        headings = [line[len('## mrset '):] for line in self.lines if line.startswith('## mrset ')]
        self.assertEqual(sorted(headings), sorted(subcommands()))

    def test_each_has_an_example_that_is_run(self):
        commands = '\n'.join('\n'.join(block.lines) for block in examples_of(MANUAL, self.lines))
        for name in subcommands():
            self.assertRegex(commands, rf'(?m)^\$ (.*\| )?mrset {name} ')

    def test_each_option_is_named_and_no_other(self):
        options = set(OPTION.findall(help_on()))
        for name in subcommands():
            options |= set(OPTION.findall(help_on(name)))
        self.assertEqual(set(OPTION.findall('\n'.join(self.lines))), options)


if __name__ == '__main__':
    unittest.main()
