#!/usr/bin/env python3
"""Every command of the README runs as it stands: its ```sh blocks, in order, in a copy of the project whose build/release
is the build under test, and each command that its prose and tables show. (Its ```console examples: examples.py.)"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))
README = os.path.join(ROOT, 'README.md')
PROGRAM = os.environ['MRSET_PROGRAM']
BUILD = os.path.dirname(os.path.dirname(PROGRAM))
# Not run from here: they run this test, or build and measure for minutes (bench.smoke runs each measurement).
TOO_LONG = ('scripts/test', 'scripts/bench')
# Those that end with 1 on surveys that differ.
MAY_END_WITH_1 = ('mrset diff',)


def elements(kind):
    xml = subprocess.run([os.environ['CMARK'], '--to', 'xml', '-e', 'table', README], check=True, capture_output=True)
    return ElementTree.fromstring(xml.stdout).iter('{http://commonmark.org/xml/1.0}' + kind)


class Readme(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.home = os.path.join(folder.name, 'home')
        self.project = os.path.join(folder.name, 'mrset')
        os.makedirs(self.home)
        self.environment = dict(os.environ, HOME=self.home, MRSET_BUILD=BUILD, LC_ALL='C.UTF-8')

    def run_script(self, script, folder):
        done = subprocess.run(['bash', '-euo', 'pipefail', '-c', script], cwd=folder, env=self.environment, check=False,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        return done.returncode, script + '\n' + done.stdout

    def test_its_blocks_run_in_order(self):
        os.makedirs(os.path.join(self.project, 'build'))
        os.symlink(BUILD, os.path.join(self.project, 'build', 'release'))
        for name in ('examples', 'scripts'):
            shutil.copytree(os.path.join(ROOT, name), os.path.join(self.project, name))
        lines = [line for block in elements('code_block') if block.get('info') == 'sh' for line in block.text.splitlines()]
        self.assertIn('scripts/demo', [line.split()[0] for line in lines if line])
        for line in lines:
            if line.startswith(TOO_LONG):
                self.assertTrue(os.access(os.path.join(ROOT, line.split()[0]), os.X_OK), line)
        script = '\n'.join(line for line in lines if not line.startswith(TOO_LONG))
        status, printed = self.run_script(script + '\ncommand -v mrset', self.project)
        self.assertEqual(status, 0, printed)
        self.assertTrue(os.path.exists(os.path.join(self.home, '.local', 'bin', 'mrset')), printed)

    def test_the_commands_of_its_prose_run_in_order(self):
        shutil.copy(os.path.join(ROOT, 'examples', 'breakfast.csv'), os.path.join(self.home, 'survey.csv'))
        with open(os.path.join(self.home, 'all.script'), 'w', encoding='utf-8') as script:
            script.write('MRSET /MDGROUP NAME=$drinks VARIABLES=drink1 TO drink5 VALUE=1 /DISPLAY NAME=ALL.\n')
        self.environment['PATH'] = os.path.join(BUILD, 'bin') + os.pathsep + self.environment['PATH']
        self.assertEqual(self.run_script('mrset import survey.csv next.mrset', self.home)[0], 0)
        commands = [code.text for code in elements('code') if re.match(r'mrset [a-z-]', code.text)]
        self.assertGreater(len(commands), 10)
        for command in commands:
            status, printed = self.run_script(command, self.home)
            self.assertIn(status, (0, 1) if command.startswith(MAY_END_WITH_1) else (0,), printed)


if __name__ == '__main__':
    sys.exit(unittest.main())
