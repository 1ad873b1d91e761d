# SPDX-License-Identifier: MIT
"""The gadget camera itself: its faults, its ends, and both speeds of USB 2."""

import os
import unittest

from gadget_camera import (
    CONFIGFS,
    GadgetCamera,
    PATIENCE_S,
    device_folder,
    load_modules,
    node,
    nuboctl,
    read_attribute,
    root,
    wait_for,
)

GADGETS = os.path.join(CONFIGFS, "usb_gadget")
# Of the settings: takes a text of any length, or refuses it.
SET_CAMERA_NAME = "0x5830"


class CleaningUpTest(unittest.TestCase):
    def assert_nothing_is_left(self):
        self.assertEqual(os.listdir(GADGETS), [])
        with open("/proc/mounts", encoding="utf-8") as mounts:
            self.assertNotIn("functionfs", mounts.read())

    def test_the_end_leaves_nothing(self):
        camera = GadgetCamera()
        camera.end()
        self.assertEqual(camera.process.returncode, 0)
        self.assert_nothing_is_left()

    def test_a_killed_run_is_cleaned_up_by_the_next(self):
        killed = GadgetCamera()
        killed.process.kill()
        killed.process.wait(PATIENCE_S)
        wait_for(lambda: not device_folder(), "camera off the bus")
        self.assertNotEqual(os.listdir(GADGETS), [])
        camera = GadgetCamera()
        self.assertEqual(nuboctl("get", "battery.charge").returncode, 0)
        camera.end()
        self.assert_nothing_is_left()


class FaultTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.camera = GadgetCamera()
        cls.addClassCleanup(cls.camera.end)

    def charge(self):
        return nuboctl("get", "battery.charge")

    def strike(self, fault, code):
        """The next command meets the fault; the one after it is answered as ever."""
        self.camera.do(f"fault {fault}")
        result = self.charge()
        self.assertEqual(result.returncode, code, result.stdout + result.stderr)
        self.assertEqual(self.charge().returncode, 0)

    def test_what_a_gadget_cannot_do_is_refused(self):
        for line in (
            "fault busy 1",
            "fault babble 1",
            "fault unplug-before 1",
            "fault timeout 1",
            "access denied",
            "busy on",
        ):
            with self.subTest(line=line):
                self.assertRegex(self.camera.line(line), "^error: a gadget cannot do this")

    def test_the_answer_can_carry_an_error(self):
        self.strike("camera-error 0xFFF6 command 1", 6)

    def test_the_answer_can_fail_to_come(self):
        self.strike("timeout command 1", 7)

    def test_the_answer_can_come_late(self):
        self.strike("delay 1500 command 1", 0)

    def test_an_empty_packet_can_come_first(self):
        self.strike("empty-packet command 1", 0)

    def test_the_answer_can_be_for_somebody_else(self):
        self.strike("foreign-id command 1", 7)

    def test_the_answer_can_be_cut(self):
        self.strike("short-packet 3 command 1", 7)

    def test_a_halted_endpoint_stays_so_until_the_camera_is_plugged_in_again(self):
        self.camera.do("fault halt command 1")
        self.assertEqual(self.charge().returncode, 7)
        self.camera.unplug()
        self.camera.plug()
        self.assertEqual(self.charge().returncode, 0)

    def test_the_camera_can_leave_in_the_middle(self):
        self.camera.do("fault device-gone command 1")
        self.assertEqual(self.charge().returncode, 7)
        wait_for(lambda: not device_folder(), "camera off the bus")
        self.camera.plug()
        self.assertEqual(self.charge().returncode, 0)

    def test_the_status_line_tells_where_the_camera_is(self):
        self.assertRegex(self.camera.do("status"), r"camera 1: dummy_udc.0, transfers \d+")
        self.camera.unplug()
        self.assertRegex(self.camera.do("status"), "camera 1: unplugged")
        self.camera.plug()

    def test_the_serial_number_is_that_of_the_latest_plugging_in(self):
        self.camera.do("set serial-number GULL-7")
        self.addCleanup(self.camera.do, "set serial-number SIM0001")
        self.camera.unplug()
        self.camera.plug()
        self.assertEqual(read_attribute(f"{device_folder()}/serial"), "GULL-7")


class PacketLengthTest(unittest.TestCase):
    """A packet that fills its last USB packet ends without a sign."""

    HEAD_AND_REST = 28  # bytes of a text command beside its text

    def check_commands(self, usb_packet):
        for length in (usb_packet - 1, usb_packet, usb_packet + 1):
            text = "x" * (length - self.HEAD_AND_REST)
            result = nuboctl("raw", SET_CAMERA_NAME, "--text", text, "--expert")
            self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
            self.assertEqual(self.camera.do("get camera-name"), text)

    def check_data(self, usb_packet):
        for size in (usb_packet - 12, 1012, 1012 + usb_packet, 1012 + 512, 1012 + 1024):
            self.camera.do(f"set picture-size {size}")
            result = nuboctl("picture", "/tmp/picture")
            self.assertEqual(result.returncode, 0, f"{size}: {result.stderr}")
            self.assertEqual(os.path.getsize("/tmp/picture"), size)
        # Eight bytes of head: the first images fill their last packet.
        for size in (usb_packet - 8, 16 * 1024 + usb_packet - 8, 100_000):
            with open("/tmp/image", "wb") as file:
                file.write(os.urandom(size))
            self.camera.do("set firmware-next 2.00")
            result = nuboctl("firmware", "update", "/tmp/image", "--yes")
            self.assertEqual(result.returncode, 0, f"{size}: {result.stderr}")
            self.camera.do("save-firmware /tmp/received")
            root("cmp /tmp/image /tmp/received")

    def start(self, speed, mark):
        root("modprobe --remove dummy_hcd || true")
        load_modules(speed)
        self.camera = GadgetCamera("--restart-delay", "0")
        self.addCleanup(root, "modprobe --remove dummy_hcd")
        self.addCleanup(self.camera.end)
        node()
        self.assertEqual(read_attribute(f"{device_folder()}/speed"), mark)

    def test_at_full_speed(self):
        self.start("full", "12")
        self.check_commands(64)
        self.check_data(64)

    def test_at_high_speed(self):
        self.start("high", "480")
        self.check_data(512)
