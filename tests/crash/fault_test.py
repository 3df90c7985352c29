#!/usr/bin/env python3
"""Lets each call to the system fail that the program makes, and looks at what it says and leaves.

  fault_test.py --program MRSET --shim LIBRARY [--every K] [--memory BYTES] [--only KIND] [--since KIND] [--long]
  fault_test.py --program MRSET --shim LIBRARY --scenario NAME --process P --at N --error EIO [--stays]

With --since, what saves sets: faults of the process that first makes a call of that kind, from there on.

The second form repeats one fault, shows it, and keeps the folder it left. docs/durability.md says what is held.
"""

import argparse
import os
import re
import shutil
import sys
import time
from collections import Counter
from concurrent.futures import ProcessPoolExecutor
from dataclasses import dataclass, field
from fnmatch import fnmatch
from pathlib import Path

from crash_test import Trial
from faults import HALF, Call, Fault, FaultyProgram, FaultyRun
from program import Failure, Program, copy, dump, scratch_folder
from scenarios import DATASET, FILES, LEAST_FAULTS, READERS, SCENARIOS, SHELL, WITHOUT_FLAGS, Scenario

TEMPORARY = ".mrset-*.tmp*"
LEAST_SINCE = 740  # faults of all scenarios that save: allocations after the first commit
UNUSABLE = 2  # exit status: a failure, told in a sentence

# What a scenario's calls must be of, by what it does.
READS = {"open", "read", "lock", "status", "close"}
SAVES = {"write", "sync", "delete", "mode"}
RUNS = {"memfd", "socketpair", "fork", "dup", "truncate"}
REPLACES = {"list", "rename"}

RESULT = re.compile(r"\{.*\}")
RESULT_IN_SHELL = re.compile(r"\d+> .*")
DONE = re.compile(r"\bsaved\b|\bis done\b|\bdone;|nevertheless|could not be synchroni[sz]ed")
FOLDER = re.compile(r"done; the folder could not be synchronised")
NOT_DONE = re.compile(r"\b(not|nothing|nor|none|never)( \w+){0,2} saved\b|\bcannot be saved\b")
NOT_KNOWN = re.compile(r'not known|"saved": ?"unknown"')
SENTENCE = re.compile(r"mrset: \S.*[.?!]")
ADVICE = re.compile(r"Did you mean .*\?|To (make|create) .*:|  mrset .*")
SUMMARY = re.compile(rf"{re.escape(DATASET)}: \d+ variables?, \d+ cases?")
RAW = re.compile(
    r"std::|basic_|iostream|ios_base|filesystem error|terminate called|what\(\)|sqlite|SQLITE|memfd|pipe2?:|socketpair"
    r"|fork:|fdopen|dup2|Fatal"
)
# A sound file must not be given up for a fault of the disk.
FALSE_VERDICT = re.compile(r"is damaged|is not a dataset|is no dataset|does not exist")


@dataclass
class Tally:
    """What came of faults."""

    injected: Counter = field(default_factory=Counter)  # by kind and error
    of_scenario: Counter = field(default_factory=Counter)
    possible: dict[str, int] = field(default_factory=dict)  # faults of each scenario, those left out included
    kinds: dict[str, set[str]] = field(default_factory=dict)
    found: Counter = field(default_factory=Counter)
    unmet: int = 0
    failures: list[str] = field(default_factory=list)

    def add(self, other: "Tally") -> None:
        self.injected += other.injected
        self.of_scenario += other.of_scenario
        self.found += other.found
        self.unmet += other.unmet
        self.failures += other.failures
        self.possible.update(other.possible)
        for name, kinds in other.kinds.items():
            self.kinds.setdefault(name, set()).update(kinds)


