"""The shell as a person uses it, key by key on a terminal, and as a plain reader of a pipe.

MRSET_PROGRAM names the program. With MRSET_UPDATE the recording in docs/ is written, too.
"""

import json
import os
import re
import select
import signal
import sqlite3
import stat
import subprocess
import tempfile
import unittest

from terminal import BACKSPACE, DOWN, ENTER, LEFT, RIGHT, TAB, UP, Terminal, ctrl

PROGRAM = os.environ["MRSET_PROGRAM"]
ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
RECORDING = os.path.join(ROOT, "docs", "shell-session.txt")

PROMPT = "mrset> "
MORE = "    -> "
DEFINE = "MRSET /MCGROUP NAME=$new VARIABLES=drink1 drink2"

CODEBOOK = """{"fields": [
  {"name": "drink1", "type": "integer", "title": "Tea", "categories": [{"value": 1, "label": "Yes"}]},
  {"name": "drink2", "type": "integer", "title": "Coffee", "categories": [{"value": 1, "label": "Yes"}]},
  {"name": "drink3", "type": "integer", "title": "Milk"},
  {"name": "größe", "type": "number", "title": "H\\u001b[2Jostile\\u202e"},
  {"name": "colour", "type": "string", "title": "Colour", "constraints": {"maxLength": 8}}]}
"""


