#!/usr/bin/env python3
"""What the reference is made of: distributions against closed forms, the squared eigenvalues against an eigenvalue
routine, and a table small enough to be counted by hand."""
import math
import random
import unittest
from fractions import Fraction

from distributions import chi_square_tail, student_quantile
from reference import Margins, NoTable, sum_of_squared_eigenvalues, tabulate


class Ones:
    """Weights of a random test: those of the cases themselves."""

    def of(self, case):
        return case

    def sum(self, cases):
        return sum(cases)


def eigenvalues(matrix):
    """Of a symmetric matrix, by Jacobi's rotations."""
    matrix, size = [list(row) for row in matrix], len(matrix)
    for _ in range(100):
        for i in range(size):
            for j in range(i):
                rotate(matrix, j, i)
    return [matrix[i][i] for i in range(size)]


def rotate(matrix, i, j):
    if matrix[i][j] == 0:
        return
    angle = math.atan2(2 * matrix[i][j], matrix[i][i] - matrix[j][j]) / 2
    sine, cosine = math.sin(angle), math.cos(angle)
    for row in matrix:
        row[i], row[j] = cosine * row[i] + sine * row[j], cosine * row[j] - sine * row[i]
    matrix[i], matrix[j] = (
        [cosine * a + sine * b for a, b in zip(matrix[i], matrix[j])],
        [cosine * b - sine * a for a, b in zip(matrix[i], matrix[j])])


def solved(lower, columns):
    """Of lower x = columns, x: forward substitution."""
    rows = []
    for i, row in enumerate(columns):
        rest = [value - sum(lower[i][k] * rows[k][c] for k in range(i)) for c, value in enumerate(row)]
        rows.append([value / lower[i][i] for value in rest])
    return rows


def cholesky(matrix):
    lower = [[0.0] * len(matrix) for _ in matrix]
    for i, row in enumerate(matrix):
        for j in range(i + 1):
            rest = row[j] - sum(lower[i][k] * lower[j][k] for k in range(j))
            lower[i][j] = math.sqrt(rest) if i == j else rest / lower[j][j]
    return lower


def random_margins(dice, of_set):
    while True:
        cases = [dice.randint(1, 4) for _ in range(25)]
        chosen = [[dice.random() < 0.5 for _ in cases] for _ in range(3)]
        categories = [dice.randrange(3) for _ in cases]
        inside = ([[dice.random() < 0.5 for _ in cases] for _ in range(2)] if of_set
                  else [[category == c for category in categories] for c in range(3)])
        margins = Margins(of_set, cases, inside, chosen, Ones())
        if all(map(margins.is_free, inside + chosen)):
            return margins


def covariances(margins, pairs):
    residuals = [margins.residuals(*pair) for pair in pairs]
    return [[float(margins.covariance(a, b)) for b in residuals] for a in residuals]


class Distributions(unittest.TestCase):
    def test_the_tail_of_chi_square_is_that_of_the_closed_forms(self):
        for x in (1e-6, 0.01, 0.5, 1, 2.9, 3.1, 10, 40, 200):
            self.same(chi_square_tail(x, 2), math.exp(-x / 2))
            self.same(chi_square_tail(x, 1), math.erfc(math.sqrt(x / 2)))
            self.same(chi_square_tail(x, 6), math.exp(-x / 2) * (1 + x / 2 + x * x / 8))

    def test_degrees_of_freedom_that_are_no_whole_number_follow_the_recurrence(self):
        for degrees in (0.3, 1.7, 2.5, 11.25, 60.5):
            for x in (0.05, 1, 4, 12, 75):
                step = math.exp(degrees / 2 * math.log(x / 2) - x / 2 - math.lgamma(degrees / 2 + 1))
                self.same(chi_square_tail(x, degrees + 2), chi_square_tail(x, degrees) + step)

    def test_quantiles_of_student_are_those_of_the_closed_forms(self):
        for central in (0.5, 0.9, 0.95, 0.999):
            self.same(student_quantile(central, 1), math.tan(math.pi / 2 * central))
            self.same(student_quantile(central, 2), central * math.sqrt(2 / (1 - central**2)))

    def test_quantiles_of_student_are_those_of_the_integral(self):
        for degrees in (3, 4, 9, 30, 99, 971):
            t = student_quantile(0.95, degrees)
            scale = math.exp(math.lgamma((degrees + 1) / 2) - math.lgamma(degrees / 2)) / math.sqrt(degrees * math.pi)
            steps = 20000
            heights = [scale * (1 + (t * i / steps)**2 / degrees)**(-(degrees + 1) / 2) for i in range(steps + 1)]
            area = t / steps / 3 * (heights[0] + heights[-1] + 4 * sum(heights[1::2]) + 2 * sum(heights[2:-1:2]))
            self.same(2 * area, 0.95)

    def same(self, found, expected):
        self.assertLess(abs(found - expected), 1e-12 * max(abs(expected), 1e-3), (found, expected))


