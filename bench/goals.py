"""The goals: what is measured against what, and how much it may cost at most."""

import dataclasses
import json
import shutil
import subprocess

import surveys
from processes import Candidate, Failure


@dataclasses.dataclass
class Row:
    """One ratio: `value` is what `subject` costs where `reference` costs 1. Without a limit it is only reported."""

    goal: int
    what: str
    subject: str
    reference: str
    value: float
    limit: float
    line: str

    def met(self):
        return None if self.limit is None else self.value <= self.limit


@dataclasses.dataclass(frozen=True)
class Sizes:
    """How much is measured."""

    sets: tuple  # in one command, on the scripted host
    group: tuple  # variables of one set, smallest, middle and largest
    few_variables: int
    many_variables: int
    definitions: int
    rows: int
    columns: int
    displayed: int
    counted: int  # cases of the surveys whose sets are counted; ten times as many in one of them
    counted_wide: int  # variables of the widest of them
    small: int  # cases of the smallest
    repetitions: int
    module_repetitions: int
    module_seconds: float  # at least, for each entry and repetition


FULL = Sizes((10, 100, 1000, 3000), (100, 1000, 10000, 100000), 1000, 1000000, 1000, 1000000, 50, 1000,
             1000000, 2000, 240, 7, 15, 0.05)
QUICK = dataclasses.replace(FULL, many_variables=100000, rows=100000, counted=100000, repetitions=3, module_repetitions=5)
SMALLEST = Sizes((10,), (100, 1000), 20, 200, 5, 200, 10, 5, 300, 60, 24, 1, 1, 0.0001)


def seconds(value):
    return f"{value * 1000:.1f} ms" if value < 1 else f"{value:.2f} s"


def megabytes(kibibytes):
    return f"{kibibytes * 1024 / 1e6:.1f} MB"


