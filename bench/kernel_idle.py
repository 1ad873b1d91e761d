# SPDX-License-Identifier: MIT
"""What an open camera costs while nothing happens, on a real kernel: processor time and system calls
of the window, beside the empty window and beside plain libusb calls that do the same. Runs in the
virtual machine of tests/kernel, under an X server; the argument is the folder of the benchmarks."""

import json
import os
import re
import subprocess
import sys
import time

BENCH = sys.argv[1]
PROJECT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.append(os.path.join(PROJECT, "tests", "kernel"))

from gadget_camera import GadgetCamera, root, wait_for  # noqa: E402

SECONDS = 60
NAME = "NuBo Setting Tool"
GOAL_MS = 20
POLLING_S = 5
COMMANDS_OF_A_POLL = 3  # battery, Wi-Fi, SD card
TRACING = "/sys/kernel/tracing"
TRIGGER = f"{TRACING}/events/raw_syscalls/sys_enter/trigger"


def threads(process):
    return os.listdir(f"/proc/{process.pid}/task")


def processor_ms(process):
    """Of all threads that run now, until now."""
    total = 0
    for thread in threads(process):
        with open(f"/proc/{process.pid}/task/{thread}/schedstat", encoding="ascii") as file:
            total += int(file.read().split()[0])
    return total / 1e6


def start_counting():
    with open(TRIGGER, "w", encoding="ascii") as trigger:
        trigger.write("hist:keys=common_pid")


def stop_counting(process):
    """The system calls of the process since start_counting()."""
    with open(TRIGGER.replace("trigger", "hist"), encoding="ascii") as file:
        counts = re.findall(r"common_pid:\s+(\d+)\s*} hitcount:\s+(\d+)", file.read())
    with open(TRIGGER, "w", encoding="ascii") as trigger:
        trigger.write("!hist:keys=common_pid")
    own = set(threads(process))
    return sum(int(count) for thread, count in counts if thread in own)


def watch(process):
    """Processor time in ms and system calls of SECONDS in which nobody does anything."""
    before = processor_ms(process)
    start_counting()
    time.sleep(SECONDS)
    calls = stop_counting(process)
    assert process.poll() is None, "it has ended"
    return processor_ms(process) - before, calls


def settle(process):
    """Waits until it computes next to nothing: start and drawing are over."""

    def is_quiet():
        before = processor_ms(process)
        time.sleep(2)
        return processor_ms(process) - before < 100

    wait_for(is_quiet, "rest")


def show_help():
    root(f"xdotool search --sync --onlyvisible --name '{NAME}' windowfocus --sync key ctrl+5")


class Bench:
    """Takes the rows, each with a process of its own on the same camera."""

    def __init__(self):
        self.rows = []
        print(f"In {SECONDS} s with nobody there", flush=True)
        self.empty = self.measure("empty window", [f"{BENCH}/bench-window-empty"])
        self._camera = GadgetCamera()

    def end(self):
        self._camera.end()

    def commands(self):
        """How many the camera has got until now."""
        return int(re.search(r"commands (\d+)", self._camera.do("status")).group(1))

    def wait_for_page(self):
        before = self.commands()
        wait_for(lambda: self.commands() > before, "first command")

    def wait_for_page_without_polling(self):
        self.wait_for_page()

        def is_still():
            show_help()
            time.sleep(1)
            before = self.commands()
            time.sleep(2 * POLLING_S)
            return self.commands() == before

        wait_for(is_still, "page without polling")

    def measure(self, what, command, prepare=lambda: None, polls=False):
        with subprocess.Popen(command, stderr=subprocess.DEVNULL) as process:
            try:
                prepare()
                settle(process)
                before = self.commands() if polls else 0
                milliseconds, calls = watch(process)
                count = (self.commands() - before) / COMMANDS_OF_A_POLL if polls else None
            finally:
                process.terminate()
        line = f"{what:44} {milliseconds:9.1f} ms {calls:7} calls"
        if count:
            line += f"   a poll: {milliseconds / count:7.2f} ms {calls / count:6.1f} calls"
        print(line, flush=True)
        self.rows.append(
            {"what": what, "milliseconds": milliseconds, "calls": calls, "polls": count}
        )
        return milliseconds


def main():
    if not os.path.isdir(f"{TRACING}/events"):
        root(f"mount -t tracefs tracefs {TRACING}")
    bench = Bench()
    bench.measure("plain libusb, a camera open", [f"{BENCH}/bench-idle"])
    still = bench.measure(
        "tool, a camera open, no page polling",
        [f"{BENCH}/bench-window-tool"],
        bench.wait_for_page_without_polling,
    )
    bench.measure(
        "plain libusb, asking what the page asks", [f"{BENCH}/bench-idle", "--poll"], polls=True
    )
    bench.measure(
        "tool, camera state page",
        [f"{BENCH}/bench-window-tool"],
        bench.wait_for_page,
        polls=True,
    )
    bench.end()
    more = still - bench.empty
    print(f"Beyond the empty window, no page polling: {more:.1f} ms a minute (goal {GOAL_MS})")
    with open("/run/output/idle.json", "w", encoding="ascii") as file:
        json.dump(
            {"seconds": SECONDS, "rows": bench.rows, "beyond": more, "goal": GOAL_MS}, file, indent=2
        )


main()
