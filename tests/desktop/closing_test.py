# SPDX-License-Identifier: MIT
"""Closes the window at random moments: nothing of the tool stays behind."""

import os
import random
import stat
import sys
import tempfile
import time
import unittest

from running_tool import RunningTool
from simulated_tool import SimulatedTool, wait_for

SIMULATOR, TOOL = sys.argv[1:3]
SEED = int(os.environ.get("NUBO_SEED", "1"))  # of the moments

# The simulator ends with the command that it runs; this one stays when the tool has ended.
STAYING = """#!/bin/sh
"$NUBO_TOOL"
echo $? >"$NUBO_EXIT"
exec sleep 1000
"""


class ClosingTest(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.exit = os.path.join(directory.name, "exit")
        command = os.path.join(directory.name, "staying")
        with open(command, "w", encoding="ascii") as script:
            script.write(STAYING)
        os.chmod(command, stat.S_IRWXU)
        environment = {"QT_QPA_PLATFORM": "xcb", "NUBO_TOOL": TOOL, "NUBO_EXIT": self.exit}
        self.tool = SimulatedTool(SIMULATOR, command, environment)
        self.addCleanup(self.tool.end)
        self.running = RunningTool(TOOL, self.tool.pid)
        self.addCleanup(self.running.kill)
        self.running.window()

    def close_and_look(self):
        self.running.close()
        wait_for(lambda: os.path.exists(self.exit) and os.path.getsize(self.exit), "its exit code")
        with open(self.exit, encoding="ascii") as code:
            self.assertEqual(code.read().strip(), "0")
        # The handle on the camera's node holds the claim, and the claim ends with it.
        wait_for(lambda: ", open 0," in self.tool.camera("status"), "the camera to be free")
        self.assertEqual(self.running.shared_segments(), [])

    def test_while_it_waits_for_the_camera(self):
        time.sleep(random.Random(SEED).uniform(0, 3))
        self.close_and_look()

    def test_in_the_middle_of_a_transaction(self):
        # The first command comes when the camera is announced; it never gets an answer.
        self.tool.camera("fault timeout command 1 forever")
        wait_for(lambda: "commands 0" not in self.tool.camera("status"), "a command")
        self.close_and_look()

    def test_with_the_cable_pulled(self):
        wait_for(lambda: "commands 0" not in self.tool.camera("status"), "a command")
        self.tool.camera("unplug")
        self.close_and_look()

    def test_at_any_moment(self):
        generator = random.Random(SEED)
        wait_for(lambda: "commands 0" not in self.tool.camera("status"), "a command")
        for _ in range(generator.randrange(1, 6)):
            self.running.click_mode(generator.randrange(5))
            self.running.click_somewhere(generator)
        time.sleep(generator.uniform(0, 0.3))
        self.close_and_look()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
