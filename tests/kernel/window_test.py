# SPDX-License-Identifier: MIT
"""The complete window on an X server, operated over AT-SPI, on the gadget camera."""

import os
import subprocess
import unittest

import pyatspi

from gadget_camera import (
    PATIENCE_S,
    TOOL,
    GadgetCamera,
    InterfaceHolder,
    device_folder,
    has_open,
    use_of,
    wait_for,
)
from screen import Screen
from tool_on_screen import MODES, NAME

NOT_CONNECTED = "Connect camera by USB cable"
CYCLES = 50


def read_text(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


class ConnectedWindow(unittest.TestCase):
    """One window on one camera, that is connected and as it was when a test ends."""

    @classmethod
    def setUpClass(cls):
        cls.camera = GadgetCamera(plugged=False)
        cls.addClassCleanup(cls.camera.end)
        environment = os.environ | {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        cls.tool = subprocess.Popen([TOOL], env=environment)
        cls.addClassCleanup(cls.end_tool)
        cls.screen = Screen(NAME)
        cls.screen.wait_for_text(NOT_CONNECTED)

    def setUp(self):
        if not device_folder():
            self.camera.plug()
        self.screen.wait_until_gone(NOT_CONNECTED)

    @classmethod
    def end_tool(cls):
        cls.tool.terminate()
        cls.tool.wait(PATIENCE_S)

    def press(self, name, role=pyatspi.ROLE_PUSH_BUTTON):
        self.screen.press(role, name)

    def choose(self, mode):
        self.press(mode, pyatspi.ROLE_RADIO_BUTTON)
        self.screen.wait_for_text(MODES[mode])


class WindowTest(ConnectedWindow):
    def test_the_state_page_is_live(self):
        self.choose("Camera state")
        self.screen.wait_for_text("85%")
        self.screen.wait_for_text("7930380288 Byte")
        self.camera.do("set battery 9")
        self.addCleanup(self.camera.do, "set battery 85")
        self.screen.wait_for_text("9%")

    def test_a_setting_is_changed_and_read_back(self):
        self.camera.do("set led-start on")
        self.choose("Basic setting")
        self.press("Setting LED")
        self.press("Not light", pyatspi.ROLE_RADIO_BUTTON)
        self.press("OK")
        wait_for(lambda: self.camera.do("get led-start") == "off", "LED off")
        self.screen.wait_until_gone("OK")
        self.press("Setting LED")
        wait_for(
            lambda: self.screen.find(pyatspi.ROLE_RADIO_BUTTON, "Not light").has_state(
                pyatspi.STATE_CHECKED
            ),
            "LED off in the dialog",
        )
        self.press("Cancel")
        self.screen.wait_until_gone("Cancel")

    def test_access_points_are_found(self):
        self.choose("Network setting")
        self.press("AP search and setting")
        self.screen.find(pyatspi.ROLE_LIST_ITEM, "Guest, Signal strength 23")
        self.press("Back")

    def test_unplugged_in_the_middle_of_a_transfer_and_plugged_in_again(self):
        self.choose("Camera state")
        self.camera.do("fault device-gone command 2")
        self.screen.wait_for_text(NOT_CONNECTED)
        self.camera.do("set battery 61")
        self.addCleanup(self.camera.do, "set battery 85")
        self.camera.plug()
        self.screen.wait_for_text("61%")


class StartAndEndTest(unittest.TestCase):
    def setUp(self):
        self.camera = GadgetCamera()
        self.addCleanup(self.camera.end)

    def start(self):
        environment = os.environ | {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        with open("/tmp/window.log", "w", encoding="utf-8") as log:
            tool = subprocess.Popen([TOOL], env=environment, stderr=log)
        self.addCleanup(tool.wait, PATIENCE_S)
        self.addCleanup(tool.kill)
        return tool

    def test_a_camera_that_a_second_program_holds_is_waited_for(self):
        holder = InterfaceHolder()
        self.start()
        screen = Screen(NAME)
        wait_for(lambda: "Resource busy" in read_text("/tmp/window.log"), "line of the log")
        screen.wait_for_text(NOT_CONNECTED)
        holder.end()
        screen.wait_for_text("Battery charge")

    def test_closing_the_window_with_a_camera_ends_the_tool(self):
        tool = self.start()
        screen = Screen(NAME)
        screen.wait_for_text("Battery charge")
        screen.press(pyatspi.ROLE_PUSH_BUTTON, "Close")
        self.assertEqual(tool.wait(PATIENCE_S), 0)


class WindowUnpluggingTest(ConnectedWindow):
    """Comes last: what the window told assistive technology meanwhile makes each question slower."""

    def test_50_unpluggings_leave_nothing_behind(self):
        self.choose("Camera state")
        before = self.use()
        for _ in range(CYCLES):
            self.camera.unplug()
            path = self.camera.plug()
            wait_for(lambda: has_open(self.tool.pid, path), "camera in the tool's hands")
        self.screen.wait_for_text("Battery charge")
        files, memory = self.use()
        self.assertEqual(files, before[0])
        self.assertLess(memory, before[1] + 4096, "KiB")

    def use(self):
        """On the page of the camera's state."""
        self.screen.wait_for_text("85%")
        return use_of(self.tool.pid)
