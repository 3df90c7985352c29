"""Tables of sets by their definitions: case by case, in exact numbers up to the last step. Slow on purpose; it shares
nothing with the program.

A survey: {"variables": [{"name", "text": bool, "label", "values": [(value, label)]}], "cases": [{name: value}],
"sets": [{"name", "variables", "counted" (None: a category set), "label", "label_of_variable": bool,
"labels_of_values": bool}]}.
A request: {"sets", "by": [(name,) or (name, name)], "weight", "base", "where" (a condition), "where_text", "none",
"nets": [(label, members)], "errors": bool, "sort", "last", "confidence", "test", "min_base"}; what is not there is not
asked for. A member of a dichotomy set is a variable's name, that of a category set a value.
A condition: ("not", c), ("and", [c]), ("or", [c]), (operator, variable, value), ("in", variable, [value]),
("missing", variable), ("has", set, member).
"""
import math
import operator
from fractions import Fraction

from distributions import chi_square_tail, student_quantile

COMPARISONS = {
    "=": operator.eq, "<>": operator.ne, "<": operator.lt, "<=": operator.le, ">": operator.gt, ">=": operator.ge,
}


class NoTable(Exception):
    """The request is an error; says why."""


def clean(value):
    """A cell as it counts: a text has no blanks at its ends, and none is left of a blank one."""
    if isinstance(value, str):
        return value.strip(" ") or None
    return value


def written(value):
    if isinstance(value, str):
        return value
    return str(int(value)) if value == int(value) else repr(float(value))


def ascending(value):
    return value.encode() if isinstance(value, str) else value


class Survey:
    def __init__(self, survey):
        self.variables = {variable["name"]: variable for variable in survey["variables"]}
        self.sets = {one["name"]: one for one in survey["sets"]}
        self.cases = [{name: clean(value) for name, value in case.items()} for case in survey["cases"]]

    def variable(self, name):
        if name not in self.variables:
            raise NoTable(f"no variable {name}")
        return self.variables[name]

    def value_labels(self, name):
        return [(clean(value), label) for value, label in self.variables[name]["values"]]


class Set:
    """A set of the dataset, as one command counts it."""

    def __init__(self, survey, name, none):
        if name not in survey.sets:
            raise NoTable(f"no set {name}")
        self.survey, self.definition = survey, survey.sets[name]
        self.name, self.counted = name, clean(self.definition["counted"])
        self.none = none
        self.found = {}
        self.variables = [one for one in self.definition["variables"] if one in survey.variables]
        if not self.variables:
            raise NoTable(f"no variable of {name} is left")
        if len({survey.variables[one]["text"] for one in self.variables}) > 1:
            raise NoTable(f"the variables of {name} differ in type")

    @property
    def is_category(self):
        return self.counted is None

    def label(self):
        if self.definition["label_of_variable"]:
            labels = [self.survey.variables[one]["label"] for one in self.variables]
        else:
            labels = [self.definition["label"]]
        return next((label for label in labels if label), self.name)

    def values(self, case):
        return [case[one] for one in self.variables if case[one] is not None]

    def chosen(self, case):
        """The members that a case chose."""
        if id(case) not in self.found:
            self.found[id(case)] = self.find_chosen(case)
        return self.found[id(case)]

    def find_chosen(self, case):
        if self.is_category:
            return {value for value in self.values(case) if value != self.none}
        return {one for one in self.variables if case[one] is not None and case[one] == self.counted}

    def is_missing(self, case):
        return not self.values(case)

    def is_complete(self, case):
        return len(self.values(case)) == len(self.variables)

    def state(self, case):
        if self.is_missing(case):
            return "missing"
        return "answered" if self.chosen(case) else "noneChosen"

    def members(self, cases):
        """In their order; those of a category set are the values of these cases."""
        if not self.is_category:
            return self.variables
        occurring = set().union(*(self.chosen(case) for case in cases))
        labelled = [value for one in self.variables for value, _ in self.survey.value_labels(one)]
        return in_order(occurring, labelled)

    def knows_all(self, members):
        """A value is known that has a label, or that any case of the survey holds, whether it counts or not."""
        labelled = {value for one in self.variables for value, _ in self.survey.value_labels(one)} - {self.none}
        known = labelled.union(self.members(self.survey.cases)) if self.is_category else self.variables
        return all(member in known for member in members)

    def member_label(self, member):
        if self.is_category:
            return next((label for one in self.variables for value, label in self.survey.value_labels(one)
                         if value == member and label), written(member))
        if self.definition["labels_of_values"]:
            labels = [label for value, label in self.survey.value_labels(member) if value == self.counted]
        else:
            labels = [self.survey.variables[member]["label"]]
        return next((label for label in labels if label), member)


