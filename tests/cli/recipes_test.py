# SPDX-License-Identifier: MIT
"""Whether the recipes of the command line's document do what they say, as they stand there."""

import pathlib
import re
import sys
import unittest

from simulated_cameras import SimulatedCameras

SIMULATOR, NUBOCTL, DOCUMENT = sys.argv[1:4]
del sys.argv[1:4]

DOCUMENT_TEXT = pathlib.Path(DOCUMENT).read_text(encoding="utf-8")
RECIPES = {}
for section in DOCUMENT_TEXT.split("\n## Recipes\n")[1].split("\n### ")[1:]:
    heading, _, body = section.partition("\n")
    RECIPES[heading] = re.fullmatch(r".*```sh\n(.*)```\s*", body, re.DOTALL)[1]
CAMERAS = ("SIM0001", "SIM0002", "SIM0003")


class RecipesTest(unittest.TestCase):
    cooked = set()

    def setUp(self):
        self.bench = SimulatedCameras(SIMULATOR, NUBOCTL, ("--cameras", "3"))
        self.addCleanup(self.bench.end)

    def cook(self, title, exit_code=0):
        """What the recipe prints."""
        self.cooked.add(title)
        ended = self.bench.shell(RECIPES[title])
        self.assertEqual(ended.returncode, exit_code, ended.stdout + ended.stderr)
        self.errors = ended.stderr
        return ended.stdout

    def items(self, item):
        return [self.bench.camera(f"@{k} get {item}") for k in (1, 2, 3)]

    def read(self, name):
        return (self.bench.folder / name).read_bytes()

    def test_charge(self):
        self.bench.camera("@2 set battery 42")
        self.assertEqual(
            self.cook("The charge of every battery"), "SIM0001\t85\nSIM0002\t42\nSIM0003\t85\n"
        )

    def test_needy(self):
        title = "Cameras that should be charged, or whose card is nearly full"
        self.assertEqual(self.cook(title), "")
        self.bench.camera("@1 set battery 19")
        self.bench.camera("@3 set sd-total 100000")
        self.bench.camera("@3 set sd-used 90000")
        self.assertEqual(sorted(self.cook(title).split()), ["SIM0001", "SIM0003"])

    def test_export(self):
        self.bench.camera("@3 set camera-name Tern")
        self.cook("Every camera's settings, each in a file of its own")
        for serial in CAMERAS:
            profile = self.read(f"{serial}.nubo").decode()
            self.assertIn("camera.name = " + ("Tern" if serial == "SIM0003" else "Gull"), profile)
            self.assertNotIn("breakwater", profile)

    def test_alike(self):
        for line in ("camera-name Tern", "infra-key anchor", "gps off", "rec-size 1"):
            self.bench.camera(f"@1 set {line}")
        self.assertTrue(self.cook("A camera like another").endswith("the same\n"))
        self.assertEqual(self.items("camera-name"), ["Tern", "Tern", "Gull"])
        self.assertEqual(self.items("infra-key"), ["anchor", "anchor", "breakwater"])
        self.assertEqual(self.items("rec-size"), ["1", "1", "2"])
        self.assertFalse((self.bench.folder / "like.nubo").exists())

    def test_names(self):
        self.cook("Names with numbers")
        self.assertEqual(self.items("camera-name"), ["Deck1", "Deck2", "Deck3"])

    def test_network(self):
        self.bench.write("key.txt", "foghorn1\n")
        told = self.cook("All cameras into a network, with its key from a file")
        self.assertEqual(self.items("infra-ssid"), ["Workshop"] * 3)
        self.assertEqual(self.items("infra-key"), ["foghorn1"] * 3)
        self.assertEqual(self.items("wifi"), ["on"] * 3)
        self.assertNotIn("foghorn1", told + self.errors)

    def test_clocks(self):
        self.bench.camera("@2 set time 2014/03/09 07:05:01")
        self.assertTrue(self.cook("All clocks as this computer's").endswith("true\n"))
        self.assertNotIn("2014/03/09", self.items("time")[1])

    def test_changes(self):
        title = "Whether somebody has changed a setting"
        self.bench.write("fleet.nubo", "camera.optimizer = off\n")
        self.assertEqual(self.cook(title), "all as they should be\n")
        self.bench.camera("@2 set optimizer on")
        told = self.cook(title)
        self.assertTrue(told.startswith("changed: "))
        self.assertIn("camera.optimizer: on -> off", told)

    def test_pictures(self):
        self.cook("A picture from every camera")
        for serial in CAMERAS:
            self.assertTrue(self.read(f"pictures/{serial}.jpg").startswith(b"\xff\xd8"))

    def test_series(self):
        self.bench.camera("commands")
        self.cook("A series of pictures, and a contrast for the night")
        codes = self.bench.camera("commands").split()
        order = [code for code in codes if code in ("0x5849", "0x3001")]
        self.assertEqual(order, ["0x5849", *["0x3001"] * 3, "0x5849"])
        self.assertEqual(self.items("image-quality")[0], "2")
        names = sorted(path.name for path in self.bench.folder.glob("night*"))
        self.assertEqual(names, [f"night-000{k}.jpg" for k in (1, 2, 3)])

    def test_events(self):
        told = self.cook("What happens on the bus within three seconds").splitlines()
        plugged = [line for line in told if line.startswith("plugged")]
        self.assertEqual(len(plugged), 3, told)
        # On a slow computer three seconds are over before all have been read.
        ready = {line.split("\t")[2] for line in told if line.startswith("ready")}
        self.assertLessEqual(ready, set(CAMERAS))

    def test_failures(self):
        title = "What went wrong, by the exit code"
        self.assertEqual(self.cook(title), "camera.name = Gull\n")
        self.bench.camera("@2 busy on")
        self.assertEqual(self.cook(title), "close the window first\n")
        self.bench.camera("@2 unplug")
        self.assertEqual(self.cook(title), "SIM0002 is not plugged in\n")

    @classmethod
    def tearDownClass(cls):
        missing = RECIPES.keys() - cls.cooked
        assert not missing, f"recipes that nobody has tried: {missing}"
        assert len(RECIPES) >= 12, f"{len(RECIPES)} recipes"


if __name__ == "__main__":
    unittest.main(verbosity=2)
