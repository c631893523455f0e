#!/usr/bin/env python3
"""Runs one differential probe on both builds and compares what they answered, case by case.

  compare.py LISTED NATIVE_PROBE EMULATOR WINDOWS_PROBE

NATIVE_PROBE is the linux build's probe (the portable automation runtime), WINDOWS_PROBE the
windows build's, run through EMULATOR (Wine, with the platform's runtime). Each prints one line a
case: its name, a tab, its outcome. LISTED is a JSON file of the differences we keep:

  {"differences": [{"case": "...", "portable": "...", "platform": "...", "reason": "..."}]}

The comparison fails on a case whose outcomes differ and is not listed, on a listed case whose
outcomes are no longer the recorded ones (the listing is stale), on a case only one build ran, and
on a probe that did not end normally. It prints the counts: cases, same, listed.
"""
import json
import subprocess
import sys


def run(command):
    finished = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=600)
    if finished.returncode != 0:
        sys.exit(f"{' '.join(command)} ended with status {finished.returncode}:\n"
                 f"{finished.stderr.decode(errors='replace')}")
    outcomes = {}
    for line in finished.stdout.decode("utf-8", errors="replace").splitlines():
        line = line.rstrip("\r")
        if not line:
            continue
        name, _, outcome = line.partition("\t")
        if name in outcomes:
            sys.exit(f"{' '.join(command)} answered case {name} twice")
        outcomes[name] = outcome
    return outcomes


def main():
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    listed_file, native_probe, emulator, windows_probe = sys.argv[1:]
    with open(listed_file, encoding="utf-8") as stream:
        entries = json.load(stream)["differences"]
    listed = {}
    for entry in entries:
        if not entry.get("reason", "").strip():
            sys.exit(f"{listed_file}: the difference of {entry['case']} has no reason")
        if entry["case"] in listed:
            sys.exit(f"{listed_file}: {entry['case']} is listed twice")
        listed[entry["case"]] = entry

    portable = run([native_probe])
    platform = run([emulator, windows_probe])

    problems = []
    same = kept = 0
    for name in list(portable) + [n for n in platform if n not in portable]:
        if name not in portable or name not in platform:
            problems.append(f"{name}: run only by the {'linux' if name in portable else 'windows'} probe")
            continue
        mine, theirs = portable[name], platform[name]
        entry = listed.pop(name, None)
        if entry is None:
            if mine == theirs:
                same += 1
            else:
                problems.append(f"{name}: portable <{mine}>, platform <{theirs}>")
        elif (mine, theirs) == (entry["portable"], entry["platform"]) and mine != theirs:
            kept += 1
        else:
            problems.append(f"{name}: listed as portable <{entry['portable']}>, platform <{entry['platform']}>; "
                            f"now portable <{mine}>, platform <{theirs}>")
    for name in listed:
        problems.append(f"{name}: listed, but no probe ran it")

    cases = len(set(portable) | set(platform))
    print(f"{cases} cases: {same} the same, {kept} listed differences, {len(problems)} problems")
    for problem in problems:
        print("  " + problem)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
