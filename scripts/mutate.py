#!/usr/bin/env python3
"""Seeded-defect testing of the module: one small defect at a time, each built and tested.

Every site of the module's sources (QRNExternalUtilities/) where a defect of one of the kinds below
can be seeded gets it, alone: the module is rebuilt in a build folder of its own, from a copy of the
sources, and the linux test suite runs against it. A defect is killed when the suite fails (or
hangs past the time limit), survives when the whole suite passes, and did not compile when the
build refused it. Survivors listed in scripts/mutate_equivalent.json are equivalent: no caller can
observe them. The report lists every other survivor by file, line and change.

The suite runs in two stages so that most defects cost seconds: the module's own test program with
--gtest_fail_fast first, and only for a defect that it lets live, the whole CTest suite with
--stop-on-failure (the browser test and the benchmarks are not built here).

Results are kept per defect in the build folder, keyed by the file's content, so a run stopped by
--minutes goes on where it stopped, and a changed file has its defects seeded again. Survivors are
tried again on every run, after the defects not yet run, since the tests may have changed.

  scripts/mutate.py                              every defect of every file
  scripts/mutate.py --files menus/snap_menu.cpp  only these files (paths below QRNExternalUtilities/)
  scripts/mutate.py --minutes 10 --lock FILE     a piece: hold FILE (flock) while it runs, and start no
                                                 defect after ten minutes; the next run goes on
  scripts/mutate.py --list                       the defects, without building anything
"""

import argparse
import fcntl
import hashlib
import json
import os
import re
import shutil
import subprocess
import sys
import time
from contextlib import contextmanager
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
MODULE = "QRNExternalUtilities"
EQUIVALENT_FILE = ROOT / "scripts" / "mutate_equivalent.json"

# ---------------------------------------------------------------------------------------------
# Where defects can be seeded

# Each kind: a pattern over the code of one line (comments and string literals blanked out) and
# what a match becomes; a list gives several defects for one site.
WORD = r"(?<![\w])"
END = r"(?![\w])"
SIMPLE_KINDS = [
    ("comparison", r" == ", [" != "]),
    ("comparison", r" != ", [" == "]),
    ("comparison", r" < ", [" <= ", " >= "]),
    ("comparison", r" <= ", [" < ", " > "]),
    ("comparison", r" > ", [" >= ", " <= "]),
    ("comparison", r" >= ", [" > ", " < "]),
    ("logical", r" && ", [" || "]),
    ("logical", r" \|\| ", [" && "]),
    ("negation", r"!(?!=)", [""]),
    ("boolean", WORD + r"true" + END, ["false"]),
    ("boolean", WORD + r"false" + END, ["true"]),
    ("boolean", WORD + r"VARIANT_TRUE" + END, ["VARIANT_FALSE"]),
    ("boolean", WORD + r"VARIANT_FALSE" + END, ["VARIANT_TRUE"]),
    ("status", WORD + r"S_OK" + END, ["E_FAIL"]),
    ("status", WORD + r"E_FAIL" + END, ["S_OK"]),
    ("status", WORD + r"E_POINTER" + END, ["E_FAIL"]),
    ("status", WORD + r"FAILED\(", ["SUCCEEDED("]),
    ("status", WORD + r"SUCCEEDED\(", ["FAILED("]),
    ("status", WORD + r"kZbNormal" + END, ["kZbError"]),
    ("status", WORD + r"kZbError" + END, ["kZbNormal"]),
    ("status", WORD + r"kZbTextTooLong" + END, ["kZbNormal"]),
    ("variant type", WORD + r"VT_I4" + END, ["VT_INT"]),
    ("variant type", WORD + r"VT_INT" + END, ["VT_I4"]),
    ("variant type", WORD + r"VT_I2" + END, ["VT_I4"]),
    ("variant type", WORD + r"VT_BSTR" + END, ["VT_VARIANT"]),
    ("walk step", r"WalkStep::stop" + END, ["WalkStep::next"]),
    ("walk step", r"WalkStep::next" + END, ["WalkStep::stop"]),
    ("walk rule", r"FailedItem::raises" + END, ["FailedItem::skipped"]),
    ("walk rule", r"FailedItem::skipped" + END, ["FailedItem::raises"]),
    ("walk rule", r"NullItem::skipped" + END, ["NullItem::raises"]),
    ("walk rule", r"NullItem::raises" + END, ["NullItem::visited"]),
    ("walk rule", r"NullItem::visited" + END, ["NullItem::skipped"]),
    ("arithmetic", r" \+ ", [" - "]),
    ("arithmetic", r" - ", [" + "]),
    ("increment", r"\+\+(?=\w)", [""]),
    ("increment", r"(?<=\w)\+\+", [""]),
    ("constant", WORD + r"\d+" + END, None),  # n becomes n + 1
]