class FaultTrial(Trial):
    """One scenario: a run with each fault, and the check of it."""

    def __init__(self, options, scenario: Scenario, place: Path, thorough: bool):
        super().__init__(Program(options.program, options.shim), scenario, place)
        self.faulty = FaultyProgram(options.program, options.shim, options.memory, scenario.without_flags)
        self.since = options.since
        self.thorough = thorough
        self.sound = set()
        plain = copy(self.ready, place / "plain")
        self.success = self.faulty.start(plain, scenario.arguments, {})
        if self.success.status != 0:
            raise Failure(f"{scenario.name}: without a fault, exit status {self.success.status}: {self.success}")

    def calls(self) -> list[Call]:
        return self.faulty.calls(copy(self.ready, self.place / "traced"), self.scenario.arguments, self.since)

    def inject(self, fault: Fault) -> FaultyRun:
        self.folder = copy(self.ready, self.place / "faulty")
        return self.faulty.run(self.folder, self.scenario.arguments, fault)

    def check_run(self, fault: Fault, run: FaultyRun) -> str:
        """The state that the fault left; raises Failure where that, or what was said of it, must not be."""
        self.check_status(fault, run)
        check_words(run)
        leftovers = self.left_behind()
        found = self.state((), False) if same_files(self.ready, self.folder) else dump(self.folder / DATASET)
        allowed = self.allowed_after(run)
        same = [steps for steps in allowed if self.state(steps, False) == found]
        if not same:
            raise Failure(self.describe_wrong_state(found, allowed, run))
        self.check_output_files(run)
        self.check_second_dataset()
        if not fault.stays and not run.met.startswith("delete ") and leftovers:
            raise Failure(f"a single fault left {leftovers}: {run.errors!r}")
        self.check_what_comes_next(same[-1], found)
        return self.name_of(same[-1])

    def check_status(self, fault: Fault, run: FaultyRun) -> None:
        if run.timed_out:
            raise Failure(f"the run did not end: {run.errors!r}")
        if run.status not in (self.success.status, UNUSABLE):
            raise Failure(f"exit status {run.status}: {run.output!r} {run.errors!r}")
        if run.status != self.success.status and not re.search(r"^mrset: ", run.errors, re.M):
            raise Failure(f"exit status {run.status} without a sentence: {run.errors!r}")
        if run.status != self.success.status and (fault.error in HALF or run.met.startswith("rename-with-flags ") and
                                                  fault.error == "EINVAL"):
            raise Failure(f"{fault.error} is no failure, and another try would have helped: {run.errors!r}")
        if run.status != self.success.status and self.scenario.order_alone and keeps_from_saving(fault, run):
            raise Failure(f"a display failed whose order alone could not be saved: {run.errors!r}")
        if run.status == self.success.status and run.output != self.success.output:
            raise Failure(f"exit status {run.status} with another output: {run.output!r} {run.errors!r}")

    def allowed_after(self, run: FaultyRun) -> list[tuple[int, ...]]:
        """The steps that may have been done, by the exit status and by what was said."""
        steps = self.steps()
        if self.scenario.order_alone:
            return [tuple(range(done)) for done in range(steps + 1)]
        if run.status == self.success.status:
            return [tuple(range(steps))]
        answered = self.answered(run)
        said = run.output + run.errors
        if NOT_KNOWN.search(said):
            return [tuple(range(done)) for done in range(answered, steps + 1)]
        if DONE.search(FOLDER.sub("", NOT_DONE.sub("", run.errors))):
            return [tuple(range(done)) for done in range(min(answered + 1, steps), steps + 1)]
        if notices := len(FOLDER.findall(run.errors)):  # one for each step from then on, which may be answered
            return [tuple(range(done)) for done in range(max(answered, min(notices, steps)), steps + 1)]
        return [tuple(range(answered))]

    def answered(self, run: FaultyRun) -> int:
        if not self.scenario.script or self.scenario.outputs:
            return 0
        whole_lines = run.output.split("\n")[:-1]
        is_result = RESULT_IN_SHELL if self.scenario == SHELL else RESULT
        return sum(bool(is_result.fullmatch(line)) for line in whole_lines)

    def describe_wrong_state(self, found, allowed, run: FaultyRun) -> str:
        known = [done for done in range(self.steps() + 1) if self.state(tuple(range(done)), False) == found]
        where = f"{known[0]} of {self.steps()} steps are done" if known else "the state is none of the run's"
        told = " or ".join(str(len(steps)) for steps in allowed)
        return f"{where} where exit status {run.status} and the words tell of {told}: {run.errors!r} {run.output!r}"

    def check_output_files(self, run: FaultyRun) -> None:
        for name in self.scenario.outputs:
            text = (self.folder / name).read_text()
            whole = (self.whole / name).read_text()
            if text not in (FILES[name], whole):
                raise Failure(f"{name} is neither as before nor complete: {text!r}")
            if run.status == self.success.status and text != whole:
                raise Failure(f"exit status {run.status}, and {name} was not written")
            if run.status != self.success.status and text == whole and not DONE.search(run.errors):
                raise Failure(f"{name} is there, which was told as a failure: {run.errors!r}")

    def left_behind(self) -> list[str]:
        expected = {path.name for path in self.whole.iterdir()} | {path.name for path in self.ready.iterdir()}
        left = sorted({path.name for path in self.folder.iterdir()} - expected)
        journal = DATASET + "-journal"
        strangers = [name for name in left if not fnmatch(name, TEMPORARY) and name != journal]
        if strangers:
            raise Failure(f"the run left {strangers}")
        return left

    def check_what_comes_next(self, steps: tuple[int, ...], found) -> None:
        """What comes next works. Where the same was left before, it did."""
        left = (steps, found is None, frozenset(path.name for path in self.folder.iterdir()))
        if self.thorough or left not in self.sound:
            self.check_next(steps, found)
            self.sound.add(left)


