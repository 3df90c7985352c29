"""Runs the program and measures it: processor time, which other work on the machine changes little, and peak memory.

As a program: measured.py REPORT PROGRAM ARGUMENT... runs PROGRAM and writes its exit status, seconds and peak kilobytes
to REPORT. The peak of a process counts what its parent had before it, so the parent must be a small one.
"""

import os
import subprocess
import sys


class Failure(Exception):
    """What was found that must not be; a sentence."""


class Measured:
    """A run that has ended: exit status, seconds of all of its processes, megabytes of the largest of them."""

    def __init__(self, report: str, output, errors: str):
        status, seconds, kilobytes = report.split()
        self.status = int(status)
        self.seconds = float(seconds)
        self.megabytes = int(kilobytes) / 1024
        self.output = output
        self.errors = errors

    def text(self) -> str:
        return self.output.read_text()


class Program:
    def __init__(self, path: str, folder):
        self.path = os.path.abspath(path)
        self.folder = folder
        self.aside = folder.parent / (folder.name + "-measured")
        self.aside.mkdir(exist_ok=True)

    def run(self, *arguments: str, feed=None, expect: int = 0) -> Measured:
        """`feed(file)` writes standard input."""
        report, output, errors = (self.aside / name for name in ("report", "output", "errors"))
        with output.open("wb") as out, errors.open("wb") as err:
            process = subprocess.Popen(
                [sys.executable, "-I", "-S", __file__, str(report), self.path, *arguments],
                cwd=self.folder,
                stdin=subprocess.PIPE if feed else subprocess.DEVNULL,
                stdout=out,
                stderr=err,
            )
            if feed:
                self.write(feed, process)
            process.wait()
        done = Measured(report.read_text(), output, errors.read_text(errors="replace"))
        if done.status != expect:
            raise Failure(f"{arguments} gave exit status {done.status}, not {expect}: {done.errors[:1000]}")
        return done

    @staticmethod
    def write(feed, process: subprocess.Popen) -> None:
        try:
            with process.stdin as file:
                feed(file)
        except BrokenPipeError:
            pass  # its exit status tells


def measure(report: str, command: list[str]) -> None:
    process = os.posix_spawn(command[0], command, os.environ)
    _, status, used = os.wait4(process, 0)
    with open(report, "w") as file:
        file.write(f"{os.waitstatus_to_exitcode(status)} {used.ru_utime + used.ru_stime} {used.ru_maxrss}")


if __name__ == "__main__":
    measure(sys.argv[1], sys.argv[2:])
