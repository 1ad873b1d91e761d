# SPDX-License-Identifier: MIT
"""The tool's process, seen from outside, and its window under the mouse."""

import ctypes
import os
import pathlib
import signal
import subprocess
import time

from simulated_tool import PATIENCE_S, wait_for
from xdotool import xdotool

WINDOW = "^NuBo Setting Tool$"
WIDTH, HEIGHT = 600, 620
MODES = 5
MODE_BAR_Y = 72
PAGE_Y = 120  # and below
SECONDS_FOR_KEYS = 2
PR_SET_THP_DISABLE = 41  # linux/prctl.h


def without_huge_pages():
    """From now on this process and those that it starts have memory in small pages: in large ones
    they would seem to grow by leaps."""
    ctypes.CDLL(None).prctl(PR_SET_THP_DISABLE, 1, 0, 0, 0)


def children(pid):
    listed = pathlib.Path(f"/proc/{pid}/task/{pid}/children").read_text(encoding="ascii")
    return [int(child) for child in listed.split()]


def descendants(pid):
    for child in children(pid):
        yield child
        yield from descendants(child)


def name_of(pid):
    try:
        return pathlib.Path(os.readlink(f"/proc/{pid}/exe")).name
    except OSError:
        return ""


class RunningTool:
    """The process below another one that runs the tool; waits until there is one."""

    def __init__(self, tool, ancestor):
        name = pathlib.Path(tool).name

        def search():
            return next((pid for pid in descendants(ancestor) if name_of(pid) == name), None)

        self.pid = wait_for(search, f"a process of {name}")
        self._window = None
        self._presses_at = 0

    def is_alive(self):
        try:
            state = pathlib.Path(f"/proc/{self.pid}/stat").read_text(encoding="utf-8")
        except FileNotFoundError:
            return False
        return state.rpartition(")")[2].split()[0] not in ("Z", "X")

    def kill(self):
        """If it has not ended yet."""
        if self.is_alive():
            os.kill(self.pid, signal.SIGKILL)

    def open_files(self):
        return len(os.listdir(f"/proc/{self.pid}/fd"))

    def written_memory(self):
        """What the process alone has, in KiB, apart from unchanged pages of files: these become
        its own whenever another process that maps them ends."""
        rollup = pathlib.Path(f"/proc/{self.pid}/smaps_rollup").read_text(encoding="ascii")
        return next(int(line.split()[1]) for line in rollup.splitlines() if line.startswith("Private_Dirty"))

    def shared_segments(self):
        """The shared memory that it has made."""
        rows = pathlib.Path("/proc/sysvipc/shm").read_text(encoding="ascii").splitlines()
        creator = rows[0].split().index("cpid")
        return [row for row in rows[1:] if int(row.split()[creator]) == self.pid]

    def window(self):
        if self._window is None:
            found = wait_for(lambda: self.windows(), "the window")
            self._window = found[0]
        return self._window

    @staticmethod
    def windows():
        """All that are on show, dialogs too."""
        try:
            return xdotool("search", "--onlyvisible", "--name", WINDOW).split()
        except subprocess.CalledProcessError:
            return []

    def click(self, x, y):
        xdotool("mousemove", "--window", self.window(), x, y, "click", 1)

    def click_mode(self, number):
        """Counted from 0."""
        self.click(WIDTH * (2 * number + 1) // (2 * MODES), MODE_BAR_Y)

    def click_somewhere(self, generator):
        """On the page, or on the dialog above it."""
        self.click(generator.randrange(20, WIDTH - 20), generator.randrange(PAGE_Y, HEIGHT - 20))

    def close_dialogs(self):
        """Escape closes the uppermost, and is "Back" on a page."""

        def are_closed():
            for window in self.windows()[1:]:
                command = ["xdotool", "windowfocus", window, "key", "Escape"]
                subprocess.run(command, check=False, capture_output=True, timeout=PATIENCE_S)
            return len(self.windows()) <= 1

        wait_for(are_closed, "the end of the dialogs")

    def close(self):
        """Presses keys in all windows until the tool has ended.

        Escape closes a dialog, and with none open Ctrl+W closes the window.
        """

        def ends():
            if self._presses_at <= time.monotonic():
                # Not while the keys before are still to be taken.
                self._presses_at = time.monotonic() + SECONDS_FOR_KEYS
                for window in self.windows():
                    command = ["xdotool", "windowfocus", window, "key", "Escape", "key", "ctrl+w"]
                    subprocess.run(command, check=False, capture_output=True, timeout=PATIENCE_S)
            return not self.is_alive()

        wait_for(ends, "the end of the tool")
