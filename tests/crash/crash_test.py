#!/usr/bin/env python3
"""Kills the program at everything it does to a file, and looks at what is left.

  crash_test.py --program MRSET --shim LIBRARY [--kill KIND...] [--long] [--every K [--from N]]
  crash_test.py --program MRSET --shim LIBRARY --kill KIND --scenario NAME --at N --moment before|middle|after [--seed S]

The second form repeats one kill, shows it, and keeps the folder it left. docs/durability.md says what is held.

KIND: group, process, power or end. With end nothing is killed: the program ends by itself, and then power is lost; --at
and --moment mean nothing.
"""

import argparse
import json
import re
import shutil
import signal
import sqlite3
import sys
import time
from collections import Counter
from fnmatch import fnmatch
from functools import cached_property
from pathlib import Path

from program import KINDS, Failure, Kill, Program, copy, dump, scratch_folder
from scenarios import DATASET, FILES, OTHER, SCENARIOS, SCRIPT, TEMPORARY_LEFT, Scenario, define

MOST_OPERATIONS = 2000  # a sweep that comes here does not end
NEXT = ["run", DATASET, "-c", define("next")]
END = "end"
SEEDS_AT_END = 12

# What makes a command's effect stand.
COMMIT = re.compile(rf"delete {re.escape(DATASET)}-journal|(rename \S+ to|link) {re.escape(DATASET)}")


