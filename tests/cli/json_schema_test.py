# SPDX-License-Identifier: MIT
"""Whether what every verb tells with --json, done or failed, is what the JSON Schema says."""

import itertools
import json
import pathlib
import signal
import sys
import threading
import unittest
from collections import defaultdict

import jsonschema
from simulated_cameras import SimulatedCameras

SIMULATOR, NUBOCTL, SCHEMA_FILE = sys.argv[1:4]
del sys.argv[1:4]

SCHEMA = json.loads(pathlib.Path(SCHEMA_FILE).read_text(encoding="utf-8"))

REFUSED = "fault camera-error 0xFFF9 command {}"
GONE = "fault device-gone transfer {}"

# By verb: the exit code, the words, and the control lines before. With --json, a verb that
# prefixes its words asks for the serial number and the version first: two commands, four transfers.
CASES = {
    "list": [
        (0, "list", ()),
        (0, "list", ("busy on",)),
        (3, "list", ("unplug",)),
        (2, "list more", ()),
    ],
    "info": [(0, "info", ()), (6, "info", (REFUSED.format(4),))],
    "status": [
        (0, "status", ()),
        (0, "status", ("set wifi-state 1", "set sd-total 0")),
        (7, "status", (GONE.format(9),)),
        (2, "status --watch=0", ()),
    ],
    "get": [
        (0, "get", ()),
        (0, "get --show-secrets live.password", ()),
        (0, "--all get battery", ()),
        (6, "get camera.name camera.led", (REFUSED.format(3),)),
        (7, "get", (GONE.format(20),)),
        (2, "get no.such.key", ()),
        (3, "-c 9-9 get", ()),
    ],
    "set": [
        (0, "set camera.name=Tern gps.enabled=off camera.clock=now", ()),
        (0, "set camera.name=Gull", ()),
        (8, "set camera.name=Tern image.contrast=3", (REFUSED.format(7),)),
        (8, "set camera.name=Tern", (GONE.format(8),)),
        (2, "set live.frame-rate=5", ()),
        (9, "set live.password=@none", ()),
    ],
    "describe": [(0, "describe", ()), (2, "describe no.such.key", ())],
    "export": [(0, "export", ()), (0, "export all.nubo", ()), (9, "export none/all.nubo", ())],
    "diff": [
        (0, "diff same.nubo", ()),
        (1, "diff other.nubo", ()),
        (1, "diff same.nubo other.nubo", ()),
        (2, "diff wrong.nubo", ()),
        (9, "diff none.nubo", ()),
    ],
    "apply": [
        (0, "apply other.nubo", ()),
        (0, "apply same.nubo", ()),
        (0, "apply other.nubo --dry-run", ()),
        (8, "apply other.nubo", (REFUSED.format(7),)),
        (2, "apply wrong.nubo", ()),
    ],
    "wifi": [
        (0, "wifi scan", ()),
        (0, "wifi off", ()),
        (0, "wifi on", ()),
        (0, "wifi join Pier --key-file key --static 10.0.0.2/24,10.0.0.1,10.0.0.3", ()),
        (6, "wifi scan", (REFUSED.format(3),)),
        (2, "wifi join", ()),
    ],
    "record": [(0, "record start", ()), (0, "record status", ()), (6, "record stop", (REFUSED.format(3),))],
    "picture": [
        (0, "picture a.jpg", ()),
        (0, "picture --every 0.01 --count 2", ()),
        (9, "picture none/a.jpg", ()),
        (6, "picture a.jpg", ("set picture-size 0",)),
        (2, "picture -", ()),
    ],
    "audio": [(0, "audio a.audio", ("set audio-size 9",)), (6, "audio", ("set audio-size 0",))],
    "stream-url": [(0, "stream-url --host cam.local", ()), (1, "stream-url", ())],
    "sd": [(0, "sd", ()), (0, "sd format --yes", ()), (6, "sd format --yes", (REFUSED.format(3),)), (2, "sd format", ())],
    "clock": [(0, "clock", ()), (0, "clock sync", ()), (6, "clock", (REFUSED.format(3),))],
    "restart": [(0, "restart", ()), (0, "restart --wait-back", ()), (6, "restart", (REFUSED.format(3),))],
    "poweroff": [(0, "poweroff", ()), (6, "poweroff", (REFUSED.format(3),))],
    "reset": [
        (0, "reset --yes", ()),
        (0, "reset --yes --wait-back", ("set restart-after-reset on",)),
        (2, "reset", ()),
    ],
    "firmware": [
        (0, "firmware update image --dry-run", ()),
        (0, "firmware", ()),
        (0, "firmware update image --yes", ("set firmware-next 2.00",)),
        (1, "firmware update image --yes", ("set battery 20",)),
        (2, "firmware update empty --yes", ()),
        (9, "firmware update none --yes", ()),
    ],
    "doctor": [
        (0, "doctor", ()),
        (1, "doctor", ("set battery 9", "set sd-total 0")),
        (1, "doctor", ("busy on",)),
        (1, "doctor", ("unplug",)),
    ],
    "descriptors": [(0, "descriptors", ()), (0, "descriptors", ("busy on",)), (3, "descriptors", ("unplug",))],
    "raw": [(0, "raw 0x5037 --expert", ()), (6, "raw 0x5FFF --expert", ()), (2, "raw 0x5037", ())],
    "completion": [(0, "completion bash", ()), (2, "completion tcsh", ())],
    "help": [(0, "help", ()), (0, "help set", ()), (0, "help camera", ()), (2, "help nobody", ())],
    # MonitorCase below
    "monitor": [(2, "monitor --every 0", ()), (2, "monitor -c 1-2", ())],
}

