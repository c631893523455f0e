#!/usr/bin/env python3
"""Seeded-defect testing of the module: one small defect at a time, each built and tested.

Every site of the module's sources (QRNExternalUtilities/) where a defect of one of the kinds below
can be seeded gets it, alone: the module is rebuilt in a build folder of its own, from a copy of the
sources, and the linux test suite runs against it. A defect is killed when the suite fails (or
hangs past the time limit), survives when the whole suite passes, and did not compile when the
build refused it. Survivors listed in scripts/mutate_equivalent.json are equivalent: no caller can
observe them. The report lists every other survivor by file, line and change.

Each defect runs every test that reaches the module (found once per run: the tests that fail when
the module aborts as it loads), but the slow ones named in LEFT_OUT, to the end, so that the
results keep which tests kill it: the kill record. The report counts each test's kills and names
the tests that kill no defect another test does not also kill. --quick runs the old way instead,
in two stages that stop at the first failure (the module's own test program with --gtest_fail_fast,
then the whole suite with --stop-on-failure), keeping no record. The browser test and the benchmarks are not built here.

Results are kept per defect in scripts/mutate_record.json, in the repository, keyed by the file's
content, so a run stopped by --minutes goes on where it stopped, on this machine or another, and a
changed file has its defects seeded again. Survivors are tried again on every run, after the
defects not yet run, since the tests may have changed.

  scripts/mutate.py                              every defect of every file
  scripts/mutate.py --files menus/snap_menu.cpp  only these files (paths below QRNExternalUtilities/)
  scripts/mutate.py --minutes 10 --lock FILE     a piece: hold FILE (flock) while it runs, and start no
                                                 defect after ten minutes; the next run goes on
  scripts/mutate.py --list                       the defects, without building anything
  scripts/mutate.py --report                     the report of the results kept, running nothing
  scripts/mutate.py --quick                      stop each defect at its first failing test
"""

import argparse
import fcntl
import hashlib
import json
import os
import re
import shutil
import signal
import subprocess
import sys
import time
from contextlib import contextmanager
from pathlib import Path

from mutation_sites import defects_of

ROOT = Path(__file__).resolve().parent.parent
MODULE = "QRNExternalUtilities"
EQUIVALENT_FILE = ROOT / "scripts" / "mutate_equivalent.json"
RECORD_FILE = ROOT / "scripts" / "mutate_record.json"

# Tests that reach the module but are not run for each defect, each with the reason.
LEFT_OUT = {
    # Seven of a defect's nine seconds: it installs the package and builds a program against it.
    # Over the first 123 defects it killed 39, every one of them killed by other tests too.
    "package.example_against_the_install": "installs the package and builds against it",
}

# ---------------------------------------------------------------------------------------------
# Building and testing

def run(command, cwd=None, timeout=None, log=None):
    """Runs a command; gives (exit status or 'timeout', seconds taken). A command that runs past its
    time is killed with every process it started: a test that a seeded defect sends into an endless
    loop would otherwise go on beside the next defects, taking a core and its memory."""
    started = time.monotonic()
    with subprocess.Popen(command, cwd=cwd, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          errors="replace", start_new_session=True) as process:
        try:
            output, _ = process.communicate(timeout=timeout)
            status = process.returncode
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            output, _ = process.communicate()
            status = "timeout"
    if log is not None:
        log.write(output[-20000:])
    return status, time.monotonic() - started


@contextmanager
def held(lock_path):
    if not lock_path:
        yield
        return
    with open(lock_path, "a") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        try:
            yield
        finally:
            fcntl.flock(lock, fcntl.LOCK_UN)


def source_files():
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=ROOT, check=True,
                            stdout=subprocess.PIPE, text=True).stdout.split("\n")
    return [name for name in listed if name and not name.startswith("build/") and (ROOT / name).is_file()]


def mirror_sources(source):
    """Copies the repository's files into `source`, writing only those that differ, so that the
    build there stays incremental."""
    wanted = set(source_files())
    for name in sorted(wanted):
        target = source / name
        data = (ROOT / name).read_bytes()
        if target.is_file() and target.read_bytes() == data:
            continue
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(data)
        shutil.copymode(ROOT / name, target)


