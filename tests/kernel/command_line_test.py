# SPDX-License-Identifier: MIT
"""The command line against the gadget camera: each verb, large data, other programs, unplugging."""

import filecmp
import os
import subprocess
import unittest

from gadget_camera import (
    NUBOCTL,
    GadgetCamera,
    InterfaceHolder,
    PATIENCE_S,
    device_folder,
    has_open,
    node,
    nuboctl,
    read_attribute,
    use_of,
    wait_for,
)

MIB = 1024 * 1024
CYCLES = 50


def random_file(path, size):
    with open(path, "wb") as file:
        for _ in range(size // MIB):
            file.write(os.urandom(MIB))
    return path


class CommandLineTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.camera = GadgetCamera("--restart-delay", "500")
        cls.addClassCleanup(cls.camera.end)

    def run_verb(self, line, text, code=0):
        """text is a part of what is printed."""
        result = nuboctl(*line.split())
        printed = result.stdout + result.stderr
        self.assertEqual(result.returncode, code, f"{line}: {printed}")
        self.assertIn(text, printed, line)
        return result

    def expect_camera(self, item, value):
        self.assertEqual(self.camera.do(f"get {item}"), value)

    def test_verbs_that_ask(self):
        self.run_verb("list", "SIM0001")
        self.run_verb("info", "identity.serial   SIM0001")
        self.run_verb("status", "battery.charge    85 percent")
        self.run_verb("get", "camera.name = ")
        self.run_verb("describe camera.led", "camera.led")
        self.run_verb("wifi scan", "Harbour")
        self.run_verb("record status", "stopped")
        self.run_verb("stream-url --host 10.1.0.7", "rtsp://")
        self.run_verb("sd", "sd.file-system")
        self.run_verb("clock", "this computer's")
        self.run_verb("firmware", "1.00")
        self.run_verb("descriptors", "idVendor")
        self.run_verb("raw 0x5060 --expert", "", 6)
        self.run_verb("completion bash", "nuboctl")
        self.run_verb("help", "nuboctl")

    def test_verbs_that_change(self):
        self.run_verb("set camera.name=Tern", "Tern")
        self.expect_camera("camera-name", "Tern")
        self.run_verb("export /tmp/profile", "")
        self.run_verb("set camera.name=Gull", "Gull")
        self.run_verb("diff /tmp/profile", "camera.name", 1)
        self.run_verb("apply /tmp/profile", "camera.name")
        self.expect_camera("camera-name", "Tern")
        self.run_verb("wifi off", "")
        self.expect_camera("wifi", "off")
        self.run_verb("record start", "")
        self.run_verb("record stop", "")
        self.run_verb("clock sync", "")
        self.run_verb("sd format --yes", "formatted")
        self.expect_camera("sd-used", "0")
        self.run_verb("reset --yes", "")

    def test_verbs_that_fetch(self):
        self.run_verb("picture /tmp/picture", "")
        with open("/tmp/picture", "rb") as file:
            self.assertEqual(file.read(3), b"\xff\xd8\xff")
        self.run_verb("audio /tmp/audio", "has no audio", 6)

    def test_a_restarted_camera_is_waited_for(self):
        before = node()
        self.run_verb("restart --wait-back --yes", "")
        self.assertNotEqual(node(), before)

    def test_a_camera_that_is_switched_off_leaves(self):
        self.run_verb("poweroff --yes", "")
        wait_for(lambda: not device_folder(), "camera off the bus")
        self.run_verb("info", "", 3)
        self.camera.plug()

    def test_a_doctor_finds_nothing_but_the_missing_rule(self):
        result = nuboctl("doctor")
        self.assertIn("nobody else has the camera", result.stdout)
        failures = [line for line in result.stdout.splitlines() if line.startswith("failure")]
        self.assertEqual([line for line in failures if "rule" not in line], [])

    def test_a_second_program_that_holds_the_interface_is_named(self):
        holder = InterfaceHolder()
        self.addCleanup(holder.end)
        self.run_verb("info", f"(pid {holder.pid})", 4)
        self.assertIn("in use", nuboctl("list").stdout)

    def test_waiting_ends_when_the_second_program_does(self):
        holder = InterfaceHolder()
        waiting = subprocess.Popen([NUBOCTL, "--wait", "info"], stdout=subprocess.PIPE, text=True)
        camera = node()
        # It has the node open for moments: looked for without a pause.
        wait_for(
            lambda: any(has_open(waiting.pid, camera) for _ in range(1000)), "attempt to open it"
        )
        self.assertIsNone(waiting.poll())
        holder.end()
        output, _ = waiting.communicate(timeout=PATIENCE_S)
        self.assertEqual(waiting.returncode, 0)
        self.assertIn("SIM0001", output)


class LargeDataTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.camera = GadgetCamera("--restart-delay", "500")
        cls.addClassCleanup(cls.camera.end)

    def test_a_picture_of_16_mib_comes_whole(self):
        picture = random_file("/tmp/picture-sent", 16 * MIB)
        self.camera.do(f"picture {picture}")
        result = nuboctl("picture", "/tmp/picture-received")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertTrue(filecmp.cmp(picture, "/tmp/picture-received", shallow=False))

    def send_firmware(self, size, version):
        image = random_file("/tmp/image-sent", size)
        self.camera.do(f"set firmware-next {version}")
        result = nuboctl("firmware", "update", image, "--yes")
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        self.assertEqual(self.camera.do("get firmware-version"), version)
        self.camera.do("save-firmware /tmp/image-received")
        self.assertTrue(filecmp.cmp(image, "/tmp/image-received", shallow=False))

    def test_a_firmware_image_of_16_mib_arrives_whole(self):
        self.send_firmware(16 * MIB, "2.00")

    def test_a_firmware_image_beyond_the_memory_of_usbfs_arrives_whole(self):
        self.assertEqual(read_attribute("/sys/module/usbcore/parameters/usbfs_memory_mb"), "16")
        self.send_firmware(64 * MIB, "3.00")


class MonitorTest(unittest.TestCase):
    def test_each_of_50_unpluggings_is_told(self):
        camera = GadgetCamera(plugged=False)
        self.addCleanup(camera.end)
        monitor = subprocess.Popen(
            [NUBOCTL, "monitor"], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True
        )
        self.addCleanup(monitor.kill)
        told = []

        def wait_for_event(event):
            while event not in told[-1:]:
                line = monitor.stdout.readline()
                self.assertNotEqual(line, "", "the monitor has ended")
                told.append(line.split()[3])

        for cycle in range(CYCLES):
            camera.do("plug")
            wait_for_event("ready")
            if cycle == 0:
                first = use_of(monitor.pid)
            camera.do("unplug")
            wait_for_event("gone")
        files, memory = use_of(monitor.pid)
        self.assertLessEqual(files, first[0])
        self.assertLess(memory, first[1] + 2048, "KiB")
        self.assertEqual(told.count("plugged"), told.count("gone"))
        monitor.terminate()
        _, errors = monitor.communicate(timeout=PATIENCE_S)
        self.assertEqual(monitor.returncode, 130, errors)
