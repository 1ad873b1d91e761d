# SPDX-License-Identifier: MIT
"""The tool on a simulated camera, in processes of their own."""

import os
import socket
import subprocess
import tempfile
import time

PATIENCE_S = 30


def wait_for(condition, what):
    """The first true result of condition(); fails after PATIENCE_S seconds."""
    end = time.monotonic() + PATIENCE_S
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.05)
    raise AssertionError(f"Waited in vain for {what}.")


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
        with socket.socket(socket.AF_UNIX) as control:
            control.connect(self._control)
            control.sendall(f"{line}\n".encode())
            return control.makefile().readline().strip()
