#!/usr/bin/env python3
"""Hostile sizes and contents: the program stays correct, linear and modest, and acts on nothing that it reads.

  hostile_test.py --program MRSET [--long] [--case NAME] [--unmeasured]

Each case prints what it measured. A case of sizes runs at an eighth of its size, too, and prints how the time for each
thing grew between the two; memory is limited. --unmeasured looks at results alone, at a thirty-second of the sizes, for
a program with sanitizers in it.
"""

import argparse
import json
import os
import stat
import sys
import tempfile
import time
from dataclasses import dataclass
from pathlib import Path
from typing import Callable

from measured import Failure, Measured, Program

STEP = 8
UNMEASURED_STEP = 32

DATASET = "s.mrset"


@dataclass
class Part:
    """One run of the program at one size."""

    name: str
    done: Measured


class Case:
    def __init__(self, options, folder: Path):
        self.options = options
        self.folder = folder
        self.program = Program(options.program, folder)

    def size(self, short: int, long: int) -> int:
        return long if self.options.long else short

    def write(self, name: str, text: str) -> str:
        (self.folder / name).write_text(text)
        return name

    def fixed(self, size: int) -> int:
        """A size without a long form."""
        return size // UNMEASURED_STEP if self.options.unmeasured else size

    def dataset(self, columns: int, rows: int = 2) -> None:
        """A new dataset of numeric variables v0, v1, ... that hold 0 and 1."""
        (self.folder / DATASET).unlink(missing_ok=True)
        self.write("data.csv", survey(columns, rows))
        self.program.run("import", "data.csv", DATASET)

    def must(self, holds: bool, sentence: str) -> None:
        if not holds:
            raise Failure(sentence)

    def grow(self, what: str, size: int, parts: Callable[[int], list[Part]], megabytes: float) -> None:
        """Runs the parts at an eighth of the size and at the size; `megabytes` is what each may take at the size."""
        if self.options.unmeasured:
            parts(size // UNMEASURED_STEP)
            return
        small, large = parts(size // STEP), parts(size)
        for before, after in zip(small, large):
            growth = after.done.seconds / STEP / max(before.done.seconds, 0.01)
            print(
                f"  {before.name:28} {size:>11,} {what:10} {after.done.seconds:7.2f} s {after.done.megabytes:6.0f} MB,"
                f" an eighth {before.done.seconds:6.2f} s {before.done.megabytes:5.0f} MB; for each {growth:.2f} fold",
                flush=True,
            )
            self.must(after.done.megabytes <= megabytes, f"{before.name}: more than {megabytes} MB of memory")


def survey(columns: int, rows: int) -> str:
    header = ",".join(f"v{column}" for column in range(columns))
    lines = [",".join(str((column + row) % 2) for column in range(columns)) for row in range(rows)]
    return "\n".join([header, *lines]) + "\n"


def codebook(fields: list[dict]) -> str:
    return json.dumps({"fields": fields})


def many_variables(case: Case) -> None:
    """A dictionary with labels: imported, listed, and touched by one command, which must not read all of it."""

    def parts(count: int) -> list[Part]:
        case.dataset(1)
        (case.folder / DATASET).unlink()
        labels = [{"value": 0, "label": "No"}, {"value": 1, "label": "Yes"}]
        fields = [
            {"name": f"v{n}", "type": "integer", "title": f"Variable {n}", "categories": labels} for n in range(count)
        ]
        case.write("schema.json", codebook(fields))
        case.write("data.csv", survey(count, 2))
        imported = case.program.run("import", "--schema", "schema.json", "data.csv", DATASET)
        command = f"MRSET /MDGROUP NAME=$x VARIABLES=v0 v{count - 1} VALUE=1 /DISPLAY NAME=ALL"
        one = case.program.run("run", DATASET, "-c", command)
        case.must(f"Variable {count - 1}" in one.text(), "the last variable is missing")
        case.must(case.options.unmeasured or one.megabytes < 30, "one command reads all of the dictionary")
        listed = case.program.run("variables", DATASET, "--format", "json")
        case.must(len(json.loads(listed.text())["variables"]) == count, "variables are missing")
        text = case.program.run("variables", DATASET)
        checked = case.program.run("check", DATASET)
        return [Part("import", imported), Part("one command", one), Part("variables --format json", listed),
                Part("variables", text), Part("check", checked)]  # fmt: skip

    count = case.size(80_000, 1_000_000)
    case.grow("variables", count, parts, 60 + count * 0.002)


def many_sets(case: Case) -> None:
    """Made by one command, listed, displayed, one more defined among them, all deleted, and that undone."""

    def parts(count: int) -> list[Part]:
        case.dataset(100)
        groups = (f" /MDGROUP NAME=$s{n} LABEL='Set {n}' VARIABLES=v{n % 90} TO v{n % 90 + 9} VALUE=1" for n in range(count))
        case.write("sets.script", "MRSET" + "\n".join(groups) + ".\n")
        made = case.program.run("run", DATASET, "sets.script")
        listed = case.program.run("sets", DATASET, "--format", "json")
        case.must(len(json.loads(listed.text())["sets"]) == count, "sets are missing")
        shown = case.program.run("run", DATASET, "-c", "MRSET /DISPLAY NAME=ALL")
        another = case.program.run("run", DATASET, "-c", "MRSET /MCGROUP NAME=$another VARIABLES=v0 v1")
        deleted = case.program.run("run", DATASET, "-c", "MRSET /DELETE NAME=ALL")
        undone = case.program.run("undo", DATASET)
        again = json.loads(case.program.run("sets", DATASET, "--format", "json").text())["sets"]
        case.must(len(again) == count + 1, "undo did not bring all sets back")
        case.program.run("check", DATASET)
        return [Part("one command defines", made), Part("sets", listed), Part("display all", shown),
                Part("define one more", another), Part("delete all", deleted), Part("undo", undone)]  # fmt: skip

    case.grow("sets", 10_000, parts, 200)


def script_of_definitions(case: Case) -> None:
    """Each command gets a list of all sets and gives one back, so the whole grows with the square whatever the host
    does; how much shows in the growth."""

    def parts(count: int) -> list[Part]:
        case.dataset(10)
        commands = (f"MRSET /MDGROUP NAME=$s{n} VARIABLES=v0 TO v9 VALUE=1.\n" for n in range(count))
        script = case.write("sets.script", "".join(commands))
        rehearsed = case.program.run("run", DATASET, script, "--dry-run")
        done = case.program.run("run", DATASET, script, "--relaxed")
        sets = json.loads(case.program.run("sets", DATASET, "--format", "json").text())["sets"]
        case.must(len(sets) == count, "sets are missing")
        return [Part("run --dry-run", rehearsed), Part("run --relaxed", done)]

    case.grow("definitions", case.size(800, 10_000), parts, 100)


def large_set(case: Case) -> None:
    """One set of many variables."""

    def parts(count: int) -> list[Part]:
        case.dataset(count)
        command = f"MRSET /MDGROUP NAME=$x VARIABLES=v0 TO v{count - 1} VALUE=1"
        defined = case.program.run("run", DATASET, "-c", command)
        names = " ".join(f"v{n}" for n in range(count))
        case.write("named.script", f"MRSET /MCGROUP NAME=$y VARIABLES={names}.\n")
        named = case.program.run("run", DATASET, "named.script")
        shown = case.program.run("run", DATASET, "-c", "MRSET /DISPLAY NAME=ALL")
        listed = case.program.run("sets", DATASET, "--format", "json")
        sets = json.loads(listed.text())["sets"]
        case.must([len(entry["variables"]) for entry in sets] == [count, count], "variables are missing")
        undone = case.program.run("undo", DATASET, "--to", "0")
        case.program.run("check", DATASET)
        return [Part("define by TO", defined), Part("define by names", named), Part("display", shown),
                Part("sets", listed), Part("undo", undone)]  # fmt: skip

    case.grow("variables", 100_000, parts, 250)


def report(case: Case, what: str, done: Measured, megabytes: float) -> None:
    print(f"  {what:52} {done.seconds:7.2f} s {done.megabytes:6.0f} MB", flush=True)
    if not case.options.unmeasured:
        case.must(done.megabytes <= megabytes, f"{what}: more than {megabytes} MB of memory")


def long_labels(case: Case) -> None:
    """Labels of a megabyte come back whole; that of a set is cut, with a warning."""
    title, label = "T" * case.fixed(1_000_000), "L \u20ac" * case.fixed(200_000)
    fields = [
        {"name": name, "type": "integer", "title": title + name, "categories": [{"value": 1, "label": label + name}]}
        for name in ("a", "b")
    ]
    case.write("schema.json", codebook(fields))
    case.write("data.csv", "a,b\n1,1\n")
    report(case, "import", case.program.run("import", "--schema", "schema.json", "data.csv", DATASET), 100)
    listed = case.program.run("variables", DATASET, "--format", "json")
    variables = json.loads(listed.text())["variables"]
    case.must(variables[1]["label"] == title + "b", "a label is not whole")
    case.must(variables[1]["valueLabels"][0]["label"] == label + "b", "a value label is not whole")
    report(case, "variables --format json", listed, 100)
    report(case, "variables", case.program.run("variables", DATASET), 150)
    command = f"MRSET /MDGROUP NAME=$x LABEL='{title}' VARIABLES=a b VALUE=1 /DISPLAY NAME=ALL.\n"
    done = case.program.run("run", DATASET, case.write("label.script", command), "--format", "json")
    items = json.loads(done.text())["items"]
    case.must("truncated to a length of 255" in items[0]["text"], "the label is cut without a warning")
    case.must(len(items[-1]["rows"][0]["cells"][0]) == 255, "the label is not cut")
    report(case, "display", done, 100)


def long_command(case: Case) -> None:
    """A command of ten megabytes: one long label, and many names."""
    case.dataset(2)
    label = case.fixed(10_000_000)
    command = f"MRSET /MCGROUP NAME=$x LABEL='{'x' * label}' VARIABLES=v0 v1.\n"
    done = case.program.run("run", DATASET, case.write("label.script", command))
    report(case, f"a label of {label:,} bytes", done, 250)

    def parts(count: int) -> list[Part]:
        names = " ".join(f"$name{n}" for n in range(count))
        script = case.write("names.script", f"MRSET /DELETE NAME=[{names}].\n")
        return [Part("delete by names", case.program.run("run", DATASET, script))]

    case.grow("names", case.size(50_000, 800_000), parts, case.size(100, 400))


def long_script(case: Case) -> None:
    """Many commands; memory is a small multiple of the text."""
    case.dataset(2)
    command = "* A comment that is long enough to fill something.\nMRSET /DISPLAY NAME=[$none].\n"
    megabytes = case.size(4, 100)

    def parts(count: int) -> list[Part]:
        script = case.write("long.script", command * count)
        done = case.program.run("run", DATASET, script, "--format", "json")
        with done.output.open() as lines:
            case.must(sum(1 for _ in lines) == count, "results are missing")
        return [Part("run", done)]

    case.grow("commands", megabytes * 1_000_000 // len(command), parts, 40 + 4 * megabytes)


def wide_data(case: Case) -> None:
    """Many columns and some rows, with types from the data."""

    def parts(count: int) -> list[Part]:
        case.write("wide.csv", survey(count, 20))
        (case.folder / DATASET).unlink(missing_ok=True)
        return [Part("import", case.program.run("import", "wide.csv", DATASET))]

    case.grow("columns", 100_000, parts, 150)


def long_stream(case: Case) -> None:
    """Data from a pipe: memory does not follow the rows."""
    columns, rows_in_block = 50, 1000
    block = survey(columns, rows_in_block).split("\n", 1)
    case.write("schema.json", codebook([{"name": f"v{n}", "type": "integer"} for n in range(columns)]))

    def stream(megabytes: int, *schema: str) -> Measured:
        (case.folder / DATASET).unlink(missing_ok=True)
        blocks = megabytes * 1_000_000 // len(block[1])

        def feed(file) -> None:
            file.write(block[0].encode() + b"\n")
            for _ in range(blocks):
                file.write(block[1].encode())

        done = case.program.run("import", *schema, "/dev/stdin", DATASET, feed=feed)
        case.must(f"{blocks * rows_in_block} cases" in done.errors, f"cases are missing: {done.errors}")
        return done

    megabytes = case.size(1 if case.options.unmeasured else 40, 10_000)
    report(case, f"{megabytes:,} MB with a codebook", stream(megabytes, "--schema", "schema.json"), 60)
    twice = case.size(1 if case.options.unmeasured else 20, 1_000)
    report(case, f"{twice:,} MB without, so read twice", stream(twice), 60)
    (case.folder / DATASET).unlink()


def limits(case: Case) -> None:
    """What has a limit says so, in one sentence."""

    def sentence(*arguments: str, feed=None) -> str:
        return case.program.run(*arguments, feed=feed, expect=2).errors

    def long_row(file) -> None:
        file.write(b"a,b\n1," + b"x" * 70_000_000 + b"\n")

    case.write("schema.json", codebook([{"name": "a"}, {"name": "b"}]))
    told = sentence("import", "--schema", "schema.json", "/dev/stdin", DATASET, feed=long_row)
    case.must(told == "mrset: /dev/stdin, line 2: a row is longer than 67108864 bytes.\n", told)
    case.write("deep.json", "[" * 10_000_000)
    case.write("data.csv", "a,b\n1,2\n")
    told = sentence("import", "--schema", "deep.json", "data.csv", DATASET)
    case.must(told == "mrset: deep.json is nested deeper than 64 levels.\n", told)
    case.must(not (case.folder / DATASET).exists(), "a dataset was made")


# Everything that acts on a terminal: C0 and C1 controls, DEL, separators of lines, and turns of the direction of writing.
ACTING = [chr(code) for code in [*range(1, 32), *range(127, 160), 0x61C, 0x200E, 0x200F, *range(0x2028, 0x202F),
                                 *range(0x2066, 0x206A)]]  # fmt: skip
ACT = "".join(character for character in ACTING if character not in "\r\n")
ESCAPE = "\x1b]0;title\x07\x1b[31mred\x9b2J\u202etxt.exe"


def characters(case: Case) -> None:
    """Nothing of what acts on a terminal comes through, whichever way it came in."""
    fields = [
        {"name": name, "type": "string", "title": ESCAPE + ACT + name,
         "categories": [{"value": "1" + ACT, "label": "Yes" + ESCAPE}]}  # fmt: skip
        for name in ("a", "b")
    ]
    case.write("schema.json", codebook(fields))
    (case.folder / "data.csv").write_text(f'a,b\n"1{ACT}","{ESCAPE}"\n', newline="")
    dataset = f"s{ESCAPE.replace('/', '')}.mrset"
    label = ESCAPE + ACT.replace("\n", "")
    commands = [
        f"MRSET /MDGROUP NAME=$x LABEL='{label}' VARIABLES=a b VALUE='1' /DISPLAY NAME=ALL.",
        "MRSET /MCGROUP NAME=$y VARIABLES=a b /DISPLAY NAME=ALL.",
        f"MRSET {ESCAPE}.",
        f"{ESCAPE}.",
        f"MRSET /MCGROUP NAME='{label}' VARIABLES=a b.",
        f"MRSET /DELETE NAME=['{ESCAPE}'].",
    ]
    (case.folder / "all.script").write_text("\n".join(commands), newline="")
    runs = [
        (["import", "--schema", "schema.json", "data.csv", dataset], 0),
        (["import", "--schema", "schema.json", "data.csv", dataset], 2),
        (["run", dataset, "all.script"], 1),
        (["run", dataset, "all.script", "--format", "json"], 1),
        (["variables", dataset], 0),
        (["variables", dataset, "--format", "json"], 0),
        (["sets", dataset], 0),
        (["sets", dataset, "--format", "json"], 0),
        (["log", dataset], 0),
        (["log", dataset, "--format", "json"], 0),
        (["check", dataset], 0),
        (["undo", dataset, "--to", "0"], 0),
        (["sets", ESCAPE], 2),
        (["run", dataset, ESCAPE], 2),
        (["run", dataset, "--format", ESCAPE], 2),
        ([ESCAPE], 2),
    ]
    for arguments, status in runs:
        done = case.program.run(*arguments, expect=status)
        for text in (done.text(), done.errors):
            found = {character for character in text if character in ACTING and character != "\n"}
            case.must(not found, f"{arguments} lets {found} through")
    told = json.loads(case.program.run("variables", dataset, "--format", "json").text())["variables"]
    case.must(told[0]["label"] == ESCAPE + ACT + "a", "JSON changed a label")
    print(f"  {len(ACTING)} characters, {len(runs)} runs")


def statements(case: Case) -> None:
    """Text that looks like SQL is text."""
    evil = "x'); DROP TABLE mr_set; --\" ]]`\\ %s ?1 :a @b $c"
    fields = [{"name": name, "type": "string", "title": evil + name} for name in ("a", "b")]
    case.write("schema.json", codebook(fields))
    quoted = evil.replace('"', '""')
    case.write("data.csv", f'a,b\n"{quoted}","{quoted}"\n')
    dataset = "s'; DROP TABLE x; --?mode=memory.mrset"
    case.program.run("import", "--schema", "schema.json", "data.csv", dataset)
    label = evil.replace("'", "''")
    case.program.run("run", dataset, "-c", f"MRSET /MDGROUP NAME=$x LABEL='{label}' VARIABLES=a b VALUE='{label}'", expect=0)
    case.program.run("run", dataset, "-c", f"MRSET /DELETE NAME=[$a '{label}']", expect=1)
    case.program.run("import", "--replace", "--schema", "schema.json", "data.csv", dataset)
    case.program.run("check", dataset)
    (stored,) = json.loads(case.program.run("sets", dataset, "--format", "json").text())["sets"]
    case.must(stored["label"] == evil and stored["countedValue"] == evil, f"the set came back as {stored}")
    case.must((case.folder / dataset).exists(), "the file's name was taken for something else")


def paths(case: Case) -> None:
    """A path in a file's contents is text. What it names here would keep whoever opened it waiting for ever."""
    trap = case.folder / "trap"
    os.mkfifo(trap)
    forms = [str(trap), "trap", f"file://{trap}", f"@{trap}", f"|cat {trap}", f"$(cat {trap})", f"{{include {trap}}}"]
    member = {name: str(trap) for name in ("path", "$ref", "schema", "url", "data", "include", "format", "profile")}
    fields = [{**member, "name": f"v{n}", "type": "string", "title": form,
               "categories": [{"value": form, "label": form}]} for n, form in enumerate(forms)]  # fmt: skip
    case.write("schema.json", json.dumps({**member, "resources": [member], "fields": fields}))
    header = ",".join(field["name"] for field in fields)
    case.write("data.csv", header + "\n" + ",".join(f'"{form}"' for form in forms) + "\n")
    words = ("INCLUDE", "INSERT", "GET", "HOST", "EXECUTE", "ATTACH", ".read", "!", "\\i", "SAVE OUTFILE =")
    commands = [f"{word} {quote}{form}{quote}." for word in words for form in forms for quote in ("", "'", '"')]
    commands += [f"MRSET /MCGROUP NAME=$x{n} LABEL='{form}' VARIABLES=v0 v1." for n, form in enumerate(forms)]
    commands += [f"MRSET /DISPLAY NAME=[$x0] /OUTFILE='{form}'." for form in forms]
    case.write("paths.script", "\n\n".join(commands) + "\n")
    before = {path.name for path in case.folder.iterdir()}
    case.program.run("import", "--schema", "schema.json", "data.csv", DATASET)
    done = case.program.run("run", DATASET, "paths.script", "--format", "json", expect=1)
    case.must(len(done.text().splitlines()) == len(commands), "results are missing")
    case.program.run("check", DATASET)
    left = {path.name for path in case.folder.iterdir()} - before
    case.must(left == {DATASET}, f"these files were made: {left}")
    case.must(stat.S_ISFIFO(trap.lstat().st_mode), "the trap was replaced")
    print(f"  {len(forms)} forms of a path, {len(commands)} commands")


CASES = [many_variables, many_sets, script_of_definitions, large_set, long_labels, long_command, long_script, wide_data,
         long_stream, limits, characters, statements, paths]  # fmt: skip


def run_case(options, case: Callable) -> bool:
    print(case.__name__.replace("_", " "))
    started = time.monotonic()
    try:
        with tempfile.TemporaryDirectory(prefix="mrset-hostile-") as place:
            folder = Path(place) / "work"
            folder.mkdir()
            case(Case(options, folder))
    except Failure as failure:
        print(f"  FAILED: {failure}")
        return False
    print(f"  {time.monotonic() - started:.1f} s of the clock", flush=True)
    return True


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True)
    parser.add_argument("--long", action="store_true", help="the full sizes, 10 GB of data among them")
    parser.add_argument("--case", choices=[case.__name__ for case in CASES])
    parser.add_argument("--unmeasured", action="store_true")
    options = parser.parse_args()
    chosen = [case for case in CASES if options.case in (None, case.__name__)]
    return 0 if all([run_case(options, case) for case in chosen]) else 1


if __name__ == "__main__":
    sys.exit(main())
