#!/usr/bin/env python3
"""Eight programs of fifty commands each on one dataset: all 400 sets are there at the end.

  concurrency_test.py --program MRSET --shim LIBRARY [--rounds N] [--seed S]

Then the same N times while programs are killed at random. A set whose command had answered is there; one whose command
had not is there whole or not at all; and what is missing can be defined as if nothing had been.
"""

import argparse
import json
import os
import random
import signal
import subprocess
import sys
import time
from pathlib import Path

from program import Failure, Program, dump, scratch_folder
from scenarios import DATASET, FILES, IMPORT

PROGRAMS = 8
COMMANDS = 50
VARIABLES = ["q1", "q2", "q3"]


def set_name(program: int, command: int) -> str:
    return f"$p{program}_{command:02}"


def define_command(name: str) -> str:
    return f"MRSET /MDGROUP NAME={name} LABEL='Set {name}' VARIABLES={' '.join(VARIABLES)} VALUE=1."


class Run:
    """One program at work on the commands that define these sets."""

    def __init__(self, program: Program, folder: Path, number: int, names: list[str]):
        self.names = names
        script = folder / f"{number}.script"
        script.write_text("".join(define_command(name) + "\n" for name in names))
        self.process = subprocess.Popen(
            [program.program, "run", DATASET, script.name, "--format", "json"],
            cwd=folder,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            env={**os.environ, "LD_PRELOAD": program.shim},
            start_new_session=True,
        )
        self.killed = False

    def kill(self, luck: random.Random) -> None:
        """Ends all of the program, only the process that a user would see, or only that which runs the commands."""
        children = Path(f"/proc/{self.process.pid}/task/{self.process.pid}/children")
        try:
            worker = [int(child) for child in children.read_text().split()]
            os.kill(luck.choice([-self.process.pid, self.process.pid, *worker]), signal.SIGKILL)
            self.killed = True
        except (ProcessLookupError, FileNotFoundError):
            pass  # it has ended

    def answered(self) -> list[str]:
        """The sets whose commands answered; waits for the end."""
        output, errors = self.process.communicate(timeout=240)
        results = [json.loads(line) for line in output.decode().split("\n")[:-1]]
        aborted = [result for result in results if result["status"] == "aborted"]
        if any(result["status"] != "ok" or result["items"] for result in results if result not in aborted):
            raise Failure(f"a command did not go well: {results} {errors.decode()}")
        self.check_end(len(results), len(aborted), errors.decode())
        return [name for name, result in zip(self.names, results) if result not in aborted]

    def check_end(self, answers: int, aborted: int, errors: str) -> None:
        status = self.process.returncode
        if status != -signal.SIGKILL and (answers != len(self.names) or status != (3 if aborted else 0)):
            raise Failure(f"exit status {status}, {answers} answers to {len(self.names)} commands: {errors}")
        if aborted > self.killed or status == -signal.SIGKILL and not self.killed:
            raise Failure(f"{aborted} commands were aborted, exit status {status}, without a kill: {errors}")


def check_sets(program: Program, folder: Path, must: list[str], may: list[str]) -> set[str]:
    """All sets of `must` are there, no others than those of `may`, and each is whole; returns their names."""
    dump(folder / DATASET)  # for its integrity
    stored = json.loads(program.must(folder, ["sets", DATASET, "--format", "json"]))["sets"]
    for entry in stored:
        name = entry["name"]
        if entry["variables"] != VARIABLES or entry["label"] != f"Set {name}" or entry["countedValue"] != "1":
            raise Failure(f"a set is not whole: {entry}")
    names = {entry["name"] for entry in stored}
    if lost := set(must) - names:
        raise Failure(f"sets are lost whose commands had answered: {sorted(lost)}")
    if len(names) != len(stored) or names - set(may):
        raise Failure(f"sets are there twice or came from nowhere: {sorted(names)}")
    return names


def prepare(program: Program, folder: Path) -> None:
    for name, text in FILES.items():
        (folder / name).write_text(text)
    program.must(folder, IMPORT)


def all_sets() -> list[list[str]]:
    return [[set_name(number, command) for command in range(COMMANDS)] for number in range(PROGRAMS)]


def run_all(program: Program, folder: Path, work: list[list[str]]) -> list[str]:
    runs = [Run(program, folder, number, names) for number, names in enumerate(work)]
    return [name for run in runs for name in run.answered()]


def without_kills(program: Program) -> None:
    with scratch_folder() as place:
        folder = Path(place)
        prepare(program, folder)
        started = time.monotonic()
        wanted = run_all(program, folder, all_sets())
        there = check_sets(program, folder, wanted, wanted)
        print(f"without kills: {len(there)} of {PROGRAMS * COMMANDS} sets, {time.monotonic() - started:.1f} s")


def kill_some(runs: list[Run], luck: random.Random) -> int:
    """Six of the eight programs are killed, one after the other, wherever they happen to be."""
    victims = luck.sample(runs, 6)
    for victim in victims:
        time.sleep(luck.uniform(0, 0.04))
        victim.kill(luck)
    return sum(victim.killed for victim in victims)


def with_kills(program: Program, seed: int) -> None:
    luck = random.Random(seed)
    with scratch_folder() as place:
        folder = Path(place)
        prepare(program, folder)
        work = all_sets()
        every = [name for names in work for name in names]
        runs = [Run(program, folder, number, names) for number, names in enumerate(work)]
        killed = kill_some(runs, luck)
        answered = [name for run in runs for name in run.answered()]
        there = check_sets(program, folder, answered, every)
        missing = [[name for name in names if name not in there] for names in work]
        run_all(program, folder, missing)
        check_sets(program, folder, every, every)
        print(
            f"seed {seed}: {killed} programs killed, {len(answered)} commands answered, {len(there)} sets there,"
            f" none lost; {len(every)} after the rest was run"
        )


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True)
    parser.add_argument("--shim", required=True)
    parser.add_argument("--rounds", type=int, default=10)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--long", action="store_true", help="a hundred rounds")
    options = parser.parse_args()
    program = Program(options.program, options.shim)
    without_kills(program)
    for seed in range(options.seed, options.seed + (100 if options.long else options.rounds)):
        with_kills(program, seed)
    return 0


if __name__ == "__main__":
    sys.exit(main())
