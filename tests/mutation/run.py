# SPDX-License-Identifier: MIT
"""Breaks the code in one place at a time, and looks whether a test notices.

Works on a copy of the sources. Each mutant is built and tested by the subjects that cover its file
until one fails. A run that was stopped goes on where it was when it is started again with the same
seed and count. Exits with 1 when a mutant survives that survivors.txt does not explain.
"""

import argparse
import collections
import concurrent.futures
import json
import os
import random
import shutil
import signal
import subprocess
import sys
import time
from pathlib import Path

from mutants import mutants_of
from subjects import PARTS

HERE = Path(__file__).parent
ROOT = HERE.parent.parent
WORK = ROOT / "build" / "mutation"
TREE = WORK / "tree"
BUILD = WORK / "build"
# A subject that takes so much longer than it does on the sound code hangs.
PATIENCE_FACTOR = 5
LEAST_PATIENCE_S = 30
# Longer ones wait for real time-outs, and others test the same with shorter ones.
LONGEST_SUBJECT_S = 25


def copy_sources():
    files = subprocess.run(
        ["git", "-C", ROOT, "ls-files", "--cached", "--others", "--exclude-standard"],
        check=True, capture_output=True, text=True,
    ).stdout.splitlines()
    for file in files:
        source, target = ROOT / file, TREE / file
        if not source.exists():
            continue
        if target.exists() and target.read_bytes() == source.read_bytes():
            continue
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(source, target)


def configure():
    # Clang has precompiled headers here, and nobody debugs a mutant.
    subprocess.run(
        ["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-DCMAKE_CXX_COMPILER=clang++", "-DNUBO_BUILD_TESTS=ON",
         f"-DCMAKE_PROJECT_TOP_LEVEL_INCLUDES={TREE}/cmake/NuboFastTools.cmake"],
        check=True, stdout=subprocess.DEVNULL,
    )


def build(targets):
    built = subprocess.run(["ninja", "-C", BUILD, *sorted(targets)], capture_output=True, text=True)
    return built.returncode == 0, built.stdout


