"""What the program is killed in. One row of SCENARIOS joins all suites."""

from dataclasses import dataclass, field
from typing import Callable, Optional

DATASET = "s.mrset"
SURVEY = "survey.csv"
WAVE_2 = "wave2.csv"
OTHER = "other.mrset"  # a second dataset, of the scenarios that need one
SCRIPT = "commands.script"
OUTPUT = "results.json"

FILES = {
    SURVEY: "q1,q2,q3,n1,t1,t2\n1,0,1,7,red,blue\n0,1,0,8,,green\n",
    WAVE_2: "q1,q2,q4,t1,t2\n" + "".join(f"1,0,1,{'red' * 20}{row},blue\n" for row in range(150)),
    OUTPUT: "what stood there before\n",
}

# As killed programs leave it, of an earlier state of the dataset or anything else.
TEMPORARY_LEFT = {
    ".mrset-0000abcd.tmp": b"SQLite format 3\0 cut off",
    ".mrset-0000abcd.tmp-journal": b"\xd9\xd5\x05\xf9\x20\xa1\x63\xd7" + b"\0\0\0\x01" * 4000,
    ".mrset-12345678.tmp": b"",
    ".mrset-deadbeef.tmp-journal": b"of a file that is gone",
}

DEFINE = "MRSET /MDGROUP NAME=${name} LABEL='{name}' VARIABLES=q1 TO q3 VALUE=1."


def define(*names: str) -> str:
    """One command that defines sets."""
    return "MRSET" + "".join(f" /MCGROUP NAME=${name} VARIABLES=t1 t2" for name in names) + "."


def many_sets() -> str:
    return define(*(f"many{number:02}" for number in range(40)))


IMPORT = ["import", SURVEY, DATASET]
IMPORT_OTHER = ["import", SURVEY, OTHER]


@dataclass(frozen=True)
class Scenario:
    """A run of the program on a dataset that `prepare` leaves; it must take at least `least` operations on files."""

    name: str
    least: int
    arguments: list[str]
    prepare: list[list[str]] = field(default_factory=lambda: [IMPORT])
    script: Optional[list[str]] = None  # the commands of arguments that hold SCRIPT
    outputs: tuple[str, ...] = ()  # files that are complete or as before
    order_alone: bool = False  # what it saves is the order of the sets, which need not be kept
    without_flags: bool = False  # on a file system that cannot rename without replacing, so that links must do


def script(name: str, least: int, commands: list[str], **others) -> Scenario:
    return Scenario(name, least, ["run", DATASET, SCRIPT, "--format", "json"], script=commands, **others)


def run(command: str, dataset: str = DATASET) -> list[str]:
    return ["run", dataset, "-c", command]


SCENARIOS = [
    Scenario("import", 24, IMPORT, prepare=[]),
    Scenario("replace", 48, ["import", "--replace", WAVE_2, DATASET], prepare=[IMPORT, run(define("kept"))]),
    script("define into empty", 30, [define("first")]),
    script("define among many", 30, [define("another")], prepare=[IMPORT, run(many_sets())]),
    script("redefine", 30, [DEFINE.format(name="again")], prepare=[IMPORT, run(define("other", "again"))]),
    script("delete", 30, ["MRSET /DELETE NAME=[$gone]."], prepare=[IMPORT, run(define("gone", "stays"))]),
    script("delete all", 30, ["MRSET /DELETE NAME=ALL."], prepare=[IMPORT, run(many_sets())]),
    script(
        "display that sorts",
        18,
        ["MRSET /DISPLAY NAME=ALL."],
        prepare=[IMPORT, run(define("z", "y", "x"))],
        order_alone=True,
    ),
    script(
        "script",
        90,
        [define("one"), DEFINE.format(name="two"), "MRSET /DISPLAY NAME=ALL.", "MRSET /DELETE NAME=[$one]."],
    ),
    Scenario(
        "output",
        34,
        ["run", DATASET, SCRIPT, "--format", "json", "--output", OUTPUT],
        script=[define("one"), "MRSET /DISPLAY NAME=ALL."],
        outputs=(OUTPUT,),
    ),
    Scenario(
        "copy",
        30,
        ["copy", OTHER, DATASET],
        prepare=[IMPORT, run(define("kept")), IMPORT_OTHER, run(define("copied", "too"), OTHER)],
    ),
    Scenario("undo", 30, ["undo", DATASET], prepare=[IMPORT, run(define("kept")), run(define("undone"))]),
]

# Runs that only read. No operation on a file changes anything, so that there is nothing to kill them at.
WITH_SETS = [IMPORT, run(define("one", "two")), run(DEFINE.format(name="three"))]
READERS = [
    Scenario("sets", 0, ["sets", DATASET], prepare=WITH_SETS),
    Scenario("variables", 0, ["variables", DATASET, "--format", "json"], prepare=WITH_SETS),
    Scenario("log", 0, ["log", DATASET], prepare=WITH_SETS),
    Scenario("check", 0, ["check", DATASET], prepare=WITH_SETS),
    Scenario("script of sets", 0, ["script", DATASET], prepare=WITH_SETS),
    Scenario("diff", 0, ["diff", OTHER, DATASET], prepare=[*WITH_SETS, IMPORT_OTHER, ["copy", DATASET, OTHER]]),
    script("display", 0, ["MRSET /DISPLAY NAME=ALL."], prepare=[IMPORT, run(define("one"))]),
]

# Commands that come one by one, from standard input: those of SCRIPT.
SHELL = Scenario("shell", 30, ["shell", DATASET], script=[define("first")])

WITHOUT_FLAGS = Scenario("import by links", 24, IMPORT, prepare=[], without_flags=True)

# Of each, so that a suite that has shrunk fails: how many faults its calls can meet.
LEAST_FAULTS = {
    "import": 240,
    "replace": 670,
    "define into empty": 420,
    "define among many": 420,
    "redefine": 420,
    "delete": 410,
    "delete all": 410,
    "display that sorts": 380,
    "script": 1010,
    "output": 530,
    "copy": 470,
    "undo": 330,
    "shell": 420,
    "import by links": 240,
    "sets": 100,
    "variables": 100,
    "log": 150,
    "check": 130,
    "script of sets": 120,
    "diff": 210,
    "display": 200,
}
