#!/usr/bin/env python3
"""Prints the coverage of each folder, and fails if one is below its thresholds; then it also prints what is missing.

report.py DETAILS ROOT EXPORT:FOLDER:LINES:BRANCHES...   (EXPORT: JSON of llvm-cov; thresholds in percent)

The file DETAILS gets the coverage of each file: the lines that never ran, the conditions that were never true or false.
What unreachable.txt names counts as reached, and is listed. Naming what is reached after all, or is not there, fails.
"""
import collections
import json
import os
import re
import sys


def percent(reached, total):
    return 100.0 * reached / total if total else 100.0


def ranges(numbers):
    """1, 2, 3, 7 -> "1-3,7"."""
    runs = []
    for number in numbers:
        if runs and number == runs[-1][1] + 1:
            runs[-1][1] = number
        else:
            runs.append([number, number])
    return ",".join(str(first) if first == last else f"{first}-{last}" for first, last in runs)


def line_counts(text, segments):
    """How often each line ran that holds code: the most of the segments on it. Gaps between statements and lines of
    brackets alone are no code."""
    counts = {}
    current = None
    starts = collections.defaultdict(list)
    for segment in segments:
        starts[segment[0]].append(segment)
    for number, line in enumerate(text, 1):
        places = [(1, current)] + [(segment[1], segment) for segment in starts[number]]
        current = places[-1][1]
        if not re.search(r"\w", line):
            continue
        for (start, segment), (end, _) in zip(places, places[1:] + [(len(line) + 1, None)]):
            if segment is None or not line[start - 1:end - 1].strip():
                continue
            _, _, count, has_count, _, is_gap = segment
            if has_count and not is_gap:
                counts[number] = max(count, counts.get(number, 0))
    return counts


class File:
    def __init__(self, record, root):
        self.name = os.path.relpath(record["filename"], root)
        with open(record["filename"], encoding="utf-8") as source:
            self.text = source.read().splitlines()
        self.counts = line_counts(self.text, record["segments"])
        # A template has its branches once for each instance: reached is what one of them reached.
        conditions = collections.defaultdict(lambda: [0, 0])
        for branch in record["branches"]:
            for outcome in (0, 1):
                conditions[tuple(branch[:4])][outcome] += branch[4 + outcome]
        self.branches = 2 * len(conditions)
        self.missing_lines = sorted(line for line, count in self.counts.items() if count == 0)
        self.missing_branches = [(place[0], place[1], f"never {outcome}") for place, counts in sorted(conditions.items())
                                 for outcome, count in zip(("true", "false"), counts) if count == 0]
        self.unreachable = []

    def excuse(self, text, what):
        """Takes the place from what is missing; False when it is not there."""
        def is_meant(line):
            return self.text[line - 1].strip() == text

        if what == "never run":
            found = [line for line in self.missing_lines if is_meant(line)]
            self.missing_lines = [line for line in self.missing_lines if not is_meant(line)]
        else:
            found = [branch for branch in self.missing_branches if is_meant(branch[0]) and branch[2] == what]
            self.missing_branches = [branch for branch in self.missing_branches if branch not in found]
        if len(found) == 1:
            self.unreachable.append(f"{text} {what}")
        return len(found) == 1

    def lines_reached(self):
        return len(self.counts) - len(self.missing_lines)

    def branches_reached(self):
        return self.branches - len(self.missing_branches)

    def is_complete(self):
        return not self.missing_lines and not self.missing_branches

    def details(self):
        text = (f"{self.name:45} lines {percent(self.lines_reached(), len(self.counts)):6.2f}%"
                f"  branches {percent(self.branches_reached(), self.branches):6.2f}%\n")
        if self.missing_lines:
            text += f"    lines that never ran: {ranges(self.missing_lines)}\n"
        for line, column, what in self.missing_branches:
            text += f"    {line}:{column} {what}\n"
        for place in self.unreachable:
            text += f"    named as unreachable: {place}\n"
        return text


def read_files(path, folder, root):
    with open(path, encoding="utf-8") as stream:
        records = json.load(stream)["data"][0]["files"]
    files = [File(record, root) for record in records
             if os.path.relpath(record["filename"], root).startswith(folder + "/")]
    return sorted(files, key=lambda file: file.name)


def excuse_unreachable(files, folder):
    """Takes out what the list names; False when something named is reached or not there."""
    named_rightly = True
    with open(os.path.join(os.path.dirname(__file__), "unreachable.txt"), encoding="utf-8") as stream:
        for entry in stream:
            if entry.startswith("#") or not entry.startswith(folder + "/"):
                continue
            name, text, what, _ = entry.strip().split(" | ")
            if not any(file.name == name and file.excuse(text, what) for file in files):
                print(f"unreachable.txt names what is reached or not there: {name}: {text} ({what})")
                named_rightly = False
    return named_rightly


def holds(folder, files, lines_wanted, branches_wanted):
    lines, lines_reached = sum(len(file.counts) for file in files), sum(file.lines_reached() for file in files)
    branches, branches_reached = sum(file.branches for file in files), sum(file.branches_reached() for file in files)
    unreachable = sum(len(file.unreachable) for file in files)
    enough = (lines > 0 and percent(lines_reached, lines) >= lines_wanted
              and percent(branches_reached, branches) >= branches_wanted)
    print(f"{folder}: {lines_reached} of {lines} lines ({percent(lines_reached, lines):.2f}%, wanted {lines_wanted:g}%),"
          f" {branches_reached} of {branches} branches ({percent(branches_reached, branches):.2f}%, wanted"
          f" {branches_wanted:g}%)"
          + (f", {unreachable} places among them named as unreachable" if unreachable else "")
          + ("" if enough else ": too low"))
    return enough


def main():
    details_path, root = sys.argv[1:3]
    results = []
    print("Coverage:")
    with open(details_path, "w", encoding="utf-8") as details:
        for argument in sys.argv[3:]:
            path, folder, lines_wanted, branches_wanted = argument.split(":")
            files = read_files(path, folder, root)
            results.append(excuse_unreachable(files, folder))
            for file in files:
                details.write(file.details())
            results.append(holds(folder, files, float(lines_wanted), float(branches_wanted)))
            if not results[-1]:
                for file in files:
                    if not file.is_complete():
                        print(file.details(), end="")
    print(f"Each file: {details_path}")
    return 0 if all(results) else 1


if __name__ == "__main__":
    sys.exit(main())
