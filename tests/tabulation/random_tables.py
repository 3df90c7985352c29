#!/usr/bin/env python3
"""Random tables of random surveys: what the program counts is what the definitions say (reference.py).

    random_tables.py --tables N [--large N] [--seed SEED]

A seed is that of one survey; the next survey has the next one. With --large there are that many surveys of thousands of
cases among them. The program is in MRSET_PROGRAM.

Numbers of cases are compared exactly, other figures to 1e-9. A failure prints the seed that repeats it, and a survey and
a command as small as they could be made.
"""
import argparse
import csv
import io
import json
import math
import os
import random
import subprocess
import sys
import tempfile

from reference import NoTable, sets_of_condition, tabulate

COMMANDS = 40  # of one survey
FEW_COMMANDS = 4  # of a large one
LARGE = [4095, 4096, 4097, 9000, 65536, 65537, 70000]  # cases, about the sizes in which the program takes them
NUMBERS = [0, 1, 2, 3, -1, 2.5, 10]
TEXTS = ["A", "b c", "Tea", "é", "x", "-1", "10", "It's"]
WEIGHTS = {"w": [1, 2, 3, 0.5, 1.25, 8, 0, -1, None], "v": [0.1, 0.3, 1.7, 0.65, 12.3, 1, 1, 0, None]}
OPERATORS = ["=", "<>", "<", "<=", ">", ">="]


# Surveys


def random_survey(dice, is_large):
    """The survey, and what stands in its place when the sets are defined: all variables that any set names, and a label
    for each value."""
    variables = [random_variable(dice, f"{dice.choice('qQéz')}{i}", i % 2 == 1) for i in range(dice.randint(2, 11))]
    counted = [{"name": name, "text": False, "label": None, "values": []} for name in WEIGHTS]
    gone = [random_variable(dice, f"gone{i}", dice.random() < 0.5) for i in range(2)]
    survey = {"variables": variables + counted, "cases": []}
    sizes = LARGE if is_large else [0, 1, 2, 3, 5, 8, 12, 20, 30, 45, 63, 64, 65, 130]
    for _ in range(dice.choice(sizes)):
        survey["cases"].append({one["name"]: random_cell(dice, one) for one in variables} |
                               {name: dice.choice(values) for name, values in WEIGHTS.items()})
    before = [dict(one) for one in variables + gone]
    if dice.random() < 0.1:  # a variable that was of another type
        before[0]["text"] ^= True
    for one in before:
        one["values"] = [(value, f"{one['name']} is {value}") for value in pool(one)]
    survey["sets"] = random_sets(dice, before)
    return survey, {"variables": before, "cases": []}


def pool(variable):
    return TEXTS if variable["text"] else NUMBERS


def random_variable(dice, name, text):
    variable = {"name": name, "text": text, "label": dice.choice([None, f"Label of {name}", 'A "label", the same']),
                "missing": dice.choice([0, 0.1, 0.1, 0.5, 1])}
    few = dice.sample(pool(variable), dice.randint(1, 4))
    variable["pool"] = few
    labelled = dice.sample(pool(variable), dice.choice([0, 0, 2, 5]))
    variable["values"] = [(padded(dice, value), dice.choice([f"is {value}", f"{name} = {value}", "the same"]))
                          for value in labelled]
    return variable


def random_cell(dice, variable):
    if dice.random() < variable["missing"]:
        return dice.choice([None, "  "]) if variable["text"] else None
    value = dice.choice(variable["pool"])
    return padded(dice, value)


def padded(dice, value):
    return dice.choice(["", "", " "]) + value + dice.choice(["", "", "  "]) if isinstance(value, str) else value


def random_sets(dice, variables):
    sets = []
    for i in range(dice.randint(1, 5)):
        text = dice.random() < 0.4
        fitting = [one["name"] for one in variables if one["text"] == text]
        if len(fitting) < 2:
            continue
        chosen = dice.sample(fitting, dice.randint(2, min(5, len(fitting))))
        counted = dice.choice([1, 1, 0, -1] if not text else TEXTS) if dice.random() < 0.5 else None
        by_value = counted is not None and dice.random() < 0.4
        if not by_value and counted is not None:
            counted = padded(dice, counted)
        sets.append({"name": f"$s{i}", "variables": chosen, "counted": counted,
                     "label": dice.choice(["", f"Set {i}"]), "labels_of_values": by_value, "label_of_variable": False})
        if by_value and not sets[-1]["label"] and dice.random() < 0.7:
            sets[-1]["label_of_variable"] = True
    return sets


