"""The goals of counting: tables of sets against databases that count the same, and what a dataset of columns costs."""

import json
import math
import pathlib
import shutil
import statistics
import subprocess

import counted_queries
import counted_survey
from counted_survey import MEMBERS, NARROW
from goals import Row, megabytes, seconds
from processes import Candidate, Failure, Skipped

DUCKDB = pathlib.Path(__file__).with_name("duckdb")
WEIGHTED = ["--weight", "w", "--show", "count", "--show", "cases", "--show", "error"]


def survey(bench, cases, variables=NARROW):
    """The survey in CSV. It is kept."""
    path = bench.path(f"counted-{cases}-{variables}.csv")
    if not path.exists():
        counted_survey.write_csv(path, cases, variables)
    return path


def dataset(bench, cases, variables=NARROW):
    """The survey imported, with its set. It is kept."""
    path = bench.path(f"counted-{cases}-{variables}.mrset")
    if not path.exists():
        csv = survey(bench, cases, variables)
        bench.run(bench.mrset, "import", csv, path)
        bench.run(bench.mrset, "run", path, "-c",
                  f"MRSET /MDGROUP NAME=$answers LABEL='Answers' VARIABLES={MEMBERS[0]} TO {MEMBERS[-1]} VALUE=1")
        if (cases, variables) != (bench.sizes.counted, NARROW):
            csv.unlink()
    return path


def tabulate(bench, cases, variables=NARROW, options=(), **streams):
    return Candidate([bench.mrset, "tabulate", dataset(bench, cases, variables), "$answers", "--by", "region", *options],
                     **streams)


def output(bench, command):
    """What a command prints."""
    out = bench.path("output")
    bench.scales.run_once(Candidate(command, stdout=out))
    return out.read_text()


def our_figures(bench, options):
    """Of each region: the cases, the sum of weights of the base, and of each member's cases."""
    program = tabulate(bench, bench.sizes.counted, options=[*options, "--format", "json"])
    table = json.loads(output(bench, program.command))
    return {int(column["value"]): [column["cases"]["all"], column["weightedBase"],
                                   *(row["cells"][index]["count"] for row in table["rows"])]
            for index, column in enumerate(table["columns"]) if column["by"]}


def their_figures(rows, is_weighted):
    """The same of the rows of a query; it gives the squares of the weights besides, after their sums."""
    step = 2 if is_weighted else 1
    return {int(row[0]): [float(figure or 0) for figure in [*row[1:3], *row[4::step]]]
            for row in rows if row[0] is not None}


def is_close(ours, theirs):
    return len(ours) == len(theirs) and all(math.isclose(*pair, rel_tol=1e-9) for pair in zip(ours, theirs))


def check_figures(bench, rows, is_weighted):
    """Both sides must count the same, or the comparison means nothing."""
    ours, theirs = our_figures(bench, WEIGHTED if is_weighted else []), their_figures(rows, is_weighted)
    if not ours or ours.keys() != theirs.keys() or not all(is_close(ours[key], theirs[key]) for key in ours):
        raise Failure(f"the two sides count differently: {ours} and {theirs}")


def fastest(bench, database, is_weighted):
    """The command with the form of the query that takes the least time."""
    queries = counted_queries.weighted if is_weighted else counted_queries.plain
    commands = [database.command(sql) for sql in queries(database.dialect)]
    turns = min(2, bench.sizes.repetitions)
    return min(commands, key=lambda command: min(database.seconds(bench, command) for _ in range(turns)))


class DuckDB:
    """A process of node for each query, on a database file of its own."""

    name = "DuckDB"
    dialect = "duckdb"

    def __init__(self, bench):
        self._folder = bench.programs.parent / "duckdb"
        self._install()
        self._database = bench.path("counted.duckdb")
        if not self._database.exists():
            bench.run(*self.command(counted_survey.duckdb_load(survey(bench, bench.sizes.counted))))

    def _install(self):
        for needed in ("node", "npm"):
            if not shutil.which(needed):
                raise Skipped(f"there is no {needed}, which DuckDB needs")
        self._folder.mkdir(exist_ok=True)
        for file in DUCKDB.iterdir():
            shutil.copy(file, self._folder)
        if (self._folder / "installed").exists():
            return
        # Not "npm ci", which fails where a registry lacks DuckDB for another system.
        command = ["npm", "install", "--no-save", "--no-audit", "--no-fund", "--ignore-scripts", "--loglevel=error"]
        try:
            subprocess.run(command, cwd=self._folder, timeout=300, check=True, capture_output=True)
        except (subprocess.SubprocessError, OSError):
            raise Skipped("npm could not install DuckDB") from None
        (self._folder / "installed").touch()

    def command(self, sql):
        return ["node", self._folder / "query.mjs", self._database, sql]

    def rows(self, bench, command):
        return json.loads(output(bench, command))["rows"]

    def seconds(self, bench, command):
        """Of the query without the start of node and the opening of the database."""
        return json.loads(output(bench, command))["milliseconds"] / 1000


class SQLite:
    """The program sqlite3 on a plain table with typed columns."""

    name = "sqlite3"
    dialect = "sqlite"

    def __init__(self, bench, cases):
        self._database = bench.path(f"counted-{cases}.db")
        if not self._database.exists():
            counted_survey.fill_sqlite(self._database, cases)

    def command(self, sql):
        return ["sqlite3", "-batch", "-readonly", "-json", self._database, sql]

    def rows(self, bench, command):
        return [list(row.values()) for row in json.loads(output(bench, command))]

    def seconds(self, bench, command):
        return bench.scales.run_once(Candidate(command)).wall