def in_order(occurring, labelled):
    first = list(dict.fromkeys(value for value in labelled if value in occurring))
    return first + sorted(occurring - set(first), key=ascending)


# Conditions


def check_condition(condition, survey, sets):
    kind = condition[0]
    if kind in ("not", "and", "or"):
        for part in [condition[1]] if kind == "not" else condition[1]:
            check_condition(part, survey, sets)
    elif kind == "has":
        one = sets(condition[1])
        if not one.knows_all([condition[2]]):
            raise NoTable(f"no member {condition[2]}")
    elif kind == "missing":
        survey.variable(condition[1])
    else:
        for value in condition[2] if kind == "in" else [condition[2]]:
            if isinstance(value, str) != survey.variable(condition[1])["text"]:
                raise NoTable(f"{condition[1]} and {value} differ in type")


def holds(condition, survey, sets, case):
    kind = condition[0]
    if kind == "not":
        return not holds(condition[1], survey, sets, case)
    if kind == "and":
        return all(holds(part, survey, sets, case) for part in condition[1])
    if kind == "or":
        return any(holds(part, survey, sets, case) for part in condition[1])
    if kind == "has":
        return condition[2] in sets(condition[1]).chosen(case)
    value = case[survey.variable(condition[1])["name"]]
    if kind == "missing":
        return value is None
    return value is not None and compares(kind, value, condition[2])


def compares(kind, value, other):
    if kind == "in":
        return any(value == clean(one) for one in other)
    return COMPARISONS[kind](ascending(value), ascending(other.strip(" ") if isinstance(other, str) else other))


# Columns: dictionaries of by, value, label and the cases in them


class Column:
    def __init__(self, by, value, label, cases):
        self.by, self.value, self.label, self.cases = by, value, label, cases


class By:
    """Columns of a variable, a pair or a set; `asked` are the cases that are not missing in it."""

    def __init__(self, survey, sets, names, cases):
        self.name = "*".join(names)
        self.of_set = names[0].startswith("$")
        if self.of_set:
            self._of_set(sets(names[0]), cases)
        else:
            self._of_variables(survey, [survey.variable(name)["name"] for name in names], cases)

    def _of_set(self, one, cases):
        self.asked = [case for case in cases if not one.is_missing(case)]
        self.columns = [
            Column(self.name, written(member), one.member_label(member),
                   [case for case in cases if member in one.chosen(case)])
            for member in one.members(cases)]

    def _of_variables(self, survey, names, cases):
        self.asked = [case for case in cases if all(case[name] is not None for name in names)]
        orders, labels = [], []
        for name in names:
            orders.append(in_order({case[name] for case in self.asked}, [v for v, _ in survey.value_labels(name)]))
            labels.append({value: label for value, label in reversed(survey.value_labels(name)) if label})
        keys = [(value,) for value in orders[0]]
        for order in orders[1:]:
            keys = [key + (value,) for key in keys for value in order]
        self.columns = []
        for key in keys:
            inside = [case for case in self.asked if tuple(case[name] for name in names) == key]
            if inside:
                texts = [written(value) for value in key]
                label = ", ".join(labels[i].get(value, texts[i]) for i, value in enumerate(key))
                self.columns.append(Column(self.name, texts if len(texts) > 1 else texts[0], label, inside))


# A table