def definition(one):
    words = ["/MCGROUP" if one["counted"] is None else "/MDGROUP", f"NAME={one['name']}",
             f"VARIABLES={' '.join(one['variables'])}"]
    if one["counted"] is not None:
        words.append(f"VALUE={spelled(one['counted'])}")
    if one["label"]:
        words.append(f"LABEL={quoted(one['label'])}")
    if one["labels_of_values"]:
        words.append("CATEGORYLABELS=COUNTEDVALUES")
    if one["label_of_variable"]:
        words.append("LABELSOURCE=VARLABEL")
    return "MRSET " + " ".join(words)


def quoted(text, mark='"'):
    return mark + text.replace(mark, 2 * mark) + mark


def spelled(value):
    return quoted(value) if isinstance(value, str) else f"{value:g}"


def codebook(variables):
    fields = []
    for one in variables:
        field = {"name": one["name"], "type": "string" if one["text"] else "number",
                 "categories": [{"value": value, "label": label} for value, label in one["values"]]}
        if one["text"]:
            field["constraints"] = {"maxLength": 12}
        if one["label"]:
            field["title"] = one["label"]
        fields.append(field)
    return json.dumps({"fields": fields})


def data(survey):
    out = io.StringIO()
    names = [one["name"] for one in survey["variables"]]
    writer = csv.writer(out, quoting=csv.QUOTE_MINIMAL)
    writer.writerow(names)
    for case in survey["cases"]:
        writer.writerow(["" if case[name] is None else case[name] for name in names])
    return out.getvalue()


# Requests