class Workspace:
    def __init__(self, folder, jobs, log):
        self.folder = folder
        self.source = folder / "src"
        self.build = folder / "build"
        self.jobs = jobs
        self.log = log
        self.module_timeout = 600
        self.suite_timeout = 1800

    def configure(self):
        mirror_sources(self.source)
        env_launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache", "-DCMAKE_C_COMPILER_LAUNCHER=ccache"] \
            if shutil.which("ccache") else []
        # The test programs do not depend on the module's file, so a seeded module relinks only itself.
        # Lightly optimised, without debug information, assertions kept: a seeded file compiles
        # about as fast as unoptimised, and the fault sweeps, most of a defect's test time, run
        # four times faster.
        status, _ = run(["cmake", "-S", str(self.source), "-B", str(self.build), "-DCMAKE_BUILD_TYPE=Debug",
                         "-DCMAKE_CXX_FLAGS_DEBUG=-O1", "-DCMAKE_C_FLAGS_DEBUG=-O1",
                         "-DCMAKE_CXX_COMPILER=g++", "-DCMAKE_C_COMPILER=gcc", "-DMX_BUILD_TESTS=ON",
                         "-DMX_BUILD_BENCHMARKS=OFF", "-DMX_BROWSER_TESTS=OFF", "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON"]
                        + env_launcher, log=self.log)
        return status == 0

    def build_all(self):
        status, _ = run(["cmake", "--build", str(self.build), "-j", str(self.jobs)], log=self.log)
        return status == 0

    def build_module(self):
        status, _ = run(["cmake", "--build", str(self.build), "--target", MODULE, "-j", str(self.jobs)],
                        log=self.log)
        return status == 0

    def module_tests(self):
        status, taken = run([str(self.build / "bin" / "module_tests"), "--gtest_fail_fast", "--gtest_brief=1"],
                            cwd=self.build, timeout=self.module_timeout, log=self.log)
        return status, taken

    def whole_suite(self):
        status, taken = run(["ctest", "--test-dir", str(self.build), "--stop-on-failure", "-j", str(self.jobs),
                             "--timeout", str(int(self.suite_timeout / 4))],
                            timeout=self.suite_timeout, log=self.log)
        return status, taken

    def failed_tests(self):
        failed = self.build / "Testing" / "Temporary" / "LastTestsFailed.log"
        if not failed.is_file():
            return []
        return [line.split(":", 1)[1].strip() for line in failed.read_text().splitlines() if ":" in line]

    def run_tests(self, names):
        """Runs the CTest tests `names` (all when None) to the end; gives (status, seconds, failed names)."""
        failed = self.build / "Testing" / "Temporary" / "LastTestsFailed.log"
        if failed.is_file():
            failed.unlink()
        chosen = [] if names is None else ["-R", "^(" + "|".join(re.escape(n) for n in names) + ")$"]
        status, taken = run(["ctest", "--test-dir", str(self.build), "-j", str(self.jobs),
                             "--timeout", str(int(self.suite_timeout / 4))] + chosen,
                            timeout=self.suite_timeout, log=self.log)
        return status, taken, self.failed_tests()

    def test_programs(self):
        """Each CTest test's program, by the file name of the command it runs."""
        listed = subprocess.run(["ctest", "--test-dir", str(self.build), "--show-only=json-v1"],
                                stdout=subprocess.PIPE, text=True, check=True).stdout
        return {test["name"]: Path(test.get("command", ["?"])[0]).name for test in json.loads(listed)["tests"]}

    def reaching_tests(self, any_source):
        """The tests that can see a defect of the module: those that fail when it aborts as it loads."""
        target = self.source / MODULE / any_source
        original = target.read_text()
        target.write_text(original + "\n#include <cstdlib>\nnamespace { const int kAbortsOnLoad = (std::abort(), 0); }\n")
        try:
            if not self.build_module():
                return None
            return self.run_tests(None)[2]
        finally:
            target.write_text(original)
            self.build_module()

    def set_time_limits(self, module_seconds, suite_seconds):
        # A seeded loop that no longer ends is killed once it takes clearly longer than the baseline.
        self.module_timeout = max(30, int(module_seconds * 4 + 20))
        self.suite_timeout = max(120, int(suite_seconds * 3 + 60))


def test_defect(workspace, relative, original, defect, reaching):
    """Seeds one defect, builds and tests; gives the outcome, the stage that decided it and the tests
    that failed (None when the run stopped at the first failure)."""
    target = workspace.source / MODULE / relative
    target.write_text(defect["text"])
    try:
        if not workspace.build_module():
            return "did not compile", None, None
        if reaching is not None:
            status, _, failed = workspace.run_tests(reaching)
            if status == "timeout":
                return "killed", "ctest (timed out)", failed
            return ("killed" if status != 0 else "survived"), ("ctest" if status != 0 else None), failed
        status, _ = workspace.module_tests()
        if status != 0:
            return "killed", "module_tests" + (" (timed out)" if status == "timeout" else ""), None
        status, _ = workspace.whole_suite()
        if status != 0:
            return "killed", "ctest" + (" (timed out)" if status == "timeout" else ""), None
        return "survived", None, None
    finally:
        target.write_text(original)


