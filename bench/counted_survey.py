"""The survey whose sets are counted, for each program that counts it. It is the same in every run.

d1 to d20 are a dichotomy set, c1 to c6 a category set of 30 values, mostly missing; region has 10 values, w is a weight with
two decimals; the rest, o1 on, are other questions. The order of rows is random, the rows are a few thousand patterns.
"""

import random
import sqlite3

MEMBERS = [f"d{number + 1}" for number in range(20)]
CATEGORIES = [f"c{number + 1}" for number in range(6)]
PATTERNS = 4999
WIDE_PATTERNS = 97  # of the questions after the first 50 variables
CHUNK = 10000
NARROW = 50


def names(variables):
    others = [f"o{number + 1}" for number in range(variables - len(MEMBERS) - len(CATEGORIES) - 2)]
    return [*MEMBERS, *CATEGORIES, "region", "w", *others]


def members(dice):
    """4.5 of 20 are chosen by those that choose any; 2% are missing, 3% choose none."""
    kind = dice.random()
    if kind < 0.02:
        return [""] * len(MEMBERS)
    if kind < 0.05:
        return ["0"] * len(MEMBERS)
    return ["1" if dice.random() < 0.225 else "0" for _ in MEMBERS]


def categories(dice):
    given = dice.choice([0, 1, 1, 2, 2, 3, 6])
    return [str(dice.randint(1, 30)) if number < given else "" for number in range(len(CATEGORIES))]


def other(dice, number):
    if dice.random() < 0.05:
        return ""
    return str(dice.randint(1, 100 if number % 8 == 7 else 5))


def pattern(dice):
    region = "" if dice.random() < 0.01 else str(dice.randint(1, 10))
    weight = f"{dice.uniform(0.3, 3):.2f}"
    count = NARROW - len(MEMBERS) - len(CATEGORIES) - 2
    return [*members(dice), *categories(dice), region, weight, *(other(dice, number) for number in range(count))]


def chunks(cases, variables, form):
    """Rows as `form` makes them of a list of texts, some thousand at a time."""
    dice = random.Random(1)
    narrow = [pattern(dice) for _ in range(PATTERNS)]
    wide = [[other(dice, number) for number in range(variables - NARROW)] for _ in range(WIDE_PATTERNS)]
    rows = [form(cells + wide[index % WIDE_PATTERNS]) for index, cells in enumerate(narrow)]
    for first in range(0, cases, CHUNK):
        yield dice.choices(rows, k=min(CHUNK, cases - first))


def write_csv(path, cases, variables):
    with open(path, "w", encoding="utf-8") as file:
        file.write(",".join(names(variables)) + "\n")
        for rows in chunks(cases, variables, lambda cells: ",".join(cells) + "\n"):
            file.writelines(rows)


def values(cells):
    return [None if cell == "" else float(cell) if "." in cell else int(cell) for cell in cells]


def fill_sqlite(path, cases):
    """A plain table with typed columns, and the cells that are missing as NULL."""
    columns = ", ".join(f"{name} {'REAL' if name == 'w' else 'INTEGER'}" for name in names(NARROW))
    with sqlite3.connect(path) as database:
        database.execute(f"CREATE TABLE survey({columns})")
        insert = f"INSERT INTO survey VALUES({', '.join('?' * NARROW)})"
        for rows in chunks(cases, NARROW, values):
            database.executemany(insert, rows)
    database.close()


def duckdb_load(csv):
    """SQL that makes a table of the narrowest types out of a survey in CSV."""
    columns = ", ".join(f"{name} {'DOUBLE' if name == 'w' else 'UTINYINT'}" for name in names(NARROW))
    return f"CREATE TABLE survey({columns}); COPY survey FROM '{csv}' (HEADER); CHECKPOINT; SELECT count(*) FROM survey"