# A statement that only calls (a host method, an SDK function, a helper): deleted whole.
CALL_STATEMENT = re.compile(r"^\s*(\(\s*\w+\s*\.\*\s*\w+\s*\)|\**[A-Za-z_][\w]*)((->|\.|::)[A-Za-z_]\w*)*\s*[(<]")
# An assignment to a variable or an output: deleted whole.
ASSIGNMENT = re.compile(r"^\s*\**[A-Za-z_][\w.\->\[\]]*\s*(=|\+=|-=)\s*[^=]")
# A return of a value: the value becomes the type's default (null, false, 0, empty).
RETURN_VALUE = re.compile(r"\breturn\s+(?!\{\};)([^;]+);")
NOT_STATEMENTS = ("return", "const ", "using", "typedef", "if", "for", "while", "else", "case", "delete ",
                  "static_cast", "namespace", "template", "class ", "struct ", "enum ")


def blank_comments_and_strings(lines):
    """The lines with comments, string and character literals replaced by spaces (same columns)."""
    code = []
    in_block = False
    for line in lines:
        out = []
        i = 0
        while i < len(line):
            if in_block:
                if line.startswith("*/", i):
                    in_block = False
                    out.append("  ")
                    i += 2
                else:
                    out.append(" ")
                    i += 1
                continue
            c = line[i]
            if line.startswith("//", i):
                out.append(" " * (len(line) - i))
                break
            if line.startswith("/*", i):
                in_block = True
                out.append("  ")
                i += 2
                continue
            if c in "\"'":
                j = i + 1
                while j < len(line) and line[j] != c:
                    j += 2 if line[j] == "\\" else 1
                out.append(c + " " * (min(j, len(line)) - i - 1) + (c if j < len(line) else ""))
                i = j + 1
                continue
            out.append(c)
            i += 1
        code.append("".join(out).rstrip("\n"))
    return code


def statement_end(code, start):
    """The last line of the statement that begins on line `start`, or None when it has no end."""
    depth = 0
    for n in range(start, len(code)):
        for c in code[n]:
            if c in "([{":
                depth += 1
            elif c in ")]}":
                depth -= 1
                if depth < 0:
                    return None
            elif c == ";" and depth == 0:
                return n
    return None


