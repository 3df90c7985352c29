"""Whole processes, measured side by side."""

import dataclasses
import pathlib
import statistics
import subprocess


class Failure(Exception):
    """A measurement that could not be made, as one sentence."""


class Skipped(Exception):
    """A measurement that this machine cannot make, as one sentence."""


@dataclasses.dataclass
class Cost:
    """What one process cost: seconds by the clock and of the processor, and its peak memory in KiB."""

    wall: float
    user: float
    system: float
    peak: int


@dataclasses.dataclass
class Candidate:
    """One of the things that are compared. `prepare` is called before each run and is not measured."""

    command: list
    prepare: object = None
    stdin: pathlib.Path = None
    stdout: pathlib.Path = None


class Scales:
    """Runs programs through `run_and_weigh`; files of the measurements go into `folder`."""

    def __init__(self, weigher, folder):
        self._weigher = str(weigher)
        self._folder = pathlib.Path(folder)

    def run_once(self, candidate):
        if candidate.prepare:
            candidate.prepare()
        report = self._folder / "cost"
        with open(candidate.stdin or "/dev/null", "rb") as stdin, open(candidate.stdout or "/dev/null", "wb") as stdout:
            done = subprocess.run([self._weigher, str(report), *map(str, candidate.command)],
                                  stdin=stdin, stdout=stdout, stderr=subprocess.PIPE, text=True)
        if done.returncode != 0:
            raise Failure(f"{' '.join(map(str, candidate.command))[:200]} failed with status {done.returncode}: "
                          f"{done.stderr.strip()}")
        wall, user, system, peak = report.read_text().split()
        return Cost(float(wall), float(user), float(system), int(peak))

    def compare(self, candidates, repetitions):
        """The median costs of each candidate. They take turns, so that what else the machine does meets all alike; the
        first turn warms up and does not count."""
        costs = [[] for _ in candidates]
        for turn in range(repetitions + 1):
            for index, candidate in enumerate(candidates):
                cost = self.run_once(candidate)
                if turn > 0 or repetitions == 1:
                    costs[index].append(cost)
        return [Cost(*(statistics.median(getattr(cost, field.name) for cost in all_costs)
                       for field in dataclasses.fields(Cost))) for all_costs in costs]
