"""The completions of bash and zsh, and that they offer what the help lists.

MRSET_PROGRAM names the program. Bash is asked for its replies; both are typed into on a terminal.
"""

import os
import re
import subprocess
import sys
import tempfile
import unittest

from help_text import PROGRAM, ROOT, choices, options, subcommands

sys.path.insert(0, os.path.join(ROOT, "tests", "shell"))
from terminal import TAB, Terminal, ctrl  # noqa: E402

FOLDER = os.path.join(ROOT, "completions")
BASH_SCRIPT = os.path.join(FOLDER, "mrset.bash")
TOPICS = ["DELETE", "DISPLAY", "MCGROUP", "MDGROUP", "MRSET", "TABULATE"]
SETS = ["$drinks", "$größe", "$Drivers"]

ASK = """source "$1"; COMP_LINE=$2; COMP_POINT=${#COMP_LINE}; shift 2
COMP_WORDS=("$@"); COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
_mrset mrset "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
[ ${#COMPREPLY[@]} -eq 0 ] || printf '%s\\n' "${COMPREPLY[@]}"
"""


class CompletionTest(unittest.TestCase):
    """A folder with the dataset s.mrset, which has three sets, and other files."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="mrset-completion-")
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.environment = dict(os.environ, HOME=self.folder, LC_ALL="C.UTF-8", NO_COLOR="1",
                                PATH=os.path.dirname(PROGRAM) + ":" + os.environ["PATH"])
        for name in ("a.csv", "b.json", "c.script", "notes.txt"):
            with open(self.path(name), "w", encoding="utf-8") as file:
                file.write("q1,q2\n1,0\n")
        for name in ("folder", "my surveys"):
            os.mkdir(self.path(name))
        self.run_program("import", "a.csv", "s.mrset")
        self.run_program("import", "a.csv", "my surveys/t.mrset")
        for name in SETS:
            self.run_program("run", "s.mrset", "-c", f"MRSET /MCGROUP NAME={name} LABEL='{{\"name\":\"$x\"' VARIABLES=q1 q2")

    def path(self, name):
        return os.path.join(self.folder, name)

    def run_program(self, *arguments):
        subprocess.run([PROGRAM, *arguments], env=self.environment, cwd=self.folder, check=True, capture_output=True)


class Bash(CompletionTest):
    def replies(self, line):
        """What is offered after a line without quoted blanks."""
        words = re.findall(r"[=:@]+|[^\s=:@]+", line) + ([""] if line.endswith(" ") else [])
        result = subprocess.run(["bash", "--norc", "-c", ASK, "bash", BASH_SCRIPT, line, *words], env=self.environment,
                                cwd=self.folder, check=True, capture_output=True, text=True, encoding="utf-8")
        self.assertEqual(result.stderr, "")
        return sorted(set(result.stdout.splitlines()))

    def test_subcommands(self):
        self.assertEqual(self.replies("mrset "), sorted([*subcommands(), "help"]))
        self.assertEqual(self.replies("mrset s"), ["script", "sets", "shell"])
        self.assertEqual(self.replies("mrset nonsense "), [])
        self.assertEqual(self.replies("mrset help "), sorted([*subcommands(), *TOPICS]))
        self.assertEqual(self.replies("mrset help MD"), ["MDGROUP"])
        self.assertEqual(self.replies("mrset help run "), [])
        self.assertEqual(self.replies("mrset help -"), [])

    def test_options(self):
        self.assertEqual(set(self.replies("mrset -")), options())
        for subcommand in subcommands():
            self.assertEqual(set(self.replies(f"mrset {subcommand} -")), options(subcommand), subcommand)
        self.assertEqual(self.replies("mrset run s.mrset --dr"), ["--dry-run"])

    def test_values_of_options(self):
        for subcommand in subcommands():
            for option in options(subcommand) & {"--format", "--color"}:
                values = choices(subcommand, option)
                self.assertEqual(set(self.replies(f"mrset {subcommand} {option} ")), values)
                self.assertEqual(set(self.replies(f"mrset {subcommand} {option}=")), values)
        self.assertEqual(self.replies("mrset run --format=j"), ["json"])
        self.assertEqual(self.replies("mrset run --format m"), ["markdown"])
        self.assertEqual(self.replies("mrset tabulate --base c"), ["complete"])
        for option in ("-c", "--command", "--lock-timeout"):
            self.assertEqual(self.replies(f"mrset run s.mrset {option} "), [])
        self.assertEqual(self.replies("mrset undo s.mrset --to "), [])

    def test_files_by_kind(self):
        folders = ["folder", "my surveys"]
        everything = sorted(os.listdir(self.folder))
        for line, files in (("import ", ["a.csv"]), ("import a.csv ", ["s.mrset"]), ("import --schema ", ["b.json"]),
                            ("import --schema=", ["b.json"]), ("import --schema b.json ", ["a.csv"]),
                            ("import --replace ", ["a.csv"]), ("run s.mrset ", ["c.script"]),
                            ("run -c x ", ["s.mrset"]), ("run --format json s.mrset ", ["c.script"]),
                            ("run --format=json s.mrset ", ["c.script"]), ("diff ", ["s.mrset"]),
                            ("diff s.mrset@0 ", ["s.mrset"]), ("copy s.mrset ", ["s.mrset"]),
                            ("copy 2waves.mrset ", ["s.mrset"]), ("copy wave2 ", ["s.mrset"])):
            self.assertEqual(self.replies(f"mrset {line}"), sorted(files + folders), line)
        for subcommand in set(subcommands()) - {"import"}:
            self.assertEqual(self.replies(f"mrset {subcommand} "), ["folder", "my surveys", "s.mrset"], subcommand)
        for line in ("run s.mrset c.script ", "sets s.mrset ", "diff s.mrset s.mrset "):
            self.assertEqual(self.replies(f"mrset {line}"), [], line)
        self.assertEqual(self.replies("mrset run s.mrset --output "), everything)
        self.assertEqual(self.replies("mrset sets no"), ["notes.txt"])
        self.assertEqual(self.replies("mrset sets s"), ["s.mrset"])

    def test_names_of_sets(self):
        everything = ["'$Drivers'", "'$drinks'", "'$größe'"]
        for line in ("script s.mrset ", "script s.mrset $", "script s.mrset@3 ", "script --output x s.mrset \\$",
                     "copy s.mrset t.mrset ", "copy --dry-run s.mrset t.mrset "):
            self.assertEqual(self.replies(f"mrset {line}"), everything, line)
        self.assertEqual(self.replies("mrset script s.mrset $GR"), ["'$größe'"])
        self.assertEqual(self.replies("mrset script s.mrset '$DRI"), ["$Drivers", "$drinks"])
        self.assertEqual(self.replies('mrset script s.mrset "$dri'), ["\\$Drivers", "\\$drinks"])
        self.assertEqual(self.replies('mrset script s.mrset "\\$drin'), ["\\$drinks"])
        self.assertEqual(self.replies("mrset script s.mrset '$drinks' $d"), ["'$Drivers'"])
        self.assertEqual(self.replies("mrset script none.mrset "), [])
        self.assertEqual(self.replies("mrset script notes.txt "), [])


class TerminalTest(CompletionTest):
    """A shell on a terminal, at its prompt."""

    PROMPT = "> "
    COLUMNS, ROWS = 100, 40

    def shell(self, arguments, preparations):
        os.chdir(self.folder)
        self.terminal = Terminal(arguments, dict(self.environment, PS1=self.PROMPT), self.COLUMNS, self.ROWS)
        self.addCleanup(os.chdir, ROOT)
        self.addCleanup(self.terminal.close)
        for line in preparations:
            self.terminal.wait(self.is_at_prompt)
            self.terminal.enter(line)
        self.terminal.wait(self.is_at_prompt)
        self.clear()

    def is_at_prompt(self):
        return self.terminal.cursor_line() == (self.PROMPT, "")

    def assert_completes(self, typed, completed):
        self.terminal.type(typed + TAB)
        self.terminal.wait_for_input(self.PROMPT + completed)
        self.give_up()

    def listed(self, typed, pattern):
        """What is listed below a line, as soon as there is something."""
        self.terminal.type(typed + TAB + TAB)
        self.terminal.wait(lambda: self.list_is_complete(typed, pattern))
        found = set(re.findall(pattern, self.list_text(typed)))
        self.give_up()
        return found

    def give_up(self):
        self.terminal.type(ctrl("u"))
        self.terminal.wait(self.is_at_prompt)
        self.clear()

    def clear(self):
        self.terminal.type(ctrl("l"))
        self.terminal.wait(lambda: self.is_at_prompt() and len(self.terminal.lines()) == 1)


class BashOnTerminal(TerminalTest):
    def setUp(self):
        super().setUp()
        self.shell(["bash", "--norc", "--noprofile", "-i"],
                   ["bind 'set bell-style none'; bind 'set enable-bracketed-paste off'", f"source '{BASH_SCRIPT}'"])

    def test_words(self):
        self.assert_completes("mrset imp", "mrset import ")
        self.assert_completes("mrset sets s.mrset --fo", "mrset sets s.mrset --format ")
        self.assert_completes("mrset sets s.mrset --format ma", "mrset sets s.mrset --format markdown ")
        self.assert_completes("mrset sets s.mrset --format=ma", "mrset sets s.mrset --format=markdown ")
        self.assert_completes("true | mrset run s.mrset --st", "true | mrset run s.mrset --stop-on-error ")

    def test_files(self):
        self.assert_completes("mrset import a", "mrset import a.csv ")
        self.assert_completes("mrset sets my", "mrset sets my\\ surveys/")
        self.assert_completes("mrset sets my\\ surveys/", "mrset sets my\\ surveys/t.mrset ")
        self.assert_completes("mrset sets 'my s", "mrset sets 'my surveys'/")
        self.assert_completes("mrset sets 'my surveys'/", "mrset sets my\\ surveys/t.mrset ")
        self.assert_completes("mrset sets 'my surveys/", "mrset sets 'my surveys/t.mrset' ")
        self.assert_completes("mrset diff s.mrset@0 s.", "mrset diff s.mrset@0 s.mrset ")

    def test_names_of_sets(self):
        for typed in ("", "'", "$", "\\$", "'$"):
            self.assert_completes(f"mrset script s.mrset {typed}" + ("g" if typed.endswith("$") else ""),
                                  "mrset script s.mrset '$größe' " if typed.endswith("$") else "mrset script s.mrset '$")
        self.assert_completes('mrset script s.mrset "$g', 'mrset script s.mrset "\\$größe" ')
        self.assert_completes("mrset copy s.mrset 'my surveys/t.mrset' $g", "mrset copy s.mrset 'my surveys/t.mrset' '$größe' ")


class ZshOnTerminal(TerminalTest):
    def setUp(self):
        super().setUp()
        self.shell(["zsh", "-f", "-i"],
                   ["unsetopt prompt_sp beep; unset zle_bracketed_paste; setopt list_rows_first no_always_last_prompt",
                    f"fpath=({FOLDER} $fpath); autoload -Uz compinit; compinit -u -D"])

    def list_text(self, typed):
        """The prompt is shown again below the list."""
        line = self.PROMPT + typed.rstrip()
        text = self.terminal.text()
        return text[text.find(line) + len(line):text.rfind(line)]

    def list_is_complete(self, typed, pattern):
        shown = self.terminal.text()
        return shown.count(self.PROMPT + typed.rstrip()) == 2 and re.search(pattern, self.list_text(typed)) is not None

    def test_words(self):
        self.assert_completes("mrset imp", "mrset import ")
        self.assert_completes("mrset sets s.mrset --co", "mrset sets s.mrset --color=")
        self.assert_completes("mrset sets s.mrset --format ma", "mrset sets s.mrset --format markdown ")
        self.assert_completes("mrset sets s.mrset --format=ma", "mrset sets s.mrset --format=markdown ")

    def test_subcommands(self):
        self.assertEqual(self.listed("mrset ", r"(?m)^(\w+) +--"), {*subcommands(), "help"})
        self.assertEqual(self.listed("mrset help ", r"\w+"), {*subcommands(), *TOPICS})
        self.assert_completes("mrset help MD", "mrset help MDGROUP ")

    def test_options(self):
        self.assertEqual(self.listed("mrset -", r"(?<!\S)--?\w[\w-]*"), options())
        for subcommand in subcommands():
            self.assertEqual(self.listed(f"mrset {subcommand} -", r"(?<!\S)--?\w[\w-]*"), options(subcommand), subcommand)

    def test_values_of_options(self):
        for subcommand in subcommands():
            for option in options(subcommand) & {"--format", "--color"}:
                self.assertEqual(self.listed(f"mrset {subcommand} {option} ", r"\w+"), choices(subcommand, option))

    def test_files(self):
        self.assert_completes("mrset import a", "mrset import a.csv ")
        self.assert_completes("mrset import --schema b", "mrset import --schema b.json ")
        self.assert_completes("mrset run s.mrset c", "mrset run s.mrset c.script ")
        self.assert_completes("mrset sets s", "mrset sets s.mrset ")
        self.assert_completes("mrset diff s.mrset@0 s", "mrset diff s.mrset@0 s.mrset ")
        self.assert_completes("mrset sets my", "mrset sets my\\ surveys/")
        self.assert_completes("mrset sets my\\ surveys/", "mrset sets my\\ surveys/t.mrset ")

    def test_names_of_sets(self):
        self.assert_completes("mrset script s.mrset \\$g", "mrset script s.mrset \\$größe ")
        self.assert_completes("mrset script s.mrset@3 '$g", "mrset script s.mrset@3 '$größe' ")
        self.assert_completes("mrset script s.mrset \\$DRIN", "mrset script s.mrset \\$drinks ")
        self.assert_completes("mrset copy s.mrset my\\ surveys/t.mrset \\$g", "mrset copy s.mrset my\\ surveys/t.mrset \\$größe ")
        self.assert_completes("mrset script s.mrset '$drinks' '$größe' ", "mrset script s.mrset '$drinks' '$größe' \\$Drivers ")


if __name__ == "__main__":
    unittest.main()
