# SPDX-License-Identifier: MIT
"""The tool as an ordinary user runs it, with and without the udev rule that comes with it."""

import os
import shutil
import subprocess
import unittest

from gadget_camera import (
    NUBOCTL,
    PATIENCE_S,
    RULE,
    TOOL,
    GadgetCamera,
    device_folder,
    has_open,
    node,
    root,
    run,
    wait_for,
)

USER = 4711
PROGRAMS = "/tmp/ordinary-user"
INSTALLED = "/etc/udev/rules.d/70-nubo-setting-tool.rules"
# As the session's manager keeps it: who sits at the computer.
SEAT = "/run/systemd/seats/seat0"
AS_USER = ("setpriv", "--reuid", str(USER), "--regid", str(USER), "--clear-groups")


class RightsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        os.makedirs(PROGRAMS, exist_ok=True)
        # The folders above a build may be its owner's alone.
        for program in (TOOL, NUBOCTL):
            shutil.copy(program, PROGRAMS)
        os.chown(PROGRAMS, USER, USER)
        os.makedirs(os.path.dirname(SEAT), exist_ok=True)
        with open(SEAT, "w", encoding="ascii") as seat:
            seat.write(f"IS_SEAT0=1\nCAN_MULTI_SESSION=1\nACTIVE=1\nACTIVE_UID={USER}\n")
        cls.camera = GadgetCamera()
        cls.addClassCleanup(cls.camera.end)

    def set_rule(self, installed):
        if installed:
            shutil.copy(RULE, INSTALLED)
        elif os.path.exists(INSTALLED):
            os.remove(INSTALLED)
        root("udevadm control --reload")
        if device_folder():
            self.camera.unplug()
        self.camera.plug()

    def nuboctl(self, *words):
        return run(*AS_USER, f"{PROGRAMS}/nuboctl", *words)

    def start_tool(self):
        environment = {
            "HOME": PROGRAMS,
            "PATH": os.environ["PATH"],
            "LC_ALL": "C.UTF-8",
            "QT_QPA_PLATFORM": "offscreen",
            "TMPDIR": PROGRAMS,
        }
        log = open(f"{PROGRAMS}/log", "w+", encoding="utf-8")
        self.addCleanup(log.close)
        tool = subprocess.Popen(
            [*AS_USER, f"{PROGRAMS}/nubo-setting-tool"], env=environment, stderr=log
        )

        def end():
            tool.terminate()
            tool.wait(PATIENCE_S)

        self.addCleanup(end)
        return tool

    @staticmethod
    def log():
        with open(f"{PROGRAMS}/log", encoding="utf-8") as log:
            return log.read()

    def test_with_the_installed_rule_the_camera_opens(self):
        self.set_rule(True)
        info = self.nuboctl("info")
        self.assertEqual(info.returncode, 0, info.stderr)
        self.assertIn("SIM0001", info.stdout)
        self.assertNotIn("failure", self.nuboctl("doctor").stdout)
        tool = self.start_tool()
        wait_for(lambda: "Camera ready" in self.log(), "ready camera")
        self.assertTrue(has_open(tool.pid, node()))

    def test_without_the_rule_the_remedy_is_told(self):
        self.set_rule(False)
        info = self.nuboctl("info")
        self.assertEqual(info.returncode, 5, info.stdout)
        self.assertIn("access denied", info.stderr)
        self.assertIn("access denied", self.nuboctl("list").stdout)
        self.assertIn("install 70-nubo-setting-tool.rules", self.nuboctl("doctor").stdout)
        tool = self.start_tool()
        wait_for(lambda: "cannot be opened" in self.log(), "line of the log")
        self.assertIn("Access denied", self.log())
        self.assertIn("Install the udev rule that comes with the tool", self.log())
        self.set_rule(True)
        wait_for(lambda: "Camera ready" in self.log(), "ready camera")
        self.assertIsNone(tool.poll())