def defect_key(relative, digest, defect):
    return f"{relative}:{digest}:{defect['line']}:{defect['column']}:{defect['kind']}:{defect['change']}"


def load_record(path):
    """The results kept so far, by defect, and the reaching tests' programs, by test. The file lists
    each test with its program (null for one that no longer reaches the module), then the defects."""
    if not path.is_file():
        return {}, {}
    record = json.loads(path.read_text())
    tests = [name for name, _ in record["tests"]]

    def names(runs):
        if runs is None:
            return None
        numbers = []
        for span in filter(None, runs.split(",")):
            first, _, last = span.partition("-")
            numbers.extend(range(int(first), int(last or first) + 1))
        return [tests[i] for i in numbers]

    results = {key: dict(result, killers=names(result["killers"])) for key, result in record["defects"].items()}
    return results, {name: program for name, program in record["tests"] if program is not None}


def save_record(path, results, programs):
    """Keeps the results in the repository, so that a run on another machine goes on from them:
    each test's name is written once, and each defect on a line of its own, its killers as runs of
    numbers ("0-3,7"): the tests of one family stand together and mostly kill together."""
    tests = sorted(set(programs) | {name for result in results.values() for name in result["killers"] or []})
    number = {name: i for i, name in enumerate(tests)}

    def runs(killers):
        if killers is None:
            return None
        spans = []
        for i in sorted(number[name] for name in killers):
            if spans and spans[-1][1] == i - 1:
                spans[-1][1] = i
            else:
                spans.append([i, i])
        return ",".join(str(a) if a == b else f"{a}-{b}" for a, b in spans)

    rows = [json.dumps(key) + ": " + json.dumps(dict(result, killers=runs(result["killers"])), sort_keys=True)
            for key, result in sorted(results.items())]
    listed = ",\n".join(json.dumps([name, programs.get(name)]) for name in tests)
    path.write_text("{\"tests\": [\n" + listed + "\n],\n\"defects\": {\n" + ",\n".join(rows) + "\n}}\n")


def load_equivalents():
    if not EQUIVALENT_FILE.is_file():
        return []
    return json.loads(EQUIVALENT_FILE.read_text())


def matches(entry, relative, defect):
    """An entry names one defect: its file, its line's text, which line of that text in the file
    (the first unless it says), and the change."""
    return (entry["file"] == relative and entry["line"] == defect["original"]
            and entry.get("occurrence", 1) == defect["occurrence"] and entry["change"] == defect["change"])


def equivalent_reason(equivalents, relative, defect):
    for entry in equivalents:
        if matches(entry, relative, defect):
            return entry["reason"]
    return None


def module_files(selected):
    """The module's sources. The exported headers at the top are left out: they only declare, and
    the test programs compile against them, so a defect there is no defect of the module alone."""
    base = ROOT / MODULE
    files = sorted(p.relative_to(base).as_posix() for p in base.rglob("*")
                   if p.suffix == ".cpp" or p.suffix == ".h" and p.parent != base)
    if selected:
        missing = [name for name in selected if name not in files]
        if missing:
            sys.exit(f"not a source of the module: {', '.join(missing)}")
        files = [name for name in files if name in selected]
    return files


def kill_record(files, results, programs):
    """Rows of the kill record: each test that reaches the module, its program, the defects it kills,
    how many of them no other test kills, and for a test without a kill of its own that kills any,
    one other test that kills all it kills (the one killing fewest), if any does; killers of the
    defects that have a record only."""
    kills = {name: set() for name in programs}
    for _, defects in files:
        for key, _ in defects:
            for name in results.get(key, {}).get("killers") or []:
                kills.setdefault(name, set()).add(key)
    rows = []
    for name, killed in kills.items():
        unique = [key for key in killed if len(results[key]["killers"]) == 1]
        covering = ""
        if killed and not unique:
            others = [other for other, theirs in kills.items() if other != name and killed <= theirs]
            covering = min(others, key=lambda other: (len(kills[other]), other), default="")
        rows.append((name, programs.get(name, "?"), len(killed), len(unique), covering))
    return sorted(rows, key=lambda row: (row[3] > 0, row[2], row[0]))