# What any verb that opens a camera may meet, and how it ends.
OBSTACLES = [
    (3, "unplug", "plug"),
    (4, "busy on", "busy off"),
    (5, "access denied", "access allowed"),
    (7, "fault stall transfer 1", "clear-faults"),
    # Last: what is refused may be done all the same.
    (6, REFUSED.format(3), "clear-faults"),
]
WITHOUT_CAMERA = {"list", "describe", "doctor", "descriptors", "completion", "help", "monitor"}

FILES = {
    "same.nubo": "camera.name = Gull\n",
    "other.nubo": "camera.name = Tern\nimage.contrast = 4\n",
    "wrong.nubo": "live.frame-rate = 5\n",
    "key": "foghorn1\n",
    "image": "an image\n",
    "empty": "",
}


def cameras(*options):
    bench = SimulatedCameras(SIMULATOR, NUBOCTL, options)
    for name, content in FILES.items():
        bench.write(name, content)
    return bench


def validator(name):
    return jsonschema.Draft202012Validator({"$defs": SCHEMA["$defs"], "$ref": f"#/$defs/{name}"})


def change_battery(bench, is_enough):
    for charge in itertools.cycle(range(20, 100)):
        bench.camera(f"set battery {charge}")
        if is_enough.wait(0.05):
            return