def tabulate(survey, request):
    """The tables of the request, one for each set, as the objects of JSON without their notes."""
    survey = Survey(survey)
    none = clean(request.get("none"))
    sets = {}

    def set_of(name):
        if name not in sets:
            sets[name] = Set(survey, name, none)
        return sets[name]

    counted = [set_of(name) for name in request["sets"]]
    if none is not None and not any(set_of(name).is_category for name in sets_of_command(request)):
        raise NoTable("no set to which NONE could apply")
    weights = Weights(survey, request.get("weight"))
    valid = [case for case in survey.cases if weights.of(case)]
    where = request.get("where")
    if where is not None:
        check_condition(where, survey, set_of)
    cases = [case for case in valid if where is None or holds(where, survey, set_of, case)]
    check_by(request)
    bys = [By(survey, set_of, names, cases) for names in request.get("by", [])]
    check_members(request, counted)
    return [table(request, one, cases, bys, weights, len(valid)) for one in counted]


def sets_of_command(request):
    by = [names[0] for names in request.get("by", []) if names[0].startswith("$")]
    return list(request["sets"]) + by + sets_of_condition(request.get("where"))


def sets_of_condition(condition):
    kind = condition[0] if condition else None
    if kind == "has":
        return [condition[1]]
    parts = [condition[1]] if kind == "not" else condition[1] if kind in ("and", "or") else []
    return [name for part in parts for name in sets_of_condition(part)]


def check_by(request):
    by = request.get("by", [])
    if len(set(by)) < len(by):
        raise NoTable("a BY is listed twice")
    if request.get("test") and not by:
        raise NoTable("a test without a BY")


def check_members(request, counted):
    for _, net in request.get("nets", []):
        if not any(one.knows_all(net) for one in counted):
            raise NoTable(f"unknown member among {net}")
    for member in request.get("last", []):
        if not any(one.knows_all([member]) for one in counted):
            raise NoTable(f"unknown member {member}")


class Weights:
    """Of cases, as whole numbers of a common unit; 0 for a case that does not count."""

    def __init__(self, survey, name):
        self.name, self.unit = name, 1
        if name is not None:
            if survey.variable(name)["text"]:
                raise NoTable("a weight that is text")
            values = [Fraction(case[name]) for case in survey.cases if case[name] is not None]
            self.unit = math.lcm(*(value.denominator for value in values)) if values else 1
        self.weights = {id(case): self.whole(case) for case in survey.cases}

    def whole(self, case):
        return 1 if self.name is None else max(0, int(Fraction(case[self.name] or 0) * self.unit))

    def of(self, case):
        return self.weights[id(case)]

    def sum(self, cases):
        return sum(map(self.of, cases))

    def number(self, whole):
        return float(Fraction(whole, self.unit))


def ratio(numerator, denominator):
    return None if denominator == 0 else float(Fraction(numerator) / denominator)


def in_base(base, one, case):
    state = one.state(case)
    return {"answered": state == "answered", "asked": state != "missing", "complete": one.is_complete(case),
            "all": True}[base]


def table(request, one, cases, bys, weights, valid_cases):
    base = request.get("base", "answered")
    members = one.members(cases)
    columns = [Column(None, None, "Total", cases)] + [column for by in bys for column in by.columns]
    figures = [ColumnFigures(request, one, column, members, weights, valid_cases) for column in columns]
    nets = [(label, there) for label, net in request.get("nets", [])
            if (there := [member for member in net if one.knows_all([member])])]
    found = {
        "kind": "tabulation", "set": one.name, "label": one.label(), "base": base,
        "weight": request.get("weight"), "where": request.get("where_text"),
        "columns": [column.object() for column in figures],
        "rows": [{"member": written(member), "label": one.member_label(member), "net": False,
                  "cells": [column.cell([member], False) for column in figures]}
                 for member in arranged(request, members, figures[0])] +
                [{"member": label, "label": label, "net": True,
                  "cells": [column.cell(net, True) for column in figures]} for label, net in nets],
    }
    if request.get("test"):
        inside = [case for case in cases if in_base(base, one, case)]
        shown = arranged(request, members, figures[0])
        tests = [association(request, one, shown, inside, by, weights) for by in bys]
        found["tests"] = [test for test in tests if test]
    return found


def arranged(request, members, total):
    direction = {"descending": -1, "ascending": 1}.get(request.get("sort"), 0)
    by_count = sorted(members, key=lambda member: direction * float(f"{total.count([member]):.12g}"))
    last = [member for member in request.get("last", []) if member in members]
    return [member for member in by_count if member not in last] + last


