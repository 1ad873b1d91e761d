# SPDX-License-Identifier: MIT
"""What the simulator says on a computer that cannot be a device yet, or not for this user."""

import os
import unittest

from gadget_camera import (
    CONFIGFS,
    GadgetCamera,
    SIMULATOR,
    load_modules,
    root,
    run,
    unload_modules,
)

BLOCKED = "/etc/modprobe.d/kernel-test.conf"
CANNOT_RUN = 127


class MissingPartsTest(unittest.TestCase):
    def assert_says(self, *parts, command=(SIMULATOR, "--gadget")):
        result = run(*command)
        self.assertEqual(result.returncode, CANNOT_RUN)
        self.assertEqual(result.stdout, "")
        self.assertEqual(len(result.stderr.splitlines()), 1, result.stderr)
        for part in parts:
            self.assertIn(part, result.stderr)

    def test_each_missing_part_is_named_with_its_remedy(self):
        unload_modules()
        if os.path.isdir(CONFIGFS):
            self.assert_says("configfs is not there", "mount -t configfs configfs")
        root("modprobe configfs")
        root(f"mount -t configfs configfs {CONFIGFS}")
        self.assert_says("libcomposite is not loaded", "modprobe libcomposite")
        root("modprobe libcomposite")
        self.assert_says("no USB device controller", "modprobe dummy_hcd")
        root("modprobe dummy_hcd")
        root(f"echo install usb_f_fs /bin/false >{BLOCKED}")
        self.assert_says("usb_f_fs cannot be loaded", "modprobe usb_f_fs")
        os.remove(BLOCKED)
        self.assertEqual(run(SIMULATOR, "--gadget", "--", "true").returncode, 0)

    def test_a_controller_that_is_not_there_is_named_with_those_that_are(self):
        load_modules()
        self.assert_says(
            'no controller "fe980000.usb"',
            "there is dummy_udc.0",
            command=(SIMULATOR, "--gadget", "--udc", "fe980000.usb"),
        )

    def test_an_ordinary_user_is_told_to_be_root(self):
        load_modules()
        copy = "/tmp/nubo-camera-simulator"
        root(f"cp {SIMULATOR} {copy}")
        user = ("setpriv", "--reuid", "4711", "--regid", "4711", "--clear-groups")
        self.assert_says("needs root's rights", "sudo", command=(*user, copy, "--gadget"))

    def test_a_controller_in_use_is_refused(self):
        camera = GadgetCamera()
        self.addCleanup(camera.end)
        self.assert_says("dummy_udc.0 is in use by another nubo-camera-simulator", "--udc")