def defects_of(path, text):
    """The defects of one source file: dicts with the line (1-based), column, kind, change, and the
    file's text with the defect seeded."""
    lines = text.splitlines(keepends=True)
    code = blank_comments_and_strings(lines)
    defects = []

    def seed(kind, first, last, replacement_lines, change, column=0):
        mutated = lines[:first] + replacement_lines + lines[last + 1:]
        defects.append({"line": first + 1, "column": column, "kind": kind, "change": change,
                        "original": lines[first].strip(), "text": "".join(mutated)})

    for n, line in enumerate(code):
        stripped = line.strip()
        if not stripped or stripped.startswith("#"):
            continue
        # Operators, literals and names within the line.
        for kind, pattern, replacements in SIMPLE_KINDS:
            for match in re.finditer(pattern, line):
                found = match.group(0)
                if kind == "negation" and match.start() > 0 and line[match.start() - 1] == "!":
                    continue
                if kind == "constant":
                    # Not a digit inside a name, a floating-point number or a version-like run.
                    before = line[:match.start()]
                    if re.search(r"[\w.]$", before) or line[match.end():match.end() + 1] in (".", "x"):
                        continue
                    choices = [str(int(found) + 1)]
                else:
                    choices = replacements
                for replacement in choices:
                    new = lines[n][:match.start()] + replacement + lines[n][match.end():]
                    seed(kind, n, n, [new], f"`{found.strip()}` -> `{replacement.strip() or '(nothing)'}`",
                         match.start() + 1)
        # A returned value, replaced by the default of the function's type (a value that is already
        # a default, or a literal that the boolean kind changes, is left).
        for match in RETURN_VALUE.finditer(line):
            value = lines[n][match.start(1):match.end(1)]
            if re.fullmatch(r"\s*([\w:]+\(\)|true|false|nullptr|0|std::nullopt)\s*", value):
                continue
            new = lines[n][:match.start(1)] + "{}" + lines[n][match.end(1):]
            seed("returned value", n, n, [new], f"`return {value.strip()}` -> `return {{}}`", match.start() + 1)
        # Whole statements: a call, or an assignment, deleted.
        if any(stripped.startswith(word) for word in NOT_STATEMENTS):
            continue
        if n > 0 and not re.search(r"[;{}]\s*$|^\s*$|\)\s*$|else\s*$", code[n - 1]) \
                and not code[n - 1].strip().startswith("#"):
            continue  # a continuation of the statement above
        kind = None
        if ASSIGNMENT.match(line) and "==" not in line.split("=", 1)[0]:
            kind = "deleted assignment"
        elif CALL_STATEMENT.match(line):
            kind = "deleted call"
        if kind is None:
            continue
        last = statement_end(code, n)
        if last is None or last - n > 12:
            continue
        statement = " ".join(l.strip() for l in code[n:last + 1])
        # A declaration or a definition is no statement to delete.
        if kind == "deleted call" and (not statement.rstrip().endswith(");") or re.search(r"=\s*(default|delete)\b", statement)
                                       or re.search(r"\)\s*(const\s*)?\{", code[n]) and "[" not in code[n]):
            continue
        indent = re.match(r"\s*", lines[n]).group(0)
        statement = " ".join(l.strip() for l in lines[n:last + 1])
        if len(statement) > 70:
            statement = statement[:67] + "..."
        seed(kind, n, last, [indent + "{}\n"], f"`{statement}` deleted")
    return defects


# ---------------------------------------------------------------------------------------------
# Building and testing