class ColumnFigures:
    def __init__(self, request, one, column, members, weights, valid_cases):
        self.request, self.set, self.column, self.weights, self.valid_cases = request, one, column, weights, valid_cases
        self.base = [case for case in column.cases if in_base(request.get("base", "answered"), one, case)]
        self.weight = weights.sum(self.base)
        self.responses = sum(self.count([member]) for member in members)

    def choosers(self, members):
        return [case for case in self.base if any(member in self.set.chosen(case) for member in members)]

    def count(self, members):
        return self.weights.sum(self.choosers(members))

    def object(self):
        states = [self.set.state(case) for case in self.column.cases]
        squares = sum(self.weights.of(case)**2 for case in self.base)
        return {
            "by": self.column.by, "value": self.column.value, "label": self.column.label,
            "cases": {"all": len(states), "answered": states.count("answered"),
                      "noneChosen": states.count("noneChosen"), "missing": states.count("missing"),
                      "base": len(self.base)},
            "weightedBase": self.weights.number(self.weight), "effectiveBase": ratio(self.weight**2, squares),
            "responses": self.weights.number(self.responses),
            "responsesPerCase": ratio(self.responses, self.weight)}

    def cell(self, members, is_net):
        count = self.count(members)
        shown = len(self.base) >= self.request.get("min_base", 0)
        found = {"cases": len(self.choosers(members)), "count": self.weights.number(count),
                 "percentOfCases": ratio(100 * count, self.weight) if shown else None,
                 "percentOfResponses": ratio(100 * count, self.responses) if shown and not is_net else None}
        if self.request.get("errors"):
            found.update(self.errors(members, count, shown))
        return found

    def errors(self, members, count, shown):
        none = {"standardError": None, "low": None, "high": None, "designEffect": None}
        if not shown or not self.base or self.valid_cases < 2:
            return none
        share = Fraction(count, self.weight)
        variance = self.variance(members, share)
        simple = share * (1 - share) / (len(self.base) - 1) if len(self.base) > 1 else 0
        error = math.sqrt(variance)
        width = error * student_quantile(self.request.get("confidence", 95) / 100, self.valid_cases - 1)
        return {"standardError": 100 * error, "low": 100 * (float(share) - width), "high": 100 * (float(share) + width),
                "designEffect": ratio(variance, simple)}

    def variance(self, members, share):
        """N / (N - 1) times the sum of (z - mean z)^2 over all cases with a valid weight: z is 0 outside the base."""
        choosers = {id(case) for case in self.choosers(members)}
        n, count = self.valid_cases, share * self.weight
        whole = [int(self.weights.of(case) * (self.weight * (id(case) in choosers) - count)) for case in self.base]
        squares = sum(z * z for z in whole) - Fraction(sum(whole)**2, n)  # z times the squared sum of weights
        return Fraction(n, n - 1) * squares / self.weight**4


# Tests of association


class Margins:
    """Shares of categories and members among the cases of a test, and the nominal and estimated variances of the
    differences from independence."""

    def __init__(self, of_set, cases, inside, chosen, weights):
        self.of_set, self.weights, self.cases = of_set, weights, cases
        self.total = weights.sum(cases)
        self.inside, self.chosen = inside, chosen  # for each category or member: whether each case is in it

    def sum(self, *indicators):
        return sum(self.weights.of(case) for i, case in enumerate(self.cases) if all(one[i] for one in indicators))

    def share(self, indicator):
        return Fraction(self.sum(indicator), self.total)

    def difference(self, c, j):
        c, j = self.inside[c], self.chosen[j]
        return Fraction(self.sum(c, j), self.total) - self.share(c) * self.share(j)

    def nominal(self, c, j):
        q, p = self.share(self.inside[c]), self.share(self.chosen[j])
        return q * p * (1 - p) * (1 - q if self.of_set else 1)

    def residuals(self, c, j):
        """For each case w u, u = (1_c - q_c) (x_j - p_j) - T_cj, times the squared sum of weights: whole numbers."""
        in_c, of_j, total = self.inside[c], self.chosen[j], self.total
        q, p = self.sum(in_c), self.sum(of_j)
        t = total * self.sum(in_c, of_j) - q * p
        return [self.weights.of(case) * ((total * in_c[i] - q) * (total * of_j[i] - p) - t)
                for i, case in enumerate(self.cases)]

    def covariance(self, residuals, others):
        return Fraction(len(self.cases) * sum(map(operator.mul, residuals, others)), self.total**6)

    def is_free(self, indicator):
        return any(indicator) and not all(indicator)


