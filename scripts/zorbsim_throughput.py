#!/usr/bin/env python3
"""zorbsim's throughput and peak memory: writes scenarios of STEPS calls each (read-only calls on the
default host, so every step does the same work) into the build folder, runs `zorbsim run` on each
and prints, as JSON, the steps per second and the peak resident memory of each run.

usage: zorbsim_throughput.py ZORBSIM OUT_FOLDER STEPS...
"""
import json
import os
import subprocess
import sys
import time

# Calls that leave the default host as it was, so that a long run does not grow the host.
CYCLE = [
    {"call": "getCADAppSupportPath"},
    {"call": "isMenuLoaded", "args": {"groupName": "ZORB"}},
    {"call": "isToolbarVisible", "args": {"groupName": "ZORB", "toolbarName": "TB_STANDARD"}},
    {"call": "getNumberOfMenusOnMenuBar"},
    {"call": "isMenuLoadedOnMenuBar", "args": {"text": "HELP"}},
    {"call": "getCadDrawingPath"},
]


def scenario(steps):
    return {"description": f"{steps} read-only calls", "steps": [CYCLE[i % len(CYCLE)] for i in range(steps)]}


def measure(zorbsim, path, steps):
    started = time.perf_counter()
    with open(os.devnull, "wb") as sink:
        process = subprocess.Popen([zorbsim, "run", path], stdout=sink)
        _, status, usage = os.wait4(process.pid, 0)
    seconds = time.perf_counter() - started
    if os.waitstatus_to_exitcode(status) != 0:
        sys.exit(f"zorbsim run {path} failed")
    # ru_maxrss is in KiB on Linux.
    return {"steps": steps, "seconds": seconds, "steps_per_second": steps / seconds,
            "peak_rss_mib": usage.ru_maxrss / 1024}


def main():
    zorbsim, folder, *counts = sys.argv[1:]
    os.makedirs(folder, exist_ok=True)
    runs = []
    for steps in map(int, counts):
        path = os.path.join(folder, f"zorbsim_{steps}_steps.json")
        with open(path, "w") as out:
            json.dump(scenario(steps), out)
        runs.append(measure(zorbsim, path, steps))
    json.dump(runs, sys.stdout, indent=2)


if __name__ == "__main__":
    main()