def run(command, cwd=None, timeout=None, log=None):
    """Runs a command; gives (exit status or 'timeout', seconds taken)."""
    started = time.monotonic()
    try:
        result = subprocess.run(command, cwd=cwd, timeout=timeout, stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT, text=True, errors="replace")
        status = result.returncode
        output = result.stdout
    except subprocess.TimeoutExpired as expired:
        status = "timeout"
        output = expired.stdout or ""
        if isinstance(output, bytes):
            output = output.decode(errors="replace")
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
        # Unoptimised and without debug information: each defect costs a compile, and the tests are quick.
        status, _ = run(["cmake", "-S", str(self.source), "-B", str(self.build), "-DCMAKE_BUILD_TYPE=Debug",
                         "-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DCMAKE_C_FLAGS_DEBUG=-O0",
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

    def set_time_limits(self, module_seconds, suite_seconds):
        # A seeded loop that no longer ends is killed once it takes clearly longer than the baseline.
        self.module_timeout = max(30, int(module_seconds * 4 + 20))
        self.suite_timeout = max(120, int(suite_seconds * 3 + 60))


def test_defect(workspace, relative, original, defect):
    """Seeds one defect, builds and tests; gives the outcome and the stage that decided it."""
    target = workspace.source / MODULE / relative
    target.write_text(defect["text"])
    try:
        if not workspace.build_module():
            return "did not compile", None
        status, _ = workspace.module_tests()
        if status != 0:
            return "killed", "module_tests" + (" (timed out)" if status == "timeout" else "")
        status, _ = workspace.whole_suite()
        if status != 0:
            return "killed", "ctest" + (" (timed out)" if status == "timeout" else "")
        return "survived", None
    finally:
        target.write_text(original)


def defect_key(relative, digest, defect):
    return f"{relative}:{digest}:{defect['line']}:{defect['column']}:{defect['kind']}:{defect['change']}"


def load_equivalents():
    if not EQUIVALENT_FILE.is_file():
        return []
    return json.loads(EQUIVALENT_FILE.read_text())


def equivalent_reason(equivalents, relative, defect):
    for entry in equivalents:
        if entry["file"] == relative and entry["line"] == defect["original"] and entry["change"] == defect["change"]:
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


def write_report(path, files, results, equivalents, elapsed, complete):
    counts = {"killed": 0, "survived": 0, "equivalent": 0, "did not compile": 0, "not run": 0}
    survivors = []
    equivalent_rows = []
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
            counts[outcome] += 1
    sites = sum(len(defects) for _, defects in files)
    lines = ["# Seeded defects in the module", "",
             f"Files: {len(files)}. Defects seeded: {sites}" + ("" if complete else " (run not complete)") + ".",
             "",
             "| outcome | defects |", "|---|---|"]
    for outcome in ("killed", "survived", "equivalent", "did not compile", "not run"):
        lines.append(f"| {outcome} | {counts[outcome]} |")
    lines += ["", f"Time of the runs that gave these results: {elapsed / 60:.1f} minutes.", ""]
    lines += ["## Survived", ""] + ([f"- `{MODULE}/{r}:{d['line']}` ({d['kind']}) {d['change']}  \n  `{d['original']}`"
                                      for r, d in survivors] or ["None."])
    lines += ["", "## Equivalent", ""] + ([f"- `{MODULE}/{r}:{d['line']}` {d['change']}: {reason}"
                                          for r, d, reason in equivalent_rows] or ["None."])
    path.write_text("\n".join(lines) + "\n")
    return counts, sites


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default=str(ROOT / "build" / "mutate"), help="the build folder of the runs")
    parser.add_argument("--files", nargs="*", default=[], help="files below QRNExternalUtilities/ (default: all)")
    parser.add_argument("--minutes", type=float, default=0,
                        help="start no defect after this many minutes from taking the lock (or the start)")
    parser.add_argument("--lock", default=os.environ.get("MUTATE_LOCK", ""),
                        help="a file to hold (flock) while building and testing")
    parser.add_argument("--jobs", type=int, default=min(os.cpu_count() or 2, 2))
    parser.add_argument("--list", action="store_true", help="list the defects and stop")
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
    results_path = folder / "results.json"
    results = json.loads(results_path.read_text()) if results_path.is_file() else {}
    log = open(folder / "last-run.log", "w")
    workspace = Workspace(folder, args.jobs, log)

    def save():
        results_path.write_text(json.dumps(results, indent=1, sort_keys=True))

    equivalents = load_equivalents()
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
        # Defects not yet run come first, so that a piece spends its time on new ground; survivors
        # are tried again after them (the tests may have changed since), unless equivalent.
        def not_run(relative, key, defect):
            return key not in results

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
                    outcome, stage = test_defect(workspace, relative, original, defect)
                    taken = time.monotonic() - begun
                    results[key] = {"outcome": outcome, "stage": stage, "seconds": round(taken, 1)}
                    save()
                    print(f"{outcome:16} {MODULE}/{relative}:{defect['line']} {defect['change']} ({taken:.0f} s)",
                          flush=True)
                # Rebuilt unseeded, so that the next file and the next run start from the module as it is.
                workspace.build_module()
                if stopped_early:
                    break
            if stopped_early:
                break

    elapsed = sum(results[k]["seconds"] for _, defects in files for k, _ in defects if k in results)
    complete = all(k in results for _, defects in files for k, _ in defects)
    counts, sites = write_report(folder / "report.md", files, results, equivalents, elapsed, complete)
    print(f"{sites} defects: " + ", ".join(f"{counts[o]} {o}" for o in counts) + f"; report: {folder / 'report.md'}")
    return 0 if complete and counts["survived"] == 0 else 1


if __name__ == "__main__":
    sys.exit(main())
