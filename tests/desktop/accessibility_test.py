# SPDX-License-Identifier: MIT
"""Reads the tool as a screen reader does: over AT-SPI, from another process."""

import pyatspi

from simulated_tool import wait_for
from tool_on_screen import MODES, NAME, ToolOnScreen, run

# Each button that leads to another part of the network page, and a text of that part.
SUB_PAGES = {
    "AP search and setting": "Display list that can connect AP",
    "AP manual setting": "Input SSID to connect AP",
    "Harbour, Linked, AES, Signal strength 72": "Set ON when use DHCP server",
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
    pyatspi.ROLE_IMAGE,
    pyatspi.ROLE_LIST_ITEM,
    pyatspi.ROLE_PASSWORD_TEXT,
    pyatspi.ROLE_PROGRESS_BAR,
    pyatspi.ROLE_PUSH_BUTTON,
    pyatspi.ROLE_RADIO_BUTTON,
    pyatspi.ROLE_SLIDER,
    pyatspi.ROLE_SPIN_BUTTON,
    pyatspi.ROLE_TEXT,
}


def is_named(control):
    # A combo box tells its value as its name: what it is for, the group around it tells.
    if control.role == pyatspi.ROLE_COMBO_BOX:
        return bool(control.node.parent.name)
    return bool(control.name) or control.role not in NAMED_ROLES


# The keys of what takes no focus, by the mode on show.
KEYS = {
    "Camera state": "Ctrl+1, F5",
    "Network setting": "Ctrl+2",
    "Basic setting": "Ctrl+3",
    "Stream setting": "Ctrl+4",
    "Help": "Ctrl+5, F1",
}


class AccessibilityTest(ToolOnScreen):
    def assert_all_are_named(self, where):
        for control in self.screen.controls():
            with self.subTest(where=where, role=control.role):
                self.assertTrue(is_named(control))

    def assert_can_be_read(self, *texts):
        for text in texts:
            self.screen.wait_for_text(text)

    def test_the_window_is_named(self):
        self.assertEqual(self.screen.find(pyatspi.ROLE_FRAME, NAME).name, NAME)

    def test_every_mode_can_be_chosen(self):
        for mode in MODES:
            with self.subTest(mode=mode):
                self.choose(mode)
                button = self.screen.find(pyatspi.ROLE_RADIO_BUTTON, mode)
                self.assertTrue(button.has_state(pyatspi.STATE_CHECKED))
                self.assert_all_are_named(mode)

    def assert_keys_are_told(self, role, name, keys):
        button = self.screen.find(role, name).node
        wait_for(lambda: button.description == keys, f"keys of '{name}'")
        bindings = button.queryAction().getKeyBinding(0)
        self.assertEqual(bindings.split(";"), keys.split(", "))

    def test_the_keys_are_told(self):
        self.choose("Camera state")
        for mode, keys in KEYS.items():
            self.assert_keys_are_told(pyatspi.ROLE_RADIO_BUTTON, mode, keys)
        self.assert_keys_are_told(pyatspi.ROLE_PUSH_BUTTON, "Close", "Ctrl+Q, Ctrl+W")
        self.choose("Network setting")
        self.assert_keys_are_told(pyatspi.ROLE_RADIO_BUTTON, "Adhoc", "Ctrl+Tab")
        self.press("AP manual setting")
        self.assert_keys_are_told(pyatspi.ROLE_PUSH_BUTTON, "Back", "Esc")
        self.press("Back")

    def test_every_control_of_the_sub_pages_is_named(self):
        self.choose("Network setting")
        for button, text in SUB_PAGES.items():
            self.press(button)
            self.screen.wait_for_text(text)
            self.assert_all_are_named(button)
            self.press("Back")
            self.screen.wait_for_text("AP of selecting")
        self.press("Adhoc", pyatspi.ROLE_RADIO_BUTTON)
        self.screen.wait_for_text("SSID of adhoc")
        self.assert_all_are_named("Adhoc")
        self.press("Infrastructure", pyatspi.ROLE_RADIO_BUTTON)

    def test_every_control_of_the_dialogs_is_named(self):
        for mode, buttons in DIALOGS.items():
            self.choose(mode)
            for button in buttons:
                self.open_dialog(button)
                self.assert_all_are_named(button)
                self.close_dialog()

    def test_the_calendar_can_be_read(self):
        self.tool.camera("set time 2014/03/09 07:05:01")
        self.choose("Basic setting")
        self.open_dialog("Setting time")
        self.press("Calendar")
        self.assert_can_be_read("March", "2014", "31")
        self.assert_all_are_named("calendar")
        self.screen.press_last(pyatspi.ROLE_PUSH_BUTTON, "Cancel")
        self.screen.wait_until_gone("March")
        self.close_dialog()

    def test_the_access_points_can_be_read(self):
        self.choose("Network setting")
        self.press("AP search and setting")
        for row in ("Harbour, Linked, AES, Signal strength 72", "Guest, Signal strength 23"):
            found = self.screen.find(pyatspi.ROLE_LIST_ITEM, row)
            self.assertEqual(found.node.parent.getRole(), pyatspi.ROLE_LIST)
        self.assert_all_are_named("access points")
        self.press("Back")

    def test_the_state_page_can_be_read(self):
        self.choose("Camera state")
        self.assert_can_be_read("85%", "Link", "72dBm", "6ch", "7930380288 Byte", "FAT32")
        battery = self.screen.find(pyatspi.ROLE_PROGRESS_BAR, "Battery charge").node.queryValue()
        self.assertEqual(battery.currentValue, 85)
        self.tool.camera("set battery 9")
        self.addCleanup(self.tool.camera, "set battery 85")
        self.screen.wait_for_text("9%")

    def test_the_help_page_can_be_read(self):
        self.choose("Help")
        self.assert_can_be_read("1.00", "SIM0001", "02:00:5E:10:00:01", "2014/03/09", "Japan")

    def test_the_page_without_a_camera_can_be_read(self):
        self.choose("Camera state")
        self.tool.camera("unplug")
        self.screen.find(pyatspi.ROLE_IMAGE, "Connect camera by USB cable")
        self.screen.find(pyatspi.ROLE_LABEL, "Connect camera by USB cable")
        mode = self.screen.find(pyatspi.ROLE_RADIO_BUTTON, "Camera state")
        self.assertFalse(mode.has_state(pyatspi.STATE_ENABLED))
        self.tool.camera("plug")
        self.screen.wait_for_text("Battery charge")


if __name__ == "__main__":
    run()
