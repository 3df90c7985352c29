#!/usr/bin/env python3
"""Two programs that copy crosswise at once, and a third one that saves meanwhile: none fails, none waits long.

  crosswise_test.py --program MRSET --shim LIBRARY [--rounds N] [--long]

A copy reads its source, lets it go, and then takes its target. So what both datasets hold is what one copy after the
other leaves, in one of the two orders, or what each leaves of sources that were read before either was saved. No set is
lost, and none is mixed.
"""

import argparse
import json
import subprocess
import sys
import time
from dataclasses import dataclass
from pathlib import Path

from program import Failure, Program, copy, dump, scratch_folder
from scenarios import FILES, SURVEY, define

A = "a.mrset"
B = "b.mrset"
OF_EACH = 80  # sets, so that a copy takes a while
SAVED = 20  # commands of the third program
LOCK_TIMEOUT = ["--lock-timeout", "5"]
LONGEST_WAIT = 4.0  # seconds; two copies that wait for each other would wait for the timeout
MOST_FAILURES = 3
SCRIPT = "third.script"


@dataclass(frozen=True)
class Ended:
    arguments: list[str]
    status: int
    errors: str
    seconds: float


class Started:
    """A program at work beside others."""

    def __init__(self, program: Program, folder: Path, arguments: list[str]):
        self.arguments = arguments
        self.began = time.monotonic()
        self.process = subprocess.Popen(
            [program.program, *arguments], cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True
        )

    def end(self) -> Ended:
        _, errors = self.process.communicate(timeout=60)
        return Ended(self.arguments, self.process.returncode, errors, time.monotonic() - self.began)


def run_at_once(program: Program, folder: Path, runs: list[list[str]]) -> None:
    """All of them, and then how they went."""
    started = [Started(program, folder, arguments) for arguments in runs]
    for ended in [run.end() for run in started]:
        told = f"{' '.join(ended.arguments)} ended with exit status {ended.status} after {ended.seconds:.1f} s"
        if ended.status != 0 or ended.seconds > LONGEST_WAIT:
            raise Failure(f"{told}: {ended.errors}")


def names(kind: str, count: int) -> list[str]:
    return [f"{kind}{number:03}" for number in range(count)]


def prepare(program: Program, folder: Path) -> Path:
    folder.mkdir()
    for name, text in FILES.items():
        (folder / name).write_text(text)
    (folder / SCRIPT).write_text("".join(define(name) + "\n" for name in names("c", SAVED)))
    for dataset, kind, variables in ((A, "a", "q1 q2"), (B, "b", "q2 q3")):
        program.must(folder, ["import", SURVEY, dataset])
        program.must(folder, ["run", dataset, "-c", define(*names(kind, OF_EACH))])
        both = f"MRSET /MDGROUP NAME=$both LABEL='{kind}' VARIABLES={variables} VALUE=1."
        program.must(folder, ["run", dataset, "-c", both])
    return folder


def copies() -> list[list[str]]:
    return [["copy", A, B, *LOCK_TIMEOUT], ["copy", B, A, *LOCK_TIMEOUT]]


def sets_of(program: Program, folder: Path, dataset: str) -> dict[str, str]:
    """By name; their order is that of coming in."""
    stored = json.loads(program.must(folder, ["sets", dataset, "--format", "json"]))["sets"]
    return {entry["name"]: json.dumps(entry, sort_keys=True) for entry in stored}


def in_order(program: Program, ready: Path, place: Path, order: list[list[str]]):
    folder = copy(ready, place / "in order")
    for arguments in order:
        program.must(folder, arguments)
    return sets_of(program, folder, A), sets_of(program, folder, B)


def check_sound(program: Program, folder: Path) -> None:
    for dataset in (A, B):
        dump(folder / dataset)  # for its integrity
        program.must(folder, ["check", dataset])
    if left := [path.name for path in folder.iterdir() if path.name.endswith("-journal") or path.name.startswith(".")]:
        raise Failure(f"left behind: {left}")


def round_of_two(program: Program, folder: Path, allowed: list) -> None:
    run_at_once(program, folder, copies())
    check_sound(program, folder)
    found = sets_of(program, folder, A), sets_of(program, folder, B)
    if found not in allowed:
        one, other = found
        differing = sorted(name for name in one.keys() | other.keys() if one.get(name) != other.get(name))
        raise Failure(f"the two copies do not leave that; the two datasets differ in {differing}")


def round_of_three(program: Program, folder: Path, allowed: list) -> None:
    """The third program's sets are all in A, and those that B holds are whole."""
    third = ["run", A, SCRIPT, "--format", "json", *LOCK_TIMEOUT]
    run_at_once(program, folder, [third, *copies()])
    check_sound(program, folder)
    saved = {f"${name}" for name in names("c", SAVED)}
    in_a, in_b = sets_of(program, folder, A), sets_of(program, folder, B)
    if lost := saved - in_a.keys():
        raise Failure(f"sets that were saved are lost: {sorted(lost)}")
    if strangers := [name for name in saved & in_b.keys() if in_b[name] != in_a[name]]:
        raise Failure(f"sets were not copied as they are: {strangers}")
    rest = tuple({name: form for name, form in sets.items() if name not in saved} for sets in (in_a, in_b))
    if rest not in allowed:
        raise Failure("the two copies do not leave that")


def play(program: Program, rounds: int) -> tuple[int, int]:
    """The rounds that were played and those that failed; each kind ends early where many do, since those take long."""
    played = failures = 0
    with scratch_folder() as scratch:
        place = Path(scratch).resolve()
        ready = prepare(program, place / "ready")
        allowed = [in_order(program, ready, place, order) for order in (copies(), copies()[::-1])]
        allowed.append((allowed[1][0], allowed[0][1]))  # both sources as they were
        if allowed[0] == allowed[1]:
            raise Failure("both orders of the copies leave the same, so that they do not tell")
        for check in (round_of_two, round_of_three):
            most = failures + MOST_FAILURES
            for number in range(rounds):
                if failures < most:
                    played += 1
                    try:
                        check(program, copy(ready, place / "round"), allowed)
                    except Failure as failure:
                        failures += 1
                        print(f"FAILED {check.__name__} {number}: {failure}", flush=True)
    return played, failures


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True)
    parser.add_argument("--shim", required=True, help="not used here")
    parser.add_argument("--rounds", type=int, default=10, help="of two programs, and as many of three")
    parser.add_argument("--long", action="store_true", help="ten times as many rounds")
    options = parser.parse_args()
    began = time.monotonic()
    rounds = options.rounds * (10 if options.long else 1)
    played, failures = play(Program(options.program, options.shim), rounds)
    print(f"{played} rounds, {failures} failures, {time.monotonic() - began:.0f} s")
    if failures:
        print(
            f"  python3 tests/crash/crosswise_test.py --program {options.program} --shim {options.shim}"
            f" --rounds {options.rounds}"
        )
    return 1 if failures or played != 2 * rounds else 0


if __name__ == "__main__":
    sys.exit(main())
