#!/usr/bin/env python3
"""Published tables: every figure comes from the raw answers, by the commands that an analyst would type.

The program is in MRSET_PROGRAM, the surveys in MRSET_SURVEYS. Where they are not there, the status is 80: skipped.
"""
import csv
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest
from decimal import Decimal

ROOT = pathlib.Path(__file__).resolve().parents[2]
TABLES = pathlib.Path(os.environ.get("MRSET_SURVEYS") or ROOT.parent / "shared/data") / "tables"
PROGRAM = os.environ["MRSET_PROGRAM"]

INCOME = ["tabulate", "drugs.mrset", "$income", "--base", "asked"]
INCOME_CODES = ["tabulate", "drugs.mrset", "$incomecodes", "--base", "asked", "--none", "-1"]
VICTIM = ["tabulate", "drugs.mrset", "$victim", "--base", "asked"]
BY_SEX = [*VICTIM, "--by", "sex", "--where", "sex IN (1, 2)", "--test=bonferroni"]
REASONS = ["tabulate", "msna.mrset", "$reasons", "--base", "asked", "--by", "admin1", "--show", "interval"]

SETS = {
    "drugs": """MRSET /MDGROUP NAME=$income VARIABLES=inco1 TO inco7 VALUE=1
                      /MCGROUP NAME=$incomecodes VARIABLES=pinco1 TO pinco6
                      /MDGROUP NAME=$victim VARIABLES=victim1 TO victim5 VALUE=1""",
    "msna": "MRSET /MDGROUP NAME=$reasons VARIABLES=reasons_overcrowding TO reasons_prefer_not_to_answer VALUE=1",
}
ONE_WAY = {
    "income sources, dichotomies: inco1 TO inco7, counted 1": (INCOME, "inco"),
    "income sources, categories: pinco1 TO pinco6, -1 says none": (INCOME_CODES, ""),
    "victim of: victim1 TO victim5, counted 1": (VICTIM, "victim"),
}


def published(name):
    with open(TABLES / f"{name}.csv", encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file))


def rows(table):
    return {row["member"]: row["cells"] for row in table["rows"]}


class Published(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = folder.name
        for name, sets in SETS.items():
            cls.mrset("import", "--schema", TABLES / f"{name}.schema.json", TABLES / f"{name}.csv", f"{name}.mrset")
            cls.mrset("run", f"{name}.mrset", "-c", sets)

    @classmethod
    def mrset(cls, *arguments):
        done = subprocess.run([PROGRAM, *map(str, arguments)], cwd=cls.folder, capture_output=True, text=True,
                              encoding="utf-8")
        if done.returncode != 0:
            raise RuntimeError(f"{arguments}: {done.returncode} {done.stdout} {done.stderr}")
        return done.stdout

    def table(self, command):
        return json.loads(self.mrset(*command, "--format", "json"))

    def same(self, found, expected, what):
        """At the published precision: to half a unit of the last decimal, and what a double leaves open."""
        unit = 10.0 ** Decimal(expected).as_tuple().exponent
        self.assertLessEqual(abs(found - float(expected)), max(unit / 2, 1e-15) * (1 + 1e-9),
                             f"{what}: {found} instead of {expected}")

    def test_tables_of_one_set(self):
        compared = 0
        tables = {name: self.table(command) for name, (command, _) in ONE_WAY.items()}
        for row in published("drugs.published-oneway"):
            total = tables[row["table"]]["columns"][0]
            self.assertEqual(total["cases"]["base"], int(row["asked_cases"]), row)
            self.assertEqual(total["cases"]["missing"], int(row["missing_cases"]), row)
            self.one_way(row, tables[row["table"]], total)
            compared += 1
        self.assertEqual(compared, 22)

    def one_way(self, row, table, total):
        if row["member"] == "Total":
            self.assertEqual(total["responses"], int(row["cases"]), row)
            self.same(sum(cells[0]["percentOfResponses"] for cells in rows(table).values()),
                      row["percent_of_responses"], row)
            self.same(100 * total["responsesPerCase"], row["percent_of_cases"], row)
        else:
            cell = rows(table)[ONE_WAY[row["table"]][1] + row["member"]][0]
            self.assertEqual(cell["cases"], int(row["cases"]), row)
            self.same(cell["percentOfResponses"], row["percent_of_responses"], row)
            self.same(cell["percentOfCases"], row["percent_of_cases"], row)

    def test_a_set_by_a_variable_with_tests(self):
        table = self.table(BY_SEX)
        total, female, male = table["columns"]
        self.assertEqual((female["label"], male["label"]), ("female", "male"))
        tests = {test["member"]: test for test in table["tests"][0]["members"]}
        compared = 0
        for row in published("drugs.published-victim-by-sex"):
            if row["member"] == "Cases":
                self.counts(row, [column["cases"]["base"] for column in (female, male, total)])
            elif row["member"] == "Total":
                self.counts(row, [column["responses"] for column in (female, male, total)])
                self.shares(row, [100 * column["responsesPerCase"] for column in (female, male, total)])
            else:
                cells = rows(table)["victim" + row["member"]]
                self.counts(row, [cells[i]["cases"] for i in (1, 2, 0)])
                self.shares(row, [cells[i]["percentOfCases"] for i in (1, 2, 0)])
                test = tests["victim" + row["member"]]
                self.assertEqual(test["degreesOfFreedom"], 1)
                self.same(test["statistic"], row["pearson_chi_square_df1"], row)
                self.same(test["adjustedP"], row["bonferroni_p"], row)
            compared += 1
        self.assertEqual(compared, 7)

    def counts(self, row, found):
        self.assertEqual(found, [int(row[name]) for name in ("female", "male", "total_of_both")], row)

    def shares(self, row, found):
        for share, name in zip(found, ("percent_female", "percent_male", "percent_total"), strict=True):
            self.same(share, row[name], row)

    def test_shares_with_limits(self):
        table = self.table(REASONS)
        places = {(column["by"] or "", column["value"] or ""): i for i, column in enumerate(table["columns"])}
        compared = 0
        for row in published("msna.published"):
            place = places[row["by"], row["by_value"]]
            cell = rows(table)[row["member"]][place]
            self.assertEqual(cell["cases"], int(row["cases"]), row)
            self.assertEqual(table["columns"][place]["cases"]["base"], int(row["base"]), row)
            self.same(cell["percentOfCases"] / 100, row["share"], row)
            self.same(cell["low"] / 100, row["low95"], row)
            self.same(cell["high"] / 100, row["high95"], row)
            compared += 1
        self.assertEqual(compared, 60)


if __name__ == "__main__":
    if not TABLES.is_dir():
        print(f"The surveys with published tables are not at {TABLES} (MRSET_SURVEYS).")
        sys.exit(80)
    unittest.main()
