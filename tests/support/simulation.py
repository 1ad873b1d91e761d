# SPDX-License-Identifier: MIT
"""What tests share that run programs on a simulated camera, in processes of their own."""

import os
import socket
import time

PATIENCE_S = int(os.environ.get("PATIENCE_S", "60"))


def wait_for(condition, what):
    """The first true result of condition(); fails after PATIENCE_S seconds."""
    end = time.monotonic() + PATIENCE_S
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.01)
    raise AssertionError(f"Waited in vain for {what}.")


def control(path, line):
    """Sends a control line to the simulator that listens at path; its answer."""
    with socket.socket(socket.AF_UNIX) as simulator:
        simulator.connect(path)
        simulator.sendall(f"{line}\n".encode())
        return simulator.makefile().readline().strip()