class Bench:
    """What the goals share: the programs, the folder for files, the sizes."""

    def __init__(self, programs, scales, folder, sizes):
        self.programs = programs
        self.mrset = programs / "mrset"
        self.scales = scales
        self.folder = folder
        self.sizes = sizes

    def path(self, name):
        return self.folder / name

    def compare(self, *candidates):
        return self.scales.compare(candidates, self.sizes.repetitions)

    def run(self, *arguments):
        self.scales.run_once(Candidate(arguments))

    def copy_before(self, source, target):
        """For Candidate.prepare: puts a fresh copy in place."""
        def copy():
            for leftover in self.folder.glob(target + "*"):
                leftover.unlink()
            shutil.copy(self.path(source), self.path(target))
        return copy

    def remove_before(self, target):
        def remove():
            for leftover in self.folder.glob(target + "*"):
                leftover.unlink()
        return remove

    def medians(self, program, names):
        """The medians of benchmarks of a program, by name. They run in random turns."""
        pattern = "^(" + "|".join(names) + ")/manual_time$"
        out = self.path("benchmarks.json")
        done = subprocess.run([self.programs / program, f"--benchmark_filter={pattern}", "--benchmark_out_format=json",
                               f"--benchmark_out={out}", f"--benchmark_repetitions={self.sizes.module_repetitions}",
                               f"--benchmark_min_time={self.sizes.module_seconds}",
                               "--benchmark_enable_random_interleaving=true"],
                              stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        if done.returncode != 0:
            raise Failure(f"{program} failed: {done.stderr.strip()}")
        runs = json.loads(out.read_text())["benchmarks"]
        wanted = "median" if self.sizes.module_repetitions > 1 else None
        found = {run["run_name"].removesuffix("/manual_time"): run for run in runs
                 if run.get("aggregate_name") == wanted}
        if set(found) != set(names):
            raise Failure(f"{program} measured {sorted(found)} instead of {sorted(names)}")
        return found

    def microseconds(self, names):
        """Of benchmarks of the module, with the host's calls."""
        return {name: (run["real_time"], int(run["calls"])) for name, run in self.medians("bench_module", names).items()}

    def milliseconds(self, program, names):
        return {name: run["real_time"] for name, run in self.medians(program, names).items()}

    def compare_import(self, goal, survey, what, limit):
        """The import of a survey against that of sqlite3, time and memory."""
        ours, theirs = self.compare(
            Candidate([self.mrset, "import", survey, self.path("import.mrset")], self.remove_before("import.mrset")),
            Candidate(["sqlite3", "-batch", self.path("import.db"), f".import --csv {survey} survey"],
                      self.remove_before("import.db")))
        line = (f"{seconds(ours.wall)} and {seconds(theirs.wall)}; of the processor "
                f"{seconds(ours.user + ours.system)} and {seconds(theirs.user + theirs.system)}; "
                f"{megabytes(survey.stat().st_size / 1024)} of CSV")
        return [Row(goal, what + ": time", "mrset import", "sqlite3 .import", ours.wall / theirs.wall, limit, line),
                Row(goal, what + ": memory", "peak", "1 MB", ours.peak * 1024 / 1e6, 100,
                    f"peak {megabytes(ours.peak)}, of sqlite3 {megabytes(theirs.peak)}")]


def against_floor(bench, goal, name, size, what):
    found = bench.microseconds([f"{name}/module/{size}", f"{name}/floor/{size}"])
    module, calls = found[f"{name}/module/{size}"]
    floor = found[f"{name}/floor/{size}"][0]
    own = module - floor
    return Row(goal, what, "module", "floor", module / floor, 1.3,
               f"{calls} host calls; module {module:.1f} us, floor {floor:.1f} us: {own:.1f} us are the module's own, "
               f"{100 * floor / module:.0f}% the host's")


def typical_command(bench):
    return [against_floor(bench, 1, "typical", 12, "12 labelled variables, define and display")]


def one_group(bench):
    rows = []
    smallest, *_, largest = bench.sizes.group
    base = 1000 if 1000 in bench.sizes.group and largest != 1000 else smallest
    for name, what, limit in (("variables", "one set over variables", 1.2),
                              ("labelled", "the same, each variable labelled", None)):
        names = [f"{name}/{who}/{size}" for who in ("module", "floor") for size in bench.sizes.group]
        found = bench.microseconds(names)
        each = {size: found[f"{name}/module/{size}"][0] / size for size in bench.sizes.group}
        calls = {size: found[f"{name}/module/{size}"][1] / size for size in (base, largest)}
        floor = found[f"{name}/floor/{largest}"][0] / found[f"{name}/floor/{base}"][0] * base / largest
        times = ", ".join(f"{1000 * each[size]:.0f} ns at {size}" for size in bench.sizes.group)
        rows.append(Row(2, what, f"each of {largest}", f"each of {base}", each[largest] / each[base], limit,
                        f"{times}; the floor's ratio is {floor:.2f}; host calls a variable "
                        f"{calls[base]:.1f} and {calls[largest]:.1f}"))
    return rows


def many_sets(bench):
    return [against_floor(bench, 3, "sets", size, f"one command that defines {size} sets")
            for size in bench.sizes.sets]


def wide_dataset(bench, variables):
    name = f"wide-{variables}"
    surveys.write_wide_survey(bench.path(name + ".csv"), variables)
    bench.remove_before(name + ".mrset")()
    bench.run(bench.mrset, "import", bench.path(name + ".csv"), bench.path(name + ".mrset"))
    bench.path(name + ".csv").unlink()
    return bench.path(name + ".mrset")


def cold_process(bench):
    few, many = bench.sizes.few_variables, bench.sizes.many_variables
    datasets = [wide_dataset(bench, few), wide_dataset(bench, many)]
    turn = iter(range(10 ** 9))

    def scattered(variables, label):
        names = " ".join(f"q{1 + index * (variables - 1) // 11}" for index in range(12))
        return f"MRSET /MDGROUP NAME=$s LABEL='{label}' VARIABLES={names} VALUE=1 /DISPLAY NAME=[$s]"

    rows = []
    for what, label in (("a command that saves", lambda: str(next(turn))), ("one that changes nothing", lambda: "s")):
        candidates = []
        for dataset, variables in zip(datasets, (few, many)):
            candidate = Candidate([bench.mrset, "run", dataset, "-c", ""])

            def prepare(candidate=candidate, variables=variables):
                candidate.command[-1] = scattered(variables, label())
            candidate.prepare = prepare
            candidates.append(candidate)
        small, large = bench.compare(*candidates)
        rows += [Row(4, f"cold process, {what}: time", f"{many} variables", f"{few} variables",
                     large.wall / small.wall, 1.3, f"{seconds(large.wall)} and {seconds(small.wall)} by the clock"),
                 Row(4, f"cold process, {what}: memory", f"{many} variables", f"{few} variables",
                     large.peak / small.peak, 1.3, f"peak {megabytes(large.peak)} and {megabytes(small.peak)}")]
    return rows


class Definitions:
    """A dataset, and scripts and SQL that define the same sets in it."""

    def __init__(self, bench):
        self._bench = bench
        survey = bench.path("definitions.csv")
        surveys.write_survey(survey, 20, 1000)
        bench.remove_before("fresh.mrset")()
        bench.run(bench.mrset, "import", survey, bench.path("fresh.mrset"))
        # Every fifth variable holds texts; sets are of numbers alone.
        self.numeric = [f"q{column + 1}" for column in range(1000) if column % 5]

    def script(self, name, one_command):
        path = self._bench.path(name)
        surveys.write_script(path, self._bench.sizes.definitions, self.numeric, 12, one_command)
        return path

    def program(self, script, *options):
        """The program that runs a script on a fresh dataset of its own."""
        bench = self._bench
        return Candidate([bench.mrset, "run", bench.path("work.mrset"), script, *options],
                         bench.copy_before("fresh.mrset", "work.mrset"))

    def result(self, name, script):
        """The dataset that a script leaves."""
        bench = self._bench
        bench.copy_before("fresh.mrset", name)()
        bench.run(bench.mrset, "run", bench.path(name), script)
        return bench.path(name)

    def sqlite(self, name, dataset, synchronous, one_transaction):
        """sqlite3 that writes the rows of the dataset into a fresh one."""
        bench = self._bench
        sql = bench.path(name)
        surveys.write_transactions(sql, dataset, synchronous, one_transaction)
        return Candidate(["sqlite3", "-batch", bench.path("work.db")], bench.copy_before("fresh.mrset", "work.db"), sql)


def durable_definitions(bench):
    definitions = Definitions(bench)
    script = definitions.script("definitions.script", one_command=False)
    dataset = definitions.result("done.mrset", script)
    ours, theirs = bench.compare(definitions.program(script),
                                 definitions.sqlite("durable.sql", dataset, "EXTRA", one_transaction=False))
    count = bench.sizes.definitions
    return [Row(5, f"{count} durable definitions", "mrset run", f"sqlite3, {count} transactions",
                ours.wall / theirs.wall, 1.5,
                f"{seconds(ours.wall)} and {seconds(theirs.wall)}; of the processor "
                f"{seconds(ours.user + ours.system)} and {seconds(theirs.user + theirs.system)}")]


def relaxed_definitions(bench):
    definitions = Definitions(bench)
    script = definitions.script("definitions.script", one_command=False)
    single = definitions.script("one-command.script", one_command=True)
    count = bench.sizes.definitions

    def row(what, program, script, reference, synchronous, one_transaction, limit=3):
        dataset = definitions.result("done.mrset", script)
        ours, theirs = bench.compare(program, definitions.sqlite("relaxed.sql", dataset, synchronous, one_transaction))
        return Row(6, what, "mrset run", reference, ours.wall / theirs.wall, limit,
                   f"{seconds(ours.wall)} and {seconds(theirs.wall)}; of the processor "
                   f"{seconds(ours.user + ours.system)} and {seconds(theirs.user + theirs.system)}")

    yield row(f"{count} definitions in one command", definitions.program(single), single,
              "sqlite3, one transaction", "EXTRA", True)
    relaxed = "--relaxed"
    yield row(f"{count} definitions, {relaxed}", definitions.program(script, relaxed), script,
              "sqlite3, one transaction", "OFF", True)
    yield row(f"{count} definitions, {relaxed}", definitions.program(script, relaxed), script,
              f"sqlite3, {count} transactions", "OFF", False, None)


def import_survey(bench):
    rows = []
    for count in (bench.sizes.rows // 10, bench.sizes.rows):
        survey = bench.path("import.csv")
        surveys.write_survey(survey, count, bench.sizes.columns)
        rows += bench.compare_import(7, survey, f"import of {count} rows, {bench.sizes.columns} columns", 1.3)
    return rows


def display(bench):
    definitions = Definitions(bench)
    script = bench.path("display.script")
    surveys.write_script(script, bench.sizes.displayed, definitions.numeric, 20, one_command=True)
    dataset = definitions.result("display.mrset", script)
    # Once beforehand: the display leaves the sets in the order of names.
    command = [bench.mrset, "run", dataset, "-c", "MRSET /DISPLAY NAME=ALL", "--format"]
    bench.run(*command, "text")
    rows = []
    for form in ("text", "json"):
        finished = bench.path("finished." + form)
        bench.scales.run_once(Candidate([*command, form], stdout=finished))
        ours, theirs = bench.compare(Candidate([*command, form], stdout=bench.path("shown." + form)),
                                     Candidate(["cat", finished], stdout=bench.path("copied." + form)))
        rows.append(Row(8, f"DISPLAY of {bench.sizes.displayed} sets of 20 variables as {form}", "mrset run", "cat",
                        ours.wall / theirs.wall, None,
                        f"{seconds(ours.wall)} and {seconds(theirs.wall)} for "
                        f"{megabytes(finished.stat().st_size / 1024)}; peak {megabytes(ours.peak)}"))
    return rows


GOALS = {1: typical_command, 2: one_group, 3: many_sets, 4: cold_process, 5: durable_definitions,
         6: relaxed_definitions, 7: import_survey, 8: display}
