# SPDX-License-Identifier: MIT
"""The tool on a simulated camera, in processes of their own."""

import os
import pathlib
import subprocess
import sys
import tempfile

sys.path.append(str(pathlib.Path(__file__).parents[1] / "support"))

# The tests of this folder have these from here.
from simulation import PATIENCE_S, control, wait_for  # noqa: E402, F401

class SimulatedTool:
    """Starts the tool on a camera; both run until end()."""

    def __init__(self, simulator, tool, environment, errors=None):
        """environment is added to this process's; errors is a file for what the tool logs."""
        self._directory = tempfile.TemporaryDirectory()
        self._control = os.path.join(self._directory.name, "camera")
        self._process = subprocess.Popen(
            [simulator, "--control", self._control, "--", tool],
            env=os.environ | environment,
            stderr=errors,
        )

    @property
    def pid(self):
        """Of the simulator, which has started the tool."""
        return self._process.pid

    def wait(self):
        """Waits until the tool has ended by itself; its exit code."""
        return self._process.wait(PATIENCE_S)

    def end(self):
        self._process.terminate()
        self._process.wait(PATIENCE_S)
        self._directory.cleanup()

    def camera(self, line):
        """Sends the simulator a control line; its answer."""
        return control(self._control, line)
