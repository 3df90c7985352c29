#!/usr/bin/env python3
"""Measures the module and the program: each goal as a ratio of two things run side by side."""

import argparse
import dataclasses
import json
import os
import pathlib
import platform
import sys
import tempfile
import textwrap

import counting
import goals
from processes import Failure, Scales, Skipped

GOALS = {**goals.GOALS, **counting.GOALS}
SIZES = {"full": goals.FULL, "quick": goals.QUICK, "smallest": goals.SMALLEST}


def parse_arguments():
    parser = argparse.ArgumentParser(prog="scripts/bench", description=__doc__)
    parser.add_argument("--goal", type=int, action="append", choices=sorted(GOALS),
                        help="measure this one; may be given several times (default: all)")
    parser.add_argument("--quick", action="store_const", const="quick", dest="size", default="full",
                        help="smaller data, fewer repetitions")
    parser.add_argument("--smallest", action="store_const", const="smallest", dest="size",
                        help="only to see that everything runs; the figures mean nothing")
    parser.add_argument("--json", metavar="FILE", type=pathlib.Path, help="write the figures to this file too")
    parser.add_argument("--scratch", metavar="FOLDER", type=pathlib.Path,
                        help="where the files of the measurements are made (default: beside the programs)")
    parser.add_argument("--programs", metavar="FOLDER", type=pathlib.Path, required=True, help=argparse.SUPPRESS)
    return parser.parse_args()


def verdict(row):
    if row.limit is None:
        return "reported"
    return f"at most {row.limit:g}: " + ("met" if row.met() else "MISSED")


def show(row):
    print(f"{row.goal}  {row.what}")
    print(f"   {row.value:8.2f}  {row.subject} : {row.reference}   ({verdict(row)})")
    print(textwrap.indent(textwrap.fill(row.line, 100), "             "), flush=True)


def machine():
    return {"processors": os.cpu_count(), "system": platform.platform(), "load": os.getloadavg()[0]}


def measure(arguments):
    rows, failures, skipped = [], [], []
    with tempfile.TemporaryDirectory(dir=arguments.scratch or arguments.programs, prefix="bench-") as folder:
        folder = pathlib.Path(folder)
        scales = Scales(arguments.programs / "run_and_weigh", folder)
        bench = goals.Bench(arguments.programs, scales, folder, SIZES[arguments.size])
        for number in arguments.goal or sorted(GOALS):
            try:
                for row in GOALS[number](bench):
                    show(row)
                    rows.append(row)
            except Failure as failure:
                print(f"{number}  not measured: {failure}", flush=True)
                failures.append({"goal": number, "failure": str(failure)})
            except Skipped as reason:
                print(f"{number}  skipped: {reason}", flush=True)
                skipped.append({"goal": number, "reason": str(reason)})
    return rows, failures, skipped


def main():
    arguments = parse_arguments()
    rows, failures, skipped = measure(arguments)
    if arguments.json:
        result = {"size": arguments.size, "machine": machine(),
                  "ratios": [{**dataclasses.asdict(row), "met": row.met()} for row in rows], "failures": failures,
                  "skipped": skipped}
        arguments.json.write_text(json.dumps(result, indent=2) + "\n")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
