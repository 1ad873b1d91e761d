# SPDX-License-Identifier: MIT
"""Takes random walks through the window; a failing one is shortened to the steps that matter.

Runs the walks of the seeds FIRST to LAST in processes of their own.
"""

import argparse
import concurrent.futures
import dataclasses
import os
import queue
import signal
import subprocess
import sys
import threading
import time

from shortening import shortened

# A walk that says nothing for so long is stuck: the longest wait in it is a third of that.
PATIENCE_S = 180
# Walks of one process: a failing one is found again sooner in a new one.
WALKS_OF_A_PROCESS = 250


@dataclasses.dataclass
class Outcome:
    walks: int = 0
    steps: str = ""  # of the walk that was last under way
    failure: str = ""  # empty when all went well


def take_walks(program, *arguments):
    """Runs the program, which prints what it does, one line each."""
    outcome = Outcome()
    process = subprocess.Popen(
        [program, "WindowWalk", *map(str, arguments)], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True
    )
    lines = queue.Queue()

    def read():
        for line in process.stdout:
            lines.put(line)
        lines.put("")

    threading.Thread(target=read, daemon=True).start()
    try:
        while line := lines.get(timeout=PATIENCE_S):
            word, _, rest = line.strip().partition(" ")
            if word == "walk":
                outcome.steps = rest
            elif word == "passed":
                outcome.walks += 1
            elif word == "failed":
                outcome.failure = rest
        status = process.wait()
        if status != 0 and not outcome.failure:
            outcome.failure = f"the program ended with {status}"
    except queue.Empty:
        outcome.failure = "nothing happens any more"
        process.send_signal(signal.SIGABRT)
        process.wait()
    return outcome


def report_failure(program, outcome):
    print(f"Failed: {outcome.failure}\nThe walk: {outcome.steps}", flush=True)
    # Alone it may do no harm, or only the third time.
    steps = shortened(
        outcome.steps.split(), lambda rest: bool(take_walks(program, " ".join(rest) or "w0", 3).failure)
    )
    print(f"The steps that matter: {' '.join(steps) or 'none'}\nAgain: WindowWalk '{' '.join(steps) or 'w0'}' 3")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program")
    parser.add_argument("first", type=int)
    parser.add_argument("last", type=int)
    parser.add_argument("--jobs", type=int, default=1)
    arguments = parser.parse_args()
    os.environ |= {"LD_PRELOAD": "libumockdev-preload.so.0", "QT_QPA_PLATFORM": "offscreen"}

    begin = time.monotonic()
    ranges = [
        (first, min(first + WALKS_OF_A_PROCESS - 1, arguments.last))
        for first in range(arguments.first, arguments.last + 1, WALKS_OF_A_PROCESS)
    ]
    walks = 0
    is_sound = True
    with concurrent.futures.ThreadPoolExecutor(max_workers=arguments.jobs) as pool:
        for outcome in pool.map(lambda seeds: take_walks(arguments.program, *seeds), ranges):
            walks += outcome.walks
            if outcome.failure:
                is_sound = False
                report_failure(arguments.program, outcome)
            else:
                print(f"{walks} walks", flush=True)
    print(f"{walks} walks in {time.monotonic() - begin:.0f} s")
    return 0 if is_sound else 1


if __name__ == "__main__":
    sys.exit(main())