def keeps_from_saving(fault: Fault, run: FaultyRun) -> bool:
    """Whether nothing that reads can have failed."""
    kind, target = run.met.split(" ", 1)
    is_own = target.startswith(("memfd", "socket"))
    return kind in ("write", "sync", "delete", "truncate", "mode") and not is_own and (
        not fault.stays or fault.error == "ENOSPC"
    )


def check_words(run: FaultyRun) -> None:
    if raw := RAW.search(run.errors) or re.search("fatal", run.output, re.I):
        raise Failure(f"the program says {raw.group()!r}: {run.errors!r} {run.output!r}")
    if verdict := FALSE_VERDICT.search(run.errors):
        raise Failure(f"a fault is told as {verdict.group()!r}: {run.errors!r}")
    for line in run.errors.splitlines():
        if not any(pattern.fullmatch(line) for pattern in (SENTENCE, ADVICE, SUMMARY)):
            raise Failure(f"not a sentence of the program: {line!r}")


def same_files(one: Path, other: Path) -> bool:
    names = sorted(path.name for path in one.iterdir())
    return names == sorted(path.name for path in other.iterdir()) and all(
        (one / name).read_bytes() == (other / name).read_bytes() for name in names
    )


def faults_at(call: Call, once: bool) -> list[Fault]:
    """Each error once and, unless it is an interruption or `once`, from then on."""
    return [
        Fault(call.process, call.at, error, stays)
        for error in call.errors
        for stays in ((False,) if once or error == "EINTR" else (False, True))
    ]


def some_of(faults: list[tuple[Call, Fault]], every: int) -> list[Fault]:
    """Each Kth of those of one kind, by one error; so that of a kind that is rare, one is always taken."""
    seen = Counter()
    chosen = []
    for call, fault in faults:
        kind = (call.kind, fault.process, fault.error, fault.stays)
        if seen[kind] % every == 0:
            chosen.append(fault)
        seen[kind] += 1
    return chosen


def kinds_needed(scenario: Scenario) -> set[str]:
    verb = scenario.arguments[0]
    needed = READS | (RUNS if verb in ("run", "shell") else set())
    if scenario in READERS:
        return needed
    if verb == "import" and not scenario.prepare:
        put_in_place = {"link", "delete"} if scenario.without_flags else {"rename-with-flags"}
        return needed | {"write", "sync", "list"} | put_in_place
    return needed | SAVES | (REPLACES if scenario.outputs else set())


def all_scenarios() -> list[Scenario]:
    return [*SCENARIOS, SHELL, WITHOUT_FLAGS, *READERS]


def scenario_named(name: str) -> Scenario:
    return next(scenario for scenario in all_scenarios() if scenario.name == name)


def repeat(options, scenario: str, fault: Fault) -> str:
    memory = f" --memory {options.memory}" if options.memory else ""
    since = f" --since {options.since}" if options.since else ""
    return (
        f"python3 tests/crash/fault_test.py --program {options.program} --shim {options.shim}{memory}{since}"
        f" --scenario '{scenario}' --process {fault.process} --at {fault.at} --error {fault.error}"
        + (" --stays" if fault.stays else "")
    )


def run_scenario(options, name: str) -> Tally:
    tally = Tally()
    with scratch_folder() as place:
        trial = trial_of(options, name, Path(place).resolve())
        calls = [call for call in trial.calls() if options.only in (None, call.kind)]
        once = options.since is not None  # memory that stays away is gone for the process that tells, too
        faults = [(call, fault) for call in calls for fault in faults_at(call, once)]
        tally.possible[name] = len(faults)
        for fault in some_of(faults, options.every):
            take(options, trial, fault, tally)
    return tally


def trial_of(options, name: str, place: Path) -> FaultTrial:
    return FaultTrial(options, scenario_named(name), place, options.long)


