# SPDX-License-Identifier: MIT
"""The simulated camera as a USB gadget of this machine, and the programs that meet it."""

import glob
import os
import re
import subprocess
import sys
import tempfile

BUILD = os.environ["BUILD"]
PROJECT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
SIMULATOR = os.path.join(BUILD, "simulator", "nubo-camera-simulator")
TOOL = os.path.join(BUILD, "app", "nubo-setting-tool")
NUBOCTL = os.path.join(BUILD, "cli", "nuboctl")
RULE = os.path.join(BUILD, "packaging", "70-nubo-setting-tool.rules")
CONFIGFS = "/sys/kernel/config"

sys.path += [os.path.join(PROJECT, "tests", folder) for folder in ("support", "desktop")]
# The machine is emulated, and its computer may be loaded.
os.environ.setdefault("PATIENCE_S", "240")

from simulation import PATIENCE_S, control, wait_for  # noqa: E402


def run(*command, **options):
    """Runs a command to its end; output and errors are texts."""
    return subprocess.run(
        command, capture_output=True, text=True, timeout=PATIENCE_S, check=False, **options
    )


def root(command):
    """Runs a line of the shell that has to succeed."""
    subprocess.run(command, shell=True, check=True, timeout=PATIENCE_S)


def load_modules(speed="high"):
    """A computer with a device port, and with all that a gadget needs."""
    root("modprobe libcomposite")
    if not os.listdir(CONFIGFS):
        root(f"mount -t configfs configfs {CONFIGFS}")
    root("modprobe dummy_hcd" + (" is_high_speed=0" if speed == "full" else ""))


def unload_modules():
    root("modprobe --remove dummy_hcd")
    if os.path.isdir(CONFIGFS):
        root(f"umount -q {CONFIGFS} || true")
    root("modprobe --remove usb_f_fs libcomposite")


def read_attribute(path):
    """The one line of a file; None when it is not there, or not any more."""
    try:
        with open(path, encoding="utf-8") as file:
            return file.read().rstrip("\n")
    except OSError:
        return None


def device_folder():
    """The folder in sysfs of the camera that is plugged in, or None."""
    for path in glob.glob("/sys/bus/usb/devices/*/idVendor"):
        if read_attribute(path) == VENDOR:
            return os.path.dirname(path)
    return None


def identity():
    with open(RULE, encoding="ascii") as file:
        return re.search(r'idVendor}=="(\w+)"', file.read()).group(1)


VENDOR = identity()


def node():
    """The device node of the camera; waits until it is there, and udev has done its work."""
    folder = wait_for(device_folder, "camera on the bus")
    root("udevadm settle")
    numbers = [int(read_attribute(f"{folder}/{name}")) for name in ("busnum", "devnum")]
    return "/dev/bus/usb/{:03}/{:03}".format(*numbers)


def has_open(process, path):
    """True when the process has this file open."""
    for file in os.scandir(f"/proc/{process}/fd"):
        try:
            if os.readlink(file.path) == path:
                return True
        except FileNotFoundError:
            continue  # closed meanwhile
    return False


def use_of(process):
    """The process's open files, and its memory in KiB."""
    with open(f"/proc/{process}/status", encoding="ascii") as file:
        memory = next(int(line.split()[1]) for line in file if line.startswith("VmRSS"))
    return len(os.listdir(f"/proc/{process}/fd")), memory


class GadgetCamera:
    """A simulator with --gadget that runs until end(). With plugged=False the cable is out."""

    def __init__(self, *options, plugged=True):
        load_modules()
        self._folder = tempfile.TemporaryDirectory()
        self._control = os.path.join(self._folder.name, "control")
        command = [SIMULATOR, "--gadget", "--control", self._control, *options]
        self.process = subprocess.Popen(command + ([] if plugged else ["--unplugged"]))
        wait_for(lambda: os.path.exists(self._control), "simulator")
        if plugged:
            node()

    def end(self):
        self.process.terminate()
        self.process.wait(PATIENCE_S)
        self._folder.cleanup()
        wait_for(lambda: not device_folder(), "camera off the bus")

    def line(self, line):
        """Sends a control line; its answer."""
        return control(self._control, line)

    def do(self, line):
        """Sends a control line that is carried out; what stands after "ok"."""
        answer = self.line(line)
        assert answer.split(" ")[0] == "ok", f"{line}: {answer}"
        return answer[3:]

    def plug(self):
        self.do("plug")
        return node()

    def unplug(self):
        self.do("unplug")
        wait_for(lambda: not device_folder(), "camera off the bus")


class InterfaceHolder:
    """A second program that holds the interface of the camera until end()."""

    def __init__(self):
        script = os.path.join(PROJECT, "tests", "kernel", "interface_holder.py")
        self._process = subprocess.Popen(
            [sys.executable, script, node()], stdout=subprocess.PIPE, text=True
        )
        assert self._process.stdout.readline() == "claimed\n"
        self.pid = self._process.pid

    def end(self):
        self._process.terminate()
        self._process.communicate(timeout=PATIENCE_S)


def nuboctl(*words, **options):
    return run(NUBOCTL, *words, **options)
