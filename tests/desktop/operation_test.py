# SPDX-License-Identifier: MIT
"""Operates the tool as a screen reader does: over AT-SPI, from another process."""

import datetime

import pyatspi

from simulated_tool import wait_for
from tool_on_screen import ToolOnScreen, run
from xdotool import xdotool


class OperationTest(ToolOnScreen):
    def expect_camera(self, item, value):
        wait_for(lambda: self.tool.camera(f"get {item}") == f"ok {value}", f"{item} {value}")

    def open_setting(self, button):
        self.choose("Basic setting")
        self.open_dialog(button)

    def expect_state(self, control, state, is_set=True):
        """Waits for a state of a control, which is a pair of role and name."""
        wait_for(
            lambda: self.screen.find(*control).has_state(state) == is_set,
            f"{control}: {state} {is_set}",
        )

    def test_a_box_can_be_answered(self):
        self.choose("Camera state")
        self.open_dialog("SD card format")
        self.close_dialog()

    def test_a_check_box_can_be_toggled(self):
        self.choose("Network setting")
        box = pyatspi.ROLE_CHECK_BOX, "Connect Infrastructure on startup"
        self.expect_state(box, pyatspi.STATE_CHECKED)
        self.screen.press(*box)
        self.expect_state(box, pyatspi.STATE_CHECKED, False)
        self.expect_camera("wifi", "off")
        self.tool.camera("set wifi on")
        self.expect_state(box, pyatspi.STATE_CHECKED)

    def test_an_access_point_can_be_chosen(self):
        self.choose("Network setting")
        self.press("AP search and setting")
        self.press("Workshop, TKIP, Signal strength 48", pyatspi.ROLE_LIST_ITEM)
        # Without a key, a box tells what is missing.
        prompt = "Input the encryption key of AP"
        self.screen.find(pyatspi.ROLE_PASSWORD_TEXT, prompt)
        self.press("OK")
        self.screen.wait_for_text("Not input key")
        self.screen.press_last(pyatspi.ROLE_PUSH_BUTTON, "OK")
        self.screen.wait_until_gone("Not input key")
        self.press("Show input", pyatspi.ROLE_CHECK_BOX)
        self.screen.find(pyatspi.ROLE_TEXT, prompt)
        self.screen.type(prompt, "Workbench1")
        self.close_dialog("OK")
        self.expect_camera("infra-ssid", "Workshop")
        self.expect_camera("infra-key", "Workbench1")

    def test_the_clock_can_follow_the_computer(self):
        self.tool.camera("set time 2014/03/09 07:05:01")
        self.open_setting("Setting time")
        self.assertEqual(self.screen.text_of("Year"), "2014")
        button = pyatspi.ROLE_PUSH_BUTTON, "Synchronize PC"
        self.screen.press(*button)
        self.expect_state(button, pyatspi.STATE_CHECKED)
        this_year = str(datetime.date.today().year)
        wait_for(lambda: self.screen.text_of("Year") == this_year, "this year")
        self.close_dialog()

    def test_a_choice_can_be_made(self):
        self.tool.camera("set led-start on")
        self.open_setting("Setting LED")
        self.press("Not light", pyatspi.ROLE_RADIO_BUTTON)
        self.close_dialog("OK")
        self.expect_camera("led-start", "off")

    def test_a_list_can_be_chosen_from(self):
        self.tool.camera("set timezone 9")
        self.open_setting("Setting time zone")
        tokyo = pyatspi.ROLE_COMBO_BOX, "Tokyo/Seoul/Yakutsk\nGMT+9:00"
        self.expect_state(tokyo, pyatspi.STATE_FOCUSED)
        xdotool("key", "Down")
        self.screen.find(pyatspi.ROLE_COMBO_BOX, "Melbourne/Vladivostok\nGMT+10:00")
        self.close_dialog("OK")
        self.expect_camera("timezone", "10")

    def test_a_slider_can_be_set(self):
        self.tool.camera("set image-quality 2")
        self.open_setting("Image quarity")
        self.screen.set_value(pyatspi.ROLE_SLIDER, "Setting contrast", 4)
        self.close_dialog("OK")
        self.expect_camera("image-quality", "4")

    def test_a_number_can_be_set(self):
        self.tool.camera("set auto-power-off 60")
        self.open_setting("Setting auto power off")
        self.screen.set_value(pyatspi.ROLE_SPIN_BUTTON, "Minutes", 5)
        self.close_dialog("OK")
        self.expect_camera("auto-power-off", "300")

    def test_a_text_can_be_typed(self):
        self.open_setting("Setting camera name")
        self.screen.type("Set the favarite camera name", "Gull")
        self.close_dialog("OK")
        self.expect_camera("camera-name", "Gull")


class ClosingTest(ToolOnScreen):
    def test_the_window_can_be_closed(self):
        self.press("Close")
        self.assertEqual(self.tool.wait(), 0)


if __name__ == "__main__":
    run()
