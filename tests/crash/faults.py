"""Runs the program while one of its calls to the system fails."""

import os
import select
import signal
import struct
import subprocess
from dataclasses import dataclass
from itertools import dropwhile
from pathlib import Path
from typing import Optional

from program import STATE_SIZE, standard_input

LAYOUT = "<iii4x64x256s"
TIMEOUT = 20  # seconds; no fault makes a run wait so long
HALF = ("EINTR", "short")  # no failures: what calls must call again


@dataclass(frozen=True)
class Fault:
    """The call that fails: the one of that number, of the program (process 0) or of one of its children."""

    process: int
    at: int
    error: str
    stays: bool = False  # from then on all calls fail that can fail so


@dataclass(frozen=True)
class Call:
    """A call of a run without a fault, and by what errors it can fail."""

    process: int
    at: int
    kind: str
    errors: tuple[str, ...]
    what: str


@dataclass(frozen=True)
class FaultyRun:
    status: int
    output: str
    errors: str
    injected: int
    met: str  # the call that failed first
    timed_out: bool


class FaultyProgram:
    """The program under the shim that makes calls fail. `memory`: allocations of at least so many bytes can fail, too;
    0: none. `without_flags`: as on a file system that cannot rename with flags."""

    def __init__(self, program: str, shim: str, memory: int = 0, without_flags: bool = False):
        self.program = os.path.abspath(program)
        self.shim = os.path.abspath(shim)
        self.memory = memory
        self.without_flags = without_flags

    def calls(self, folder: Path, arguments: list[str], since: Optional[str]) -> list[Call]:
        """Of all processes; with `since`, of the one that first makes a call of that kind, from there on."""
        trace = folder.parent / (folder.name + ".trace")
        trace.unlink(missing_ok=True)
        self.start(folder, arguments, {"MRSET_FAULT_TRACE": str(trace)})
        calls = [call_of(line) for line in trace.read_text().splitlines()]
        if since:
            later = list(dropwhile(lambda call: call.kind != since, calls))
            calls = [call for call in later if call.process == later[0].process]
        return sorted(calls, key=lambda call: (call.process, call.at))

    def run(self, folder: Path, arguments: list[str], fault: Fault) -> FaultyRun:
        return self.start(
            folder,
            arguments,
            {
                "MRSET_FAULT_PROCESS": str(fault.process),
                "MRSET_FAULT_AT": str(fault.at),
                "MRSET_FAULT_ERROR": fault.error,
                "MRSET_FAULT_STAYS": "1" if fault.stays else "0",
            },
        )

    def start(self, folder: Path, arguments: list[str], plan: dict[str, str]) -> FaultyRun:
        """With standard streams that are files, so that all pipes are the program's own."""
        beside = {name: folder.parent / f"{folder.name}.{name}" for name in ("state", "output", "errors")}
        for path in beside.values():
            path.unlink(missing_ok=True)
        beside["state"].write_bytes(b"\0" * STATE_SIZE)
        environment = {
            **os.environ,
            "LD_PRELOAD": self.shim,
            "MRSET_FAULT_FOLDER": str(folder.resolve()),
            "MRSET_FAULT_STATE": str(beside["state"]),
            "MRSET_FAULT_MEMORY": str(self.memory),
            "MRSET_FAULT_WITHOUT_FLAGS": "1" if self.without_flags else "0",
            **plan,
        }
        ended, lives = os.pipe()
        with (
            open(standard_input(folder, arguments), "rb") as commands,
            open(beside["output"], "wb") as output,
            open(beside["errors"], "wb") as errors,
        ):
            process = subprocess.Popen(
                [self.program, *arguments],
                cwd=folder,
                stdin=commands,
                stdout=output,
                stderr=errors,
                env=environment,
                pass_fds=(lives,),
                start_new_session=True,
            )
            os.close(lives)
            timed_out = not ends_in_time(process, ended)
            os.close(ended)
        _, _, injected, met = struct.unpack_from(LAYOUT, beside["state"].read_bytes())
        return FaultyRun(
            process.returncode,
            beside["output"].read_text(errors="replace"),
            beside["errors"].read_text(errors="replace"),
            injected,
            met.split(b"\0")[0].decode(errors="replace"),
            timed_out,
        )


def ends_in_time(process: subprocess.Popen, ended: int) -> bool:
    """Waits until all of its processes have ended, which then have closed the pipe; or ends them."""
    in_time = bool(select.select([ended], [], [], TIMEOUT)[0])
    if not in_time:
        os.killpg(process.pid, signal.SIGKILL)
    process.wait()
    return in_time


def call_of(line: str) -> Call:
    process, at, kind, errors, *what = line.split(" ", 4)
    return Call(int(process), int(at), kind, () if errors == "-" else tuple(errors.split(",")), "".join(what))
