# SPDX-License-Identifier: MIT
"""What run.sh does with its arguments, before it installs or builds anything."""

import os
import subprocess
import sys
import unittest

SCRIPT = sys.argv.pop(1)


def run(*arguments):
    environment = {
        name: value
        for name, value in os.environ.items()
        if name not in ("DISPLAY", "WAYLAND_DISPLAY")
    }
    return subprocess.run(
        [SCRIPT, *arguments],
        env=environment,
        stdin=subprocess.DEVNULL,
        capture_output=True,
        text=True,
        timeout=60,
    )


class RunScriptTest(unittest.TestCase):
    def test_help_tells_of_every_argument(self):
        ended = run("--help")
        self.assertEqual(ended.returncode, 0)
        self.assertEqual(ended.stderr, "")
        for text in ("simulated camera", "Without a display", "--usb", "--help"):
            self.assertIn(text, ended.stdout)

    def test_wrong_arguments_are_an_error_of_one_line(self):
        for arguments in (["--wrong"], ["usb"], ["--usb", "--help"], [""]):
            with self.subTest(arguments=arguments):
                ended = run(*arguments)
                self.assertEqual(ended.returncode, 2)
                self.assertEqual(ended.stdout, "")
                self.assertEqual(len(ended.stderr.splitlines()), 1)
                self.assertIn(" ".join(arguments), ended.stderr)

    def test_the_real_bus_needs_a_display(self):
        ended = run("--usb")
        self.assertEqual(ended.returncode, 1)
        self.assertEqual(ended.stderr, "run.sh: --usb needs a display\n")


if __name__ == "__main__":
    unittest.main(verbosity=2)
