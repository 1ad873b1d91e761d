# SPDX-License-Identifier: MIT
"""The mouse and the windows of the X server."""

import subprocess


def xdotool(*arguments):
    """Runs one command of xdotool; what it says."""
    command = ["xdotool", *map(str, arguments)]
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout
