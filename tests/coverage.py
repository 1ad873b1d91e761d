# SPDX-License-Identifier: MIT
"""How much of each folder's code the tests have run; fails where a goal is missed.

Run it behind the tests of the coverage preset: `./test.sh --coverage`. Lines that no test can run
stand in coverage-exceptions.txt, each with its reason.
"""

import json
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).parents[1]
EXCEPTIONS = pathlib.Path(__file__).with_name("coverage-exceptions.txt")

# Per cent of the lines and of the branches of each folder.
GOALS = {
    "protocol": (100, 90),
    "usb": (100, 90),
    "settings": (100, 90),
    "cli": (100, 90),
    "ui": (95, 0),
    "pages": (95, 0),
    "app": (95, 0),
}


def measured(build):
    """What gcov has counted, file by file."""
    command = ["gcovr", "--root", str(ROOT), "--object-directory", build, "--json", "-"]
    command += ["--exclude-throw-branches", "--exclude-unreachable-branches"]
    for folder in GOALS:
        command += ["--filter", f"{ROOT}/{folder}/"]
    shown = subprocess.run(command + [build], check=True, capture_output=True, text=True).stdout
    return json.loads(shown)["files"]


def exceptions():
    """The text of the lines that need not run, as {file: [text]}."""
    excepted = {}
    for line in EXCEPTIONS.read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            path, text, _reason = (part.strip() for part in line.split(" | "))
            excepted.setdefault(path, []).append(text)
    return excepted


class Counts:
    def __init__(self):
        self.lines = self.lines_run = self.branches = self.branches_run = 0
        self.missed = []

    def add(self, path, line, is_excepted):
        if not line["count"] and is_excepted:
            return
        self.lines += 1
        if line["count"]:
            self.lines_run += 1
        else:
            self.missed.append(f"{path}:{line['line_number']}")
        # Of a line that never runs no branch is taken either: it counts once.
        if line["count"]:
            self.branches += len(line["branches"])
            self.branches_run += sum(1 for branch in line["branches"] if branch["count"])


def share(part, whole):
    return 100 * part / whole if whole else 100


def main(build):
    counts = {folder: Counts() for folder in GOALS}
    excepted = exceptions()
    used = set()
    for file in measured(build):
        path = file["file"]
        source = (ROOT / path).read_text(encoding="utf-8").splitlines()
        for line in file["lines"]:
            if line.get("gcovr/noncode"):
                continue
            text = source[line["line_number"] - 1]
            found = [part for part in excepted.get(path, []) if part in text]
            if found and not line["count"]:
                used.update((path, part) for part in found)
            counts[path.split("/")[0]].add(path, line, bool(found))

    is_met = True
    print(f"{'folder':10} {'lines':>18} {'branches':>20}")
    for folder, (line_goal, branch_goal) in GOALS.items():
        seen = counts[folder]
        lines = share(seen.lines_run, seen.lines)
        branches = share(seen.branches_run, seen.branches)
        # Of a folder without lines nothing was measured.
        is_folder_met = seen.lines > 0 and lines >= line_goal and branches >= branch_goal
        is_met = is_met and is_folder_met
        print(
            f"{folder:10} {lines:6.2f} % of {seen.lines:5} {branches:8.2f} % of {seen.branches:5}"
            f"  {'' if is_folder_met else f'goal: {line_goal} % and {branch_goal} %'}"
        )
        for missed in seen.missed if not is_folder_met else []:
            print(f"    never run: {missed}")
    for path, texts in excepted.items():
        for text in texts:
            if (path, text) not in used:
                print(f"{EXCEPTIONS.name}: nothing in {path} needs the exception of: {text}")
                is_met = False
    return 0 if is_met else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
