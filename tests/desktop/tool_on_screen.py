# SPDX-License-Identifier: MIT
"""What the tests have in common that operate the tool as a screen reader does."""

import sys
import unittest

import pyatspi

from screen import Screen
from simulated_tool import SimulatedTool

NAME = "NuBo Setting Tool"

# Each mode, and a text that its page alone shows.
MODES = {
    "Network setting": "AP of selecting",
    "Basic setting": "Setting camera name",
    "Stream setting": "Rec setting",
    "Help": "Serial number",
    "Camera state": "Battery charge",
}


class ToolOnScreen(unittest.TestCase):
    """The tool with a camera, on the page of the camera's state at first."""

    @classmethod
    def setUpClass(cls):
        cls.tool = SimulatedTool(*sys.argv[1:3], {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
        cls.addClassCleanup(cls.tool.end)
        cls.screen = Screen(NAME)
        cls.screen.wait_for_text("Battery charge")

    def press(self, name, role=pyatspi.ROLE_PUSH_BUTTON):
        self.screen.press(role, name)

    def choose(self, mode):
        self.press(mode, pyatspi.ROLE_RADIO_BUTTON)
        self.screen.wait_for_text(MODES[mode])

    def open_dialog(self, button):
        self.press(button)
        self.screen.wait_for_text("Cancel")

    def close_dialog(self, button="Cancel"):
        self.press(button)
        self.screen.wait_until_gone(button)


def run():
    """Runs the tests of the script; its first two arguments are the simulator and the tool."""
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