def write_report(path, files, results, equivalents, elapsed, complete, programs):
    counts = {"killed": 0, "survived": 0, "equivalent": 0, "did not compile": 0, "not run": 0}
    by_kind = {}
    survivors = []
    equivalent_rows = []
    used_entries = set()
    for relative, defects in files:
        for key, defect in defects:
            outcome = results.get(key, {}).get("outcome", "not run")
            if outcome == "survived":
                reason = equivalent_reason(equivalents, relative, defect)
                if reason is not None:
                    outcome = "equivalent"
                    equivalent_rows.append((relative, defect, reason))
                else:
                    survivors.append((relative, defect))
            used_entries.update(i for i, entry in enumerate(equivalents) if matches(entry, relative, defect))
            counts[outcome] += 1
            by_kind.setdefault(defect["kind"], dict.fromkeys(counts, 0))[outcome] += 1
    run_files = {relative for relative, _ in files}
    stale = [entry for i, entry in enumerate(equivalents) if i not in used_entries and entry["file"] in run_files]
    sites = sum(len(defects) for _, defects in files)
    lines = ["# Seeded defects in the module", "",
             f"Files: {len(files)}. Defects seeded: {sites}" + ("" if complete else " (run not complete)") + ".",
             "",
             "| kind | " + " | ".join(counts) + " |", "|---|" + "---:|" * len(counts)]
    for kind in sorted(by_kind):
        lines.append(f"| {kind} | " + " | ".join(str(by_kind[kind][o]) for o in counts) + " |")
    lines.append("| **all** | " + " | ".join(f"**{counts[o]}**" for o in counts) + " |")
    lines += ["", f"Time of the runs that gave these results: {elapsed / 60:.1f} minutes.", ""]
    lines += ["## Survived", ""] + ([f"- `{MODULE}/{r}:{d['line']}` ({d['kind']}) {d['change']}  \n  `{d['original']}`"
                                      for r, d in survivors] or ["None."])
    lines += ["", "## Equivalent", ""] + ([f"- `{MODULE}/{r}:{d['line']}` {d['change']}: {reason}"
                                          for r, d, reason in equivalent_rows] or ["None."])
    lines += ["", "## Equivalence entries that match no defect", ""] + (
        [f"- `{e['file']}` `{e['line']}` {e['change']}" for e in stale] or ["None."])
    if programs:
        record = kill_record(files, results, programs)
        lines += ["", "## Kill record", "",
                  "Each test that reaches the module: the defects it kills, and how many of them no other test kills.",
                  "A test with no kill of its own is listed first, with one other test that kills all it kills.",
                  "", "| test | program | kills | its own | all its kills also by |", "|---|---|---:|---:|---|"]
        lines += [f"| {name} | {program} | {killed} | {own} | {covering} |"
                  for name, program, killed, own, covering in record]
    path.write_text("\n".join(lines) + "\n")
    return counts, sites, stale


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default=str(ROOT / "build" / "mutate"), help="the build folder of the runs")
    parser.add_argument("--record", default=str(RECORD_FILE),
                        help="the results kept, by defect, with the tests that killed each")
    parser.add_argument("--files", nargs="*", default=[], help="files below QRNExternalUtilities/ (default: all)")
    parser.add_argument("--minutes", type=float, default=0,
                        help="start no defect after this many minutes from taking the lock (or the start)")
    parser.add_argument("--lock", default=os.environ.get("MUTATE_LOCK", ""),
                        help="a file to hold (flock) while building and testing")
    parser.add_argument("--jobs", type=int, default=min(os.cpu_count() or 2, 2))
    parser.add_argument("--list", action="store_true", help="list the defects and stop")
    parser.add_argument("--report", action="store_true", help="write the report of the results kept, running nothing")
    parser.add_argument("--quick", action="store_true",
                        help="stop each defect at its first failing test, keeping no kill record")
    args = parser.parse_args()

    files = []
    for relative in module_files(args.files):
        text = (ROOT / MODULE / relative).read_text()
        digest = hashlib.sha1(text.encode()).hexdigest()[:12]
        files.append((relative, [(defect_key(relative, digest, d), d) for d in defects_of(relative, text)]))
    if args.list:
        for relative, defects in files:
            for _, d in defects:
                print(f"{MODULE}/{relative}:{d['line']}: {d['kind']}: {d['change']}")
        print(f"{sum(len(d) for _, d in files)} defects in {len(files)} files")
        return 0

    folder = Path(args.build)
    folder.mkdir(parents=True, exist_ok=True)
    record_path = Path(args.record)
    results, programs = load_record(record_path)
    equivalents = load_equivalents()
    if args.report:
        return report(folder, files, results, equivalents, programs)
    log = open(folder / "last-run.log", "w")
    workspace = Workspace(folder, args.jobs, log)

    # A file that changed leaves the results of its earlier text behind: they describe no defect now.
    current = {key for _, defects in files for key, _ in defects}
    considered = {relative for relative, _ in files}

    def save():
        kept = {key: result for key, result in results.items()
                if key in current or key.partition(":")[0] not in considered}
        save_record(record_path, kept, programs)

    # One hold of the lock for the whole piece: set-up, the unseeded run and the defects until
    # --minutes have passed since it was taken.
    stopped_early = False
    with held(args.lock):
        started = time.monotonic()
        if not workspace.configure() or not workspace.build_all():
            sys.exit(f"the unseeded build failed; see {folder / 'last-run.log'}")
        status, module_seconds = workspace.module_tests()
        suite_status, suite_seconds = workspace.whole_suite() if status == 0 else (status, 0)
        if status != 0 or suite_status != 0:
            sys.exit(f"the unseeded suite fails; see {folder / 'last-run.log'}")
        workspace.set_time_limits(module_seconds, suite_seconds)
        print(f"baseline: module_tests {module_seconds:.0f} s, whole suite {suite_seconds:.0f} s", flush=True)
        reaching = None
        if not args.quick:
            reaching = workspace.reaching_tests(next(f for f in module_files([]) if f.endswith(".cpp")))
            if not reaching:
                sys.exit(f"no test fails when the module aborts as it loads; see {folder / 'last-run.log'}")
            reaching = [name for name in reaching if name not in LEFT_OUT]
            for name, reason in LEFT_OUT.items():
                print(f"not run for each defect: {name} ({reason})", flush=True)
            programs = {name: program for name, program in workspace.test_programs().items() if name in reaching}
            print(f"{len(reaching)} tests reach the module", flush=True)
        # Defects not yet run come first, so that a piece spends its time on new ground; survivors
        # are tried again after them (the tests may have changed since), unless equivalent.
        def not_run(relative, key, defect):
            # A defect killed in a quick run has no record yet.
            return key not in results or (reaching is not None and results[key]["outcome"] == "killed"
                                          and results[key].get("killers") is None)

        def worth_retrying(relative, key, defect):
            return (results[key]["outcome"] == "survived"
                    and equivalent_reason(equivalents, relative, defect) is None)

        for wanted in (not_run, worth_retrying):
            for relative, defects in files:
                chosen = [(key, defect) for key, defect in defects if wanted(relative, key, defect)]
                if not chosen:
                    continue
                source = workspace.source / MODULE / relative
                original = source.read_text()
                for key, defect in chosen:
                    if args.minutes and time.monotonic() - started > args.minutes * 60:
                        stopped_early = True
                        break
                    begun = time.monotonic()
                    outcome, stage, killers = test_defect(workspace, relative, original, defect, reaching)
                    taken = time.monotonic() - begun
                    results[key] = {"outcome": outcome, "stage": stage, "seconds": round(taken, 1),
                                    "killers": killers}
                    save()
                    print(f"{outcome:16} {MODULE}/{relative}:{defect['line']} {defect['change']} ({taken:.0f} s)",
                          flush=True)
                # Rebuilt unseeded, so that the next file and the next run start from the module as it is.
                workspace.build_module()
                if stopped_early:
                    break
            if stopped_early:
                break

    return report(folder, files, results, equivalents, programs)


def report(folder, files, results, equivalents, programs):
    """Writes the report of the results kept; the exit status: 0 when the run is complete and
    leaves no survivor that is not equivalent and no stale entry."""
    elapsed = sum(results[k]["seconds"] for _, defects in files for k, _ in defects if k in results)
    complete = all(k in results for _, defects in files for k, _ in defects)
    counts, sites, stale = write_report(folder / "report.md", files, results, equivalents, elapsed, complete, programs)
    print(f"{sites} defects: " + ", ".join(f"{counts[o]} {o}" for o in counts) + f"; report: {folder / 'report.md'}")
    if stale:
        print(f"{len(stale)} equivalence entries match no defect (see the report)")
    return 0 if complete and counts["survived"] == 0 and not stale else 1


if __name__ == "__main__":
    sys.exit(main())
