# Quick start: `make demo` runs the simulator's demo, `make test` runs the test suites of the linux,
# windows and linux-sanitize builds, `make fuzz` runs every fuzz target for FUZZ_SECONDS each,
# `make bench` runs the benchmarks of the module and zorbsim and writes docs/performance.md,
# `make screenshot` renews docs/view.png from the browser test of zorbsim's pages, `make mutate` seeds
# defects into the module one at a time and reports those the linux suite lets live.
.PHONY: demo test deps build-linux build-windows build-sanitize test-linux test-windows test-sanitize fuzz \
	valgrind bench screenshot mutate wine-prefix clean

JOBS ?= $(shell nproc)
FUZZ_SECONDS ?= 60
WINEPREFIX := $(CURDIR)/build/wineprefix
export WINEPREFIX
export WINEDEBUG := -all
export WINEDLLOVERRIDES := mscoree,mshtml=

demo: deps
	cmake --preset linux >/dev/null
	cmake --build --preset linux --target zorbsim -j $(JOBS)
	./build/linux/bin/zorbsim demo

# Each build's tests run even when one before it failed; the last lines name what failed (which
# tests, or the build before them) or say that all passed, so that the end of a long log says where to look.
test: deps
	@failed=""; \
	suite() { rm -f build/$$2/Testing/Temporary/LastTestsFailed.log; \
	  $(MAKE) --no-print-directory $$1 || failed="$$failed $$2"; }; \
	suite test-linux linux; suite test-windows windows; suite test-sanitize linux-sanitize; \
	for build in $$failed; do \
	  log=build/$$build/Testing/Temporary/LastTestsFailed.log; \
	  if [ -f $$log ]; then echo "== $$build: failed tests: $$(cut -d: -f2 $$log | tr '\n' ' ')=="; \
	  else echo "== $$build: failed before any test did (its build, or CTest itself) =="; fi; \
	done; \
	[ -z "$$failed" ] && echo "== linux, windows and linux-sanitize: every test passed =="

deps:
	@./scripts/ensure-deps.sh

build-linux:
	cmake --preset linux >/dev/null
	cmake --build --preset linux -j $(JOBS)

# The build runs typelib_import under Wine, in the build's own prefix.
build-windows: wine-prefix
	cmake --preset windows >/dev/null
	cmake --build --preset windows -j $(JOBS)

build-sanitize:
	cmake --preset linux-sanitize >/dev/null
	cmake --build --preset linux-sanitize -j $(JOBS)

wine-prefix:
	@./scripts/wine-prefix.sh $(WINEPREFIX)

# Each suite prints CTest's own summary.
test-linux: build-linux
	@echo "== linux =="
	ctest --preset linux

test-windows: build-windows wine-prefix
	@echo "== windows (Wine) =="
	ctest --preset windows

# The linux suite under ASan + UBSan, and a brief run of each fuzz target (CTest label "fuzz").
test-sanitize: build-sanitize
	@echo "== linux-sanitize (ASan + UBSan, brief fuzz runs) =="
	ctest --preset linux-sanitize

# One target after another, with libFuzzer's progress as it goes; what they find is saved in
# build/linux-sanitize/fuzz/<target>/.
fuzz: deps build-sanitize
	FUZZ_SECONDS=$(FUZZ_SECONDS) ctest --preset linux-sanitize -L fuzz -j 1 --verbose

# Every linux test program and two zorbsim runs under memcheck (scripts/valgrind.sh).
valgrind: build-linux
	./scripts/valgrind.sh build/linux

# The benchmarks' results go to build/linux/bench/ as JSON; the page is made from them, and from
# the host-call count tests, which record their formulas in GoogleTest's JSON report (a formula
# that fails is shown so on the page, so the run goes on).
BENCH_OUT := build/linux/bench
bench: deps
	cmake --preset linux >/dev/null
	cmake --build --preset linux -j $(JOBS) --target operations_bench scaling_bench sim_calls_bench zorbsim module_tests
	mkdir -p $(BENCH_OUT)
	-./build/linux/bin/module_tests --gtest_filter='HostCallCounts*' --gtest_brief=1 \
		--gtest_output=json:$(BENCH_OUT)/host_call_counts.json
	./build/linux/bin/operations_bench --benchmark_out=$(BENCH_OUT)/operations.json --benchmark_out_format=json
	./build/linux/bin/scaling_bench --benchmark_out=$(BENCH_OUT)/scaling.json --benchmark_out_format=json
	./build/linux/bin/sim_calls_bench --benchmark_out=$(BENCH_OUT)/sim_calls.json --benchmark_out_format=json
	./scripts/zorbsim_throughput.py build/linux/bin/zorbsim $(BENCH_OUT) 10000 100000 > $(BENCH_OUT)/zorbsim.json
	./scripts/performance_page.py $(BENCH_OUT)/operations.json $(BENCH_OUT)/scaling.json \
		$(BENCH_OUT)/sim_calls.json $(BENCH_OUT)/zorbsim.json $(BENCH_OUT)/host_call_counts.json docs/performance.md

# The browser test takes the screenshot in the build folder; the documentation shows this copy.
screenshot: build-linux
	ctest --preset linux -R '^zorbsim.pages_in_browser$$'
	cp build/linux/tests/zorbsim/view.png docs/view.png

# Seeded-defect testing (scripts/mutate.py, docs/mutation-testing.md): not part of `test`, since
# every defect costs a build. It works in build/mutate on a copy of the sources, goes on where an
# earlier run stopped, and writes build/mutate/report.md. MUTATE_ARGS passes options:
#   make mutate MUTATE_ARGS="--files menus/snap_menu.cpp --minutes 10 --lock /path/to/lockfile"
mutate: deps
	./scripts/mutate.py $(MUTATE_ARGS)

clean:
	rm -rf build
