#!/usr/bin/env python3
"""Time to the first frame and resident memory of the Settings window, beside an empty window.

usage: measure.py BUILD_FOLDER [RUNS]

Both programs run off screen and in turn, drawn by the processor, with a home folder of their own
that holds a small set-up of Claude Code. The time is taken here, from before the process is made
until its report arrives. Prints medians and ratios; ends with 1 where a ratio is above its limit.
"""

import os
import pathlib
import re
import statistics
import subprocess
import sys
import tempfile
import time

TIME_LIMIT, MEMORY_LIMIT = 4.0, 2.2


def measure(command, environment):
    started = time.perf_counter()
    with subprocess.Popen(command, env=environment, stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, text=True) as process:
        report = process.stdout.readline()
        milliseconds = (time.perf_counter() - started) * 1000
    resident = re.fullmatch(r"first-frame \d+ ms, resident (\d+) KB\n", report)
    if not resident:
        sys.exit(f"{command[0]} gave no report but {report!r}")
    return milliseconds, int(resident[1]) / 1024


def main():
    build = pathlib.Path(sys.argv[1])
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 15
    programs = {
        "empty window": [build / "Benchmarks/FirstFrame/empty-window"],
        "Settings window": [build / "Wendlow.app/Contents/MacOS/wendlow-settings", "--first-frame"],
    }
    with tempfile.TemporaryDirectory(prefix="wendlow-first-frame-") as home:
        pathlib.Path(home, ".claude").mkdir()
        pathlib.Path(home, ".claude", "settings.json").write_text("{}\n")
        pathlib.Path(home, ".claude.json").write_text('{"projects": {}}\n')
        environment = {"HOME": home, "PATH": os.environ["PATH"], "LANG": "C.UTF-8",
                       "XDG_RUNTIME_DIR": home, "QT_QPA_PLATFORM": "offscreen",
                       "QT_QUICK_BACKEND": "software"}
        results = {name: [] for name in programs}
        for run in range(runs + 1):
            for name, command in programs.items():
                result = measure(command, environment)
                if run > 0:  # the first fills the caches of the disk
                    results[name].append(result)
    medians = {name: [statistics.median(column) for column in zip(*rows)]
               for name, rows in results.items()}
    for name, (milliseconds, megabytes) in medians.items():
        print(f"{name}: first frame {milliseconds:.0f} ms, resident {megabytes:.1f} MB "
              f"(medians of {runs})")
    ratios = [ours / theirs for ours, theirs in zip(medians["Settings window"],
                                                    medians["empty window"])]
    print(f"ratios: time {ratios[0]:.2f} (limit {TIME_LIMIT}), "
          f"memory {ratios[1]:.2f} (limit {MEMORY_LIMIT})")
    return 0 if ratios[0] <= TIME_LIMIT and ratios[1] <= MEMORY_LIMIT else 1


if __name__ == "__main__":
    sys.exit(main())
