#!/usr/bin/env python3
"""The test of examples can fail: a letter that differs, a block that is not run, a command that is left out."""

import contextlib
import io
import os
import re
import tempfile
import unittest
import unittest.mock

import examples
import transcript

GOOD = '''# A document

```console
$ echo tea
tea
$ mrset import --schema breakfast.schema.json breakfast.csv b.mrset
b.mrset: 21 variables, 240 cases
$ mrset run b.mrset -c 'MRSET
>   /MCGROUP NAME=$t LABEL="Brötchen" VARIABLES=topping1 topping2'
1> MRSET
   /MCGROUP NAME=$t LABEL="Brötchen" VARIABLES=topping1 topping2
$ mrset log b.mrset | head -n 2
    1  2026-01-31 12:00:00  defined $t
       MRSET /MCGROUP NAME=$t LABEL="Brötchen" VARIABLES=topping1 topping2
```

Prose.

```sh
cmake -S . -B build
```

```console
$ mrset undo b.mrset --to 9
mrset: b.mrset has no version 9; it keeps 0 to 1.
[2]
```
'''

PAGE = r'''.TH MRSET 1
.EX
$ mrset \-\-version | cut \-c 1\-5
mrset
.EE
'''


class Examples(unittest.TestCase):
    def check(self, text, name='document.md', update=False):
        """Whether it passes, what is printed, and the document afterwards."""
        with tempfile.TemporaryDirectory() as folder, contextlib.redirect_stdout(io.StringIO()) as printed:
            path = os.path.join(folder, name)
            with open(path, 'w', encoding='utf-8') as document:
                document.write(text)
            with unittest.mock.patch.dict(os.environ):
                os.environ.pop('MRSET_UPDATE', None)
                if update:
                    os.environ['MRSET_UPDATE'] = '1'
                status = examples.main([path])
            with open(path, encoding='utf-8') as document:
                return status == 0, printed.getvalue(), document.read()

    def assert_fails(self, text, reason, name='document.md'):
        passed, printed, _ = self.check(text, name)
        self.assertFalse(passed, text)
        self.assertIn(reason, printed)

    def replace(self, old, new):
        self.assertEqual(GOOD.count(old), 1)
        return GOOD.replace(old, new)

    def test_a_right_document_passes(self):
        passed, printed, _ = self.check(GOOD)
        self.assertTrue(passed, printed)
        self.assertIn('5 examples', printed)

    def test_every_letter_of_the_output_counts(self):
        begin = GOOD.index('b.mrset: 21')
        for at in range(begin, GOOD.index('\n', begin)):
            wrong = GOOD[:at] + ('x' if GOOD[at] != 'x' else 'y') + GOOD[at + 1:]
            if at in (begin, begin + 4, begin + 20, begin + 31):  # each run takes a while
                self.assert_fails(wrong, '@@ ')
        self.assert_fails(self.replace('defined $t', 'defined $T'), '\\$T')
        self.assert_fails(self.replace('/MCGROUP NAME=$t LABEL="Brötchen" VARIABLES=topping1 topping2\n$',
                                       '/MCGROUP NAME=$t LABEL="Brotchen" VARIABLES=topping1 topping2\n$'), 'Brotchen')

    def test_a_diff_has_the_numbers_of_the_document(self):
        self.assert_fails(self.replace('\ntea\n', '\ncoffee\n'), '@@ -2,7 +2,7 @@')

    def test_times_are_a_pattern_and_nothing_else_is(self):
        self.assertTrue(self.check(self.replace('12:00:00', '23:59:59'))[0])
        self.assert_fails(self.replace('12:00:00', '23:59'), '23:59')
        line = transcript.expected('', '[{"time":"2026-01-31T12:00:00Z","n":1},{"time":"2026-01-31T12:00:01Z"}]')
        pattern = re.compile(line[:-len(' (re)')] + r'\Z')
        self.assertTrue(pattern.match('[{"time":"2027-02-28T23:59:59Z","n":1},{"time":"2027-02-28T23:59:59Z"}]'))
        self.assertFalse(pattern.match('[{"time":"2027-02-28T23:59:59Z","n":2},{"time":"2027-02-28T23:59:59Z"}]'))

    def test_the_exit_status_counts(self):
        self.assert_fails(self.replace('[2]\n', ''), '+  [2]')
        self.assert_fails(self.replace('[2]\n', '[1]\n'), '-  [1]')

    def test_output_that_is_left_out_or_too_much_fails(self):
        self.assert_fails(self.replace('\ntea\n', '\n'), '+  tea')
        self.assert_fails(self.replace('\ntea\n', '\ntea\n\n'), '@@ ')

    def test_a_run_that_calls_itself_skipped_fails(self):
        self.assert_fails(self.replace('$ echo tea\n', '$ exit 80\n'), '1 skipped')

    def test_blocks_that_are_not_run_fail(self):
        for block, reason in (('    $ mrset --version', 'must be fenced'), ('```\nmrset --version\n```', 'must be fenced'),
                              ('```sh\nmrset --version\n```', 'is not run'),
                              ('```sh\nbuild/bin/mrset --version\n```', 'is not run'),
                              ('```sh\ncmake . && build/mrset sets x\n```', 'is not run'),
                              ('```sh\nls\n```', 'only sets up'), ('```json\n$ mrset --version\n```', 'is not run'),
                              ('```syntax\nMRSET /DISPLAY NAME=ALL.\n```', 'is not run'),
                              ('```mrset\nMRSET /DISPLAY NAME=ALL.\n```', 'neither run'),
                              ('- item\n  ```console\n  $ true\n  ```', 'must not be indented'),
                              ('```console\ntea\n```', 'must begin with'), ('```console\n```', 'must begin with'),
                              ('```console\n$ echo "a (re)"\na (re)\n```', 'annotation')):
            self.assert_fails(f'# A document\n\n{block}\n', reason)

    def test_an_update_writes_what_is_printed_and_nothing_else(self):
        wrong = self.replace('\ntea\n', '\n').replace('[2]\n', '[1]\nö\n').replace('LABEL="Brötchen"', 'LABEL="ö"', 2)
        fixed = self.check(wrong, update=True)[2]
        self.assertTrue(self.check(fixed)[0])
        self.assertEqual(fixed.splitlines()[:11], GOOD.replace('Brötchen', 'ö').splitlines()[:11])
        self.assertIn('2026-01-31 12:00:00', fixed)
        self.assertEqual(self.check(GOOD, update=True)[2], GOOD)

    def test_empty_lines_of_commands(self):
        text = "# A document\n\n```console\n$ cat <<'END'\n> a\n>\n> b\n> END\na\n\nb\n```\n"
        self.assertTrue(self.check(text)[0])
        self.assertEqual(self.check(text, update=True)[2], text)
        self.assert_fails(text.replace('>\n', ''), '@@ ')

    def test_the_report_of_an_assertion_is_a_pattern_in_line_and_spelling(self):
        report = "Fatal: mrset: backend/mrset/mrset.cpp:{}: void F(const Text{}, Sets{}): Assertion `!a.b()' failed.{}"
        line = transcript.expected('', report.format(7, '&', '&', ''))
        pattern = re.compile(line[:-len(' (re)')] + r'\Z')
        self.assertTrue(pattern.match(report.format(123, ' &', ' &', '')))
        self.assertTrue(pattern.match(report.format(7, '&', '&', '')))
        self.assertEqual(line, transcript.expected('', report.format(9, ' &', ' &', '')))
        self.assertFalse(pattern.match(report.format('x', '&', '&', '')))
        self.assertFalse(pattern.match(report.format(7, '*', '&', '')))
        self.assertFalse(pattern.match(report.format(7, '&', '&', '.')))

    def test_man_pages(self):
        self.assertTrue(self.check(PAGE, 'page.1')[0])
        self.assert_fails(PAGE.replace('\nmrset\n', '\ntea\n'), '-  tea', 'page.1')
        self.assert_fails(PAGE.replace('.EX\n', '').replace('.EE\n', ''), 'is not run', 'page.1')
        self.assert_fails(PAGE.replace('.EE\n', ''), 'without .EE', 'page.1')
        printed = PAGE.replace('.EE', "$ echo \\(aqa\\e-b.\\(aq; echo ... \"\\(aq\"\na\\e\\-b.\n\\&... \\(aq\n.EE").replace('e-b', 'e\\-b')
        self.assertTrue(self.check(printed, 'page.1')[0], self.check(printed, 'page.1'))
        self.assertEqual(self.check(printed.replace('b.\n', 'c.\n'), 'page.1', update=True)[2], printed)
        self.assert_fails(PAGE.replace(r'\-\-', r'\[hy]\-'), 'does not know', 'page.1')


if __name__ == '__main__':
    unittest.main()
