"""SQL that counts the set of the counted survey by region, in several forms: how fast each is differs by program."""

from counted_survey import MEMBERS

LISTED = ", ".join(MEMBERS)
EITHER = {"duckdb": f"greatest({LISTED}) = 1", "sqlite": " OR ".join(MEMBERS)}


def grouped(figures, table="survey"):
    return f"SELECT region, {', '.join(figures)} FROM {table} GROUP BY region"


def plain(program):
    """Of each region: the cases, those that answered, those asked, and how many chose each member."""
    if program == "duckdb":
        forms = ["count_if({0})", "count(*) FILTER (WHERE {0})", "sum(({0})::INTEGER)", "count(nullif({0}, false))"]
        chosen = "{0} = 1"
    else:
        forms, chosen = ["total({0})", "sum({0})", "count(*) FILTER (WHERE {0})"], "{0}"
    return [grouped(["count(*)", form.format(EITHER[program]), f"count(coalesce({LISTED}))",
                     *(form.format(chosen.format(name)) for name in MEMBERS)]) for form in forms]


def weighted(program):
    """Of each region: the cases, the sums of the weights and of their squares of those that answered, and the same two of
    those that chose each member. Shares and their linearised errors follow from these."""
    forms = ["sum({1}) FILTER (WHERE {0})", "sum(CASE WHEN {0} THEN {1} END)"]
    tables = {"w * w": "survey", "ww": "(SELECT *, w * w AS ww FROM survey)"}

    def query(form, square, table):
        chosen = [EITHER[program], *(f"{name} = 1" for name in MEMBERS)]
        return grouped(["count(*)", *(form.format(cases, what) for cases in chosen for what in ("w", square))], table)

    return [query(form, square, table) for form in forms for square, table in tables.items()]
