# Quick start: `make demo` runs the simulator's demo, `make test` runs both builds' test suites.
.PHONY: demo test deps build-linux build-windows test-linux test-windows asan valgrind wine-prefix clean

JOBS ?= $(shell nproc)
WINEPREFIX := $(CURDIR)/build/wineprefix
export WINEPREFIX
export WINEDEBUG := -all
export WINEDLLOVERRIDES := mscoree,mshtml=

demo: deps
	cmake --preset linux >/dev/null
	cmake --build --preset linux --target zorbsim -j $(JOBS)
	./build/linux/bin/zorbsim demo

test: deps
	@status=0; \
	$(MAKE) --no-print-directory test-linux || status=1; \
	$(MAKE) --no-print-directory test-windows || status=1; \
	exit $$status

deps:
	@./scripts/ensure-deps.sh

build-linux:
	cmake --preset linux >/dev/null
	cmake --build --preset linux -j $(JOBS)

build-windows:
	cmake --preset windows >/dev/null
	cmake --build --preset windows -j $(JOBS)

wine-prefix:
	@./scripts/wine-prefix.sh $(WINEPREFIX)

# Each suite prints CTest's own summary; the second build runs even when the first failed,
# and the target fails when either did.
test-linux: build-linux
	@echo "== linux =="
	ctest --preset linux

test-windows: build-windows wine-prefix
	@echo "== windows (Wine) =="
	ctest --preset windows

asan: deps
	cmake --preset linux-asan >/dev/null
	cmake --build --preset linux-asan -j $(JOBS)
	ctest --preset linux-asan

# Every linux test program and two zorbsim runs under memcheck (scripts/valgrind.sh).
valgrind: build-linux
	./scripts/valgrind.sh build/linux

clean:
	rm -rf build