class ShellTest(unittest.TestCase):
    """A folder with the dataset s.mrset, a state folder, and no set."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="mrset-shell-")
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.dataset = self.path("s.mrset")
        self.environment = {
            "PATH": os.environ["PATH"],
            "HOME": self.folder,
            "XDG_STATE_HOME": self.path("state"),
            "LC_ALL": "C.UTF-8",
            "NO_COLOR": "1",
        }
        for name in ("ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS", "LLVM_PROFILE_FILE"):
            if name in os.environ:
                self.environment[name] = os.environ[name]
        with open(self.path("s.json"), "w", encoding="utf-8") as file:
            file.write(CODEBOOK)
        with open(self.path("s.csv"), "w", encoding="utf-8") as file:
            file.write("drink1,drink2,drink3,größe,colour\n1,0,1,180,red\n0,1,0,160,blue\n")
        self.make_dataset(self.dataset)

    def path(self, name):
        return os.path.join(self.folder, name)

    def make_dataset(self, path):
        self.run_program("import", "--schema", self.path("s.json"), self.path("s.csv"), path)

    def run_program(self, *arguments, check=True):
        return subprocess.run([PROGRAM, *arguments], env=self.environment, cwd=self.folder, check=check,
                              capture_output=True, text=True, encoding="utf-8")

    def define(self, name="$drinks"):
        self.run_program("run", self.dataset, "-c",
                         f"MRSET /MDGROUP NAME={name} LABEL='Drinks' VARIABLES=drink1 TO drink3 VALUE=1")

    def sets(self):
        return re.findall(r'"name":"([^"]*)"', self.run_program("sets", self.dataset, "--format", "json").stdout)

    def shell(self, columns=80, rows=24, term="xterm", **environment):
        os.chdir(self.folder)
        terminal = Terminal([PROGRAM, "shell", "s.mrset"], dict(self.environment, **environment), columns, rows, term)
        self.addCleanup(terminal.close)
        terminal.wait_for_input(PROMPT)
        return terminal

    def assert_ends(self, terminal, status=0):
        self.assertEqual(terminal.end(), status)


class Completion(ShellTest):
    # What is typed, the keys, what stands on the line then; "|" is the cursor.
    PLACES = [
        ("mr", "mrset |"),
        ("MRSET /MC", "MRSET /MCGROUP |"),
        ("MRSET di", "MRSET display |"),
        ("mrset /mdgroup na", "mrset /mdgroup name=|"),
        ("MRSET /MDGROUP NAME=", "MRSET /MDGROUP NAME=$|"),
        ("MRSET /MDGROUP NAME=$dr", "MRSET /MDGROUP NAME=$drinks |"),
        ("MRSET /MDGROUP NAME=$a CAT", "MRSET /MDGROUP NAME=$a CATEGORYLABELS=|"),
        ("MRSET /MDGROUP CATEGORYLABELS=V", "MRSET /MDGROUP CATEGORYLABELS=VARLABELS |"),
        ("MRSET /MDGROUP LABELSOURCE=", "MRSET /MDGROUP LABELSOURCE=VARLABEL |"),
        ("MRSET /MDGROUP VARIABLES=DR", "MRSET /MDGROUP VARIABLES=drink|"),
        ("MRSET /MDGROUP VARIABLES=drink1 T", "MRSET /MDGROUP VARIABLES=drink1 TO |"),
        ("MRSET /MDGROUP VARIABLES=drink2 TO d", "MRSET /MDGROUP VARIABLES=drink2 TO drink3 |"),
        ("MRSET /MDGROUP VARIABLES=GR\u00d6", "MRSET /MDGROUP VARIABLES=größe |"),
        ("MRSET /MDGROUP VARIABLES=drink1 drink2 VALUE=", "MRSET /MDGROUP VARIABLES=drink1 drink2 VALUE=1 |"),
        ("MRSET /DISPLAY NAME=A", "MRSET /DISPLAY NAME=ALL |"),
        ("MRSET /DISPLAY NAME=[", "MRSET /DISPLAY NAME=[$drinks |"),
        ("MRSET /DELETE NAME=[$DR", "MRSET /DELETE NAME=[$drinks |"),
        ("MRSET /MDGROUP LABEL='na", "MRSET /MDGROUP LABEL='na|"),
        ("help md", "help mdgroup |"),
        ("vari", "variables |"),
    ]

    def test_tab_completes_by_place_in_the_grammar(self):
        self.define()
        terminal = self.shell()
        for typed, completed in self.PLACES:
            terminal.type(typed + TAB)
            before, behind = completed.split("|")
            terminal.wait_for_input(PROMPT + before, behind)
            terminal.type(ctrl("c"))
            terminal.wait_for_input(PROMPT)

    def test_tab_completes_within_a_line_that_goes_on(self):
        terminal = self.shell()
        terminal.type("MRSET /DIS NAME=ALL" + LEFT * 9 + TAB)
        terminal.wait_for_input(PROMPT + "MRSET /DISPLAY ", " NAME=ALL")

    def test_tab_lists_what_can_follow(self):
        terminal = self.shell()
        terminal.type("MRSET /MCGROUP VARIABLES=dr" + TAB)
        terminal.wait_for_input(PROMPT + "MRSET /MCGROUP VARIABLES=drink")
        terminal.type(TAB)
        terminal.wait_for("drink1  drink2  drink3\n" + PROMPT + "MRSET /MCGROUP VARIABLES=drink")
        terminal.type("1" + TAB)
        terminal.wait_for_input(PROMPT + "MRSET /MCGROUP VARIABLES=drink1 ")

    def test_tab_lists_below_all_lines_that_are_typed(self):
        terminal = self.shell()
        for line in ("MRSET /MCGROUP", "NAME=$a VARIABLES=drink1 drink2."):
            terminal.enter(line)
        terminal.wait_for_input(PROMPT)
        terminal.type(UP + ctrl("a") + RIGHT * 7 + TAB)
        terminal.wait_for(PROMPT + "MRSET /MCGROUP\nNAME=$a VARIABLES=drink1 drink2.\n"
                          "DELETE   DISPLAY  MCGROUP  MDGROUP\n" +
                          PROMPT + "MRSET /MCGROUP\nNAME=$a VARIABLES=drink1 drink2.")
        terminal.wait_for_input(PROMPT + "MRSET /", "MCGROUP")

    def test_tab_knows_the_lines_before(self):
        terminal = self.shell()
        terminal.type("MRSET /MDGROUP NAME=$a" + ENTER)
        terminal.wait_for_input(MORE)
        terminal.enter("  VARIABLES=drink1 drink2")
        terminal.wait_for_input(MORE)
        terminal.type("va" + TAB)
        terminal.wait_for_input(MORE + "value=")
        terminal.type(TAB)
        terminal.wait_for_input(MORE + "value=1 ")

    def test_tab_sees_what_another_process_defined(self):
        terminal = self.shell()
        self.define("$later")
        terminal.type("MRSET /DISPLAY NAME=[" + TAB)
        terminal.wait_for_input(PROMPT + "MRSET /DISPLAY NAME=[$later ")

    def test_tab_without_a_dataset_is_harmless(self):
        terminal = self.shell()
        os.unlink(self.dataset)
        terminal.type("MRSET /DISPLAY NAME=[" + TAB)
        terminal.wait(lambda: b"\a" in terminal.raw)  # so that no key waits behind the tab, as in pasted text
        terminal.wait_for_input(PROMPT + "MRSET /DISPLAY NAME=[")
        terminal.type("x")
        terminal.wait_for_input(PROMPT + "MRSET /DISPLAY NAME=[x")

    def test_tabs_in_pasted_text_complete_nothing(self):
        self.define("$drinks")
        terminal = self.shell()
        terminal.type("MRSET\t/MCGROUP\tNAME=$d\tVARIABLES=drink1\tdrink2\tLABEL='a\tb'." + ENTER)
        terminal.wait_for("LABEL='a")
        terminal.wait_for_input(PROMPT)
        terminal.type("MRSET /MDGROUP\tNAME=$e" + ENTER + "\tVARIABLES=drink1 TO\tdrink3 VALUE=1\t." + ENTER)
        terminal.wait_for("\n" + MORE)
        terminal.wait_for_input(PROMPT)
        stored = json.loads(self.run_program("sets", self.dataset, "--format", "json").stdout)["sets"]
        self.assertEqual([(one["name"], one["label"], one["variables"]) for one in stored],
                         [("$drinks", "Drinks", ["drink1", "drink2", "drink3"]),
                          ("$d", "a\tb", ["drink1", "drink2"]), ("$e", "", ["drink1", "drink2", "drink3"])])


class Editing(ShellTest):
    def test_keys(self):
        terminal = self.shell()
        terminal.type("SET" + ctrl("a") + "MR")
        terminal.wait_for_input(PROMPT + "MR", "SET")
        terminal.type(ctrl("e") + " x")
        terminal.wait_for_input(PROMPT + "MRSET x")
        terminal.type(BACKSPACE + LEFT + LEFT + RIGHT)
        terminal.wait_for_input(PROMPT + "MRSET", "")
        terminal.type(LEFT + LEFT + ctrl("k"))
        terminal.wait_for_input(PROMPT + "MRS")
        terminal.type(ctrl("u"))
        terminal.wait_for_input(PROMPT)

    def test_utf8(self):
        terminal = self.shell()
        terminal.type("aäß日本e\u0301z")
        terminal.wait(lambda: "日本" in terminal.text() and "z" in terminal.text())
        terminal.type(LEFT + LEFT + LEFT + BACKSPACE + BACKSPACE)
        terminal.type(ctrl("a") + RIGHT + RIGHT)
        terminal.wait(lambda: terminal.cursor_line()[0] == PROMPT + "aä")
        terminal.type(BACKSPACE + "ü" + ctrl("c"))
        terminal.wait_for("mrset> aüß")

    def test_utf8_where_the_locale_knows_none(self):
        terminal = self.shell(LC_ALL="C")
        terminal.type("größe" + BACKSPACE)
        terminal.wait_for_input(PROMPT + "größ")

    def test_continuation_until_the_final_period(self):
        terminal = self.shell()
        terminal.type("MRSET /MDGROUP NAME=$a LABEL='One. Two.'" + ENTER)
        terminal.wait_for_input(MORE)
        terminal.enter("VARIABLES=drink1 drink2 VALUE=1")
        terminal.wait(lambda: terminal.text().count(MORE.rstrip()) == 2)
        terminal.enter("/DISPLAY NAME=ALL.")
        terminal.wait_for("One. Two.  Dichotomies")
        terminal.wait_for_input(PROMPT)
        self.assertEqual(self.sets(), ["$a"])

    def test_a_blank_line_ends_a_command(self):
        terminal = self.shell()
        terminal.enter(DEFINE)
        terminal.wait_for_input(MORE)
        terminal.type(ENTER)
        terminal.wait_for_input(PROMPT)
        self.assertEqual(self.sets(), ["$new"])

    def test_narrow_terminal(self):
        terminal = self.shell(columns=20)
        terminal.type("MRSET /DISPLAY NAME=$drinks")
        terminal.wait_for("MRSET /DISPLA\nY NAME=$drinks")
        terminal.type(ctrl("a") + ctrl("e") + BACKSPACE * 11 + "[]" + TAB)
        terminal.wait_for("MRSET /DISPLA\nY N[]")

    def test_size_changes(self):
        self.define()
        terminal = self.shell(columns=100)
        terminal.enter("MRSET /DISPLAY NAME=ALL.")
        terminal.wait_for("Counted Value  Data Type  Elementary Variables")
        terminal.wait_for_input(PROMPT)
        terminal.resize(50, 24)
        terminal.enter("MRSET /DISPLAY NAME=ALL.")
        terminal.wait(lambda: terminal.text().count("Multiple Response Sets") == 2)
        terminal.wait_for_input(PROMPT)
        table = terminal.text().split("Multiple Response Sets")[2]
        self.assertLessEqual(max(map(len, table.splitlines())), 50)

    def test_dumb_terminal(self):
        terminal = self.shell(term="dumb")
        terminal.type("mr" + TAB)
        terminal.wait_for_input(PROMPT + "mrset ")
        terminal.enter("/display name=all.")
        terminal.wait_for("Warning: No MRSET to display")
        terminal.wait_for_input(PROMPT)
        self.assertNotIn(b"\x1b", terminal.raw)


class History(ShellTest):
    def test_goes_over_sessions(self):
        first = self.shell()
        first.enter(DEFINE)
        first.wait_for_input(MORE)
        first.enter("/DISPLAY NAME=ALL.")
        first.wait_for("$new")
        first.wait_for_input(PROMPT)
        first.type("sets" + ENTER + "quit" + ENTER)
        self.assert_ends(first)
        second = self.shell()
        second.type(UP + UP)
        second.wait_for_input(PROMPT + "sets")
        second.type(UP)
        second.wait_for(PROMPT + DEFINE + "\n/DISPLAY NAME=ALL.")
        second.type(DOWN)
        second.wait_for_input(PROMPT + "sets")
        mode = os.stat(self.path("state/mrset/history")).st_mode
        self.assertEqual(stat.S_IMODE(mode), 0o600)

    def test_has_an_entry_before_its_command_runs(self):
        terminal = self.shell()
        for count, command in enumerate((DEFINE + ".", "sets"), 1):
            other = sqlite3.connect(self.dataset, isolation_level=None)
            other.execute("BEGIN EXCLUSIVE")
            terminal.enter(command)
            terminal.wait(lambda: terminal.text().count("waiting for s.mrset") == count)
            with open(self.path("state/mrset/history"), encoding="utf-8") as file:
                self.assertEqual(file.read().splitlines()[-1], command)
            other.close()
            terminal.wait_for_input(PROMPT)

    def test_runs_an_entry_of_several_lines_again(self):
        terminal = self.shell()
        terminal.type("MRSET" + ENTER + "/DISPLAY NAME=ALL." + ENTER)
        terminal.wait_for("No MRSET to display")
        terminal.wait_for_input(PROMPT)
        self.define()
        terminal.type(UP + ENTER)
        terminal.wait_for("Elementary Variables")
        terminal.wait_for_input(PROMPT)

    def test_of_two_shells_at_once(self):
        first, second = self.shell(), self.shell()
        for terminal, command in ((first, "sets"), (second, "log"), (first, "help")):
            terminal.enter(command)
            terminal.wait(lambda: terminal.text().count(PROMPT.rstrip()) >= 2 and
                          terminal.cursor_line()[0] == PROMPT and command in terminal.text())
            terminal.screen.reset()
            terminal.type(ctrl("l"))
            terminal.wait_for_input(PROMPT)
        with open(self.path("state/mrset/history"), encoding="utf-8") as file:
            self.assertEqual(file.read(), "sets\nlog\nhelp\n")

    def test_is_searched(self):
        terminal = self.shell()
        for command in ("help mdgroup", "variables größe", "help mcgroup"):
            terminal.enter(command)
            terminal.wait(lambda: terminal.cursor_line() == (PROMPT, "") and command in terminal.text())
        terminal.type(ctrl("r") + "grö")
        terminal.wait_for("bck:grö")
        terminal.type(ENTER)
        terminal.wait(lambda: terminal.text().count("größe  numeric") == 2)
        terminal.wait_for_input(PROMPT)
        terminal.type(ctrl("r") + "mdg")
        terminal.wait_for("bck:mdg")
        terminal.type(ctrl("c"))
        terminal.wait_for_input(PROMPT)

    def test_that_cannot_be_kept_is_no_failure(self):
        with open(self.path("file"), "w", encoding="utf-8"):
            pass
        terminal = self.shell(XDG_STATE_HOME=self.path("file"))
        terminal.enter("sets")
        terminal.wait_for("The dataset has no multiple response sets.")
        terminal.wait_for_input(PROMPT)
        terminal.type(UP)
        terminal.wait_for_input(PROMPT + "sets")
        terminal.type(ctrl("u") + ctrl("d"))
        self.assert_ends(terminal)


class GivingUp(ShellTest):
    def test_ctrl_c_gives_up_the_line(self):
        terminal = self.shell()
        terminal.type("MRSET /DISPLAY" + LEFT * 3 + ctrl("c"))
        terminal.wait_for(PROMPT + "MRSET /DISPLAY^C")
        terminal.wait_for_input(PROMPT)
        terminal.enter("sets")
        terminal.wait_for("no multiple response sets")
        terminal.wait_for_input(PROMPT)

    def test_ctrl_c_gives_up_the_lines_before_and_keeps_them_in_the_history(self):
        terminal = self.shell()
        terminal.type("MRSET /MDGROUP" + ENTER)
        terminal.wait_for_input(MORE)
        terminal.type("NAME=$a" + ctrl("c"))
        terminal.wait_for_input(PROMPT)
        terminal.type(UP)
        terminal.wait_for(PROMPT + "MRSET /MDGROUP\nNAME=$a")

    def test_ctrl_c_gives_up_a_command_that_waits(self):
        terminal = self.shell()
        terminal.enter("MRSET /DISPLAY NAME=ALL.")
        terminal.wait_for("No MRSET")
        terminal.wait_for_input(PROMPT)
        other = sqlite3.connect(self.dataset, isolation_level=None)
        other.execute("BEGIN EXCLUSIVE")
        terminal.enter(DEFINE + ".")
        terminal.wait_for("waiting for")
        terminal.type(ctrl("c"))
        terminal.wait_for("mrset: s.mrset: interrupted.")
        terminal.wait_for_input(PROMPT)
        other.execute("ROLLBACK")
        other.close()
        self.assertEqual(self.sets(), [])
        terminal.enter(DEFINE + ".")
        terminal.wait_for_input(PROMPT)
        self.assertEqual(self.sets(), ["$new"])

    def test_ctrl_d_on_an_empty_line_leaves(self):
        terminal = self.shell()
        terminal.type("x" + ctrl("d"))
        terminal.wait_for_input(PROMPT + "x")
        terminal.type(BACKSPACE)
        terminal.wait_for_input(PROMPT)
        terminal.type(ctrl("d"))
        self.assert_ends(terminal)

    def test_ctrl_d_does_not_run_what_is_open(self):
        terminal = self.shell()
        terminal.enter(DEFINE)
        terminal.wait_for_input(MORE)
        terminal.type(ctrl("d"))
        self.assert_ends(terminal)
        self.assertEqual(self.sets(), [])

    def test_quit_and_exit(self):
        for word in ("quit", "exit", "Quit."):
            terminal = self.shell()
            terminal.type("MRSET /X." + ENTER + word + ENTER)
            self.assert_ends(terminal)

    def test_a_terminal_that_goes_away_ends_the_shell(self):
        terminal = self.shell()
        os.kill(terminal.pid, signal.SIGHUP)
        self.assert_ends(terminal, -signal.SIGHUP)


class Commands(ShellTest):
    def test_an_error_shows_its_place(self):
        terminal = self.shell()
        terminal.type("MRSET /MCGROUP NAME=$a" + ENTER + "  VARIABEL=drink1 drink2." + ENTER)
        terminal.wait_for("Error: Unexpected VARIABEL keyword in MCGROUP subcommand.\n"
                          "  line 2, column 3:\n"
                          "      VARIABEL=drink1 drink2.\n"
                          "      ^^^^^^^^")
        terminal.wait_for_input(PROMPT)

    def test_an_aborted_command_costs_only_itself(self):
        terminal = self.shell()
        terminal.enter(DEFINE + ".")
        terminal.wait_for_input(PROMPT)
        terminal.enter("MRSET /DELETE NAME=[].")
        terminal.wait_for("Fatal: ")
        terminal.wait_for_input(PROMPT)
        terminal.enter("MRSET /DISPLAY NAME=ALL.")
        terminal.wait_for("$new         Categories")
        terminal.wait_for_input(PROMPT)
        terminal.type(ctrl("d"))
        self.assert_ends(terminal)

    def test_what_another_process_changed_is_seen_by_the_next_command(self):
        terminal = self.shell()
        terminal.type("sets" + ENTER + "MRSET /DISPLAY NAME=ALL." + ENTER)
        terminal.wait_for("No MRSET to display")
        terminal.wait_for_input(PROMPT)
        self.define("$theirs")
        terminal.enter("MRSET /DISPLAY NAME=ALL.")
        terminal.wait_for("$theirs  Drinks")
        terminal.wait_for_input(PROMPT)
        terminal.enter(DEFINE + ".")
        terminal.wait_for_input(PROMPT)
        terminal.enter("sets")
        terminal.wait_for("$new ")
        self.assertEqual(sorted(self.sets()), ["$new", "$theirs"])

    def test_a_dataset_that_is_deleted_or_replaced_is_said_and_the_shell_goes_on(self):
        terminal = self.shell()
        terminal.enter(DEFINE + ".")
        terminal.wait_for_input(PROMPT)
        self.make_dataset(self.path("other.mrset"))
        os.replace(self.path("other.mrset"), self.dataset)
        terminal.enter("MRSET /DISPLAY NAME=ALL.")
        terminal.wait_for("mrset: s.mrset ")
        terminal.wait_for_input(PROMPT)
        terminal.enter("MRSET /DISPLAY NAME=ALL.")
        terminal.wait_for("No MRSET to display")
        os.unlink(self.dataset)
        terminal.enter("sets")
        terminal.wait_for(self.run_program("sets", "s.mrset", check=False).stderr.splitlines()[0])
        terminal.wait_for_input(PROMPT)
        terminal.type(ctrl("d"))
        self.assert_ends(terminal)

    def test_help_sets_variables_log_and_undo(self):
        terminal = self.shell(columns=120, rows=60)
        for command, shown in (
            ("help", "  quit                 leave the shell"),
            ("help mdg.", "MDGROUP defines a dichotomy set"),
            ("help me", "mrset: There is no help on me; there is on DELETE, DISPLAY, MCGROUP, MDGROUP, MRSET, TABULATE,"),
            ("help vairables", "mrset: There is no help on vairables; did you mean variables?"),
            ("help undo", "undo takes back the last change of the sets."),
            ("sets now", "mrset: sets must be alone on its line."),
            ("variables *2", "drink2  numeric  Coffee  1 = Yes"),
            ("variables x", "mrset: The dataset has no variable x."),
            ("undo", "mrset: s.mrset keeps no change; there is nothing to undo."),
            (DEFINE + ".", PROMPT + DEFINE + "."),
            ("log", "defined $new"),
            ("undo.", "Undone: change 1, which defined $new."),
            ("undo x", "mrset: x is not a version number."),
            ("undo --to", "mrset: --to needs the number of a version."),
            ("undo --to x", "mrset: x is not a version number."),
            ("undo --to 1", "Undone: change 2, which deleted $new."),
            ("undo --to=0.", "Undone: changes 1 to 3, which defined $new."),
        ):
            terminal.enter(command)
            terminal.wait_for(shown)
            terminal.wait_for_input(PROMPT)
        self.assertEqual(self.sets(), [])

    def test_what_is_no_command_is_answered_at_once(self):
        terminal = self.shell(columns=120)
        for word, answer in (("set", "mrset: There is no command set; did you mean sets?"),
                             ("foo now", "mrset: There is no command foo; type MRSET")):
            terminal.type(word + ENTER)
            terminal.wait_for(answer)
            terminal.wait_for_input(PROMPT)
        terminal.type("MRSET" + ENTER + "quit" + ENTER)
        terminal.wait_for("mrset: The command above is not complete, and this line is part of it: end it with")
        terminal.wait_for_input(MORE)
        terminal.type(ctrl("c"))
        terminal.wait_for_input(PROMPT)
        terminal.type("quit" + ENTER)
        self.assert_ends(terminal)

    def test_no_text_of_the_data_acts_on_the_terminal(self):
        terminal = self.shell(columns=120)
        terminal.enter("variables gr")
        terminal.wait_for("H\\x1b[2Jostile\\u202e")

    def test_a_dataset_that_cannot_be_used_is_wrong_use(self):
        result = self.run_program("shell", self.path("none.mrset"), check=False)
        expected = self.run_program("sets", self.path("none.mrset"), check=False)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (2, "", expected.stderr))
        self.assertEqual(expected.returncode, 2)


class PlainReader(ShellTest):
    def read(self, script):
        result = subprocess.run([PROGRAM, "shell", "s.mrset"], input=script, env=self.environment, cwd=self.folder,
                                capture_output=True, text=True, encoding="utf-8", check=False)
        return result.returncode, result.stdout, result.stderr

    def test_shows_what_run_shows(self):
        script = DEFINE + ".\n* A comment.\nMRSET /DISPLAY\n  NAME=ALL.\n\nMRSET /X\n"
        run = subprocess.run([PROGRAM, "run", "s.mrset", "-"], input=script, env=self.environment, cwd=self.folder,
                             capture_output=True, text=True, encoding="utf-8", check=False)
        self.assertEqual(run.returncode, 1)
        self.assertIn("standard input, line 6, column 8", run.stdout)
        self.assertEqual(self.read(script), (run.returncode, run.stdout, run.stderr))

    def test_exit_status(self):
        for script, status in (
            ("", 0), ("quit\nMRSET /X.", 0), ("sets\nhelp\n", 0), ("help me\n", 1), ("MRSET /X.", 1),
            ("MRSET /DELETE NAME=[].\nMRSET /X.", 3), ("undo 77\n", 2),
        ):
            self.assertEqual(self.read(script)[0], status, script)

    def test_runs_each_command_as_soon_as_it_is_there(self):
        process = subprocess.Popen([PROGRAM, "shell", "s.mrset"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                   env=self.environment, cwd=self.folder)
        self.addCleanup(process.stdout.close)
        for script, shown in (
            (DEFINE + ".\n", "1> " + DEFINE),
            ("sets\n", "$new  category"),
            ("MRSET /DISPLAY NAME=ALL.\n", "Multiple Response Sets"),
            ("MRSET /DELETE NAME=[].\n", "Fatal: "),
            ("log.\n", "defined $new"),
        ):
            process.stdin.write(script.encode())
            process.stdin.flush()
            self.wait_for(process.stdout.fileno(), shown)
        process.stdin.close()
        self.assertEqual(process.wait(Terminal.SECONDS), 3)

    def wait_for(self, descriptor, shown):
        text = b""
        while shown.encode() not in text:
            ready, _, _ = select.select([descriptor], [], [], Terminal.SECONDS)
            more = os.read(descriptor, 65536) if ready else b""
            self.assertTrue(more, f"{shown} was never shown after {text}")
            text += more

    def test_input_that_cannot_be_read_is_one_sentence(self):
        folder = os.open(self.folder, os.O_RDONLY)
        self.addCleanup(os.close, folder)
        result = subprocess.run([PROGRAM, "shell", "s.mrset"], stdin=folder, env=self.environment, cwd=self.folder,
                                capture_output=True, text=True, check=False)
        self.assertEqual((result.returncode, result.stderr),
                         (2, "mrset: The script on standard input cannot be read: Is a directory.\n"))


class Recording(ShellTest):
    """The session that the manual shows."""

    def test_the_recorded_session_is_what_the_program_shows(self):
        example = os.path.join(ROOT, "examples", "breakfast")
        os.unlink(self.dataset)
        self.run_program("import", "--schema", example + ".schema.json", example + ".csv", self.dataset)
        terminal = self.shell(rows=40)
        terminal.type("mr" + TAB)
        terminal.wait_for_input(PROMPT + "mrset ")
        terminal.type("/" + TAB)
        terminal.wait_for("display  mcgroup  mdgroup\n" + PROMPT + "mrset /")
        terminal.type("md" + TAB)
        terminal.wait_for_input(PROMPT + "mrset /mdgroup ")
        for keys, shown in (("name=$drinks var", "name=$drinks variables="), ("dr", "variables=drink")):
            terminal.type(keys + TAB)
            terminal.wait(lambda: terminal.cursor_line()[0].endswith(shown))
        terminal.type(TAB)
        terminal.wait_for("drink4  drink5\n")
        terminal.enter("1 TO drink3")
        terminal.wait_for_input(MORE)
        terminal.enter("/display name=[$drinks].")
        terminal.wait_for("has no counted value")
        terminal.wait_for_input(PROMPT)
        terminal.type(UP + LEFT * 25 + " val" + TAB)
        terminal.wait(lambda: " value=" in terminal.cursor_line()[0])
        terminal.type(TAB)
        terminal.wait(lambda: "\n0  1\n" in terminal.text() and " value=" in terminal.cursor_line()[0])
        terminal.type("1")
        terminal.wait(lambda: " value=1" in terminal.cursor_line()[0])
        terminal.type(ENTER)
        terminal.wait_for("Elementary Variables")
        terminal.wait_for_input(PROMPT)
        terminal.enter("undo")
        terminal.wait_for("Undone: ")
        terminal.wait_for_input(PROMPT)
        terminal.enter("quit")
        self.assert_ends(terminal)
        shown = "\n".join(terminal.lines()) + "\n"
        with open(RECORDING, encoding="utf-8") as file:
            recorded = file.read()
        if "MRSET_UPDATE" in os.environ:
            with open(RECORDING, "w", encoding="utf-8") as file:
                file.write(shown)
        self.assertEqual(recorded, shown)


if __name__ == "__main__":
    unittest.main()
