"""Runs the program with and without the shim, and reads what it leaves."""

import os
import shutil
import signal
import sqlite3
import struct
import subprocess
import tempfile
from dataclasses import dataclass
from pathlib import Path

from scenarios import SCRIPT

STATE_SIZE = 4096
STATE_LAYOUT = "<qii8q256s"
KINDS = ("create", "write", "sync", "truncate", "delete", "rename")

# Of a row only what a repetition gives again.
VOLATILE_COLUMNS = {"time"}


class Failure(Exception):
    """What was found that must not be; a sentence."""


def scratch_folder() -> tempfile.TemporaryDirectory:
    """In memory where there is such a place: what the suites lose, the shim makes them lose."""
    memory = "/dev/shm"
    place = memory if os.access(memory, os.W_OK | os.X_OK) else None
    return tempfile.TemporaryDirectory(prefix="mrset-crash-", dir=place)


@dataclass(frozen=True)
class Kill:
    """Where, how and with which luck the program is killed; at 0, not at all."""

    at: int = 0
    moment: str = "before"
    kind: str = "group"
    seed: int = 0


@dataclass(frozen=True)
class Outcome:
    status: int
    answers: list[str]  # complete lines of standard output
    errors: str
    killed: bool
    operations: int
    of_kind: tuple[int, ...]
    met: str  # the operation that the kill met


def standard_input(folder: Path, arguments: list[str]) -> Path:
    return folder / SCRIPT if arguments[0] == "shell" else Path(os.devnull)


class Program:
    def __init__(self, program: str, shim: str):
        self.program = os.path.abspath(program)
        self.shim = os.path.abspath(shim)

    def run(self, folder: Path, arguments: list[str]) -> subprocess.CompletedProcess:
        with open(standard_input(folder, arguments), "rb") as commands:
            return subprocess.run(
                [self.program, *arguments],
                cwd=folder,
                stdin=commands,
                capture_output=True,
                text=True,
                errors="replace",
                timeout=60,
            )

    def must(self, folder: Path, arguments: list[str]) -> str:
        done = self.run(folder, arguments)
        if done.returncode != 0:
            raise Failure(f"{arguments} gave exit status {done.returncode}: {done.stdout}{done.stderr}")
        return done.stdout

    def environment(self, folder: Path, state: Path, kill: Kill) -> dict[str, str]:
        return {
            **os.environ,
            "MRSET_CRASH_TRACE": "",
            "LD_PRELOAD": self.shim,
            "MRSET_CRASH_FOLDER": str(folder.resolve()),
            "MRSET_CRASH_STATE": str(state),
            "MRSET_CRASH_AT": str(kill.at),
            "MRSET_CRASH_MOMENT": kill.moment,
            "MRSET_CRASH_KILL": kill.kind,
            "MRSET_CRASH_SEED": str(kill.seed),
        }

    def operations(self, folder: Path, arguments: list[str]) -> list[str]:
        """What a run without a kill does to files; that of number N has the index N - 1."""
        state = folder.parent / (folder.name + ".state")
        trace = folder.parent / (folder.name + ".trace")
        trace.unlink(missing_ok=True)
        state.write_bytes(b"\0" * STATE_SIZE)
        environment = {**self.environment(folder, state, Kill()), "MRSET_CRASH_TRACE": str(trace)}
        subprocess.run([self.program, *arguments], cwd=folder, capture_output=True, env=environment, timeout=60)
        lines = [line.split(" ", 2) for line in trace.read_text().splitlines()]
        return [what for _, _, what in sorted(lines, key=lambda line: int(line[0]))]

    def run_killed(self, folder: Path, arguments: list[str], kill: Kill) -> Outcome:
        state = folder.parent / (folder.name + ".state")
        state.write_bytes(b"\0" * STATE_SIZE)
        done = subprocess.run(
            [self.program, *arguments],
            cwd=folder,
            capture_output=True,
            env=self.environment(folder, state, kill),
            start_new_session=True,
            timeout=60,
        )
        operations, killed, _, *of_kind, met = struct.unpack_from(STATE_LAYOUT, state.read_bytes())
        lines = done.stdout.decode(errors="replace").split("\n")
        return Outcome(
            done.returncode,
            lines[:-1],
            done.stderr.decode(errors="replace"),
            bool(killed),
            operations,
            tuple(of_kind[: len(KINDS)]),
            met.split(b"\0")[0].decode(errors="replace"),
        )


def dump(dataset: Path):
    """All that the dataset holds, or None where there is none. Its integrity must be good."""
    if not dataset.exists():
        return None
    with_journal = sqlite3.connect(f"file:{dataset}?mode=rw", uri=True, isolation_level=None)
    try:
        if (verdict := with_journal.execute("PRAGMA integrity_check").fetchall()) != [("ok",)]:
            raise Failure(f"integrity_check says {verdict}")
        version = with_journal.execute("PRAGMA user_version").fetchone()
        tables = with_journal.execute("SELECT name, sql FROM sqlite_master ORDER BY name").fetchall()
        return (version, tuple((name, sql, rows(with_journal, name)) for name, sql in tables if sql and is_table(sql)))
    except sqlite3.Error as error:
        raise Failure(f"SQLite cannot read the dataset: {error}") from error
    finally:
        with_journal.close()


def is_table(sql: str) -> bool:
    return sql.upper().startswith("CREATE TABLE")


def rows(connection: sqlite3.Connection, table: str):
    columns = [row[1] for row in connection.execute(f"PRAGMA table_info({table})")]
    kept = ", ".join(f'"{column}"' for column in columns if column not in VOLATILE_COLUMNS)
    return tuple(sorted(connection.execute(f"SELECT {kept} FROM {table}").fetchall(), key=repr))


def copy(source: Path, target: Path) -> Path:
    shutil.rmtree(target, ignore_errors=True)
    return Path(shutil.copytree(source, target))


def is_killed(status: int) -> bool:
    return status == -signal.SIGKILL