def association(request, one, members, cases, by, weights):
    asked = {id(case) for case in by.asked}
    cases = [case for case in cases if id(case) in asked]
    sets_of_cases = [{id(case) for case in column.cases} for column in by.columns]
    inside = [[id(case) in column for case in cases] for column in sets_of_cases]
    chosen = [[member in one.chosen(case) for case in cases] for member in members]
    if len(cases) < 2 or not varies(inside) or not varies(chosen):
        return None
    margins = Margins(by.of_set, cases, inside, chosen, weights)
    pairs = pairs_of_sets(margins, members, by) if by.of_set else members_by_categories(margins, members)
    adjust([row for row, _ in pairs], request["test"])
    return {"by": by.name, **whole_set(margins, pairs), "members": [row for row, _ in pairs]}


def varies(indicators):
    """Whether any of the categories or members has some of the cases, but not all of them."""
    return any(any(one) and not all(one) for one in indicators)


def members_by_categories(margins, members):
    """Rows of a variable's test, each with the (category, member) pairs that take part."""
    categories = [c for c, indicator in enumerate(margins.inside) if margins.is_free(indicator)]
    rows = []
    for j, member in enumerate(members):
        taking_part = [(c, j) for c in categories] if margins.is_free(margins.chosen[j]) else []
        rows.append((test_row({"member": written(member)}, margins, taking_part, len(categories) - 1), taking_part))
    return rows


def pairs_of_sets(margins, members, by):
    rows = []
    for j, member in enumerate(members):
        for c, column in enumerate(by.columns):
            is_free = margins.is_free(margins.chosen[j]) and margins.is_free(margins.inside[c])
            taking_part = [(c, j)] if is_free else []
            names = {"member": written(member), "byMember": column.value}
            rows.append((test_row(names, margins, taking_part, 1), taking_part))
    return rows


def test_row(names, margins, taking_part, degrees):
    statistic = p = None
    if taking_part:
        statistic = float(chi_square(margins, taking_part))
        p = chi_square_tail(statistic, degrees)
    return {**names, "statistic": statistic, "degreesOfFreedom": degrees, "p": p, "adjustedP": None}


def chi_square(margins, pairs):
    return len(margins.cases) * sum(margins.difference(c, j)**2 / margins.nominal(c, j) for c, j in pairs)


# Weights such as 0.1 are not what they are written as, so that what is nothing comes out a little more.
LEAST_SQUARES = Fraction(1, 10**15)


def whole_set(margins, rows):
    pairs = [pair for _, taking_part in rows for pair in taking_part]
    found = {"statistic": None, "corrected": None, "degreesOfFreedom": None, "p": None}
    if not pairs:
        return found
    found["statistic"] = float(chi_square(margins, pairs))
    k = sum(row["degreesOfFreedom"] for row, taking_part in rows if taking_part)
    q = sum_of_squared_eigenvalues(margins, pairs)
    if q > LEAST_SQUARES:
        found["corrected"] = float(k * chi_square(margins, pairs) / q)
        found["degreesOfFreedom"] = float(k * k / q)
        found["p"] = chi_square_tail(found["corrected"], found["degreesOfFreedom"])
    return found


def sum_of_squared_eigenvalues(margins, pairs):
    """Of D^-1 V: the trace of its square."""
    nominal = [margins.nominal(c, j) for c, j in pairs]
    residuals = [margins.residuals(c, j) for c, j in pairs]
    total = Fraction(0)
    for a in range(len(pairs)):
        for b in range(a + 1):
            square = margins.covariance(residuals[a], residuals[b])**2 / (nominal[a] * nominal[b])
            total += square if a == b else 2 * square
    return total


def adjust(rows, way):
    tested = sorted((row for row in rows if row["p"] is not None), key=lambda row: row["p"])
    highest = 0.0
    for i, row in enumerate(tested):
        factor = len(tested) if way == "bonferroni" else len(tested) - i
        highest = max(highest, factor * row["p"]) if way != "bonferroni" else factor * row["p"]
        row["adjustedP"] = min(1.0, highest)
