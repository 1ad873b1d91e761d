# SPDX-License-Identifier: MIT
"""Plugs and unplugs the camera at random moments while the window is used.

NUBO_CYCLES and NUBO_SEED choose how often, and which moments.
"""

import os
import random
import sys
import time
import unittest

from running_tool import MODES, RunningTool, without_huge_pages
import pyatspi

from screen import Screen, click
from simulated_tool import SimulatedTool, wait_for

SIMULATOR, TOOL = sys.argv[1:3]
CYCLES = int(os.environ.get("NUBO_CYCLES", "6"))
SEED = int(os.environ.get("NUBO_SEED", "1"))
WARM_UP = 100
SHOWING_S = 0.5
MOST_BUTTONS = 50
MOST_GROWTH = 0.02

FAULTS = (
    "timeout transfer", "device-gone transfer", "busy transfer", "stall transfer", "halt transfer", "short-packet 7 transfer",
    "empty-packet transfer", "overlong-packet transfer", "foreign-id transfer", "camera-error 0xFFF9 command",
    "babble transfer", "delay 300 command",
)
NOT_CONNECTED = "Connect camera by USB cable"


class PluggingTest(unittest.TestCase):
    """A cycle begins and ends without a camera."""

    def start(self):
        environment = {"QT_QPA_PLATFORM": "xcb", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        self.tool = SimulatedTool(SIMULATOR, TOOL, environment)
        self.running = RunningTool(TOOL, self.tool.pid)
        self.screen = Screen("NuBo Setting Tool")
        self.tool.camera("unplug")
        self.wait_until_settled()

    def wait_until_settled(self):
        # The text shows that the main thread is alive, the handle that the USB side is.
        self.screen.wait_for_text(NOT_CONNECTED)
        wait_for(lambda: ", open 0," in self.tool.camera("status"), "the camera to be let go")

    def wait_for_page(self):
        wait_for(lambda: NOT_CONNECTED not in self.screen.texts(), "a page")

    def show_everything(self):
        """Each page, and what its buttons open, once: what they load is kept."""
        for mode in range(MODES):
            for number in range(MOST_BUTTONS):
                if "unplugged" in self.tool.camera("status"):
                    self.tool.camera("plug")
                self.wait_for_page()
                self.running.click_mode(mode)
                time.sleep(SHOWING_S)
                buttons = [c for c in self.screen.controls() if c.role == pyatspi.ROLE_PUSH_BUTTON]
                if number >= len(buttons):
                    break
                if buttons[number].name not in ("Close", "Minimize"):
                    click(buttons[number])
                    time.sleep(SHOWING_S)
                    self.running.close_dialogs()
        self.tool.camera("unplug")
        self.wait_until_settled()

    def connect_wait(self, generator):
        time.sleep(generator.uniform(0, 3.5))

    def transaction(self, generator):
        self.wait_for_page()
        self.tool.camera(f"fault {generator.choice(FAULTS)} {generator.randrange(1, 6)}")
        self.running.click_mode(generator.randrange(5))
        time.sleep(generator.uniform(0, 0.05))

    def page_change(self, generator):
        self.wait_for_page()
        for _ in range(generator.randrange(2, 8)):
            self.running.click_mode(generator.randrange(5))

    def open_dialog(self, generator):
        self.wait_for_page()
        self.running.click_mode(2)  # most of the dialogs are behind this page
        for _ in range(generator.randrange(2, 8)):
            self.running.click_somewhere(generator)
            time.sleep(generator.uniform(0, 0.2))

    def shut_down(self, generator):
        time.sleep(generator.uniform(0, 5))

        self.running.close()
        self.assertEqual(self.tool.wait(), 0)
        self.tool.end()
        self.start()

    def cycle(self, moment, generator):
        self.tool.camera("plug")
        moment(generator)
        self.tool.camera("unplug")
        self.tool.camera("clear-faults")
        self.assertTrue(self.running.is_alive())
        self.wait_until_settled()

    def test_nothing_is_left_after_any_moment(self):
        without_huge_pages()
        generator = random.Random(SEED)
        moments = (self.connect_wait, self.transaction, self.page_change, self.open_dialog)
        self.start()
        self.addCleanup(lambda: self.tool.end())
        if CYCLES > WARM_UP:
            self.show_everything()
        self.cycle(self.page_change, generator)
        files = self.running.open_files()
        memory = []
        # In each long run the window is that of the first cycle: what grows must show.
        for number in range(CYCLES):
            moment = generator.choice(moments)
            with self.subTest(seed=SEED, cycle=number, moment=moment.__name__):
                self.cycle(moment, generator)
                wait_for(lambda: self.running.open_files() <= files, f"{files} open files")
            memory.append(self.running.written_memory())
            if number % 50 == 49:
                print(f"{number + 1} cycles, {memory[-1]} KiB, {files} files", flush=True)
        if len(memory) > WARM_UP:
            growth = memory[-1] / memory[WARM_UP - 1] - 1
            print(f"From {memory[WARM_UP - 1]} to {memory[-1]} KiB: {100 * growth:.2f} %", flush=True)
            self.assertLessEqual(growth, MOST_GROWTH)
        self.shut_down(generator)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