class Eigenvalues(unittest.TestCase):
    def test_their_squares_are_those_of_an_eigenvalue_routine(self):
        dice = random.Random(20)
        for of_set in (False, True) * 5:
            margins = random_margins(dice, of_set)
            pairs = [(c, j) for c in range(len(margins.inside)) for j in range(3)]
            nominal = [float(margins.nominal(*pair)) for pair in pairs]
            scaled = [[value / math.sqrt(nominal[a] * nominal[b]) for b, value in enumerate(row)]
                      for a, row in enumerate(covariances(margins, pairs))]
            self.same(margins, pairs, eigenvalues(scaled))

    def test_all_categories_give_those_of_all_but_one_with_their_nominal_covariance(self):
        dice = random.Random(21)
        for _ in range(5):
            margins = random_margins(dice, of_set=False)
            pairs = [(c, j) for c in range(2) for j in range(3)]
            q = [float(margins.share(one)) for one in margins.inside]
            p = [float(margins.share(one)) for one in margins.chosen]
            nominal = [[((q[c] if c == d else 0) - q[c] * q[d]) * (p[j] * (1 - p[j]) if j == k else 0)
                        for d, k in pairs] for c, j in pairs]
            lower = cholesky(nominal)
            half = solved(lower, covariances(margins, pairs))
            both = solved(lower, [list(row) for row in zip(*half)])
            self.same(margins, [(c, j) for c in range(3) for j in range(3)], eigenvalues(both))

    def same(self, margins, pairs, values):
        expected = sum(value * value for value in values)
        self.assertAlmostEqual(float(sum_of_squared_eigenvalues(margins, pairs)) / expected, 1, delta=1e-9)


def variable(name, label=None, values=(), text=False):
    return {"name": name, "label": label, "values": list(values), "text": text}


SURVEY = {
    "variables": [variable("tea", "Tea"), variable("milk"), variable("region", None, [("S", "South")], text=True),
                  variable("w")],
    "sets": [{"name": "$drinks", "variables": ["tea", "gone", "milk"], "counted": 1, "label": "",
              "label_of_variable": False, "labels_of_values": False},
             {"name": "$gone", "variables": ["gone"], "counted": None, "label": "",
              "label_of_variable": False, "labels_of_values": False}],
    "cases": [dict(zip(("tea", "milk", "region", "w"), case)) for case in (
        (1, 1, "N", 2), (1, 0, " S", 1), (0, 0, "S ", 1), (None, 1, "  ", 0.5), (None, None, "N", 3), (1, 1, "N", 0))],
}


class SmallTable(unittest.TestCase):
    def test_is_what_a_hand_counts(self):
        (table,) = tabulate(SURVEY, {"sets": ["$drinks"], "by": [("region",)], "weight": "w", "errors": True,
                                     "nets": [("Any", ["tea", "milk"])]})
        total, south, north = table["columns"]
        self.assertEqual(total["cases"], {"all": 5, "answered": 3, "noneChosen": 1, "missing": 1, "base": 3})
        self.assertEqual((total["weightedBase"], total["responses"], total["effectiveBase"]),
                         (3.5, 5.5, 3.5**2 / 5.25))
        self.assertEqual((south["value"], south["label"], south["cases"]["all"]), ("S", "South", 2))
        self.assertEqual(north["label"], "N")
        tea, milk, net = table["rows"]
        self.assertEqual((tea["label"], milk["label"], net["net"]), ("Tea", "milk", True))
        cell = tea["cells"][0]
        self.assertEqual((cell["cases"], cell["count"], cell["percentOfCases"]), (2, 3.0, 300 / 3.5))
        share = Fraction(6, 7)
        variance = Fraction(5, 4) * ((4 + 1) * (1 - share)**2 + Fraction(1, 4) * share**2) / Fraction(7, 2)**2
        self.assertAlmostEqual(cell["standardError"], 100 * math.sqrt(variance), delta=1e-12)
        self.assertAlmostEqual(cell["high"] - cell["low"], 2 * 100 * math.sqrt(variance) * 2.7764451051977987,
                               delta=1e-9)
        self.assertEqual((net["cells"][0]["percentOfCases"], net["cells"][0]["percentOfResponses"]), (100.0, None))

    def test_what_is_not_there_is_an_error(self):
        for request in ({"sets": ["$gone"]}, {"sets": ["$drinks"], "by": [("nowhere",)]},
                        {"sets": ["$drinks"], "weight": "region"}, {"sets": ["$drinks"], "none": 3},
                        {"sets": ["$drinks"], "last": ["gone"]}, {"sets": ["$drinks"], "where": ("=", "tea", "1")}):
            with self.assertRaises(NoTable, msg=request):
                tabulate(SURVEY, request)


if __name__ == "__main__":
    unittest.main()
