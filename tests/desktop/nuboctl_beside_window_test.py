# SPDX-License-Identifier: MIT
"""The window and nuboctl at once: the one that claims a camera has it, the other finds it later."""

import os
import pathlib
import select
import signal
import subprocess
import sys
import tempfile
import unittest

from screen import Screen
from simulated_tool import PATIENCE_S, SimulatedTool, wait_for
from tool_on_screen import NAME
from xdotool import xdotool

SIMULATOR, TOOL, NUBOCTL = sys.argv[1:4]
NO_CAMERA = "Connect camera by USB cable"
CAMERA_STATE = "Battery charge"

# The tool as a child of the simulator. Others may be so as well, with its environment; and the bus
# stays when the tool has ended.
START = """#!/bin/sh
cd {folder}
env -0 >environment
{tool} &
echo $! >pid.new
mv pid.new pid
wait $!
echo $? >exit.new
mv exit.new exit
while [ ! -e end ]; do sleep 0.1; done
"""


class NuboctlBesideWindowTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        start = self.folder / "start"
        start.write_text(START.format(folder=self.folder, tool=TOOL))
        start.chmod(0o755)
        environment = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QT_QPA_PLATFORM": "xcb"}
        self.simulator = SimulatedTool(SIMULATOR, str(start), environment)
        self.addCleanup(self.end)
        self.pid = int(self.written("pid"))
        self.screen = Screen(NAME)
        self.screen.wait_for_text(CAMERA_STATE)

    def end(self):
        if not (self.folder / "exit").exists():
            os.kill(self.pid, signal.SIGTERM)
        (self.folder / "end").touch()
        self.simulator.wait()
        self.simulator.end()

    def written(self, name):
        path = self.folder / name
        wait_for(path.exists, name)
        return path.read_text()

    def environment(self):
        lines = (self.folder / "environment").read_bytes().split(b"\0")
        return dict(line.split(b"=", 1) for line in lines if line)

    def nuboctl(self, *words):
        process = subprocess.Popen(
            [NUBOCTL, *words],
            env=self.environment(),
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            text=True,
        )
        self.addCleanup(process.communicate)
        self.addCleanup(process.kill)
        return process

    def give_camera_to(self, holder):
        """Plugs the camera in until nuboctl, which looks more often than the window, has it."""

        def has_told():
            return bool(select.select([holder.stdout], [], [], 0)[0])

        while not has_told():
            self.assertEqual(self.simulator.camera("unplug"), "ok")
            self.screen.wait_for_text(NO_CAMERA)
            self.assertEqual(self.simulator.camera("plug"), "ok")
            wait_for(lambda: has_told() or CAMERA_STATE in self.screen.texts(), "a program with the camera")

    def test_the_window_is_named_and_waited_for(self):
        refused = self.nuboctl("get")
        out, err = refused.communicate(timeout=PATIENCE_S)
        self.assertEqual((refused.returncode, out), (4, ""))
        self.assertIn(f"in use by nubo-setting-tool (pid {self.pid})", err)

        waiting = self.nuboctl("--wait", "get", "camera.name")
        window = xdotool("search", "--sync", "--onlyvisible", "--name", f"^{NAME}$").split()[0]
        xdotool("windowfocus", "--sync", window)
        self.assertIsNone(waiting.poll())
        xdotool("key", "ctrl+w")
        self.assertEqual(self.written("exit").strip(), "0")
        out, err = waiting.communicate(timeout=PATIENCE_S)
        self.assertEqual((waiting.returncode, out, err), (0, "camera.name = Gull\n", ""))

    def test_the_window_finds_the_camera_again(self):
        holder = self.nuboctl("--wait", "status", "--watch=0.1")
        self.give_camera_to(holder)
        self.assertIn("battery.charge", holder.stdout.readline())
        refused = self.nuboctl("get")
        out, err = refused.communicate(timeout=PATIENCE_S)
        self.assertEqual((refused.returncode, out), (4, ""))
        self.assertIn(f"in use by nuboctl (pid {holder.pid})", err)
        self.assertNotIn(CAMERA_STATE, self.screen.texts())

        holder.send_signal(signal.SIGINT)
        holder.communicate(timeout=PATIENCE_S)
        self.assertEqual(holder.returncode, 130)
        self.screen.wait_for_text(CAMERA_STATE)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
