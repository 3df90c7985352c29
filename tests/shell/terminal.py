"""A program on a terminal of its own, driven key by key. What it shows is read off an emulated screen."""

import fcntl
import os
import pty
import select
import signal
import struct
import termios
import time

import pyte

TAB = "\t"
ENTER = "\r"
UP, DOWN, RIGHT, LEFT = "\x1b[A", "\x1b[B", "\x1b[C", "\x1b[D"
BACKSPACE = "\x7f"


def ctrl(letter):
    return chr(ord(letter.upper()) - ord("@"))


class Terminal:
    """The deadline is only for what never comes; no result depends on time."""

    SECONDS = 60

    def __init__(self, arguments, environment, columns=80, rows=24, term="xterm"):
        self.screen = pyte.HistoryScreen(columns, rows, history=1000, ratio=1)
        self._stream = pyte.ByteStream(self.screen)
        self.status = None
        self.raw = b""
        self.pid, self._master = pty.fork()
        if self.pid == 0:
            self._set_size(0, columns, rows)
            os.execvpe(arguments[0], arguments, dict(environment, TERM=term))

    @staticmethod
    def _set_size(descriptor, columns, rows):
        fcntl.ioctl(descriptor, termios.TIOCSWINSZ, struct.pack("HHHH", rows, columns, 0, 0))

    def resize(self, columns, rows):
        self.screen.resize(rows, columns)
        self._set_size(self._master, columns, rows)

    def type(self, keys):
        os.write(self._master, keys.encode())

    def lines(self):
        """Everything shown so far, without empty lines at the end."""
        past = ["".join(cells[column].data for column in range(self.screen.columns)) for cells in self.screen.history.top]
        lines = [line.rstrip() for line in past + list(self.screen.display)]
        while lines and not lines[-1]:
            lines.pop()
        return lines

    def text(self):
        return "\n".join(self.lines())

    def cursor_line(self):
        """The text of the cursor's line before and behind the cursor."""
        row = self.screen.buffer[self.screen.cursor.y]
        cells = [row[column].data for column in range(self.screen.columns)]
        return "".join(cells[: self.screen.cursor.x]), "".join(cells[self.screen.cursor.x:]).rstrip()

    def _read_more(self, deadline):
        """False once the program has closed the terminal."""
        ready, _, _ = select.select([self._master], [], [], max(0, deadline - time.monotonic()))
        if not ready:
            raise AssertionError("What was expected was never shown. The screen:\n" + self.text())
        try:
            data = os.read(self._master, 65536)
        except OSError:
            data = b""
        self.raw += data
        self._stream.feed(data)
        return bool(data)

    def wait(self, condition):
        deadline = time.monotonic() + self.SECONDS
        while not condition():
            if not self._read_more(deadline):
                raise AssertionError("The program ended. The screen:\n" + self.text())

    def wait_for(self, text):
        self.wait(lambda: text in self.text())

    def wait_for_input(self, typed, behind=""):
        """Until the cursor's line holds exactly this, a prompt included."""
        self.wait(lambda: self.cursor_line() == (typed, behind))

    def wait_for_editor(self):
        """Until the program reads keys. What is typed while it does something else the terminal would show by itself."""
        deadline = time.monotonic() + self.SECONDS
        while termios.tcgetattr(self._master)[3] & termios.ICANON:
            if time.monotonic() > deadline:
                raise AssertionError("The program reads no keys. The screen:\n" + self.text())
            time.sleep(0.001)

    def enter(self, line):
        """Types a line behind what stands on the cursor's, and ends it once it is shown."""
        self.wait_for_editor()
        self.type(line)
        self.wait(lambda: self.cursor_line()[0].endswith(line) and len(self.cursor_line()[0]) > len(line))
        row = self.screen.cursor.y, len(self.screen.history.top)
        self.type(ENTER)
        self.wait(lambda: (self.screen.cursor.y, len(self.screen.history.top)) != row)

    def end(self):
        """Waits until the program ends; its exit status."""
        deadline = time.monotonic() + self.SECONDS
        while self._read_more(deadline):
            pass
        self.status = os.waitstatus_to_exitcode(os.waitpid(self.pid, 0)[1])
        os.close(self._master)
        return self.status

    def close(self):
        if self.status is None:
            os.kill(self.pid, signal.SIGKILL)
            os.close(self._master)
            self.status = os.waitstatus_to_exitcode(os.waitpid(self.pid, 0)[1])
