#!/usr/bin/env python3
"""What killed programs and deleted datasets left beside a dataset's name does no harm.

  leftovers_test.py --program MRSET --shim LIBRARY [--case NAME]

SQLite takes a journal or log that has the dataset's name for that of the dataset: one of another dataset, which is
gone, would destroy what is made in its place. So nothing is made there until the leftover is moved away by hand.
Temporary files are removed by the next program that makes one in that folder, but for those in use.
"""

import argparse
import fcntl
import re
import sqlite3
import sys
from pathlib import Path
from typing import Callable

from crash_test import NEXT, Trial
from program import Failure, Kill, Program, copy, dump, scratch_folder
from scenarios import DATASET, FILES, IMPORT, OTHER, SCENARIOS, SURVEY, TEMPORARY_LEFT, WAVE_2, define, run

JOURNAL = DATASET + "-journal"
LOG = DATASET + "-wal"
MAKES_TEMPORARY = re.compile(r"create \.mrset-[0-9a-f]{8}\.tmp")
CREATING = [IMPORT, ["import", "--replace", SURVEY, DATASET], ["import", WAVE_2, DATASET]]


def folder_with_files(place: Path) -> Path:
    place.mkdir(parents=True)
    for name, text in FILES.items():
        (place / name).write_text(text)
    return place


def contents(folder: Path) -> dict[str, bytes]:
    return {path.name: path.read_bytes() for path in folder.iterdir()}


def hot_journal(program: Program, place: Path) -> bytes:
    """Of a dataset whose program was killed when the journal was synced and the dataset half written."""
    ready = folder_with_files(place / "other")
    for arguments in (["import", WAVE_2, DATASET], run(define(*(f"set{number}" for number in range(60))))):
        program.must(ready, arguments)
    arguments = run(define("killed"))
    operations = program.operations(copy(ready, place / "other traced"), arguments)
    first_write = next(at for at, what in enumerate(operations, 1) if what.startswith(f"write {DATASET} "))
    killed = copy(ready, place / "other killed")
    if not program.run_killed(killed, arguments, Kill(first_write, "after")).killed:
        raise Failure("the program that was to leave a journal was not killed")
    return (killed / JOURNAL).read_bytes()


def stale_log(program: Program, place: Path) -> bytes:
    """A write-ahead log, of a dataset in the hands of another program that writes one."""
    folder = folder_with_files(place / "other")
    program.must(folder, ["import", WAVE_2, DATASET])
    connection = sqlite3.connect(folder / DATASET, isolation_level=None)
    connection.execute("PRAGMA journal_mode = WAL")
    connection.execute("UPDATE block SET cells = x'00'")
    log = (folder / LOG).read_bytes()
    connection.close()
    if not log:
        raise Failure("no write-ahead log was made")
    return log


def check_refusal(program: Program, place: Path, arguments: list[str], name: str, leftover: bytes) -> None:
    plain = folder_with_files(place / "plain")
    program.must(plain, arguments)
    folder = folder_with_files(place / "refused")
    (folder / name).write_bytes(leftover)
    before = contents(folder)
    done = program.run(folder, arguments)
    if done.returncode != 2 or done.stdout or len(done.stderr.splitlines()) != 1 or name not in done.stderr:
        raise Failure(f"beside {name}, exit status {done.returncode}, not one sentence that names it: {done.stderr!r}")
    if contents(folder) != before:
        raise Failure(f"a refused import changed the folder: {sorted(contents(folder))} was {sorted(before)}")
    (folder / name).rename(folder / "moved away")
    program.must(folder, arguments)
    if dump(folder / DATASET) != dump(plain / DATASET):
        raise Failure("after the leftover was moved away, the import made another dataset than without it")
    program.must(folder, NEXT)
    program.must(folder, ["check", DATASET])


def refusals(program: Program) -> list[tuple[str, Callable[[Path], None]]]:
    kinds = [(JOURNAL, hot_journal), (LOG, stale_log)]
    return [
        (
            f"{' '.join(arguments)} beside {name} of another dataset",
            lambda place, arguments=arguments, name=name, make=make: check_refusal(
                program, place / "import", arguments, name, make(program, place)
            ),
        )
        for name, make in kinds
        for arguments in CREATING
    ]


def check_temporary(program: Program, scenario, place: Path) -> None:
    trial = Trial(program, scenario, place, leftovers=True)
    folder = copy(trial.ready, place / "run")
    program.must(folder, scenario.arguments)
    if dump(folder / DATASET) != trial.state(tuple(range(trial.steps())), False):
        raise Failure("beside temporary files, the run left something else")
    operations = program.operations(copy(trial.ready, place / "traced"), scenario.arguments)
    if any(MAKES_TEMPORARY.fullmatch(what) for what in operations):
        check_removed(folder)
    program.must(folder, NEXT)
    program.must(folder, ["check", DATASET])
    program.must(folder, ["import", SURVEY, "third.mrset"])
    check_removed(folder)


def check_removed(folder: Path) -> None:
    left = sorted(path.name for path in folder.glob(".mrset-*"))
    if left:
        raise Failure(f"a program that made a temporary file left those of programs that ended: {left}")


def check_in_use(program: Program, place: Path) -> None:
    folder = folder_with_files(place / "in use")
    names = [name for name in TEMPORARY_LEFT if name.startswith(".mrset-0000")]
    for name in names:
        (folder / name).write_bytes(TEMPORARY_LEFT[name])
    with open(folder / names[0], "rb") as held:
        fcntl.flock(held, fcntl.LOCK_EX)
        program.must(folder, IMPORT)
        if lost := [name for name in names if not (folder / name).exists()]:
            raise Failure(f"files in use were removed: {lost}")
    program.must(folder, ["import", SURVEY, OTHER])
    check_removed(folder)


def cases(program: Program) -> list[tuple[str, Callable[[Path], None]]]:
    beside = [
        (
            f"{scenario.name} beside temporary files",
            lambda place, scenario=scenario: check_temporary(program, scenario, place / "trial"),
        )
        for scenario in SCENARIOS
    ]
    return [*refusals(program), *beside, ("temporary files in use", lambda place: check_in_use(program, place))]


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True)
    parser.add_argument("--shim", required=True)
    parser.add_argument("--case", help="only the case of this name")
    options = parser.parse_args()
    failures = count = 0
    for name, check in cases(Program(options.program, options.shim)):
        if options.case not in (None, name):
            continue
        count += 1
        try:
            with scratch_folder() as place:
                check(Path(place).resolve())
        except (Failure, OSError, ValueError) as failure:
            failures += 1
            print(
                f"FAILED {name}: {failure}\n  python3 tests/crash/leftovers_test.py --program {options.program}"
                f" --shim {options.shim} --case '{name}'"
            )
    print(f"{count} cases, {failures} failures")
    return 1 if failures or not count else 0


if __name__ == "__main__":
    sys.exit(main())