class RequestDice:
    def __init__(self, dice, survey):
        self.dice, self.survey = dice, survey
        self.variables = survey["variables"]
        self.sets = survey["sets"]

    def maybe(self, chance):
        return self.dice.random() < chance

    def request(self):
        dice = self.dice
        names = [one["name"] for one in self.sets]
        request = {"sets": dice.sample(names, 1 if self.maybe(0.8) else dice.randint(1, len(names)))}
        if self.maybe(0.7):
            request["by"] = [self.by(names) for _ in range(dice.randint(1, 2))]
        if self.maybe(0.4):
            request["weight"] = dice.choice(list(WEIGHTS))
        if self.maybe(0.6):
            request["base"] = dice.choice(["answered", "asked", "complete", "all"])
        if self.maybe(0.4):
            request["where"] = self.condition(2)
            request["where_text"] = self.condition_text(request["where"])
        self.add_none(request)
        if self.maybe(0.3):
            request["nets"] = [(f"Net {i}", self.members(request)) for i in range(dice.randint(1, 2))]
        if self.maybe(0.3):
            request["last"] = self.members(request)
        if self.maybe(0.4):
            request["sort"] = dice.choice(["none", "descending", "ascending"])
        if self.maybe(0.5):
            request["errors"] = True
            if self.maybe(0.5):
                request["confidence"] = dice.choice([50, 68.3, 90, 99, 99.9])
        if self.maybe(0.55 if "by" in request else 0.02):
            request["test"] = dice.choice(["holm", "bonferroni"])
        if self.maybe(0.2):
            request["min_base"] = dice.choice([1, 2, 5, 30])
        return request

    def by(self, sets):
        kind = self.dice.random()
        names = [one["name"] for one in self.variables]
        if kind < 0.3:
            return (self.dice.choice(sets),)
        return tuple(self.dice.sample(names, 2)) if kind < 0.5 else (self.dice.choice(names),)

    def add_none(self, request):
        """A value that the category sets of the command could hold."""
        named = request["sets"] + [names[0] for names in request.get("by", [])] + sets_of_condition(request.get("where"))
        texts = {self.is_text(one) for one in self.sets if one["name"] in named and one["counted"] is None}
        if len(texts) == 1 and self.maybe(0.5) or not texts and self.maybe(0.02):
            request["none"] = self.dice.choice(TEXTS if texts == {True} else NUMBERS)

    def variable(self, name):
        return next((one for one in self.variables if one["name"] == name), None)

    def is_text(self, one):
        return any(self.variable(name) and self.variable(name)["text"] for name in one["variables"])

    def members(self, request):
        name = self.dice.choice(request["sets"])
        one = next(one for one in self.sets if one["name"] == name)
        # Text and number are one for a member's value: of which set it is said would not be clear.
        known = self.known_members(one, request.get("none"), ("-1", "10") if len(request["sets"]) > 1 else ())
        return self.dice.sample(known, self.dice.randint(1, len(known)))

    def known_members(self, one, none=None, avoided=()):
        """Mostly those that there are."""
        there = [name for name in one["variables"] if self.variable(name)]
        if one["counted"] is not None:
            return there or one["variables"]
        values = {clean for name in there for case in self.survey["cases"]
                  if (clean := case[name].strip(" ") if isinstance(case[name], str) else case[name]) not in (None, "")}
        values = sorted(values - {none}, key=str) or (TEXTS if self.is_text(one) else NUMBERS)
        return [value for value in values if str(value) not in avoided] or ["Nobody"]

    def condition(self, depth):
        dice = self.dice
        kind = dice.choice(["not", "and", "or", *OPERATORS, "in", "missing", "has"])
        if kind == "not" and depth:
            return ("not", self.condition(depth - 1))
        if kind in ("and", "or") and depth:
            return (kind, [self.condition(depth - 1) for _ in range(dice.randint(2, 3))])
        if kind == "has":
            one = dice.choice(self.sets)
            return ("has", one["name"], dice.choice(self.known_members(one)))
        one = dice.choice(self.variables)
        if kind == "missing":
            return ("missing", one["name"])
        values = pool(one) if not self.maybe(0.02) else pool({"text": not one["text"]})
        if kind == "in":
            return ("in", one["name"], dice.sample(values, dice.randint(1, 3)))
        return (kind if kind in OPERATORS else dice.choice(OPERATORS), one["name"], dice.choice(values))

    def condition_text(self, condition, outer=0):
        kind = condition[0]
        if kind == "not":
            return self.keyword("NOT") + " " + self.condition_text(condition[1], 3)
        if kind in ("and", "or"):
            strength = 2 if kind == "and" else 1
            text = f" {self.keyword(kind.upper())} ".join(
                self.condition_text(part, strength + 1) for part in condition[1])
            return f"({text})" if outer > strength or self.maybe(0.2) else text
        name = self.name(condition[1])
        if kind == "missing":
            return f"{self.keyword('MISSING')}({name})"
        if kind == "has":
            return f"{name} {self.keyword('HAS')} {self.member(condition[2])}"
        if kind == "in":
            return f"{name} {self.keyword('IN')} ({', '.join(map(self.value, condition[2]))})"
        return f"{name} {kind} {self.value(condition[2])}"

    def keyword(self, word):
        return self.dice.choice([word, word, word.lower()])

    def name(self, name):
        return self.dice.choice([name, name, name.upper(), name.lower()])

    def value(self, value):
        if isinstance(value, str):
            return quoted(self.dice.choice([value, value, f" {value} "]), self.dice.choice("\"'"))
        return self.dice.choice([f"{value:g}", f"{value:g}", f"{value:.2f}"])

    def member(self, member):
        """A variable of a dichotomy set, or a value."""
        if self.variable(member) or isinstance(member, str) and member.startswith("gone"):
            return self.name(member)
        return member if isinstance(member, str) and member.isascii() and member.isalpha() and self.maybe(0.5) else (
            self.value(member))

    def command(self, request):
        parts = []
        if "by" in request:
            parts.append("BY=" + " ".join("*".join(map(self.name, names)) for names in request["by"]))
        for key, word in (("weight", "WEIGHT"), ("base", "BASE"), ("sort", "SORT"), ("min_base", "MINBASE"),
                          ("confidence", "CONFIDENCE"), ("where_text", "WHERE")):
            if key in request:
                parts.append(f"{word}={request[key]}")
        if "none" in request:
            parts.append("NONE=" + self.value(request["none"]))
        if "last" in request:
            parts.append("LAST=" + " ".join(map(self.member, request["last"])))
        if "test" in request:
            parts.append("TEST=" + request["test"])
        if "errors" in request:
            parts.append("SHOW=" + self.dice.choice(["ERROR", "INTERVAL", "COUNT ERROR INTERVAL"]))
        self.dice.shuffle(parts)
        parts += [f"NET={quoted(label)}: " + " ".join(map(self.member, members))
                  for label, members in request.get("nets", [])]
        return "TABULATE " + " ".join(map(self.name, request["sets"])) + "".join(f" /{part}" for part in parts)


# Comparison


def difference(expected, found, path="table"):
    """What differs, as a sentence, or None."""
    if isinstance(expected, dict) and isinstance(found, dict):
        if expected.keys() != found.keys():
            return f"{path}: {sorted(expected)} is expected, not {sorted(found)}"
        return first(difference(expected[key], found[key], f"{path}.{key}")
                     for key in expected)
    if isinstance(expected, list) and isinstance(found, list):
        if len(expected) != len(found):
            return f"{path}: {len(expected)} entries are expected, not {len(found)}"
        return first(difference(*pair, f"{path}[{i}]") for i, pair in enumerate(zip(expected, found)))
    if isinstance(expected, float) and type(found) in (int, float):
        is_same = abs(expected - found) <= 1e-9 * max(1, abs(expected))
    else:
        is_same = expected == found and type(expected) is type(found)
    return None if is_same else f"{path}: {expected!r} is expected, not {found!r}"


def first(differences):
    return next((one for one in differences if one), None)


def expected_of(survey, request):
    try:
        return tabulate(survey, request)
    except NoTable as error:
        return str(error)