class JsonSchemaTest(unittest.TestCase):
    seen = defaultdict(set)

    def check(self, verb, ended):
        objects = [json.loads(line) for line in ended.stdout.splitlines()]
        self.assertTrue(objects, ended.stderr)
        for told in objects:
            self.check_object(verb, told)
        if ended.returncode > 1:
            self.assertIn("error", objects[-1])
        if "error" in objects[-1]:
            self.assertEqual(objects[-1]["error"]["exit"], ended.returncode)
            self.assertTrue(ended.stderr)

    def check_object(self, verb, told):
        self.seen[verb] |= told.keys()
        problems = [error.message for error in validator(verb).iter_errors(told)]
        self.assertEqual(problems, [], told)
        self.assertTrue(jsonschema.Draft202012Validator(SCHEMA).is_valid(told))

    def test_1_every_verb_tells_what_its_schema_says(self):
        for verb, cases in CASES.items():
            self.assertTrue(any(exit_code != 0 for exit_code, _, _ in cases), verb)
            for exit_code, words, lines in cases:
                with self.subTest(words=words, lines=lines), cameras() as bench:
                    for line in lines:
                        bench.camera(line)
                    ended = bench.run("--json", *words.split())
                    self.assertEqual(ended.returncode, exit_code, ended.stdout + ended.stderr)
                    self.check(verb, ended)

    def test_2_what_is_in_the_way_of_a_camera_is_told_alike(self):
        for verb in CASES.keys() - WITHOUT_CAMERA:
            words = next(words for exit_code, words, _ in CASES[verb] if exit_code == 0)
            with cameras() as bench:
                for exit_code, line, way_back in OBSTACLES:
                    with self.subTest(words=words, line=line):
                        bench.camera(line)
                        ended = bench.run("--json", *words.split())
                        bench.camera(way_back)
                        self.assertEqual(ended.returncode, exit_code, ended.stdout + ended.stderr)
                        self.check(verb, ended)

    def test_3_events_are_objects_of_their_own(self):
        with cameras() as bench:
            monitor = bench.start("monitor", "--json", "--every", "0.1")
            is_changed = threading.Event()
            # Only what changes after a first reading is an event.
            change = threading.Thread(target=change_battery, args=(bench, is_changed), daemon=True)
            events = []
            for line in monitor.stdout:
                told = json.loads(line)
                self.check_object("monitor", told)
                events.append(told.get("event"))
                if events[-1] == "ready":
                    change.start()
                elif events[-1] == "changed" and not is_changed.is_set():
                    is_changed.set()
                    bench.camera("busy on")
                elif events[-1] == "unavailable":
                    bench.camera("unplug")
                elif events[-1] == "gone":
                    monitor.send_signal(signal.SIGINT)
            self.assertEqual(monitor.wait(), 130)
            self.assertEqual(events[:3], ["plugged", "ready", "changed"])
            self.assertEqual(told["error"]["kind"], "interrupted")

    def test_4_every_verb_and_every_member_of_its_schema_was_seen(self):
        with cameras() as bench:
            overview = json.loads(bench.run("help", "--json").stdout)["help"]
        verbs = {verb["verb"] for verb in overview["verbs"]}
        self.assertEqual(verbs - CASES.keys(), set(), "verbs without a case")
        self.assertEqual(CASES.keys() - verbs, set(), "cases of no verb")
        self.assertEqual({name for name in SCHEMA["$defs"] if name[0].islower()}, verbs)
        for verb in verbs:
            with self.subTest(verb=verb):
                members = SCHEMA["$defs"][verb]["properties"].keys()
                self.assertEqual(members - self.seen[verb], set(), "members that were never told")
        kinds = {end["kind"]: end["exit"] for end in overview["exitCodes"] if end["exit"] != 0}
        error = SCHEMA["$defs"]["Error"]["properties"]
        self.assertEqual(error["kind"]["enum"], list(kinds))
        self.assertEqual(error["exit"]["enum"], list(kinds.values()))

    def test_5_what_is_not_in_the_schema_is_refused(self):
        with cameras() as bench:
            told = json.loads(bench.run("--json", "get").stdout)
        get = validator("get")
        self.assertTrue(get.is_valid(told))
        for path, value in (
            (("more",), 1),
            (("schema",), "nubo/2"),
            (("settings", "camera.colour"), "red"),
            (("settings", "camera.led"), "on"),
            (("settings", "recording.size"), "1x1"),
            (("camera", "port"), 1),
        ):
            with self.subTest(path=path):
                wrong = json.loads(json.dumps(told))
                target = wrong
                for name in path[:-1]:
                    target = target[name]
                target[path[-1]] = value
                self.assertFalse(get.is_valid(wrong))


if __name__ == "__main__":
    unittest.main(verbosity=2)