class Trial:
    """One scenario: the states that it may leave, found without a kill, and the check of a kill."""

    def __init__(self, program: Program, scenario: Scenario, place: Path, leftovers: bool = False):
        self.program = program
        self.leftovers = TEMPORARY_LEFT if leftovers else {}
        self.scenario = scenario
        self.place = place
        self.ready = self.prepare()
        self.second = dump(self.ready / OTHER)
        self.known = {}  # dumps by the commands that were run
        self.whole = copy(self.ready, place / "whole")
        program.must(self.whole, scenario.arguments)

    @cached_property
    def points_of_no_return(self) -> "PointsOfNoReturn":
        folder = copy(self.ready, self.place / "traced")
        points = PointsOfNoReturn(self.program.operations(folder, self.scenario.arguments), folder.name)
        if len(points.commits) != len(self.states_in_order()) - 1:
            raise Failure(f"{points.commits} make the effects stand, which are {len(self.states_in_order()) - 1}")
        return points

    def prepare(self) -> Path:
        folder = self.place / "ready"
        folder.mkdir(parents=True)
        for name, text in FILES.items():
            (folder / name).write_text(text)
        self.write_script(folder, self.scenario.script or [])
        for arguments in self.scenario.prepare:
            self.program.must(folder, arguments)
        if self.scenario.prepare_sql:
            apply_sql(folder / DATASET, self.scenario.prepare_sql)
        for name, data in self.leftovers.items():
            (folder / name).write_bytes(data)
        return folder

    @staticmethod
    def write_script(folder: Path, commands: list[str]) -> None:
        (folder / SCRIPT).write_text("".join(command + "\n" for command in commands))

    def steps(self) -> int:
        """How many of the run's effects can be there or not, in their order."""
        return len(self.scenario.script) if self.scenario.script else 1

    def states_in_order(self) -> list:
        """Those that a run goes through."""
        states = [self.state(tuple(range(done)), False) for done in range(self.steps() + 1)]
        return [state for index, state in enumerate(states) if index == 0 or state != states[index - 1]]

    def progress(self) -> int:
        """How many of the run's effects stand, by the last check."""
        return self.states_in_order().index(self.found)

    def state(self, steps: tuple[int, ...], with_next: bool):
        """What the dataset holds after these steps alone, then perhaps after the next command."""
        key = (steps, with_next)
        if key not in self.known:
            folder = copy(self.ready, self.place / "state")
            if self.scenario.script:
                self.write_script(folder, [self.scenario.script[step] for step in steps])
            if steps:
                self.program.must(folder, self.scenario.arguments)
            if with_next:
                self.program.must(folder, NEXT)
            self.known[key] = dump(folder / DATASET)
        return self.known[key]

    def allowed(self, outcome) -> list[tuple[int, ...]]:
        """The steps that may have been done, by what was answered: the first so many, and all that were answered. Where
        the program went on without the process that was killed, all but the command that was aborted with it, unless
        its result says that it may have been saved."""
        steps = self.steps()
        if outcome.status != -signal.SIGKILL:
            return self.told(outcome) if self.scenario.script else [tuple(range(steps))]
        answered = len(outcome.answers) if self.scenario.script and not self.scenario.outputs else 0
        return [tuple(range(done)) for done in range(answered, steps + 1)]

    def told(self, outcome) -> list[tuple[int, ...]]:
        results = [json.loads(line) for line in self.results_of(outcome)]
        if len(results) != self.steps():
            raise Failure(f"the program was not killed and gave {len(results)} results of {self.steps()}")
        aborted = {step for step, result in enumerate(results) if result["status"] == "aborted"}
        if outcome.status != (3 if aborted else 0):
            raise Failure(f"exit status {outcome.status} with {len(aborted)} aborted commands")
        unknown = {step for step in aborted if results[step].get("saved") == "unknown"}
        every = range(self.steps())
        return [tuple(step for step in every if step not in gone) for gone in (aborted, aborted - unknown)]

    def results_of(self, outcome) -> list[str]:
        for name in self.scenario.outputs:
            return (self.folder / name).read_text().splitlines()
        return outcome.answers

    def kill(self, kill: Kill):
        self.folder = copy(self.ready, self.place / "killed")
        return self.program.run_killed(self.folder, self.scenario.arguments, kill)

    def check(self, outcome) -> str:
        """Which state the kill left; raises Failure where that must not be."""
        aside = copy(self.folder, self.place / "aside")
        allowed = self.allowed(outcome)
        self.found = found = dump(aside / DATASET)
        same = [steps for steps in allowed if self.state(steps, False) == found]
        if not same:
            raise Failure(self.describe_loss(found, allowed, outcome))
        self.check_outputs(outcome)
        self.check_next(same[-1], found)
        self.check_second_dataset()
        self.check_copies(outcome)
        self.check_folder()
        return self.name_of(same[-1])

    def describe_loss(self, found, allowed, outcome) -> str:
        steps = range(self.steps() + 1)
        known = [done for done in steps if self.state(tuple(range(done)), False) == found]
        where = f"the state after {known[0]} of the commands" if known else "a state that is none of the run's"
        return f"{where} where {allowed} of them may be done; answered: {outcome.answers} {outcome.errors}"

    def name_of(self, steps: tuple[int, ...]) -> str:
        return "before" if not steps else "after" if len(steps) == self.steps() else "between"

    def check_outputs(self, outcome) -> None:
        for name in self.scenario.outputs:
            text = (self.folder / name).read_text()
            if text == FILES[name] and outcome.status != 0:
                continue
            results = [json.loads(line) for line in text.splitlines()]
            if not text.endswith("\n") or len(results) != self.steps():
                raise Failure(f"{name} is neither as before nor complete: {text!r}")
            if outcome.status == 0 and text != (self.whole / name).read_text():
                raise Failure(f"{name} differs from that of a run without a kill")

    def check_second_dataset(self) -> None:
        if dump(self.folder / OTHER) != self.second:
            raise Failure(f"{OTHER} is not as it was before")

    def check_copies(self, outcome) -> None:
        for name in self.copies():
            if dump(self.folder / name) != self.state((), False):
                raise Failure(f"{name} is not the dataset as it was before")
        if outcome.status == 0 and self.scenario.set_aside and not self.copies():
            raise Failure("the copy of the dataset as it was before is lost")

    def copies(self) -> list[str]:
        return [path.name for path in self.folder.glob(self.scenario.set_aside)] if self.scenario.set_aside else []

    def check_next(self, steps: tuple[int, ...], found) -> None:
        """What comes next works on what is there: the run itself where there is no dataset, else another command."""
        if found is None:
            self.program.must(self.folder, self.scenario.arguments)
            steps = tuple(range(self.steps()))
        self.program.must(self.folder, NEXT)
        if dump(self.folder / DATASET) != self.state(steps, True):
            raise Failure("the next command left something else than it leaves without a kill")
        self.program.must(self.folder, ["check", DATASET])

    def check_folder(self) -> None:
        """Nothing is left but hidden temporary files, whose names no run uses again."""
        expected = {path.name for path in self.whole.iterdir()} | {DATASET}
        strays = {path.name for path in self.folder.iterdir()} - expected - set(self.copies())
        left = [name for name in strays if not fnmatch(name, ".mrset-*.tmp*")]
        if left:
            raise Failure(f"the run left {sorted(left)}")


