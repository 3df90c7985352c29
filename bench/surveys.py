"""Surveys, scripts and SQL that the measurements work on. All of them are the same in every run."""

import random
import sqlite3

ANSWERS = ["agree", "disagree", "neither", "strongly agree", "don't know", "no answer"]

# What one durable definition writes, beside the counter in meta: the tables with the column whose number is that of the
# definition, since the definitions of a script are the only changes of its dataset. A table that a dataset does not
# have is left out.
WRITTEN_TABLES = [("mr_set", "id"), ("mr_set_variable", "set_id"), ("history", "number"), ("history_set", "history")]


def write_survey(path, rows, columns):
    """A survey in CSV: numbers, and every fifth column one of some texts; one answer of twenty is missing."""
    dice = random.Random(1)

    def cell(column):
        if dice.random() < 0.05:
            return ""
        return str(dice.randint(0, 9)) if column % 5 else dice.choice(ANSWERS)

    patterns = [",".join(cell(column) for column in range(columns)) + "\n" for _ in range(min(rows, 997))]
    with open(path, "w", encoding="utf-8") as file:
        file.write(",".join(f"q{column + 1}" for column in range(columns)) + "\n")
        for row in range(rows):
            file.write(patterns[row % len(patterns)])


def write_wide_survey(path, columns):
    """Two cases of many numeric variables."""
    with open(path, "w", encoding="utf-8") as file:
        file.write(",".join(f"q{column + 1}" for column in range(columns)) + "\n")
        for digit in "01":
            file.write(",".join(digit * columns) + "\n")


def definition(number, variables, count):
    """A subcommand that defines a set over `count` neighbours among the names."""
    first = number * 7 % max(len(variables) - count, 1)
    names = " ".join(variables[first:first + count])
    return f"/MDGROUP NAME=$set{number + 1} LABEL='Answers to question {number + 1}' VARIABLES={names} VALUE=1"


def write_script(path, sets, variables, count, one_command=False):
    """A script that defines sets, each with a command of its own or all with one."""
    definitions = [definition(number, variables, count) for number in range(sets)]
    with open(path, "w", encoding="utf-8") as file:
        if one_command:
            file.write("MRSET\n" + "\n".join(definitions) + ".\n")
        else:
            file.writelines(f"MRSET {text}.\n" for text in definitions)


def quoted(value):
    if value is None:
        return "NULL"
    if isinstance(value, bytes):
        return "x'" + value.hex() + "'"
    return str(value) if isinstance(value, (int, float)) else "'" + value.replace("'", "''") + "'"


def rows_of_definitions(dataset):
    """For each definition of which a dataset is the result, in order: the INSERT statements that write its rows."""
    with sqlite3.connect(f"file:{dataset}?mode=ro", uri=True) as database:
        database.text_factory = str
        present = {name for (name,) in database.execute("SELECT name FROM sqlite_schema WHERE type = 'table'")}
        statements = {}
        for table, key in WRITTEN_TABLES:
            if table not in present:
                continue
            rows = database.execute(f"SELECT {key}, * FROM {table} ORDER BY {key}")
            for identity, *values in rows:
                text = f"INSERT INTO {table} VALUES({', '.join(map(quoted, values))});\n"
                statements.setdefault(identity, []).append(text)
    return [statements[identity] for identity in sorted(statements)]


def write_transactions(path, dataset, synchronous, one_transaction=False):
    """SQL that writes into a dataset without sets what the definitions wrote into this one, in a transaction each or all
    in one."""
    counter = "UPDATE meta SET generation = generation + 1;\n"
    with open(path, "w", encoding="utf-8") as file:
        file.write(f"PRAGMA synchronous = {synchronous};\n")
        if one_transaction:
            file.write("BEGIN IMMEDIATE;\n")
        for statements in rows_of_definitions(dataset):
            begin, end = ("", "") if one_transaction else ("BEGIN IMMEDIATE;\n", counter + "COMMIT;\n")
            file.write(begin + "".join(statements) + end)
        if one_transaction:
            file.write(counter + "COMMIT;\n")
