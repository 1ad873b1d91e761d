# SPDX-License-Identifier: MIT
"""The USB side of the tool alone, in a process that is the camera as well."""

import os
import unittest

from gadget_camera import BUILD, load_modules, run

PROGRAM = os.path.join(BUILD, "tests", "kernel", "nubo-tests-kernel")


class BusTest(unittest.TestCase):
    def run_subject(self, subject):
        load_modules()
        environment = os.environ | {"QT_QPA_PLATFORM": "offscreen"}
        result = run(PROGRAM, subject, env=environment)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)

    def test_the_controller_of_one_camera(self):
        self.run_subject("ControllerOnKernelTest")

    def test_the_manager_of_all_cameras(self):
        self.run_subject("ManagerOnKernelTest")