def compare(survey, request, result):
    expected = expected_of(survey, request)
    tables = [item for item in result["items"] if item["kind"] == "tabulation"]
    if isinstance(expected, str):
        return None if result["status"] == "error" and not tables else f"an error is expected ({expected}), not a table"
    if result["status"] != "ok":
        return f"a table is expected, not {result['status']}: {result['items']}"
    for table in tables:
        del table["notes"]
    return difference(expected, tables)


# Running


def run(*arguments):
    done = subprocess.run([os.environ["MRSET_PROGRAM"], *arguments], capture_output=True, text=True, encoding="utf-8")
    if done.returncode > 1:
        raise RuntimeError(f"{arguments}: {done.returncode} {done.stderr}")
    return [json.loads(line) for line in done.stdout.splitlines()] if arguments[0] == "run" else done.stdout


def write(folder, name, text):
    path = os.path.join(folder, name)
    with open(path, "w", encoding="utf-8", newline="") as out:
        out.write(text)
    return path


def results(survey, before, commands):
    """What the program makes of the commands."""
    with tempfile.TemporaryDirectory() as folder:
        dataset = os.path.join(folder, "s.mrset")
        for stage in (before, survey):
            run("import", "--replace", "--schema", write(folder, "s.json", codebook(stage["variables"])),
                write(folder, "s.csv", data(stage)), dataset)
            if stage is before:
                define(dataset, survey)
        return run("run", dataset, write(folder, "commands", ".\n".join(commands) + ".\n"), "--format", "json")


def define(dataset, survey):
    definitions = [word for one in survey["sets"] for word in ("-c", definition(one))]
    for result in run("run", dataset, "--format", "json", *definitions):
        if result["status"] != "ok":
            raise RuntimeError(f"{result['text']}: {result['items']}")


def failure(survey, before, request, command):
    (result,) = results(survey, before, [command])
    return compare(survey, request, result)


def smaller(survey, before, request, seed):
    """A smaller survey and request that still differ."""
    def differs(survey, request):
        command = RequestDice(random.Random(seed), survey).command(request)
        try:
            return failure(survey, before, request, command)
        except (RuntimeError, LookupError):  # what is needed has gone
            return None

    for key in list(request):
        rest = {k: v for k, v in request.items() if k != key and (key, k) != ("where", "where_text")}
        if key not in ("sets", "where_text") and differs(survey, rest):
            request = rest
    for part in ("sets", "variables"):
        for one in list(survey[part]):
            rest = dict(survey, **{part: [other for other in survey[part] if other is not one]})
            if differs(rest, request):
                survey = rest
    step = len(survey["cases"])
    while step > 0:
        start = 0
        while start < len(survey["cases"]):
            rest = dict(survey, cases=survey["cases"][:start] + survey["cases"][start + step:])
            if differs(rest, request):
                survey = rest
            else:
                start += step
        step //= 2
    return survey, request, RequestDice(random.Random(seed), survey).command(request)


def describe(survey, before, request, seed):
    survey, request, command = smaller(survey, before, request, seed)
    what = failure(survey, before, request, command)
    return "\n".join(["", data(survey), codebook(survey["variables"]), *map(definition, survey["sets"]), command, "",
                      what or "not seen again in a smaller survey"])


def one_survey(seed, is_large=False):
    """Compares the tables of a survey; gives their number, and that of the errors."""
    dice = random.Random(seed)
    survey, before = random_survey(dice, is_large)
    if not survey["sets"]:
        return 0, 0
    writer = RequestDice(dice, survey)
    requests = [writer.request() for _ in range(FEW_COMMANDS if is_large else COMMANDS)]
    commands = [writer.command(request) for request in requests]
    tables = errors = 0
    for request, command, result in zip(requests, commands, results(survey, before, commands), strict=True):
        what = compare(survey, request, result)
        if what:
            again = "--tables 0 --large 1" if is_large else "--tables 1"
            sys.exit(f"random_tables.py --seed {seed} {again}\n{command}\n{what}\n"
                     + describe(survey, before, request, seed))
        tables += sum(item["kind"] == "tabulation" for item in result["items"])
        errors += result["status"] == "error"
    return tables, errors


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--tables", type=int, required=True)
    parser.add_argument("--large", type=int, default=0)
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(10**9))
    options = parser.parse_args()
    print(f"--seed {options.seed}", flush=True)
    tables = errors = surveys = 0
    while tables < options.tables or surveys < options.large:
        found = one_survey(options.seed + surveys, is_large=surveys < options.large)
        surveys, tables, errors = surveys + 1, tables + found[0], errors + found[1]
    print(f"{tables} tables and {errors} errors of {surveys} surveys are as expected")


if __name__ == "__main__":
    main()
