#!/usr/bin/env python3
"""Shows how a run of ctest gets on, and counts the results of several.

ctest ... 2>&1 | test_results.py follow LOG   copies everything to LOG; shows progress, and failures in full
test_results.py count FOLDER                  prints which tests of the JUnit files in FOLDER were skipped and, as the
                                              last line, how many passed, failed, were skipped; 1 if any failed
"""

import glob
import os
import re
import sys
import time
import xml.etree.ElementTree as ElementTree

RESULT = re.compile(r' *(\d+)/(\d+) Test +#\d+: (.*)$')
PASSED = re.compile(r'.* Passed +[\d.]+ sec$')
# ctest's own summary, which the count replaces; the lists of tests that failed or were skipped come after it.
SUMMARY = re.compile(r'\d+% tests passed, |Total Test time |Internal ctest changing into |Test project '
                     r'|Errors while running CTest|Output from these tests are in|Use "--rerun-failed')
STARTED = re.compile(r' +Start +\d+: ')
SECONDS_BETWEEN = 10  # lines of progress


def follow(lines, log, out):
    """Returns whether all tests passed: the last lines of ctest say so."""
    passed = False
    in_failure = False
    shown = time.monotonic()
    for line in lines:
        log.write(line)
        passed = passed or line.startswith('100% tests passed')
        if STARTED.match(line):
            continue
        result = RESULT.match(line)
        if result:
            done, total, rest = result.groups()
            in_failure = not PASSED.match(rest)
            if in_failure:
                out.write(line)
            elif done == total or time.monotonic() - shown >= SECONDS_BETWEEN:
                out.write(f'{done} of {total} tests done\n')
                shown = time.monotonic()
        elif SUMMARY.match(line):
            in_failure = True  # lists of tests follow
        elif in_failure and (line.strip() or not passed):
            out.write(line)
        out.flush()
    return passed


def reason_given(case):
    """What a skipped test says about why, in the form that this project's scripts use."""
    for line in (case.findtext('system-out') or '').splitlines():
        if line.startswith('SKIPPED: '):
            return ': ' + line[len('SKIPPED: '):]
    return ''


def count(paths):
    """Prints which tests were skipped; returns how many passed, failed, and were skipped. A test that could not be started failed."""
    passed = failed = skipped = 0
    for path in paths:
        try:
            cases = ElementTree.parse(path).getroot().iter('testcase')
        except ElementTree.ParseError as error:
            print(f'{path}: {error}')
            failed += 1
            continue
        for case in cases:
            reason = case.find('skipped')
            if reason is not None and reason.get('message', '').startswith('SKIP_'):
                skipped += 1
                print(f'Skipped: {case.get("name")}{reason_given(case)}')
            elif case.get('status') == 'run':
                passed += 1
            else:
                failed += 1
    return passed, failed, skipped


def main(arguments):
    if len(arguments) != 2 or arguments[0] not in ('follow', 'count'):
        sys.exit(__doc__)
    if arguments[0] == 'follow':
        sys.stdin.reconfigure(errors='replace')
        sys.stdout.reconfigure(errors='replace')
        with open(arguments[1], 'w', encoding='utf-8', errors='replace') as log:
            return 0 if follow(sys.stdin, log, sys.stdout) else 1
    passed, failed, skipped = count(sorted(glob.glob(os.path.join(arguments[1], '*.xml'))))
    print(f'Tests: {passed} passed, {failed} failed, {skipped} skipped')
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
