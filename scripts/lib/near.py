#!/usr/bin/env python3
"""Builds and runs what can notice a change of files soon, as near.txt beside this script says.

near.py run BUILD FILE...   1 if something fails
near.py check BUILD         1 if a file of the project has no row, or a row names what is not there
"""

import fnmatch
import json
import os
import re
import subprocess
import sys
import time
from dataclasses import dataclass, field

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))
TABLE = os.path.join(HERE, 'near.txt')
NOT_OF_PROJECT = ('build', '.git', '.cache', '.idea', '.vscode', 'node_modules', '__pycache__')  # folders


@dataclass
class Row:
    pattern: str
    programs: list  # "NAME", or "NAME:FILTER" of GoogleTest
    tests: list  # patterns of whole names of ctest's tests
    targets: list  # built besides


@dataclass
class Plan:
    targets: dict = field(default_factory=dict)  # in order, each once
    programs: dict = field(default_factory=dict)
    tests: dict = field(default_factory=dict)


def read_table():
    rows = []
    with open(TABLE, encoding='utf-8') as file:
        for line in file:
            if line.strip() and not line.startswith('#'):
                pattern, *columns = re.split(r'\s+\|(?=\s)', line)
                rows.append(Row(pattern, *[*(column.split() for column in columns), [], []][:3]))
    return rows


def rows_of_sources(build):
    """A row for each source of a test program: that program is run."""
    rows = []
    with open(os.path.join(build, 'compile_commands.json'), encoding='utf-8') as file:
        for command in json.load(file):
            target = re.search(r'CMakeFiles/(\w+)\.dir/', command['command']).group(1)
            if target.endswith('_tests'):
                rows.append(Row(os.path.relpath(command['file'], ROOT), [target], [], []))
    return rows


def row_of(rows, path):
    return next((row for row in rows if fnmatch.fnmatchcase(path, row.pattern)), None)


def add(plan, row, path):
    names = {'path': re.escape(path), 'name': re.escape(os.path.splitext(os.path.basename(path))[0])}
    tests = [test.format(**names) for test in row.tests]
    plan.programs.update(dict.fromkeys(row.programs))
    plan.tests.update(dict.fromkeys(tests))
    needed = ['mrset', 'mrset_module'] if tests else []
    plan.targets.update(dict.fromkeys([*needed, *row.targets, *(program.split(':')[0] for program in row.programs)]))


def run(build, paths):
    rows = read_table() + rows_of_sources(build)
    plan = Plan()
    for path in paths:
        path = os.path.relpath(os.path.abspath(path), ROOT)
        row = row_of(rows, path)
        if row is None:
            sys.exit(f'{path}: no row of {os.path.relpath(TABLE)} matches, and no test program has it as a source.')
        add(plan, row, path)
    started = time.monotonic()
    passed = build_targets(build, plan.targets)
    built = time.monotonic()
    if passed:
        passed = all([run_program(build, program) for program in plan.programs] + [run_tests(build, plan.tests)])
    print(f'{"Passed" if passed else "FAILED"}: {built - started:.0f} s to build, {time.monotonic() - built:.0f} s to run. '
          'scripts/test runs everything.')
    return 0 if passed else 1


def call(command):
    print('+', ' '.join(command), flush=True)
    return subprocess.run(command, check=False).returncode == 0


def build_targets(build, targets):
    return not targets or call(['cmake', '--build', build, '--target', *targets])


def filtered(program):
    """A test program's name, and the option that makes it run in part."""
    name, _, tests = program.partition(':')
    return name, [f'--gtest_filter={tests}'] if tests else []


def run_program(build, program):
    name, tests = filtered(program)
    return call([os.path.join(build, 'bin', name), '--gtest_brief=1', *tests])


def run_tests(build, tests):
    return not tests or call(['ctest', '--test-dir', build, '--output-on-failure', '--no-tests=error', '--parallel',
                              str((os.cpu_count() or 1) + 1), '--tests-regex', f'^({"|".join(tests)})$'])


def files_of_project():
    """What git keeps or would keep. Where the project is no working tree of git, what is there."""
    listed = subprocess.run(['git', 'ls-files', '--cached', '--others', '--exclude-standard'], cwd=ROOT, check=False,
                            capture_output=True, text=True)
    if listed.returncode == 0:
        return [path for path in listed.stdout.splitlines() if os.path.exists(os.path.join(ROOT, path))]
    found = []
    for folder, folders, files in os.walk(ROOT):
        folders[:] = [name for name in folders if not name.startswith(NOT_OF_PROJECT)]
        found += [os.path.relpath(os.path.join(folder, name), ROOT) for name in files if name != 'compile_commands.json']
    return found


def names_of_tests(build):
    shown = subprocess.run(['ctest', '--test-dir', build, '--show-only=json-v1'], check=True, capture_output=True)
    return [test['name'] for test in json.loads(shown.stdout)['tests']]


def names_of_targets(build):
    shown = subprocess.run(['cmake', '--build', build, '--target', 'help'], check=True, capture_output=True, text=True)
    return {line.split(':')[0] for line in shown.stdout.splitlines()}


def problems(build):
    table = read_table()
    rows = table + rows_of_sources(build)
    plan = Plan()
    used = set()
    for path in files_of_project():
        row = row_of(rows, path)
        if row is None:
            yield f'{path}: no row of near.txt matches.'
        elif not row.programs and not row.tests:
            yield f'{row.pattern}: nothing is run.'
        else:
            add(plan, row, path)
            used.add(row.pattern)
    yield from (f'{row.pattern}: no file matches.' for row in table if row.pattern not in used)
    yield from (f'{target}: no such target.' for target in plan.targets.keys() - names_of_targets(build))
    tests = '\n'.join(names_of_tests(build))
    yield from (f'{test}: no such test.' for test in plan.tests if not re.search(f'^({test})$', tests, re.MULTILINE))
    yield from (f'{program}: no such tests, or not built.' for program in plan.programs if not lists_tests(build, program))


def lists_tests(build, program):
    name, tests = filtered(program)
    path = os.path.join(build, 'bin', name)
    return os.path.exists(path) and subprocess.run([path, '--gtest_list_tests', *tests], check=False,
                                                   capture_output=True).stdout != b''


def check(build):
    found = list(problems(build))
    print('\n'.join(found) or 'Every file has a row.')
    return 1 if found else 0


def main(arguments):
    if len(arguments) > 2 and arguments[0] == 'run':
        return run(arguments[1], arguments[2:])
    if len(arguments) == 2 and arguments[0] == 'check':
        return check(arguments[1])
    sys.exit(__doc__)


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