class Subject:
    """A test as ctest knows it."""

    def __init__(self, entry):
        properties = {p["name"]: p["value"] for p in entry.get("properties", [])}
        self.name = entry["name"]
        self.command = entry.get("command", [])
        self.targets = set(properties.get("LABELS", []))
        self.environment = dict(line.split("=", 1) for line in properties.get("ENVIRONMENT", []))
        self.usual_s = None

    def run(self):
        """Whether it passes."""
        patience = None if self.usual_s is None else max(LEAST_PATIENCE_S, PATIENCE_FACTOR * self.usual_s)
        process = subprocess.Popen(
            # A crash needs no report of where.
            self.command, env=os.environ | self.environment | {"QTEST_DISABLE_STACK_DUMP": "1"}, start_new_session=True, cwd=BUILD,
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
        )
        try:
            return process.wait(patience) == 0
        except subprocess.TimeoutExpired:
            return False
        finally:
            # A program that it started goes with it.
            try:
                os.killpg(process.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
            process.wait()


def read_subjects():
    listed = subprocess.run(
        ["ctest", "--test-dir", BUILD, "--show-only=json-v1"], check=True, capture_output=True, text=True
    ).stdout
    return {s.name: s for s in map(Subject, json.loads(listed)["tests"])}


def chosen(subjects, names):
    """The subjects of a stage, where a folder stands for all that are in it."""
    found = []
    for name in names:
        if "/" in name:
            stems = [path.stem for path in sorted((TREE / name).rglob("*Test.cpp"))]
        else:
            stems = [name]
        found += [subjects[stem] for stem in stems if stem in subjects]
    return found


def measure(subjects):
    """Runs each subject once on the sound code: it must pass, and its time is what it usually takes."""
    is_built, output = build(set().union(*(s.targets for s in subjects)))
    if not is_built:
        sys.exit(output)
    # ctest knows the commands of what has been built.
    known = read_subjects()
    for subject in subjects:
        subject.command = known[subject.name].command
    file = WORK / "times.json"
    times = json.loads(file.read_text()) if file.exists() else {}

    def measure_one(subject):
        begin = time.monotonic()
        # What may depend on the machine's load gets a second chance.
        if not subject.run() and not subject.run():
            os.write(2, f"{subject.name} fails on the sound code.\n".encode())
            os._exit(1)
        times[subject.name] = time.monotonic() - begin

    with concurrent.futures.ThreadPoolExecutor(max_workers=os.cpu_count()) as pool:
        list(pool.map(measure_one, {s for s in subjects if s.name not in times}))
    file.write_text(json.dumps(times, indent=1))
    for subject in subjects:
        subject.usual_s = times[subject.name]


def find_failure(subjects):
    """The name of a subject that fails, or None. The quickest go first."""
    waiting = sorted((s for s in subjects if s.usual_s <= LONGEST_SUBJECT_S), key=lambda s: s.usual_s)
    with concurrent.futures.ThreadPoolExecutor(max_workers=os.cpu_count()) as pool:
        runs = {pool.submit(s.run): s for s in waiting}
        for run in concurrent.futures.as_completed(runs):
            if not run.result():
                for other in runs:
                    other.cancel()
                return runs[run].name
    return None


def judge(mutant, stages):
    """What becomes of a mutant: "stillborn" when it cannot be built, "survived", or who killed it."""
    path = TREE / mutant.file
    sound = path.read_text()
    path.write_text(mutant.source)
    try:
        for stage in stages:
            is_built, _ = build(set().union(*(s.targets for s in stage)))
            if not is_built:
                return "stillborn"
            killer = find_failure(stage)
            # A subject that fails by the machine's load alone kills nothing.
            if killer and find_failure([s for s in stage if s.name == killer]):
                return killer
        return "survived"
    finally:
        path.write_text(sound)


def candidates(part, seed):
    """The part's mutants in a random order that takes its files in turn."""
    by_file = {}
    generator = random.Random(f"{seed} {part.name}")
    for pattern in part.files:
        for path in sorted(TREE.glob(pattern)):
            file = str(path.relative_to(TREE))
            mutants = mutants_of(file, path.read_text(), part.skipped_lines)
            generator.shuffle(mutants)
            if mutants:
                by_file[file] = mutants
    while by_file:
        for file in list(by_file):
            yield by_file[file].pop()
            if not by_file[file]:
                del by_file[file]


def read_explained():
    """The keys of the mutants that may survive: every line of the file that is not indented."""
    lines = (HERE / "survivors.txt").read_text().splitlines()
    return {line for line in lines if line and not line.startswith((" ", "#"))}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--seed", type=int, default=1, help="chooses the sample")
    parser.add_argument("--count", type=int, default=320, help="how many mutants that can be built")
    parser.add_argument("--part", action="append", help="only these: " + ", ".join(p.name for p in PARTS))
    parser.add_argument("--only", help="only mutants with this in their description, all of them")
    arguments = parser.parse_args()

    os.nice(10)
    WORK.mkdir(parents=True, exist_ok=True)
    copy_sources()
    configure()
    subjects = read_subjects()
    explained = read_explained()
    results_file = WORK / f"results-{arguments.seed}.jsonl"
    known = {}
    if results_file.exists() and not arguments.only:
        for line in results_file.read_text().splitlines():
            entry = json.loads(line)
            known[entry["key"]] = entry["result"]

    parts = [p for p in PARTS if not arguments.part or p.name in arguments.part]
    stages = {p.name: [c for names in p.stages if (c := chosen(subjects, names))] for p in parts}
    measure([s for part in stages.values() for stage in part for s in stage])

    shares = sum(p.share for p in PARTS)
    quotas = {p.name: max(1, round(arguments.count * p.share / shares)) for p in parts}
    sources = {p.name: candidates(p, arguments.seed) for p in parts}
    counts = {p.name: collections.Counter() for p in parts}
    unexplained = []

    def progress(name):
        return (counts[name].total() - counts[name]["stillborn"]) / quotas[name]

    # All parts grow alike: a run that is stopped is a smaller sample.
    while sources:
        name = min(sources, key=progress)
        mutant = next(sources[name], None)
        if mutant is None or (progress(name) >= 1 and not arguments.only):
            del sources[name]
            continue
        if arguments.only and arguments.only not in str(mutant):
            continue
        result = known.get(mutant.key())
        if result is None:
            result = judge(mutant, stages[name])
            with results_file.open("a") as file:
                file.write(json.dumps({"key": mutant.key(), "line": mutant.line, "result": result}) + "\n")
            print(f"{result}: {mutant}", flush=True)
        kind = result if result in ("stillborn", "survived") else "killed"
        if kind == "survived" and mutant.key() in explained:
            kind = "explained"
        elif kind == "survived":
            unexplained.append(mutant)
        counts[name][kind] += 1

    print("\npart         mutants  killed  explained  survived")
    total = collections.Counter()
    for name, row in [*counts.items(), ("all", total)]:
        born = row.total() - row["stillborn"]
        print(f"{name:12} {born:7} {row['killed']:7} {row['explained']:10} {row['survived']:9}")
        if row is not total:
            total.update(row)
    born = total.total() - total["stillborn"]
    print(f"{total['stillborn']} more could not be built. Killed: {100 * total['killed'] / max(1, born):.1f} %")
    for mutant in unexplained:
        print(f"\nSurvived: {mutant}")
    return 1 if unexplained else 0


if __name__ == "__main__":
    sys.exit(main())
