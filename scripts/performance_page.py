#!/usr/bin/env python3
"""Writes docs/performance.md from one run of `make bench`: the Google Benchmark JSON of
operations_bench, scaling_bench and sim_calls_bench, the JSON of zorbsim_throughput.py, and
GoogleTest's JSON of the host-call count tests (module_tests --gtest_filter='HostCallCounts*'
--gtest_output=json:...), whose tests record their formulas as properties.

usage: performance_page.py OPERATIONS.json SCALING.json SIM_CALLS.json ZORBSIM.json HOST_CALL_COUNTS.json OUT.md
"""
import datetime
import json
import os
import subprocess
import sys

NS_PER_UNIT = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def load(path):
    with open(path) as source:
        return json.load(source)


def ns(run):
    return run["real_time"] * NS_PER_UNIT[run["time_unit"]]


def duration(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def ratio(run):
    return f"{run['overhead_ratio']:.2f}" if "overhead_ratio" in run else "no host calls"


def cpu_model():
    for line in subprocess.run(["lscpu"], capture_output=True, text=True).stdout.splitlines():
        if line.startswith("Model name:"):
            return line.split(":", 1)[1].strip()
    return "unknown"


def operations_table(report):
    rows = ["| operation | time per call | host calls' time per call | overhead ratio |", "|---|---|---|---|"]
    for run in report["benchmarks"]:
        rows.append(f"| `{run['name']}` | {duration(ns(run))} | {duration(run['host_call_ns'])} | {ratio(run)} |")
    return rows


def scaling_series(report):
    """The runs of each series by n, and each series' fit (its BigO and RMS aggregates)."""
    series, fits = {}, {}
    for run in report["benchmarks"]:
        if run.get("run_type") == "aggregate":
            name, _, kind = run["name"].rpartition("_")
            fits.setdefault(name, {})[kind] = run
        else:
            name, _, n = run["name"].rpartition("/")
            series.setdefault(name, {})[int(n)] = run
    return series, fits


def scaling_table(series, fits):
    sizes = sorted({n for runs in series.values() for n in runs})
    rows = ["| operation / n | " + " | ".join(f"n = {n:,}" for n in sizes)
            + " | fitted | RMS | overhead ratio at the largest n | the module's own time there |",
            "|---|" + "---|" * len(sizes) + "---|---|---|---|"]
    for name, runs in series.items():
        big_o, rms = fits[name]["BigO"], fits[name]["RMS"]
        fitted = f"{big_o['real_coefficient']:.3g} {big_o['time_unit']} · {big_o['big_o']}"
        times = " | ".join(duration(ns(runs[n])) if n in runs else "not run" for n in sizes)
        largest = runs[max(runs)]
        own = duration(ns(largest) - largest["host_call_ns"])
        rows.append(f"| `{name}` | {times} | {fitted} | {rms['rms'] * 100:.0f} % | {ratio(largest)} | {own} |")
    return rows


def sim_series_table(series, fits, prefix):
    """The series of sim_calls_bench whose names start with `prefix`: times by n and the fit."""
    chosen = {name: runs for name, runs in series.items() if name.startswith(prefix) and name in fits}
    sizes = sorted({n for runs in chosen.values() for n in runs})
    rows = ["| " + prefix.rstrip("/") + " / n | " + " | ".join(f"n = {n:,}" for n in sizes) + " | fitted | RMS |",
            "|---|" + "---|" * len(sizes) + "---|---|"]
    for name, runs in chosen.items():
        big_o, rms = fits[name]["BigO"], fits[name]["RMS"]
        times = " | ".join(duration(ns(runs[n])) if n in runs else "not run" for n in sizes)
        rows.append(f"| `{name[len(prefix):]}` | {times} | {big_o['real_coefficient']:.3g} {big_o['time_unit']} · "
                    f"{big_o['big_o']} | {rms['rms'] * 100:.0f} % |")
    return rows


# Instructions of one state comparison at n = 1,000 and 10,000, counted by callgrind on 2026-11-27:
#   valgrind --tool=callgrind --toggle-collect='*HostState::operator==*' \
#     build/linux/bin/sim_calls_bench --benchmark_filter='state/compare/<row>/<n>$' --benchmark_min_time=0
COMPARISON_INSTRUCTIONS = {
    "compare/toolbars": (261_381, 2_439_399),
    "compare/groups_with_bar_menus_and_toolbars": (1_438_013, 15_123_588),
}


def state_growth(series, fits):
    """What the state rows fitted worse than N lg N grew by over their last tenfold step of n."""
    lines = []
    for name, runs in series.items():
        sizes = sorted(runs)
        if not name.startswith("state/") or fits[name]["BigO"]["big_o"] not in ("N^2", "N^3") or len(sizes) < 2:
            continue
        growth = ns(runs[sizes[-1]]) / ns(runs[sizes[-2]])
        lines.append(f"- `{name[len('state/'):]}` is fitted as {fits[name]['BigO']['big_o']}, but grew {growth:.0f} "
                     f"times from n = {sizes[-2]:,} to {sizes[-1]:,}, not the {(sizes[-1] // sizes[-2]) ** 2:,} times of a "
                     "quadratic walk.")
    if not lines:
        return []
    counted = [f"`{name}` runs {work[0] / 1e6:.2f} million instructions at n = 1,000 and {work[1] / 1e6:.1f} million "
               f"at 10,000 ({work[1] / work[0]:.1f} times)" for name, work in COMPARISON_INSTRUCTIONS.items()]
    return ["The comparison makes one pass over the nodes of both states. Where its rows are fitted",
            "worse than N lg N:", "", *lines, "",
            "The work is linear: counted by callgrind (`--toggle-collect='*HostState::operator==*'`, one",
            "comparison each, `--benchmark_min_time=0`), " + "; ".join(counted) + ". The time grows faster as",
            "the two states' nodes, each of whose texts is an allocation of its own, outgrow the",
            "processor's caches.",
            ""]


def sim_calls_table(report):
    """The runs of sim_calls_bench that are not series: calls on the default host, and the peer."""
    rows = ["| benchmark | time per iteration | host calls per second |", "|---|---|---|"]
    for run in report["benchmarks"]:
        if run["name"].startswith(("lookup/", "state/")) or run.get("run_type") == "aggregate":
            continue
        label = f" ({run['label']})" if run.get("label") else ""
        rate = f"{run['items_per_second']:,.0f}" if "items_per_second" in run else ""
        rows.append(f"| `{run['name']}`{label} | {duration(ns(run))} | {rate} |")
    return rows


def peer_ratio(report):
    """The simulated host's get_Count beside the GoogleMock mock's, as a sentence."""
    runs = {run["name"]: run for run in report["benchmarks"]}
    host, mock = runs.get("peer/get_Count/simulated_host"), runs.get("peer/get_Count/google_mock")
    if not host or not mock:
        return ["The peer benchmark did not run."]
    faster, slower = ("simulated host", "GoogleMock mock") if ns(host) < ns(mock) else ("GoogleMock mock", "simulated host")
    factor = max(ns(host), ns(mock)) / min(ns(host), ns(mock))
    return [f"`HostMenuGroups::GetCount` took {duration(ns(host))} on the simulated host (journal off) and "
            f"{duration(ns(mock))} on the mock: the {faster} answers {factor:.1f} times as fast as the {slower}."]


def n_log_n_growth(series, fits):
    """How much the rows fitted as N lg N grow over the last tenfold step of n, as measured."""
    growths = []
    for name, runs in series.items():
        sizes = sorted(runs)
        if fits[name]["BigO"]["big_o"] == "NlgN" and len(sizes) >= 2 and sizes[-1] == 10 * sizes[-2]:
            growths.append(ns(runs[sizes[-1]]) / ns(runs[sizes[-2]]))
    if not growths:
        return []
    return [f"Rows fitted as N lg N are linear up to n = 1,000 and grow {min(growths):.0f} to {max(growths):.0f} times",
            "from there to 10,000: the host's nodes and where it found them outgrow the processor's",
            "caches; their host calls stay linear, as the host-call count tests hold."]


def snap_entries_reason(series, formulas):
    """Why adding n snap entries to n items grows as it does, with the formula its test holds, and,
    when the series stops short of the others, why and what its largest n would cost; then why
    their removal does not grow so."""
    formula = gtest_text(formulas["addMenuItemsToSnapMenu_entries_on_as_many_items"]["formula"])
    removal = gtest_text(formulas["removeMenuItemsFromSnapMenu_entries"]["formula"])
    lines = [
        "- `addMenuItemsToSnapMenu/entries_on_as_many_items`: the growth is the operation's algorithm.",
        "  Each entry given is looked for among the items the snap menu held before the call: its",
        "  macro is compared, letter case ignored, with each item's macro (labels play no part), and",
        "  an entry is added only when no item runs it. n new entries on n items thus take n²",
        "  comparisons and 2·n² host calls (`Item`, `get_Macro` per entry and item; in all",
        f"  {formula}, as held below). The module's own time and the host's grow as n².",
    ]
    runs = series.get("addMenuItemsToSnapMenu/entries_on_as_many_items", {})
    largest = max(n for others in series.values() for n in others)
    if runs and max(runs) < largest:
        reached = max(runs)
        factor = largest // reached
        time = ns(runs[reached])
        lines += [
            f"  The series stops at n = {reached:,}, as a single call at n = {largest:,} would take between "
            f"{factor}² and {factor}³",
            f"  times its {duration(time)} at n = {reached:,}: between {duration(time * factor ** 2)} and "
            f"{duration(time * factor ** 3)}.",
        ]
    return lines + [
        "- `removeMenuItemsFromSnapMenu/entries_on_as_many_items`, for comparison, is linear: each",
        "  label is compared with the one item at its place in the block, counted from the menu's end",
        f"  ({removal}, whatever the items), and the items it deletes, all at one position, cost the",
        "  simulated host constant time each, as a menu keeps its items in a gap buffer.",
    ]


def gtest_text(text):
    """GoogleTest's JSON report writes each byte of a UTF-8 property as a character of its own."""
    try:
        return text.encode("latin-1").decode("utf-8")
    except (UnicodeEncodeError, UnicodeDecodeError):
        return text


def formula_rows(report):
    """The host-call count tests' rows by name, in their order, each with the sizes it ran at and those
    it failed at."""
    rows = {}
    for suite in report["testsuites"]:
        for test in suite["testsuite"]:
            if "row" not in test:
                continue
            row = rows.setdefault(test["row"], {**test, "sizes": [], "failed": []})
            n = int(test["name"].rpartition("_")[2])
            row["sizes"].append(n)
            if test.get("failures") or test.get("result") != "COMPLETED":
                row["failed"].append(n)
    return rows


def sizes_text(sizes):
    return ", ".join(str(n) for n in sorted(sizes))


def formula_table(formulas):
    rows = ["| operation | n | host calls | case measured | test | result |", "|---|---|---|---|---|---|"]
    for row in formulas.values():
        result = f"off its formula at n = {sizes_text(row['failed'])}" if row["failed"] else "held"
        rows.append(f"| `{row['operation']}` | n {gtest_text(row['unit'])} | {gtest_text(row['formula'])} | "
                    f"{gtest_text(row['measured'])} | `{row['row']}_n` (n = {sizes_text(row['sizes'])}) | {result} |")
    return rows


def zorbsim_table(runs):
    rows = ["| steps | run time | steps per second | peak memory (max RSS) |", "|---|---|---|---|"]
    for run in runs:
        rows.append(f"| {run['steps']:,} | {run['seconds']:.2f} s | {run['steps_per_second']:,.0f} | "
                    f"{run['peak_rss_mib']:.1f} MiB |")
    return rows


def main():
    operations, scaling, sim_calls, zorbsim, host_call_counts, out = sys.argv[1:]
    operations = load(operations)
    series, fits = scaling_series(load(scaling))
    sim_calls = load(sim_calls)
    sim_series, sim_fits = scaling_series(
        {"benchmarks": [run for run in sim_calls["benchmarks"] if run["name"].startswith(("lookup/", "state/"))]})
    formulas = formula_rows(load(host_call_counts))
    page = [
        "# Performance",
        "",
        "Generated by `make bench` (`scripts/performance_page.py`); run it again to reproduce on your",
        "machine. Measured on "
        f"{cpu_model()}, {os.cpu_count()} cores (`nproc`), on {datetime.date.today().isoformat()}, "
        f"with the linux preset (RelWithDebInfo); Google Benchmark's context: {operations['context']['date']}.",
        "",
        "Every call runs on the simulated host with its journal off. A call that changes the host is",
        "followed, inside the timed loop, by putting back what it changed directly in the host's state",
        "(no host call, next to no time): `bench/module_operations.cpp` says how for each operation.",
        "`zoomWindow` also lets go of the application reference it keeps by design, without a host call.",
        "",
        "The **overhead ratio** is the time per call over the time spent inside host calls per call",
        "(timed by the simulated host itself, `Host::startTimingHostCalls`): 1 would mean the module",
        "costs nothing beyond its host calls. Host-call time includes the simulated host's own work, and",
        "reading the clock twice per host call. What each operation costs in host calls, and the tests",
        "that hold it, is in [Host calls per operation](#host-calls-per-operation) below.",
        "",
        "## Per operation, on the default host",
        "",
        "`build/linux/bin/operations_bench`: the default host with the MX menu group loaded; the",
        "operations ask for the group `MX`, its toolbar `TB_MX_MAIN`, its last button, the open drawing.",
        "",
        *operations_table(operations),
        "",
        "Why the module costs more than its host calls: each host call is wrapped in the typed",
        "interfaces' smart pointers, automation strings and variants, and the simulated host answers",
        "most calls in a few hundred nanoseconds, so those wrappers are a large share here (a real",
        "host's calls cross into the host and cost far more). The highest ratios have work of their",
        "own besides host calls: `getLinetypeFilePath` and `getCadProductLocation` read the",
        "registry through the core library, `openAndActivateDocument` compares each open drawing's name",
        "with the path itself, without regard to case, and the path operations merge the path themselves (`preparePathes`, the same merge in each",
        "`add...Path` operation).",
        "",
        "## Scaling",
        "",
        "`build/linux/bin/scaling_bench`: hosts of n of what the operation walks, the entry sought last",
        "(`tests/support/sized_host.h`); the `entries_on_as_many_items` rows give the snap menu",
        "operations n entries on a snap menu of n items. The fit is Google Benchmark's least-squares",
        "choice among O(1), O(log n), O(n), O(n log n), O(n²) and O(n³), with its relative RMS error.",
        "The simulated host answers a call in the same time on any size of host: its check that the",
        "object called is still in the host finds the object's node where the host last saw it",
        "(`sim/src/model/seats.h`), and an entry asked for by name through its index of names (below);",
        "`tests/sim/call_cost_test.cpp` and the host-call count tests hold each call to a few entries",
        "looked at. Each row's growth is thus its operation's own: linear",
        "where the operation walks a collection once, worse only where its algorithm is (below). Where",
        "the overhead ratio grows with n, the growth is the module's own work besides its host calls",
        "(its own time is the time per call less the host calls' time).",
        "",
        *scaling_table(series, fits),
        "",
        *n_log_n_growth(series, fits),
        "",
        "Worse than linear, and why:",
        "",
        "- `preparePathes/folders`: each folder appended sets the merged path anew, as the merge rule",
        "  has it, and an automation string cannot grow in place, so every append copies the whole",
        "  path: O(n²) characters for n folders (each append copies it once; page faults on the large",
        "  strings make the fit lean towards N³).",
        "- `isMenuLoaded`, `loadMenus`, `unloadMenus` by groups: the groups are collected into the",
        "  core library's array first, which grows by 8 elements and copies every group reference at",
        "  each growth, about n²/16 reference copies: the module's own time, which is why their",
        "  overhead ratio grows with n. `loadMenus` collects them again for each file.",
        *snap_entries_reason(series, formulas),
        "",
        "## The simulated host's own calls",
        "",
        "`build/linux/bin/sim_calls_bench`, with the host's journal off unless a row says otherwise.",
        "",
        "### Lookups by name",
        "",
        "A host call that finds an entry by its name, on hosts of n entries of its kind, the one asked",
        "for standing last (`bench/lookups_bench.cpp`). The host keeps the nodes of each collection",
        "asked by name by their folded names (`sim/src/model/name_index.h`; the state's maps and lists",
        "of names and paths in `sim/src/model/text_index.h`), kept by the calls that add, remove or",
        "rename entries and read again after the state was changed directly, so that the time does not",
        "grow with n; `tests/sim/call_cost_test.cpp` holds each walk by name to a constant number of",
        "entries looked at per call. The flyout row names its toolbar by group among n groups and by",
        "tag among the group's n toolbars; the menu file row loads a group beside n groups (whose names",
        "it checks) and unloads it again.",
        "",
        *sim_series_table(sim_series, sim_fits, "lookup/"),
        "",
        "### Host states",
        "",
        "`sim::stateToJson`, `sim::stateFromJson` and `==` on states of n groups, each with a menu",
        "on the menu bar (and a toolbar), n toolbars or n open drawings (`bench/state_bench.cpp`). The",
        "menu bar's menus are related to the groups' and the active drawing to the drawings in one pass",
        "each, so none is worse than linear in what it does; rows fitted as N lg N grow with the memory",
        "the nodes take, as in the scaling rows above.",
        "",
        *sim_series_table(sim_series, sim_fits, "state/"),
        "",
        *state_growth(sim_series, sim_fits),
        "### Single calls, and a GoogleMock peer",
        "",
        "A collection's count, an item by position and the item's name on the default host, with the",
        "journal off and on; and one member, `HostMenuGroups::get_Count`, called through the imported",
        "interface's typed wrapper on the simulated host and on a GoogleMock mock of the same interface",
        "that expects the call and answers it (`bench/mock_peer_bench.cpp`).",
        "",
        *sim_calls_table(sim_calls),
        "",
        *peer_ratio(sim_calls),
        "A mock's call goes through GoogleMock's matching of the call against its expectations, under",
        "a lock, for every call; the simulated host's call checks that its object's node is still in",
        "the host, consults the armed faults and answers from its state, with no journal entry written.",
        "",
        "## Host calls per operation",
        "",
        "The formulas as `tests/module/host_call_counts_test.cpp` holds them, recorded by its tests in",
        "this run of `make bench`: each row runs on hosts of size n = 1, 10 and 100 as",
        "`HostCallCounts/PerOperation.FollowsItsFormula/<row>_<n>`, and fails when the host's journal",
        "counts other than its formula (`make bench` goes on then, and the row's result says where).",
        "The hosts, the calls each formula counts and the calls made on purpose are described in",
        "[host-call-counts.md](host-call-counts.md).",
        "",
        *formula_table(formulas),
        "",
        "## zorbsim",
        "",
        "`zorbsim run` of scenarios of read-only calls on the default host (`scripts/zorbsim_throughput.py`,",
        "which writes them into `build/linux/bench/`), its report sent to /dev/null; the run time",
        "includes zorbsim's start and the reading of the scenario.",
        "",
        *zorbsim_table(load(zorbsim)),
        "",
    ]
    with open(out, "w") as target:
        target.write("\n".join(page))


if __name__ == "__main__":
    main()