def take(options, trial: FaultTrial, fault: Fault, tally: Tally) -> None:
    run = trial.inject(fault)
    if not run.met:
        tally.unmet += 1
        print(f"not met: {repeat(options, trial.scenario.name, fault)}", flush=True)
        return
    tally.injected[f"{run.met.split()[0]} {fault.error}{' from then on' if fault.stays else ''}"] += 1
    tally.of_scenario[trial.scenario.name] += 1
    tally.kinds.setdefault(trial.scenario.name, set()).add(run.met.split()[0])
    try:
        tally.found[trial.check_run(fault, run)] += 1
    except (Failure, OSError, ValueError) as failure:
        name = trial.scenario.name
        how = f"{fault.error}{' from then on' if fault.stays else ''}"
        tally.failures.append(f"FAILED {name}, {run.met}, {how}: {failure}\n  {repeat(options, name, fault)}")


def missing(options, tally: Tally) -> list[str]:
    """By how much the suite has shrunk."""
    found = []
    for name, possible in tally.possible.items():
        scenario = scenario_named(name)
        needed = {options.only} if options.only else kinds_needed(scenario)
        if lost := needed - tally.kinds.get(name, set()):
            found.append(f"FAILED {name}: no call of the kind {sorted(lost)} was met")
        least = 0 if options.only or options.since else LEAST_FAULTS[name]
        if possible < least or tally.of_scenario[name] * options.every * 2 < possible:
            of_all = f"{tally.of_scenario[name]} faults of {possible}"
            found.append(f"FAILED {name}: only {of_all}; there are at least {least}")
    faults = sum(tally.injected.values())
    possible = sum(tally.possible.values())
    if options.since and not options.scenario and possible < LEAST_SINCE:
        found.append(f"FAILED only {possible} faults since the first {options.since}; there are at least {LEAST_SINCE}")
    if tally.unmet * 50 > faults:
        found.append(f"FAILED {tally.unmet} of {faults} faults were not met")
    return found


def names_of(options) -> list[str]:
    if options.scenario:
        return [options.scenario]
    return [scenario.name for scenario in all_scenarios() if not options.since or saves_sets(scenario)]


def saves_sets(scenario: Scenario) -> bool:
    return scenario in (*SCENARIOS, SHELL) and scenario.arguments[0] in ("run", "copy", "undo", "shell")


def run_suite(options) -> int:
    started = time.monotonic()
    names = names_of(options)
    tally = Tally()
    with ProcessPoolExecutor(os.cpu_count()) as pool:
        longest_first = sorted(names, key=LEAST_FAULTS.get, reverse=True)
        for of_scenario in pool.map(run_scenario, [options] * len(names), longest_first):
            tally.add(of_scenario)
            for failure in of_scenario.failures:
                print(failure, flush=True)
    tally.failures += (lost := missing(options, tally))
    print(*lost, sep="\n")
    for name in names:
        print(f"{name:20} {tally.of_scenario[name]:6} faults of {tally.possible.get(name, 0)}")
    for kind, count in sorted(tally.injected.items()):
        print(f"{kind:32} {count:6}")
    print(
        f"{sum(tally.injected.values())} faults, {tally.unmet} not met; {tally.found['before']} left the state before,"
        f" {tally.found['between']} one between, {tally.found['after']} the state after; {len(tally.failures)}"
        f" failures, {time.monotonic() - started:.0f} s"
    )
    return 1 if tally.failures else 0


def repeat_one(options) -> int:
    place = Path("fault-repeated").resolve()
    shutil.rmtree(place, ignore_errors=True)
    trial = trial_of(options, options.scenario, place)
    fault = Fault(options.process, options.at, options.error, options.stays)
    run = trial.inject(fault)
    print(run)
    copy(trial.folder, place / "left")
    print(f"What was left lies in {place / 'left'}.")
    try:
        print(f"Found the state {trial.check_run(fault, run)}.")
    except Failure as failure:
        print(f"FAILED {failure}")
        return 1
    return 0


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True)
    parser.add_argument("--shim", required=True)
    parser.add_argument("--scenario", choices=[scenario.name for scenario in all_scenarios()])
    parser.add_argument("--process", type=int, default=0)
    parser.add_argument("--at", type=int)
    parser.add_argument("--error", default="EIO")
    parser.add_argument("--stays", action="store_true", help="fails from then on")
    parser.add_argument("--memory", type=int, default=0, metavar="BYTES", help="let allocations of this size fail, too")
    parser.add_argument("--only", metavar="KIND", help="only faults of calls of this kind")
    parser.add_argument("--since", metavar="KIND", help="only faults from the first call of this kind on")
    parser.add_argument("--every", type=int, default=1, metavar="K", help="only each Kth fault")
    parser.add_argument("--long", action="store_true", help="the next command after each fault")
    options = parser.parse_args()
    return repeat_one(options) if options.at else run_suite(options)


if __name__ == "__main__":
    sys.exit(main())