def against(bench, goal, database, command, is_weighted, limit):
    """`tabulate` against a database's query, each a whole process."""
    cases = bench.sizes.counted
    check_figures(bench, database.rows(bench, command), is_weighted)
    ours, theirs = bench.compare(tabulate(bench, cases, options=WEIGHTED if is_weighted else ()), Candidate(command))
    what = f"{cases} cases, set of {len(MEMBERS)} by region, " + ("weighted, with errors" if is_weighted else "counts")
    return Row(goal, what, "mrset tabulate", database.name, ours.wall / theirs.wall, limit,
               f"{seconds(ours.wall)} and {seconds(theirs.wall)}; of the processor "
               f"{seconds(ours.user + ours.system)} and {seconds(theirs.user + theirs.system)}; "
               f"peak {megabytes(ours.peak)} and {megabytes(theirs.peak)}")


def against_duckdb(bench, goal, is_weighted, limit):
    database = DuckDB(bench)
    command = fastest(bench, database, is_weighted)
    yield against(bench, goal, database, command, is_weighted, limit)
    # Starting node takes long, so the query alone is told too.
    program = tabulate(bench, bench.sizes.counted, options=WEIGHTED if is_weighted else ())
    turns = [(bench.scales.run_once(program).wall, database.seconds(bench, command))
             for _ in range(bench.sizes.repetitions)]
    ours, theirs = (statistics.median(times) for times in zip(*turns))
    yield Row(goal, "the same, but of DuckDB the query alone, in a process that runs already", "mrset tabulate", "query",
              ours / theirs, None, f"{seconds(ours)} and {seconds(theirs)}")


def counts_against_duckdb(bench):
    return against_duckdb(bench, 9, False, 0.7)


def errors_against_duckdb(bench):
    return against_duckdb(bench, 10, True, 0.5)


def against_sqlite(bench):
    database = SQLite(bench, bench.sizes.counted)
    return [against(bench, 11, database, fastest(bench, database, is_weighted), is_weighted, 0.05)
            for is_weighted in (False, True)]


def among_many_variables(bench):
    cases, wide = bench.sizes.counted, bench.sizes.counted_wide
    many, few = bench.compare(tabulate(bench, cases, wide), tabulate(bench, cases))
    return [Row(12, f"{cases} cases, set of {len(MEMBERS)} by region", f"among {wide} variables", f"among {NARROW}",
                many.wall / few.wall, 1.1, f"{seconds(many.wall)} and {seconds(few.wall)}; "
                f"peak {megabytes(many.peak)} and {megabytes(few.peak)}")]


def ten_times_the_cases(bench):
    few, many = bench.sizes.counted, 10 * bench.sizes.counted
    large, small = bench.compare(tabulate(bench, many), tabulate(bench, few))
    what = f"set of {len(MEMBERS)} by region: "
    return [Row(13, what + "time", f"{many} cases", f"{few} cases", large.wall / small.wall, 10.5,
                f"{seconds(large.wall)} and {seconds(small.wall)}"),
            Row(13, what + "memory", f"{many} cases", f"{few} cases", large.peak / small.peak, 1.1,
                f"peak {megabytes(large.peak)} and {megabytes(small.peak)}")]


def counting_alone(bench):
    """Processor time, in one process, on columns in memory."""
    cases = 1000000
    names = [f"{what}/{cases}" for what in ("region", "weighted", "floor")]
    region, weighted, floor = (bench.milliseconds("bench_tabulation", names)[name] for name in names)
    what = f"{cases} cases in memory, set of {len(MEMBERS)} by region"
    floors = "reading their bytes three times"
    return [Row(14, what, "counting", floors, region / (3 * floor), 1, f"{region:.2f} ms, reading once {floor:.2f} ms"),
            Row(14, what + ", weighted, with errors", "counting", floors, weighted / (3 * floor), None,
                f"{weighted:.2f} ms, reading once {floor:.2f} ms")]


def size_of_dataset(bench):
    cases = bench.sizes.counted
    csv, columns = (path.stat().st_size for path in (survey(bench, cases), dataset(bench, cases)))
    return [Row(15, f"{cases} cases, {NARROW} variables", "dataset file", "CSV", columns / csv, 0.35,
                f"{megabytes(columns / 1024)} and {megabytes(csv / 1024)}")]


def import_columns(bench):
    cases = bench.sizes.counted
    return bench.compare_import(16, survey(bench, cases), f"import of {cases} rows, {NARROW} columns", 0.7)


def small_survey(bench):
    cases = bench.sizes.small
    database = SQLite(bench, cases)
    command = fastest(bench, database, False)
    ours, theirs = bench.compare(tabulate(bench, cases), Candidate(command))
    return [Row(17, f"a table of {cases} cases, a cold process", "mrset tabulate", "sqlite3", ours.wall / theirs.wall, 2,
                f"{seconds(ours.wall)} and {seconds(theirs.wall)}; "
                f"peak {megabytes(ours.peak)} and {megabytes(theirs.peak)}")]


GOALS = {9: counts_against_duckdb, 10: errors_against_duckdb, 11: against_sqlite, 12: among_many_variables,
         13: ten_times_the_cases, 14: counting_alone, 15: size_of_dataset, 16: import_columns, 17: small_survey}