def apply_sql(dataset: Path, sql: str) -> None:
    connection = sqlite3.connect(dataset)
    connection.executescript(sql)
    connection.close()


def trial_of(options, scenario: Scenario, place: Path) -> Trial:
    return Trial(Program(options.program, options.shim), scenario, place, options.leftovers)


class PointsOfNoReturn:
    """The operations before which an effect does not stand and after which it does."""

    def __init__(self, operations: list[str], folder: str):
        numbered = list(enumerate(operations, 1))
        self.commits = [number for number, what in numbered if COMMIT.fullmatch(what)]
        self.folder_syncs = [number for number, what in numbered if what == f"sync {folder}"]

    def passed(self, kill: Kill) -> int:
        return sum(self.is_done(number, kill) for number in self.commits)

    def passed_for_good(self, kill: Kill) -> int:
        """Those that a loss of power cannot undo, since the folder was synced after them."""
        last = max((number for number in self.folder_syncs if self.is_done(number, kill)), default=0)
        return sum(number < last for number in self.commits)

    @staticmethod
    def is_done(number: int, kill: Kill) -> bool:
        return number < kill.at or (number == kill.at and kill.moment == "after")


class Sweep:
    """All kills of one scenario in one way."""

    def __init__(self, options, scenario: Scenario, kind: str):
        self.options = options
        self.scenario = scenario
        self.kind = kind
        self.found = Counter()
        self.failures = 0
        self.operations = 0

    def run(self, trial: Trial) -> None:
        at = self.options.first
        while self.sweep_operation(trial, at):
            at += self.options.every
            if at > MOST_OPERATIONS:
                raise Failure(f"{self.scenario.name}: the sweep does not end")
        self.operations = at - 1
        if self.operations + self.options.every - 1 < self.scenario.least:
            raise Failure(f"{self.scenario.name}: only {self.operations} operations, at least {self.scenario.least}")
        # The commands that come after the one whose process was killed are run all the same.
        others = ("before", "between") if self.kind == "process" else ("before",)
        if self.options.every < 4 and not (any(self.found[name] for name in others) and self.found["after"]):
            raise Failure(f"{self.scenario.name}: no kill left the state before, or none the state after")

    def sweep_operation(self, trial: Trial, at: int) -> bool:
        first = self.kill(trial, Kill(at, "before", self.kind, 0))
        if not first.killed:
            return False
        for moment, seed in self.more_kills(first.met.split()[0]):
            self.kill(trial, Kill(at, moment, self.kind, seed))
        return True

    def more_kills(self, operation: str) -> list[tuple[str, int]]:
        """Besides the one before the operation. Where power is lost, what is lost after one operation is, but for a
        sync, lost before the next one; the order of things is settled by syncs, so there they are tried most."""
        moments = ("before", "middle", "after") if operation == "write" else ("before", "after")
        if self.kind != "power":
            return [(moment, 0) for moment in moments[1:]]
        if self.options.long:
            return [(moment, seed) for moment in moments for seed in range(20)][1:]
        if operation == "write":
            return []
        return [("before", seed) for seed in range(1, 5)] + [("after", seed) for seed in range(2) if operation == "sync"]

    def kill(self, trial: Trial, kill: Kill):
        outcome = trial.kill(kill)
        try:
            name = trial.check(outcome)
            self.check_progress(trial, kill, outcome)
            self.found[name] += outcome.killed
        except (Failure, OSError, ValueError) as failure:
            self.failures += 1
            print(f"FAILED {self.scenario.name}, {outcome.met or 'no kill'}: {failure}\n  {self.repeat(kill)}")
        return outcome

    def check_progress(self, trial: Trial, kill: Kill, outcome) -> None:
        """What stands is just what had come to stand when all of the program was killed."""
        if not outcome.killed or kill.kind == "process":
            return
        points = trial.points_of_no_return
        most = points.passed(kill)
        least = points.passed_for_good(kill) if kill.kind == "power" else most
        if not least <= trial.progress() <= most:
            raise Failure(f"{trial.progress()} effects stand; by then at least {least} and at most {most} did")

    def repeat(self, kill: Kill) -> str:
        return (
            f"python3 tests/crash/crash_test.py --program {self.options.program} --shim {self.options.shim}"
            f" --kill {self.kind} --scenario '{self.scenario.name}' --at {kill.at} --moment {kill.moment}"
            f" --seed {kill.seed}{' --leftovers' if self.options.leftovers else ''}"
        )

    def summary(self) -> str:
        kills = sum(self.found.values()) + self.failures
        return (
            f"{self.scenario.name:20} {self.kind:8} {self.operations:5} operations {kills:5} kills:"
            f" {self.found['before']:5} before {self.found['between']:5} between {self.found['after']:5} after"
            f" {self.failures:3} failures"
        )


