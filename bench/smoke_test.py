#!/usr/bin/env python3
"""Every measurement in its smallest form: that it runs and gives a figure, never how large that is.

    smoke_test.py PROGRAMS
"""

import json
import pathlib
import subprocess
import sys
import tempfile

GOALS = set(range(1, 18))
OF_DUCKDB = {9, 10}  # skipped where npm cannot get it


def bench(programs, *arguments):
    script = pathlib.Path(__file__).with_name("bench.py")
    return subprocess.run([sys.executable, str(script), "--programs", programs, *arguments],
                          capture_output=True, text=True)


def check(truth, what, done):
    if not truth:
        sys.exit(f"{what}\n{done.stdout}{done.stderr}")


def check_all_goals(programs, folder):
    figures = folder / "figures.json"
    done = bench(programs, "--smallest", "--scratch", str(folder), "--json", str(figures))
    result = json.loads(figures.read_text())
    measured = {ratio["goal"] for ratio in result["ratios"]}
    skipped = {skip["goal"] for skip in result["skipped"]}
    check(measured | skipped == GOALS, f"only the goals {measured} were measured", done)
    check(skipped in (set(), OF_DUCKDB), f"the goals {skipped} were skipped", done)
    check(all(f"{skip['goal']}  skipped: {skip['reason']}" in done.stdout for skip in result["skipped"]),
          "a reason is missing", done)
    check(all(ratio["value"] > 0 for ratio in result["ratios"]), "a ratio is not positive", done)
    check(all(ratio["line"] in " ".join(done.stdout.split()) for ratio in result["ratios"]), "a line is missing", done)
    help_text = subprocess.run([pathlib.Path(programs) / "mrset", "run", "--help"], capture_output=True, text=True)
    unmeasured = set() if "--relaxed" in help_text.stdout else {6}
    check({failure["goal"] for failure in result["failures"]} == unmeasured, "a measurement failed", done)
    check(done.returncode == (1 if unmeasured else 0), f"the exit status is {done.returncode}", done)
    check([file.name for file in folder.iterdir()] == ["figures.json"], "files were left behind", done)


def check_one_goal(programs, folder):
    done = bench(programs, "--smallest", "--scratch", str(folder), "--goal", "1")
    check(done.returncode == 0 and {line[:3] for line in done.stdout.splitlines()} == {"1  ", "   "},
          "--goal 1 does not measure that goal alone", done)


def main():
    programs = sys.argv[1]
    with tempfile.TemporaryDirectory() as folder:
        check_all_goals(programs, pathlib.Path(folder))
    with tempfile.TemporaryDirectory() as folder:
        check_one_goal(programs, pathlib.Path(folder))
    done = bench(programs, "--goal", "18")
    check(done.returncode == 2 and "18" in done.stderr, "a goal that there is not is not refused", done)


if __name__ == "__main__":
    main()
