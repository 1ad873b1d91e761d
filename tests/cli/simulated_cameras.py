# SPDX-License-Identifier: MIT
"""nuboctl on simulated cameras, in processes of their own."""

import os
import pathlib
import subprocess
import sys
import tempfile
import threading

sys.path.append(str(pathlib.Path(__file__).parents[1] / "support"))

from simulation import PATIENCE_S, control, wait_for  # noqa: E402

# Root heeds the permissions of files only without these rights.
AS_USER = ["setpriv", "--bounding-set", "-dac_override,-dac_read_search"] if os.geteuid() == 0 else []


class SimulatedCameras:
    """A bus with cameras, on which programs can be run until end()."""

    def __init__(self, simulator, nuboctl, options=()):
        self._directory = tempfile.TemporaryDirectory()
        self.folder = pathlib.Path(self._directory.name)
        self._control = str(self.folder / ".camera")
        told = self.folder / ".environment"
        # The command does nothing but tell by which environment the bus is reached.
        self._process = subprocess.Popen(
            [simulator, "--control", self._control, "--restart-delay", "50", "--as-user", *options, "--"]
            + ["sh", "-c", 'env -0 >"$0.new"; mv "$0.new" "$0"; exec sleep infinity', str(told)],
            stdin=subprocess.DEVNULL,
        )
        wait_for(told.exists, "the simulator")
        pairs = told.read_text(encoding="utf-8").rstrip("\0").split("\0")
        self.environment = dict(pair.split("=", 1) for pair in pairs)
        self.environment["PATH"] = f"{pathlib.Path(nuboctl).parent}:{os.environ['PATH']}"
        self._nuboctl = nuboctl

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.end()

    def end(self):
        self._process.terminate()
        self._process.wait(PATIENCE_S)
        self._directory.cleanup()

    def run(self, *words, stdin=""):
        """Runs nuboctl to its end."""
        return subprocess.run(
            [*AS_USER, self._nuboctl, *words],
            env=self.environment,
            cwd=self.folder,
            input=stdin,
            capture_output=True,
            text=True,
            timeout=PATIENCE_S,
        )

    def start(self, *words):
        """Starts nuboctl, which is ended should it outlast all patience; its output is a pipe."""
        program = subprocess.Popen(
            [*AS_USER, self._nuboctl, *words],
            env=self.environment,
            cwd=self.folder,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL,
            text=True,
        )
        end = threading.Timer(PATIENCE_S, program.kill)
        end.daemon = True
        end.start()
        return program

    def shell(self, script):
        """Runs a script of bash to its end."""
        return subprocess.run(
            ["bash", "-c", script],
            env=self.environment,
            cwd=self.folder,
            stdin=subprocess.DEVNULL,
            capture_output=True,
            text=True,
            timeout=PATIENCE_S,
        )

    def write(self, name, content):
        """A file in the folder where nuboctl runs."""
        (self.folder / name).write_text(content, encoding="utf-8")

    def camera(self, line):
        """Sends the simulator a control line; what it answers behind "ok"."""
        answer = control(self._control, line)
        if not answer.startswith("ok"):
            raise AssertionError(f"{line}: {answer}")
        return answer[2:].strip()
