#!/usr/bin/env python3
"""Time to the first frame and resident memory of the application's windows, beside an empty window.

usage: measure.py BUILD_FOLDER [RUNS]

All programs run off screen and in turn, drawn by the processor, with a home folder of their own that
holds a small set-up of Claude Code. The time is taken here, from before the process is made until
its report arrives. The Editor's window counts as there with the first frame that shows what is
remembered, asked of a practice gateway on a bus of its own: one filled for a day, one for years.
Last comes the memory of the Editor with all the pictures that it ever holds. Prints medians and
ratios; ends with 1 where a ratio is above its limit.
"""

import contextlib
import os
import pathlib
import re
import statistics
import subprocess
import sys
import tempfile
import time

# Of the time and of the memory of an empty window. None: there is no limit of its own.
LIMITS = {
    "Settings window": (4.0, 2.2),
    "Stats window": (4.0, 2.2),
    "Window of the first run": (4.0, None),
    "Editor window, a day's memories": (6.0, None),
    "Editor window, 100,000 memories": (6.0, None),
    "Editor with its pictures": (None, 3.5),
}
BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>unix:path={}</listen><auth>EXTERNAL</auth>
<policy context="default"><allow send_destination="*"/><allow receive_sender="*"/><allow own="*"/>
</policy></busconfig>
"""


def reported(command, environment):
    """Milliseconds until the report, and the memory in it in MB."""
    started = time.perf_counter()
    with subprocess.Popen(command, env=environment, stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, text=True) as process:
        report = process.stdout.readline()
        milliseconds = (time.perf_counter() - started) * 1000
        rest = process.stdout.read()
    resident = re.fullmatch(r"first-frame \d+ ms, resident (\d+) KB\n", report)
    if not resident:
        sys.exit(f"{command[0]} gave no report but {report!r}")
    return milliseconds, int(resident[1]) / 1024, rest.strip()


@contextlib.contextmanager
def practice_gateway(build, folder, fill, environment):
    """An environment whose bus has a filled practice gateway."""
    folder.mkdir()
    config = folder / "bus.conf"
    config.write_text(BUS.format(folder / "socket"))
    bus = subprocess.Popen(["dbus-daemon", f"--config-file={config}", "--nofork", "--nosyslog",
                            "--print-address=1"], stdout=subprocess.PIPE,
                           stderr=subprocess.DEVNULL, text=True)
    try:
        within = environment | {"DBUS_SESSION_BUS_ADDRESS": bus.stdout.readline().strip()}
        gateway = subprocess.Popen(
            [build / "Wendlow.app/Contents/MacOS/wendlow-practice-gateway", "--fill", fill,
             "--database", folder / "practice" / "practice.db"],
            env=within, stdout=subprocess.PIPE, text=True)
        try:
            if gateway.stdout.readline() != "ready\n":
                sys.exit("the practice gateway did not start")
            yield within
        finally:
            gateway.kill()
            gateway.wait()
    finally:
        bus.kill()
        bus.wait()


def compare(name, medians, peer):
    """Prints the ratios of one program; whether they are within its limits."""
    within = True
    words = []
    for what, ours, theirs, limit in zip(("time", "memory"), medians, peer, LIMITS[name]):
        if ours is None:
            continue
        words.append(f"{what} {ours / theirs:.2f}" + (f" (limit {limit})" if limit else ""))
        within = within and (limit is None or ours / theirs <= limit)
    print(f"{name}: " + ", ".join(words))
    return within


def main():
    build = pathlib.Path(sys.argv[1]).absolute()
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 15
    settings = build / "Wendlow.app/Contents/MacOS/wendlow-settings"
    with tempfile.TemporaryDirectory(prefix="wendlow-test-") as name, \
            contextlib.ExitStack() as services:
        home = pathlib.Path(name)
        (home / ".claude").mkdir()
        (home / ".claude" / "settings.json").write_text("{}\n")
        (home / ".claude.json").write_text('{"projects": {}}\n')
        bare = {"HOME": name, "PATH": os.environ["PATH"], "LANG": "C.UTF-8",
                "XDG_RUNTIME_DIR": name, "QT_QPA_PLATFORM": "offscreen",
                "QT_QUICK_BACKEND": "software"}
        day, power = (services.enter_context(practice_gateway(build, home / fill, fill, bare))
                      for fill in ("day", "power"))
        editor = [settings, "--window=editor", "--first-frame"]
        programs = {
            "empty window": ([build / "Benchmarks/FirstFrame/empty-window"], bare),
            "Settings window": ([settings, "--first-frame"], bare),
            "Stats window": ([settings, "--window=stats", "--first-frame"], day),
            "Window of the first run": ([settings, "--window=onboarding", "--first-frame"], day),
            "Editor window, a day's memories": (editor, day),
            "Editor window, 100,000 memories": (editor, power),
        }
        results = {name: [] for name in programs}
        for run in range(runs + 1):
            for name, (command, environment) in programs.items():
                result = reported(command, environment)[:2]
                if run > 0:  # the first fills the caches of the disk
                    results[name].append(result)
        _, tiles, words = reported([build / "Benchmarks/Editor/editor-tiles"], bare)
    medians = {name: [statistics.median(column) for column in zip(*rows)]
               for name, rows in results.items()}
    for name, (milliseconds, megabytes) in medians.items():
        print(f"{name}: first frame {milliseconds:.0f} ms, resident {megabytes:.1f} MB "
              f"(medians of {runs})")
    print(f"Editor with its pictures: resident {tiles:.1f} MB, {words}")
    medians["Editor with its pictures"] = (None, tiles)
    peer = medians["empty window"]
    return 0 if all([compare(name, medians[name], peer) for name in LIMITS]) else 1


if __name__ == "__main__":
    sys.exit(main())
