# SPDX-License-Identifier: MIT
"""Reads and operates the tool as a screen reader does: over AT-SPI, from another process."""

import sys
import unittest

import pyatspi

from screen import Screen
from simulated_tool import SimulatedTool, wait_for

SIMULATOR, TOOL = sys.argv[1:3]
NAME = "NuBo Setting Tool"

# Each mode, and a text that its page alone shows.
MODES = {
    "Network setting": "AP of selecting",
    "Basic setting": "Setting camera name",
    "Stream setting": "Rec setting",
    "Help": "Serial number",
    "Camera state": "Battery charge",
}

# Each button that leads to another part of the network page, and a text of that part.
SUB_PAGES = {
    "AP search and setting": "Display list that can connect AP",
    "AP manual setting": "Input SSID to connect AP",
}

# Each button that opens a dialog.
DIALOGS = {
    "Basic setting": [
        "Setting camera name",
        "Setting time zone",
        "Setting time",
        "Setting auto Wi-Fi off",
        "Setting Wi-Fi country",
        "Setting auto power off",
        "Setting LED",
        "Setting GPS",
        "Setting user authorization",
        "Setting interval",
        "Image quarity",
    ],
    "Stream setting": ["Rec setting", "LiveView setting"],
}

# What a user operates, or reads a value or a meaning from.
NAMED_ROLES = {
    pyatspi.ROLE_CHECK_BOX,
    pyatspi.ROLE_COMBO_BOX,
    pyatspi.ROLE_IMAGE,
    pyatspi.ROLE_PASSWORD_TEXT,
    pyatspi.ROLE_PROGRESS_BAR,
    pyatspi.ROLE_PUSH_BUTTON,
    pyatspi.ROLE_RADIO_BUTTON,
    pyatspi.ROLE_SLIDER,
    pyatspi.ROLE_SPIN_BUTTON,
    pyatspi.ROLE_TEXT,
}


class AccessibilityTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.tool = SimulatedTool(SIMULATOR, TOOL, {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
        cls.addClassCleanup(cls.tool.end)
        cls.screen = Screen(NAME)
        cls.screen.wait_for_text("Battery charge")

    def choose(self, mode):
        self.screen.press(pyatspi.ROLE_RADIO_BUTTON, mode)
        self.screen.wait_for_text(MODES[mode])

    def test_the_window_is_named(self):
        self.assertEqual(self.screen.find(pyatspi.ROLE_FRAME, NAME).name, NAME)

    def test_every_mode_can_be_chosen(self):
        for mode in MODES:
            with self.subTest(mode=mode):
                self.choose(mode)
                button = self.screen.find(pyatspi.ROLE_RADIO_BUTTON, mode)
                self.assertTrue(button.has_state(pyatspi.STATE_CHECKED))

    def assert_all_are_named(self, where):
        for control in self.screen.controls():
            with self.subTest(where=where, role=control.role):
                self.assertTrue(control.name or control.role not in NAMED_ROLES)

    def test_every_control_is_named(self):
        for mode in MODES:
            self.choose(mode)
            self.assert_all_are_named(mode)

    def test_every_control_of_the_sub_pages_is_named(self):
        self.choose("Network setting")
        for button, text in SUB_PAGES.items():
            self.screen.press(pyatspi.ROLE_PUSH_BUTTON, button)
            self.screen.wait_for_text(text)
            self.assert_all_are_named(button)
            self.screen.press(pyatspi.ROLE_PUSH_BUTTON, "Back")
            self.screen.wait_for_text("AP of selecting")
        self.screen.press(pyatspi.ROLE_RADIO_BUTTON, "Adhoc")
        self.screen.wait_for_text("SSID of adhoc")
        self.assert_all_are_named("Adhoc")
        self.screen.press(pyatspi.ROLE_RADIO_BUTTON, "Infrastructure")

    def test_every_control_of_the_dialogs_is_named(self):
        for mode, buttons in DIALOGS.items():
            self.choose(mode)
            for button in buttons:
                self.screen.press(pyatspi.ROLE_PUSH_BUTTON, button)
                self.screen.wait_for_text("Cancel")
                self.assert_all_are_named(button)
                self.screen.press(pyatspi.ROLE_PUSH_BUTTON, "Cancel")
                self.screen.wait_until_gone("Cancel")

    def test_the_state_page_can_be_read(self):
        self.choose("Camera state")
        for text in ("85%", "Link", "72dBm", "6ch", "7930380288 Byte", "FAT32"):
            self.screen.wait_for_text(text)
        battery = self.screen.find(pyatspi.ROLE_PROGRESS_BAR, "Battery charge").node.queryValue()
        self.assertEqual(battery.currentValue, 85)
        self.tool.camera("set battery 9")
        self.addCleanup(self.tool.camera, "set battery 85")
        self.screen.wait_for_text("9%")

    def test_a_box_can_be_answered(self):
        self.choose("Camera state")
        self.screen.press(pyatspi.ROLE_PUSH_BUTTON, "SD card format")
        self.screen.press(pyatspi.ROLE_PUSH_BUTTON, "Cancel")
        self.screen.wait_until_gone("Cancel")

    def test_a_setting_can_be_changed(self):
        self.tool.camera("set led-start on")
        self.choose("Basic setting")
        self.screen.press(pyatspi.ROLE_PUSH_BUTTON, "Setting LED")
        self.screen.press(pyatspi.ROLE_RADIO_BUTTON, "Not light")
        self.screen.press(pyatspi.ROLE_PUSH_BUTTON, "OK")
        wait_for(lambda: self.tool.camera("get led-start").endswith("off"), "the camera's new value")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
