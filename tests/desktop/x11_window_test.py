# SPDX-License-Identifier: MIT
"""The tool's window as an X server and a task bar see it."""

import configparser
import pathlib
import subprocess
import sys
import unittest

from simulated_tool import SimulatedTool, wait_for
from xdotool import xdotool

SIMULATOR, TOOL = sys.argv[1:3]
DESKTOP_FILE = pathlib.Path(__file__).parents[2] / "packaging" / "nubo-setting-tool.desktop"
GRIP = 150, 10  # on the caption bar


class X11WindowTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.tool = SimulatedTool(SIMULATOR, TOOL, {"QT_QPA_PLATFORM": "xcb"})
        cls.addClassCleanup(cls.tool.end)
        search = "search", "--sync", "--onlyvisible", "--name", "^NuBo Setting Tool$"
        cls.window = xdotool(*search).split()[0]

    def place(self):
        shown = xdotool("getwindowgeometry", "--shell", self.window)
        values = dict(line.split("=") for line in shown.splitlines())
        return int(values["X"]), int(values["Y"])

    def property(self, name, form):
        """A property of the window; form is xprop's for one value of it."""
        command = ["xprop", "-id", self.window, "-notype", "-f", name, form, name]
        shown = subprocess.run(command, check=True, capture_output=True, text=True).stdout
        return [value.strip() for value in shown.partition("=")[2].split(",")]

    def test_the_window_follows_the_mouse(self):
        for steps in ([(60, 40), (200, 90), (30, 15)], [(-20, 25)]):
            x, y = self.place()
            xdotool("mousemove", x + GRIP[0], y + GRIP[1])
            xdotool("mousedown", 1)
            for right, down in steps:
                xdotool("mousemove", x + right + GRIP[0], y + down + GRIP[1])
                place = x + right, y + down
                wait_for(lambda: self.place() == place, "the window under the mouse")
            xdotool("mouseup", 1)
            # A window that still followed would be elsewhere when it is dragged again.
            xdotool("mousemove", 0, 0)
            xdotool("mousemove", place[0] + GRIP[0], place[1] + GRIP[1])
            self.assertEqual(self.place(), place)

    def test_the_task_bar_finds_the_desktop_file(self):
        entry = configparser.ConfigParser(interpolation=None)
        entry.read(DESKTOP_FILE, encoding="utf-8")
        name = entry["Desktop Entry"]["StartupWMClass"]
        self.assertIn(f'"{name}"', self.property("WM_CLASS", "8s"))

    def test_the_window_has_an_icon(self):
        width, height, *pixels = map(int, self.property("_NET_WM_ICON", "32c"))
        self.assertEqual((width, height), (128, 128))
        self.assertGreaterEqual(len(pixels), width * height)
        opaque = {pixel for pixel in pixels if pixel >> 24 == 0xFF}
        self.assertGreater(len(opaque), 1, "a picture has more than one colour")


class X11KeysTest(unittest.TestCase):
    def test_a_key_closes_the_window(self):
        tool = SimulatedTool(SIMULATOR, TOOL, {"QT_QPA_PLATFORM": "xcb"})
        self.addCleanup(tool.end)
        search = "search", "--sync", "--onlyvisible", "--name", "^NuBo Setting Tool$"
        # There is no window manager that would do it.
        xdotool("windowfocus", "--sync", xdotool(*search).split()[0])
        xdotool("key", "ctrl+w")
        self.assertEqual(tool.wait(), 0)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
