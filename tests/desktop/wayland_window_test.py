# SPDX-License-Identifier: MIT
"""The tool's window on Wayland, under a mouse on the screen of a compositor."""

import os
import re
import subprocess
import sys
import tempfile
import unittest

from simulated_tool import SimulatedTool, wait_for
from xdotool import xdotool

SIMULATOR, TOOL = sys.argv[1:3]
DISPLAY_NAME = "nubo-wayland-test"
SCREEN = 1024, 768
CENTRE = 512, 384  # the compositor puts a first window over it
POINTER_PLACE = re.compile(
    r"wl_pointer@\d+\.(?:enter\(\d+, wl_surface@\d+|motion\(\d+), ([\d.]+), ([\d.]+)\)"
)


class WaylandWindowTest(unittest.TestCase):
    def setUp(self):
        self.start_compositor()
        # What goes between the tool and the compositor is logged; the tool itself logs little.
        self.log = tempfile.NamedTemporaryFile()
        self.addCleanup(self.log.close)
        self.tool = SimulatedTool(
            SIMULATOR,
            TOOL,
            {
                "QT_QPA_PLATFORM": "wayland",
                "WAYLAND_DEBUG": "1",
                "WAYLAND_DISPLAY": DISPLAY_NAME,
            },
            self.log,
        )
        self.addCleanup(self.tool.end)

    def start_compositor(self):
        compositor = subprocess.Popen(
            [
                "weston",
                "--backend=x11-backend.so",
                "--use-pixman",
                f"--width={SCREEN[0]}",
                f"--height={SCREEN[1]}",
                f"--socket={DISPLAY_NAME}",
                "--idle-time=0",
            ],
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
        )
        self.addCleanup(compositor.wait)
        self.addCleanup(compositor.terminate)
        path = os.path.join(os.environ["XDG_RUNTIME_DIR"], DISPLAY_NAME)
        wait_for(lambda: os.path.exists(path), "the compositor")

    def pointer_in_window(self):
        """Where the pointer was last told to be in the window, in pixels; nothing before that."""
        with open(self.log.name, encoding="utf-8", errors="replace") as log:
            places = POINTER_PLACE.findall(log.read())
        return tuple(float(number) for number in places[-1]) if places else None

    def logged(self, pattern):
        with open(self.log.name, encoding="utf-8", errors="replace") as log:
            return re.search(pattern, log.read())

    def window_place(self):
        """Where the window is, found by a pointer at a known place above it."""
        # The window is told of a pointer that enters it, and may not be there yet.
        def search():
            xdotool("mousemove", 0, 0)
            xdotool("mousemove", *CENTRE)
            return self.pointer_in_window()

        seen = wait_for(search, "the window under the pointer")
        return CENTRE[0] - seen[0], CENTRE[1] - seen[1]

    def test_the_task_bar_finds_the_desktop_file(self):
        wait_for(
            lambda: self.logged(r'xdg_toplevel@\d+\.set_app_id\("nubo-setting-tool"\)'),
            "the name of the desktop file",
        )

    def test_the_compositor_drags_the_window(self):
        x, y = self.window_place()
        grip = x + 150, y + 10
        xdotool("mousemove", *map(int, grip))
        wait_for(lambda: self.pointer_in_window() == (150, 10), "the pointer on the caption bar")
        xdotool("mousedown", 1)
        pressed = wait_for(
            lambda: self.logged(r"wl_pointer@\d+\.button\((\d+), \d+, 272, 1\)"), "the press"
        )
        wait_for(
            lambda: self.logged(rf"xdg_toplevel@\d+\.move\(wl_seat@\d+, {pressed[1]}\)"),
            "the request to drag",
        )
        xdotool("mousemove", int(grip[0]) + 60, int(grip[1]) + 40)
        xdotool("mouseup", 1)
        wait_for(lambda: self.window_place() == (x + 60, y + 40), "the window at its new place")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