class SweepAfterEnd(Sweep):
    """The program ends by itself, with success; then power is lost."""

    def run(self, trial: Trial) -> None:
        for seed in range(0, 100 if self.options.long else SEEDS_AT_END, self.options.every):
            self.lose_power(trial, Kill(0, END, "power", seed))

    def lose_power(self, trial: Trial, kill: Kill) -> None:
        outcome = trial.kill(kill)
        self.operations = outcome.operations
        try:
            if outcome.status != 0 or outcome.operations < self.scenario.least:
                raise Failure(f"exit status {outcome.status} after {outcome.operations} operations: {outcome.errors}")
            self.found[trial.check(outcome)] += 1
        except (Failure, OSError, ValueError) as failure:
            self.failures += 1
            print(f"FAILED {self.scenario.name}, power lost after success: {failure}\n  {self.repeat(kill)}")


def repeat_one(options) -> int:
    scenario = next(scenario for scenario in SCENARIOS if scenario.name == options.scenario)
    place = Path("crash-repeated").resolve()
    shutil.rmtree(place, ignore_errors=True)
    trial = trial_of(options, scenario, place)
    kind = options.kill[0]
    outcome = trial.kill(
        Kill(0, END, "power", options.seed) if kind == END else Kill(options.at, options.moment, kind, options.seed)
    )
    print(outcome)
    copy(trial.folder, place / "left")
    print(f"What was left lies in {place / 'left'}.")
    print(f"Found the state {trial.check(outcome)}.")
    return 0


def run_scenario(options, scenario: Scenario) -> list[Sweep]:
    """A sweep for each way to kill, all on what was prepared once."""
    sweeps = [(SweepAfterEnd if kind == END else Sweep)(options, scenario, kind) for kind in options.kill]
    with scratch_folder() as place:
        trial = trial_of(options, scenario, Path(place).resolve())
        for sweep in sweeps:
            try:
                sweep.run(trial)
            except Failure as failure:
                sweep.failures += 1
                print(f"FAILED {failure}")
            print(sweep.summary(), flush=True)
    return sweeps


def run_suite(options) -> int:
    started = time.monotonic()
    sweeps = []
    for scenario in SCENARIOS:
        if options.scenario in (None, scenario.name):
            sweeps += run_scenario(options, scenario)
    kills = sum(sum(sweep.found.values()) + sweep.failures for sweep in sweeps)
    failures = sum(sweep.failures for sweep in sweeps)
    print(f"{kills} kills, {failures} failures, {time.monotonic() - started:.0f} s")
    return 1 if failures or not sweeps else 0


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True)
    parser.add_argument("--shim", required=True)
    parser.add_argument("--kill", choices=("group", "process", "power", END), nargs="+", default=["group"])
    parser.add_argument("--scenario", choices=[scenario.name for scenario in SCENARIOS])
    parser.add_argument("--at", type=int)
    parser.add_argument("--moment", choices=("before", "middle", "after", END), default="before")
    parser.add_argument("--seed", type=int, default=0)
    parser.add_argument("--leftovers", action="store_true", help="beside temporary files of programs that ended")
    parser.add_argument("--every", type=int, default=1, metavar="K", help="only at each Kth operation")
    parser.add_argument("--from", type=int, default=1, dest="first", metavar="N", help="the first of these operations")
    parser.add_argument("--long", action="store_true", help="all moments and 20 seeds where power is lost")
    options = parser.parse_args()
    return repeat_one(options) if options.at is not None else run_suite(options)


if __name__ == "__main__":
    sys.exit(main())
